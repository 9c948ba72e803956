#include "Input.h"

namespace KxPlat {

namespace {

const wchar_t kEscape = 27;
const wchar_t kControlC = 3;

bool IsBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

bool IsCancel(wchar_t character)
{
    return character == kEscape || character == kControlC;
}

// Follows a LISP text and knows how deep in parentheses it is; texts and comments hold none.
class Depth {
public:
    void Feed(wchar_t character)
    {
        if (m_isInComment)
            m_isInComment = character != L'\n';
        else if (m_isInText)
            FeedText(character);
        else
            FeedCode(character);
    }
    int depth() const { return m_depth; }
    bool isOutside() const { return m_depth <= 0 && !m_isInText && !m_isInComment; }

private:
    void FeedText(wchar_t character)
    {
        if (m_isEscaped)
            m_isEscaped = false;
        else if (character == L'\\')
            m_isEscaped = true;
        else if (character == L'"')
            m_isInText = false;
    }
    void FeedCode(wchar_t character)
    {
        switch (character) {
        case L'(':
            ++m_depth;
            break;
        case L')':
            --m_depth;
            break;
        case L'"':
            m_isInText = true;
            break;
        case L';':
            m_isInComment = true;
            break;
        default:
            break;
        }
    }

    int m_depth = 0;
    bool m_isInText = false, m_isEscaped = false, m_isInComment = false;
};

}   // namespace

TextPieces::TextPieces(std::wstring_view text)
{
    m_text.reserve(text.size() + 1);
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != L'\r')
            m_text += text[i];
        else if (i + 1 == text.size() || text[i + 1] != L'\n')
            m_text += L'\n';
    }
}

int TextPieces::MissingParentheses() const
{
    if (IsDone() || (m_text[m_at] != L'(' && m_text.compare(m_at, 2, L"!(") != 0))
        return 0;
    Depth depth;
    for (size_t i = m_at; i < m_text.size(); ++i) {
        depth.Feed(m_text[i]);
        if (m_text[i] == L')' && depth.isOutside())
            return 0;
    }
    return depth.depth();
}

bool TextPieces::Next(InputKind kind, TextRule rule, InputPiece& piece)
{
    if (kind == InputKind::Command)
        SkipComments();
    if (IsDone())
        return false;
    piece = InputPiece();
    piece.type = InputPiece::Type::Text;
    const wchar_t first = m_text[m_at];
    if (IsCancel(first)) {
        ++m_at;
        piece.type = InputPiece::Type::Cancel;
    } else if (rule == TextRule::Line) {
        TakeLine(piece);
    } else if (first == L'(' || m_text.compare(m_at, 2, L"!(") == 0) {
        TakeForm(piece);
    } else {
        TakeWord(piece);
    }
    return true;
}

void TextPieces::SkipComments()
{
    while (!IsDone() && m_text[m_at] == L';') {
        const size_t end = m_text.find(L'\n', m_at);
        m_at = end == std::wstring::npos ? m_text.size() : end + 1;
    }
}

void TextPieces::TakeWord(InputPiece& piece)
{
    while (!IsDone()) {
        const wchar_t character = m_text[m_at++];
        if (IsBlank(character) || character == L'\n')
            return;
        if (IsCancel(character)) {
            piece.type = InputPiece::Type::Cancel;
            piece.text.clear();
            return;
        }
        piece.text += character;
    }
}

void TextPieces::TakeLine(InputPiece& piece)
{
    while (!IsDone()) {
        const wchar_t character = m_text[m_at++];
        if (character == L'\n')
            return;
        if (IsCancel(character)) {
            piece.type = InputPiece::Type::Cancel;
            piece.text.clear();
            return;
        }
        piece.text += character;
    }
}

// The blanks behind a form and the end of its line belong to it: they are no Enter.
void TextPieces::TakeForm(InputPiece& piece)
{
    Depth depth;
    do {
        depth.Feed(m_text[m_at]);
        piece.text += m_text[m_at++];
    } while (!IsDone() && (piece.text == L"!" || !depth.isOutside()));
    while (!IsDone() && IsBlank(m_text[m_at]))
        ++m_at;
    if (!IsDone() && m_text[m_at] == L'\n')
        ++m_at;
}

}   // namespace KxPlat
