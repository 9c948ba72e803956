// One code page of one or two bytes per character, as tables in both directions.
#pragma once
#include <cstdint>
#include <vector>

namespace KxPlat {

constexpr uint16_t kNoChar = 0xFFFF;   // no character of any code page has this number

struct CodeTable {
    unsigned codePage = 0;
    bool lead[256] = {};
    uint16_t single[256] = {};     // character of a byte, or kNoChar
    std::vector<uint16_t> pairs;   // character of lead * 256 + trail, or kNoChar; empty for one-byte pages
    std::vector<uint16_t>
        back;   // bytes of a character: one byte below 256, else lead * 256 + trail; 0 when there is none
};

// Null for a code page that this system does not know. UTF-8 is none of these tables.
const CodeTable* FindCodeTable(unsigned codePage);

// Fills `single` and `pairs` from the system's converter; `lead` is given. False when the system lacks the code page.
bool FillFromSystem(CodeTable& table);

}   // namespace KxPlat
