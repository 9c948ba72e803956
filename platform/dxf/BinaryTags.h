// Walks the groups of a binary drawing file in memory. The same members as AsciiTags.
// Codes are two bytes long; in the oldest files one byte, with 255 before a two-byte code.
#pragma once
#include "../db/core/GroupValue.h"
#include "DxfReport.h"
#include "TagNumbers.h"

namespace KxPlat {

constexpr std::string_view kBinarySentinel("AutoCAD Binary DXF\r\n\x1A\0", 22);

class BinaryTags {
public:
    // `bytes` begin with the sentinel.
    BinaryTags(std::string_view bytes, DxfReport& report);

    bool Next();
    int code() const { return m_code; }
    // Raw characters of a text group, and numbers spelled out.
    std::string_view Text();
    bool IsText(std::string_view text) { return Text() == text; }
    double Real();
    int64_t Integer();
    std::optional<uint64_t> Handle() { return ParseHandle(Text()); }
    std::optional<std::string> Chunk();

    DxfPlace Place() const { return {uint64_t(m_groupStart), m_code, true}; }
    size_t Offset() const { return m_groupStart; }
    bool isCutOff() const { return m_isCutOff; }
    void Rewind();
    DxfReport& report() { return *m_report; }
    bool hasShortCodes() const { return m_hasShortCodes; }

private:
    bool ReadCode();
    bool CutOff();
    template <class T>
    T Raw() const;

    std::string_view m_bytes;
    size_t m_groupStart = 0;
    size_t m_value = 0;
    size_t m_size = 0;   // of the value, without length byte or closing zero
    size_t m_next = 0;
    int m_code = 0;
    GroupKind m_kind = GroupKind::Text;
    bool m_hasShortCodes = false;
    bool m_isCutOff = false;
    std::string m_spelled;
    DxfReport* m_report;
};

}   // namespace KxPlat
