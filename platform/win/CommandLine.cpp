#include "CommandLine.h"

namespace KxPlat {
namespace {

bool IsBlank(wchar_t character)
{
    return character == L' ' || character == L'\t';
}

// One word behind the first; `at` ends behind it.
std::wstring NextWord(std::wstring_view line, size_t& at)
{
    std::wstring word;
    bool quoted = false;
    for (; at < line.size() && (quoted || !IsBlank(line[at])); ++at) {
        size_t slashes = 0;
        while (at < line.size() && line[at] == L'\\') {
            ++slashes;
            ++at;
        }
        if (at == line.size() || line[at] != L'"') {
            word.append(slashes, L'\\');
            if (at == line.size() || (!quoted && IsBlank(line[at])))
                break;
            word += line[at];
            continue;
        }
        word.append(slashes / 2, L'\\');
        if (slashes % 2 != 0)
            word += L'"';
        else if (quoted && at + 1 < line.size() && line[at + 1] == L'"')
            word += line[at++];   // two marks inside of marks stand for one
        else
            quoted = !quoted;
    }
    return word;
}

}   // namespace

std::vector<std::wstring> CommandWords(std::wstring_view line)
{
    std::vector<std::wstring> words;
    std::wstring first;
    bool quoted = false;
    size_t at = 0;
    for (; at < line.size() && (quoted || !IsBlank(line[at])); ++at) {
        if (line[at] == L'"')
            quoted = !quoted;
        else
            first += line[at];
    }
    words.push_back(first);
    for (;;) {
        while (at < line.size() && IsBlank(line[at]))
            ++at;
        if (at == line.size())
            return words;
        words.push_back(NextWord(line, at));
    }
}

}   // namespace KxPlat
