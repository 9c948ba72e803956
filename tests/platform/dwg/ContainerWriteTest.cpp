// Files put together and taken apart again.
#include "db/AcDbDatabase.h"
#include "db/core/DbCore.h"
#include "dwg/ByteWalk.h"
#include "dwg/ClassTable.h"
#include "dwg/Container.h"
#include "dwg/ContainerOut.h"
#include "dwg/HeaderSection.h"
#include "dwg/ObjectMap.h"
#include "dwg/PageCoding.h"
#include "dwg/SmallSections.h"
#include "dwg/SummaryInfo.h"
#include "support/TempFolder.h"
#include "win/Files.h"
#include <gtest/gtest.h>
#include <random>

using namespace KxPlat;

namespace {

std::string Noise(size_t size, unsigned letters)
{
    std::mt19937 random(unsigned(size) + letters);
    std::string bytes;
    for (size_t i = 0; i < size; ++i)
        bytes += char(random() % letters);
    return bytes;
}

TEST(PageCoding, EveryPageComesBack)
{
    const std::string far = Noise(40, 256);
    const struct {
        const char* name;
        std::string page;
    } rows[] = {
        {"four bytes", "abcd"},
        {"zeros", std::string(0x7400, '\0')},
        {"noise", Noise(0x7400, 256)},
        {"two letters", Noise(0x7400, 2)},
        {"a run of 18 literals", Noise(18, 256)},
        {"a run of 19 literals", Noise(19, 256)},
        {"a run of 273 literals", Noise(273, 256)},
        {"a run of 274 literals", Noise(274, 256)},
        {"copies at every distance",
         far + Noise(0x3FB8, 256) + far + Noise(0x3FFF, 256) + far + "ab" + far + "abc" + far},
        {"one literal between copies", "abcdefghabcdefgh1abcdefgh2abcdefgh"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::string coded, decoded;
        PageCoder().Encode(row.page, coded);
        EXPECT_TRUE(DecodePage(coded, row.page.size(), decoded));
        EXPECT_TRUE(decoded == row.page);
        // A byte less than the page has is no room for it.
        std::string cut;
        EXPECT_FALSE(DecodePage(coded, row.page.size() - 1, cut));
        EXPECT_LT(cut.size(), row.page.size());
    }
    std::string zeros;
    PageCoder().Encode(std::string(0x7400, '\0'), zeros);
    EXPECT_LT(zeros.size(), 200u);
}

TEST(PageCoding, BytesAreAsTheFormatHasThem)
{
    // A run of four literals, a copy of four from four back with one literal behind it, the end.
    std::string decoded;
    EXPECT_TRUE(DecodePage(std::string_view("\x01"
                                            "abcd"
                                            "\x5D\x00"
                                            "e"
                                            "\x11\x00\x00",
                                            11),
                           100, decoded));
    EXPECT_EQ(decoded, "abcdabcde");
}

TEST(ObjectMap, PagesBeginAnewAndComeBackSorted)
{
    std::vector<ObjectPlace> places;
    for (uint64_t i = 3000; i > 0; --i)
        places.push_back({i * i, 0x61 + (i % 7) * 100000});
    const std::vector<ObjectPlace> reversed(places.rbegin(), places.rend());
    const std::string map = WriteObjectMap(places);
    EXPECT_LE(ByteWalk(map).BigShort(), 2032);
    DwgReport report;
    const std::vector<ObjectPlace> read = ReadObjectMap(map, report);
    EXPECT_EQ(report.mendedCount(), 0u);
    ASSERT_EQ(read.size(), reversed.size());
    for (size_t i = 0; i < read.size(); ++i) {
        EXPECT_EQ(read[i].handle, reversed[i].handle);
        EXPECT_EQ(read[i].address, reversed[i].address);
    }
}

class Containers : public testing::TestWithParam<AcDb::AcDbDwgVersion> {
protected:
    std::string Path() { return m_folder.Path("a.dwg"); }
    KxTest::TempFolder m_folder;
};

TEST_P(Containers, SectionsAndObjectsComeBack)
{
    DwgSections kind, early, late;
    kind.version = GetParam();
    kind.maintenance = kind.programMaintenance = 6;
    kind.program = 0x17;
    kind.codePage = 39;
    const bool isFlat = kind.version == AcDb::kDHL_1015;
    const std::string header = Noise(1500, 256), classes = Noise(20000, 200);
    if (!isFlat)
        early.all.emplace_back(kSummarySection, WriteSummary({}));
    early.all.emplace_back(kPreviewSection, EmptyPreviewBytes());
    const SectionForm form = {kind.version, kind.maintenance, TextCodec(936)};
    SectionOut variables(form), names(form);
    variables.data().Bytes(header);
    names.data().Bytes(classes);
    late.all.emplace_back(kHeaderSection, variables.Close(kHeaderMark));
    late.all.emplace_back(kClassesSection, names.Close(kClassesMark));
    late.all.emplace_back(kTemplateSection, TemplateBytes(kind, true));
    late.all.emplace_back(kAuxHeaderSection, AuxHeaderBytes(kind, {2450000, 5}, {2450001, 6}, 0x1234));

    AtomicFile file;
    ASSERT_EQ(file.Open(Path()), 0);
    const auto writer = NewContainerWriter(file, kind);
    writer->Begin(early);
    std::vector<std::string> frames;
    for (size_t i = 0; i < 900; ++i) {
        frames.push_back(Noise(100 + i, unsigned(2 + i % 250)));
        writer->Add(0x100 + 2 * i, frames.back());
    }
    writer->Finish(late, {1, 2, 3});
    ASSERT_EQ(file.Commit(), 0);

    MappedFile read;
    ASSERT_EQ(read.Open(Path()), 0);
    DwgSections sections;
    DwgReport report;
    ASSERT_TRUE(ReadContainer(read.View(), sections, report)) << report.error();
    const std::vector<ObjectPlace> places = ReadObjectMap(sections.BytesOf(kHandlesSection), report);
    EXPECT_EQ(report.mendedCount(), 0u) << report.lines()[0];
    EXPECT_EQ(sections.codePage, 39);
    for (const DwgSections* part : {&early, &late})
        for (const DwgSection& section : part->all)
            EXPECT_TRUE(sections.BytesOf(section.name()) == section.bytes()) << section.name();
    EXPECT_TRUE(IsMetric(sections.BytesOf(kTemplateSection), kind.version));
    ASSERT_EQ(places.size(), frames.size());
    for (size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(places[i].handle, 0x100 + 2 * i);
        EXPECT_TRUE(sections.BytesOf(kObjectsSection).substr(places[i].address, frames[i].size()) == frames[i]);
    }
}

TEST_P(Containers, TheMapsAreFoundAgainWhenTheHeadIsLost)
{
    DwgSections kind, late;
    kind.version = GetParam();
    const SectionForm form = {kind.version, 6, TextCodec()};
    late.all.emplace_back(kHeaderSection, SectionOut(form).Close(kHeaderMark));
    late.all.emplace_back(kClassesSection, WriteClasses({}, form));
    AtomicFile file;
    ASSERT_EQ(file.Open(Path()), 0);
    const auto writer = NewContainerWriter(file, kind);
    writer->Begin({});
    writer->Add(1, Noise(300, 256));
    writer->Finish(late, {});
    ASSERT_EQ(file.Commit(), 0);
    int error = 0;
    std::string bytes = ReadWholeFile(Path(), error);
    bytes.replace(0x15, 0x61 - 0x15, 0x61 - 0x15, '\xEE');
    bytes.replace(0x80, 0x80, 0x80, '\xEE');
    DwgSections sections;
    DwgReport report;
    ASSERT_TRUE(ReadContainer(bytes, sections, report)) << report.error();
    EXPECT_GT(report.mendedCount(), 0u);
    EXPECT_EQ(ReadObjectMap(sections.BytesOf(kHandlesSection), report).size(), 1u);
}

TEST_P(Containers, HeaderVariablesComeBack)
{
    AcDbDatabase database;
    DbCore& core = CoreOf(database);
    core.header.SetReal("$LTSCALE", 40, 2.5);
    core.header.SetReal("$ANGBASE", 50, 90);
    core.header.SetReal("$TDCREATE", 40, 2450000.25);
    core.header.SetInteger("$USERI1", 70, -7);
    core.header.SetInteger("$CELWEIGHT", 370, 35);
    core.header.SetInteger("$LWDISPLAY", 290, 1);
    core.header.SetInteger("$CECOLOR", 62, 3);
    core.header.SetText("$DIMPOST", 1, L"<>毫米");
    core.header.SetPoint("$INSBASE", AcGePoint3d(1, -2, 3));
    const SectionForm form = {GetParam(), 6, TextCodec(936)};
    DwgRoots roots;
    roots.namedObjects = 0xC;
    roots.tables[size_t(TableKind::Layer)] = 2;
    const std::string section = WriteHeader(core, form, roots, 0x2FFF);
    DwgReport report;
    const HeaderContents read = ReadHeader(section, form, report);
    EXPECT_EQ(report.mendedCount(), 0u) << report.lines()[0];
    EXPECT_EQ(read.roots.namedObjects, 0xCu);
    EXPECT_EQ(read.roots.tables[size_t(TableKind::Layer)], 2u);
    EXPECT_EQ(read.Find("HANDSEED")->handle, 0x2FFFu);
    EXPECT_EQ(read.Find("TREEDEPTH")->integer, 3020);   // what the drawing lacks has its usual value
    EXPECT_EQ(read.Find("EXTMIN")->real[0], 1e20);
    AcDbDatabase again(false, true);
    TakeHeader(CoreOf(again), read);
    const HeaderVars& header = CoreOf(again).header;
    EXPECT_EQ(header.Real("$LTSCALE"), 2.5);
    EXPECT_NEAR(header.Real("$ANGBASE"), 90, 1e-9);
    EXPECT_EQ(header.Real("$TDCREATE"), 2450000.25);
    EXPECT_EQ(header.Integer("$USERI1"), -7);
    EXPECT_EQ(header.Integer("$CELWEIGHT"), 35);
    EXPECT_EQ(header.Integer("$LWDISPLAY"), 1);
    EXPECT_EQ(header.Integer("$CECOLOR"), 3);
    EXPECT_EQ(header.Text("$DIMPOST"), L"<>毫米");
    EXPECT_EQ(header.Point("$INSBASE"), AcGePoint3d(1, -2, 3));
    EXPECT_EQ(header.All()[0].name, "$ACADVER");
}

INSTANTIATE_TEST_SUITE_P(Dwg, Containers, testing::Values(AcDb::kDHL_1015, AcDb::kDHL_1024));

TEST(SummaryInfoTest, TextsComeBackAndOldOnesAreDecoded)
{
    SummaryInfo summary;
    summary.texts[0] = L"标题";
    summary.texts[SummaryInfo::kSavedBy] = L"王";
    summary.times[2] = 2450000;
    summary.properties = {{L"项目", L"A-1"}, {L"", L""}};
    const SummaryInfo read = ReadSummary(WriteSummary(summary), true, TextCodec());
    EXPECT_EQ(read.texts[0], L"标题");
    EXPECT_EQ(read.texts[1], L"");
    EXPECT_EQ(read.texts[SummaryInfo::kSavedBy], L"王");
    EXPECT_EQ(read.times[2], 2450000u);
    EXPECT_EQ(read.properties, summary.properties);
    const SummaryInfo old =
        ReadSummary(std::string_view("\x05\0\xB1\xEA\xCC\xE2\0\x01\0\0", 10), false, TextCodec(936));
    EXPECT_EQ(old.texts[0], L"标题");
}

TEST(Preview, AddressesFollowThePictures)
{
    std::string preview = EmptyPreviewBytes();
    preview[20] = 2;
    std::string rows;
    for (const uint64_t address : {0x1000u, 0x1040u}) {
        rows += char(2);
        AppendLong(rows, address);
        AppendLong(rows, 0x40);
    }
    preview.insert(21, rows);
    const std::string moved = MovedPreview(preview, -0x900);
    EXPECT_EQ(ByteWalk(moved, 22).Long(), 0x700u);
    EXPECT_EQ(ByteWalk(moved, 31).Long(), 0x740u);
    EXPECT_EQ(MovedPreview(moved, 0x900), preview);
}

}   // namespace
