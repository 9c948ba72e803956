#include "win/Files.h"
#include "support/TempFolder.h"
#include "win/CodePage.h"
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using namespace KxPlat;
using KxTest::TempFolder;
namespace fs = std::filesystem;

class Drives : public testing::Test {
protected:
    void SetUp() override
    {
        setenv("KX_DRIVE_C", m_folder.Path("drive_c").c_str(), 1);
        m_before = CurrentFolder();
    }
    void TearDown() override
    {
        ChangeFolder(m_before);
        unsetenv("KX_DRIVE_C");
    }
    TempFolder m_folder;
    std::string m_before;
};

TEST_F(Drives, BothFormsOfAPath)
{
    ChangeFolder("/usr");
    const std::string c = m_folder.Path("drive_c");
    struct Row {
        const wchar_t* path;
        std::string host;
    };
    const Row rows[] = {{L"Z:\\usr\\nope\\x.dwg", "/usr/nope/x.dwg"},
                        {L"z:/usr/nope", "/usr/nope"},
                        {L"/usr/nope", "/usr/nope"},
                        {L"C:\\nope\\a.dwg", c + "/nope/a.dwg"},
                        {L"C:\\", c},
                        {L"Z:\\", "/"},
                        {L"C:x", c + "/x"},
                        {L"Z:nope", "/usr/nope"},
                        {L"Z:..\\nope", "/nope"},
                        {L"\\nope", "/nope"},
                        {L"nope\\x", "nope/x"},
                        {L".\\nope", "nope"},
                        {L"..\\nope", "../nope"},
                        {L".", "."},
                        {L"C:\\a\\..\\b\\.\\c", c + "/b/c"},
                        {L"C:\\..\\..\\x", c + "/x"},
                        {L"\\\\?\\Z:\\nope", "/nope"},
                        {L"D:\\x", m_folder.Path("drive_d/x")},
                        {L"nul", "/dev/null"},
                        {L"Z:\\nope\\file. ", "/nope/file"},
                        {L"", ""}};
    for (const Row& row : rows)
        EXPECT_EQ(HostPath(row.path), row.host) << ToUtf8(row.path);
}

TEST_F(Drives, RealPathsComeUpInDriveForm)
{
    ChangeFolder("/usr");
    EXPECT_EQ(DrivePath("/usr/lib/x.so"), L"Z:\\usr\\lib\\x.so");
    EXPECT_EQ(DrivePath("/"), L"Z:\\");
    EXPECT_EQ(DrivePath(m_folder.Path("drive_c/windows/t.ini")), L"C:\\windows\\t.ini");
    EXPECT_EQ(DrivePath(m_folder.Path("drive_c")), L"C:\\");
    EXPECT_EQ(DrivePath(m_folder.Path("drive_cc/x")), m_folder.DrivePath(L"drive_cc\\x"));
    EXPECT_EQ(DrivePath("lib/../x"), L"Z:\\usr\\x");
    EXPECT_EQ(DrivePath("/tmp/墙.dwg"), L"Z:\\tmp\\墙.dwg");
}

TEST_F(Drives, NamesAreFoundWithoutRegardToCase)
{
    fs::create_directories(m_folder.Path("drive_c/Program Files/Kx"));
    m_folder.Write("drive_c/Program Files/Kx/Größe.DWG", "1");
    m_folder.Write("drive_c/both", "lower");
    m_folder.Write("drive_c/Both", "upper");
    EXPECT_EQ(HostPath(L"c:\\program files\\kx\\GRÖßE.dwg"), m_folder.Path("drive_c/Program Files/Kx/Größe.DWG"));
    EXPECT_EQ(HostPath(L"c:\\PROGRAM FILES\\new\\File.txt"), m_folder.Path("drive_c/Program Files/new/File.txt"));
    EXPECT_EQ(HostPath(L"C:\\Both"), m_folder.Path("drive_c/Both"));
    EXPECT_EQ(HostPath(L"C:\\both"), m_folder.Path("drive_c/both"));
}

TEST_F(Drives, NamesThatAreNoUtf8ComeBackAsTheyAre)
{
    const std::string path = m_folder.Path("\xD6\xD0.dwg");
    m_folder.Write("\xD6\xD0.dwg", "1");
    EXPECT_EQ(HostPath(DrivePath(path)), path);
}

TEST_F(Drives, LettersOfDrivesThatExist)
{
    EXPECT_EQ(DriveLetters(), L"CZ");
    fs::create_directories(m_folder.Path("drive_d"));
    EXPECT_EQ(DriveLetters(), L"CDZ");
}

TEST(MappedFile, ShowsTheBytesOfAFile)
{
    const TempFolder folder;
    const std::string bytes = std::string(100000, 'a') + "end";
    MappedFile file;
    ASSERT_EQ(file.Open(folder.Write("x", bytes)), 0);
    EXPECT_EQ(file.View(), bytes);
    file.Drop(50000);
    file.Drop(1 << 30);
    EXPECT_EQ(file.View(), bytes) << "dropped pages come back when touched";
    ASSERT_EQ(file.Open(folder.Write("empty", "")), 0);
    EXPECT_TRUE(file.View().empty());
    EXPECT_EQ(file.Open(folder.Path("missing")), ENOENT);
    EXPECT_EQ(file.Open(folder.Path()), EISDIR);
    ASSERT_EQ(file.Open("/proc/self/status"), 0);
    EXPECT_EQ(file.View().substr(0, 5), "Name:") << "a file without a size is read";
}

TEST(AtomicFile, OldFileStaysUntilCommit)
{
    const TempFolder folder;
    folder.Write("a.dxf", "old");
    {
        AtomicFile file;
        ASSERT_EQ(file.Open(folder.Path("a.dxf")), 0);
        file.Write(std::string(1000000, 'n'));
        EXPECT_EQ(folder.Read("a.dxf"), "old");
    }
    EXPECT_EQ(folder.Read("a.dxf"), "old");
    EXPECT_EQ(ListFolder(folder.Path()).size(), 1u) << "nothing is left behind";
    AtomicFile file;
    ASSERT_EQ(file.Open(folder.Path("a.dxf")), 0);
    file.Write("new ");
    file.Buffer() += "text";
    EXPECT_EQ(file.Commit(), 0);
    EXPECT_EQ(folder.Read("a.dxf"), "new text");
    EXPECT_EQ(ListFolder(folder.Path()).size(), 1u);
}

TEST(AtomicFile, KeepsModeAndFollowsLinks)
{
    const TempFolder folder;
    folder.Write("real.dxf", "old");
    fs::permissions(folder.Path("real.dxf"), fs::perms(0640));
    fs::create_symlink("real.dxf", folder.Path("link.dxf"));
    AtomicFile file;
    ASSERT_EQ(file.Open(folder.Path("link.dxf")), 0);
    file.Write("new");
    ASSERT_EQ(file.Commit(), 0);
    EXPECT_TRUE(fs::is_symlink(folder.Path("link.dxf")));
    EXPECT_EQ(folder.Read("real.dxf"), "new");
    EXPECT_EQ(fs::status(folder.Path("real.dxf")).permissions(), fs::perms(0640));
}

TEST(AtomicFile, SaysWhyItCannotWrite)
{
    const TempFolder folder;
    AtomicFile file;
    EXPECT_EQ(file.Open(folder.Path("no/such/x")), ENOENT);
    EXPECT_EQ(file.Open(folder.Path()), EISDIR);
    ASSERT_EQ(file.Open("/dev/full"), 0);
    file.Write("x");
    EXPECT_EQ(file.Commit(), ENOSPC);
    EXPECT_EQ(SystemErrorText(ENOENT), L"No such file or directory");
}

TEST(FolderList, ListedWithoutRegardToCase)
{
    const TempFolder folder;
    for (const char* name : {"b.txt", "A.txt", "C", ".hidden"})
        folder.Write(name, "");
    fs::create_directories(folder.Path("sub"));
    std::string names;
    for (const FolderEntry& entry : ListFolder(folder.Path()))
        names += entry.name + (entry.isFolder ? "/ " : " ");
    EXPECT_EQ(names, ".hidden A.txt b.txt C sub/ ");
    EXPECT_TRUE(ListFolder(folder.Path("missing")).empty());
    EXPECT_EQ(MakeFolders(folder.Path("x/y/z")), 0);
    EXPECT_EQ(MakeFolders(folder.Path("x/y/z")), 0);
    EXPECT_EQ(MakeFolders(folder.Path("C/y")), ENOTDIR);
}

}   // namespace
