#include "Completion.h"
#include "win/CharTables.h"
#include "win/CodePage.h"
#include <cstdlib>
#include <cstring>
#include <editline/readline.h>
#include <utility>

namespace KxConsole {

namespace {

// The line editor's callbacks are plain functions: what they need stands here while a line is read.
Completer g_completer;

// How many characters all of them share, whatever their case.
size_t SharedLength(const std::vector<std::wstring>& texts)
{
    size_t length = texts[0].size();
    for (const std::wstring& text : texts) {
        size_t shared = 0;
        while (shared < length && shared < text.size() &&
               KxPlat::Upper(text[shared]) == KxPlat::Upper(texts[0][shared]))
            ++shared;
        length = shared;
    }
    return length;
}

// What takes the place of the typed text comes first. The line editor frees all of it.
char** Complete(const char* typed, int, int)
{
    rl_attempted_completion_over = 1;
    const std::vector<std::string> found = g_completer ? g_completer(typed) : std::vector<std::string>();
    if (found.empty())
        return nullptr;
    std::vector<std::wstring> texts;
    texts.reserve(found.size());
    for (const std::string& text : found)
        texts.push_back(KxPlat::FromUtf8(text));
    // What was typed may have more than they share: blanks and prefixes that mean nothing.
    const std::wstring shared = texts[0].substr(0, SharedLength(texts));
    const bool isLonger = shared.size() >= KxPlat::FromUtf8(typed).size();
    char** matches = static_cast<char**>(std::calloc(found.size() + 2, sizeof(char*)));
    if (matches == nullptr)
        return nullptr;
    matches[0] = strdup(isLonger ? KxPlat::ToUtf8(shared).c_str() : typed);
    for (size_t i = 0; i < found.size(); ++i)
        matches[i + 1] = strdup(found[i].c_str());
    if (found.size() == 1)
        std::free(std::exchange(matches[1], nullptr));
    return matches;
}

// The whole line up to the cursor is one word.
char* NoBreaks()
{
    static char none[] = "";
    return none;
}

}   // namespace

void InstallCompletion()
{
    rl_attempted_completion_function = Complete;
    rl_completion_word_break_hook = NoBreaks;
    rl_completion_append_character = 0;
}

void CompleteWith(Completer completer)
{
    g_completer = std::move(completer);
}

}   // namespace KxConsole
