// Texts of DWG files hold line ends and other control characters as they are. In memory, as in drawing exchange files,
// a caret and a letter stand for one ("^J"), and a caret and a blank for a caret.
#pragma once
#include "../db/core/TextCodec.h"
#include <string>

namespace KxPlat {

inline bool HasControls(const CString& text)
{
    for (int i = 0; i < text.GetLength(); ++i)
        if (text[i] < 0x20 || text[i] == L'^')
            return true;
    return false;
}

inline CString WithCarets(const CString& text)
{
    if (!HasControls(text))
        return text;
    std::wstring named;
    for (int i = 0; i < text.GetLength(); ++i) {
        const wchar_t c = text[i];
        if (c < 0x20)
            named += {L'^', wchar_t(c + L'@')};
        else if (c == L'^')
            named += L"^ ";
        else
            named += c;
    }
    return CString(named.c_str(), int(named.size()));
}

inline CString WithoutCarets(const CString& text)
{
    if (text.Find(L'^') < 0)
        return text;
    std::wstring plain;
    const int length = text.GetLength();
    for (int i = 0; i < length; ++i) {
        const wchar_t next = text[i] == L'^' && i + 1 < length ? text[i + 1] : 0;
        const bool isNamed = next == L' ' || (next >= L'@' && next <= L'_');
        plain += !isNamed ? text[i] : next == L' ' ? L'^' : wchar_t(next - L'@');
        i += isNamed;
    }
    return CString(plain.c_str(), int(plain.size()));
}

// The bytes of the code page, control characters as they are.
inline std::string BytesOf(const CString& text, const TextCodec& codec)
{
    const CString plain = WithoutCarets(text);
    std::string bytes;
    int start = 0;
    for (int i = 0; i <= plain.GetLength(); ++i) {
        if (i < plain.GetLength() && plain[i] >= 0x20)
            continue;
        bytes += codec.Encode(plain.Mid(start, i - start));
        if (i < plain.GetLength())
            bytes += char(plain[i]);
        start = i + 1;
    }
    return bytes;
}

}   // namespace KxPlat
