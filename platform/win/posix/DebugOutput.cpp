#include "../DebugOutput.h"
#include "../WindowFolder.h"
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace KxPlat {
namespace {

constexpr int kPatience = 200;   // milliseconds that a program waits for room in a viewer's queue
constexpr size_t kLongest = 65536;

bool AddressOf(const std::string& file, sockaddr_un& address)
{
    address = {};
    address.sun_family = AF_UNIX;
    if (file.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, file.c_str(), file.size());
    return true;
}

int NewSocket()
{
    return socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
}

bool IsListening(const sockaddr_un& address)
{
    const int probe = NewSocket();
    const bool answers = connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(probe);
    return answers;
}

DWORD SenderOf(msghdr& message)
{
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr; part = CMSG_NXTHDR(&message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_CREDENTIALS)
            continue;
        ucred sender;
        std::memcpy(&sender, CMSG_DATA(part), sizeof sender);
        return static_cast<DWORD>(sender.pid);
    }
    return 0;
}

}   // namespace

std::string DebugSocketFile()
{
    const char* wanted = std::getenv("KX_DEBUG_OUTPUT");
    return wanted != nullptr && *wanted != 0 ? wanted : WindowFolder() + "/debug.socket";
}

DebugViewer::~DebugViewer()
{
    if (m_socket < 0)
        return;
    close(m_socket);
    unlink(m_file.c_str());
}

int DebugViewer::Listen(const std::string& socketFile)
{
    sockaddr_un address;
    if (!AddressOf(socketFile, address))
        return ENAMETOOLONG;
    if (socketFile.starts_with(WindowFolder() + "/"))
        mkdir(WindowFolder().c_str(), 0700);
    if (IsListening(address))
        return EADDRINUSE;
    // What a viewer that was killed left behind; nothing but a socket is ever removed.
    struct stat info = {};
    if (lstat(socketFile.c_str(), &info) == 0 && S_ISSOCK(info.st_mode))
        unlink(socketFile.c_str());
    m_socket = NewSocket();
    const mode_t before = umask(0077);
    const bool isBound = bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    const int error = errno;
    umask(before);
    if (!isBound) {
        close(m_socket);
        m_socket = -1;
        return error;
    }
    m_file = socketFile;
    const int on = 1, room = 4 << 20;
    setsockopt(m_socket, SOL_SOCKET, SO_PASSCRED, &on, sizeof on);
    setsockopt(m_socket, SOL_SOCKET, SO_RCVBUF, &room, sizeof room);
    return 0;
}

bool DebugViewer::Next(DWORD milliseconds, DWORD& processId, std::string& text)
{
    pollfd ready = {m_socket, POLLIN, 0};
    if (poll(&ready, 1, milliseconds == INFINITE ? -1 : static_cast<int>(milliseconds)) <= 0)
        return false;
    text.resize(kLongest);
    char extra[CMSG_SPACE(sizeof(ucred))] = {};
    iovec piece = {text.data(), text.size()};
    msghdr message = {};
    message.msg_iov = &piece;
    message.msg_iovlen = 1;
    message.msg_control = extra;
    message.msg_controllen = sizeof extra;
    const ssize_t size = recvmsg(m_socket, &message, MSG_CMSG_CLOEXEC);
    text.resize(size > 0 ? static_cast<size_t>(size) : 0);
    processId = SenderOf(message);
    return size >= 0;
}

// A viewer that does not read holds a program up once, and then no more until it reads again.
bool SendToDebugViewer(const std::string& socketFile, const std::string& text)
{
    static bool isSlow = false;
    sockaddr_un address;
    if (!AddressOf(socketFile, address))
        return false;
    const int file = NewSocket();
    if (file < 0 || connect(file, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        close(file);
        return false;
    }
    const timeval patience = {0, kPatience * 1000};
    setsockopt(file, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    bool isSent = send(file, text.data(), text.size(), MSG_NOSIGNAL | (isSlow ? MSG_DONTWAIT : 0)) >= 0;
    isSlow = !isSent && errno == EAGAIN;
    isSent |= isSlow;
    close(file);
    return isSent;
}

}   // namespace KxPlat
