// The LZ coding of pages from AC1018 on (AC1021 has its own, see OldPageCoding.h).
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

// Appends what `coded` stands for, at most `limit` bytes. False when the coding is broken; what came before stays.
bool DecodePage(std::string_view coded, uint64_t limit, std::string& out);

class PageCoder {
public:
    // The coded form of one page, its end mark included.
    void Encode(std::string_view page, std::string& out);

private:
    struct Copy {
        size_t length = 0, distance = 0;   // 0: none
    };
    void Flush(std::string& out, std::string_view literals);
    static void AppendCopy(std::string& out, const Copy& copy, size_t literals);

    Copy m_pending;
    std::vector<uint32_t> m_last;   // position + 1 of the last group of four bytes, by hash
};

}   // namespace KxPlat
