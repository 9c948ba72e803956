#include "AsciiTags.h"

namespace KxPlat {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}   // namespace

AsciiTags::AsciiTags(std::string_view bytes, DxfReport& report)
    : m_begin(bytes.data()), m_end(bytes.data() + bytes.size()), m_report(&report)
{
    Rewind();
}

void AsciiTags::Rewind()
{
    const std::string_view bytes(m_begin, size_t(m_end - m_begin));
    m_next = bytes.starts_with(kByteOrderMark) ? m_begin + kByteOrderMark.size() : m_begin;
    m_codeLine = m_value = m_next;
    m_groups = m_extraLines = 0;
    m_code = 0;
    m_isCutOff = false;
}

// Tabs, blanks behind the code, blank lines between groups, and the end of the file.
bool AsciiTags::SlowNext()
{
    m_value = m_codeLine;
    m_next = nullptr;
    std::string_view line;
    for (bool isFirst = true;; isFirst = false) {
        if (m_value >= m_end) {
            m_next = m_end;
            return false;
        }
        line = TrimBlanks(Text());
        if (!line.empty() && line != "\x1A")
            break;
        ++m_extraLines;
        if (isFirst)
            m_report->Mend(Place(), "a blank line stands where a group begins");
        m_value = m_codeLine = m_next;
    }
    int code = 0;
    const auto [stop, fault] = std::from_chars(line.data(), line.data() + line.size(), code);
    ++m_groups;
    if (fault != std::errc() || stop != line.data() + line.size() || code < 0 || code > 32767) {
        m_report->Fail(Place(), "a group code is expected here");
        m_isCutOff = m_next >= m_end;
        m_next = m_end;
        return false;
    }
    m_code = code;
    m_value = m_next;
    if (m_value >= m_end && m_end[-1] != '\n')
        m_isCutOff = true;
    if (m_isCutOff) {
        m_next = m_end;
        return false;
    }
    m_next = nullptr;
    return true;
}

double AsciiTags::SlowReal()
{
    bool isExact = true;
    const std::string_view text = Text();
    const std::optional<double> value = ParseReal(text, isExact);
    if (!value || !isExact)
        m_report->Mend(Place(), value ? "a number cannot be taken as it stands:" : "this is no number:",
                       std::string(text.substr(0, 40)));
    return value.value_or(0.0);
}

int64_t AsciiTags::SlowInteger()
{
    bool isExact = true;
    const std::string_view text = Text();
    const std::optional<int64_t> value = ParseInteger(text, isExact);
    if (!value || !isExact)
        m_report->Mend(
            Place(), value ? "a whole number is expected, not" : "this is no number:", std::string(text.substr(0, 40)));
    return value.value_or(0);
}

std::optional<uint64_t> AsciiTags::SlowHandle()
{
    return ParseHandle(Text());
}

}   // namespace KxPlat
