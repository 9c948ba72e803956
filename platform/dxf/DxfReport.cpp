#include "DxfReport.h"

namespace KxPlat {

namespace {

std::string InWords(const DxfPlace& place, const std::string& what)
{
    return (place.isOffset ? "byte " : "line ") + std::to_string(place.at) + ", group " + std::to_string(place.code) +
           ": " + what;
}

}   // namespace

void DxfReport::Mend(const DxfPlace& place, const char* what, const std::string& detail)
{
    ++m_mended;
    if (m_lines.size() < kKept)
        m_lines.push_back(InWords(place, detail.empty() ? what : what + (" " + detail)));
}

void DxfReport::Fail(const DxfPlace& place, const char* why)
{
    if (m_error.empty())
        m_error = InWords(place, why);
}

}   // namespace KxPlat
