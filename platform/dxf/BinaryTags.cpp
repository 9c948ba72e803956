#include "BinaryTags.h"
#include <cstring>

namespace KxPlat {

BinaryTags::BinaryTags(std::string_view bytes, DxfReport& report) : m_bytes(bytes), m_report(&report)
{
    // The first group is 0, where a second zero byte is the upper half of the code and not the start of a text, or a
    // comment (999), which only short codes begin with 255.
    const auto byte = [bytes](size_t i) {
        return bytes.size() > kBinarySentinel.size() + i ? static_cast<unsigned char>(bytes[kBinarySentinel.size() + i])
                                                         : 0;
    };
    m_hasShortCodes = byte(0) == 255 || (byte(0) == 0 && byte(1) != 0);
    Rewind();
}

void BinaryTags::Rewind()
{
    m_next = m_groupStart = m_value = kBinarySentinel.size();
    m_size = 0;
    m_isCutOff = false;
}

template <class T>
T BinaryTags::Raw() const
{
    T value;
    std::memcpy(&value, m_bytes.data() + m_value, sizeof value);
    return value;
}

bool BinaryTags::CutOff()
{
    m_isCutOff = true;
    m_next = m_bytes.size();
    m_size = 0;
    return false;
}

bool BinaryTags::ReadCode()
{
    const size_t left = m_bytes.size() - m_next;
    const auto byte = [this](size_t i) { return static_cast<unsigned char>(m_bytes[m_next + i]); };
    size_t used = 1;
    if (m_hasShortCodes && byte(0) != 255) {
        m_code = byte(0);
    } else {
        const size_t skip = m_hasShortCodes ? 1 : 0;
        used = skip + 2;
        if (left < used)
            return CutOff();
        m_code = int16_t(byte(skip) | byte(skip + 1) << 8);
    }
    m_value = m_next + used;
    return true;
}

bool BinaryTags::Next()
{
    m_groupStart = m_next;
    if (m_next >= m_bytes.size() || !ReadCode())
        return false;
    if (m_code < 0) {
        m_report->Fail(Place(), "a group code is expected here");
        return CutOff();
    }
    m_kind = KindOfGroup(m_code);
    size_t extra = 0;
    switch (m_kind) {
    case GroupKind::Real:
    case GroupKind::Int64:
        m_size = 8;
        break;
    case GroupKind::Int32:
        m_size = 4;
        break;
    case GroupKind::Int16:
        m_size = 2;
        break;
    case GroupKind::Bool:
        m_size = 1;
        break;
    case GroupKind::Binary:
        if (m_value >= m_bytes.size())
            return CutOff();
        m_size = static_cast<unsigned char>(m_bytes[m_value++]);
        break;
    case GroupKind::Text:
    case GroupKind::Handle: {
        const size_t zero = m_bytes.find('\0', m_value);
        if (zero == m_bytes.npos)
            return CutOff();
        m_size = zero - m_value;
        extra = 1;
        break;
    }
    }
    if (m_bytes.size() - m_value < m_size + extra)
        return CutOff();
    m_next = m_value + m_size + extra;
    return true;
}

double BinaryTags::Real()
{
    if (m_kind != GroupKind::Real) {
        if (m_kind != GroupKind::Text && m_kind != GroupKind::Handle)
            return double(Integer());
        bool isExact = true;
        const std::optional<double> value = ParseReal(Text(), isExact);
        if (!value)
            m_report->Mend(Place(), "this is no number");
        return value.value_or(0.0);
    }
    const double value = Raw<double>();
    if (std::isfinite(value))
        return value;
    m_report->Mend(Place(), "this is no number");
    return 0.0;
}

int64_t BinaryTags::Integer()
{
    switch (m_kind) {
    case GroupKind::Int16:
        return Raw<int16_t>();
    case GroupKind::Int32:
        return Raw<int32_t>();
    case GroupKind::Int64:
        return Raw<int64_t>();
    case GroupKind::Bool:
        return Raw<uint8_t>();
    default:
        break;
    }
    bool isExact = true;
    const std::optional<int64_t> value = m_kind == GroupKind::Real ? std::nullopt : ParseInteger(Text(), isExact);
    if (value)
        return *value;
    const double real = Real();
    return std::abs(real) < 9.0e18 ? int64_t(real) : 0;
}

std::string_view BinaryTags::Text()
{
    switch (m_kind) {
    case GroupKind::Text:
    case GroupKind::Handle:
    case GroupKind::Binary:
        return m_bytes.substr(m_value, m_size);
    case GroupKind::Real:
        m_spelled = std::to_string(Real());
        break;
    default:
        m_spelled = std::to_string(Integer());
        break;
    }
    return m_spelled;
}

std::optional<std::string> BinaryTags::Chunk()
{
    if (m_kind == GroupKind::Binary)
        return std::string(m_bytes.substr(m_value, m_size));
    return ParseChunk(Text());
}

}   // namespace KxPlat
