#include "DesktopLibrary.h"
#include "win/Modules.h"

namespace KxConsole {

std::unique_ptr<KxDesktop::DesktopHost> OpenDesktop(const KxDesktop::DesktopSettings& settings, std::wstring& error)
{
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring path(program);
    const std::wstring library = path.substr(0, path.find_last_of(L"\\/") + 1) + L"libkxdesktop.so";
    HMODULE module = LoadLibraryW(library.c_str());
    FARPROC open = module == nullptr ? nullptr : GetProcAddress(module, "KxOpenDesktop");
    if (open == nullptr) {
        error = L"this program was built without a desktop window";
        return nullptr;
    }
    return std::unique_ptr<KxDesktop::DesktopHost>(reinterpret_cast<decltype(&KxOpenDesktop)>(open)(settings, error));
}

}   // namespace KxConsole
