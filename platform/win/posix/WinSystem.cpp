#include "../WinSystem.h"
#include "../CodePage.h"
#include "../DebugOutput.h"
#include "../Files.h"
#include "../SharingMode.h"
#include "../WinAnswer.h"
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <unistd.h>

void Sleep(DWORD milliseconds)
{
    timespec left = {static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

DWORD GetTickCount()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<DWORD>(now.tv_sec * 1000 + now.tv_nsec / 1000000);
}

DWORD GetCurrentThreadId()
{
    return static_cast<DWORD>(gettid());
}

void GetLocalTime(LPSYSTEMTIME time)
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local = {};
    localtime_r(&now.tv_sec, &local);
    const int fields[] = {
        local.tm_year + 1900, local.tm_mon + 1, local.tm_wday, local.tm_mday,
        local.tm_hour,        local.tm_min,     local.tm_sec,  static_cast<int>(now.tv_nsec / 1000000)};
    WORD* const targets[] = {&time->wYear, &time->wMonth,  &time->wDayOfWeek, &time->wDay,
                             &time->wHour, &time->wMinute, &time->wSecond,    &time->wMilliseconds};
    for (size_t i = 0; i < ARRAYSIZE(fields); ++i)
        *targets[i] = static_cast<WORD>(fields[i]);
}

DWORD GetTempPathW(DWORD size, LPWSTR buffer)
{
    std::wstring path = KxPlat::DrivePath(KxPlat::TempFolder());
    if (path.back() != L'\\')
        path += L'\\';
    return KxPlat::AnswerText(path.c_str(), path.size(), buffer, size);
}

BOOL SetCurrentDirectoryW(LPCWSTR path)
{
    if (path == nullptr || path[0] == 0)
        return KxPlat::FailWith(ERROR_INVALID_NAME);
    const int error = KxPlat::ChangeFolder(KxPlat::HostPath(path));
    return error == 0 ? TRUE : KxPlat::FailWith(error == ENOTDIR ? DWORD(ERROR_DIRECTORY) : KxPlat::WinErrorOf(error));
}

DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer)
{
    const std::wstring path = KxPlat::DrivePath(KxPlat::CurrentFolder());
    return KxPlat::AnswerText(path.c_str(), path.size(), buffer, size);
}

DWORD GetFileAttributesW(LPCWSTR file)
{
    const KxPlat::FileInfo info = KxPlat::FileInfoOf(KxPlat::HostPath(file != nullptr ? file : L""));
    if (!info.exists) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_FILE_ATTRIBUTES;
    }
    if (info.isFolder)
        return FILE_ATTRIBUTE_DIRECTORY;
    return FILE_ATTRIBUTE_ARCHIVE | (info.writable ? 0 : FILE_ATTRIBUTE_READONLY);
}

BOOL DeleteFileW(LPCWSTR file)
{
    const std::string path = KxPlat::HostPath(file != nullptr ? file : L"");
    if (KxPlat::IsRemovalForbidden(path.c_str()))
        return KxPlat::FailWith(ERROR_SHARING_VIOLATION);
    const int error = KxPlat::RemoveFile(path);
    return error == 0 ? TRUE : KxPlat::FailWith(KxPlat::WinErrorOf(error));
}

void OutputDebugStringW(LPCWSTR text)
{
    const std::string bytes = KxPlat::ToUtf8(text != nullptr ? text : L"");
    const char* wanted = std::getenv("KX_DEBUG_OUTPUT");
    const bool isNamed = wanted != nullptr && *wanted != 0;
    if (isNamed && std::string_view(wanted) == "none")
        return;
    if (!KxPlat::SendToDebugViewer(KxPlat::DebugSocketFile(), bytes) && !isNamed)
        std::fwrite(bytes.data(), 1, bytes.size(), stderr);
}
