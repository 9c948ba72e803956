#include "../Terminal.h"
#include "../PublishedWindow.h"
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace KxPlat {

namespace {

volatile std::sig_atomic_t g_interrupted = 0;

void OnInterrupt(int)
{
    g_interrupted = 1;
}

}   // namespace

bool IsTerminal(StandardStream stream)
{
    return isatty(int(stream)) == 1;
}

void WatchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = OnInterrupt;   // without SA_RESTART: a read that waits comes back
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

bool TakeInterrupt()
{
    const bool was = g_interrupted != 0;
    g_interrupted = 0;
    return was;
}

Wake WaitForInput(bool withInput)
{
    // Ctrl-C is let in only while the program waits, so that none is missed just before.
    sigset_t interrupt, before;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    sigprocmask(SIG_BLOCK, &interrupt, &before);
    sigdelset(&before, SIGINT);
    pollfd ready[2] = {{withInput ? STDIN_FILENO : -1, POLLIN, 0}, {WindowSocket(), POLLIN, 0}};
    int count = 0;
    while (g_interrupted == 0 && (count = ppoll(ready, 2, nullptr, &before)) < 0 && errno == EINTR) {
    }
    sigprocmask(SIG_SETMASK, &before, nullptr);
    if (g_interrupted != 0)
        return Wake::Interrupt;
    return ready[0].revents == 0 && ready[1].revents != 0 ? Wake::Message : Wake::Input;
}

bool HasInputWithin(int milliseconds)
{
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    return poll(&input, 1, milliseconds) > 0;
}

size_t ReadStandardInput(char* bytes, size_t size)
{
    const ssize_t count = read(STDIN_FILENO, bytes, size);
    return count > 0 ? static_cast<size_t>(count) : 0;
}

bool MoveOutputTo(const std::string& name)
{
    const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    std::fflush(stdout);
    std::fflush(stderr);
    const bool isMoved = dup2(file, STDOUT_FILENO) >= 0 && dup2(file, STDERR_FILENO) >= 0;
    close(file);
    return isMoved;
}

}   // namespace KxPlat
