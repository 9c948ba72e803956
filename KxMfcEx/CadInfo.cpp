#include "CadInfo.h"
#include "StrFunLib.h"
#include <cmath>

namespace KxMfcEx {
namespace {

const wchar_t kProductPrefix[] = L"ACAD-";
constexpr int kPrefixLength = 5;

// Reads the hexadecimal number at the start; without one `value` stays.
void ScanHex(const CString& text, int& value)
{
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(text, &end, 16);
    if (end != text.GetString())
        value = static_cast<int>(static_cast<uint32_t>(number));
}

// The leading digits of a product code count the releases from 2000 on, three to a generation.
int ReleaseOfCode(const CString& code)
{
    int first = 0, second = 0;
    if (code.GetLength() > 2)
        ScanHex(code.Left(1), first);
    if (code.GetLength() > 3)
        ScanHex(code.Mid(1, 1), second);
    const int sum = first + second;
    if (sum == 0)
        return 150;
    const int count = sum + 1;
    return 150 + 10 * (count / 3) + count % 3;
}

int Filter(const wchar_t* pathText, const wchar_t* data, int required)
{
    const CString path(pathText);
    const int start = path.Find(kProductPrefix);
    if (start < 0)
        return 0;
    // The piece is as long as the separator's place in the whole path, so that it may run past the separator. That is
    // harmless: what is read last is a number, which ends where its digits do.
    const int separator = path.Find(L'\\', start);
    const CString key = separator > start ? path.Mid(start, separator) : path;
    int flavour = -1;
    GetCADInfo(key, nullptr, &flavour, nullptr);
    if (data == nullptr || *data == 0 || flavour != required)
        return 0;
    return FindInOrAbove(data, L"Acad.exe").IsEmpty() ? 0 : 1;
}

}   // namespace

int GetCADInfo(const wchar_t* key, int* release, int* flavour, int* language)
{
    if (key == nullptr || std::wcschr(key, L':') == nullptr || std::wcsstr(key, kProductPrefix) == nullptr)
        return 0;
    const CString product = CString(key).Mid(kPrefixLength);
    const int colon = product.Find(L':');
    const CString code = product.Left(colon);
    if (!code.IsEmpty()) {
        if (release != nullptr)
            *release = ReleaseOfCode(code);
        if (flavour != nullptr)
            ScanHex(code.Right(2), *flavour);
    }
    if (language != nullptr)
        ScanHex(product.Mid(colon + 1), *language);
    return 1;
}

int FilterCAD(const wchar_t* path, const wchar_t* data)
{
    return Filter(path, data, kPlainCad);
}

int FilterCivil3D(const wchar_t* path, const wchar_t* data)
{
    return Filter(path, data, kCivil3D);
}

CString FindInOrAbove(const wchar_t* folders, const wchar_t* file)
{
    CStringArray fields;
    CStrFunLib::SplitString(folders, fields, L';', 0);
    for (INT_PTR i = 0; i < fields.GetSize(); ++i) {
        CString field = fields[i];
        field.TrimRight(L'\\').TrimRight(L'/');
        field += L'\\';
        for (int cut = field.ReverseFind(L'\\'); cut >= 0; cut = field.ReverseFind(L'\\')) {
            field = field.Left(cut);
            CString candidate = field + L"\\" + file;
            CFileStatus status;
            if (CFile::GetStatus(candidate, status))
                return candidate;
        }
    }
    return CString();
}

CString ReleaseKeyName(int release)
{
    CString name;
    name.Format(L"R%.1f", release / 10.0);
    return name;
}

int ReleaseOfKeyName(const wchar_t* name)
{
    return static_cast<int>(std::lround(_wtof(CString(name).Mid(1)) * 10));
}

}   // namespace KxMfcEx
