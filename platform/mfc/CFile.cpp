#include "CFile.h"
#include "../win/CodePage.h"
#include "../win/CrtFiles.h"
#include "../win/Files.h"
#include "TextView.h"
#include <algorithm>
#include <cerrno>

namespace {

LONG LastError()
{
    return LONG(KxPlat::WinErrorOf(errno));
}

[[noreturn]] void ThrowLastError(const wchar_t* fileName)
{
    const LONG error = LastError();
    AfxThrowFileException(CFileException::OsErrorToException(error), error, fileName);
}

// Without modeCreate the file must be there; with modeNoTruncate it keeps what it holds.
const wchar_t* ModeOf(UINT flags, bool exists)
{
    const bool writes = (flags & (CFile::modeWrite | CFile::modeReadWrite)) != 0;
    const bool creates = (flags & CFile::modeCreate) != 0;
    if (creates && (!exists || (flags & CFile::modeNoTruncate) == 0))
        return L"w+b";
    return writes ? L"r+b" : L"rb";
}

}   // namespace

CFile::CFile(const wchar_t* fileName, UINT openFlags)
{
    CFileException error;
    // The base's Open: a derived class is not there yet.
    if (!CFile::Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    CFile::Abort();
}

BOOL CFile::Open(const wchar_t* fileName, UINT openFlags, CFileException* error)
{
    Abort();
    const std::string path = KxPlat::HostPath(fileName == nullptr ? L"" : fileName);
    const KxPlat::FileInfo info = KxPlat::FileInfoOf(path);
    m_strFileName = KxPlat::ToCString(KxPlat::FullDrivePath(fileName == nullptr ? L"" : fileName));
    m_isText = (openFlags & typeText) != 0;
    if (info.isFolder)
        errno = EACCES;
    else
        m_file = _wfopen(fileName == nullptr ? L"" : fileName, ModeOf(openFlags, info.exists));
    if (m_file != nullptr)
        return TRUE;
    if (error != nullptr) {
        error->m_lOsError = LastError();
        const size_t folder = path.find_last_of('/');
        if (error->m_lOsError == ERROR_FILE_NOT_FOUND && folder != std::string::npos && folder > 0 &&
            !KxPlat::FileInfoOf(path.substr(0, folder)).isFolder)
            error->m_lOsError = ERROR_PATH_NOT_FOUND;
        error->m_cause = CFileException::OsErrorToException(error->m_lOsError);
        error->m_strFileName = m_strFileName;
    }
    return FALSE;
}

void CFile::Close()
{
    std::FILE* file = m_file;
    m_file = nullptr;
    if (file != nullptr && std::fclose(file) != 0)
        ThrowLastError(m_strFileName);
}

void CFile::Abort()
{
    if (m_file != nullptr)
        std::fclose(m_file);
    m_file = nullptr;
}

void CFile::Fail(int cause) const
{
    AfxThrowFileException(cause, -1, m_strFileName);
}

UINT CFile::Read(void* buffer, UINT count)
{
    if (m_file == nullptr)
        Fail(CFileException::fileNotFound);
    const size_t read = std::fread(buffer, 1, count, m_file);
    if (read < count && std::ferror(m_file))
        ThrowLastError(m_strFileName);
    return UINT(read);
}

void CFile::Write(const void* buffer, UINT count)
{
    if (m_file == nullptr)
        Fail(CFileException::fileNotFound);
    if (std::fwrite(buffer, 1, count, m_file) != count)
        ThrowLastError(m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from)
{
    static const int kOrigins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    if (m_file == nullptr || from > end || std::fseek(m_file, long(offset), kOrigins[from]) != 0)
        Fail(CFileException::badSeek);
    return GetPosition();
}

ULONGLONG CFile::GetPosition() const
{
    if (m_file == nullptr)
        Fail(CFileException::fileNotFound);
    return ULONGLONG(std::ftell(m_file));
}

ULONGLONG CFile::GetLength() const
{
    if (m_file == nullptr)
        Fail(CFileException::fileNotFound);
    const long position = std::ftell(m_file);
    std::fseek(m_file, 0, SEEK_END);
    const long length = std::ftell(m_file);
    std::fseek(m_file, position, SEEK_SET);
    return ULONGLONG(length);
}

void CFile::Flush()
{
    if (m_file != nullptr && std::fflush(m_file) != 0)
        ThrowLastError(m_strFileName);
}

CString CFile::GetFileName() const
{
    return m_strFileName.Mid(m_strFileName.ReverseFind(L'\\') + 1);
}

BOOL CFile::GetStatus(const wchar_t* fileName, CFileStatus& status)
{
    if (fileName == nullptr || *fileName == L'\0')
        return FALSE;
    const KxPlat::FileInfo info = KxPlat::FileInfoOf(KxPlat::HostPath(fileName));
    if (!info.exists)
        return FALSE;
    status.m_ctime = info.created;
    status.m_mtime = info.modified;
    status.m_atime = info.accessed;
    status.m_size = info.isFolder ? 0 : info.size;
    status.m_attribute = BYTE((info.isFolder ? directory : archive) | (info.writable ? normal : readOnly));
    const std::wstring name = KxPlat::FullDrivePath(fileName).substr(0, _MAX_PATH - 1);
    std::copy(name.c_str(), name.c_str() + name.size() + 1, status.m_szFullName);
    return TRUE;
}

void CFile::Rename(const wchar_t* oldName, const wchar_t* newName)
{
    if (const int error = KxPlat::RenameFile(KxPlat::HostPath(oldName), KxPlat::HostPath(newName))) {
        errno = error;
        ThrowLastError(oldName);
    }
}

void CFile::Remove(const wchar_t* fileName)
{
    if (const int error = KxPlat::RemoveFile(KxPlat::HostPath(fileName))) {
        errno = error;
        ThrowLastError(fileName);
    }
}

// --- lines ------------------------------------------------------------------------------------------------------

CStdioFile::~CStdioFile() = default;

BOOL CStdioFile::Open(const wchar_t* fileName, UINT openFlags, CFileException* error)
{
    return CFile::Open(fileName, (openFlags & typeBinary) != 0 ? openFlags : openFlags | typeText, error);
}

void CStdioFile::WriteString(const wchar_t* text)
{
    CString lines(text);
    if (m_isText)
        lines.Replace(L"\n", L"\r\n");
    const std::string bytes = KxPlat::Encode(CP_ACP, KxPlat::TextView(lines));
    Write(bytes.data(), UINT(bytes.size()));
}

BOOL CStdioFile::ReadString(CString& line)
{
    line.Empty();
    if (m_file == nullptr)
        Fail(CFileException::fileNotFound);
    std::string bytes;
    int byte = std::fgetc(m_file);
    if (byte == EOF)
        return FALSE;
    for (; byte != EOF && byte != '\n'; byte = std::fgetc(m_file))
        bytes += char(byte);
    if (m_isText && !bytes.empty() && bytes.back() == '\r')
        bytes.pop_back();
    line = KxPlat::ToCString(KxPlat::Decode(CP_ACP, bytes));
    return TRUE;
}
