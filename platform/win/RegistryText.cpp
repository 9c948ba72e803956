#include "RegistryText.h"
#include "CharTables.h"
#include "CodePage.h"
#include "RegistryTypes.h"
#include <algorithm>
#include <optional>

namespace KxPlat {
namespace {

constexpr std::wstring_view kHeader = L"Windows Registry Editor Version 5.00";
constexpr std::wstring_view kOldHeader = L"REGEDIT4";

const wchar_t* const kRoots[] = {L"HKEY_LOCAL_MACHINE", L"HKEY_CURRENT_USER",   L"HKEY_CLASSES_ROOT",
                                 L"HKEY_USERS",         L"HKEY_CURRENT_CONFIG", L"HKEY_PERFORMANCE_DATA"};

bool IsBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

std::wstring_view Trimmed(std::wstring_view text)
{
    while (!text.empty() && (IsBlank(text.back()) || text.back() == L'\r'))
        text.remove_suffix(1);
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

int HexDigit(wchar_t character)
{
    const size_t digit = std::wstring_view(L"0123456789abcdef").find(Lower(character));
    return digit == std::wstring_view::npos ? -1 : static_cast<int>(digit);
}

bool IsTextType(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

class Reader {
public:
    Reader(std::wstring_view text, RegistryKey& root) : m_text(text), m_root(root) {}

    RegistryReading Read()
    {
        RegistryReading reading;
        const std::wstring_view header = Trimmed(NextLine());
        m_isOld = header == kOldHeader;
        reading.isRegistry = m_isOld || header == kHeader;
        while (reading.isRegistry && m_at < m_text.size()) {
            const size_t line = m_line + 1;
            if (!ReadLine() && reading.badLine == 0)
                reading.badLine = line;
        }
        return reading;
    }

private:
    std::wstring_view NextLine()
    {
        const size_t end = std::min(m_text.find(L'\n', m_at), m_text.size());
        const std::wstring_view line = m_text.substr(m_at, end - m_at);
        m_at = std::min(end + 1, m_text.size());
        ++m_line;
        return line;
    }

    // False for a line that cannot be understood.
    bool ReadLine()
    {
        const size_t start = m_at;
        const std::wstring_view line = Trimmed(NextLine());
        if (line.empty() || line[0] == L';')
            return true;
        if (line[0] == L'[')
            return ReadKey(line);
        if (line[0] != L'"' && line[0] != L'@')
            return false;
        // A text may run over several lines; it is read again from its start.
        m_at = m_item = m_text.find(line[0], start);
        --m_line;
        std::wstring name;
        if (line[0] == L'@')
            ++m_at;
        else if (!ReadQuoted(name))
            return Skip();
        SkipBlanks();
        if (name.size() > kLongestValueName || m_at == m_text.size() || m_text[m_at] != L'=')
            return Skip();
        ++m_at;
        SkipBlanks();
        return ReadValue(name) || Skip();
    }

    // Passes over what is left of a line.
    bool Skip()
    {
        if (m_at == m_item || m_text[m_at - 1] != L'\n')
            NextLine();
        return false;
    }

    bool ReadKey(std::wstring_view line)
    {
        m_key = nullptr;
        const size_t end = line.rfind(L']');
        if (end == std::wstring_view::npos)
            return false;
        const bool removes = line[1] == L'-';
        const size_t first = removes ? 2 : 1;
        if (end <= first)
            return false;
        RegistryPath path = RegistrySteps(line.substr(first, end - first));
        const auto isRoot = [&path](const wchar_t* root) { return EqualNoCase(path[0], root); };
        const auto isLong = [](const std::wstring& step) { return step.size() > kLongestKeyName; };
        if (path.empty() || std::none_of(std::begin(kRoots), std::end(kRoots), isRoot) || path.size() > kDeepestKey ||
            std::any_of(path.begin(), path.end(), isLong))
            return false;
        path = RegistryPlace(std::move(path));
        if (removes) {
            const std::wstring name = path.back();
            path.pop_back();
            if (RegistryKey* parent = FindKey(m_root, path))
                parent->Remove(name);
            return true;
        }
        m_key = &m_root;
        for (const std::wstring& step : path)
            m_key = &m_key->FindOrAdd(step);
        return true;
    }

    void SkipBlanks()
    {
        while (m_at < m_text.size() && IsBlank(m_text[m_at]))
            ++m_at;
    }

    // From a quotation mark to behind the next one.
    bool ReadQuoted(std::wstring& out)
    {
        size_t at = m_at + 1;
        for (; at < m_text.size() && m_text[at] != L'"'; ++at) {
            if (m_text[at] == L'\\' && at + 1 < m_text.size())
                ++at;
            out += m_text[at];
        }
        if (at >= m_text.size())
            return false;
        m_line += static_cast<size_t>(
            std::count(m_text.begin() + std::ptrdiff_t(m_at), m_text.begin() + std::ptrdiff_t(at), L'\n'));
        m_at = at + 1;
        return true;
    }

    bool ReadValue(const std::wstring& name)
    {
        std::wstring text;
        if (m_at < m_text.size() && m_text[m_at] == L'"') {
            if (!ReadQuoted(text) || !AtLineEnd())
                return false;
            NextLine();
            return Set(name, REG_SZ, UnitBytes(text + L'\0'));
        }
        text = JoinedLine();
        if (text == L"-")
            return m_key != nullptr && (m_key->RemoveValue(name), true);
        if (text.starts_with(L"dword:"))
            return ReadDword(name, std::wstring_view(text).substr(6));
        return ReadHex(name, text);
    }

    bool AtLineEnd()
    {
        const size_t end = std::min(m_text.find(L'\n', m_at), m_text.size());
        const std::wstring_view rest = Trimmed(m_text.substr(m_at, end - m_at));
        return rest.empty() || rest[0] == L';';
    }

    // The rest of the line in lower case without blanks and comment; a backslash at its end joins the next line.
    std::wstring JoinedLine()
    {
        std::wstring joined;
        for (;;) {
            const std::wstring_view line = NextLine();
            for (wchar_t character : line.substr(0, line.find(L';'))) {
                if (!IsBlank(character) && character != L'\r')
                    joined += Lower(character);
            }
            if (joined.empty() || joined.back() != L'\\' || m_at >= m_text.size())
                return joined;
            joined.pop_back();
        }
    }

    bool ReadDword(const std::wstring& name, std::wstring_view digits)
    {
        if (digits.empty() || digits.size() > 8)
            return false;
        DWORD value = 0;
        for (wchar_t character : digits) {
            const int digit = HexDigit(character);
            if (digit < 0)
                return false;
            value = value << 4 | static_cast<DWORD>(digit);
        }
        std::string data;
        for (int shift = 0; shift < 32; shift += 8)
            data += static_cast<char>(value >> shift & 0xFF);
        return Set(name, REG_DWORD, std::move(data));
    }

    // "hex:01,02" or "hex(7):61,00"
    bool ReadHex(const std::wstring& name, std::wstring_view text)
    {
        const size_t colon = text.find(L':');
        if (!text.starts_with(L"hex") || colon == std::wstring_view::npos)
            return false;
        DWORD type = REG_BINARY;
        const std::wstring_view kind = text.substr(3, colon - 3);
        if (!kind.empty()) {
            type = 0;
            if (kind.size() < 3 || kind.size() > 10 || kind.front() != L'(' || kind.back() != L')')
                return false;
            for (wchar_t character : kind.substr(1, kind.size() - 2)) {
                const int digit = HexDigit(character);
                if (digit < 0)
                    return false;
                type = type << 4 | static_cast<DWORD>(digit);
            }
        }
        std::optional<std::string> data = HexBytes(text.substr(colon + 1));
        if (!data)
            return false;
        if (m_isOld && IsTextType(type))
            data = UnitBytes(Decode(0, *data));
        return Set(name, type, std::move(*data));
    }

    static std::optional<std::string> HexBytes(std::wstring_view text)
    {
        std::string data;
        while (!text.empty()) {
            const size_t end = std::min(text.find(L','), text.size());
            const int high = end > 1 ? HexDigit(text[0]) : 0;
            const int low = end > 0 ? HexDigit(text[end - 1]) : -1;
            if (end > 2 || high < 0 || low < 0)
                return std::nullopt;
            data += static_cast<char>(high << 4 | low);
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        return data;
    }

    bool Set(const std::wstring& name, DWORD type, std::string data)
    {
        if (m_key == nullptr)
            return false;
        m_key->SetValue(name, type, std::move(data));
        return true;
    }

    std::wstring_view m_text;
    RegistryKey& m_root;
    RegistryKey* m_key = nullptr;   // null: values are passed over
    size_t m_at = 0, m_line = 0;
    size_t m_item = 0;   // where the value that is being read begins
    bool m_isOld = false;
};

// --- writing ----------------------------------------------------------------------------------------------------

std::wstring Quoted(std::wstring_view text)
{
    std::wstring quoted = L"\"";
    for (wchar_t character : text) {
        if (character == L'"' || character == L'\\')
            quoted += L'\\';
        quoted += character;
    }
    return quoted + L'"';
}

// The text of a value that can be written between quotation marks.
std::optional<std::wstring> PlainText(const RegistryValue& value)
{
    if (value.type != REG_SZ || value.data.size() < 2 || value.data.size() % 2 != 0)
        return std::nullopt;
    std::wstring text = TextOfBytes(value.data);
    if (text.back() != 0)
        return std::nullopt;
    text.pop_back();
    const auto isOdd = [](wchar_t character) {
        return character < L' ' || (character >= 0xD800 && character < 0xE000) || character == 0xFEFF;
    };
    return std::any_of(text.begin(), text.end(), isOdd) ? std::nullopt : std::optional(text);
}

std::wstring HexText(const RegistryValue& value)
{
    static const wchar_t kDigits[] = L"0123456789abcdef";
    std::wstring text = L"hex";
    if (value.type != REG_BINARY) {
        std::wstring type;
        for (DWORD rest = value.type; rest != 0 || type.empty(); rest >>= 4)
            type.insert(type.begin(), kDigits[rest & 15]);
        text += L"(" + type + L")";
    }
    text += L":";
    constexpr size_t kPerLine = 25;
    for (size_t i = 0; i < value.data.size(); ++i) {
        const auto byte = static_cast<unsigned char>(value.data[i]);
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
        if (i + 1 < value.data.size())
            text += (i + 1) % kPerLine == 0 ? L",\\\r\n  " : L",";
    }
    return text;
}

std::wstring ValueText(const RegistryValue& value)
{
    if (const std::optional<std::wstring> text = PlainText(value))
        return Quoted(*text);
    if (value.type != REG_DWORD || value.data.size() != 4)
        return HexText(value);
    std::wstring digits;
    for (size_t i = 4; i-- > 0;) {
        const auto byte = static_cast<unsigned char>(value.data[i]);
        digits += {L"0123456789abcdef"[byte >> 4], L"0123456789abcdef"[byte & 15]};
    }
    return L"dword:" + digits;
}

void WriteKey(const RegistryKey& key, const std::wstring& path, std::wstring& out)
{
    if (!path.empty()) {
        out += L"\r\n[" + path + L"]\r\n";
        for (const RegistryValue& value : key.Values())
            out += (value.name.empty() ? L"@" : Quoted(value.name)) + L"=" + ValueText(value) + L"\r\n";
    }
    for (const auto& child : key.Keys())
        WriteKey(*child, path.empty() ? child->Name() : path + L"\\" + child->Name(), out);
}

struct Decoded {
    std::wstring text;
    RegistryEncoding encoding = RegistryEncoding::Utf8;
};

Decoded DecodedText(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE"))
        return {TextOfBytes(bytes.substr(2)), RegistryEncoding::Utf16};
    if (bytes.starts_with("\xFE\xFF")) {
        std::string swapped(bytes.substr(2, (bytes.size() - 2) / 2 * 2));
        for (size_t i = 0; i + 1 < swapped.size(); i += 2)
            std::swap(swapped[i], swapped[i + 1]);
        return {TextOfBytes(swapped), RegistryEncoding::Utf16};
    }
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    else if (bytes.starts_with("REGEDIT4"))
        return {Decode(0, bytes)};
    return {FromUtf8(bytes)};
}

}   // namespace

std::string UnitBytes(std::wstring_view text)
{
    std::string bytes;
    for (char16_t unit : ToUtf16(text)) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

std::wstring TextOfBytes(std::string_view bytes)
{
    std::u16string units;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        units +=
            static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8);
    return FromUtf16(units);
}

RegistryReading ReadRegistry(std::string_view bytes, RegistryKey& root)
{
    const Decoded decoded = DecodedText(bytes);
    RegistryReading reading = Reader(decoded.text, root).Read();
    reading.encoding = decoded.encoding;
    return reading;
}

std::string RegistryText(const RegistryKey& root, RegistryEncoding encoding)
{
    std::wstring text = std::wstring(kHeader) + L"\r\n";
    WriteKey(root, L"", text);
    return encoding == RegistryEncoding::Utf16 ? "\xFF\xFE" + UnitBytes(text) : ToUtf8(text);
}

}   // namespace KxPlat
