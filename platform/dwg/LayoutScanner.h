// Takes the text of a layout apart into words, numbers and signs. `$` stands for the argument of the text.
#pragma once
#include <charconv>
#include <cstdlib>
#include <string>
#include <string_view>

namespace KxPlat {

class LayoutScanner {
public:
    LayoutScanner(std::string_view text, std::string_view argument) : m_text(text), m_argument(argument) {}

    std::string_view argument() const { return m_argument; }
    bool AtEnd()
    {
        SkipBlanks();
        return m_at >= m_text.size();
    }
    bool Is(char c) { return !AtEnd() && m_text[m_at] == c; }
    bool Take(char c)
    {
        if (!Is(c))
            return false;
        ++m_at;
        return true;
    }
    // Letters, digits and underscores: also "3BD", and "74" as an argument.
    std::string_view Word()
    {
        SkipBlanks();
        if (m_at < m_text.size() && m_text[m_at] == '$') {
            ++m_at;
            return m_argument;
        }
        const size_t start = m_at;
        while (m_at < m_text.size() && IsLetter(m_text[m_at]))
            ++m_at;
        return m_text.substr(start, m_at - start);
    }
    bool TakeWord(std::string_view word)
    {
        AtEnd();
        const size_t before = m_at;
        if (Word() == word)
            return true;
        m_at = before;
        return false;
    }
    bool IsWord() { return !AtEnd() && IsLetter(m_text[m_at]) && !IsDigit(m_text[m_at]); }
    bool IsNumber() { return !AtEnd() && (IsDigit(m_text[m_at]) || m_text[m_at] == '$' || m_text[m_at] == '-'); }
    int Number() { return int(Real()); }
    double Real()
    {
        AtEnd();
        std::string_view from = m_text.substr(m_at);
        const bool isArgument = !from.empty() && from[0] == '$';
        if (isArgument)
            from = m_argument;
        double value = 0;
        const auto end = std::from_chars(from.data(), from.data() + from.size(), value, std::chars_format::fixed);
        m_at += isArgument ? 1 : size_t(end.ptr - from.data());
        return value;
    }
    // One of < > = or two of them.
    std::string_view Sign()
    {
        AtEnd();
        const size_t start = m_at;
        while (m_at < m_text.size() && (m_text[m_at] == '<' || m_text[m_at] == '>' || m_text[m_at] == '='))
            ++m_at;
        return m_text.substr(start, m_at - start);
    }
    // What stands between a brace and its partner.
    std::string_view Braces()
    {
        if (!Take('{'))
            return {};
        const size_t start = m_at;
        for (int depth = 1; m_at < m_text.size(); ++m_at) {
            depth += m_text[m_at] == '{' ? 1 : m_text[m_at] == '}' ? -1 : 0;
            if (depth == 0)
                return m_text.substr(start, m_at++ - start);
        }
        return m_text.substr(start);
    }

private:
    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }
    static bool IsLetter(char c) { return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
    void SkipBlanks()
    {
        while (m_at < m_text.size() && (m_text[m_at] == ' ' || m_text[m_at] == '\n'))
            ++m_at;
    }

    std::string_view m_text, m_argument;
    size_t m_at = 0;
};

}   // namespace KxPlat
