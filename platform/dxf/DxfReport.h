// What reading a drawing file had to say: why it was given up, and what was mended on the way.
// A place is a line of an ASCII file (counted from 1) or a byte offset of a binary one, with the group code there.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace KxPlat {

struct DxfPlace {
    uint64_t at = 0;
    int code = 0;
    bool isOffset = false;
};

class DxfReport {
public:
    // Faults of one kind are counted; the first few of a file are kept in words.
    void Mend(const DxfPlace& place, const char* what, const std::string& detail = {});
    void Fail(const DxfPlace& place, const char* why);
    void Fail(const char* why) { m_error = why; }

    bool hasFailed() const { return !m_error.empty(); }
    const std::string& error() const { return m_error; }
    uint64_t mendedCount() const { return m_mended; }
    // "line 12, group 40: no number" and the like, at most kKept of them.
    const std::vector<std::string>& mended() const { return m_lines; }

    static constexpr size_t kKept = 20;

private:
    std::string m_error;
    std::vector<std::string> m_lines;
    uint64_t m_mended = 0;
};

}   // namespace KxPlat
