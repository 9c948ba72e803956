// The codes of the bit stream, with patterns worked out by hand; what goes in comes out again.
#include "platform/dwg/BitWriter.h"
#include <gtest/gtest.h>
#include <limits>

using namespace KxPlat;

namespace {

// "01 10" and the like, blanks for reading only.
std::string BytesOf(const char* bits)
{
    BitWriter out;
    for (; *bits != 0; ++bits)
        if (*bits != ' ')
            out.B(*bits == '1');
    out.FillByte();
    return out.Take();
}

std::string BitsOf(const BitWriter& written)
{
    BitWriter whole;
    whole.Append(written);
    whole.FillByte();
    std::string text;
    BitReader in(whole.bytes());
    for (size_t i = 0; i < written.Position(); ++i)
        text += in.B() ? '1' : '0';
    return text;
}

std::string Joined(const char* bits)
{
    std::string text;
    for (; *bits != 0; ++bits)
        if (*bits != ' ')
            text += *bits;
    return text;
}

}   // namespace

TEST(BitStreams, CodesHaveTheseBits)
{
    struct Row {
        const char* what;
        void (*write)(BitWriter&);
        const char* bits;
        double (*read)(BitReader&);
        double value;
    };
    static const Row rows[] = {
        {"BS 0", [](BitWriter& o) { o.BS(0); }, "10", [](BitReader& i) { return double(i.BS()); }, 0},
        {"BS 256", [](BitWriter& o) { o.BS(256); }, "11", [](BitReader& i) { return double(i.BS()); }, 256},
        {"BS 15", [](BitWriter& o) { o.BS(15); }, "01 00001111", [](BitReader& i) { return double(i.BS()); }, 15},
        {"BS 257", [](BitWriter& o) { o.BS(257); }, "00 00000001 00000001", [](BitReader& i) { return double(i.BS()); },
         257},
        {"BS -2", [](BitWriter& o) { o.BS(-2); }, "00 11111110 11111111",
         [](BitReader& i) { return double(int16_t(i.BS())); }, -2},
        {"BL 0", [](BitWriter& o) { o.BL(0); }, "10", [](BitReader& i) { return double(i.BL()); }, 0},
        {"BL 256", [](BitWriter& o) { o.BL(256); }, "00 00000000 00000001 00000000 00000000",
         [](BitReader& i) { return double(i.BL()); }, 256},
        {"BLL 0", [](BitWriter& o) { o.BLL(0); }, "000", [](BitReader& i) { return double(i.BLL()); }, 0},
        {"BLL 258", [](BitWriter& o) { o.BLL(258); }, "010 00000010 00000001",
         [](BitReader& i) { return double(i.BLL()); }, 258},
        {"BD 1", [](BitWriter& o) { o.BD(1); }, "01", [](BitReader& i) { return i.BD(); }, 1},
        {"BD 0", [](BitWriter& o) { o.BD(0); }, "10", [](BitReader& i) { return i.BD(); }, 0},
        // 2.0 is 40 00 00 00 00 00 00 00.
        {"BD 2", [](BitWriter& o) { o.BD(2); },
         "00 00000000 00000000 00000000 00000000 00000000 00000000 00000000 01000000",
         [](BitReader& i) { return i.BD(); }, 2},
        // 1.5 is 3FF8..., 1.0 is 3FF0...: bytes 6 and 7 do not differ only in byte 6, so all are written.
        {"DD 1.5 after 1", [](BitWriter& o) { o.DD(1.5, 1); },
         "11 00000000 00000000 00000000 00000000 00000000 00000000 11111000 00111111",
         [](BitReader& i) { return i.DD(1); }, 1.5},
        {"DD same", [](BitWriter& o) { o.DD(7.25, 7.25); }, "00", [](BitReader& i) { return i.DD(7.25); }, 7.25},
        // 1 + 2^-16 is 3FF0 0010 0000 0000.
        {"DD middle", [](BitWriter& o) { o.DD(1 + 1.0 / 65536, 1); },
         "10 00010000 00000000 00000000 00000000 00000000 00000000", [](BitReader& i) { return i.DD(1); },
         1 + 1.0 / 65536},
        // 1 + 2^-32 is 3FF0 0000 0010 0000.
        {"DD low", [](BitWriter& o) { o.DD(1 + 1.0 / 4294967296.0, 1); }, "01 00000000 00000000 00010000 00000000",
         [](BitReader& i) { return i.DD(1); }, 1 + 1.0 / 4294967296.0},
        {"MC 63", [](BitWriter& o) { o.MC(63); }, "00111111", [](BitReader& i) { return double(i.MC()); }, 63},
        {"MC -1", [](BitWriter& o) { o.MC(-1); }, "01000001", [](BitReader& i) { return double(i.MC()); }, -1},
        {"MC 64", [](BitWriter& o) { o.MC(64); }, "11000000 00000000", [](BitReader& i) { return double(i.MC()); }, 64},
        {"MC -200", [](BitWriter& o) { o.MC(-200); }, "11001000 01000001", [](BitReader& i) { return double(i.MC()); },
         -200},
        {"unsigned MC 127", [](BitWriter& o) { o.UnsignedMC(127); }, "01111111",
         [](BitReader& i) { return double(i.UnsignedMC()); }, 127},
        {"unsigned MC 300", [](BitWriter& o) { o.UnsignedMC(300); }, "10101100 00000010",
         [](BitReader& i) { return double(i.UnsignedMC()); }, 300},
        {"MS 1", [](BitWriter& o) { o.MS(1); }, "00000001 00000000", [](BitReader& i) { return double(i.MS()); }, 1},
        {"MS 0x18001", [](BitWriter& o) { o.MS(0x18001); }, "00000001 10000000 00000011 00000000",
         [](BitReader& i) { return double(i.MS()); }, 0x18001},
        {"OT 19", [](BitWriter& o) { o.OT(19); }, "00 00010011", [](BitReader& i) { return double(i.OT()); }, 19},
        {"OT 500", [](BitWriter& o) { o.OT(500); }, "01 00000100", [](BitReader& i) { return double(i.OT()); }, 500},
        {"OT 800", [](BitWriter& o) { o.OT(800); }, "10 00100000 00000011", [](BitReader& i) { return double(i.OT()); },
         800},
        {"3B 2", [](BitWriter& o) { o.B3(2); }, "10", [](BitReader& i) { return double(i.B3()); }, 2},
        {"3B 7", [](BitWriter& o) { o.B3(7); }, "111", [](BitReader& i) { return double(i.B3()); }, 7},
        {"H 5.1F", [](BitWriter& o) { o.H(5, 0x1F); }, "0101 0001 00011111",
         [](BitReader& i) { return double(i.H().value); }, 0x1F},
        {"H 4.102", [](BitWriter& o) { o.H(4, 0x102); }, "0100 0010 00000001 00000010",
         [](BitReader& i) { return double(i.H().value); }, 0x102},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        BitWriter out;
        row.write(out);
        EXPECT_EQ(BitsOf(out), Joined(row.bits));
        // At every place within a byte, and to the last bit.
        for (size_t shift = 0; shift < 8; ++shift) {
            BitWriter shifted;
            for (size_t i = 0; i < shift; ++i)
                shifted.B(true);
            shifted.Append(out);
            const size_t end = shifted.Position();
            shifted.FillByte(true);
            BitReader in(shifted.bytes(), shift, end);
            EXPECT_EQ(row.read(in), row.value);
            EXPECT_EQ(in.Left(), 0u);
            EXPECT_FALSE(in.isBroken());
        }
    }
}

TEST(BitStreams, RealsKeepEveryBit)
{
    for (double value : {-0.0, 0.1, -1.0, 1e300, std::numeric_limits<double>::denorm_min()}) {
        BitWriter out;
        out.B(true);
        out.BD(value);
        out.DD(value, 0.3);
        out.FillByte();
        BitReader in(out.bytes());
        in.B();
        EXPECT_EQ(std::bit_cast<uint64_t>(in.BD()), std::bit_cast<uint64_t>(value));
        EXPECT_EQ(std::bit_cast<uint64_t>(in.DD(0.3)), std::bit_cast<uint64_t>(value));
    }
}

TEST(BitStreams, RelativeHandlesCountFromTheirObject)
{
    struct Row {
        uint8_t code;
        uint64_t value, meant;
    };
    static const Row rows[] = {{4, 0x20, 0x20}, {6, 0, 0x101}, {8, 0, 0xFF}, {10, 3, 0x103}, {12, 0x10, 0xF0}};
    for (const Row& row : rows)
        EXPECT_EQ((HandleRef{row.code, row.value}.From(0x100)), row.meant) << int(row.code);
}

TEST(BitStreams, WhatIsCutOffBreaksAndStaysBroken)
{
    static const char* const cut[] = {"00 0000000", "01 0000", "1"};
    for (const char* bits : cut) {
        const size_t length = Joined(bits).size();
        const std::string bytes = BytesOf(bits);
        BitReader in(bytes, 0, length);
        EXPECT_EQ(in.BS(), 0);
        EXPECT_TRUE(in.isBroken()) << bits;
        EXPECT_EQ(in.Left(), 0u);
        EXPECT_EQ(in.BL(), 0u);
        in.Seek(0);
        EXPECT_TRUE(in.isBroken());
        EXPECT_EQ(in.Left(), 0u);
    }
}

TEST(BitStreams, CodesWithoutMeaningBreak)
{
    const std::string ones(32, '\xFF');
    BitReader bl(ones), bd(ones), handle(ones), chain(ones), words(ones);
    bl.BL();
    EXPECT_TRUE(bl.isBroken());
    bd.BD();
    EXPECT_TRUE(bd.isBroken());
    handle.H();
    EXPECT_TRUE(handle.isBroken());
    chain.UnsignedMC();
    EXPECT_TRUE(chain.isBroken());
    words.MS();
    EXPECT_TRUE(words.isBroken());
    BitReader bytes(ones, 4, 20);
    std::string taken;
    bytes.Bytes(3, taken);
    EXPECT_TRUE(bytes.isBroken());
    EXPECT_TRUE(taken.empty());
}

TEST(BitStreams, ALengthIsPutInAfterwards)
{
    for (size_t shift = 0; shift < 8; ++shift) {
        BitWriter out;
        for (size_t i = 0; i < shift; ++i)
            out.B(true);
        out.RL(0);
        out.RC(0xA5);
        out.FillByte(true);
        out.PatchRL(shift, 0x12345678);
        BitReader in(out.bytes(), shift, out.bytes().size() * 8);
        EXPECT_EQ(in.RL(), 0x12345678u) << shift;
        EXPECT_EQ(in.RC(), 0xA5) << shift;
    }
}

TEST(BitStreams, BytesComeAtAnyBit)
{
    const std::string text = "Grundriss EG 1:50";
    for (size_t shift = 0; shift < 8; ++shift) {
        BitWriter out;
        for (size_t i = 0; i < shift; ++i)
            out.B(false);
        out.Bytes(text);
        out.FillByte();
        BitReader in(out.bytes(), shift, out.bytes().size() * 8);
        std::string room;
        EXPECT_EQ(in.View(text.size(), room), text) << shift;
    }
}
