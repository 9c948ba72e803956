#include "CException.h"
#include "AfxMessageBox.h"
#include <algorithm>

CException::~CException() = default;
CUserException::~CUserException() = default;
CResourceException::~CResourceException() = default;
CFileException::~CFileException() = default;

namespace {

BOOL CopyMessage(const CString& text, wchar_t* message, UINT size)
{
    if (message == nullptr || size == 0)
        return FALSE;
    const UINT count = std::min(UINT(text.GetLength()), size - 1);
    std::wmemcpy(message, text, count);
    message[count] = L'\0';
    return TRUE;
}

struct FileCause {
    int cause;
    const wchar_t* text;
};

const FileCause kFileCauses[] = {
    {CFileException::none, L"No error occurred."},
    {CFileException::fileNotFound, L"%s was not found."},
    {CFileException::badPath, L"%s contains an invalid path."},
    {CFileException::tooManyOpenFiles, L"%s could not be opened because there are too many open files."},
    {CFileException::accessDenied, L"Access to %s was denied."},
    {CFileException::removeCurrentDir, L"%s is the current folder and cannot be removed."},
    {CFileException::badSeek, L"Seek failed on %s."},
    {CFileException::hardIO, L"A hardware I/O error was reported while accessing %s."},
    {CFileException::sharingViolation, L"A sharing violation occurred while accessing %s."},
    {CFileException::diskFull, L"Disk full while accessing %s."},
    {CFileException::endOfFile, L"An attempt was made to access %s past its end."},
};

struct OsCause {
    DWORD error;
    int cause;
};

const OsCause kOsCauses[] = {
    {NO_ERROR, CFileException::none},
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_DIRECTORY, CFileException::badPath},
    {ERROR_BAD_PATHNAME, CFileException::badPath},
    {ERROR_INVALID_NAME, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ERROR_ALREADY_EXISTS, CFileException::accessDenied},
    {ERROR_INVALID_HANDLE, CFileException::fileNotFound},
    {ERROR_WRITE_FAULT, CFileException::hardIO},
    {ERROR_READ_FAULT, CFileException::hardIO},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_DISK_FULL, CFileException::diskFull},
};

}   // namespace

BOOL CException::GetErrorMessage(wchar_t* message, UINT size, UINT*) const
{
    CopyMessage(CString(), message, size);
    return FALSE;
}

int CException::ReportError(UINT type, UINT messageId)
{
    wchar_t message[512];
    CString text;
    if (GetErrorMessage(message, UINT(ARRAYSIZE(message))))
        text = message;
    else if (messageId == 0 || !text.LoadString(messageId))
        text = L"An error has occurred.";
    return AfxMessageBox(text, type);
}

BOOL CResourceException::GetErrorMessage(wchar_t* message, UINT size, UINT*) const
{
    return CopyMessage(L"A required resource was unavailable.", message, size);
}

CFileException::CFileException(int cause, LONG osError, const wchar_t* fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName)
{
}

BOOL CFileException::GetErrorMessage(wchar_t* message, UINT size, UINT*) const
{
    const wchar_t* format = L"An unspecified error occurred on %s.";
    for (const FileCause& row : kFileCauses) {
        if (row.cause == m_cause)
            format = row.text;
    }
    CString text;
    text.Format(format, m_strFileName.IsEmpty() ? L"an unnamed file" : m_strFileName.GetString());
    return CopyMessage(text, message, size);
}

int CFileException::OsErrorToException(LONG osError)
{
    for (const OsCause& row : kOsCauses) {
        if (row.error == DWORD(osError))
            return row.cause;
    }
    return genericException;
}

void AfxThrowUserException()
{
    throw new CUserException;
}

void AfxThrowResourceException()
{
    throw new CResourceException;
}

void AfxThrowFileException(int cause, LONG osError, const wchar_t* fileName)
{
    throw new CFileException(cause, osError, fileName);
}
