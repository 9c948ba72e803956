// Windows names only: these rows hold on any implementation of the calls.
#include "KxWin.h"
#include "support/ProgramFile.h"
#include "support/TempFolder.h"
#include <cstring>
#include <gtest/gtest.h>

namespace {

using namespace KxTest;

const VersionStrings kStrings = {{u"FileVersion", u"3.3.8.7"}, {u"ProductName", u"中文 Kx"}, {u"Empty", u""}};

std::string Resource()
{
    return VersionResource({3, 3, 8, 7, 17, 1, 0, 804}, 0x804, 0x4B0, kStrings);
}

// The block of a file, empty when there is none.
std::string BlockOf(const std::wstring& file)
{
    DWORD handle = 7;
    std::string block(GetFileVersionInfoSizeW(file.c_str(), &handle), '\0');
    EXPECT_EQ(handle, 0u);
    if (!block.empty()) {
        EXPECT_TRUE(GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()));
    }
    return block;
}

std::wstring Text(const std::string& block, const wchar_t* path)
{
    void* value = nullptr;
    UINT length = 99;
    if (!VerQueryValueW(block.data(), path, &value, &length) || length == 0)
        return L"-";
    return std::wstring(static_cast<const wchar_t*>(value), length - 1);
}

TEST(Version, ProgramsOf32And64Bits)
{
    const TempFolder folder;
    for (bool is64Bit : {false, true}) {
        SCOPED_TRACE(is64Bit);
        folder.Write("x.exe", ProgramFile(Resource(), is64Bit));
        const std::string block = BlockOf(folder.DrivePath(L"x.exe"));
        ASSERT_FALSE(block.empty());
        struct Row {
            const wchar_t *path, *text;
        };
        static const Row rows[] = {{L"\\StringFileInfo\\080404b0\\FileVersion", L"3.3.8.7"},
                                   {L"\\StringFileInfo\\080404B0\\FileVersion", L"3.3.8.7"},
                                   {L"\\stringfileinfo\\080404b0\\fileversion", L"3.3.8.7"},
                                   {L"StringFileInfo\\080404b0\\FileVersion", L"3.3.8.7"},
                                   {L"\\StringFileInfo\\080404b0\\\\FileVersion", L"3.3.8.7"},
                                   {L"\\StringFileInfo\\080404b0\\ProductName", L"中文 Kx"},
                                   {L"\\StringFileInfo\\080404b0\\Empty", L""},
                                   {L"\\StringFileInfo\\080404b0\\Nope", L"-"},
                                   {L"\\StringFileInfo\\040904b0\\FileVersion", L"-"},
                                   {L"\\StringFileInfo\\080404b0", L"-"}};
        for (const Row& row : rows)
            EXPECT_EQ(Text(block, row.path), row.text) << testing::PrintToString(row.path);

        for (const wchar_t* path : {L"\\", L""}) {
            void* value = nullptr;
            UINT length = 0;
            ASSERT_TRUE(VerQueryValueW(block.data(), path, &value, &length));
            EXPECT_EQ(length, 52u);
            VS_FIXEDFILEINFO fixed = {};
            std::memcpy(&fixed, value, sizeof fixed);
            EXPECT_EQ(fixed.dwSignature, 0xFEEF04BDu);
            EXPECT_EQ(fixed.dwFileVersionMS, 0x00030003u);
            EXPECT_EQ(fixed.dwFileVersionLS, 0x00080007u);
            EXPECT_EQ(fixed.dwProductVersionLS, 0x00000324u);
        }
        void* value = nullptr;
        UINT length = 0;
        ASSERT_TRUE(VerQueryValueW(block.data(), L"\\varfileinfo\\translation", &value, &length));
        EXPECT_EQ(std::string(static_cast<char*>(value), length), std::string("\x04\x08\xB0\x04"));
    }
}

TEST(Version, UnknownNamesLeaveThePointerAlone)
{
    const TempFolder folder;
    folder.Write("x.exe", ProgramFile(Resource(), true));
    const std::string block = BlockOf(folder.DrivePath(L"x.exe"));
    void* value = &value;
    UINT length = 99;
    EXPECT_FALSE(VerQueryValueW(block.data(), L"\\StringFileInfo\\080404b0\\Nope", &value, &length));
    EXPECT_EQ(value, &value);
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_TYPE_NOT_FOUND);
    for (const wchar_t* node : {L"\\StringFileInfo\\080404b0", L"\\StringFileInfo\\080404b0\\"}) {
        length = 99;
        EXPECT_TRUE(VerQueryValueW(block.data(), node, &value, &length)) << "a node without a value";
        EXPECT_EQ(length, 0u);
    }
}

TEST(Version, FilesWithoutOne)
{
    const TempFolder folder;
    folder.Write("text.exe", "no program");
    EXPECT_EQ(GetFileVersionInfoSizeW(folder.DrivePath(L"text.exe").c_str(), nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_DATA_NOT_FOUND);
    EXPECT_EQ(GetFileVersionInfoSizeW(folder.DrivePath(L"missing.exe").c_str(), nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    char block[16];
    EXPECT_FALSE(GetFileVersionInfoW(folder.DrivePath(L"missing.exe").c_str(), 0, sizeof block, block));
}

TEST(Version, DamagedFilesAreRefusedOrReadWithinTheirBounds)
{
    if (KxTest::kOnWine)
        GTEST_SKIP() << "Wine reads past the end of some of them and dies";
    const TempFolder folder;
    const std::wstring file = folder.DrivePath(L"x.exe");
    const std::string sound = ProgramFile(Resource(), true);
    for (size_t length = 0; length < sound.size(); length += 7) {
        folder.Write("x.exe", sound.substr(0, length));
        EXPECT_EQ(BlockOf(file), "") << "cut at " << length;
    }
    // Any one byte may be wrong; what is then answered must be a block that can be asked.
    for (size_t at = 0; at < sound.size(); at += sound[at] == 0 ? 5 : 1) {
        std::string wrong = sound;
        wrong[at] = static_cast<char>(0xFF - wrong[at]);
        folder.Write("x.exe", wrong);
        const std::string block = BlockOf(file);
        if (!block.empty()) {
            Text(block, L"\\StringFileInfo\\080404b0\\ProductName");
        }
    }
}

TEST(Version, DeepNestingIsRefused)
{
    if (KxTest::kOnWine)
        GTEST_SKIP() << "Wine hands the block out as it is and looks at it when asked";
    std::string node = VersionNode(u"VS_VERSION_INFO", 0, 0, "");
    for (int depth = 0; depth < 2000; ++depth)
        node = VersionNode(u"VS_VERSION_INFO", 0, 0, "", {node});
    const TempFolder folder;
    folder.Write("x.exe", ProgramFile(node, true));
    EXPECT_EQ(BlockOf(folder.DrivePath(L"x.exe")), "");
}

}   // namespace
