#include "../Terminal.h"
#include <csignal>
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

}   // namespace KxPlat
