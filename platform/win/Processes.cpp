#include "Processes.h"
#include "CharTables.h"
#include "Files.h"
#include "HandleTable.h"
#include "ProcessFile.h"
#include "WinAnswer.h"
#include <algorithm>

namespace {

class Process : public KxPlat::KernelObject {
public:
    std::wstring file;   // in drive form
};

// Drives are volumes numbered from 1 in the order of their letters.
std::wstring DeviceOf(wchar_t letter)
{
    const std::wstring letters = KxPlat::DriveLetters();
    const size_t index = letters.find(KxPlat::Upper(letter));
    return index == std::wstring::npos ? L"" : L"\\Device\\HarddiskVolume" + std::to_wstring(index + 1);
}

// The file of a process, null when the handle is none.
const std::wstring* FileOf(HANDLE handle, std::wstring& own)
{
    if (handle == GetCurrentProcess()) {
        std::string file;
        KxPlat::ProcessFile(KxPlat::OwnProcessId(), file);
        own = KxPlat::DrivePath(file);
        return &own;
    }
    const auto* process = dynamic_cast<Process*>(KxPlat::ObjectOf(handle));
    return process != nullptr ? &process->file : nullptr;
}

}   // namespace

HANDLE GetCurrentProcess()
{
    return INVALID_HANDLE_VALUE;
}

DWORD GetCurrentProcessId()
{
    return KxPlat::OwnProcessId();
}

HANDLE OpenProcess(DWORD access, BOOL inherit, DWORD processId)
{
    std::string file;
    const DWORD error = KxPlat::ProcessFile(processId, file);
    if (error != 0) {
        SetLastError(error);
        return nullptr;
    }
    auto process = std::make_unique<Process>();
    process->file = KxPlat::DrivePath(file);
    return KxPlat::NewHandle(std::move(process));
}

DWORD GetProcessImageFileNameW(HANDLE handle, LPWSTR buffer, DWORD size)
{
    std::wstring own;
    const std::wstring* file = FileOf(handle, own);
    if (file == nullptr)
        return static_cast<DWORD>(KxPlat::FailWith(ERROR_INVALID_HANDLE));
    const std::wstring path = DeviceOf((*file)[0]) + file->substr(2);
    const DWORD answer = KxPlat::AnswerText(path.c_str(), path.size(), buffer, size);
    return answer == path.size() ? answer : static_cast<DWORD>(KxPlat::FailWith(ERROR_INSUFFICIENT_BUFFER));
}

BOOL IsWow64Process(HANDLE handle, BOOL* answer)
{
    std::wstring own;
    if (FileOf(handle, own) == nullptr || answer == nullptr)
        return KxPlat::FailWith(ERROR_INVALID_HANDLE);
    *answer = FALSE;
    return TRUE;
}

DWORD GetLogicalDriveStringsW(DWORD size, LPWSTR buffer)
{
    std::wstring list;
    for (wchar_t letter : KxPlat::DriveLetters())
        list.append({letter, L':', L'\\', L'\0'});
    return KxPlat::AnswerText(list.data(), list.size(), buffer, size);
}

DWORD GetLogicalDrives()
{
    DWORD bits = 0;
    for (wchar_t letter : KxPlat::DriveLetters())
        bits |= DWORD(1) << (letter - L'A');
    return bits;
}

DWORD QueryDosDeviceW(LPCWSTR device, LPWSTR buffer, DWORD size)
{
    const std::wstring_view name = device != nullptr ? device : L"";
    const std::wstring path = name.size() == 2 && name[1] == L':' ? DeviceOf(name[0]) : L"";
    if (path.empty())
        return static_cast<DWORD>(KxPlat::FailWith(ERROR_FILE_NOT_FOUND));
    const size_t needed = path.size() + 2;
    if (buffer == nullptr || size < needed)
        return static_cast<DWORD>(KxPlat::FailWith(ERROR_INSUFFICIENT_BUFFER));
    std::copy(path.begin(), path.end(), buffer);
    buffer[path.size()] = buffer[path.size() + 1] = 0;
    return static_cast<DWORD>(needed);
}
