#include "Processes.h"

namespace KxMfcEx {

int GetProcessFullPath(DWORD processId, wchar_t* out)
{
    if (out == nullptr)
        return 0;
    out[0] = 0;
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, processId);
    if (process == nullptr)
        return 0;
    wchar_t image[MAX_PATH] = {};
    const int result = GetProcessImageFileNameW(process, image, MAX_PATH) != 0 && DosPathToNtPath(image, out) ? 1 : 0;
    CloseHandle(process);
    return result;
}

int DosPathToNtPath(const wchar_t* devicePath, wchar_t* out)
{
    if (devicePath == nullptr || out == nullptr)
        return 0;
    wchar_t roots[1000] = {};
    if (GetLogicalDriveStringsW(ARRAYSIZE(roots), roots) == 0)
        return 0;
    for (const wchar_t* root = roots; *root != 0; root += std::wcslen(root) + 1) {
        if (_wcsicmp(root, L"A:\\") == 0 || _wcsicmp(root, L"B:\\") == 0)
            continue;
        const wchar_t drive[] = {root[0], L':', 0};
        wchar_t device[100] = {};
        if (QueryDosDeviceW(drive, device, ARRAYSIZE(device)) == 0)
            return 0;
        const size_t length = std::wcslen(device);
        if (_wcsnicmp(devicePath, device, length) == 0) {
            std::wcscpy(out, drive);
            std::wcscat(out, devicePath + length);
            return 1;
        }
    }
    std::wcscpy(out, devicePath);
    return 0;
}

int IsWin64()
{
    using IsWow64ProcessFunction = BOOL(WINAPI*)(HANDLE, BOOL*);
    const auto isWow64Process =
        reinterpret_cast<IsWow64ProcessFunction>(GetProcAddress(GetModuleHandleW(L"kernel32"), "IsWow64Process"));
    BOOL answer = FALSE;
    if (isWow64Process == nullptr || !isWow64Process(GetCurrentProcess(), &answer))
        return 0;
    return answer ? 1 : 0;
}

}   // namespace KxMfcEx
