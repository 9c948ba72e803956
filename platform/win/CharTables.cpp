#include "CharTables.h"
#include "CharData.h"
#include <algorithm>
#include <vector>

namespace KxPlat {
namespace {

// Both directions of the basic plane as plain arrays; the few pairs above it are looked for in the runs.
struct CaseMaps {
    std::vector<wchar_t> upper = std::vector<wchar_t>(0x10000);
    std::vector<wchar_t> lower = std::vector<wchar_t>(0x10000);

    CaseMaps()
    {
        for (wchar_t c = 0; c < 0x10000; ++c)
            upper[static_cast<size_t>(c)] = lower[static_cast<size_t>(c)] = c;
        for (wchar_t c = L'a'; c <= L'z'; ++c)
            Add(c, c - L'a' + L'A');
        for (int run = 0; run < kCaseRunCount; ++run) {
            const CaseRun& row = kCaseRuns[run];
            for (int c = row.first; c <= row.last && c < 0x10000; c += row.step)
                Add(c, c + row.delta);
        }
    }

    void Add(int small, int capital)
    {
        upper[static_cast<size_t>(small)] = static_cast<wchar_t>(capital);
        lower[static_cast<size_t>(capital)] = static_cast<wchar_t>(small);
    }
};

const CaseMaps& Maps()
{
    static const CaseMaps maps;
    return maps;
}

bool InRun(const CaseRun& row, int small)
{
    return small >= row.first && small <= row.last && (small - row.first) % row.step == 0;
}

wchar_t MapHigh(wchar_t character, bool toUpper)
{
    for (int run = 0; run < kCaseRunCount; ++run) {
        const CaseRun& row = kCaseRuns[run];
        if (row.last < 0x10000)
            continue;
        const int small = toUpper ? character : character - row.delta;
        if (InRun(row, small))
            return static_cast<wchar_t>(toUpper ? small + row.delta : small);
    }
    return character;
}

const wchar_t kSpaces[] = {L' ',      L'\t',     L'\n',     L'\v',     L'\f',     L'\r',     L'\x85',  L'\xA0',
                           L'\x1680', L'\x2028', L'\x2029', L'\x202F', L'\x205F', L'\x3000', L'\xFEFF'};

}   // namespace

wchar_t Upper(wchar_t character)
{
    if (character >= 0 && character < 0x80)
        return character >= L'a' && character <= L'z' ? character - (L'a' - L'A') : character;
    if (character < 0 || character > 0x10FFFF)
        return character;
    return character < 0x10000 ? Maps().upper[static_cast<size_t>(character)] : MapHigh(character, true);
}

wchar_t Lower(wchar_t character)
{
    if (character >= 0 && character < 0x80)
        return character >= L'A' && character <= L'Z' ? character + (L'a' - L'A') : character;
    if (character < 0 || character > 0x10FFFF)
        return character;
    return character < 0x10000 ? Maps().lower[static_cast<size_t>(character)] : MapHigh(character, false);
}

std::wstring Upper(std::wstring_view text)
{
    std::wstring out(text);
    for (wchar_t& character : out)
        character = Upper(character);
    return out;
}

std::wstring Lower(std::wstring_view text)
{
    std::wstring out(text);
    for (wchar_t& character : out)
        character = Lower(character);
    return out;
}

bool IsUpper(wchar_t character)
{
    return Lower(character) != character;
}

bool IsLower(wchar_t character)
{
    return Upper(character) != character;
}

bool IsLetter(wchar_t character)
{
    if (character < 0x80)
        return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
    const CharRange* end = kLetters + kLetterCount;
    const CharRange* after =
        std::upper_bound(kLetters, end, character, [](wchar_t c, const CharRange& range) { return c < range.first; });
    if (after != kLetters && character <= (after - 1)->last)
        return true;
    return character >= 0x20000 && character < 0x32000;   // ideographs of the planes behind the table
}

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

bool IsSpace(wchar_t character)
{
    if (character >= 0x2000 && character <= 0x200A)
        return true;
    return std::find(std::begin(kSpaces), std::end(kSpaces), character) != std::end(kSpaces);
}

bool EqualNoCase(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](wchar_t x, wchar_t y) { return x == y || Upper(x) == Upper(y); });
}

int CompareNoCase(std::wstring_view a, std::wstring_view b)
{
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
        const wchar_t x = Lower(a[i]);
        const wchar_t y = Lower(b[i]);
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

bool StartsWithNoCase(std::wstring_view text, std::wstring_view prefix)
{
    return text.size() >= prefix.size() && EqualNoCase(text.substr(0, prefix.size()), prefix);
}

size_t FoldHash(std::wstring_view text)
{
    size_t hash = 14695981039346656037u;
    for (wchar_t character : text)
        hash = (hash ^ static_cast<size_t>(Upper(character))) * 1099511628211u;
    return hash;
}

}   // namespace KxPlat
