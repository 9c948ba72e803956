#include "DwgReport.h"
#include <charconv>

namespace KxPlat {

void DwgReport::Fail(const std::string& why)
{
    if (m_error.empty())
        m_error = why;
}

void DwgReport::Mend(const std::string& what)
{
    ++m_mended;
    if (m_lines.size() < kKept)
        m_lines.push_back(what);
}

void DwgReport::Lose(uint64_t handle, const std::string& why)
{
    ++m_lost;
    char digits[20];
    char* end = std::to_chars(digits, digits + sizeof digits, handle, 16).ptr;
    for (char* digit = digits; digit != end; ++digit)
        if (*digit >= 'a')
            *digit = char(*digit - 'a' + 'A');
    Mend("object " + std::string(digits, end) + ": " + why);
}

}   // namespace KxPlat
