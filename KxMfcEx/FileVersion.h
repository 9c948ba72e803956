// Reads the version resource of a file. All texts are empty when nothing is open or the name is unknown.
#pragma once
#include "KxExport.h"
#include <memory>

namespace KxMfcEx {

class KXARX_API CFileVersion {
public:
    CFileVersion() = default;
    virtual ~CFileVersion();
    CFileVersion(const CFileVersion&) = delete;
    CFileVersion& operator=(const CFileVersion&) = delete;

    // 1, or 0 with nothing open. What was open before is closed.
    int Open(const wchar_t* file);
    void Close();

    // `languageAndCodePage` holds the language in its high word; 0 means the first one of the file.
    CString QueryValue(const wchar_t* name, DWORD languageAndCodePage = 0);
    int GetFixedInfo(VS_FIXEDFILEINFO& info);
    // "18,1,49,0"
    CString GetFixedFileVersion();
    CString GetFixedProductVersion();

    CString GetFileDescription() { return QueryValue(L"FileDescription"); }
    CString GetFileVersion() { return QueryValue(L"FileVersion"); }
    CString GetInternalName() { return QueryValue(L"InternalName"); }
    CString GetCompanyName() { return QueryValue(L"CompanyName"); }
    CString GetLegalCopyright() { return QueryValue(L"LegalCopyright"); }
    CString GetOriginalFilename() { return QueryValue(L"OriginalFilename"); }
    CString GetProductName() { return QueryValue(L"ProductName"); }
    CString GetProductVersion() { return QueryValue(L"ProductVersion"); }

private:
    std::unique_ptr<BYTE[]> m_block;
    DWORD m_languageAndCodePage = 0;
};

}   // namespace KxMfcEx
