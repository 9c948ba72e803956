#include "Version.h"
#include "ElfVersion.h"
#include "Files.h"
#include "ModuleTable.h"
#include "OwnVersion.h"
#include "PeResource.h"
#include "VersionTree.h"
#include "WinAnswer.h"
#include <algorithm>

namespace {

// The block of a file's version resource; empty with the last error set when there is none.
std::string BlockOf(LPCWSTR file)
{
    const std::string path = KxPlat::HostPath(file != nullptr ? file : L"");
    KxPlat::MappedFile mapped;
    const int error = mapped.Open(path);
    if (error != 0) {
        SetLastError(KxPlat::WinErrorOf(error));
        return "";
    }
    const std::string_view ownText = KxPlat::OwnVersionTextOf(mapped.View());
    if (!ownText.empty()) {
        const bool isThisProgram = KxPlat::RealPath(path) == KxPlat::ProgramFile();
        const std::wstring product = isThisProgram ? KxPlat::OwnProductVersion() : L"";
        return KxPlat::MakeVersionBlock(KxPlat::VersionTreeOf(ownText, product));
    }
    const auto tree = KxPlat::ParseVersionResource(KxPlat::VersionResourceOf(mapped.View()));
    SetLastError(tree ? ERROR_SUCCESS : ERROR_RESOURCE_DATA_NOT_FOUND);
    return tree ? KxPlat::MakeVersionBlock(*tree) : "";
}

}   // namespace

DWORD GetFileVersionInfoSizeW(LPCWSTR file, LPDWORD handle)
{
    if (handle != nullptr)
        *handle = 0;
    return static_cast<DWORD>(BlockOf(file).size());
}

BOOL GetFileVersionInfoW(LPCWSTR file, DWORD handle, DWORD size, LPVOID block)
{
    const std::string bytes = BlockOf(file);
    if (bytes.empty())
        return FALSE;
    if (block == nullptr || size < bytes.size())
        return KxPlat::FailWith(ERROR_INSUFFICIENT_BUFFER);
    std::copy(bytes.begin(), bytes.end(), static_cast<char*>(block));
    return TRUE;
}

BOOL VerQueryValueW(LPCVOID block, LPCWSTR path, LPVOID* value, PUINT length)
{
    if (block == nullptr || value == nullptr)
        return KxPlat::FailWith(ERROR_INVALID_PARAMETER);
    const auto found = KxPlat::QueryVersionBlock(block, path != nullptr ? path : L"");
    if (length != nullptr)
        *length = found ? found->length : 0;
    if (!found)
        return KxPlat::FailWith(ERROR_RESOURCE_TYPE_NOT_FOUND);
    *value = const_cast<void*>(found->data);
    return TRUE;
}
