#include "KxMfcEx/CadWindow.h"
#include "KxMfcEx/StrFunLib.h"
#include "support/AnsiPage.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

namespace {

using namespace KxMfcEx;
using KxTest::AnsiPage;
using KxTest::TempFolder;

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

// Another process with a main window, which notes what it gets.
class WindowProgram {
public:
    // `program` is the file that it runs as; it notes the bytes of every WM_COPYDATA in the file `log`.
    WindowProgram(const std::filesystem::path& program, const wchar_t* title, const std::wstring& log,
                  DWORD style = WS_OVERLAPPEDWINDOW | WS_VISIBLE)
    {
        CString line;
        line.Format(L"window \"%s\" \"%s\" %x", title, log.c_str(), unsigned(style));
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        EXPECT_TRUE(CreateProcessW(KxTest::DriveForm(program).c_str(), line.GetBuffer(), nullptr, nullptr, FALSE, 0,
                                   nullptr, nullptr, &start, &m_info))
            << GetLastError();
        for (int i = 0; i < 1000 && GetFileAttributesW(log.c_str()) == INVALID_FILE_ATTRIBUTES; ++i)
            Sleep(10);
    }
    ~WindowProgram()
    {
        TerminateProcess(m_info.hProcess, 0);
        WaitForSingleObject(m_info.hProcess, 10000);
        CloseHandle(m_info.hThread);
        CloseHandle(m_info.hProcess);
    }
    WindowProgram(const WindowProgram&) = delete;
    WindowProgram& operator=(const WindowProgram&) = delete;
    DWORD Process() const { return m_info.dwProcessId; }

private:
    PROCESS_INFORMATION m_info = {};
};

class CadWindows : public testing::Test {
protected:
    static std::filesystem::path Program()
    {
        wchar_t own[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, own, MAX_PATH);
        const std::wstring extension = CStrFunLib::IsExistEXTName(own, L"exe") ? L".exe" : L"";
        return KxTest::RealPath(CStrFunLib::GetFilePath(own).GetString() + (L"WindowProgram" + extension));
    }
    std::filesystem::path CopiedTo(const char* name) const
    {
        std::filesystem::create_directories(std::filesystem::path(m_folder.Path(name)).parent_path());
        std::filesystem::copy_file(Program(), m_folder.Path(name));
        return m_folder.Path(name);
    }
    std::wstring Log(const wchar_t* name) const { return m_folder.DrivePath(name); }

    TempFolder m_folder;
    KxTest::WindowPlace m_place{m_folder.Path("windows")};
    KxTest::Variable m_temp{KxTest::kTempVariable, m_folder.Path()};
};

TEST_F(CadWindows, AreFoundByTitle)
{
    HWND window = reinterpret_cast<HWND>(uintptr_t(1));
    int release = 5;
    EXPECT_EQ(GetAutoCadWnd(window, release, 0), 0);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(release, 0);
    const WindowProgram other(Program(), L"Notes", Log(L"log1"));
    const WindowProgram cad(Program(), L"AutoCAD 2012 - [墙.dwg]", Log(L"log2"));
    EXPECT_EQ(GetAutoCadWnd(window, release, 0), 1);
    EXPECT_EQ(release, 182);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    EXPECT_EQ(process, cad.Process());
    EXPECT_EQ(GetAutoCadWnd(window, release, 1), 0) << "the program behind it is another one";
    EXPECT_EQ(GetAutoCadWnd(window, release, 0x10000), 1) << "the mode has 16 bits";
}

TEST_F(CadWindows, AreFoundByProgram)
{
    HWND window = nullptr;
    int release = 0;
    const WindowProgram titled(Program(), L"AutoCAD 2009", Log(L"log1"));
    const WindowProgram cad(CopiedTo("bin/ACAD.exe"), L"anything", Log(L"log2"));
    ASSERT_EQ(GetAutoCadWnd(window, release, 1), 1);
    EXPECT_EQ(release, 182) << "the version resource says 18.2";
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    EXPECT_EQ(process, cad.Process());
    CString handle;
    handle.Format(L"%x", static_cast<unsigned>(reinterpret_cast<uintptr_t>(window)));
    const std::string written = m_folder.Read("ToolBoxSelectCAD~.txt");
    EXPECT_EQ(std::wstring(written.begin(), written.end()), handle.GetString());
    EXPECT_EQ(GetAutoCadWnd(window, release, 0), 1);
    EXPECT_EQ(release, 172) << "by title the other one is found";
}

TEST_F(CadWindows, OnlyMainWindowsCountByProgram)
{
    static const struct {
        DWORD style;
        int found;
    } rows[] = {{WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU, 1},
                {WS_POPUP | WS_VISIBLE | WS_DLGFRAME | WS_SYSMENU, 1},   // some part of a caption
                {WS_POPUP | WS_CAPTION | WS_SYSMENU, 0},
                {WS_POPUP | WS_VISIBLE | WS_SYSMENU, 0},
                {WS_POPUP | WS_VISIBLE | WS_CAPTION, 0}};
    const std::filesystem::path program = CopiedTo("bin/acad.exe");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.style);
        std::filesystem::remove(m_folder.Path("log"));
        const WindowProgram cad(program, L"AutoCAD 2008", Log(L"log"), row.style);
        HWND window = nullptr;
        int release = 0;
        EXPECT_EQ(GetAutoCadWnd(window, release, 1), row.found);
        EXPECT_EQ(GetAutoCadWnd(window, release, 0), 1) << "a title is enough";
        EXPECT_EQ(release, 171);
    }
}

TEST_F(CadWindows, AProgramWithoutAVersionIsPassedOver)
{
    const std::filesystem::path file = CopiedTo("bin/acad.exe");
    std::string bytes = m_folder.Read("bin/acad.exe");
    // The names under which programs of either system keep theirs.
    for (const std::string& name : {std::string(".kxversion"), std::string("T\0r\0a\0n\0s\0l\0a\0t\0i\0o\0n", 21)}) {
        for (size_t at = bytes.find(name); at != std::string::npos; at = bytes.find(name, at + 1))
            bytes[at] = 'X';
    }
    m_folder.Write("bin/acad.exe", bytes);
    const WindowProgram cad(file, L"AutoCAD 2012", Log(L"log"));
    HWND window = nullptr;
    int release = 0;
    EXPECT_EQ(GetAutoCadWnd(window, release, 1), 0);
    EXPECT_NE(m_folder.Read("ToolBoxSelectCAD~.txt"), "") << "the window was noted before";
    EXPECT_EQ(GetAutoCadWnd(window, release, 0), 1);
}

TEST_F(CadWindows, TextsAreSentInTwoForms)
{
    const WindowProgram server(Program(), L"AutoCAD 2012", Log(L"log"));
    HWND window = nullptr;
    int release = 0;
    ASSERT_EQ(GetAutoCadWnd(window, release, 0), 1);
    const auto sent = [&](const wchar_t* text, int wide) {
        std::filesystem::remove(m_folder.Path("log"));
        EXPECT_EQ(SendStrCopyDataToWnd(window, text, wide), 41) << "the number of the data is 1";
        return m_folder.Read("log");
    };
    EXPECT_EQ(sent(L"ab", 0), std::string("ab\0\0", 4));
    EXPECT_EQ(sent(L"", 0), std::string("\0\0", 2));
    EXPECT_EQ(sent(nullptr, 0), std::string("\0\0", 2));
    const wchar_t text[] = L"LINE 0,0 ";
    EXPECT_EQ(sent(text, 1), std::string(reinterpret_cast<const char*>(text), 10)) << "ten characters, as bytes";
    static const struct {
        unsigned page;
        const char* bytes;
    } rows[] = {{936, "\xC7\xBD"}, {65001, "墙"}, {1252, "?"}};
    for (const auto& row : rows) {
        const AnsiPage page(row.page);
        if (!page.IsSet())
            continue;
        EXPECT_EQ(sent(L"墙", 0), row.bytes + std::string(2, '\0'));
    }
    EXPECT_EQ(SendStrCopyDataToWnd(nullptr, L"x", 0), 0);
}

}   // namespace
