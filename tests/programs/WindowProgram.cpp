// WindowProgram TITLE LOG STYLE: shows a main window, then makes the file LOG and appends the bytes of each WM_COPYDATA
// to it. Answers 40 and the number of the data; ends when the window is closed.
#include "win/CodePage.h"
#include "win/Files.h"
#include "win/OwnVersion.h"
#include "win/PublishedWindow.h"
#include "win/TopWindows.h"
#include <cstdlib>
#include <fstream>
#include <string>

KX_OWN_VERSION("ProductName=WindowProgram\n"
               "FileVersion=1.0.0.0\n"
               "ProductVersion=18.2.51.0\n")

namespace {

std::string g_log;
bool g_closed = false;

LRESULT CALLBACK Answer(HWND, UINT message, WPARAM, LPARAM lParam)
{
    if (message == WM_CLOSE)
        g_closed = true;
    if (message != WM_COPYDATA)
        return 0;
    const auto& copy = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    std::ofstream out(g_log, std::ios::binary | std::ios::app);
    if (copy.lpData != nullptr)
        out.write(static_cast<const char*>(copy.lpData), copy.cbData);
    return 40 + static_cast<LRESULT>(copy.dwData);
}

}   // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    g_log = KxPlat::HostPath(KxPlat::FromUtf8(argv[2]));
    KxPlat::WindowFacts facts;
    facts.title = KxPlat::FromUtf8(argv[1]);
    facts.style = static_cast<DWORD>(std::strtoul(argv[3], nullptr, 16));
    const KxPlat::PublishedWindow window(facts, Answer);
    std::ofstream(g_log, std::ios::binary | std::ios::app).flush();
    for (int seconds = 0; !g_closed && seconds < 60; ++seconds)
        KxPlat::ServeWindows(1000);
    return 0;
}
