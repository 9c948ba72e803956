// The modules that are loaded, and how the system loads one.
#pragma once
#include "KxWinTypes.h"
#include <string>
#include <vector>

namespace KxPlat {

using DllMainFunction = BOOL(WINAPI*)(HINSTANCE, DWORD, LPVOID);

// One loaded shared object, as the system sees it.
struct SystemModule {
    void* handle = nullptr;
    std::string file;                   // real path, links resolved
    std::vector<std::string> imports;   // real paths of the modules it was linked to
};

// 0 or a Windows error; LastLoadText then says why in the system's words.
DWORD LoadSystemModule(const std::string& file, SystemModule& module);
void UnloadSystemModule(SystemModule& module);
// A symbol of the module itself, not of what it was linked to. A null handle stands for the program and the platform.
void* SymbolOf(void* handle, const char* name);
// The program's own file.
std::string ProgramFile();
// "" when the path does not exist.
std::string RealPath(const std::string& path);

// Why the last LoadLibraryW failed, for the user: the system's own words, or empty.
const std::wstring& LastLoadText();
void SetLastLoadText(std::wstring text);

}   // namespace KxPlat
