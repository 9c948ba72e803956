// What reading a DWG file had to say: why it was given up, and what was lost or mended on the way.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace KxPlat {

class DwgReport {
public:
    // The first reason stays.
    void Fail(const std::string& why);
    // Something was wrong, and reading went on. Counted; the first few are kept in words.
    void Mend(const std::string& what);
    // An object that cannot be read, by its handle.
    void Lose(uint64_t handle, const std::string& why);

    bool hasFailed() const { return !m_error.empty(); }
    const std::string& error() const { return m_error; }
    uint64_t mendedCount() const { return m_mended; }
    uint64_t lostCount() const { return m_lost; }
    // "object 1F: it ends within a number" and the like, at most kKept of them.
    const std::vector<std::string>& lines() const { return m_lines; }

    static constexpr size_t kKept = 100;

private:
    std::string m_error;
    std::vector<std::string> m_lines;
    uint64_t m_mended = 0;   // lost objects included
    uint64_t m_lost = 0;
};

}   // namespace KxPlat
