// Puts values into a stream of bits, the highest bit of each byte first: the other way round of BitReader. Every value
// takes its shortest form.
#pragma once
#include "BitReader.h"
#include <algorithm>
#include <memory>

namespace KxPlat {

class BitWriter {
public:
    size_t Position() const { return m_size * 8 + size_t(m_count); }
    // Keeps the room.
    void Clear()
    {
        m_size = 0;
        m_pending = 0;
        m_count = 0;
    }

    // 1 to 32 bits of `value`, the highest first.
    void Bits(uint64_t value, int count)
    {
        m_pending = m_pending << count | (value & (~uint64_t(0) >> (64 - count)));
        m_count += count;
        if (m_count < 32)
            return;
        m_count -= 32;
        const uint32_t whole = __builtin_bswap32(uint32_t(m_pending >> m_count));
        Grow(sizeof whole);
        std::memcpy(m_room.get() + m_size, &whole, sizeof whole);
        m_size += sizeof whole;
    }
    void B(bool value) { Bits(value ? 1 : 0, 1); }
    void BB(int value) { Bits(uint64_t(value), 2); }
    void B3(int value)
    {
        static const uint8_t lengths[] = {1, 1, 2, 2, 3, 3, 3, 3};
        Bits(uint64_t(value), lengths[value & 7]);
    }

    void RC(int value) { Bits(uint8_t(value), 8); }
    void RS(int value) { Bits(__builtin_bswap16(uint16_t(value)), 16); }
    void RL(uint32_t value) { Bits(__builtin_bswap32(value), 32); }
    void RLL(uint64_t value)
    {
        RL(uint32_t(value));
        RL(uint32_t(value >> 32));
    }
    void RD(double value) { RLL(std::bit_cast<uint64_t>(value)); }
    void BigRS(int value) { Bits(uint16_t(value), 16); }

    void BS(int value)
    {
        const uint16_t stored = uint16_t(value);
        if (stored == 0)
            return BB(2);
        if (stored == 256)
            return BB(3);
        BB(stored < 256 ? 1 : 0);
        stored < 256 ? RC(stored) : RS(stored);
    }
    void BL(uint32_t value)
    {
        if (value == 0)
            return BB(2);
        BB(value < 256 ? 1 : 0);
        value < 256 ? RC(int(value)) : RL(value);
    }
    // At most seven bytes.
    void BLL(uint64_t value)
    {
        const int count = (std::bit_width(value) + 7) / 8;
        Bits(uint64_t(count), 3);
        for (int i = 0; i < count; ++i)
            RC(uint8_t(value >> (8 * i)));
    }
    // Minus zero is no 0.0: its sign would be lost.
    void BD(double value)
    {
        const uint64_t bits = std::bit_cast<uint64_t>(value);
        if (bits == 0)
            return BB(2);
        if (value == 1.0)
            return BB(1);
        BB(0);
        RLL(bits);
    }
    void DD(double value, double before)
    {
        const uint64_t bits = std::bit_cast<uint64_t>(value);
        const uint64_t differs = bits ^ std::bit_cast<uint64_t>(before);
        if (differs == 0)
            return BB(0);
        if (differs >> 32 == 0) {
            BB(1);
            return RL(uint32_t(bits));
        }
        if (differs >> 48 == 0) {
            BB(2);
            RS(uint16_t(bits >> 32));
            return RL(uint32_t(bits));
        }
        BB(3);
        RLL(bits);
    }
    void UnsignedMC(uint64_t value)
    {
        for (; value > 0x7F; value >>= 7)
            RC(int(value & 0x7F) | 0x80);
        RC(int(value));
    }
    void MC(int64_t value)
    {
        uint64_t left = value < 0 ? uint64_t(0) - uint64_t(value) : uint64_t(value);
        for (; left > 0x3F; left >>= 7)
            RC(int(left & 0x7F) | 0x80);
        RC(int(left) | (value < 0 ? 0x40 : 0));
    }
    void MS(uint32_t value)
    {
        if (value > 0x7FFF) {
            RS(int(value & 0x7FFF) | 0x8000);
            value >>= 15;
        }
        RS(int(value));
    }
    void OT(int type)
    {
        const bool isShort = type < 0x100 || (type >= 0x1F0 && type < 0x2F0);
        BB(!isShort ? 2 : type < 0x100 ? 0 : 1);
        isShort ? RC(type < 0x100 ? type : type - 0x1F0) : RS(type);
    }
    void H(int code, uint64_t value)
    {
        const int count = (std::bit_width(value) + 7) / 8;
        RC(code << 4 | count);
        for (int i = count - 1; i >= 0; --i)
            RC(uint8_t(value >> (8 * i)));
    }
    void Bytes(std::string_view bytes)
    {
        if (m_count % 8 == 0) {
            Settle();
            Grow(bytes.size());
            if (!bytes.empty())
                std::memcpy(m_room.get() + m_size, bytes.data(), bytes.size());
            m_size += bytes.size();
            return;
        }
        for (; bytes.size() >= 4; bytes.remove_prefix(4)) {
            uint32_t part;
            std::memcpy(&part, bytes.data(), 4);
            RL(part);
        }
        for (char byte : bytes)
            RC(uint8_t(byte));
    }
    // The whole of another stream.
    void Append(const BitWriter& other)
    {
        Bytes(std::string_view(other.m_room.get(), other.m_size));
        if (other.m_count > 0)
            Bits(other.m_pending, other.m_count);
    }
    // What a reader has left, up to its end.
    void Append(BitReader bits)
    {
        while (bits.Left() >= 32)
            Bits(bits.Bits(32), 32);
        if (const int left = int(bits.Left()); left > 0)
            Bits(bits.Bits(left), left);
    }
    void FillByte(bool withOnes = false)
    {
        if (m_count % 8 != 0)
            Bits(withOnes ? 0xFF : 0, 8 - m_count % 8);
        Settle();
    }
    // Puts an RL in the place of one written before as 0, which may begin at any bit. Whole bytes only: FillByte first.
    void PatchRL(size_t position, uint32_t value)
    {
        const uint64_t shifted = uint64_t(__builtin_bswap32(value)) << (32 - position % 8);
        char* at = m_room.get() + position / 8;
        for (size_t i = 0; i < 5 && position / 8 + i < m_size; ++i)
            at[i] = char(uint8_t(at[i]) | uint8_t(shifted >> (56 - 8 * i)));
    }

    // Whole bytes, until the next change; an unfinished one is not among them.
    std::string_view bytes()
    {
        Settle();
        return std::string_view(m_room.get(), m_size);
    }
    std::string Take() { return std::string(bytes()); }

private:
    void Grow(size_t more)
    {
        if (m_capacity - m_size >= more)
            return;
        m_capacity = std::max<size_t>(256, 2 * (m_size + more));
        std::unique_ptr<char[]> wider(new char[m_capacity]);
        if (m_size > 0)
            std::memcpy(wider.get(), m_room.get(), m_size);
        m_room = std::move(wider);
    }
    // Pending bytes join the others.
    void Settle()
    {
        Grow(8);
        for (; m_count >= 8; m_count -= 8)
            m_room[m_size++] = char(m_pending >> (m_count - 8));
    }

    std::unique_ptr<char[]> m_room;
    size_t m_size = 0, m_capacity = 0;
    uint64_t m_pending = 0;   // its low m_count bits, fewer than 32, are still to be written
    int m_count = 0;
};

}   // namespace KxPlat
