// Text to values. The whole text is there from the start; forms are taken from it one after another.
#pragma once
#include "Failure.h"

namespace KxPlat::Lisp {

class Reader {
public:
    Reader(Interpreter& lisp, std::wstring_view text) : m_lisp(lisp), m_text(text) {}

    // False at the end of the text. A malformed form is a Failure; the reader then stands behind what it could not
    // read.
    bool Read(Value& form);
    // Counted from 1; of the first character of the form read last.
    int line() const { return m_formLine; }
    size_t position() const { return m_at; }

private:
    struct OpenList;
    bool SkipBlanks();
    void SkipComment();
    Value Atom();
    Value QuotedText();
    wchar_t EscapedCharacter();
    wchar_t Peek(size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : 0; }

    Interpreter& m_lisp;
    std::wstring_view m_text;
    size_t m_at = 0;
    int m_line = 1;
    int m_formLine = 1;
};

// What a line at the prompt still lacks: open parentheses, and 1 for an open text.
struct Balance {
    int open = 0;
    bool isInText = false;
    bool IsComplete() const { return open <= 0 && !isInText; }
};
Balance BalanceOf(std::wstring_view text);

// The number that a token is, or nil. Integers beyond 32 bits become reals.
Value NumberIn(std::wstring_view token);

}   // namespace KxPlat::Lisp
