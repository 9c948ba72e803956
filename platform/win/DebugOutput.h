// Debugger output on its way from programs to a viewer of the same user: a datagram socket that KX_DEBUG_OUTPUT names,
// else one in the folder of published windows.
#pragma once
#include "KxWinTypes.h"
#include <string>

namespace KxPlat {

std::string DebugSocketFile();

class DebugViewer {
public:
    ~DebugViewer();
    DebugViewer() = default;
    DebugViewer(const DebugViewer&) = delete;
    DebugViewer& operator=(const DebugViewer&) = delete;

    // 0, or the system's error: EADDRINUSE while another viewer listens there.
    int Listen(const std::string& socketFile);
    // The next text and the process that sent it. False on Ctrl-C, or when nothing came in that time.
    bool Next(DWORD milliseconds, DWORD& processId, std::string& text);

private:
    std::string m_file;
    int m_socket = -1;
};

// False when no viewer took it.
bool SendToDebugViewer(const std::string& socketFile, const std::string& text);

}   // namespace KxPlat
