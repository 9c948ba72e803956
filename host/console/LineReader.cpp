#include "LineReader.h"
#include "StateFolder.h"
#include "win/CodePage.h"
#include "win/Terminal.h"
#include <climits>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <editline/readline.h>

namespace KxConsole {

namespace {

// The line editor's callbacks are plain functions: what they need stands here while a line is read.
struct Completion {
    std::function<std::vector<std::string>(const std::string&)> names;
    std::vector<std::string> found;
    size_t next = 0;
    bool isCommand = false;
};
Completion g_completion;

char* NextCompletion(const char* text, int state)
{
    if (state == 0) {
        g_completion.found = g_completion.names(text);
        g_completion.next = 0;
    }
    return g_completion.next < g_completion.found.size() ? strdup(g_completion.found[g_completion.next++].c_str())
                                                         : nullptr;
}

char** Complete(const char* text, int start, int)
{
    rl_attempted_completion_over = 1;
    return g_completion.isCommand && start == 0 ? rl_completion_matches(text, NextCompletion) : nullptr;
}

// The line that is being edited, across the messages that break it off.
struct Typing {
    std::wstring again;       // typed before the last message, to be shown again
    bool isLeaving = false;   // a message has come, the cursor goes to the end of the line first
    bool isWoken = false;
};
Typing g_typing;

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
    const std::wstring text = KxPlat::FromUtf8(typed != nullptr ? typed : "");
    std::free(typed);
    return text;
}

// The line editor's next character. To it, a message ends the input.
int NextCharacter(FILE*)
{
    constexpr int kToTheEnd = 5;   // Ctrl-E
    if (g_typing.isLeaving) {
        g_typing.isLeaving = false;
        g_typing.isWoken = true;
        g_typing.again = TypedSoFar();
        return EOF;
    }
    if (!g_typing.again.empty()) {
        const wchar_t character = g_typing.again.front();
        g_typing.again.erase(0, 1);
        return static_cast<int>(character);
    }
    const KxPlat::Wake wake = KxPlat::WaitForInput(true);
    if (wake == KxPlat::Wake::Input)
        return ReadCharacter();
    g_typing.isLeaving = wake == KxPlat::Wake::Message;
    return g_typing.isLeaving ? kToTheEnd : EOF;
}

}   // namespace

LineReader::LineReader(std::function<std::vector<std::string>(const std::string&)> complete)
    : m_isTerminal(KxPlat::IsTerminal(KxPlat::StandardStream::Input) &&
                   KxPlat::IsTerminal(KxPlat::StandardStream::Output))
{
    g_completion.names = std::move(complete);
    if (!m_isTerminal)
        return;
    std::setlocale(LC_CTYPE, "C.UTF-8");
    rl_getc_function = NextCharacter;
    using_history();
    stifle_history(1000);
    rl_attempted_completion_function = Complete;
    const std::string folder = StateFolder();
    m_historyFile = folder.empty() ? folder : folder + "/history";
    if (!m_historyFile.empty())
        read_history(m_historyFile.c_str());
}

LineReader::~LineReader()
{
    if (m_isTerminal && !m_historyFile.empty())
        write_history(m_historyFile.c_str());
    if (m_isTerminal)
        clear_history();
}

LineReader::Result LineReader::Read(const std::string& prompt, bool isCommand, std::string& line)
{
    line.clear();
    g_completion.isCommand = isCommand;
    return m_isTerminal ? ReadEdited(prompt, line) : ReadPlain(line);
}

LineReader::Result LineReader::ReadEdited(const std::string& prompt, std::string& line)
{
    g_typing.isWoken = false;
    char* text = readline(prompt.c_str());
    if (KxPlat::TakeInterrupt()) {
        std::free(text);
        return Result::Interrupted;
    }
    if (text == nullptr)
        return g_typing.isWoken ? Result::Message : Result::End;
    line = text;
    std::free(text);
    if (!line.empty())
        add_history(line.c_str());
    return Result::Line;
}

LineReader::Result LineReader::ReadPlain(std::string& line)
{
    for (;;) {
        const size_t lineEnd = m_ahead.find('\n');
        if (lineEnd != std::string::npos || (m_hasEnded && !m_ahead.empty())) {
            line = m_ahead.substr(0, lineEnd);
            m_ahead.erase(0, lineEnd == std::string::npos ? lineEnd : lineEnd + 1);
            std::erase(line, '\r');
            return Result::Line;
        }
        if (m_hasEnded && !m_staysOpen)
            return Result::End;
        const KxPlat::Wake wake = KxPlat::WaitForInput(!m_hasEnded);
        if (wake == KxPlat::Wake::Message)
            return Result::Message;
        if (wake == KxPlat::Wake::Interrupt) {
            KxPlat::TakeInterrupt();
            return m_hasEnded ? Result::End : Result::Interrupted;
        }
        char piece[4096];
        const size_t size = KxPlat::ReadStandardInput(piece, sizeof piece);
        m_ahead.append(piece, size);
        m_hasEnded = size == 0;
    }
}

}   // namespace KxConsole
