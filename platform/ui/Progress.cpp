#include "Progress.h"
#include "HostUi.h"
#include <algorithm>
#include <utility>

namespace KxPlat {

namespace {

constexpr uint64_t kLooks = 200;   // at the clock, in all of the work

}   // namespace

Progress::Progress(std::wstring what, uint64_t total, Wait wait)
    : m_what(std::move(what)),
      m_total(std::max<uint64_t>(total, 1)),
      m_showsFrom(std::chrono::steady_clock::now() + wait)
{
}

Progress::~Progress()
{
    if (m_shown >= 0)
        Ui().Progress(m_what, -1);
}

void Progress::Look(uint64_t done)
{
    m_next = done + std::max<uint64_t>(m_total / kLooks, 1);
    const int percent = static_cast<int>(std::min(done, m_total) * 100 / m_total);
    if (percent == m_shown || std::chrono::steady_clock::now() < m_showsFrom)
        return;
    m_shown = percent;
    Ui().Progress(m_what, percent);
}

}   // namespace KxPlat
