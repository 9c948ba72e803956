// Texts of a drawing file: bytes of its code page (UTF-8 in DXF files from AC1021 on) with "\U+XXXX" and "\M+nXXXX" for
// what the code page lacks. Bytes that mean nothing in the code page survive reading and writing.
#pragma once
#include "../../mfc/CString.h"
#include "../AcDb.h"
#include <string>
#include <string_view>

namespace KxPlat {

// No text may end its line early: line ends and zeros are named with a caret ("^J").
std::string OneLine(std::string_view bytes);

class TextCodec {
public:
    TextCodec() = default;
    explicit TextCodec(unsigned codePage) : m_codePage(codePage) {}
    // `pageName` is the value of $DWGCODEPAGE; an empty or unknown one counts as ANSI_1252.
    TextCodec(AcDb::AcDbDwgVersion version, std::string_view pageName);

    unsigned codePage() const { return m_codePage; }

    // `isPlain` turns false where Encode() would spell the text in other bytes.
    CString Decode(std::string_view bytes, bool& isPlain) const
    {
        constexpr size_t kShort = 120;
        if (bytes.size() > kShort)
            return SlowDecode(bytes, isPlain);
        wchar_t wide[kShort];
        for (size_t i = 0; i < bytes.size(); ++i) {
            const unsigned char c = static_cast<unsigned char>(bytes[i]);
            if (c >= 0x80 || c == '\\')
                return SlowDecode(bytes, isPlain);
            wide[i] = c;
        }
        return CString(wide, int(bytes.size()));
    }
    CString Decode(std::string_view bytes) const
    {
        bool isPlain = true;
        return Decode(bytes, isPlain);
    }
    // The bytes stay valid until the next call.
    std::string_view Encode(const CString& text) const;

private:
    CString SlowDecode(std::string_view bytes, bool& isPlain) const;

    unsigned m_codePage = 1252;
    mutable std::string m_bytes;
};

}   // namespace KxPlat
