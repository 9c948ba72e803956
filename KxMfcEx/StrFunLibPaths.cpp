#include "StrFunLib.h"

namespace {

// The place behind the last separator.
int NameStart(const CString& file)
{
    for (int i = file.GetLength(); i > 0; --i) {
        if (std::wcschr(L"\\/:", file[i - 1]) != nullptr)
            return i;
    }
    return 0;
}

// The place of the dot before the extension; the length when there is none.
int ExtensionStart(const CString& file)
{
    const int dot = file.ReverseFind(L'.');
    return dot >= NameStart(file) ? dot : file.GetLength();
}

bool IsDevice(const CString& name)
{
    static const wchar_t* const kDevices[] = {L"CON", L"PRN", L"AUX", L"NUL"};
    const CString base = name.SpanExcluding(L".");
    for (const wchar_t* device : kDevices) {
        if (base.CompareNoCase(device) == 0)
            return true;
    }
    const CString kind = base.Left(3);
    return base.GetLength() == 4 && (kind.CompareNoCase(L"COM") == 0 || kind.CompareNoCase(L"LPT") == 0) &&
           base[3] >= L'1' && base[3] <= L'9';
}

CString FullPath(const wchar_t* path)
{
    wchar_t full[1024] = {};
    const DWORD length = GetFullPathNameW(path, ARRAYSIZE(full), full, nullptr);
    CString result(length == 0 || length >= ARRAYSIZE(full) ? path : full);
    result.Replace(L'/', L'\\');
    return result.TrimRight(L'\\');
}

bool IsStep(const wchar_t* name)
{
    return std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0;
}

}   // namespace

void CStrFunLib::GetKxArxVerName(CString& name, int release, int)
{
    static const struct {
        int release;
        const wchar_t* suffix;
    } kSuffixes[] = {{15, L"K"}, {16, L"K6"}, {17, L"K8"}, {18, L"K10"}, {19, L"K13"}};
    if (!CompareNoCaseWithFormat(L"k.arx", name.Right(5)))
        return;
    const wchar_t* suffix = L"";
    for (const auto& row : kSuffixes)
        suffix = row.release == release ? row.suffix : suffix;
    const CString base = name.Left(name.GetLength() - 5);
    name.Format(L"%s%s%s", base.GetString(), suffix, L".arx");
}

int CStrFunLib::IsExistEXTName(const wchar_t* file, const wchar_t* extension)
{
    const CString own = GetFileExtName(file);
    if (extension == nullptr)
        return own.IsEmpty() ? 0 : 1;
    return own.CompareNoCase(RemoveHeaderDotes(extension)) == 0 ? 1 : 0;
}

CString CStrFunLib::GetFileExtName(const wchar_t* file)
{
    const CString name(file);
    return name.Mid(ExtensionStart(name) + 1);
}

CString CStrFunLib::GetFileName(const wchar_t* file)
{
    const CString name(file);
    return name.Mid(NameStart(name));
}

CString CStrFunLib::GetFilePath(const wchar_t* file)
{
    const CString name(file);
    return name.Left(NameStart(name));
}

CString CStrFunLib::GetFileBaseName(const wchar_t* file)
{
    const CString name(file);
    const int start = NameStart(name);
    return name.Mid(start, ExtensionStart(name) - start);
}

int CStrFunLib::checkFileName(const wchar_t* name)
{
    const CString text(name);
    const int length = text.GetLength();
    if (length == 0 || length > 255 || text[length - 1] == L'.' || text[length - 1] == L' ' || IsDevice(text))
        return 0;
    for (int i = 0; i < length; ++i) {
        if (text[i] < L' ' || std::wcschr(L"\\/:*?\"<>|", text[i]) != nullptr)
            return 0;
    }
    return 1;
}

CString CStrFunLib::GetCurExeRunPath()
{
    wchar_t file[1024] = {};
    GetModuleFileNameW(nullptr, file, ARRAYSIZE(file) - 1);
    return GetFilePath(file);
}

int CStrFunLib::BlurSearchPath(const wchar_t* folder, const wchar_t* part, CStringArray& out, int subFolders)
{
    CString prefix(folder);
    if (!prefix.IsEmpty() && NameStart(prefix) != prefix.GetLength())
        prefix += L'\\';
    WIN32_FIND_DATAW data = {};
    const HANDLE search = FindFirstFileW(prefix + L"*", &data);
    if (search == INVALID_HANDLE_VALUE)
        return 0;
    int count = 0;
    do {
        if (IsStep(data.cFileName))
            continue;
        const CString whole = prefix + data.cFileName;
        if (FindNoCase(data.cFileName, part) >= 0) {
            out.Add(whole);
            ++count;
        }
        const DWORD kind = data.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT);
        if (subFolders && kind == FILE_ATTRIBUTE_DIRECTORY)
            count += BlurSearchPath(whole, part, out, subFolders);
    } while (FindNextFileW(search, &data));
    FindClose(search);
    return count;
}

int CStrFunLib::FindSamePath(const CStringArray& paths, const wchar_t* path)
{
    const CString wanted = FullPath(path);
    for (INT_PTR i = 0; i < paths.GetSize(); ++i) {
        if (FullPath(paths[i]).CompareNoCase(wanted) == 0)
            return int(i);
    }
    return -1;
}
