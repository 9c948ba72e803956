#include "OldPageCoding.h"
#include "ByteWalk.h"

namespace KxPlat {

namespace {

struct Run {
    uint8_t from, to;   // source bytes in rising order, both included
};

// Literals of fewer than 32 bytes are not stored in order: the pieces of each length, as they are written out.
struct Order {
    uint8_t count;
    Run runs[8];
};

constexpr Order kOrders[32] = {
    {0, {}},
    {1, {{0, 0}}},
    {2, {{1, 1}, {0, 0}}},
    {3, {{2, 2}, {1, 1}, {0, 0}}},
    {1, {{0, 3}}},
    {2, {{4, 4}, {0, 3}}},
    {3, {{5, 5}, {1, 4}, {0, 0}}},
    {4, {{6, 6}, {5, 5}, {1, 4}, {0, 0}}},
    {1, {{0, 7}}},
    {2, {{8, 8}, {0, 7}}},
    {3, {{9, 9}, {1, 8}, {0, 0}}},
    {4, {{10, 10}, {9, 9}, {1, 8}, {0, 0}}},
    {2, {{8, 11}, {0, 7}}},
    {3, {{12, 12}, {8, 11}, {0, 7}}},
    {4, {{13, 13}, {9, 12}, {1, 8}, {0, 0}}},
    {5, {{14, 14}, {13, 13}, {9, 12}, {1, 8}, {0, 0}}},
    {2, {{8, 15}, {0, 7}}},
    {3, {{9, 16}, {8, 8}, {0, 7}}},
    {4, {{17, 17}, {9, 16}, {1, 8}, {0, 0}}},
    {5, {{18, 18}, {17, 17}, {16, 16}, {8, 15}, {0, 7}}},
    {3, {{16, 19}, {8, 15}, {0, 7}}},
    {4, {{20, 20}, {16, 19}, {8, 15}, {0, 7}}},
    {5, {{21, 21}, {20, 20}, {16, 19}, {8, 15}, {0, 7}}},
    {6, {{22, 22}, {21, 21}, {20, 20}, {16, 19}, {8, 15}, {0, 7}}},
    {3, {{16, 23}, {8, 15}, {0, 7}}},
    {4, {{17, 24}, {16, 16}, {8, 15}, {0, 7}}},
    {5, {{25, 25}, {17, 24}, {16, 16}, {8, 15}, {0, 7}}},
    {6, {{26, 26}, {25, 25}, {17, 24}, {16, 16}, {8, 15}, {0, 7}}},
    {4, {{24, 27}, {16, 23}, {8, 15}, {0, 7}}},
    {5, {{28, 28}, {24, 27}, {16, 23}, {8, 15}, {0, 7}}},
    {6, {{29, 29}, {28, 28}, {24, 27}, {16, 23}, {8, 15}, {0, 7}}},
    {7, {{30, 30}, {26, 29}, {18, 25}, {10, 17}, {2, 9}, {1, 1}, {0, 0}}},
};

constexpr Order kWholeBlock = {4, {{24, 31}, {16, 23}, {8, 15}, {0, 7}}};

void AppendOrdered(std::string& out, std::string_view block, const Order& order)
{
    for (int i = 0; i < order.count; ++i)
        out += block.substr(order.runs[i].from, size_t(order.runs[i].to - order.runs[i].from + 1));
}

struct Step {
    uint64_t length = 0, distance = 0;
    unsigned code = 0;   // the byte that carries on
};

Step ReadStep(unsigned code, ByteWalk& in)
{
    Step step;
    switch (code >> 4) {
    case 0:
        step.distance = in.Byte();
        step.code = in.Byte();
        step.length = (code & 15) + 0x13 + (step.code >> 3 & 16);
        step.distance += ((step.code & 0x78) << 5) + 1;
        break;
    case 1:
        step.distance = in.Byte();
        step.code = in.Byte();
        step.length = (code & 15) + 3;
        step.distance += ((step.code & 0xF8) << 5) + 1;
        break;
    case 2:
        step.distance = in.Short();
        step.length = code & 7;
        if ((code & 8) == 0) {
            step.code = in.Byte();
            step.length += step.code & 0xF8;
        } else {
            ++step.distance;
            step.length += uint64_t(in.Byte()) << 3;
            step.code = in.Byte();
            step.length += ((step.code & 0xF8) << 8) + 0x100;
        }
        break;
    default:
        step.code = in.Byte();
        step.length = code >> 4;
        step.distance = (code & 15) + ((step.code & 0xF8) << 1) + 1;
    }
    return step;
}

class OldPageDecoder {
public:
    OldPageDecoder(std::string_view coded, uint64_t limit, std::string& out)
        : m_in(coded), m_out(out), m_start(out.size()), m_limit(limit)
    {
    }
    bool Decode();

private:
    uint64_t done() const { return m_out.size() - m_start; }
    uint64_t LongRun(unsigned code);
    bool Literals(uint64_t count);
    bool CopyBack(const Step& step);
    bool Copies(unsigned& code, uint64_t& literals);

    ByteWalk m_in;
    std::string& m_out;
    size_t m_start;
    uint64_t m_limit;
};

uint64_t OldPageDecoder::LongRun(unsigned code)
{
    uint64_t count = code + 8;
    if (count != 0x17)
        return count;
    uint64_t more = m_in.Byte();
    count += more;
    if (more != 0xFF)
        return count;
    do {
        more = m_in.Short();
        count += more;
    } while (more == 0xFFFF && !m_in.isBroken());
    return count;
}

bool OldPageDecoder::Literals(uint64_t count)
{
    if (count > m_in.left() || count > m_limit - done())
        return false;
    for (; count >= 32; count -= 32)
        AppendOrdered(m_out, m_in.Take(32), kWholeBlock);
    AppendOrdered(m_out, m_in.Take(count), kOrders[count]);
    return true;
}

bool OldPageDecoder::CopyBack(const Step& step)
{
    if (step.distance == 0 || step.distance > done() || step.length > m_limit - done())
        return false;
    const size_t from = m_out.size() - step.distance;
    for (size_t i = 0; i < step.length; ++i)   // it may overlap its own result
        m_out += m_out[from + i];
    return true;
}

// Copies until literals follow. `code` is then the byte that their count is read from when `literals` is 0.
bool OldPageDecoder::Copies(unsigned& code, uint64_t& literals)
{
    code = m_in.Byte();
    Step step = ReadStep(code, m_in);
    for (;;) {
        code = step.code;
        if (m_in.isBroken() || !CopyBack(step))
            return false;
        literals = code & 7;
        if (literals != 0 || m_in.left() == 0)
            return true;
        code = m_in.Byte();
        if (code >> 4 == 0)
            return true;
        if (code >> 4 == 15)
            code &= 15;
        step = ReadStep(code, m_in);
    }
}

bool OldPageDecoder::Decode()
{
    unsigned code = m_in.Byte();
    uint64_t literals = 0;
    if (code >> 4 == 2) {   // the first run is short
        m_in.Skip(2);
        literals = m_in.Byte() & 7;
    }
    while (m_in.left() != 0) {
        if (!Literals(literals != 0 ? literals : LongRun(code)))
            return false;
        if (m_in.left() == 0)
            return true;
        if (!Copies(code, literals))
            return false;
    }
    return !m_in.isBroken();
}

}   // namespace

bool DecodeOldPage(std::string_view coded, uint64_t limit, std::string& out)
{
    return OldPageDecoder(coded, limit, out).Decode();
}

std::string Deinterleave(std::string_view page, uint64_t words, uint64_t dataBytes)
{
    std::string data;
    if (words == 0 || words > page.size())
        return data;
    data.reserve(words * dataBytes);
    for (uint64_t word = 0; word < words; ++word)
        for (uint64_t byte = 0; byte < dataBytes && word + byte * words < page.size(); ++byte)
            data += page[word + byte * words];
    return data;
}

}   // namespace KxPlat
