// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>
#include <vector>

namespace {

using KxTest::TempFolder;

TEST(FileHandles, NamesAndDispositions)
{
    const TempFolder folder;
    folder.Write("old.txt", "12345");
    struct Row {
        const wchar_t* name;
        DWORD disposition;
        bool opens;
        DWORD error;
    };
    static const Row rows[] = {
        {L"\\new.txt", OPEN_ALWAYS, true, 0},
        {L"\\new.txt", OPEN_ALWAYS, true, 183},
        {L"\\OLD.TXT", OPEN_EXISTING, true, 0},
        {L"\\old.txt", CREATE_NEW, false, 80},
        {L"\\none.txt", OPEN_EXISTING, false, 2},
        {L"\\none.txt", TRUNCATE_EXISTING, false, 2},
        {L"\\none\\x.txt", OPEN_ALWAYS, false, 3},
        {L"\\old.txt\\x", OPEN_ALWAYS, false, 3},
        {L"", OPEN_EXISTING, false, 5},
        {L"\\", OPEN_EXISTING, false, 5},
        {L"\\a*b", OPEN_ALWAYS, false, 123},
        {L"\\old.txt\\", OPEN_EXISTING, false, 123},
        {L"\\old.txt", CREATE_ALWAYS, true, 183},
        {L"\\old.txt", 9, false, 87},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.name) + std::to_string(row.disposition));
        const HANDLE file = CreateFileW((folder.DrivePath() + row.name).c_str(), GENERIC_WRITE, FILE_SHARE_WRITE,
                                        nullptr, row.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(file != INVALID_HANDLE_VALUE, row.opens);
        EXPECT_EQ(CloseHandle(row.opens ? file : nullptr), row.opens ? TRUE : FALSE);
    }
    EXPECT_EQ(folder.Read("old.txt"), "") << "emptied by CREATE_ALWAYS";
    EXPECT_EQ(CreateFileW(L"", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), 3u);
}

TEST(FileHandles, ReadsWritesAndMoves)
{
    const TempFolder folder;
    folder.Write("t.bin", "0123456789");
    const DWORD everything = FILE_SHARE_READ | FILE_SHARE_WRITE;
    const HANDLE file = CreateFileW(folder.DrivePath(L"t.bin").c_str(), GENERIC_READ | GENERIC_WRITE, everything,
                                    nullptr, OPEN_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD done = 7;
    EXPECT_EQ(SetFilePointer(file, 0, nullptr, FILE_END), 10u);
    EXPECT_EQ(WriteFile(file, "ab", 2, &done, nullptr), TRUE);
    EXPECT_EQ(done, 2u);
    EXPECT_EQ(GetFileSize(file, nullptr), 12u);
    EXPECT_EQ(SetFilePointer(file, -4, nullptr, FILE_CURRENT), 8u);
    char bytes[16] = {};
    EXPECT_EQ(ReadFile(file, bytes, 16, &done, nullptr), TRUE);
    EXPECT_EQ(std::string(bytes, done), "89ab");
    EXPECT_EQ(SetFilePointer(file, -1, nullptr, FILE_BEGIN), INVALID_SET_FILE_POINTER);
    EXPECT_EQ(GetLastError(), 131u);
    LONG high = 1;
    EXPECT_EQ(SetFilePointer(file, 5, &high, FILE_BEGIN), 5u) << "behind 4 GB";
    EXPECT_EQ(high, 1);
    OVERLAPPED start = {};
    EXPECT_EQ(LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &start), TRUE);
    const HANDLE other =
        CreateFileW(folder.DrivePath(L"t.bin").c_str(), GENERIC_WRITE, everything, nullptr, OPEN_EXISTING, 0, nullptr);
    const DWORD tries = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    EXPECT_EQ(LockFileEx(other, tries, 0, 1, 0, &start), FALSE);
    EXPECT_EQ(GetLastError(), 33u);
    EXPECT_EQ(ReadFile(other, bytes, 1, &done, nullptr), FALSE) << "opened for writing only";
    EXPECT_EQ(CloseHandle(file), TRUE);
    EXPECT_EQ(LockFileEx(other, tries, 0, 1, 0, &start), TRUE) << "a closed handle holds nothing";
    EXPECT_EQ(CloseHandle(other), TRUE);
    EXPECT_EQ(WriteFile(other, "x", 1, &done, nullptr), FALSE);
    EXPECT_EQ(GetLastError(), 6u);
}

TEST(FileHandles, WhatIsNotSharedIsRefused)
{
    constexpr DWORD kReads = FILE_SHARE_READ, kWrites = FILE_SHARE_WRITE, kDeletes = FILE_SHARE_DELETE;
    const TempFolder folder;
    const std::wstring name = folder.DrivePath(L"t.bin");
    const auto open = [&name](DWORD access, DWORD share, DWORD disposition = OPEN_EXISTING) {
        return CreateFileW(name.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    struct Row {
        DWORD access, share, secondAccess, secondShare;
        bool opens;
    };
    static const Row rows[] = {{GENERIC_WRITE, kWrites, GENERIC_WRITE, kWrites, true},
                               {GENERIC_WRITE, kReads, GENERIC_WRITE, kReads, false},
                               {GENERIC_WRITE, kReads, GENERIC_READ, kReads, false},
                               {GENERIC_WRITE, kReads, GENERIC_READ, kReads | kWrites, true},
                               {GENERIC_WRITE, kWrites, GENERIC_READ, kReads | kWrites, false},
                               {GENERIC_READ, kReads, GENERIC_READ, kReads, true},
                               {GENERIC_READ, kReads, GENERIC_WRITE, kReads | kWrites, false},
                               {GENERIC_READ, 0, GENERIC_READ, kReads, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        folder.Write("t.bin", "123");
        const HANDLE first = open(row.access, row.share), second = open(row.secondAccess, row.secondShare);
        EXPECT_EQ(GetLastError(), row.opens ? 0u : 32u);
        EXPECT_NE(first, INVALID_HANDLE_VALUE);
        EXPECT_EQ(second != INVALID_HANDLE_VALUE, row.opens);
        EXPECT_EQ(open(GENERIC_WRITE, 0, CREATE_ALWAYS), INVALID_HANDLE_VALUE);
        EXPECT_EQ(DeleteFileW(name.c_str()), FALSE);
        EXPECT_EQ(GetLastError(), 32u);
        CloseHandle(first);
        if (row.opens)
            CloseHandle(second);
        EXPECT_EQ(folder.Read("t.bin"), "123") << "a refused opening empties nothing";
    }
    const HANDLE file = open(GENERIC_WRITE, kDeletes);
    EXPECT_EQ(DeleteFileW(name.c_str()), TRUE);
    CloseHandle(file);
    EXPECT_EQ(GetFileAttributesW(name.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(FindFiles, Patterns)
{
    const TempFolder folder;
    std::filesystem::create_directory(folder.Path("sub.txt"));
    for (const char* name : {"A.txt", "b.txt", "c.TXT", "d.text", "e.txt.bak", "noext"})
        folder.Write(name, "123");
    using Names = std::vector<std::wstring>;
    const Names all = {L".", L"..", L"A.txt", L"b.txt", L"c.TXT", L"d.text", L"e.txt.bak", L"noext", L"sub.txt"};
    struct Row {
        const wchar_t* pattern;
        Names names;
        DWORD error;   // of the call that finds nothing
    };
    const Row rows[] = {{L"\\*", all, 18},
                        {L"\\*.*", all, 18},
                        {L"\\?.txt", {L"A.txt", L"b.txt", L"c.TXT"}, 18},
                        {L"\\a*", {L"A.txt"}, 18},
                        {L"\\*.t?t", {L"A.txt", L"b.txt", L"c.TXT", L"sub.txt"}, 18},
                        {L"\\*t*k", {L"e.txt.bak"}, 18},
                        {L"\\b.txt", {L"b.txt"}, 18},
                        {L"\\nope*", {}, 2},
                        {L"\\<.txt", {}, 2},
                        {L"\\", {}, 2},
                        {L"\\none\\*", {}, 3}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.pattern));
        WIN32_FIND_DATAW data = {};
        Names names;
        const HANDLE search = FindFirstFileW((folder.DrivePath() + row.pattern).c_str(), &data);
        if (search != INVALID_HANDLE_VALUE) {
            do {
                names.push_back(data.cFileName);
                const bool isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
                EXPECT_EQ(data.nFileSizeLow, isFolder ? 0u : 3u);
            } while (FindNextFileW(search, &data));
        }
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(names, row.names);
        EXPECT_EQ(FindClose(search), row.names.empty() ? FALSE : TRUE);
    }
}

}   // namespace
