// Runs a program to its end.
#pragma once
#include "KxWin.h"
#include <string>

namespace KxTest {

inline bool Run(std::wstring commandLine)
{
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION info = {};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &info))
        return false;
    WaitForSingleObject(info.hProcess, 30000);
    DWORD code = 1;
    GetExitCodeProcess(info.hProcess, &code);
    CloseHandle(info.hThread);
    CloseHandle(info.hProcess);
    return code == 0;
}

}   // namespace KxTest
