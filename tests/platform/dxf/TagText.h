// A loader of drawing files that shares nothing with the platform: every group of a file as code and value, in records.
#pragma once
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace TagText {

struct Tag {
    int code = 0;
    char kind = 't';    // t text, r real, i whole number, h handle, b binary
    std::string text;   // raw bytes; of binary data the data itself
    double real = 0;
    int64_t integer = 0;
    uint64_t handle = 0;
};

struct Record {
    std::string section;
    std::string table;   // or block
    std::string type;    // of the 0 group; the name of a header variable
    uint64_t handle = 0;
    std::vector<Tag> tags;   // without the 0 group
};

// Stops where the file cannot be read on. Structure records (SECTION, ENDSEC, TABLE ends, EOF) are left out.
std::vector<Record> Load(const std::string& path);
// Empty when both say the same; values behind the codes of `free` may differ.
std::string Difference(const Record& a, const Record& b, const std::set<int>& free = {});
std::string ReadFile(const std::string& path);

}   // namespace TagText
