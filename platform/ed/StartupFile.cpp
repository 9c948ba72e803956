#include "StartupFile.h"
#include "../rx/acutads.h"
#include "../win/Files.h"
#include "Session.h"
#include "SupportFiles.h"
#include "TrustedFiles.h"
#include <algorithm>

namespace KxPlat {

namespace {

const wchar_t kName[] = L"kxcad.lsp";

bool Evaluate(AcApDocument& document, const std::wstring& form)
{
    resbuf* value = nullptr;
    const bool isGood = TheLispHook() != nullptr && TheLispHook()->Evaluate(document, form, value);
    if (value != nullptr)
        acutRelRb(value);
    return isGood;
}

void LoadFrom(AcApDocument& document, std::wstring folder)
{
    if (folder.empty())
        return;
    if (folder.back() != L'\\' && folder.back() != L'/')
        folder += L'\\';
    std::wstring path = folder + kName;
    if (!FileInfoOf(HostPath(path)).exists || !IsTrusted(path))
        return;
    std::replace(path.begin(), path.end(), L'\\', L'/');
    Evaluate(document, L"(load \"" + path + L"\")");
}

}   // namespace

void LoadStartupFiles(AcApDocument& document)
{
    const std::wstring path = SupportPath();
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find(L';', start), path.size());
        LoadFrom(document, path.substr(start, end - start));
        start = end + 1;
    }
    LoadFrom(document, ConfigurationFolder());
    Evaluate(document, L"(if s::startup (s::startup))");
}

}   // namespace KxPlat
