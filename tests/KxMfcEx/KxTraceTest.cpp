#include "KxMfcEx/KxTrace.h"
#include "KxMfcEx/StrFunLib.h"
#include "KxMfcEx/StrUtils.h"
#include "support/DebugOutput.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace {

using namespace KxMfcEx;
using KxTest::TempFolder;

const wchar_t kSource[] = L"C:\\src\\mod.cpp";

std::string Units(const std::u16string& text)
{
    std::string bytes;
    for (char16_t unit : text)
        (bytes += static_cast<char>(unit & 0xFF)) += static_cast<char>(unit >> 8);
    return bytes;
}

// A running program of the tests; the caller closes the handle.
HANDLE Started(CString commandLine)
{
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION info = {};
    commandLine = CStrFunLib::GetCurExeRunPath() + commandLine;
    EXPECT_TRUE(
        CreateProcessW(nullptr, commandLine.GetBuffer(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &info))
        << GetLastError();
    CloseHandle(info.hThread);
    return info.hProcess;
}

// Every test starts with the defaults and a log file of its own.
class Trace : public testing::Test {
protected:
    void SetUp() override
    {
        CKxTrace::m_bTraceThreadId = false;
        CKxTrace::m_bTraceFullPath = false;
        CKxTrace::m_strFileName = m_folder.DrivePath(L"log.txt").c_str();
    }
    void TearDown() override
    {
        CKxTrace::m_bTraceThreadId = true;
        CKxTrace::m_bTraceFullPath = false;
        CKxTrace::m_strFileName.Empty();
    }
    TempFolder m_folder;
};

TEST_F(Trace, NamesTheSource)
{
    struct Row {
        const wchar_t* source;
        bool full;
        const char16_t* text;
    };
    static const Row rows[] = {
        {kSource, false, u"mod.cpp(42) : x=5\n"},
        {kSource, true, u"C:\\src\\mod.cpp(42) : x=5\n"},
        {L"mod.cpp", false, u"(null)(42) : x=5\n"},
        {L"/src/mod.cpp", false, u"(null)(42) : x=5\n"},
        {L"mod.cpp", true, u"mod.cpp(42) : x=5\n"},
        {L"C:\\源\\图层.cpp", false, u"图层.cpp(42) : x=5\n"},
        {L"C:\\src\\", false, u"(42) : x=5\n"},
        {L"C:\\a\\%d.cpp", false, u"5.cpp(42) : x=7\n"},   // the name is a part of the format
        {nullptr, false, u"(null)(42) : x=5\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.source));
        m_folder.Write("log.txt", "");
        CKxTrace::m_bTraceFullPath = row.full;
        CKxTrace(row.source, 42)(L"x=%d\n", 5, 7);
        EXPECT_EQ(m_folder.Read("log.txt"), Units(row.text));
    }
}

TEST_F(Trace, ThreadIdIsHexadecimal)
{
    CKxTrace::m_bTraceThreadId = true;
    CKxTrace(kSource, 1)(L"%s", L"墙😀");
    CString expected;
    expected.Format(L"mod.cpp(1) : [%X] 墙", GetCurrentThreadId());
    std::u16string units;
    for (int i = 0; i < expected.GetLength(); ++i)
        units += static_cast<char16_t>(expected[i]);
    EXPECT_EQ(m_folder.Read("log.txt"), Units(units + u"😀")) << "no mark, no terminator, no line end of its own";
}

TEST_F(Trace, AppendsAndCutsAt4095Characters)
{
    m_folder.Write("log.txt", Units(u"kept|"));
    CKxTrace(kSource, 1)(L"%s", std::wstring(5000, L'x').c_str());
    EXPECT_EQ(m_folder.Read("log.txt").size(), 2 * (5u + 4095u));
    EXPECT_EQ(m_folder.Read("log.txt").substr(0, 10), Units(u"kept|"));
    m_folder.Write("log.txt", "");
    CKxTrace(kSource, 1)((std::wstring(4094, L'y') + L"%s%s").c_str());   // the cut takes the conversions away
    EXPECT_EQ(m_folder.Read("log.txt").size(), 2 * 4095u);
}

TEST_F(Trace, TheDebuggerHearsWhatNoFileTakes)
{
    struct Row {
        std::wstring file;
    };
    const Row rows[] = {{L""}, {m_folder.DrivePath(L"none\\log.txt")}, {m_folder.DrivePath()}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.file));
        CKxTrace::m_strFileName = row.file.c_str();
        KxTest::DebugOutput output;
        CKxTrace(kSource, 42)(L"墙=%d\n", 5);
        char* expected = nullptr;
        Str_WideCharToMultiByte(L"mod.cpp(42) : 墙=5\n", expected);
        const std::unique_ptr<char[]> owner(expected);
        EXPECT_EQ(output.Text(), expected);
    }
}

TEST_F(Trace, ProcessesShareOneLog)
{
    constexpr int kProcesses = 4, kMessages = 10000;
    std::vector<HANDLE> processes;
    for (int i = 0; i < kProcesses; ++i) {
        CString line;
        line.Format(L"TraceProgram \"%s\" %d %d", CKxTrace::m_strFileName.GetString(), i, kMessages);
        processes.push_back(Started(line));
    }
    for (HANDLE process : processes) {
        DWORD code = 1;
        EXPECT_EQ(WaitForSingleObject(process, 120000), WAIT_OBJECT_0);
        EXPECT_TRUE(GetExitCodeProcess(process, &code));
        EXPECT_EQ(code, 0u);
        CloseHandle(process);
    }
    std::string text;
    const std::string bytes = m_folder.Read("log.txt");
    for (size_t i = 0; i < bytes.size(); i += 2)
        text += bytes[i];
    std::map<int, int> next;   // process -> number of its next message
    size_t lines = 0;
    for (size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1, ++lines) {
        int process = -1;
        ASSERT_EQ(std::sscanf(text.c_str() + at, "mod.cpp(%d)", &process), 1) << text.substr(at, 80);
        const int number = next[process]++;
        ASSERT_EQ(text.substr(at, end - at), "mod.cpp(" + std::to_string(process) + ") : " + std::to_string(number) +
                                                 " " + std::string(size_t(number % 60), char('a' + process)));
    }
    EXPECT_EQ(lines, size_t(kProcesses * kMessages));
}

}   // namespace
