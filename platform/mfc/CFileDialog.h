// Asks for the name of a file in the host's file dialog.
#pragma once
#include "CDialog.h"

// clang-format off
#define OFN_READONLY 0x00000001U
#define OFN_OVERWRITEPROMPT 0x00000002U
#define OFN_HIDEREADONLY 0x00000004U
#define OFN_PATHMUSTEXIST 0x00000800U
#define OFN_FILEMUSTEXIST 0x00001000U
#define OFN_EXPLORER 0x00080000U
// clang-format on

struct tagOFNW {
    DWORD Flags;
    LPCWSTR lpstrTitle;
    LPCWSTR lpstrInitialDir;
};
typedef tagOFNW OPENFILENAMEW, OPENFILENAME;

class CFileDialog : public CDialog {
public:
    // `filter` is "图形 (*.dwg)|*.dwg|所有文件 (*.*)|*.*||".
    explicit CFileDialog(BOOL opens, const wchar_t* defaultExtension = nullptr, const wchar_t* fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, const wchar_t* filter = nullptr,
                         CWnd* parent = nullptr);

    OPENFILENAME m_ofn;
    INT_PTR DoModal() override;   // IDOK or IDCANCEL
    // After IDOK.
    CString GetPathName() const { return m_path; }
    CString GetFileName() const;    // name and extension
    CString GetFileTitle() const;   // without the extension
    CString GetFileExt() const;     // without the dot

private:
    BOOL m_opens;
    CString m_extension, m_path, m_filter;
};
