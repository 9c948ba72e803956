#include "KxMfcEx/CadInfo.h"
#include "support/DriveC.h"
#include <gtest/gtest.h>

namespace {

using namespace KxMfcEx;
using KxTest::DriveC;

constexpr int kKept = -5;   // what an answer holds that is not given

TEST(CadInfo, ReadsProductKeys)
{
    struct Row {
        const wchar_t* key;
        int answer, release, flavour, language;
    };
    static const Row rows[] = {
        {L"ACAD-201:804", 1, 160, 1, 2052},
        {L"ACAD-301:409", 1, 161, 1, 1033},
        {L"ACAD-4001:804", 1, 162, 1, 2052},
        {L"ACAD-5001:804", 1, 170, 1, 2052},
        {L"ACAD-6001:804", 1, 171, 1, 2052},
        {L"ACAD-6000:804", 1, 171, 0, 2052},
        {L"ACAD-7001:804", 1, 172, 1, 2052},
        {L"ACAD-8001:804", 1, 180, 1, 2052},
        {L"ACAD-9001:804", 1, 181, 1, 2052},
        {L"ACAD-A001:804", 1, 182, 1, 2052},
        {L"ACAD-b001:409", 1, 190, 1, 1033},
        {L"ACAD-D001:409", 1, 192, 1, 1033},   // the title of that release says 191
        {L"ACAD-E001:804", 1, 200, 1, 2052},
        {L"ACAD-1:409", 1, 150, 1, 1033},   // one or two digits
        {L"ACAD-12:409", 1, 150, 0x12, 1033},
        {L"ACAD-0001:409", 1, 150, 1, 1033},
        {L"ACAD-2101:409", 1, 161, 1, 1033},   // the second digit counts from four on
        {L"ACAD-:804", 1, kKept, kKept, 2052},
        {L"ACAD-6001:", 1, 171, 1, kKept},
        {L"ACAD-xyzt:804", 1, 150, kKept, 2052},
        {L"ACAD-6001:804\\Profiles", 1, 171, 1, 2052},
        {L"12345ACAD-6001:804", 1, 222, 1, 2052},   // five characters are dropped, whatever they are
        {L"ACAD-6001", 0, kKept, kKept, kKept},
        {L"R17.1", 0, kKept, kKept, kKept},
        {L"acad-6001:804", 0, kKept, kKept, kKept},
        {L"", 0, kKept, kKept, kKept},
        {nullptr, 0, kKept, kKept, kKept},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.key));
        int release = kKept, flavour = kKept, language = kKept;
        EXPECT_EQ(GetCADInfo(row.key, &release, &flavour, &language), row.answer);
        EXPECT_EQ(release, row.release);
        EXPECT_EQ(flavour, row.flavour);
        EXPECT_EQ(language, row.language);
        EXPECT_EQ(GetCADInfo(row.key, nullptr, nullptr, nullptr), row.answer);
    }
}

TEST(CadInfo, FiltersLookAboveEveryFolder)
{
    const DriveC drive;
    drive.MakeFolder("Acad2008/Support/zh");
    drive.MakeFolder("x");
    drive.Write("Acad2008/acad.EXE", "");
    const wchar_t kPlain[] = L"ACAD-6001:804\\\\ACAD", kCivil[] = L"ACAD-6000:804\\\\ACAD";
    struct Row {
        const wchar_t *path, *data;
        int plain, civil;
    };
    static const Row rows[] = {
        {kPlain, L"C:\\Acad2008\\Support;;C:\\x/", 1, 0},
        {kCivil, L"C:\\Acad2008\\Support", 0, 1},
        {kPlain, L"C:\\x;C:\\Acad2008\\Support\\zh\\\\", 1, 0},
        {kPlain, L";;C:\\Acad2008//", 1, 0},
        {kPlain, L"C:\\Acad2008", 1, 0},
        {kPlain, L"C:\\none\\deeper", 0, 0},
        {kPlain, L"C:\\x", 0, 0},
        {kPlain, L"C:\\Acad2008/Support", 0, 0},   // only "\" parts folders
        {kPlain, L"", 0, 0},
        {kPlain, nullptr, 0, 0},
        {L"ACAD-6001:804", L"C:\\Acad2008", 1, 0},   // no separator: the whole path
        {L"R17.1\\ACAD-6001:804\\Profiles\\a:b\\x", L"C:\\Acad2008", 1, 0},
        {L"R17.1\\Profiles", L"C:\\Acad2008", 0, 0},
        {L"HK:CU:\\ACAD-6001:804", L"C:\\Acad2008", 0, 0},   // no further separator: read from the path's start
        {L"HK:CU:\\ACAD-6001:804\\x", L"C:\\Acad2008", 1, 0},
        {L"ACAD-6001\\x", L"C:\\Acad2008", 0, 0},
        {L"ACAD-xx:804", L"C:\\Acad2008", 0, 0},
        {nullptr, L"C:\\Acad2008", 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.path) + testing::PrintToString(row.data));
        EXPECT_EQ(FilterCAD(row.path, row.data), row.plain);
        EXPECT_EQ(FilterCivil3D(row.path, row.data), row.civil);
    }
    drive.Write("Acad.exe", "");
    EXPECT_EQ(FilterCAD(kPlain, L"C:\\none\\deeper"), 1) << "the drive itself is looked at last";
    EXPECT_STREQ(FindInOrAbove(L"C:\\x;C:\\Acad2008\\Support", L"Acad.exe"), L"C:\\Acad.exe");
}

TEST(CadInfo, ReleasesAndTheirKeys)
{
    static const struct {
        int release;
        const wchar_t* name;
    } rows[] = {{140, L"R14.0"}, {171, L"R17.1"}, {182, L"R18.2"}, {200, L"R20.0"}};
    for (const auto& row : rows) {
        EXPECT_STREQ(ReleaseKeyName(row.release), row.name);
        EXPECT_EQ(ReleaseOfKeyName(row.name), row.release);
    }
    EXPECT_EQ(ReleaseOfKeyName(L"R17.1x"), 171);
    EXPECT_EQ(ReleaseOfKeyName(L"Release"), 0);
    EXPECT_EQ(ReleaseOfKeyName(L""), 0);
}

}   // namespace
