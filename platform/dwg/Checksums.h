// The three checksums of DWG files.
#pragma once
#include <cstdint>
#include <string_view>

namespace KxPlat {

constexpr uint16_t kCrcSeed = 0xC0C1;

// CRC-16 of objects, headers and maps.
uint16_t Crc16(std::string_view bytes, uint16_t seed = kCrcSeed);
// The two running sums of pages.
uint32_t PageSum(std::string_view bytes, uint32_t seed = 0);
uint32_t Crc32(std::string_view bytes);

}   // namespace KxPlat
