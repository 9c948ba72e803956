#include "KxTrace.h"
#include <string>

namespace KxMfcEx {
namespace {

constexpr size_t kRoom = 4096;

std::string Utf16Bytes(const wchar_t* text)
{
    std::string bytes;
    const auto put = [&bytes](uint32_t unit) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8 & 0xFF);
    };
    for (; *text != 0; ++text) {
        const auto character = static_cast<char32_t>(*text);
        if (character > 0xFFFF)
            put(0xD7C0 + (character >> 10));
        put(character > 0xFFFF ? 0xDC00 + (character & 0x3FF) : character);
    }
    return bytes;
}

// Several processes may append to one log. Between finding the end and writing there, each holds a byte that lies far
// behind any text, so that nobody is kept from reading.
class AppendLock {
public:
    explicit AppendLock(HANDLE file) : m_file(file)
    {
        m_region.OffsetHigh = 0x7FFFFFFF;
        m_locked = LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &m_region);
    }
    ~AppendLock()
    {
        if (m_locked)
            UnlockFileEx(m_file, 0, 1, 0, &m_region);
    }
    AppendLock(const AppendLock&) = delete;
    AppendLock& operator=(const AppendLock&) = delete;

private:
    HANDLE m_file;
    OVERLAPPED m_region = {};
    BOOL m_locked;
};

bool AppendTo(const wchar_t* name, const wchar_t* text)
{
    const HANDLE file =
        CreateFileW(name, GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const std::string bytes = Utf16Bytes(text);
    bool done = false;
    {
        const AppendLock lock(file);
        LONG high = 0;
        SetLastError(NO_ERROR);
        const DWORD place = SetFilePointer(file, 0, &high, FILE_END);
        DWORD written = 0;
        done = (place != INVALID_SET_FILE_POINTER || GetLastError() == NO_ERROR) &&
               WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
               written == bytes.size();
    }
    CloseHandle(file);
    return done;
}

}   // namespace

bool CKxTrace::m_bTraceThreadId = true;
bool CKxTrace::m_bTraceFullPath = false;
CString CKxTrace::m_strFileName;

CKxTrace::~CKxTrace() = default;

void CKxTrace::operator()(const wchar_t* format, ...)
{
    const wchar_t* source = m_file;
    if (!m_bTraceFullPath && source != nullptr) {
        const wchar_t* slash = std::wcsrchr(source, L'\\');
        source = slash != nullptr ? slash + 1 : nullptr;
    }
    wchar_t whole[kRoom] = {};
    if (m_bTraceThreadId)
        _snwprintf(whole, kRoom - 1, L"%s(%d) : [%X] %s", source, m_line, GetCurrentThreadId(), format);
    else
        _snwprintf(whole, kRoom - 1, L"%s(%d) : %s", source, m_line, format);
    wchar_t message[kRoom] = {};
    va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(message, kRoom - 1, whole, arguments);
    va_end(arguments);
    if (m_strFileName.IsEmpty() || !AppendTo(m_strFileName, message))
        OutputDebugStringW(message);
}

}   // namespace KxMfcEx
