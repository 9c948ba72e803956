// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/TempFolder.h"
#include <cerrno>
#include <gtest/gtest.h>
#include <vector>

namespace {

using KxTest::TempFolder;

class CrtFiles : public testing::Test {
protected:
    std::FILE* Open(const wchar_t* mode, const wchar_t* name = L"t.txt")
    {
        return _wfopen(m_folder.DrivePath(name).c_str(), mode);
    }
    std::vector<int> Bytes(const wchar_t* mode)
    {
        std::vector<int> bytes;
        std::FILE* file = Open(mode);
        do
            bytes.push_back(std::fgetc(file));
        while (bytes.back() != EOF);
        EXPECT_NE(std::feof(file), 0);
        EXPECT_EQ(std::fgetc(file), EOF) << "the end stays the end";
        std::fclose(file);
        return bytes;
    }
    TempFolder m_folder;
};

TEST_F(CrtFiles, TextsAndBytes)
{
    m_folder.Write("t.txt", "a\r\nb\rc\nd\xFF"
                            "e\x1A"
                            "f\r\n");
    EXPECT_EQ(Bytes(L"rt"), (std::vector<int>{97, 10, 98, 13, 99, 10, 100, 255, 101, -1}));
    EXPECT_EQ(Bytes(L"r"), Bytes(L"rt"));
    EXPECT_EQ(Bytes(L"rb"), (std::vector<int>{97, 13, 10, 98, 13, 99, 10, 100, 255, 101, 26, 102, 13, 10, -1}));
}

TEST_F(CrtFiles, LineEndsAreWrittenAsTwoBytes)
{
    struct Row {
        const wchar_t* mode;
        const char *written, *bytes;
    };
    static const Row rows[] = {{L"wt", "a\r\nb\n", "a\r\r\nb\r\n"},
                               {L"wb", "a\r\nb\n", "a\r\nb\n"},
                               {L"at", "c\n", "a\r\nb\nc\r\n"},
                               {L"w", "\n", "\r\n"}};
    for (const Row& row : rows) {
        std::FILE* file = Open(row.mode);
        EXPECT_GE(std::fputs(row.written, file), 0);
        EXPECT_EQ(std::fclose(file), 0);
        EXPECT_EQ(m_folder.Read("t.txt"), row.bytes);
    }
}

TEST_F(CrtFiles, Refusals)
{
    m_folder.Write("t.txt", "x");
    struct Row {
        const wchar_t *name, *mode;
        int error;
    };
    static const Row rows[] = {{L"missing.txt", L"rt", ENOENT},
                               {L"no\\t.txt", L"wt", ENOENT},
                               {L"", L"rt", EACCES},
                               {L"t.txt", L"qq", EINVAL}};
    for (const Row& row : rows) {
        errno = 0;
        EXPECT_EQ(Open(row.mode, row.name), nullptr);
        EXPECT_EQ(errno, row.error) << testing::PrintToString(row.name);
    }
}

TEST_F(CrtFiles, PlacesCountBytesOfTheFile)
{
    m_folder.Write("t.txt", "ab\r\ncd\r\n");
    std::FILE* file = Open(L"rt");
    for (int i = 0; i < 4; ++i)
        std::fgetc(file);
    EXPECT_EQ(std::ftell(file), 5);
    EXPECT_EQ(std::fseek(file, 4, SEEK_SET), 0);
    EXPECT_EQ(std::fgetc(file), 'c');
    EXPECT_EQ(std::fseek(file, 0, SEEK_END), 0);
    EXPECT_EQ(std::ftell(file), 8);
    std::fclose(file);
}

}   // namespace
