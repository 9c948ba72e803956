#include "IniText.h"
#include "CharTables.h"
#include "CodePage.h"
#include <algorithm>

namespace KxPlat {
namespace {

struct Mark {
    std::string_view bytes;
    IniEncoding encoding;
};
const Mark kMarks[] = {
    {"\xEF\xBB\xBF", IniEncoding::Utf8}, {"\xFF\xFE", IniEncoding::Utf16}, {"\xFE\xFF", IniEncoding::Utf16Big}};

std::wstring FromUnits(std::string_view bytes, bool big)
{
    std::u16string units;
    for (size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        units += static_cast<char16_t>(big ? first << 8 | second : second << 8 | first);
    }
    return FromUtf16(units);
}

std::string ToUnits(std::wstring_view text, bool big)
{
    std::string bytes;
    for (char16_t unit : ToUtf16(text)) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += big ? high : low;
        bytes += big ? low : high;
    }
    return bytes;
}

// The old mark of a text's end counts as a blank.
bool IsBlank(wchar_t character)
{
    return character == 0x1A || (character != 0xFEFF && IsSpace(character));
}

std::wstring_view Trimmed(std::wstring_view text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

IniLine LineOf(std::wstring_view text)
{
    IniLine line;
    line.text = text;
    // What follows a zero is kept in the file, but says nothing.
    const std::wstring_view plain = Trimmed(text.substr(0, text.find(L'\0')));
    if (plain.empty() || plain[0] == L';')
        return line;
    const size_t bracket = plain.rfind(L']');
    if (plain[0] == L'[' && bracket != std::wstring_view::npos) {
        line.kind = IniLine::Kind::Section;
        line.name = Trimmed(plain.substr(1, bracket - 1));
        return line;
    }
    line.kind = IniLine::Kind::Key;
    const size_t equals = plain.find(L'=');
    line.hasValue = equals != std::wstring_view::npos;
    line.name = Trimmed(plain.substr(0, equals));
    if (line.hasValue)
        line.value = Trimmed(plain.substr(equals + 1));
    return line;
}

IniLine KeyLine(std::wstring_view name, std::wstring_view value)
{
    return LineOf(std::wstring(name) + L"=" + std::wstring(value));
}

}   // namespace

IniText IniText::Parse(std::string_view bytes)
{
    IniText ini;
    for (const Mark& mark : kMarks) {
        if (bytes.substr(0, mark.bytes.size()) != mark.bytes)
            continue;
        ini.m_encoding = mark.encoding;
        bytes.remove_prefix(mark.bytes.size());
        break;
    }
    std::wstring text;
    if (ini.m_encoding == IniEncoding::Ansi || ini.m_encoding == IniEncoding::Utf8)
        text = DecodeLossless(ini.m_encoding == IniEncoding::Ansi ? 0 : kUtf8, bytes);
    else
        text = FromUnits(bytes, ini.m_encoding == IniEncoding::Utf16Big);
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find_first_of(L"\r\n", at), text.size());
        ini.m_lines.push_back(LineOf(std::wstring_view(text).substr(at, end - at)));
        at = end + (text.compare(end, 2, L"\r\n") == 0 ? 2 : 1);
    }
    return ini;
}

std::string IniText::Bytes() const
{
    std::wstring text;
    for (const IniLine& line : m_lines)
        text += line.text + L"\r\n";
    std::string bytes;
    for (const Mark& mark : kMarks) {
        if (mark.encoding == m_encoding)
            bytes = mark.bytes;
    }
    if (m_encoding == IniEncoding::Ansi || m_encoding == IniEncoding::Utf8)
        EncodeLossless(m_encoding == IniEncoding::Ansi ? 0 : kUtf8, text, bytes);
    else
        bytes += ToUnits(text, m_encoding == IniEncoding::Utf16Big);
    return bytes;
}

IniText::Span IniText::SpanOf(std::wstring_view section) const
{
    section = Trimmed(section);
    Span span = {0, 0, section.empty()};
    for (size_t i = 0; i < m_lines.size(); ++i) {
        if (m_lines[i].kind != IniLine::Kind::Section) {
            if (span.found)
                span.last = i + 1;
            continue;
        }
        if (span.found)
            break;
        if (EqualNoCase(m_lines[i].name, section))
            span = {i + 1, i + 1, true};
    }
    return span;
}

size_t IniText::KeyIndex(const Span& span, std::wstring_view key) const
{
    key = Trimmed(key);
    for (size_t i = span.first; i < span.last; ++i) {
        if (m_lines[i].kind == IniLine::Kind::Key && EqualNoCase(m_lines[i].name, key))
            return i;
    }
    return m_lines.size();
}

const IniLine* IniText::Find(std::wstring_view section, std::wstring_view key) const
{
    const size_t index = KeyIndex(SpanOf(section), key);
    return index < m_lines.size() ? &m_lines[index] : nullptr;
}

std::vector<const IniLine*> IniText::KeysOf(std::wstring_view section) const
{
    std::vector<const IniLine*> keys;
    const Span span = SpanOf(section);
    for (size_t i = span.first; i < span.last; ++i) {
        if (m_lines[i].kind == IniLine::Kind::Key)
            keys.push_back(&m_lines[i]);
    }
    return keys;
}

std::vector<std::wstring> IniText::SectionNames() const
{
    std::vector<std::wstring> names;
    for (const IniLine& line : m_lines) {
        if (line.kind == IniLine::Kind::Section)
            names.push_back(line.name);
    }
    return names;
}

void IniText::Set(std::wstring_view section, std::wstring_view key, std::wstring_view value)
{
    while (!value.empty() && IsBlank(value.front()))
        value.remove_prefix(1);
    Span span = SpanOf(section);
    if (!span.found) {
        m_lines.push_back(LineOf(L"[" + std::wstring(Trimmed(section)) + L"]"));
        m_lines.push_back(KeyLine(key, value));
        return;
    }
    const size_t index = KeyIndex(span, key);
    if (index < m_lines.size()) {
        m_lines[index] = KeyLine(m_lines[index].name, value);
        return;
    }
    // Behind the section's last line that says something, so that the gap before the next header stays.
    while (span.last > span.first && Trimmed(m_lines[span.last - 1].text).empty())
        --span.last;
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(span.last), KeyLine(key, value));
}

void IniText::RemoveKey(std::wstring_view section, std::wstring_view key)
{
    const size_t index = KeyIndex(SpanOf(section), key);
    if (index < m_lines.size())
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(index));
}

void IniText::RemoveSection(std::wstring_view section)
{
    const Span span = SpanOf(section);
    if (!span.found)
        return;
    const size_t first = span.first == 0 ? 0 : span.first - 1;
    m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(first),
                  m_lines.begin() + static_cast<std::ptrdiff_t>(span.last));
}

}   // namespace KxPlat
