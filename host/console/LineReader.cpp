#include "LineReader.h"
#include "win/Terminal.h"
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <editline/readline.h>
#include <filesystem>

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

std::string HistoryFile()
{
    const char* state = std::getenv("XDG_STATE_HOME");
    const char* home = std::getenv("HOME");
    if ((state == nullptr || *state == 0) && (home == nullptr || *home == 0))
        return std::string();
    const std::filesystem::path folder =
        std::filesystem::path(state != nullptr && *state != 0 ? std::string(state)
                                                              : std::string(home) + "/.local/state") /
        "kxcad";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? std::string() : (folder / "history").string();
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
    using_history();
    stifle_history(1000);
    rl_attempted_completion_function = Complete;
    m_historyFile = HistoryFile();
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
    char* text = readline(prompt.c_str());
    if (KxPlat::TakeInterrupt()) {
        std::free(text);
        return Result::Interrupted;
    }
    if (text == nullptr)
        return Result::End;
    line = text;
    std::free(text);
    if (!line.empty())
        add_history(line.c_str());
    return Result::Line;
}

LineReader::Result LineReader::ReadPlain(std::string& line)
{
    for (;;) {
        const int c = std::getc(stdin);
        if (c == '\n')
            return Result::Line;
        if (c == EOF) {
            if (std::ferror(stdin) != 0 && errno == EINTR) {
                std::clearerr(stdin);
                if (KxPlat::TakeInterrupt())
                    return Result::Interrupted;
                continue;
            }
            return line.empty() ? Result::End : Result::Line;
        }
        if (c != '\r')
            line += char(c);
    }
}

}   // namespace KxConsole
