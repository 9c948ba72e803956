#include "FindFiles.h"
#include "CharTables.h"
#include "CodePage.h"
#include "Files.h"
#include "HandleTable.h"
#include "Processes.h"
#include "WinAnswer.h"
#include <algorithm>
#include <vector>

namespace {

struct Found {
    std::wstring name;
    std::string path;   // the real one
    bool isLink;
};

class Search : public KxPlat::KernelObject {
public:
    std::vector<Found> found;
    size_t next = 0;
};

bool Matches(std::wstring_view pattern, std::wstring_view name)
{
    // Where the last "*" stands, and how much of the name it has taken so far.
    size_t star = std::wstring_view::npos, taken = 0;
    size_t p = 0, n = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            taken = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || KxPlat::Lower(pattern[p]) == KxPlat::Lower(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::wstring_view::npos) {
            p = star + 1;
            n = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == std::wstring_view::npos;
}

FILETIME FileTimeOf(int64_t secondsSince1970)
{
    const auto ticks = static_cast<uint64_t>(secondsSince1970 + 11644473600) * 10000000;   // of 100 ns since 1601
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

void Fill(const Found& found, WIN32_FIND_DATAW& data)
{
    const KxPlat::FileInfo info = KxPlat::FileInfoOf(found.path);
    data = {};
    data.dwFileAttributes = info.isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    if (found.isLink)
        data.dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    if (!info.isFolder && info.exists && !info.writable)
        data.dwFileAttributes |= FILE_ATTRIBUTE_READONLY;
    data.ftCreationTime = FileTimeOf(info.created);
    data.ftLastAccessTime = FileTimeOf(info.accessed);
    data.ftLastWriteTime = FileTimeOf(info.modified);
    data.nFileSizeLow = info.isFolder ? 0 : static_cast<DWORD>(info.size);
    data.nFileSizeHigh = info.isFolder ? 0 : static_cast<DWORD>(info.size >> 32);
    const size_t length = std::min<size_t>(found.name.size(), MAX_PATH - 1);
    std::copy_n(found.name.data(), length, data.cFileName);
}

HANDLE Refuse(DWORD error)
{
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

}   // namespace

HANDLE FindFirstFileW(LPCWSTR patternText, LPWIN32_FIND_DATAW data)
{
    const std::wstring whole = patternText != nullptr ? patternText : L"";
    const size_t slash = whole.find_last_of(L"\\/:");
    const size_t name = slash == std::wstring::npos ? 0 : slash + 1;
    std::wstring pattern = whole.substr(name);
    if (pattern.empty() || data == nullptr)
        return Refuse(ERROR_FILE_NOT_FOUND);
    if (pattern == L"*.*")
        pattern = L"*";
    const std::string folder = KxPlat::HostPath(name == 0 ? L"." : whole.substr(0, name));
    if (!KxPlat::FileInfoOf(folder).isFolder)
        return Refuse(ERROR_PATH_NOT_FOUND);
    auto search = std::make_unique<Search>();
    for (const wchar_t* dots : {L".", L".."}) {
        if (pattern == L"*" || pattern == dots)
            search->found.push_back({dots, folder, false});
    }
    for (const KxPlat::FolderEntry& entry : KxPlat::ListFolder(folder)) {
        const std::wstring entryName = KxPlat::DecodeLossless(KxPlat::kUtf8, entry.name);
        if (Matches(pattern, entryName))
            search->found.push_back({entryName, folder + "/" + entry.name, entry.isLink});
    }
    if (search->found.empty())
        return Refuse(ERROR_FILE_NOT_FOUND);
    Fill(search->found[search->next++], *data);
    return KxPlat::NewHandle(std::move(search));
}

BOOL FindNextFileW(HANDLE handle, LPWIN32_FIND_DATAW data)
{
    auto* search = dynamic_cast<Search*>(KxPlat::ObjectOf(handle));
    if (search == nullptr)
        return KxPlat::FailWith(ERROR_INVALID_HANDLE);
    if (search->next == search->found.size())
        return KxPlat::FailWith(ERROR_NO_MORE_FILES);
    Fill(search->found[search->next++], *data);
    return TRUE;
}

BOOL FindClose(HANDLE handle)
{
    if (dynamic_cast<Search*>(KxPlat::ObjectOf(handle)) == nullptr)
        return KxPlat::FailWith(ERROR_INVALID_HANDLE);
    return CloseHandle(handle);
}
