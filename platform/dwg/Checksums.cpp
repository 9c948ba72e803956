#include "Checksums.h"
#include <array>

namespace KxPlat {

namespace {

template <class Word>
constexpr std::array<Word, 256> TableOf(Word polynomial)
{
    std::array<Word, 256> table{};
    for (unsigned i = 0; i < 256; ++i) {
        Word value = Word(i);
        for (int bit = 0; bit < 8; ++bit)
            value = Word(value & 1 ? (value >> 1) ^ polynomial : value >> 1);
        table[i] = value;
    }
    return table;
}

constexpr auto kTable16 = TableOf<uint16_t>(0xA001);

// What a byte does to the checksum when so many bytes follow it.
constexpr auto kAhead16 = [] {
    std::array<std::array<uint16_t, 256>, 8> tables{};
    tables[0] = kTable16;
    for (size_t ahead = 1; ahead < tables.size(); ++ahead)
        for (size_t i = 0; i < 256; ++i) {
            const uint16_t before = tables[ahead - 1][i];
            tables[ahead][i] = uint16_t((before >> 8) ^ kTable16[before & 0xFF]);
        }
    return tables;
}();
constexpr auto kTable32 = TableOf<uint32_t>(0xEDB88320);

}   // namespace

uint16_t Crc16(std::string_view bytes, uint16_t seed)
{
    uint16_t crc = seed;
    for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
        const uint8_t first = uint8_t(bytes[0]) ^ uint8_t(crc), second = uint8_t(bytes[1]) ^ uint8_t(crc >> 8);
        crc = uint16_t(kAhead16[7][first] ^ kAhead16[6][second]);
        for (size_t i = 2; i < 8; ++i)
            crc = uint16_t(crc ^ kAhead16[7 - i][uint8_t(bytes[i])]);
    }
    for (const char byte : bytes)
        crc = uint16_t((crc >> 8) ^ kTable16[(crc ^ uint8_t(byte)) & 0xFF]);
    return crc;
}

uint32_t PageSum(std::string_view bytes, uint32_t seed)
{
    constexpr size_t kStep = 0x15B0;   // so many bytes cannot overflow the sums
    constexpr uint32_t kPrime = 0xFFF1;
    uint32_t low = seed & 0xFFFF, high = seed >> 16;
    for (size_t at = 0; at < bytes.size(); at += kStep) {
        for (const char byte : bytes.substr(at, kStep)) {
            low += uint8_t(byte);
            high += low;
        }
        low %= kPrime;
        high %= kPrime;
    }
    return high << 16 | low;
}

uint32_t Crc32(std::string_view bytes)
{
    uint32_t crc = ~uint32_t(0);
    for (const char byte : bytes)
        crc = (crc >> 8) ^ kTable32[(crc ^ uint8_t(byte)) & 0xFF];
    return ~crc;
}

}   // namespace KxPlat
