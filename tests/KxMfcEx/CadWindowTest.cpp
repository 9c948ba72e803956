#include "KxMfcEx/CadWindow.h"
#include "support/AnsiPage.h"
#include "support/TempFolder.h"
#include "support/WindowServer.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using namespace KxMfcEx;
using KxTest::AnsiPage;
using KxTest::TempFolder;
using KxTest::WindowServer;

TEST(CadWindow, TitlesTellTheRelease)
{
    struct Row {
        const wchar_t* title;
        int release;
    };
    static const Row rows[] = {{L"AutoCAD", 140},
                               {L"AutoCAD - [Drawing.dwg]", 140},
                               {L"AutoCAD 2000i", 150},
                               {L"AutoCAD 2002 - [a.dwg]", 150},
                               {L"AutoCAD 2004", 160},
                               {L"AutoCAD 2005", 161},
                               {L"AutoCAD 2006", 162},
                               {L"AutoCAD 2007", 170},
                               {L"AutoCAD 2008 - [图.dwg]", 171},
                               {L"AutoCAD 2009", 172},
                               {L"AutoCAD 2010", 180},
                               {L"AutoCAD 2011", 181},
                               {L"AutoCAD 2012", 182},
                               {L"AutoCAD 2013", 190},
                               {L"Autodesk AutoCAD 2014", 191},
                               {L"Autodesk AutoCAD 2015 - x", 200},
                               {L"Autodesk AutoCAD", 140},
                               {L"Autodesk AutoCAD 2013", 0},   // that release had the short name
                               {L"AutoCAD 2014", 0},
                               {L"AutoCAD 2099", 0},
                               {L"AutoCAD Text Window - x", 0},
                               {L"AutoCAD 文本窗口", 0},
                               {L"AUTOCAD 2008", 0},
                               {L"My AutoCAD 2008", 0},
                               {L"", 0},
                               {nullptr, 0}};
    for (const Row& row : rows)
        EXPECT_EQ(ReleaseOfTitle(row.title), row.release) << testing::PrintToString(row.title);
}

class CadWindows : public testing::Test {
protected:
    void SetUp() override
    {
        setenv("KX_WINDOWS", m_folder.Path("windows").c_str(), 1);
        setenv("TMPDIR", m_folder.Path().c_str(), 1);
    }
    void TearDown() override
    {
        unsetenv("KX_WINDOWS");
        unsetenv("TMPDIR");
    }
    static KxPlat::WindowFacts Titled(const wchar_t* title)
    {
        KxPlat::WindowFacts facts;
        facts.title = title;
        return facts;
    }
    TempFolder m_folder;
};

TEST_F(CadWindows, AreFoundByTitle)
{
    HWND window = reinterpret_cast<HWND>(uintptr_t(1));
    int release = 5;
    EXPECT_EQ(GetAutoCadWnd(window, release, 0), 0);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(release, 0);
    const WindowServer other(Titled(L"Notes"), m_folder.Path("log1"));
    const WindowServer cad(Titled(L"AutoCAD 2012 - [墙.dwg]"), m_folder.Path("log2"));
    EXPECT_EQ(GetAutoCadWnd(window, release, 0), 1);
    EXPECT_EQ(release, 182);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    EXPECT_EQ(process, cad.Process());
    EXPECT_EQ(GetAutoCadWnd(window, release, 1), 0) << "the program behind it is another one";
    EXPECT_EQ(GetAutoCadWnd(window, release, 0x10000), 1) << "the mode has 16 bits";
}

TEST_F(CadWindows, TextsAreSentInTwoForms)
{
    const WindowServer server(Titled(L"AutoCAD 2012"), m_folder.Path("log"));
    HWND window = nullptr;
    int release = 0;
    ASSERT_EQ(GetAutoCadWnd(window, release, 0), 1);
    const auto sent = [&](const wchar_t* text, int wide) {
        std::filesystem::remove(m_folder.Path("log"));
        EXPECT_EQ(SendStrCopyDataToWnd(window, text, wide), 41) << "the number of the data is 1";
        return m_folder.Read("log");
    };
    EXPECT_EQ(sent(L"墙a", 0), std::string("墙a\0\0", 6));
    EXPECT_EQ(sent(L"", 0), std::string("\0\0", 2));
    EXPECT_EQ(sent(nullptr, 0), std::string("\0\0", 2));
    const wchar_t text[] = L"LINE 0,0 ";
    EXPECT_EQ(sent(text, 1), std::string(reinterpret_cast<const char*>(text), 10)) << "ten characters, as bytes";
    const AnsiPage page(936);
    EXPECT_EQ(sent(L"墙", 0), std::string("\xC7\xBD\0\0", 4));
    EXPECT_EQ(SendStrCopyDataToWnd(nullptr, L"x", 0), 0);
}

}   // namespace
