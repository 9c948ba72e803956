#include "TypedKeys.h"
#include "win/CodePage.h"
#include "win/Terminal.h"
#include <climits>
#include <cstdlib>
#include <editline/readline.h>
#include <utility>

namespace KxConsole {

namespace {

constexpr int kToTheEnd = 5, kEscape = 27;   // Ctrl-E, Esc
constexpr int kKeyTime = 60;                 // milliseconds in which the rest of a key's characters comes
const std::wstring kPasteBegins = L"[200~", kPasteEnds = L"\x1b[201~";

// The bytes of one character, as many as its first one says.
int ReadCharacter()
{
    char bytes[4] = {};
    if (KxPlat::ReadStandardInput(bytes, 1) == 0)
        return EOF;
    const auto first = static_cast<unsigned char>(bytes[0]);
    const size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    for (size_t i = 1; i < length; ++i)
        if (KxPlat::ReadStandardInput(bytes + i, 1) == 0)
            return EOF;
    const std::wstring text = KxPlat::FromUtf8(std::string_view(bytes, length));
    return text.empty() ? 0xFFFD : static_cast<int>(text[0]);
}

// What stands in the line, whose last byte the line editor does not give away.
std::wstring TypedSoFar()
{
    rl_insert_text(" ");
    char* typed = rl_copy_text(0, INT_MAX / 2);
    std::wstring text = KxPlat::FromUtf8(typed != nullptr ? typed : "");
    std::free(typed);
    return text;
}

// Lines end with "\n"; what would be a key of the line editor's is taken out.
std::wstring Cleaned(const std::wstring& pasted)
{
    std::wstring text;
    for (size_t i = 0; i < pasted.size(); ++i) {
        const wchar_t character = pasted[i];
        if (character == L'\n' && i > 0 && pasted[i - 1] == L'\r')
            continue;
        if (character == L'\r' || character == L'\n')
            text += L'\n';
        else if (character == L'\t')
            text += L' ';
        else if (character >= 32 && (character < 127 || character >= 160))
            text += character;
    }
    return text;
}

}   // namespace

int TypedKeys::Next()
{
    if (m_isLeaving) {
        m_isLeaving = false;
        if (m_break == Break::Message)
            m_again = TypedSoFar();
        return EOF;
    }
    if (m_again.empty() && m_lines.empty())
        m_again.swap(m_rest);
    for (;;) {
        if (!m_again.empty()) {
            const wchar_t character = m_again.front();
            m_again.erase(0, 1);
            return static_cast<int>(character);
        }
        const KxPlat::Wake wake = KxPlat::WaitForInput(true);
        if (wake == KxPlat::Wake::Interrupt)
            return EOF;
        if (wake == KxPlat::Wake::Message) {
            m_break = Break::Message;
            m_isLeaving = true;
            return kToTheEnd;
        }
        const int character = ReadCharacter();
        if (character != kEscape)
            return character;
        if (const int key = AfterEscape())
            return key;
    }
}

// Esc alone, the first character of a key that sends several, or a paste: then 0.
int TypedKeys::AfterEscape()
{
    if (!KxPlat::HasInputWithin(kKeyTime)) {
        m_break = Break::Escape;
        m_isLeaving = true;
        return kToTheEnd;
    }
    std::wstring read;
    while (kPasteBegins.compare(0, read.size(), read) == 0) {
        if (read.size() == kPasteBegins.size()) {
            ReadPaste();
            return 0;
        }
        if (!KxPlat::HasInputWithin(kKeyTime))
            break;
        const int character = ReadCharacter();
        if (character == EOF)
            break;
        read += static_cast<wchar_t>(character);
    }
    m_again = read;
    return kEscape;
}

void TypedKeys::ReadPaste()
{
    std::wstring text;
    for (int character = ReadCharacter(); character != EOF; character = ReadCharacter()) {
        text += static_cast<wchar_t>(character);
        if (text.ends_with(kPasteEnds)) {
            text.resize(text.size() - kPasteEnds.size());
            break;
        }
    }
    Paste(Cleaned(text));
}

void TypedKeys::Paste(const std::wstring& text)
{
    const size_t lineEnd = text.find(L'\n');
    m_again = text.substr(0, lineEnd == std::wstring::npos ? lineEnd : lineEnd + 1);
    if (lineEnd == std::wstring::npos)
        return;
    size_t start = lineEnd + 1;
    for (size_t end = text.find(L'\n', start); end != std::wstring::npos; end = text.find(L'\n', start)) {
        m_lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    m_rest = text.substr(start);
}

TypedKeys::Break TypedKeys::TakeBreak()
{
    return std::exchange(m_break, Break::None);
}

bool TypedKeys::TakePasted(std::string& line)
{
    if (m_lines.empty())
        return false;
    line = KxPlat::ToUtf8(m_lines.front());
    m_lines.pop_front();
    return true;
}

void TypedKeys::DropPasted()
{
    m_again.clear();
    m_lines.clear();
    m_rest.clear();
}

}   // namespace KxConsole
