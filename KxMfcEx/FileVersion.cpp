#include "FileVersion.h"
#include <cstring>
#include <new>

namespace KxMfcEx {
namespace {

CString VersionText(DWORD most, DWORD least)
{
    CString text;
    text.Format(L"%u,%u,%u,%u", unsigned(HIWORD(most)), unsigned(LOWORD(most)), unsigned(HIWORD(least)),
                unsigned(LOWORD(least)));
    return text;
}

}   // namespace

CFileVersion::~CFileVersion() = default;

int CFileVersion::Open(const wchar_t* file)
{
    Close();
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeW(file, &handle);
    if (size == 0)
        return 0;
    m_block.reset(new (std::nothrow) BYTE[size]);
    void* value = nullptr;
    UINT length = 0;
    const bool read = m_block != nullptr && GetFileVersionInfoW(file, handle, size, m_block.get()) &&
                      VerQueryValueW(m_block.get(), L"\\VarFileInfo\\Translation", &value, &length) && length >= 4;
    if (!read) {
        Close();
        return 0;
    }
    WORD translation[2] = {};
    std::memcpy(translation, value, sizeof translation);
    m_languageAndCodePage = DWORD(translation[0]) << 16 | translation[1];
    return 1;
}

void CFileVersion::Close()
{
    m_block.reset();
    m_languageAndCodePage = 0;
}

CString CFileVersion::QueryValue(const wchar_t* name, DWORD languageAndCodePage)
{
    if (m_block == nullptr)
        return CString();
    if (languageAndCodePage == 0)
        languageAndCodePage = m_languageAndCodePage;
    CString path;
    path.Format(L"\\StringFileInfo\\%08lx\\%s", static_cast<unsigned long>(languageAndCodePage), name);
    void* value = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(m_block.get(), path, &value, &length) || length == 0)
        return CString();
    return CString(static_cast<const wchar_t*>(value));
}

int CFileVersion::GetFixedInfo(VS_FIXEDFILEINFO& info)
{
    void* value = nullptr;
    UINT length = 0;
    if (m_block == nullptr || !VerQueryValueW(m_block.get(), L"\\", &value, &length) || length < sizeof info)
        return 0;
    std::memcpy(&info, value, sizeof info);
    return 1;
}

CString CFileVersion::GetFixedFileVersion()
{
    VS_FIXEDFILEINFO info = {};
    return GetFixedInfo(info) ? VersionText(info.dwFileVersionMS, info.dwFileVersionLS) : CString();
}

CString CFileVersion::GetFixedProductVersion()
{
    VS_FIXEDFILEINFO info = {};
    return GetFixedInfo(info) ? VersionText(info.dwProductVersionMS, info.dwProductVersionLS) : CString();
}

}   // namespace KxMfcEx
