#include "PageCoding.h"
#include "ByteWalk.h"
#include <cstring>

namespace KxPlat {

namespace {

constexpr uint8_t kEnd = 0x11;
constexpr size_t kFarthest = 0xBFFF;
constexpr size_t kNear = 0x400, kMiddle = 0x4000;   // distances of the short and the middle form
constexpr size_t kShortest = 4;
constexpr unsigned kHashBits = 13;

// Every zero byte stands for 255 more; the byte that ends them is added, too.
uint64_t Extended(ByteWalk& in)
{
    uint64_t value = 0;
    for (;;) {
        const uint8_t byte = in.Byte();
        if (byte != 0 || in.isBroken())
            return value + byte;
        value += 255;
    }
}

void AppendExtended(std::string& out, size_t value)
{
    for (; value > 255; value -= 255)
        out += '\0';
    out += char(value);
}

struct Instruction {
    uint64_t length = 0, distance = 0;
    unsigned literals = 0;
};

Instruction ReadInstruction(uint8_t code, ByteWalk& in)
{
    Instruction step;
    if (code >= 0x40) {
        const unsigned next = in.Byte();
        step.length = (code >> 4) - 1u;
        step.distance = ((code >> 2 & 3u) | next << 2) + 1;
        step.literals = code & 3u;
        return step;
    }
    if (code >= 0x20) {
        step.length = code == 0x20 ? 33 + Extended(in) : (code & 31u) + 2;
        step.distance = 1;
    } else {
        step.length = (code & 7) == 0 ? 9 + Extended(in) : (code & 7u) + 2;
        step.distance = kMiddle + (uint64_t(code & 8) << 11);
    }
    const unsigned low = in.Byte(), high = in.Byte();
    step.distance += (low >> 2) | high << 6;
    step.literals = low & 3;
    return step;
}

bool CopyBack(std::string& out, size_t start, const Instruction& step, uint64_t limit)
{
    const size_t done = out.size() - start;
    if (step.distance > done || step.length > limit - done)
        return false;
    const size_t from = out.size() - step.distance;
    if (step.distance >= step.length) {
        out.append(out, from, step.length);
        return true;
    }
    for (size_t i = 0; i < step.length; ++i)   // it overlaps its own result
        out += out[from + i];
    return true;
}

}   // namespace

bool DecodePage(std::string_view coded, uint64_t limit, std::string& out)
{
    ByteWalk in(coded);
    const size_t start = out.size();
    const auto literals = [&](uint64_t count) {
        if (count > in.left() || count > limit - (out.size() - start))
            return false;
        out += in.Take(count);
        return true;
    };
    uint8_t code = in.Byte();
    for (;;) {
        if (code < 0x10) {
            if (!literals(code == 0 ? 18 + Extended(in) : code + 3u))
                return false;
            code = in.Byte();
        }
        if (code == kEnd)
            return true;
        if (code < 0x10 || in.isBroken())
            return false;
        const Instruction step = ReadInstruction(code, in);
        if (in.isBroken() || !CopyBack(out, start, step, limit) || !literals(step.literals))
            return false;
        code = in.Byte();
        // Behind literals that a copy brought along no literal run may follow at once.
        if (step.literals != 0 && code < 0x10)
            return false;
    }
}

void PageCoder::AppendCopy(std::string& out, const Copy& copy, size_t literals)
{
    const size_t back = copy.distance - 1;
    if (copy.length <= 14 && copy.distance <= kNear) {
        out += char((copy.length + 1) << 4 | (back & 3) << 2 | literals);
        out += char(back >> 2);
        return;
    }
    size_t low = back;
    if (copy.distance <= kMiddle) {
        if (copy.length <= 33) {
            out += char(0x20 | (copy.length - 2));
        } else {
            out += char(0x20);
            AppendExtended(out, copy.length - 33);
        }
    } else {
        const size_t beyond = copy.distance - kMiddle;
        const size_t bit = beyond >> 11 & 8;
        low = beyond & 0x3FFF;
        if (copy.length <= 9) {
            out += char(0x10 | bit | (copy.length - 2));
        } else {
            out += char(0x10 | bit);
            AppendExtended(out, copy.length - 9);
        }
    }
    out += char((low & 0x3F) << 2 | literals);
    out += char(low >> 6);
}

// Writes the copy that waits, then the literals.
void PageCoder::Flush(std::string& out, std::string_view literals)
{
    const size_t few = literals.size() <= 3 ? literals.size() : 0;
    if (m_pending.length != 0)
        AppendCopy(out, m_pending, few);
    if (literals.size() > 18) {
        out += '\0';
        AppendExtended(out, literals.size() - 18);
    } else if (literals.size() > 3) {
        out += char(literals.size() - 3);
    }
    out += literals;
    m_pending = Copy();
}

void PageCoder::Encode(std::string_view page, std::string& out)
{
    m_last.assign(size_t(1) << kHashBits, 0);
    m_pending = Copy();
    size_t waiting = 0;   // where the literals begin that are not written yet
    size_t at = 0;
    while (at + kShortest <= page.size()) {
        uint32_t group;
        std::memcpy(&group, page.data() + at, sizeof group);
        uint32_t& last = m_last[(group * 2654435761u) >> (32 - kHashBits)];
        const size_t before = last;
        last = uint32_t(at + 1);
        // The stream begins with a literal run, which has four bytes or more.
        const bool mayCopy = m_pending.length != 0 || at - waiting >= kShortest;
        if (before == 0 || !mayCopy || at + 1 - before > kFarthest ||
            std::memcmp(page.data() + before - 1, page.data() + at, kShortest) != 0) {
            ++at;
            continue;
        }
        const size_t from = before - 1;
        size_t length = kShortest;
        while (at + length < page.size() && page[from + length] == page[at + length])
            ++length;
        Flush(out, page.substr(waiting, at - waiting));
        m_pending = {length, at - from};
        at += length;
        waiting = at;
    }
    Flush(out, page.substr(waiting));
    out += char(kEnd);
    out.append(2, '\0');
}

}   // namespace KxPlat
