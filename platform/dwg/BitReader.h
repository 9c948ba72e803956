// Takes values off a stream of bits, the highest bit of each byte first. Positions count bits from the first byte.
// Reading past the end, or a code that means nothing, breaks the reader: from then on every value is 0 and the position
// is the end, so that one look at isBroken() after a whole object is enough.
#pragma once
#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace KxPlat {

// A reference as it is stored: codes 2 to 5 hold the handle itself, 6 and above count from the object's own handle.
struct HandleRef {
    uint8_t code = 0;
    uint64_t value = 0;

    uint64_t From(uint64_t own) const
    {
        switch (code) {
        case 6:
            return own + 1;
        case 8:
            return own - 1;
        case 10:
            return own + value;
        case 12:
            return own - value;
        default:
            return value;
        }
    }
};

class BitReader {
public:
    BitReader() = default;
    explicit BitReader(std::string_view bytes) : BitReader(bytes, 0, bytes.size() * 8) {}
    // The bits from `from` up to `to` of `bytes`; a `to` beyond them is cut.
    BitReader(std::string_view bytes, size_t from, size_t to)
        : m_bytes(reinterpret_cast<const uint8_t*>(bytes.data())),
          m_size(bytes.size()),
          m_end(to < bytes.size() * 8 ? to : bytes.size() * 8),
          m_position(from)
    {
        if (from > m_end)
            Break();
    }

    size_t Position() const { return m_position; }
    size_t End() const { return m_end; }
    size_t Left() const { return m_end - m_position; }
    bool isBroken() const { return m_isBroken; }
    void Break()
    {
        m_isBroken = true;
        m_position = m_end;
    }
    void Seek(size_t position)
    {
        if (position > m_end)
            Break();
        else if (!m_isBroken)
            m_position = position;
    }
    void Skip(size_t bits)
    {
        if (bits > Left())
            Break();
        else
            m_position += bits;
    }
    void SkipToByte() { Skip((8 - m_position % 8) % 8); }
    // Moves the end towards the front.
    void EndAt(size_t end)
    {
        if (end < m_position || end > m_end)
            Break();
        else
            m_end = end;
    }

    // 1 to 56 bits as a number, the first one highest.
    uint64_t Bits(int count)
    {
        if (size_t(count) > Left()) {
            Break();
            return 0;
        }
        const uint64_t value = Window(m_position) >> (64 - count);
        m_position += size_t(count);
        return value;
    }
    bool B() { return Bits(1) != 0; }
    int BB() { return int(Bits(2)); }
    // One to three bits: 0, 10, 110, 111.
    int B3()
    {
        int value = 0;
        for (int i = 0; i < 3; ++i) {
            const int bit = B() ? 1 : 0;
            value = value << 1 | bit;
            if (bit == 0)
                break;
        }
        return value;
    }

    uint8_t RC() { return uint8_t(Bits(8)); }
    uint16_t RS() { return __builtin_bswap16(uint16_t(Bits(16))); }
    uint32_t RL() { return __builtin_bswap32(uint32_t(Bits(32))); }
    uint64_t RLL()
    {
        const uint64_t low = RL();
        return low | uint64_t(RL()) << 32;
    }
    double RD() { return std::bit_cast<double>(RLL()); }
    // Bytes of a number with the highest first, as in object maps.
    uint16_t BigRS() { return uint16_t(Bits(16)); }

    uint16_t BS()
    {
        switch (BB()) {
        case 0:
            return RS();
        case 1:
            return RC();
        case 2:
            return 0;
        default:
            return m_isBroken ? 0 : 256;
        }
    }
    uint32_t BL()
    {
        switch (BB()) {
        case 0:
            return RL();
        case 1:
            return RC();
        case 2:
            return 0;
        default:
            Break();
            return 0;
        }
    }
    uint64_t BLL()
    {
        const int count = int(Bits(3));
        uint64_t value = 0;
        for (int i = 0; i < count; ++i)
            value |= uint64_t(RC()) << (8 * i);
        return value;
    }
    double BD()
    {
        switch (BB()) {
        case 0:
            return RD();
        case 1:
            return 1.0;
        case 2:
            return 0.0;
        default:
            Break();
            return 0.0;
        }
    }
    // The part of the double that differs from one known before.
    double DD(double before)
    {
        uint64_t bits = std::bit_cast<uint64_t>(before);
        switch (BB()) {
        case 0:
            break;
        case 1:
            bits = (bits & 0xFFFFFFFF00000000u) | RL();
            break;
        case 2: {
            const uint64_t middle = RS();
            bits = (bits & 0xFFFF000000000000u) | middle << 32 | RL();
            break;
        }
        default:
            bits = RLL();
            break;
        }
        return std::bit_cast<double>(bits);
    }
    // Bytes of seven bits, the lowest first.
    uint64_t UnsignedMC() { return Chain(false); }
    int64_t MC() { return int64_t(Chain(true)); }
    // Words of fifteen bits, the lowest first.
    uint32_t MS()
    {
        uint32_t value = 0;
        for (int shift = 0;; shift += 15) {
            const uint16_t word = RS();
            value |= uint32_t(word & 0x7FFF) << shift;
            if ((word & 0x8000) == 0)
                return value;
            if (shift >= 15) {
                Break();
                return 0;
            }
        }
    }
    // The type of an object from R2010 on.
    int OT()
    {
        switch (BB()) {
        case 0:
            return RC();
        case 1:
            return RC() + 0x1F0;
        default:
            return RS();
        }
    }
    HandleRef H()
    {
        HandleRef handle;
        const uint8_t head = RC();
        const int count = head & 15;
        handle.code = head >> 4;
        if (count > 8) {
            Break();
            return HandleRef();
        }
        if (count > 0 && count < 8)
            handle.value = Bits(8 * count);
        else if (count == 8) {
            const uint64_t high = Bits(32);
            handle.value = high << 32 | Bits(32);
        }
        return handle;
    }
    // Appends `count` bytes; nothing when so many are not left.
    void Bytes(size_t count, std::string& out)
    {
        if (count > Left() / 8) {
            Break();
            return;
        }
        const size_t start = out.size();
        out.resize(start + count);
        char* to = out.data() + start;
        if (m_position % 8 == 0) {
            std::memcpy(to, m_bytes + m_position / 8, count);
            m_position += 8 * count;
            return;
        }
        for (; count >= 4; count -= 4, to += 4) {
            const uint32_t part = RL();
            std::memcpy(to, &part, 4);
        }
        for (; count > 0; --count)
            *to++ = char(RC());
    }
    // The same bytes without a copy where they begin at a byte; `room` serves where they do not.
    std::string_view View(size_t count, std::string& room)
    {
        if (m_position % 8 == 0 && count <= Left() / 8) {
            const char* start = reinterpret_cast<const char*>(m_bytes) + m_position / 8;
            m_position += 8 * count;
            return std::string_view(start, count);
        }
        room.clear();
        Bytes(count, room);
        return room;
    }

private:
    // The 64 bits from `position` on, of which the first 57 are sure; behind the last byte come zeros.
    uint64_t Window(size_t position) const
    {
        const size_t byte = position / 8;
        uint64_t window = 0;
        if (byte + 8 <= m_size)
            std::memcpy(&window, m_bytes + byte, 8);
        else if (byte < m_size)
            std::memcpy(&window, m_bytes + byte, m_size - byte);
        return __builtin_bswap64(window) << (position % 8);
    }
    uint64_t Chain(bool isSigned)
    {
        uint64_t value = 0;
        for (int shift = 0; shift < 63; shift += 7) {
            const uint8_t part = RC();
            if ((part & 0x80) != 0) {
                value |= uint64_t(part & 0x7F) << shift;
                continue;
            }
            if (!isSigned)
                return value | uint64_t(part) << shift;
            value |= uint64_t(part & 0x3F) << shift;
            return (part & 0x40) != 0 ? uint64_t(0) - value : value;
        }
        Break();
        return 0;
    }

    const uint8_t* m_bytes = nullptr;
    size_t m_size = 0;   // of the bytes, which may go on behind the end
    size_t m_end = 0;
    size_t m_position = 0;
    bool m_isBroken = false;
};

}   // namespace KxPlat
