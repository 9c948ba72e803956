#include "win/ProcessStart.h"
#include "support/TempFolder.h"
#include "win/CommandLine.h"
#include "win/Processes.h"
#include "win/WinError.h"
#include <gtest/gtest.h>

namespace {

using KxTest::TempFolder;
using Words = std::vector<std::wstring>;

TEST(CommandLine, PartsWordsAsWindowsDoes)
{
    struct Row {
        const wchar_t* line;
        Words words;
    };
    static const Row rows[] = {
        {L"a b\tc", {L"a", L"b", L"c"}},
        {L" /b \"C:\\x y.scr\"", {L"", L"/b", L"C:\\x y.scr"}},
        {L"\"C:\\a b\\c.exe\" x", {L"C:\\a b\\c.exe", L"x"}},
        {L"p \"a\\\\\" b", {L"p", L"a\\", L"b"}},
        {L"p \"a\\\"b\" c", {L"p", L"a\"b", L"c"}},
        {L"p a\\b\\\\c", {L"p", L"a\\b\\\\c"}},
        {L"p a\\\\\\\"b", {L"p", L"a\\\"b"}},
        {L"p \"\" x\"y z\"w", {L"p", L"", L"xy zw"}},
        {L"p \"a\"\"b\"", {L"p", L"a\"b"}},
        {L"p a\\ b", {L"p", L"a\\", L"b"}},
        {L"p \"open end", {L"p", L"open end"}},
        {L"p a\\", {L"p", L"a\\"}},
        {L"p  ", {L"p"}},
        {L"", {L""}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(KxPlat::CommandWords(row.line), row.words) << testing::PrintToString(row.line);
}

class ProcessStart : public testing::Test {
protected:
    BOOL Run(const std::wstring& program, const wchar_t* line)
    {
        std::wstring text = line;
        STARTUPINFOW start = {};
        m_info = {};
        return CreateProcessW(program.c_str(), text.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                              &m_info);
    }
    void Close()
    {
        EXPECT_EQ(CloseHandle(m_info.hThread), TRUE);
        EXPECT_EQ(CloseHandle(m_info.hProcess), TRUE);
    }
    TempFolder m_folder;
    PROCESS_INFORMATION m_info = {};
};

TEST_F(ProcessStart, ReportsTheEnd)
{
    DWORD code = 0;
    ASSERT_EQ(Run(L"Z:\\bin\\sh", L" -c \"exit 7\""), TRUE);
    EXPECT_EQ(WaitForSingleObject(m_info.hProcess, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(GetExitCodeProcess(m_info.hProcess, &code), TRUE);
    EXPECT_EQ(code, 7u);
    Close();
    ASSERT_EQ(Run(L"Z:\\bin\\sh", L" -c \"sleep 60\""), TRUE);
    EXPECT_EQ(WaitForSingleObject(m_info.hProcess, 30), WAIT_TIMEOUT);
    EXPECT_EQ(GetExitCodeProcess(m_info.hProcess, &code), TRUE);
    EXPECT_EQ(code, STILL_ACTIVE);
    EXPECT_EQ(TerminateProcess(m_info.hProcess, 5), TRUE);
    EXPECT_EQ(GetExitCodeProcess(m_info.hProcess, &code), TRUE);
    EXPECT_EQ(code, 5u);
    Close();
    EXPECT_EQ(WaitForSingleObject(m_info.hProcess, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), 6u);
}

TEST_F(ProcessStart, RefusesWhatIsNoProgram)
{
    m_folder.Write("data.txt", "text");
    const std::string elf = m_folder.Write("bad.exe", "no program");
    std::filesystem::permissions(elf, std::filesystem::perms::owner_all);
    struct Row {
        const wchar_t* name;
        DWORD error;
    };
    static const Row rows[] = {{L"\\none", 2}, {L"\\data.txt", 193}, {L"\\bad.exe", 193}, {L"\\bad", 193}, {L"", 5}};
    for (const Row& row : rows) {
        EXPECT_EQ(Run(m_folder.DrivePath() + row.name, L"x"), FALSE) << testing::PrintToString(row.name);
        EXPECT_EQ(GetLastError(), row.error) << testing::PrintToString(row.name);
        EXPECT_EQ(m_info.hProcess, nullptr);
    }
}

}   // namespace
