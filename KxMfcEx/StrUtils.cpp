#include "StrUtils.h"

namespace KxMfcEx {

int Str_MultiByteToWideChar(const char* text, wchar_t*& out)
{
    out = nullptr;
    if (text == nullptr)
        return 0;
    const int size = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    out = new wchar_t[size_t(size)];
    return MultiByteToWideChar(CP_ACP, 0, text, -1, out, size);
}

int Str_WideCharToMultiByte(const wchar_t* text, char*& out)
{
    out = nullptr;
    if (text == nullptr)
        return 0;
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    out = new char[size_t(size)];
    return WideCharToMultiByte(CP_ACP, 0, text, -1, out, size, nullptr, nullptr);
}

int Str_IsNumString(const wchar_t* text, int radix)
{
    if (radix != 2 && radix != 8 && radix != 10 && radix != 16)
        return 0;
    CString number(text);
    number.MakeUpper();
    if (number.IsEmpty())
        return 0;
    const CString allowed = CString(L".0123456789ABCDEF").Left(radix + 1);
    int points = 0;
    for (int i = number[0] == L'-' || number[0] == L'+' ? 1 : 0; i < number.GetLength(); ++i) {
        if (allowed.Find(number[i]) < 0)
            return 0;
        points += number[i] == L'.' ? 1 : 0;
    }
    return points <= 1 ? 1 : 0;
}

CString Str_Format(const wchar_t* format, ...)
{
    CString text;
    va_list arguments;
    va_start(arguments, format);
    text.FormatV(format, arguments);
    va_end(arguments);
    return text;
}

}   // namespace KxMfcEx
