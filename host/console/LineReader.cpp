#include "LineReader.h"
#include "StateFolder.h"
#include "TypedKeys.h"
#include "win/Terminal.h"
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <editline/readline.h>

namespace KxConsole {

namespace {

// The line editor's callback is a plain function.
TypedKeys g_keys;

int NextCharacter(FILE*)
{
    return g_keys.Next();
}

}   // namespace

LineReader::LineReader()
    : m_isTerminal(KxPlat::IsTerminal(KxPlat::StandardStream::Input) &&
                   KxPlat::IsTerminal(KxPlat::StandardStream::Output))
{
    if (!m_isTerminal)
        return;
    std::setlocale(LC_CTYPE, "C.UTF-8");
    rl_getc_function = NextCharacter;
    using_history();
    stifle_history(1000);
    InstallCompletion();
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

LineReader::Result LineReader::Read(const std::string& prompt, const Completer& completer, std::string& line)
{
    line.clear();
    if (!m_isTerminal)
        return ReadPlain(line);
    if (g_keys.TakePasted(line)) {
        std::printf("%s%s\n", prompt.c_str(), line.c_str());
        return Result::Line;
    }
    CompleteWith(completer);
    return ReadEdited(prompt, line);
}

LineReader::Result LineReader::ReadEdited(const std::string& prompt, std::string& line)
{
    const PasteMarks marks;
    char* text = readline(prompt.c_str());
    const TypedKeys::Break reason = g_keys.TakeBreak();
    if (KxPlat::TakeInterrupt() || reason == TypedKeys::Break::Escape) {
        std::free(text);
        g_keys.DropPasted();
        return Result::Interrupted;
    }
    if (text == nullptr)
        return reason == TypedKeys::Break::Message ? Result::Message : Result::End;
    line = text;
    std::free(text);
    if (!line.empty())
        add_history(line.c_str());
    return Result::Line;
}

void LineReader::DropPasted()
{
    g_keys.DropPasted();
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
