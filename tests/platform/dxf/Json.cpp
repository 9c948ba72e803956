#include "Json.h"
#include <cstdlib>

namespace {

void SkipBlanks(const std::string& text, size_t& at)
{
    while (at < text.size() && std::string(" \t\r\n").find(text[at]) != std::string::npos)
        ++at;
}

bool Take(const std::string& text, size_t& at, const std::string& word)
{
    SkipBlanks(text, at);
    if (text.compare(at, word.size(), word) != 0)
        return false;
    at += word.size();
    return true;
}

void AppendUtf8(long c, std::string& out)
{
    if (c < 0x80)
        out += char(c);
    else if (c < 0x800)
        out += {char(0xC0 | c >> 6), char(0x80 | (c & 0x3F))};
    else
        out += {char(0xE0 | c >> 12), char(0x80 | (c >> 6 & 0x3F)), char(0x80 | (c & 0x3F))};
}

}   // namespace

Json Json::Parse(const std::string& text)
{
    Json value;
    size_t at = 0;
    return ParseValue(text, at, value) ? value : Json();
}

const Json& Json::operator[](const std::string& name) const
{
    static const Json none;
    const auto place = m_members.find(name);
    return place == m_members.end() ? none : place->second;
}

std::vector<std::string> Json::texts() const
{
    std::vector<std::string> result;
    for (const Json& item : m_items)
        result.push_back(item.m_text);
    return result;
}

bool Json::ParseText(const std::string& text, size_t& at, std::string& value)
{
    for (; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] != '\\') {
            value += text[at];
            continue;
        }
        const char c = text[++at];
        if (c == 'u') {
            AppendUtf8(std::strtol(text.substr(at + 1, 4).c_str(), nullptr, 16), value);
            at += 4;
        } else {
            value += c == 'n' ? '\n' : c == 't' ? '\t' : c;
        }
    }
    return at++ < text.size();
}

bool Json::ParseValue(const std::string& text, size_t& at, Json& value)
{
    if (Take(text, at, "\"")) {
        value.m_kind = 's';
        return ParseText(text, at, value.m_text);
    }
    if (Take(text, at, "[")) {
        value.m_kind = 'a';
        while (!Take(text, at, "]"))
            if (!ParseValue(text, at, value.m_items.emplace_back()) || (!Take(text, at, ",") && text[at] != ']'))
                return false;
        return true;
    }
    if (Take(text, at, "{")) {
        value.m_kind = 'o';
        while (!Take(text, at, "}")) {
            std::string name;
            if (!Take(text, at, "\"") || !ParseText(text, at, name) || !Take(text, at, ":") ||
                !ParseValue(text, at, value.m_members[name]) || (!Take(text, at, ",") && text[at] != '}'))
                return false;
        }
        return true;
    }
    if (Take(text, at, "null"))
        return true;
    value.m_kind = 'd';
    for (const char* word : {"true", "false"})
        if (Take(text, at, word)) {
            value.m_number = word[0] == 't';
            return true;
        }
    char* end = nullptr;
    value.m_number = std::strtod(text.c_str() + at, &end);
    const bool isNumber = end != text.c_str() + at;
    at = size_t(end - text.c_str());
    return isNumber;
}
