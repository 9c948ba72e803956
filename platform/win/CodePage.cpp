#include "CodePage.h"
#include "CodeTable.h"
#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace KxPlat {
namespace {

unsigned& AcpSetting()
{
    static unsigned setting = 0;
    return setting;
}

struct NameRow {
    const char* name;
    unsigned codePage;
};
const NameRow kNames[] = {
    {"utf8", kUtf8},  {"gbk", 936},       {"gb2312", 936},     {"big5", 950},  {"ksc5601", 949},  {"johab", 1361},
    {"ascii", 20127}, {"usascii", 20127}, {"macroman", 10000}, {"mac", 10000}, {"shiftjis", 932}, {"sjis", 932},
};
// A prefix before a number, and what is added to the number.
const NameRow kPrefixes[] = {{"ansi", 0}, {"dos", 0}, {"windows", 0}, {"cp", 0}, {"iso8859", 28590}, {"", 0}};

// Lower-case letters and digits of a name, without "-", "_" and blanks.
std::string PlainName(std::string_view name)
{
    std::string plain;
    for (char c : name) {
        if (c >= 'A' && c <= 'Z')
            plain += static_cast<char>(c + 'a' - 'A');
        else if (c != '-' && c != '_' && c != ' ')
            plain += c;
    }
    return plain;
}

unsigned Resolved(unsigned codePage)
{
    return codePage == 0 || codePage == 1 || codePage == 3 ? AnsiCodePage() : codePage;
}

// Null for UTF-8, which also stands for code pages that are unknown.
const CodeTable* TableOf(unsigned codePage)
{
    codePage = Resolved(codePage);
    return codePage == kUtf8 ? nullptr : FindCodeTable(codePage);
}

size_t AsciiRun(std::string_view bytes, size_t from)
{
    size_t end = from;
    while (end < bytes.size() && static_cast<unsigned char>(bytes[end]) < 0x80)
        ++end;
    return end - from;
}

struct Utf8Step {
    wchar_t character;
    size_t length;   // 0 for a wrong byte
};

Utf8Step NextUtf8(std::string_view bytes, size_t at)
{
    const auto byte = [&](size_t offset) { return static_cast<unsigned char>(bytes[at + offset]); };
    const unsigned char first = byte(0);
    if (first < 0x80)
        return {static_cast<wchar_t>(first), 1};
    const size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || at + length > bytes.size())
        return {0, 0};
    unsigned value = first & (0x7Fu >> length);
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {0, 0};
        value = value << 6 | (byte(i) & 0x3F);
    }
    static const unsigned kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    if (value < kLeast[length] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        return {0, 0};
    return {static_cast<wchar_t>(value), length};
}

void AppendUtf8(unsigned value, std::string& out)
{
    if (value < 0x80) {
        out += static_cast<char>(value);
        return;
    }
    if (value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        value = 0xFFFD;
    const int tail = value < 0x800 ? 1 : value < 0x10000 ? 2 : 3;
    static const unsigned kFirst[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(kFirst[tail] | value >> (6 * tail));
    for (int i = tail - 1; i >= 0; --i)
        out += static_cast<char>(0x80 | (value >> (6 * i) & 0x3F));
}

// Appends the text of `bytes`. `wrong(count, out)` is told of `count` bytes that are no character and answers how many
// it took.
template <class Wrong>
void DecodeUtf8(std::string_view bytes, std::wstring& out, Wrong wrong)
{
    for (size_t at = 0; at < bytes.size();) {
        const size_t run = AsciiRun(bytes, at);
        out.append(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                   bytes.begin() + static_cast<std::ptrdiff_t>(at + run));
        at += run;
        if (at == bytes.size())
            return;
        const Utf8Step step = NextUtf8(bytes, at);
        if (step.length == 0) {
            at += wrong(bytes.substr(at, 1), out);
            continue;
        }
        out += step.character;
        at += step.length;
    }
}

template <class Wrong>
void DecodeTable(const CodeTable& table, std::string_view bytes, std::wstring& out, Wrong wrong)
{
    for (size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        const bool pair = table.lead[byte] && at + 1 < bytes.size();
        const unsigned both = pair ? byte * 256u + static_cast<unsigned char>(bytes[at + 1]) : 0;
        const uint16_t character = pair ? table.pairs[both] : table.single[byte];
        if (character == kNoChar) {
            at += wrong(bytes.substr(at, pair && bytes[at + 1] != 0 ? 2 : 1), out);
            continue;
        }
        out += static_cast<wchar_t>(character);
        at += pair ? 2 : 1;
    }
}

template <class Wrong>
void DecodeAny(unsigned codePage, std::string_view bytes, std::wstring& out, Wrong wrong)
{
    const CodeTable* table = TableOf(codePage);
    out.reserve(out.size() + bytes.size());
    if (table != nullptr)
        DecodeTable(*table, bytes, out, wrong);
    else
        DecodeUtf8(bytes, out, wrong);
}

bool IsPairAt(std::wstring_view text, size_t at)
{
    return at + 1 < text.size() && text[at] >= 0xD800 && text[at] < 0xDC00 && text[at + 1] >= 0xDC00 &&
           text[at + 1] < 0xE000;
}

unsigned JoinPair(unsigned high, unsigned low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

// Without a table in UTF-8.
bool AppendChar(const CodeTable* table, wchar_t character, std::string& out)
{
    const auto value = static_cast<unsigned>(character);
    if (table == nullptr) {
        AppendUtf8(value, out);
        return true;
    }
    const uint16_t bytes = value < 0x10000 ? table->back[value] : 0;
    if (bytes == 0 && value != 0)
        return false;
    if (bytes >= 0x100)
        out += static_cast<char>(bytes >> 8);
    out += static_cast<char>(bytes & 0xFF);
    return true;
}

}   // namespace

unsigned AnsiCodePage()
{
    unsigned& setting = AcpSetting();
    if (setting == 0) {
        const char* wanted = std::getenv("KX_ACP");
        const unsigned codePage = wanted != nullptr ? CodePageOf(wanted) : 0;
        setting = codePage > 3 && IsCodePage(codePage) ? codePage : kUtf8;
    }
    return setting;
}

bool SetAnsiCodePage(unsigned codePage)
{
    if (codePage <= 3 || !IsCodePage(codePage))
        return false;
    AcpSetting() = codePage;
    return true;
}

bool IsCodePage(unsigned codePage)
{
    codePage = Resolved(codePage);
    return codePage == kUtf8 || FindCodeTable(codePage) != nullptr;
}

unsigned CodePageOf(std::string_view name)
{
    const std::string plain = PlainName(name);
    for (const NameRow& row : kNames) {
        if (plain == row.name)
            return row.codePage;
    }
    for (const NameRow& row : kPrefixes) {
        const std::string_view prefix = row.name;
        if (plain.compare(0, prefix.size(), prefix) != 0)
            continue;
        unsigned number = 0;
        const char* end = plain.data() + plain.size();
        const auto [stop, error] = std::from_chars(plain.data() + prefix.size(), end, number);
        if (error == std::errc() && stop == end && IsCodePage(number + row.codePage))
            return number + row.codePage;
    }
    return 0;
}

bool IsLeadByte(unsigned codePage, unsigned char byte)
{
    const CodeTable* table = TableOf(codePage);
    return table != nullptr && table->lead[byte];
}

std::string ToUtf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size(); ++at) {
        if (IsPairAt(text, at)) {
            AppendUtf8(JoinPair(static_cast<unsigned>(text[at]), static_cast<unsigned>(text[at + 1])), out);
            ++at;
        } else {
            AppendUtf8(static_cast<unsigned>(text[at]), out);
        }
    }
    return out;
}

std::wstring FromUtf8(std::string_view bytes)
{
    return Decode(kUtf8, bytes);
}

std::wstring Decode(unsigned codePage, std::string_view bytes)
{
    const wchar_t substitute = TableOf(codePage) != nullptr ? L'?' : L'\xFFFD';
    std::wstring out;
    DecodeAny(codePage, bytes, out, [substitute](std::string_view wrong, std::wstring& text) {
        text += substitute;
        return wrong.size();
    });
    return out;
}

bool EncodeChar(unsigned codePage, wchar_t character, std::string& out)
{
    return AppendChar(TableOf(codePage), character, out);
}

std::string Encode(unsigned codePage, std::wstring_view text)
{
    const CodeTable* table = TableOf(codePage);
    if (table == nullptr)
        return ToUtf8(text);
    std::string out;
    out.reserve(text.size());
    for (wchar_t character : text) {
        if (!AppendChar(table, character, out))
            out += '?';
    }
    return out;
}

void DecodeLossless(unsigned codePage, std::string_view bytes, std::wstring& out)
{
    DecodeAny(codePage, bytes, out, [](std::string_view wrong, std::wstring& text) {
        text += static_cast<wchar_t>(0xDC00 + static_cast<unsigned char>(wrong[0]));
        return size_t(1);
    });
}

std::wstring DecodeLossless(unsigned codePage, std::string_view bytes)
{
    std::wstring out;
    DecodeLossless(codePage, bytes, out);
    return out;
}

void EncodeLossless(unsigned codePage, std::wstring_view text, std::string& out, const UnmappedWriter& unmapped)
{
    const CodeTable* table = TableOf(codePage);
    for (size_t at = 0; at < text.size(); ++at) {
        wchar_t character = text[at];
        if (character < 0x80) {
            out += static_cast<char>(character);
            continue;
        }
        if (IsPairAt(text, at)) {
            character =
                static_cast<wchar_t>(JoinPair(static_cast<unsigned>(character), static_cast<unsigned>(text[at + 1])));
            ++at;
        }
        if (character >= 0xDC80 && character <= 0xDCFF) {
            out += static_cast<char>(character - 0xDC00);
            continue;
        }
        const bool surrogate = character >= 0xD800 && character < 0xE000;
        if (!surrogate && AppendChar(table, character, out))
            continue;
        if (unmapped)
            unmapped(character, out);
        else
            out += '?';
    }
}

std::u16string ToUtf16(std::wstring_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (wchar_t character : text) {
        auto value = static_cast<unsigned>(character);
        if (value > 0x10FFFF)
            value = 0xFFFD;
        if (value >= 0x10000) {
            out += static_cast<char16_t>(0xD800 + ((value - 0x10000) >> 10));
            value = 0xDC00 + ((value - 0x10000) & 0x3FF);
        }
        out += static_cast<char16_t>(value);
    }
    return out;
}

std::wstring FromUtf16(std::u16string_view units)
{
    std::wstring out;
    out.reserve(units.size());
    for (size_t at = 0; at < units.size(); ++at) {
        const unsigned unit = units[at];
        const unsigned next = at + 1 < units.size() ? units[at + 1] : 0;
        if (unit >= 0xD800 && unit < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            out += static_cast<wchar_t>(JoinPair(unit, next));
            ++at;
        } else {
            out += static_cast<wchar_t>(unit);
        }
    }
    return out;
}

bool IsUtf8(std::string_view bytes)
{
    for (size_t at = 0; at < bytes.size();) {
        const Utf8Step step = NextUtf8(bytes, at);
        if (step.length == 0)
            return false;
        at += step.length;
    }
    return true;
}

}   // namespace KxPlat
