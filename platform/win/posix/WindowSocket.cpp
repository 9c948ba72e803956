#include "../ProcessFile.h"
#include "../WindowFolder.h"
#include "../WindowMessage.h"
#include "../WinSystem.h"
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace KxPlat {
namespace {

constexpr uint64_t kMostData = uint64_t(1) << 30;
constexpr DWORD kRequestTime = 2000;   // for the rest of a message whose beginning has come

// What goes before the data; both ends are programs of one machine.
struct Head {
    uint64_t window, message, wParam, lParam, dataKind, hasData, size;
};

struct Listener {
    int socket = -1;
    DWORD process = 0;
};

Listener& TheListener()
{
    static Listener listener;
    return listener;
}

class Connection {
public:
    Connection(int file, DWORD milliseconds) : m_file(file), m_begin(GetTickCount()), m_time(milliseconds) {}
    ~Connection()
    {
        if (m_file >= 0)
            close(m_file);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    int File() const { return m_file; }

    // False when the time is over or the other end is gone.
    bool Put(const void* bytes, size_t size)
    {
        for (size_t done = 0; done < size;) {
            const ssize_t step =
                send(m_file, static_cast<const char*>(bytes) + done, size - done, MSG_NOSIGNAL | MSG_DONTWAIT);
            if (step > 0)
                done += static_cast<size_t>(step);
            else if ((errno != EAGAIN && errno != EINTR) || !Wait(POLLOUT, false))
                return false;
        }
        return true;
    }
    bool Get(void* bytes, size_t size, bool serves)
    {
        for (size_t done = 0; done < size;) {
            const ssize_t step = recv(m_file, static_cast<char*>(bytes) + done, size - done, MSG_DONTWAIT);
            if (step > 0)
                done += static_cast<size_t>(step);
            else if (step == 0 || (errno != EAGAIN && errno != EINTR) || !Wait(POLLIN, serves))
                return false;
        }
        return true;
    }
    bool IsOver() const { return GetTickCount() - m_begin >= m_time; }

private:
    // Until the connection is ready. Who waits for an answer still answers others, so that two programs may ask each
    // other.
    bool Wait(short events, bool serves)
    {
        while (!IsOver()) {
            pollfd ready[2] = {{m_file, events, 0}, {serves ? WindowSocket() : -1, POLLIN, 0}};
            poll(ready, 2, static_cast<int>(m_time - (GetTickCount() - m_begin)));
            if (ready[1].revents != 0)
                ServeWindows(0);
            if (ready[0].revents != 0)
                return true;
        }
        return false;
    }

    int m_file;
    DWORD m_begin, m_time;
};

bool AddressOf(DWORD process, sockaddr_un& address)
{
    const std::string file = WindowSocketFile(process);
    address = {};
    address.sun_family = AF_UNIX;
    if (file.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, file.c_str(), file.size());
    return true;
}

bool IsOwnUser(int file)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return getsockopt(file, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
}

void ServeOne(int file)
{
    Connection connection(file, kRequestTime);
    Head head = {};
    if (!IsOwnUser(file) || !connection.Get(&head, sizeof head, false) || head.size > kMostData)
        return;
    WindowMessage message;
    message.window = reinterpret_cast<HWND>(head.window);
    message.message = static_cast<UINT>(head.message);
    message.wParam = head.wParam;
    message.lParam = static_cast<LPARAM>(head.lParam);
    message.dataKind = head.dataKind;
    message.hasData = head.hasData != 0;
    // Grows as the bytes come, so that a wrong size alone takes no memory.
    char piece[65536];
    while (message.data.size() < head.size) {
        const size_t want = std::min<uint64_t>(sizeof piece, head.size - message.data.size());
        if (!connection.Get(piece, want, false))
            return;
        message.data.append(piece, want);
    }
    const int64_t answer = CallWindow(message);
    connection.Put(&answer, sizeof answer);
}

}   // namespace

bool Listen()
{
    Listener& listener = TheListener();
    if (listener.process == OwnProcessId())
        return true;
    sockaddr_un address;
    if (!HoldLifeMark() || !AddressOf(OwnProcessId(), address))
        return false;
    if (listener.socket >= 0)
        close(listener.socket);
    unlink(address.sun_path);
    listener.socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (listener.socket < 0 || bind(listener.socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener.socket, 16) != 0)
        return false;
    listener.process = OwnProcessId();
    return true;
}

void StopListening()
{
    Listener& listener = TheListener();
    if (listener.process == OwnProcessId())
        close(listener.socket);
    listener = Listener();
}

int WindowSocket()
{
    return TheListener().process == OwnProcessId() ? TheListener().socket : -1;
}

int ServeWindows(DWORD milliseconds)
{
    const int listener = WindowSocket();
    if (listener < 0)
        return 0;
    pollfd ready = {listener, POLLIN, 0};
    int served = 0;
    while (poll(&ready, 1, served == 0 ? static_cast<int>(milliseconds) : 0) > 0) {
        const int file = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (file < 0)
            break;
        ServeOne(file);
        ++served;
    }
    return served;
}

DWORD Transmit(const WindowMessage& message, DWORD milliseconds, LRESULT& answer)
{
    sockaddr_un address;
    Connection connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0), milliseconds);
    if (connection.File() < 0 || !AddressOf(ProcessOfWindow(message.window), address))
        return ERROR_INVALID_WINDOW_HANDLE;
    while (connect(connection.File(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        // EAGAIN: too many wait already.
        if (errno != EAGAIN && errno != EINTR)
            return ERROR_INVALID_WINDOW_HANDLE;
        if (connection.IsOver())
            return ERROR_TIMEOUT;
        Sleep(5);
    }
    const Head head = {reinterpret_cast<uintptr_t>(message.window),
                       message.message,
                       message.wParam,
                       static_cast<uint64_t>(message.lParam),
                       message.dataKind,
                       message.hasData ? 1u : 0u,
                       message.data.size()};
    int64_t result = 0;
    if (!connection.Put(&head, sizeof head) || !connection.Put(message.data.data(), message.data.size()) ||
        !connection.Get(&result, sizeof result, true))
        return connection.IsOver() ? ERROR_TIMEOUT : ERROR_INVALID_WINDOW_HANDLE;
    answer = static_cast<LRESULT>(result);
    return ERROR_SUCCESS;
}

}   // namespace KxPlat
