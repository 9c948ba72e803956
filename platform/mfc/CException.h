// MFC's exceptions: thrown as pointers, and deleted with Delete() by whoever catches them.
#pragma once
#include "CObject.h"
#include "CString.h"

class CException : public CObject {
public:
    ~CException() override;
    virtual BOOL GetErrorMessage(wchar_t* message, UINT size, UINT* helpContext = nullptr) const;
    // In a message box.
    virtual int ReportError(UINT type = MB_OK, UINT messageId = 0);
    void Delete() { delete this; }
};

// The user has been told already.
class CUserException : public CException {
public:
    ~CUserException() override;
};

class CResourceException : public CException {
public:
    ~CResourceException() override;
    BOOL GetErrorMessage(wchar_t* message, UINT size, UINT* helpContext = nullptr) const override;
};

class CFileException : public CException {
public:
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };
    explicit CFileException(int cause = none, LONG osError = -1, const wchar_t* fileName = nullptr);
    ~CFileException() override;
    BOOL GetErrorMessage(wchar_t* message, UINT size, UINT* helpContext = nullptr) const override;
    static int OsErrorToException(LONG osError);

    int m_cause;
    LONG m_lOsError;   // a Windows error, -1 when there is none
    CString m_strFileName;
};

[[noreturn]] void AfxThrowUserException();
[[noreturn]] void AfxThrowResourceException();
[[noreturn]] void AfxThrowFileException(int cause, LONG osError = -1, const wchar_t* fileName = nullptr);
