#include "DebugOutput.h"
#include "win/CodePage.h"
#include "win/DebugOutput.h"
#include "win/Files.h"
#include "win/Terminal.h"
#include <cerrno>
#include <cstdio>

using namespace KxPlat;

namespace KxConsole {

namespace {

// Each line begins with its process. A text without a line end goes on with the next one of the same process.
class Lines {
public:
    void Show(DWORD processId, const std::string& text)
    {
        if (m_isOpen && processId != m_process)
            End();
        m_process = processId;
        for (const char c : text) {
            if (!m_isOpen)
                std::printf("[%u] ", processId);
            m_isOpen = c != '\n';
            std::fputc(c, stdout);
        }
    }
    void End()
    {
        if (m_isOpen)
            std::fputc('\n', stdout);
        m_isOpen = false;
    }

private:
    DWORD m_process = 0;
    bool m_isOpen = false;
};

}   // namespace

bool ShowDebugOutput()
{
    DebugViewer viewer;
    const std::string socket = DebugSocketFile();
    if (const int error = viewer.Listen(socket)) {
        const std::string why =
            error == EADDRINUSE ? "another viewer is there already" : ToUtf8(SystemErrorText(error));
        std::fprintf(stderr, "kxcad: %s: %s\n", socket.c_str(), why.c_str());
        return false;
    }
    WatchInterrupts();
    Lines lines;
    while (!TakeInterrupt() && std::ferror(stdout) == 0) {
        DWORD process = 0;
        std::string text;
        if (viewer.Next(500, process, text))
            lines.Show(process, text);
        std::fflush(stdout);
    }
    lines.End();
    return true;
}

}   // namespace KxConsole
