#include "win/DebugOutput.h"
#include "support/TempFolder.h"
#include "win/WinSystem.h"
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using KxPlat::DebugViewer;
using KxTest::TempFolder;

class DebugOutput : public testing::Test {
protected:
    void SetUp() override { setenv("KX_WINDOWS", m_folder.Path("windows").c_str(), 1); }
    void TearDown() override
    {
        unsetenv("KX_WINDOWS");
        unsetenv("KX_DEBUG_OUTPUT");
    }
    // What goes to standard error when `text` is sent.
    static std::string Sent(const wchar_t* text)
    {
        testing::internal::CaptureStderr();
        OutputDebugStringW(text);
        return testing::internal::GetCapturedStderr();
    }
    TempFolder m_folder;
};

TEST_F(DebugOutput, GoesToTheViewerWhileThereIsOne)
{
    EXPECT_EQ(Sent(L"nobody 听\n"), "nobody 听\n");
    DWORD process = 0;
    std::string text;
    {
        DebugViewer viewer;
        ASSERT_EQ(viewer.Listen(KxPlat::DebugSocketFile()), 0);
        EXPECT_FALSE(viewer.Next(0, process, text));
        for (const wchar_t* sent : {L"墙=%d\n", L"no line end", L"", static_cast<const wchar_t*>(nullptr)}) {
            EXPECT_EQ(Sent(sent), "");
            ASSERT_TRUE(viewer.Next(1000, process, text));
            EXPECT_EQ(text, sent == nullptr || *sent == 0 ? "" : *sent == L'n' ? "no line end" : "墙=%d\n");
            EXPECT_EQ(process, DWORD(getpid()));
        }
        DebugViewer second;
        EXPECT_EQ(second.Listen(KxPlat::DebugSocketFile()), EADDRINUSE);
    }
    EXPECT_FALSE(std::filesystem::exists(KxPlat::DebugSocketFile()));
    EXPECT_EQ(Sent(L"again"), "again");
}

TEST_F(DebugOutput, AnotherViewerMayBeNamed)
{
    setenv("KX_DEBUG_OUTPUT", m_folder.Path("own.socket").c_str(), 1);
    EXPECT_EQ(Sent(L"x"), "") << "it alone gets it";
    DebugViewer viewer;
    ASSERT_EQ(viewer.Listen(KxPlat::DebugSocketFile()), 0);
    Sent(L"y");
    DWORD process = 0;
    std::string text;
    ASSERT_TRUE(viewer.Next(1000, process, text));
    EXPECT_EQ(text, "y");
    setenv("KX_DEBUG_OUTPUT", "none", 1);
    EXPECT_EQ(Sent(L"z"), "");
    EXPECT_FALSE(viewer.Next(0, process, text));
}

TEST_F(DebugOutput, AKilledViewerIsReplacedButNoFile)
{
    const std::string socket = m_folder.Path("v.socket");
    if (const pid_t child = fork(); child == 0) {
        DebugViewer viewer;
        viewer.Listen(socket);
        _exit(0);   // the socket stays behind
    } else {
        waitpid(child, nullptr, 0);
    }
    ASSERT_TRUE(std::filesystem::exists(socket));
    DebugViewer viewer;
    EXPECT_EQ(viewer.Listen(socket), 0);
    std::ofstream(m_folder.Path("text")) << "kept";
    DebugViewer other;
    EXPECT_EQ(other.Listen(m_folder.Path("text")), EADDRINUSE);
    EXPECT_EQ(m_folder.Read("text"), "kept");
    EXPECT_EQ(other.Listen(m_folder.Path("none/v.socket")), ENOENT);
    EXPECT_EQ(other.Listen(m_folder.Path(std::string(200, 'x'))), ENAMETOOLONG);
}

// A burst from several processes arrives whole while somebody reads.
TEST_F(DebugOutput, BurstsArriveWhole)
{
    constexpr int kProcesses = 3, kTexts = 2000;
    DebugViewer viewer;
    ASSERT_EQ(viewer.Listen(KxPlat::DebugSocketFile()), 0);
    for (int process = 0; process < kProcesses; ++process) {
        if (fork() == 0) {
            for (int i = 0; i < kTexts; ++i)
                OutputDebugStringW((std::to_wstring(i) + L"\n").c_str());
            _exit(0);
        }
    }
    std::map<DWORD, int> next;
    DWORD process = 0;
    std::string text;
    for (int i = 0; i < kProcesses * kTexts; ++i) {
        ASSERT_TRUE(viewer.Next(5000, process, text)) << i;
        ASSERT_EQ(text, std::to_string(next[process]++) + "\n");
    }
    EXPECT_EQ(next.size(), size_t(kProcesses));
    for (int i = 0; i < kProcesses; ++i)
        wait(nullptr);
}

TEST_F(DebugOutput, AViewerThatDoesNotReadHoldsNobodyUp)
{
    DebugViewer viewer;
    ASSERT_EQ(viewer.Listen(KxPlat::DebugSocketFile()), 0);
    const DWORD begin = GetTickCount();
    for (int i = 0; i < 5000; ++i)
        OutputDebugStringW(L"text");
    EXPECT_LT(GetTickCount() - begin, 4000u);
}

}   // namespace
