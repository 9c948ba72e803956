// Files by name in drive form or in the system's. Failures throw CFileException*, Open alone answers FALSE.
#pragma once
#include "CException.h"
#include <cstdio>

struct CFileStatus {
    int64_t m_ctime;   // seconds since 1970
    int64_t m_mtime;
    int64_t m_atime;
    ULONGLONG m_size;
    BYTE m_attribute;   // CFile::Attribute
    wchar_t m_szFullName[_MAX_PATH];
};

class CFile : public CObject {
public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000
    };
    enum Attribute {
        normal = 0x00,
        readOnly = 0x01,
        hidden = 0x02,
        system = 0x04,
        volume = 0x08,
        directory = 0x10,
        archive = 0x20
    };
    enum SeekPosition { begin = 0, current = 1, end = 2 };

    CFile() = default;
    CFile(const wchar_t* fileName, UINT openFlags);   // throws
    ~CFile() override;

    virtual BOOL Open(const wchar_t* fileName, UINT openFlags, CFileException* error = nullptr);
    virtual void Close();
    virtual void Abort();   // as Close, without a word about failures

    virtual UINT Read(void* buffer, UINT count);
    virtual void Write(const void* buffer, UINT count);
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    void SeekToBegin() { Seek(0, begin); }
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    virtual void Flush();

    virtual CString GetFileName() const;   // without the folder
    virtual CString GetFilePath() const { return m_strFileName; }
    BOOL GetStatus(CFileStatus& status) const { return GetStatus(m_strFileName, status); }
    static BOOL GetStatus(const wchar_t* fileName, CFileStatus& status);
    static void Rename(const wchar_t* oldName, const wchar_t* newName);
    static void Remove(const wchar_t* fileName);

protected:
    [[noreturn]] void Fail(int cause) const;
    bool m_isText = false;
    std::FILE* m_file = nullptr;
    CString m_strFileName;   // full, in drive form
};

// Lines of text in the ANSI code page; "\n" is a carriage return and a line feed in the file.
class CStdioFile : public CFile {
public:
    CStdioFile() = default;
    CStdioFile(const wchar_t* fileName, UINT openFlags)
        : CFile(fileName, (openFlags & typeBinary) != 0 ? openFlags : openFlags | typeText)
    {
    }
    ~CStdioFile() override;

    BOOL Open(const wchar_t* fileName, UINT openFlags, CFileException* error = nullptr) override;
    void WriteString(const wchar_t* text);
    // Without the line end; FALSE at the end of the file.
    BOOL ReadString(CString& line);
};
