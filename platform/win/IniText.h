// The lines of a profile file, each kept as it is until it is changed.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

enum class IniEncoding { Ansi, Utf8, Utf16, Utf16Big };

struct IniLine {
    enum class Kind { Other, Section, Key };   // Other: blank lines and comments
    Kind kind = Kind::Other;
    std::wstring text;       // the whole line
    std::wstring name;       // of the section or key, without outer blanks
    std::wstring value;      // without outer blanks, quotes included
    bool hasValue = false;   // there is a "="
};

class IniText {
public:
    static IniText Parse(std::string_view bytes);
    std::string Bytes() const;

    // The line of the first section of that name, the first key in it. The section "" is what stands before the first
    // header.
    const IniLine* Find(std::wstring_view section, std::wstring_view key) const;
    // The keys of the first section of that name, in the file's order; null where there is no such section.
    std::vector<const IniLine*> KeysOf(std::wstring_view section) const;
    std::vector<std::wstring> SectionNames() const;

    void Set(std::wstring_view section, std::wstring_view key, std::wstring_view value);
    void RemoveKey(std::wstring_view section, std::wstring_view key);
    void RemoveSection(std::wstring_view section);

private:
    struct Span {
        size_t first, last;   // lines behind the header up to the next one
        bool found;
    };
    Span SpanOf(std::wstring_view section) const;
    size_t KeyIndex(const Span& span, std::wstring_view key) const;

    IniEncoding m_encoding = IniEncoding::Ansi;
    std::vector<IniLine> m_lines;
};

}   // namespace KxPlat
