#include "RowNumbers.h"
#include "../win/CharTables.h"
#include <set>

namespace KxPlat {

namespace {

class Reader {
public:
    explicit Reader(std::wstring_view text) : m_text(text) {}
    void SkipBlanks()
    {
        while (m_at < m_text.size() && IsSpace(m_text[m_at]))
            ++m_at;
    }
    bool AtEnd() const { return m_at == m_text.size(); }
    bool Take(wchar_t character)
    {
        SkipBlanks();
        const bool isThere = !AtEnd() && m_text[m_at] == character;
        m_at += isThere;
        return isThere;
    }
    // 0 when there is none, or it is above `most`.
    int Number(int most)
    {
        SkipBlanks();
        long long number = 0;
        while (!AtEnd() && IsDigit(m_text[m_at]) && number <= most)
            number = number * 10 + (m_text[m_at++] - L'0');
        return number <= most ? int(number) : 0;
    }

private:
    std::wstring_view m_text;
    size_t m_at = 0;
};

}   // namespace

bool ParseRowNumbers(std::wstring_view text, int count, std::vector<int>& numbers)
{
    Reader reader(text);
    std::set<int> found;
    if (reader.Take(L'*')) {
        for (int row = 1; row <= count; ++row)
            found.insert(row);
    } else {
        do {
            const int first = reader.Number(count);
            const int last = reader.Take(L'-') ? reader.Number(count) : first;
            if (first < 1 || last < first)
                return false;
            for (int row = first; row <= last; ++row)
                found.insert(row);
            reader.Take(L',');
            reader.SkipBlanks();
        } while (!reader.AtEnd());
    }
    reader.SkipBlanks();
    if (!reader.AtEnd())
        return false;
    numbers.assign(found.begin(), found.end());
    return true;
}

std::wstring RowNumbersText(const std::vector<int>& numbers)
{
    std::wstring text;
    for (size_t i = 0; i < numbers.size();) {
        size_t last = i;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1)
            ++last;
        text += (text.empty() ? L"" : L",") + std::to_wstring(numbers[i]);
        if (last > i)
            text += (last == i + 1 ? L"," : L"-") + std::to_wstring(numbers[last]);
        i = last + 1;
    }
    return text;
}

}   // namespace KxPlat
