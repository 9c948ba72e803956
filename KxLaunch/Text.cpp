#include "Text.h"
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <vector>

namespace KxLaunch {
namespace {

void Write(std::FILE* stream, const CString& text)
{
    std::vector<char> bytes(size_t(text.GetLength()) * 4 + 1);
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, text, text.GetLength(), bytes.data(), int(bytes.size()), nullptr, nullptr);
    std::fwrite(bytes.data(), 1, size_t(size), stream);
}

}   // namespace

CString FromArgument(const char* argument)
{
    const int length = int(std::strlen(argument));
    CString text;
    wchar_t* buffer = text.GetBufferSetLength(length + 1);
    text.ReleaseBufferSetLength(MultiByteToWideChar(CP_UTF8, 0, argument, length, buffer, length + 1));
    return text;
}

void Print(const wchar_t* format, ...)
{
    CString text;
    va_list arguments;
    va_start(arguments, format);
    text.FormatV(format, arguments);
    va_end(arguments);
    Write(stdout, text);
}

int Complain(const wchar_t* what, const wchar_t* why)
{
    Write(stderr, CString(L"kxlaunch: ") + what + L": " + why + L"\n");
    return 1;
}

CString FullPath(const wchar_t* path)
{
    const DWORD size = GetFullPathNameW(path, 0, nullptr, nullptr);
    if (size == 0)
        return path;
    std::vector<wchar_t> buffer(size + 1);
    GetFullPathNameW(path, DWORD(buffer.size()), buffer.data(), nullptr);
    return buffer.data();
}

bool IsFile(const wchar_t* path)
{
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

int ReleaseOfText(const wchar_t* text)
{
    const CString release(text);
    const bool hasPoint = release.Find(L'.') >= 0;
    if (release.IsEmpty() || release.SpanIncluding(L"0123456789.") != release)
        return 0;
    const int number = hasPoint ? int(std::lround(_wtof(release) * 10)) : _wtoi(release);
    return !hasPoint && number < 100 ? number * 10 : number;
}

CString TextOfRelease(int release)
{
    CString text(L"-");
    if (release != 0)
        text.Format(L"%d.%d", release / 10, release % 10);
    return text;
}

}   // namespace KxLaunch
