#include "../CrtFiles.h"
#include "../Files.h"
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace {

struct Mode {
    int flags = 0;
    bool isText = true;
    bool updates = false;
};

std::optional<Mode> ModeOf(const wchar_t* text)
{
    static const struct {
        wchar_t letter;
        int flags;
    } kKinds[] = {{L'r', 0}, {L'w', O_CREAT | O_TRUNC}, {L'a', O_CREAT | O_APPEND}};
    for (const auto& kind : kKinds) {
        if (text == nullptr || text[0] != kind.letter)
            continue;
        const std::wstring_view rest = text + 1;
        if (rest.find_first_not_of(L"+tb") != std::wstring_view::npos)
            return std::nullopt;
        Mode mode;
        mode.isText = rest.find(L'b') == std::wstring_view::npos;
        mode.updates = rest.find(L'+') != std::wstring_view::npos;
        mode.flags = kind.flags | (mode.updates ? O_RDWR : kind.letter == L'r' ? O_RDONLY : O_WRONLY);
        return mode;
    }
    return std::nullopt;
}

constexpr char kEndOfText = 26;

// The bytes of a text behind a FILE. The FILE reads without a buffer of its own, so that its position is this one's.
class TextFile {
public:
    explicit TextFile(int file) : m_file(file) {}
    ~TextFile() { close(m_file); }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;

    ssize_t Read(char* out, size_t size)
    {
        size_t done = 0;
        while (done < size) {
            const int byte = Next();
            if (byte < 0)
                break;
            out[done++] = static_cast<char>(byte);
        }
        return static_cast<ssize_t>(done);
    }

    ssize_t Write(const char* bytes, size_t size)
    {
        if (!ForgetRead())
            return 0;
        std::string text;
        text.reserve(size + size / 8);
        const std::string_view all(bytes, size);
        for (size_t at = 0; at < size;) {
            const size_t end = std::min(all.find('\n', at), size);
            text.append(all.substr(at, end - at));
            if (end < size)
                text += "\r\n";
            at = end + 1;
        }
        for (size_t done = 0; done < text.size();) {
            const ssize_t put = write(m_file, text.data() + done, text.size() - done);
            if (put < 0 && errno != EINTR)
                return 0;
            done += put > 0 ? static_cast<size_t>(put) : 0;
        }
        return static_cast<ssize_t>(size);
    }

    int Seek(off64_t* offset, int origin)
    {
        if (!ForgetRead())
            return -1;
        const off64_t position = lseek64(m_file, *offset, origin);
        if (position < 0)
            return -1;
        *offset = position;
        return 0;
    }

private:
    bool Fill()
    {
        if (m_at < m_end)
            return true;
        const ssize_t got = read(m_file, m_buffer, sizeof m_buffer);
        m_at = 0;
        m_end = got > 0 ? static_cast<size_t>(got) : 0;
        return m_end > 0;
    }

    int Next()
    {
        if (!Fill() || m_buffer[m_at] == kEndOfText)
            return -1;
        const char byte = m_buffer[m_at++];
        if (byte == '\r' && Fill() && m_buffer[m_at] == '\n')
            return static_cast<unsigned char>(m_buffer[m_at++]);
        return static_cast<unsigned char>(byte);
    }

    // Puts the system's position where the reader stands.
    bool ForgetRead()
    {
        const auto ahead = static_cast<off64_t>(m_end - m_at);
        m_at = m_end = 0;
        return ahead == 0 || lseek64(m_file, -ahead, SEEK_CUR) >= 0;
    }

    int m_file;
    size_t m_at = 0, m_end = 0;
    char m_buffer[8192];
};

TextFile& TextOf(void* cookie)
{
    return *static_cast<TextFile*>(cookie);
}

std::FILE* OpenText(int file, const Mode& mode)
{
    auto text = std::make_unique<TextFile>(file);
    cookie_io_functions_t calls = {};
    calls.read = [](void* cookie, char* out, size_t size) { return TextOf(cookie).Read(out, size); };
    calls.write = [](void* cookie, const char* bytes, size_t size) { return TextOf(cookie).Write(bytes, size); };
    calls.seek = [](void* cookie, off64_t* offset, int origin) { return TextOf(cookie).Seek(offset, origin); };
    calls.close = [](void* cookie) {
        delete &TextOf(cookie);
        return 0;
    };
    const bool writesOnly = (mode.flags & O_ACCMODE) == O_WRONLY;
    std::FILE* stream = fopencookie(text.get(), writesOnly ? "w" : mode.updates ? "r+" : "r", calls);
    if (stream == nullptr)
        return nullptr;
    static_cast<void>(text.release());
    if (!writesOnly)
        std::setvbuf(stream, nullptr, _IONBF, 0);
    return stream;
}

}   // namespace

std::FILE* _wfopen(const wchar_t* path, const wchar_t* modeText)
{
    const std::optional<Mode> mode = ModeOf(modeText);
    if (!mode || path == nullptr || path[0] == 0) {
        errno = mode ? ENOENT : EINVAL;
        return nullptr;
    }
    const std::string hostPath = KxPlat::HostPath(path);
    if (KxPlat::FileInfoOf(hostPath).isFolder) {
        errno = EACCES;
        return nullptr;
    }
    const int file = open(hostPath.c_str(), mode->flags | O_CLOEXEC, 0666);
    if (file < 0)
        return nullptr;
    if (mode->isText)
        return OpenText(file, *mode);
    const bool appends = (mode->flags & O_APPEND) != 0;
    const bool writesOnly = (mode->flags & O_ACCMODE) == O_WRONLY;
    const char* kind = appends ? (mode->updates ? "a+" : "a") : writesOnly ? "w" : mode->updates ? "r+" : "r";
    std::FILE* stream = fdopen(file, kind);
    if (stream == nullptr)
        close(file);
    return stream;
}
