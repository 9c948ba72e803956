#include "StartupFile.h"
#include "../rx/acutads.h"
#include "../win/Files.h"
#include "Session.h"
#include "SupportFiles.h"
#include "TrustedFiles.h"
#include <algorithm>

namespace KxPlat {

namespace {

bool Evaluate(AcApDocument& document, const std::wstring& form)
{
    resbuf* value = nullptr;
    const bool isGood = TheLispHook() != nullptr && TheLispHook()->Evaluate(document, form, value);
    if (value != nullptr)
        acutRelRb(value);
    return isGood;
}

void AddFile(std::vector<std::wstring>& files, std::wstring folder, const wchar_t* name)
{
    if (folder.empty())
        return;
    if (folder.back() != L'\\' && folder.back() != L'/')
        folder += L'\\';
    const std::wstring path = folder + name;
    if (FileInfoOf(HostPath(path)).exists && IsTrusted(path))
        files.push_back(path);
}

}   // namespace

std::vector<std::wstring> StartupFiles(const wchar_t* name)
{
    std::vector<std::wstring> files;
    const std::wstring path = SupportPath();
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find(L';', start), path.size());
        AddFile(files, path.substr(start, end - start), name);
        start = end + 1;
    }
    AddFile(files, ConfigurationFolder(), name);
    return files;
}

void LoadStartupFiles(AcApDocument& document)
{
    for (std::wstring path : StartupFiles(L"kxcad.lsp")) {
        std::replace(path.begin(), path.end(), L'\\', L'/');
        Evaluate(document, L"(load \"" + path + L"\")");
    }
    Evaluate(document, L"(if s::startup (s::startup))");
}

}   // namespace KxPlat
