// What MFC's files ask of the system. A host path is the name in UTF-8 with "/".
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace KxPlat {

std::string HostPath(std::wstring_view path);
std::wstring FullDrivePath(std::wstring_view path);

struct FileInfo {
    bool exists = false;
    bool isFolder = false;
    bool writable = false;
    uint64_t size = 0;
    int64_t created = 0, modified = 0, accessed = 0;   // seconds since 1970
};
FileInfo FileInfoOf(const std::string& hostPath);

// Each answers 0 or the C runtime's error number, whose Windows number is WinErrorOf.
int RemoveFile(const std::string& hostPath);
int RenameFile(const std::string& from, const std::string& to);
uint32_t WinErrorOf(int error);

}   // namespace KxPlat
