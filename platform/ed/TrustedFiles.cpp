#include "TrustedFiles.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "../win/Files.h"
#include "commands/Questions.h"
#include "Session.h"
#include "SupportFiles.h"
#include <algorithm>
#include <cstdlib>

namespace KxPlat {

namespace {

// "folder" holds the file itself, "folder\\..." any folder within it does as well.
bool IsIn(const std::wstring& path, std::wstring folder)
{
    const std::wstring within = L"\\...";
    const bool isDeep = folder.size() > within.size() && folder.ends_with(within);
    if (isDeep)
        folder.erase(folder.size() - within.size());
    if (folder.empty())
        return false;
    folder = FullDrivePath(folder);
    if (folder.back() != L'\\')
        folder += L'\\';
    if (!StartsWithNoCase(path, folder))
        return false;
    return isDeep || path.find(L'\\', folder.size()) == std::wstring::npos;
}

bool IsInOneOf(const std::wstring& path, const std::wstring& folders)
{
    for (size_t start = 0; start < folders.size();) {
        const size_t end = std::min(folders.find(L';', start), folders.size());
        if (IsIn(path, folders.substr(start, end - start)))
            return true;
        start = end + 1;
    }
    return false;
}

// Whoever sets the environment has started the program himself.
std::wstring FromEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? FromUtf8(value) + L";" : std::wstring();
}

std::wstring Deep(const std::wstring& folder)
{
    return folder.empty() ? folder : folder + L"...";
}

}   // namespace

std::wstring ConfigurationFolder()
{
    const char* config = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    if (config != nullptr && *config != 0)
        return FullDrivePath(FromUtf8(config)) + L"\\kxcad\\";
    return home != nullptr && *home != 0 ? FullDrivePath(FromUtf8(home)) + L"\\.config\\kxcad\\" : std::wstring();
}

bool IsTrusted(const std::wstring& path)
{
    const std::wstring full = FullDrivePath(path);
    const std::wstring named = TheEditor() != nullptr ? TheEditor()->trustedFolders : L"";
    return IsInOneOf(full, Deep(ProgramFolder()) + L";" + Deep(ConfigurationFolder()) + L";" + named + L";" +
                               FromEnvironment("KX_SUPPORT_PATH") + FromEnvironment("KX_TRUSTED_PATHS") +
                               TextVar(L"TRUSTEDPATHS"));
}

bool MayLoad(const std::wstring& path, std::wstring& why)
{
    Session* session = Session::Current();
    const int level = IntegerVar(L"SECURELOAD");
    // Programs that modules send are as trusted as the modules.
    if (session == nullptr || level == 0 || session->state().runsSentText || IsTrusted(path))
        return true;
    why = L"it lies in no trusted folder (see TRUSTEDPATHS)";
    if (level > 1 || !session->input().IsKeyboardNext())
        return false;
    return AskYesNo(L"\n\"" + path + L"\" lies in no trusted folder. Load it? [Yes/No]", false);
}

}   // namespace KxPlat
