// Fields of delimited text: one routine that calls StreamIO for each field in order both writes and reads a file.
// A field is its text and one separator. Texts are neither quoted nor escaped: one that holds its own separator is
// read back only up to it. The file is in the ANSI code page; reals have six decimals.
#pragma once
#include "KxExport.h"
#include <vector>

namespace KxMfcEx {

enum EKxFileIOType : int { eKxFileIORead = 0, eKxFileIOWrite = 1 };

class KXARX_API CKxFileIO {
public:
    CKxFileIO() = default;
    virtual ~CKxFileIO();
    CKxFileIO(const CKxFileIO&) = delete;
    CKxFileIO& operator=(const CKxFileIO&) = delete;

    // 1, or 0 with nothing open; what was open before is closed, and the mode is the new one in either case.
    int Open(const wchar_t* path, EKxFileIOType type);
    // The answer of fclose, 0 when nothing was open. Forgets the positions.
    int Close();

    std::FILE* GetFile() const { return m_file; }
    EKxFileIOType GetFileType() const { return m_type; }
    int IsRead() const { return m_type == eKxFileIORead ? 1 : 0; }
    void SetFileVersion(int version) { m_version = version; }
    int GetFileVersion() const { return m_version; }

    // A stack of places in the file. 0 when nothing is open, or nothing was pushed.
    int PushPosition();
    int PopPosition();

    // Nothing happens when no file is open. A field holds at most 500 bytes: the rest of a longer one is read as the
    // next field. Missing text reads as 0 or as an empty text.
    void StreamIO(int& value, wchar_t separator);
    void StreamIO(long& value, wchar_t separator);   // reads the nearest 32-bit number
    void StreamIO(float& value, wchar_t separator);
    void StreamIO(double& value, wchar_t separator);
    void StreamIO(CString& value, wchar_t separator);
    void StreamIO(wchar_t* value, wchar_t separator);   // the buffer holds 501 characters
    // As an int; the value becomes the file version.
    void StreamIOFileVersion(int& version, wchar_t separator);

protected:
    // The text up to `separator`, which is consumed. Only separators below 0x80 are ever found.
    CString ReadString(char separator);

private:
    bool Reads() const { return m_file != nullptr && m_type == eKxFileIORead; }
    bool Writes() const { return m_file != nullptr && m_type == eKxFileIOWrite; }
    void Write(const CString& text);

    std::FILE* m_file = nullptr;
    EKxFileIOType m_type = eKxFileIORead;
    std::vector<long> m_positions;
    int m_version = 0;
};

}   // namespace KxMfcEx
