#include "TextCodec.h"
#include "../../win/CodePage.h"

namespace KxPlat {

namespace {

// The digit of "\M+n..." and the double-byte code page that it names.
constexpr unsigned kPagesOfDigit[] = {0, 932, 950, 949, 1361, 936};

int HexDigit(wchar_t c)
{
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    const wchar_t upper = c & ~wchar_t(0x20);
    return upper >= L'A' && upper <= L'F' ? upper - L'A' + 10 : -1;
}

// Four hexadecimal digits, or -1.
int HexFour(std::wstring_view text, size_t at)
{
    if (at + 4 > text.size())
        return -1;
    int value = 0;
    for (size_t i = at; i < at + 4; ++i) {
        const int digit = HexDigit(text[i]);
        if (digit < 0)
            return -1;
        value = value << 4 | digit;
    }
    return value;
}

// A line end within a text would end the group, and a lone surrogate means an undecodable byte: those stay escapes.
bool IsPlain(int unit)
{
    return unit >= 0x20 && (unit < 0xD800 || unit > 0xDFFF);
}

// "\U+XXXX" at `at`: how many characters it takes, and the one that it stands for; 0 for anything else.
size_t UnicodeEscape(std::wstring_view text, size_t at, wchar_t& character)
{
    const auto unitAt = [&text](size_t place) {
        return text.size() - place >= 7 && (text[place + 1] == L'U' || text[place + 1] == L'u') &&
                       text[place + 2] == L'+'
                   ? HexFour(text, place + 3)
                   : -1;
    };
    const int unit = unitAt(at);
    if (IsPlain(unit)) {
        character = wchar_t(unit);
        return 7;
    }
    if (unit < 0xD800 || unit > 0xDBFF || at + 7 >= text.size() || text[at + 7] != L'\\')
        return 0;
    const int low = unitAt(at + 7);
    if (low < 0xDC00 || low > 0xDFFF)
        return 0;
    character = wchar_t(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
    return 14;
}

size_t MultiByteEscape(std::wstring_view text, size_t at, wchar_t& character)
{
    if (text.size() - at < 8 || (text[at + 1] != L'M' && text[at + 1] != L'm') || text[at + 2] != L'+')
        return 0;
    const int digit = HexDigit(text[at + 3]);
    const int bytes = HexFour(text, at + 4);
    if (digit < 1 || digit > 5 || bytes < 0)
        return 0;
    const char pair[] = {char(bytes >> 8), char(bytes & 255)};
    const std::wstring decoded = DecodeLossless(kPagesOfDigit[digit], {pair, 2});
    if (decoded.size() != 1 || !IsPlain(int(decoded[0])))
        return 0;
    character = decoded[0];
    return 8;
}

std::wstring WithoutEscapes(std::wstring_view text)
{
    std::wstring result;
    result.reserve(text.size());
    for (size_t at = 0; at < text.size();) {
        wchar_t character = text[at];
        size_t taken = 0;
        if (character == L'\\') {
            taken = UnicodeEscape(text, at, character);
            if (taken == 0)
                taken = MultiByteEscape(text, at, character);
        }
        result.push_back(character);
        at += taken == 0 ? 1 : taken;
    }
    return result;
}

void AppendEscape(unsigned unit, std::string& out)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        out.push_back(kDigits[unit >> shift & 15]);
}

void Escape(wchar_t character, std::string& out)
{
    const unsigned code = unsigned(character);
    if (code < 0x10000)
        return AppendEscape(code, out);
    AppendEscape(0xD800 + ((code - 0x10000) >> 10 & 0x3FF), out);
    AppendEscape(0xDC00 + ((code - 0x10000) & 0x3FF), out);
}

}   // namespace

std::string OneLine(std::string_view bytes)
{
    std::string line;
    line.reserve(bytes.size());
    for (char c : bytes) {
        if (c == '\n' || c == '\r' || c == '\0')
            line += {'^', char('@' + c)};
        else
            line += c;
    }
    return line;
}

TextCodec::TextCodec(AcDb::AcDbDwgVersion version, std::string_view pageName)
{
    const unsigned named = CodePageOf(pageName);
    if (version >= AcDb::kDHL_1021)
        m_codePage = kUtf8;
    else if (named != 0 && IsCodePage(named))
        m_codePage = named;
}

CString TextCodec::SlowDecode(std::string_view bytes, bool& isPlain) const
{
    std::wstring wide = DecodeLossless(m_codePage, bytes);
    if (wide.find(L'\\') != wide.npos)
        wide = WithoutEscapes(wide);
    CString text(wide.c_str(), int(wide.size()));
    isPlain = Encode(text) == bytes;
    return text;
}

std::string_view TextCodec::Encode(const CString& text) const
{
    const wchar_t* const wide = text;
    const size_t size = size_t(text.GetLength());
    m_bytes.resize(size);
    size_t i = 0;
    for (; i < size && wide[i] < 0x80 && wide[i] >= 0x20; ++i)
        m_bytes[i] = char(wide[i]);
    if (i < size) {
        m_bytes.clear();
        EncodeLossless(m_codePage, {wide, size}, m_bytes, Escape);
        if (m_bytes.find_first_of(std::string_view("\r\n\0", 3)) != m_bytes.npos)
            m_bytes = OneLine(m_bytes);
    }
    return m_bytes;
}

}   // namespace KxPlat
