// The yardstick of every figure: one pass over the groups of an ASCII drawing that keeps nothing.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace KxBench {

// A whole file in memory, read by the system as it is touched. Empty when the file cannot be mapped.
class FileMap {
public:
    explicit FileMap(const std::string& path);
    ~FileMap();
    FileMap(const FileMap&) = delete;
    FileMap& operator=(const FileMap&) = delete;
    std::string_view bytes() const { return m_bytes; }

private:
    std::string_view m_bytes;
};

struct WalkResult {
    std::int64_t groups = 0;
    double sum = 0.0;   // of all reals, so that no number can be left unparsed
};

// Finds each line with memchr and parses codes, integers and reals with from_chars.
WalkResult Walk(std::string_view drawing);

// The same walk, with every group written anew through one buffer: reals with to_chars, all else as it stands.
WalkResult WalkAndWrite(std::string_view drawing, const std::string& path);

}   // namespace KxBench
