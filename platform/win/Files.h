// Files by their names, in either form: "C:\dir\name.dwg" as modules write it or "/dir/name.dwg" as the system does.
// Z: is the root of the file system, C: a folder of the user's (KX_DRIVE_C, else .local/share/kxcad/drive_c); any other
// letter is a folder or link beside that one ("drive_d"). Names are looked for as spelled, then without regard to case.
#pragma once
#include "AtomicFile.h"
#include "MappedFile.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace KxPlat {

// The real path, in the system's bytes. What does not exist keeps its spelling; an empty path stays empty.
std::string HostPath(std::wstring_view path);
// The drive form of a real path, always absolute.
std::wstring DrivePath(std::string_view hostPath);
// The absolute drive form, with "." and ".." resolved by text alone; nothing needs to exist.
std::wstring FullDrivePath(std::wstring_view path);
// The letters of the drives that exist, in rising order.
std::wstring DriveLetters();

struct FileInfo {
    bool exists = false;
    bool isFolder = false;
    bool isRegular = false;
    bool writable = false;
    uint64_t size = 0;
    int64_t created = 0, modified = 0, accessed = 0;   // seconds since 1970
    // What differs, for all that anyone can tell, once a file was changed or replaced.
    struct Stamp {
        uint64_t node = 0, size = 0;
        int64_t seconds = 0, nanoseconds = 0;
        bool operator==(const Stamp&) const = default;
    } stamp;
};
FileInfo FileInfoOf(const std::string& hostPath);

struct FolderEntry {
    std::string name;        // without the folder
    bool isFolder = false;   // or a link to one
    bool isLink = false;
};
// Without "." and "..", sorted without regard to case; empty when the folder cannot be read.
std::vector<FolderEntry> ListFolder(const std::string& hostPath);

// Each answers 0 or the system's error number, whose text is SystemErrorText and whose Windows number is WinErrorOf.
int MakeFolder(const std::string& hostPath);
int MakeFolders(const std::string& hostPath);   // with its parents; no error when it is there
int RemoveFolder(const std::string& hostPath);
int RemoveFile(const std::string& hostPath);
int RenameFile(const std::string& from, const std::string& to);
int ChangeFolder(const std::string& hostPath);
std::string CurrentFolder();
std::string TempFolder();   // without a separator at its end

// The whole file; `error` tells a missing file from an empty one.
std::string ReadWholeFile(const std::string& hostPath, int& error);

std::wstring SystemErrorText(int error);
uint32_t WinErrorOf(int error);

}   // namespace KxPlat
