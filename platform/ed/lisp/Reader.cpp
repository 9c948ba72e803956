#include "Reader.h"
#include "../../win/CharTables.h"
#include "Interpreter.h"
#include <charconv>

namespace KxPlat::Lisp {

namespace {

bool EndsToken(wchar_t character)
{
    return character == L'(' || character == L')' || character == L'"' || character == L'\'' || character == L';' ||
           IsSpace(character) || character == 0;
}

int DigitOf(wchar_t character, int base)
{
    const wchar_t lower = Lower(character);
    const int digit = lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : character - L'0';
    return digit >= 0 && digit < base && (IsDigit(character) || digit >= 10) ? digit : -1;
}

// The grammar of reals is narrower than from_chars': no "inf", no "1e", no hexadecimal.
bool IsNumeric(std::wstring_view token)
{
    size_t at = 0, digits = 0;
    const auto skipDigits = [&] {
        for (; at < token.size() && IsDigit(token[at]); ++at)
            ++digits;
    };
    if (at < token.size() && (token[at] == L'+' || token[at] == L'-'))
        ++at;
    skipDigits();
    if (at < token.size() && token[at] == L'.')
        ++at;
    skipDigits();
    if (digits == 0)
        return false;
    if (at < token.size() && (token[at] == L'e' || token[at] == L'E')) {
        ++at;
        if (at < token.size() && (token[at] == L'+' || token[at] == L'-'))
            ++at;
        digits = 0;
        skipDigits();
    }
    return digits > 0 && at == token.size();
}

}   // namespace

Value NumberIn(std::wstring_view token)
{
    if (!IsNumeric(token))
        return Value();
    std::string digits(token.begin() + (token[0] == L'+' ? 1 : 0), token.end());
    const char* end = digits.data() + digits.size();
    int32_t integer = 0;
    const auto asInteger = std::from_chars(digits.data(), end, integer);
    if (asInteger.ec == std::errc() && asInteger.ptr == end)
        return Value(integer);
    double real = 0;
    if (std::from_chars(digits.data(), end, real).ec == std::errc::result_out_of_range)
        return Value(digits.find("e-") == std::string::npos ? (digits[0] == '-' ? -1e308 : 1e308) : 0.0);
    return Value(real);
}

bool Reader::SkipBlanks()
{
    for (; m_at < m_text.size(); ++m_at) {
        const wchar_t character = m_text[m_at];
        if (character == L'\n')
            ++m_line;
        if (character == L';') {
            SkipComment();
            --m_at;
        } else if (!IsSpace(character) && character != 0 && character != 0xFEFF && character != 26) {
            return true;
        }
    }
    return false;
}

// ";" to the end of the line, ";|" to "|;".
void Reader::SkipComment()
{
    if (Peek(1) != L'|') {
        while (m_at < m_text.size() && m_text[m_at] != L'\n')
            ++m_at;
        return;
    }
    for (m_at += 2; m_at < m_text.size(); ++m_at) {
        if (m_text[m_at] == L'\n')
            ++m_line;
        if (m_text[m_at] == L'|' && Peek(1) == L';') {
            m_at += 2;
            return;
        }
    }
}

wchar_t Reader::EscapedCharacter()
{
    const wchar_t character = Peek();
    ++m_at;
    switch (character) {
    case L'n':
        return L'\n';
    case L't':
        return L'\t';
    case L'r':
        return L'\r';
    case L'e':
        return 27;
    default:
        break;
    }
    if (character == L'U' && Peek() == L'+') {
        int code = 0, digits = 0;
        for (; digits < 4 && DigitOf(Peek(size_t(digits) + 1), 16) >= 0; ++digits)
            code = code * 16 + DigitOf(Peek(size_t(digits) + 1), 16);
        if (digits == 4) {
            m_at += 5;
            return wchar_t(code);
        }
    }
    if (DigitOf(character, 8) < 0)
        return character;
    int code = DigitOf(character, 8);
    for (int more = 0; more < 2 && DigitOf(Peek(), 8) >= 0; ++more)
        code = code * 8 + DigitOf(m_text[m_at++], 8);
    return wchar_t(code);
}

Value Reader::QuotedText()
{
    std::wstring text;
    for (++m_at; m_at < m_text.size();) {
        const wchar_t character = m_text[m_at++];
        if (character == L'"')
            return Value(std::move(text));
        if (character == L'\n')
            ++m_line;
        text += character == L'\\' ? EscapedCharacter() : character;
    }
    Fail(L"malformed string on input");
}

Value Reader::Atom()
{
    const size_t start = m_at;
    while (!EndsToken(Peek()))
        ++m_at;
    const std::wstring_view token = m_text.substr(start, m_at - start);
    const Value number = NumberIn(token);
    if (number)
        return number;
    Symbol* symbol = m_lisp.Intern(token);
    return symbol->name == L"NIL" ? Value() : Value(symbol);
}

// A list whose end is not reached yet; a quote counts as a list of two that ends with its operand.
struct Reader::OpenList {
    ListBuilder members;
    bool isQuote = false;
    enum { NoDot, AfterDot, Closed } dot = NoDot;
};

bool Reader::Read(Value& form)
{
    if (!SkipBlanks())
        return false;
    m_formLine = m_line;
    std::vector<OpenList> open;
    for (;;) {
        if (!SkipBlanks())
            Fail(L"malformed list on input");
        Value read;
        const wchar_t character = Peek();
        if (character == L'(' || character == L'\'') {
            ++m_at;
            open.emplace_back();
            open.back().isQuote = character == L'\'';
            if (open.back().isQuote)
                open.back().members.Add(m_lisp.Intern(L"QUOTE"));
            continue;
        }
        if (character == L')') {
            ++m_at;
            if (open.empty())
                Fail(L"extra right paren on input");
            if (open.back().isQuote)
                Fail(L"malformed list on input");
            if (open.back().dot == OpenList::AfterDot)
                Fail(L"misplaced dot on input");
            read = open.back().members.Take();
            open.pop_back();
        } else if (character == L'.' && EndsToken(Peek(1))) {
            ++m_at;
            if (open.empty() || open.back().isQuote || open.back().dot != OpenList::NoDot ||
                open.back().members.IsEmpty())
                Fail(L"misplaced dot on input");
            open.back().dot = OpenList::AfterDot;
            continue;
        } else {
            read = character == L'"' ? QuotedText() : Atom();
        }
        while (!open.empty() && open.back().isQuote) {
            open.back().members.Add(std::move(read));
            read = open.back().members.Take();
            open.pop_back();
        }
        if (open.empty()) {
            form = std::move(read);
            return true;
        }
        OpenList& list = open.back();
        if (list.dot == OpenList::Closed)
            Fail(L"extra cdrs in dotted pair on input");
        if (list.dot == OpenList::AfterDot) {
            list.members.SetTail(std::move(read));
            list.dot = OpenList::Closed;
        } else {
            list.members.Add(std::move(read));
        }
    }
}

Balance BalanceOf(std::wstring_view text)
{
    Balance balance;
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t character = text[i];
        if (balance.isInText) {
            if (character == L'\\')
                ++i;
            else if (character == L'"')
                balance.isInText = false;
            continue;
        }
        switch (character) {
        case L'"':
            balance.isInText = true;
            break;
        case L'(':
            ++balance.open;
            break;
        case L')':
            --balance.open;
            break;
        case L';':
            if (i + 1 < text.size() && text[i + 1] == L'|') {
                const size_t end = text.find(L"|;", i + 2);
                i = end == std::wstring_view::npos ? text.size() : end + 1;
            } else {
                i = std::min(text.find(L'\n', i), text.size());
            }
            break;
        default:
            break;
        }
    }
    return balance;
}

}   // namespace KxPlat::Lisp
