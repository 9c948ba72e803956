// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/DriveC.h"
#include "support/TempFolder.h"
#include <cerrno>
#include <gtest/gtest.h>

namespace {

using KxTest::DriveC;
using KxTest::TempFolder;

TEST(CrtPaths, PathsTakenApart)
{
    struct Row {
        const wchar_t *path, *drive, *folder, *name, *extension;
    };
    static const Row rows[] = {{L"C:\\dir\\file.ext", L"C:", L"\\dir\\", L"file", L".ext"},
                               {L"C:file.ext", L"C:", L"", L"file", L".ext"},
                               {L"\\dir\\file.ext", L"", L"\\dir\\", L"file", L".ext"},
                               {L"dir\\file", L"", L"dir\\", L"file", L""},
                               {L"file", L"", L"", L"file", L""},
                               {L".ext", L"", L"", L"", L".ext"},
                               {L"C:\\dir.d\\file", L"C:", L"\\dir.d\\", L"file", L""},
                               {L"C:\\dir.d\\file.a.b", L"C:", L"\\dir.d\\", L"file.a", L".b"},
                               {L"\\\\srv\\share\\dir\\f.e", L"", L"\\\\srv\\share\\dir\\", L"f", L".e"},
                               {L"\\\\?\\C:\\dir\\f.e", L"", L"\\\\?\\C:\\dir\\", L"f", L".e"},
                               {L"C:\\dir\\", L"C:", L"\\dir\\", L"", L""},
                               {L"C:\\", L"C:", L"\\", L"", L""},
                               {L"C:", L"C:", L"", L"", L""},
                               {L"", L"", L"", L"", L""},
                               {L"C:/dir\\mixed/f.e", L"C:", L"/dir\\mixed/", L"f", L".e"},
                               {L"C:\\dir\\..", L"C:", L"\\dir\\", L".", L"."},
                               {L"C:\\dir\\.", L"C:", L"\\dir\\", L"", L"."},
                               {L"C:\\dir\\file.", L"C:", L"\\dir\\", L"file", L"."},
                               {L"1:\\x.y", L"1:", L"\\", L"x", L".y"},
                               {L"CD:\\x.y", L"", L"CD:\\", L"x", L".y"},
                               {L"a:b:c.d", L"a:", L"", L"b:c", L".d"},
                               {L"C:\\中文\\文.dwg", L"C:", L"\\中文\\", L"文", L".dwg"},
                               {L"C:\\a b\\c d.e f", L"C:", L"\\a b\\", L"c d", L".e f"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.path));
        wchar_t drive[_MAX_DRIVE], folder[_MAX_DIR], name[_MAX_FNAME], extension[_MAX_EXT];
        _wsplitpath(row.path, drive, folder, name, extension);
        EXPECT_STREQ(drive, row.drive);
        EXPECT_STREQ(folder, row.folder);
        EXPECT_STREQ(name, row.name);
        EXPECT_STREQ(extension, row.extension);
    }
    wchar_t name[_MAX_FNAME];
    _wsplitpath((L"C:\\" + std::wstring(1000, L'n') + L".dwg").c_str(), nullptr, nullptr, name, nullptr);
    if (!KxTest::kOnWine) {   // there a part that is too long leaves its buffer empty
        EXPECT_EQ(std::wstring(name).size(), 255u) << "a long part is cut to its buffer";
    }
}

TEST(CrtPaths, PathsPutTogether)
{
    struct Row {
        const wchar_t *drive, *folder, *name, *extension, *path;
    };
    static const Row rows[] = {{L"C:", L"\\dir\\", L"f", L".e", L"C:\\dir\\f.e"},
                               {L"C", L"dir", L"f", L"e", L"C:dir\\f.e"},
                               {nullptr, L"dir/", L"f", nullptr, L"dir/f"},
                               {L"", L"", L"f", L"", L"f"},
                               {L"CD:", L"d", L"", L"e", L"C:d\\.e"},
                               {nullptr, L"\\", L"f", L"e", L"\\f.e"}};
    for (const Row& row : rows) {
        wchar_t path[_MAX_PATH];
        _wmakepath(path, row.drive, row.folder, row.name, row.extension);
        EXPECT_STREQ(path, row.path);
    }
}

// Works in a folder of its own and goes back at the end.
class Folders : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_NE(_wgetcwd(m_before, ARRAYSIZE(m_before)), nullptr);
        ASSERT_EQ(_wchdir(m_folder.DrivePath().c_str()), 0);
        m_folder.Write("file", "x");
    }
    void TearDown() override { _wchdir(m_before); }
    std::wstring Current() const
    {
        wchar_t path[520] = {};
        _wgetcwd(path, 520);
        return path;
    }
    DriveC m_drive;
    TempFolder m_folder;
    wchar_t m_before[520] = {};
};

TEST_F(Folders, MadeAndRefused)
{
    struct Row {
        const wchar_t* path;
        int answer, error;
    };
    static const Row rows[] = {{L"mk", 0, 0},         {L"mk", -1, EEXIST},   {L"no\\such", -1, ENOENT},
                               {L"slash\\", 0, 0},    {L"", -1, ENOENT},     {L"a*b", -1, EINVAL},
                               {L"C:\\", -1, EEXIST}, {L"file", -1, EEXIST}, {L"file\\x", -1, ENOENT}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.path));
        errno = 0;
        EXPECT_EQ(_wmkdir(row.path), row.answer);
        EXPECT_EQ(errno, row.error);
    }
}

TEST_F(Folders, ChangedAndRefused)
{
    ASSERT_EQ(_wmkdir(L"mk"), 0);
    struct Row {
        std::wstring path;
        int answer, error;
        std::wstring current;
    };
    const Row rows[] = {{L"mk", 0, 0, m_folder.DrivePath(L"mk")},
                        {L"missing", -1, ENOENT, m_folder.DrivePath(L"mk")},
                        {L"..", 0, 0, m_folder.DrivePath()},
                        {L"file", -1, EINVAL, m_folder.DrivePath()},
                        {L"", -1, EINVAL, m_folder.DrivePath()},
                        {L"./mk/", 0, 0, m_folder.DrivePath(L"mk")},
                        {L"C:\\", 0, 0, L"C:\\"},
                        {L"C:", 0, 0, L"C:\\"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.path));
        errno = 0;
        EXPECT_EQ(_wchdir(row.path.c_str()), row.answer);
        EXPECT_EQ(errno, row.error);
        EXPECT_EQ(Current(), row.current);
    }
}

TEST_F(Folders, SizeOfTheCurrentFolderIsChecked)
{
    wchar_t small[3];
    EXPECT_EQ(_wgetcwd(small, 3), nullptr);
    EXPECT_EQ(errno, ERANGE);
    wchar_t* allocated = _wgetcwd(nullptr, 0);
    EXPECT_EQ(std::wstring(allocated), m_folder.DrivePath());
    std::free(allocated);
}

TEST_F(Folders, RemovalRenamingAndAccess)
{
    ASSERT_EQ(_wmkdir(L"mk"), 0);
    ASSERT_EQ(_wmkdir(L"mk\\a"), 0);
    EXPECT_EQ(_wrmdir(L"mk"), -1);
    EXPECT_EQ(errno, ENOTEMPTY);
    EXPECT_EQ(_waccess(L"MK", 0), 0);
    EXPECT_EQ(_waccess(L"missing", 0), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(_wrename(L"file", L"mk"), -1);
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(_wrename(L"file", L"mk\\moved"), 0);
    EXPECT_EQ(m_folder.Read("mk/moved"), "x");
    EXPECT_TRUE(DeleteFileW(L"mk\\MOVED"));
    EXPECT_FALSE(DeleteFileW(L"mk\\moved"));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(GetFileAttributesW(L"mk\\"), DWORD(FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_EQ(GetFileAttributesW(L"missing"), INVALID_FILE_ATTRIBUTES);
}

TEST_F(Folders, FullNames)
{
    const std::wstring here = m_folder.DrivePath();
    struct Row {
        const wchar_t* path;
        std::wstring full;
        const wchar_t* file;
    };
    const Row rows[] = {{L"x.y", here + L"\\x.y", L"x.y"},
                        {L"..\\x.y", here.substr(0, here.rfind(L'\\')) + L"\\x.y", L"x.y"},
                        {L"C:x", L"C:\\x", L"x"},
                        {L"\\x", L"Z:\\x", L"x"},
                        {L"C:\\a\\..\\b\\.\\c", L"C:\\b\\c", L"c"},
                        {L"C:\\a\\\\b", L"C:\\a\\b", L"b"},
                        {L"a/b", here + L"\\a\\b", L"b"},
                        {L"C:\\..\\..\\x", L"C:\\x", L"x"},
                        {L"x.", here + L"\\x", L"x"},
                        {L"x ", here + L"\\x", L"x"},
                        {L"C:\\dir\\", L"C:\\dir\\", nullptr},
                        {L"", L"", nullptr}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.path));
        wchar_t full[300] = {};
        LPWSTR file = nullptr;
        EXPECT_EQ(GetFullPathNameW(row.path, 300, full, &file), row.full.size());
        EXPECT_EQ(full, row.full);
        if (row.file == nullptr)
            EXPECT_EQ(file, nullptr);
        else
            EXPECT_STREQ(file, row.file);
    }
    EXPECT_EQ(GetFullPathNameW(L"C:\\abc", 3, nullptr, nullptr), 7u) << "the size needed, with the terminator";
}

TEST(WinSystem, TemporaryFolderEndsInABackslash)
{
    const KxTest::Variable temp(KxTest::kTempVariable, KxTest::RealPath(L"Z:\\var\\tmp\\"));
    wchar_t path[260];
    EXPECT_EQ(GetTempPathW(260, path), 11u);
    EXPECT_STREQ(path, L"Z:\\var\\tmp\\");
    EXPECT_EQ(GetTempPathW(5, path), 12u);
}

TEST(Processes, OwnFileInDeviceForm)
{
    wchar_t file[520], image[520], device[100];
    GetModuleFileNameW(nullptr, file, 520);
    ASSERT_GT(QueryDosDeviceW(std::wstring(file, 2).c_str(), device, 100), 0u);
    HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, GetCurrentProcessId());
    ASSERT_NE(process, nullptr);
    const DWORD length = GetProcessImageFileNameW(process, image, 520);
    EXPECT_EQ(std::wstring(image, length), std::wstring(device) + (file + 2));
    EXPECT_EQ(GetProcessImageFileNameW(process, image, 8), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    BOOL wow = 7;
    EXPECT_TRUE(IsWow64Process(process, &wow));
    EXPECT_FALSE(wow);
    EXPECT_TRUE(CloseHandle(process));
    EXPECT_FALSE(CloseHandle(process));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(GetProcessImageFileNameW(process, image, 520), 0u);
}

TEST(Processes, NoSuchProcessOrDevice)
{
    for (DWORD id : {0u, 4294967295u}) {
        SetLastError(0);
        EXPECT_EQ(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, id), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    wchar_t device[100];
    for (const wchar_t* name : {L"Q:", L"C"}) {
        EXPECT_EQ(QueryDosDeviceW(name, device, 100), 0u);
        EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    }
    if (!KxTest::kOnWine) {   // there an empty name asks for something else
        EXPECT_EQ(QueryDosDeviceW(L"", device, 100), 0u);
    }
    EXPECT_EQ(QueryDosDeviceW(L"z:", device, 4), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST(Processes, DriveRoots)
{
    const DriveC drive;
    wchar_t list[32] = {};
    EXPECT_EQ(GetLogicalDriveStringsW(32, list), 8u);
    EXPECT_EQ(std::wstring(list, 9), std::wstring(L"C:\\\0Z:\\\0\0", 9));
    EXPECT_EQ(GetLogicalDriveStringsW(4, list), 9u);
    EXPECT_EQ(GetLogicalDrives(), 0x2000004u);
    wchar_t device[100];
    EXPECT_EQ(QueryDosDeviceW(L"c:", device, 100), 25u);
    EXPECT_EQ(std::wstring(device, 25), std::wstring(L"\\Device\\HarddiskVolume1\0\0", 25));
}

}   // namespace
