// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

namespace {

using KxTest::TempFolder;

class ProcessStart : public testing::Test {
protected:
    void SetUp() override
    {
        wchar_t own[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, own, MAX_PATH);
        const std::wstring file = own;
        const std::wstring folder = file.substr(0, file.rfind(L'\\') + 1);
        std::filesystem::create_directories(m_folder.Path("a b"));
        std::filesystem::copy_file(KxTest::RealPath(folder + L"ExitProgram" + file.substr(folder.size() + 8)),
                                   m_folder.Path("a b/x.exe"));
    }
    std::wstring Program() const { return m_folder.DrivePath(L"a b\\x.exe"); }
    BOOL Start(const wchar_t* program, std::wstring line, const wchar_t* folder = nullptr)
    {
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        m_info = {};
        return CreateProcessW(program, line.empty() ? nullptr : line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                              folder, &start, &m_info);
    }
    DWORD Code() const
    {
        DWORD code = 12345;
        EXPECT_EQ(GetExitCodeProcess(m_info.hProcess, &code), TRUE);
        return code;
    }
    void Close()
    {
        EXPECT_EQ(CloseHandle(m_info.hThread), TRUE);
        EXPECT_EQ(CloseHandle(m_info.hProcess), TRUE);
    }
    TempFolder m_folder;
    PROCESS_INFORMATION m_info = {};
};

TEST_F(ProcessStart, ProgramsAndLines)
{
    const std::wstring program = Program();
    struct Row {
        const wchar_t* program;
        std::wstring line;
        DWORD code;
    };
    const Row rows[] = {{nullptr, L"\"" + program + L"\" 3", 3},
                        {program.c_str(), L"x 5", 5},
                        {program.c_str(), L"", 99},
                        {program.c_str(), L" 7", 7},      // the first word is empty
                        {nullptr, program + L" 6", 6},    // a name with a blank and without quotation marks
                        {nullptr, L"ExitProgram 4", 4},   // beside this program
                        {program.c_str(), L"\"x y\" \"8\"", 8}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.line));
        ASSERT_EQ(Start(row.program, row.line), TRUE) << GetLastError();
        EXPECT_EQ(WaitForSingleObject(m_info.hProcess, INFINITE), WAIT_OBJECT_0);
        EXPECT_EQ(Code(), row.code);
        Close();
    }
}

TEST_F(ProcessStart, WaitsAndEnds)
{
    ASSERT_EQ(Start(Program().c_str(), L"x 1 60000"), TRUE);
    EXPECT_EQ(WaitForSingleObject(m_info.hProcess, 0), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(m_info.hProcess, 30), WAIT_TIMEOUT);
    EXPECT_EQ(Code(), STILL_ACTIVE);
    EXPECT_EQ(TerminateProcess(m_info.hProcess, 5), TRUE);
    EXPECT_EQ(WaitForSingleObject(m_info.hProcess, 10000), WAIT_OBJECT_0);
    EXPECT_EQ(Code(), 5u);
    Close();
    EXPECT_EQ(WaitForSingleObject(nullptr, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), 6u);
}

TEST_F(ProcessStart, RefusesWhatIsNoProgram)
{
    m_folder.Write("bad.exe", "no program");
    struct Row {
        const wchar_t* name;
        DWORD error;
    };
    static const Row rows[] = {{L"\\none.exe", 2}, {L"\\no\\none.exe", 3}, {L"\\bad.exe", 193}};
    for (const Row& row : rows) {
        EXPECT_EQ(Start((m_folder.DrivePath() + row.name).c_str(), L"x"), FALSE) << testing::PrintToString(row.name);
        EXPECT_EQ(GetLastError(), row.error) << testing::PrintToString(row.name);
        EXPECT_EQ(m_info.hProcess, nullptr);
    }
    EXPECT_EQ(Start(Program().c_str(), L"x", m_folder.DrivePath(L"none").c_str()), FALSE);
    EXPECT_EQ(GetLastError(), 267u) << "no folder to start in";
}

}   // namespace
