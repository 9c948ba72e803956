#include "TagText.h"
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>

namespace TagText {

namespace {

// Kinds of values by group code, from the format's description.
char KindOf(int code)
{
    const auto in = [code](int first, int last) { return code >= first && code <= last; };
    if (in(10, 59) || in(110, 149) || in(210, 239) || in(460, 469) || in(1010, 1059))
        return 'r';
    if (in(60, 79) || in(170, 179) || in(270, 289) || in(370, 389) || in(400, 409) || in(1060, 1070))
        return 's';
    if (in(90, 99) || in(420, 429) || in(440, 459) || code == 1071)
        return 'l';
    if (in(160, 169))
        return 'q';
    if (in(290, 299))
        return 'c';
    if (in(310, 319) || code == 1004)
        return 'b';
    if (in(320, 369) || in(390, 399) || in(480, 481) || code == 5 || code == 105 || code == 1005)
        return 'h';
    return 't';
}

std::string Trim(const std::string& text)
{
    const size_t first = text.find_first_not_of(" \t");
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsHex(const std::string& text)
{
    return !text.empty() && text.size() <= 16 && text.find_first_not_of("0123456789abcdefABCDEF") == text.npos;
}

std::string Bytes(const std::string& hex)
{
    std::string bytes;
    for (size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes.push_back(char(std::strtol(hex.substr(i, 2).c_str(), nullptr, 16)));
    return bytes;
}

// Fortran programs write exponents with a D.
std::string WithE(std::string number)
{
    for (char& c : number)
        if (c == 'D' || c == 'd')
            c = 'e';
    return number;
}

class Source {
public:
    explicit Source(std::string bytes) : m_bytes(std::move(bytes))
    {
        m_isBinary = m_bytes.rfind("AutoCAD Binary DXF", 0) == 0;
        m_at = m_isBinary ? 22 : 0;
        m_isShort = m_isBinary && m_bytes.size() > 23 && m_bytes[23] != 0;
    }
    bool Next(Tag& tag) { return m_isBinary ? NextBinary(tag) : NextLine(tag); }

private:
    std::string Line()
    {
        size_t end = m_bytes.find('\n', m_at);
        if (end == m_bytes.npos)
            end = m_bytes.size();
        std::string line = m_bytes.substr(m_at, end - m_at);
        m_at = end + 1;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        return line;
    }
    bool NextLine(Tag& tag)
    {
        std::string code;
        do {
            if (m_at >= m_bytes.size())
                return false;
            code = Trim(Line());
        } while (code.empty());
        tag = Tag();
        tag.code = std::atoi(code.c_str());
        tag.text = Line();
        const char kind = KindOf(tag.code);
        const std::string value = Trim(tag.text);
        if (kind == 'r')
            tag.kind = 'r', tag.real = std::strtod(WithE(value).c_str(), nullptr);
        else if (kind == 'h' && IsHex(value))
            tag.kind = 'h', tag.handle = std::strtoull(value.c_str(), nullptr, 16);
        else if (kind == 'b')
            tag.kind = 'b', tag.text = Bytes(value);
        else if (std::strchr("slqc", kind) != nullptr)
            tag.kind = 'i', tag.integer = std::strtoll(value.c_str(), nullptr, 10);
        return true;
    }
    template <class T>
    T Raw()
    {
        T value{};
        if (m_at + sizeof value <= m_bytes.size())
            std::memcpy(&value, &m_bytes[m_at], sizeof value);
        m_at += sizeof value;
        return value;
    }
    bool NextBinary(Tag& tag)
    {
        if (m_at >= m_bytes.size())
            return false;
        tag = Tag();
        tag.code = m_isShort ? Raw<uint8_t>() : Raw<int16_t>();
        if (m_isShort && tag.code == 255)
            tag.code = Raw<int16_t>();
        switch (KindOf(tag.code)) {
        case 'r':
            tag.kind = 'r', tag.real = Raw<double>();
            break;
        case 's':
            tag.kind = 'i', tag.integer = Raw<int16_t>();
            break;
        case 'l':
            tag.kind = 'i', tag.integer = Raw<int32_t>();
            break;
        case 'q':
            tag.kind = 'i', tag.integer = Raw<int64_t>();
            break;
        case 'c':
            tag.kind = 'i', tag.integer = Raw<uint8_t>();
            break;
        case 'b': {
            const size_t size = Raw<uint8_t>();
            tag.kind = 'b', tag.text = m_bytes.substr(std::min(m_at, m_bytes.size()), size);
            m_at += size;
            break;
        }
        default:
            tag.text = m_bytes.c_str() + std::min(m_at, m_bytes.size());
            m_at += tag.text.size() + 1;
            if (KindOf(tag.code) == 'h' && IsHex(tag.text))
                tag.kind = 'h', tag.handle = std::strtoull(tag.text.c_str(), nullptr, 16);
        }
        return m_at <= m_bytes.size();
    }

    std::string m_bytes;
    size_t m_at = 0;
    bool m_isBinary = false;
    bool m_isShort = false;
};

bool Same(const Tag& a, const Tag& b)
{
    if (a.code != b.code || a.kind != b.kind)
        return false;
    switch (a.kind) {
    case 'r':
        return a.real == b.real;
    case 'i':
        return a.integer == b.integer;
    case 'h':
        return a.handle == b.handle;
    case 'b':
        return a.text == b.text;
    default:
        return a.text == b.text;
    }
}

std::string Shown(const std::vector<Tag>& tags, size_t i)
{
    if (i >= tags.size())
        return "(nothing)";
    const Tag& tag = tags[i];
    const std::string value = tag.kind == 'r'   ? std::to_string(tag.real)
                              : tag.kind == 'i' ? std::to_string(tag.integer)
                                                : tag.text;
    return std::to_string(tag.code) + "=" + value.substr(0, 60);
}

}   // namespace

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<Record> Load(const std::string& path)
{
    Source source(ReadFile(path));
    std::vector<Record> records;
    std::string section, table;
    bool awaitsSection = false, awaitsTable = false, isKept = false;
    Tag tag;
    while (source.Next(tag)) {
        if (tag.code == 0) {
            if (tag.text == "EOF")
                break;
            awaitsSection = tag.text == "SECTION";
            awaitsTable = tag.text == "TABLE" || tag.text == "BLOCK";
            isKept = !awaitsSection && tag.text != "ENDSEC" && tag.text != "ENDTAB";
            if (awaitsTable || tag.text == "ENDTAB")
                table.clear();
            if (isKept)
                records.push_back({section, table, tag.text, 0, {}});
            continue;
        }
        if (tag.code == 2 && awaitsSection)
            section = tag.text, table.clear(), awaitsSection = false;
        else if (tag.code == 9 && section == "HEADER")
            records.push_back({section, "", tag.text, 0, {}}), isKept = true;
        else if (isKept) {
            if (tag.code == 2 && awaitsTable)
                table = records.back().table = tag.text, awaitsTable = false;
            const int handleCode = records.back().type == "DIMSTYLE" ? 105 : 5;
            if (tag.code == handleCode && tag.kind == 'h' && section != "HEADER" && section != "CLASSES" &&
                records.back().handle == 0)
                records.back().handle = tag.handle;
            records.back().tags.push_back(tag);
        }
    }
    return records;
}

std::string Difference(const Record& a, const Record& b, const std::set<int>& free)
{
    size_t i = 0;
    while (i < a.tags.size() && i < b.tags.size() &&
           (Same(a.tags[i], b.tags[i]) || (a.tags[i].code == b.tags[i].code && free.count(a.tags[i].code) != 0)))
        ++i;
    if (i == a.tags.size() && i == b.tags.size() && a.type == b.type)
        return {};
    return a.section + " " + a.table + " " + a.type + " group " + std::to_string(i) + ": " + Shown(a.tags, i) +
           " became " + b.type + " " + Shown(b.tags, i) + ", after " + Shown(a.tags, i - 1);
}

}   // namespace TagText
