// Between CString and the standard library's texts, without a scan for the end.
#pragma once
#include "CString.h"
#include <string_view>

namespace KxPlat {

inline std::wstring_view TextView(const CString& text)
{
    return {text.GetString(), size_t(text.GetLength())};
}

inline CString ToCString(std::wstring_view text)
{
    return CString(text.data(), int(text.size()));
}

}   // namespace KxPlat
