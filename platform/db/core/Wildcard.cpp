#include "Wildcard.h"
#include "../../win/CharTables.h"
#include <vector>

namespace KxPlat {

namespace {

class Matcher {
public:
    Matcher(std::wstring_view text, bool isExact) : m_text(text), m_isExact(isExact) {}

    // One alternative, without a leading tilde. Greedy with one point of return: linear in text times pattern.
    bool Matches(std::wstring_view pattern) const
    {
        size_t t = 0, p = 0;
        size_t starAt = std::wstring_view::npos, starText = 0;
        while (t < m_text.size()) {
            size_t next = p;
            if (p < pattern.size() && pattern[p] == L'*') {
                starAt = p++;
                starText = t;
            } else if (p < pattern.size() && MatchesOne(m_text[t], pattern, next)) {
                ++t;
                p = next;
            } else if (starAt != std::wstring_view::npos) {
                p = starAt + 1;
                t = ++starText;
            } else {
                return false;
            }
        }
        while (p < pattern.size() && pattern[p] == L'*')
            ++p;
        return p == pattern.size();
    }

private:
    bool Same(wchar_t a, wchar_t b) const { return m_isExact ? a == b : Upper(a) == Upper(b); }

    bool InSet(wchar_t c, std::wstring_view set) const
    {
        const bool isNegated = !set.empty() && set[0] == L'~';
        bool isFound = false;
        for (size_t i = isNegated ? 1 : 0; i < set.size(); ++i) {
            if (i + 2 < set.size() && set[i + 1] == L'-') {
                const wchar_t low = m_isExact ? set[i] : Upper(set[i]),
                              high = m_isExact ? set[i + 2] : Upper(set[i + 2]);
                const wchar_t folded = m_isExact ? c : Upper(c);
                isFound = isFound || (folded >= low && folded <= high);
                i += 2;
            } else {
                isFound = isFound || Same(c, set[i]);
            }
        }
        return isFound != isNegated;
    }

    // `p` moves behind the element of the pattern that stands for one character.
    bool MatchesOne(wchar_t c, std::wstring_view pattern, size_t& p) const
    {
        const wchar_t element = pattern[p++];
        switch (element) {
        case L'?':
            return true;
        case L'#':
            return IsDigit(c);
        case L'@':
            return IsLetter(c);
        case L'.':
            return !IsDigit(c) && !IsLetter(c);
        case L'[': {
            const size_t end = pattern.find(L']', p);
            if (end == std::wstring_view::npos)
                return Same(c, element);
            const std::wstring_view set = pattern.substr(p, end - p);
            p = end + 1;
            return InSet(c, set);
        }
        case L'`':
            return p < pattern.size() ? Same(c, pattern[p++]) : Same(c, element);
        default:
            return Same(c, element);
        }
    }

    std::wstring_view m_text;
    bool m_isExact;
};

std::vector<std::wstring_view> Alternatives(std::wstring_view pattern)
{
    std::vector<std::wstring_view> all;
    size_t start = 0;
    bool isInSet = false;
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == L'`')
            ++i;
        else if (pattern[i] == L'[')
            isInSet = true;
        else if (pattern[i] == L']')
            isInSet = false;
        else if (pattern[i] == L',' && !isInSet) {
            all.push_back(pattern.substr(start, i - start));
            start = i + 1;
        }
    }
    all.push_back(pattern.substr(start));
    return all;
}

bool Match(std::wstring_view text, std::wstring_view pattern, bool isExact)
{
    const Matcher matcher(text, isExact);
    for (std::wstring_view one : Alternatives(pattern)) {
        const bool isNegated = !one.empty() && one[0] == L'~';
        if (matcher.Matches(isNegated ? one.substr(1) : one) != isNegated)
            return true;
    }
    return false;
}

}   // namespace

bool WildcardMatch(std::wstring_view text, std::wstring_view pattern)
{
    return Match(text, pattern, false);
}

bool WildcardMatchExact(std::wstring_view text, std::wstring_view pattern)
{
    return Match(text, pattern, true);
}

}   // namespace KxPlat
