// Another process with a window, which notes what it gets and answers it.
#pragma once
#include "win/PublishedWindow.h"
#include "win/TopWindows.h"
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace KxTest {

class WindowServer {
public:
    // Appends the bytes of every WM_COPYDATA to the file `log`. `serves`: it answers at all.
    WindowServer(const KxPlat::WindowFacts& facts, const std::string& log, bool serves = true)
    {
        int ready[2];
        if (pipe(ready) != 0)
            return;
        m_process = fork();
        if (m_process == 0)
            Run(facts, log, serves, ready[1]);
        close(ready[1]);
        char byte = 0;
        m_isReady = read(ready[0], &byte, 1) == 1;
        close(ready[0]);
    }
    ~WindowServer() { Kill(); }
    WindowServer(const WindowServer&) = delete;
    WindowServer& operator=(const WindowServer&) = delete;

    bool IsReady() const { return m_isReady; }
    DWORD Process() const { return static_cast<DWORD>(m_process); }
    void Kill()
    {
        if (m_process > 0) {
            kill(m_process, SIGKILL);
            waitpid(m_process, nullptr, 0);
        }
        m_process = -1;
    }

private:
    static std::string& Log()
    {
        static std::string log;
        return log;
    }
    // Answers 40 and the number of the data, another message with its parameters' sum.
    static LRESULT CALLBACK Answer(HWND, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message != WM_COPYDATA)
            return static_cast<LRESULT>(wParam) + lParam;
        const auto& copy = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        std::ofstream out(Log(), std::ios::binary | std::ios::app);
        if (copy.lpData != nullptr)
            out.write(static_cast<const char*>(copy.lpData), copy.cbData);
        return 40 + static_cast<LRESULT>(copy.dwData);
    }
    [[noreturn]] static void Run(const KxPlat::WindowFacts& facts, const std::string& log, bool serves, int ready)
    {
        Log() = log;
        KxPlat::PublishedWindow window(facts, Answer);
        if (window.Handle() == nullptr || write(ready, "x", 1) != 1)
            _exit(1);
        close(ready);
        for (;;) {
            if (serves)
                KxPlat::ServeWindows(1000);
            else
                pause();
        }
    }

    pid_t m_process = -1;
    bool m_isReady = false;
};

}   // namespace KxTest
