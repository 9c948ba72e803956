#include "KxFileIO.h"
#include "StrUtils.h"
#include <memory>

namespace KxMfcEx {
namespace {

constexpr int kFieldBytes = 500;

// Both sides are widened with their sign, the byte to 16 bits only: a byte from 0x80 on never equals a separator.
bool IsSeparator(char byte, char separator)
{
    return int(WORD(static_cast<signed char>(byte))) == int(static_cast<signed char>(separator));
}

}   // namespace

CKxFileIO::~CKxFileIO()
{
    Close();
}

int CKxFileIO::Open(const wchar_t* path, EKxFileIOType type)
{
    Close();
    m_type = type;
    m_file = _wfopen(path, type == eKxFileIOWrite ? L"wt" : L"rt");
    return m_file != nullptr ? 1 : 0;
}

int CKxFileIO::Close()
{
    const int result = m_file != nullptr ? std::fclose(m_file) : 0;
    m_file = nullptr;
    m_positions.clear();
    return result;
}

int CKxFileIO::PushPosition()
{
    if (m_file == nullptr)
        return 0;
    // The position of a text counts the line ends as they are in the file, once they are there.
    if (m_type == eKxFileIOWrite)
        std::fflush(m_file);
    m_positions.push_back(std::ftell(m_file));
    return 1;
}

int CKxFileIO::PopPosition()
{
    if (m_file == nullptr || m_positions.empty())
        return 0;
    std::fseek(m_file, m_positions.back(), SEEK_SET);
    m_positions.pop_back();
    return 1;
}

CString CKxFileIO::ReadString(char separator)
{
    if (!Reads())
        return CString();
    char bytes[kFieldBytes + 1];
    int count = 0;
    for (bool isAtEnd = std::feof(m_file) != 0; count < kFieldBytes && !isAtEnd; ++count) {
        // A field that runs to the end of the file gets one byte more, 0xFF: the mark of the end, cut to a byte.
        const int read = std::fgetc(m_file);
        const char byte = static_cast<char>(read);
        if (IsSeparator(byte, separator))
            break;
        bytes[count] = byte;
        isAtEnd = read == EOF && std::feof(m_file);
    }
    bytes[count] = 0;
    wchar_t wide[kFieldBytes + 1];
    wide[0] = 0;
    MultiByteToWideChar(CP_THREAD_ACP, 0, bytes, -1, wide, kFieldBytes + 1);
    CString text(wide);
    if (separator == '\n')
        text.TrimRight(L'\r');
    return text;
}

void CKxFileIO::Write(const CString& text)
{
    char room[kFieldBytes];
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, room, kFieldBytes, nullptr, nullptr);
    if (size > 0) {
        std::fwrite(room, 1, size_t(size) - 1, m_file);
        return;
    }
    char* bytes = nullptr;
    const int longSize = Str_WideCharToMultiByte(text, bytes);
    const std::unique_ptr<char[]> owner(bytes);
    if (longSize > 1)
        std::fwrite(bytes, 1, size_t(longSize) - 1, m_file);
}

void CKxFileIO::StreamIO(int& value, wchar_t separator)
{
    if (Reads())
        value = _wtoi(ReadString(static_cast<char>(separator)));
    else if (Writes())
        Write(Str_Format(L"%d%c", value, separator));
}

void CKxFileIO::StreamIO(long& value, wchar_t separator)
{
    if (Reads())
        value = _wtol(ReadString(static_cast<char>(separator)));
    else if (Writes())
        Write(Str_Format(L"%Ld%c", value, separator));
}

void CKxFileIO::StreamIO(float& value, wchar_t separator)
{
    double wide = double(value);
    StreamIO(wide, separator);
    if (Reads())
        value = static_cast<float>(wide);
}

void CKxFileIO::StreamIO(double& value, wchar_t separator)
{
    if (Reads())
        value = _wtof(ReadString(static_cast<char>(separator)));
    else if (Writes())
        Write(Str_Format(L"%f%c", value, separator));
}

void CKxFileIO::StreamIO(CString& value, wchar_t separator)
{
    if (Reads())
        value = ReadString(static_cast<char>(separator));
    else if (Writes())
        Write(Str_Format(L"%s%c", value.GetString(), separator));
}

void CKxFileIO::StreamIO(wchar_t* value, wchar_t separator)
{
    if (Reads())
        std::wcscpy(value, ReadString(static_cast<char>(separator)));
    else if (Writes())
        Write(Str_Format(L"%s%c", value, separator));
}

void CKxFileIO::StreamIOFileVersion(int& version, wchar_t separator)
{
    if (!Reads() && !Writes())
        return;
    StreamIO(version, separator);
    m_version = version;
}

}   // namespace KxMfcEx
