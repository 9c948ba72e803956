// Files taken apart: every part where it should be, whole by its checksum.
#include "dwg/Container.h"
#include "dwg/ByteWalk.h"
#include "dwg/Checksums.h"
#include "dwg/ClassTable.h"
#include "dwg/DwgCodePages.h"
#include "dwg/HeaderSection.h"
#include "dwg/ObjectMap.h"
#include "dwg/Sentinels.h"
#include "DwgFiles.h"

using namespace KxPlat;

namespace {

// A part between its marks whose checksum is right.
bool IsWholePart(std::string_view bytes, const Sentinel& mark, bool hasLongSize)
{
    if (!bytes.starts_with(BeginMark(mark)))
        return false;
    const uint64_t size = ByteWalk(bytes, 16).Long() + (hasLongSize ? 8u : 4u);
    return size + 34 <= bytes.size() && ByteWalk(bytes, 16 + size).Short() == Crc16(bytes.substr(16, size)) &&
           bytes.substr(18 + size, 16) == EndMark(mark);
}

class SharedDwg : public testing::TestWithParam<std::string> {};

TEST_P(SharedDwg, IsTakenApartWithoutAComplaint)
{
    MappedFile file;
    ASSERT_EQ(file.Open(GetParam()), 0);
    DwgSections sections;
    DwgReport report;
    ASSERT_TRUE(ReadContainer(file.View(), sections, report)) << report.error();
    EXPECT_EQ(report.mendedCount(), 0u) << report.lines()[0];
    const bool hasLongSize = sections.version >= AcDb::kDHL_1024;
    EXPECT_TRUE(IsWholePart(sections.BytesOf(kHeaderSection), kHeaderMark, hasLongSize));
    EXPECT_TRUE(IsWholePart(sections.BytesOf(kClassesSection), kClassesMark, hasLongSize));
    EXPECT_FALSE(sections.BytesOf(kHandlesSection).empty());
    EXPECT_FALSE(sections.BytesOf(kObjectsSection).empty());
}

TEST_P(SharedDwg, ItsOwnPartsAreReadToTheirLastBit)
{
    MappedFile file;
    ASSERT_EQ(file.Open(GetParam()), 0);
    DwgSections sections;
    DwgReport report;
    ASSERT_TRUE(ReadContainer(file.View(), sections, report)) << report.error();
    const SectionForm form = {sections.version, sections.maintenance,
                              TextCodec(CodePageOfNumber(sections.codePage).windows)};
    const HeaderContents header = ReadHeader(sections.BytesOf(kHeaderSection), form, report);
    EXPECT_NE(header.roots.namedObjects, 0u);
    EXPECT_NE(header.roots.modelSpace, 0u);
    for (const DwgClass& row : ReadClasses(sections.BytesOf(kClassesSection), form, report))
        EXPECT_GE(row.number, 500);
    EXPECT_GT(ReadObjectMap(sections.BytesOf(kHandlesSection), report).size(), 100u);
    EXPECT_EQ(report.mendedCount(), 0u) << report.lines()[0];
}

INSTANTIATE_TEST_SUITE_P(Dwg, SharedDwg, testing::ValuesIn(DwgFiles::All()),
                         [](const auto& row) { return DwgFiles::NameOf(row.param); });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SharedDwg);

}   // namespace
