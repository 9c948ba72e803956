// Walks the groups of an ASCII drawing file in memory: one step per group, nothing allocated, a value looked at only
// when it is asked for. The end of a value's line is found by whatever reads the value, so that no byte is passed
// twice.
#pragma once
#include "DxfReport.h"
#include "TagNumbers.h"
#include <cstring>

namespace KxPlat {

class AsciiTags {
public:
    AsciiTags(std::string_view bytes, DxfReport& report);

    // False at the end of the bytes, after a group without a value line, and at a line that is no group code.
    bool Next()
    {
        const char* at = m_next != nullptr ? m_next : AfterValue();
        m_codeLine = at;
        while (at < m_end && *at == ' ')
            ++at;
        const char* const first = at;
        int code = 0;
        while (at < m_end && unsigned(*at - '0') < 10 && at - first < 4)
            code = code * 10 + (*at++ - '0');
        if (at < m_end && *at == '\r')
            ++at;
        if (at + 1 >= m_end || *at != '\n' || at == first)
            return SlowNext();
        m_code = code;
        m_value = at + 1;
        m_next = nullptr;
        ++m_groups;
        return true;
    }

    int code() const { return m_code; }
    // The value as it stands in the file, without its line end.
    std::string_view Text()
    {
        const void* feed = std::memchr(m_value, '\n', size_t(m_end - m_value));
        const char* stop = feed != nullptr ? static_cast<const char*>(feed) : m_end;
        m_next = feed != nullptr ? stop + 1 : m_end;
        if (stop != m_value && stop[-1] == '\r')
            --stop;
        return {m_value, size_t(stop - m_value)};
    }
    bool IsText(std::string_view text) { return Text() == text; }

    // What is no number reads as 0 and is reported.
    double Real()
    {
        const char* at = m_value;
        while (at < m_end && *at == ' ')
            ++at;
        double value = 0.0;
        const auto [stop, fault] = std::from_chars(at, m_end, value);
        if (fault == std::errc() && std::isfinite(value) && EndsLine(stop))
            return value;
        return SlowReal();
    }
    int64_t Integer()
    {
        const char* at = m_value;
        while (at < m_end && *at == ' ')
            ++at;
        int64_t value = 0;
        const auto [stop, fault] = std::from_chars(at, m_end, value);
        if (fault == std::errc() && EndsLine(stop))
            return value;
        return SlowInteger();
    }
    // Empty for what is no handle; not reported, since the caller may keep the text.
    std::optional<uint64_t> Handle()
    {
        const char* at = m_value;
        uint64_t value = 0;
        for (; at < m_end && at - m_value < 16; ++at) {
            const unsigned char c = static_cast<unsigned char>(*at);
            if (unsigned(c - '0') < 10)
                value = value << 4 | unsigned(c - '0');
            else if (unsigned((c & 0xDF) - 'A') < 6)
                value = value << 4 | unsigned((c & 0xDF) - 'A' + 10);
            else
                break;
        }
        if (at != m_value && EndsLine(at))
            return value;
        return SlowHandle();
    }
    std::optional<std::string> Chunk() { return ParseChunk(Text()); }

    DxfPlace Place() const { return {m_groups == 0 ? 1 : m_groups * 2 - 1 + m_extraLines, m_code, false}; }
    // Bytes that are done with.
    size_t Offset() const { return size_t(m_codeLine - m_begin); }
    bool isCutOff() const { return m_isCutOff; }   // the bytes ended within a group
    void Rewind();
    DxfReport& report() { return *m_report; }

private:
    bool EndsLine(const char* stop)
    {
        if (stop < m_end && *stop == '\r')
            ++stop;
        if (stop < m_end && *stop != '\n')
            return false;
        m_next = stop < m_end ? stop + 1 : m_end;
        return true;
    }
    const char* AfterValue()
    {
        Text();
        return m_next;
    }
    bool SlowNext();
    double SlowReal();
    int64_t SlowInteger();
    std::optional<uint64_t> SlowHandle();

    const char* m_begin;
    const char* m_end;
    const char* m_codeLine;
    const char* m_value;
    const char* m_next;   // the line after the value; null until somebody has found it
    int m_code = 0;
    uint64_t m_groups = 0;
    uint64_t m_extraLines = 0;   // blank lines between groups
    bool m_isCutOff = false;
    DxfReport* m_report;
};

}   // namespace KxPlat
