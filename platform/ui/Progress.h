// How far a long piece of work is, for the user: nothing is shown of what is over in a moment.
#pragma once
#include <chrono>
#include <cstdint>
#include <string>

namespace KxPlat {

class Progress {
public:
    using Wait = std::chrono::milliseconds;

    // `total` counts whatever At() counts: bytes, objects. Shown once the work has taken longer than `wait`.
    Progress(std::wstring what, uint64_t total, Wait wait = Wait(500));
    ~Progress();   // takes away what is shown
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Cheap enough for each of a million objects.
    void At(uint64_t done)
    {
        if (done >= m_next)
            Look(done);
    }

private:
    void Look(uint64_t done);

    std::wstring m_what;
    uint64_t m_total;
    uint64_t m_next = 0;
    std::chrono::steady_clock::time_point m_showsFrom;
    int m_shown = -1;
};

}   // namespace KxPlat
