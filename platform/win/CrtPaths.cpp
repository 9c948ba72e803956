#include "CrtPaths.h"
#include "CharTables.h"
#include "Files.h"
#include "WinAnswer.h"
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string>

namespace {

void CopyPart(std::wstring_view part, wchar_t* out, size_t size)
{
    if (out == nullptr)
        return;
    const size_t length = std::min(part.size(), size - 1);
    std::copy_n(part.data(), length, out);
    out[length] = 0;
}

int Failed(int error)
{
    errno = error;
    return -1;
}

int Answer(int error)
{
    return error == 0 ? 0 : Failed(error);
}

std::wstring_view TextOf(const wchar_t* text)
{
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

bool HasForbiddenChar(std::wstring_view path)
{
    return path.find_first_of(L"*?<>|\"") != std::wstring_view::npos;
}

}   // namespace

void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* folder, wchar_t* name, wchar_t* extension)
{
    std::wstring_view rest = TextOf(path);
    const bool hasDrive = rest.size() >= 2 && rest[1] == L':';
    CopyPart(rest.substr(0, hasDrive ? 2 : 0), drive, _MAX_DRIVE);
    rest.remove_prefix(hasDrive ? 2 : 0);
    const size_t slash = rest.find_last_of(L"\\/");
    const size_t nameAt = slash == std::wstring_view::npos ? 0 : slash + 1;
    CopyPart(rest.substr(0, nameAt), folder, _MAX_DIR);
    rest.remove_prefix(nameAt);
    const size_t dot = std::min(rest.rfind(L'.'), rest.size());
    CopyPart(rest.substr(0, dot), name, _MAX_FNAME);
    CopyPart(rest.substr(dot), extension, _MAX_EXT);
}

void _wmakepath(wchar_t* path, const wchar_t* drive, const wchar_t* folder, const wchar_t* name,
                const wchar_t* extension)
{
    if (path == nullptr)
        return;
    std::wstring text;
    if (!TextOf(drive).empty())
        text = {drive[0], L':'};
    text += TextOf(folder);
    const std::wstring_view folderText = TextOf(folder);
    if (!folderText.empty() && folderText.back() != L'\\' && folderText.back() != L'/')
        text += L'\\';
    text += TextOf(name);
    if (!TextOf(extension).empty() && extension[0] != L'.')
        text += L'.';
    text += TextOf(extension);
    CopyPart(text, path, _MAX_PATH);
}

wchar_t* _wgetcwd(wchar_t* buffer, int size)
{
    const std::wstring path = KxPlat::DrivePath(KxPlat::CurrentFolder());
    const size_t needed = path.size() + 1;
    if (buffer == nullptr) {
        const size_t wanted = std::max(needed, static_cast<size_t>(std::max(size, 0)));
        buffer = static_cast<wchar_t*>(std::malloc(wanted * sizeof(wchar_t)));
        if (buffer == nullptr)
            return nullptr;
    } else if (size < 0 || static_cast<size_t>(size) < needed) {
        errno = ERANGE;
        return nullptr;
    }
    std::copy_n(path.c_str(), needed, buffer);
    return buffer;
}

int _wchdir(const wchar_t* path)
{
    if (TextOf(path).empty())
        return Failed(EINVAL);
    const int error = KxPlat::ChangeFolder(KxPlat::HostPath(path));
    return Answer(error == ENOTDIR ? EINVAL : error);
}

int _wmkdir(const wchar_t* path)
{
    if (TextOf(path).empty())
        return Failed(ENOENT);
    if (HasForbiddenChar(path))
        return Failed(EINVAL);
    const int error = KxPlat::MakeFolder(KxPlat::HostPath(path));
    return Answer(error == ENOTDIR ? ENOENT : error);
}

int _wrmdir(const wchar_t* path)
{
    const int error = KxPlat::RemoveFolder(KxPlat::HostPath(TextOf(path)));
    return Answer(error == EEXIST ? ENOTEMPTY : error);
}

int _waccess(const wchar_t* path, int mode)
{
    constexpr int kWrite = 2;
    const KxPlat::FileInfo info = KxPlat::FileInfoOf(KxPlat::HostPath(TextOf(path)));
    if (!info.exists)
        return Failed(ENOENT);
    return (mode & kWrite) != 0 && !info.isFolder && !info.writable ? Failed(EACCES) : 0;
}

int _wremove(const wchar_t* path)
{
    return Answer(KxPlat::RemoveFile(KxPlat::HostPath(TextOf(path))));
}

int _wunlink(const wchar_t* path)
{
    return _wremove(path);
}

int _wrename(const wchar_t* from, const wchar_t* to)
{
    const std::string source = KxPlat::HostPath(TextOf(from));
    const std::string target = KxPlat::HostPath(TextOf(to));
    // Unlike the system's own call this one never replaces a file.
    if (KxPlat::FileInfoOf(target).exists && target != source)
        return Failed(EEXIST);
    return Answer(KxPlat::RenameFile(source, target));
}

DWORD GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* filePart)
{
    if (filePart != nullptr)
        *filePart = nullptr;
    const std::wstring full = KxPlat::FullDrivePath(TextOf(path));
    if (full.empty())
        return 0;
    const DWORD answer = KxPlat::AnswerText(full.c_str(), full.size(), buffer, size);
    const size_t slash = full.rfind(L'\\');
    if (answer == full.size() && filePart != nullptr && slash + 1 < full.size())
        *filePart = buffer + slash + 1;
    return answer;
}
