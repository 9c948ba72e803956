#include "win/TopWindows.h"
#include "support/TempFolder.h"
#include "support/WindowServer.h"
#include "win/Processes.h"
#include "win/WinError.h"
#include "win/WinSystem.h"
#include <gtest/gtest.h>
#include <vector>

namespace {

using KxPlat::WindowFacts;
using KxTest::TempFolder;
using KxTest::WindowServer;

class TopWindows : public testing::Test {
protected:
    void SetUp() override
    {
        setenv("KX_WINDOWS", m_folder.Path("windows").c_str(), 1);
        setenv("KX_SEND_TIMEOUT", "3000", 1);
    }
    void TearDown() override
    {
        unsetenv("KX_WINDOWS");
        unsetenv("KX_SEND_TIMEOUT");
    }
    static WindowFacts Titled(const wchar_t* title)
    {
        WindowFacts facts;
        facts.title = title;
        return facts;
    }
    static std::vector<HWND> All()
    {
        std::vector<HWND> found;
        EnumWindows(
            [](HWND window, LPARAM list) -> BOOL {
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }
    static LRESULT Send(HWND window, ULONG_PTR kind, const void* data, size_t size)
    {
        COPYDATASTRUCT copy = {kind, DWORD(size), const_cast<void*>(data)};
        return SendMessageW(window, WM_COPYDATA, 0x55, reinterpret_cast<LPARAM>(&copy));
    }

    TempFolder m_folder;
};

TEST_F(TopWindows, ShowWhatTheyAre)
{
    WindowFacts facts = Titled(L"Kx 测试 [Drawing1.dwg]");
    facts.classStyle = 8;
    const WindowServer server(facts, m_folder.Path("log"));
    ASSERT_TRUE(server.IsReady());
    ASSERT_EQ(All().size(), 1u);
    const HWND window = All()[0];
    EXPECT_EQ(IsWindow(window), TRUE);
    struct Row {
        int size, answer;
        const wchar_t* text;
    };
    static const Row rows[] = {
        {0, 0, L"#"}, {1, 0, L""}, {2, 1, L"K"}, {5, 4, L"Kx 测"}, {64, 20, L"Kx 测试 [Drawing1.dwg]"}};
    for (const Row& row : rows) {
        wchar_t text[64] = L"#";
        EXPECT_EQ(GetWindowTextW(window, text, row.size), row.answer);
        EXPECT_STREQ(text, row.text);
    }
    EXPECT_EQ(GetWindowLongW(window, GWL_STYLE), LONG(WS_OVERLAPPEDWINDOW | WS_VISIBLE));
    EXPECT_EQ(GetClassLongW(window, GCL_STYLE), 8u);
    EXPECT_EQ(GetClassLongW(window, -16) & 3, 0u);
    EXPECT_EQ(GetClassLongW(window, -999), 0u);
    EXPECT_EQ(GetLastError(), 1413u);
    EXPECT_EQ(GetParent(window), nullptr);
    DWORD process = 0;
    EXPECT_NE(GetWindowThreadProcessId(window, &process), 0u);
    EXPECT_EQ(process, server.Process());
    EXPECT_EQ(EnumWindows([](HWND, LPARAM) -> BOOL { return FALSE; }, 0), FALSE);
}

TEST_F(TopWindows, NoneThere)
{
    const auto wrong = reinterpret_cast<HWND>(uintptr_t(GetCurrentProcessId()) * 256 + 77);
    for (HWND window : {HWND(nullptr), wrong, reinterpret_cast<HWND>(uintptr_t(0x7FFFFFFF) * 256 + 1)}) {
        DWORD process = 77;
        SetLastError(0);
        EXPECT_EQ(GetWindowThreadProcessId(window, &process), 0u);
        EXPECT_EQ(process, 77u);
        EXPECT_EQ(GetLastError(), 1400u);
        EXPECT_EQ(Send(window, 1, "x", 1), 0);
        EXPECT_EQ(GetLastError(), 1400u);
        EXPECT_EQ(IsWindow(window), FALSE);
    }
    EXPECT_TRUE(All().empty());
}

TEST_F(TopWindows, BytesArriveAndAreAnswered)
{
    const WindowServer first(Titled(L"one"), m_folder.Path("log1"));
    const WindowServer second(Titled(L"two"), m_folder.Path("log2"));
    ASSERT_EQ(All().size(), 2u);
    for (HWND window : All()) {
        wchar_t title[8];
        GetWindowTextW(window, title, 8);
        const std::string big(200000, title[0] == L'o' ? '1' : '2');
        EXPECT_EQ(Send(window, 2, "xyz", 3), 42);
        EXPECT_EQ(Send(window, 1, nullptr, 0), 41);
        EXPECT_EQ(Send(window, 1, big.data(), big.size()), 41);
        EXPECT_EQ(m_folder.Read(title[0] == L'o' ? "log1" : "log2"), "xyz" + big);
        DWORD_PTR result = 0;
        EXPECT_EQ(SendMessageTimeoutW(window, WM_APP, 3, 4, 0, 3000, &result), TRUE);
        EXPECT_EQ(result, 7u);
    }
}

TEST_F(TopWindows, TheDeadLeaveNoGhost)
{
    WindowServer server(Titled(L"gone"), m_folder.Path("log"));
    ASSERT_EQ(All().size(), 1u);
    const HWND window = All()[0];
    server.Kill();
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(IsWindow(window), FALSE);
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path("windows"))) << "what it left is removed";
}

TEST_F(TopWindows, AHungOneCostsBoundedTime)
{
    const WindowServer server(Titled(L"hung"), m_folder.Path("log"), false);
    ASSERT_EQ(All().size(), 1u);
    wchar_t title[8];
    EXPECT_EQ(GetWindowTextW(All()[0], title, 8), 4) << "the title needs no answer";
    const DWORD begin = GetTickCount();
    EXPECT_EQ(SendMessageTimeoutW(All()[0], WM_APP, 0, 0, 0, 200, nullptr), FALSE);
    EXPECT_EQ(GetLastError(), 1460u);
    EXPECT_GE(GetTickCount() - begin, 200u);
    const std::string large(4000000, 'x');   // more than the system takes in advance
    setenv("KX_SEND_TIMEOUT", "200", 1);
    EXPECT_EQ(Send(All()[0], 1, large.data(), large.size()), 0);
    EXPECT_EQ(GetLastError(), 1460u);
}

TEST_F(TopWindows, OwnOnesAreCalledAtOnce)
{
    const WNDPROC procedure = [](HWND, UINT message, WPARAM, LPARAM lParam) -> LRESULT {
        auto& copy = *reinterpret_cast<COPYDATASTRUCT*>(lParam);
        static_cast<char*>(copy.lpData)[0] = '!';   // the receiver's copy
        return message == WM_COPYDATA ? 9 : 0;
    };
    {
        KxPlat::PublishedWindow window(Titled(L"a"), procedure);
        char data[] = "own";
        EXPECT_EQ(Send(window.Handle(), 1, data, 3), 9);
        EXPECT_STREQ(data, "own");
        window.SetTitle(L"图\n层");
        wchar_t title[8];
        EXPECT_EQ(GetWindowTextW(window.Handle(), title, 8), 3);
        EXPECT_STREQ(title, L"图 层");
        const KxPlat::PublishedWindow other(Titled(L"b"), procedure);
        EXPECT_NE(other.Handle(), window.Handle());
        EXPECT_EQ(All().size(), 2u);
    }
    EXPECT_TRUE(All().empty());
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path("windows"))) << "the last window takes everything along";
    const KxPlat::PublishedWindow again(Titled(L"c"), procedure);
    EXPECT_EQ(All().size(), 1u);
}

TEST_F(TopWindows, AFolderOfOthersIsNotTrusted)
{
    std::filesystem::create_directory(m_folder.Path("windows"));
    std::filesystem::permissions(m_folder.Path("windows"), std::filesystem::perms::all);
    const WindowServer server(Titled(L"x"), m_folder.Path("log"));
    EXPECT_FALSE(server.IsReady());
    EXPECT_TRUE(All().empty());
}

}   // namespace
