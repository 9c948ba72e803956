// Single objects, put together bit by bit as files have them, and layouts as such.
#include "db/AcDbDatabase.h"
#include "db/AcDbLine.h"
#include "dwg/Angles.h"
#include "dwg/BitWriter.h"
#include "dwg/Checksums.h"
#include "dwg/DwgTexts.h"
#include "dwg/Layout.h"
#include "dwg/LayoutProgram.h"
#include "dwg/ObjectsIn.h"
#include "dwg/ObjectTypes.h"
#include "ObjectGroups.h"
#include <gtest/gtest.h>

using namespace KxPlat;
using namespace DwgTests;

namespace {

constexpr uint64_t kHandle = 0x30, kLayer = 0x10;
constexpr int kLine = 19, kForeign = 500;

// What an AC1015 entity has before its own values: no extended data, no graphics, in the model space, red, all else by
// layer.
void PutHead(BitWriter& out, int type, size_t& sizePlace)
{
    out.BS(type);
    sizePlace = out.Position();
    out.RL(0);
    out.H(0, kHandle);
    out.BS(0);
    out.B(false);
    out.BB(2);
    out.BL(0);
    out.B(true);
    out.BS(1);
    out.BD(1);
    out.BB(0);
    out.BB(0);
    out.BS(0);
    out.RC(29);
}

std::string Frame(BitWriter& data, size_t sizePlace)
{
    const size_t bits = data.Position();
    data.H(3, 0);
    data.H(5, kLayer);
    data.FillByte(true);
    data.PatchRL(sizePlace, uint32_t(bits));
    BitWriter frame;
    frame.MS(uint32_t(data.bytes().size()));
    frame.Bytes(data.bytes());
    frame.RS(Crc16(frame.bytes()));
    return frame.Take();
}

std::string LineFrame()
{
    BitWriter data;
    size_t sizePlace = 0;
    PutHead(data, kLine, sizePlace);
    data.B(true);   // both ends lie in the plane
    data.RD(1.5);   // x of the start
    data.DD(4, 1.5);
    data.RD(-2);    // y of the start
    data.BB(0);     // y of the end is the same
    data.B(true);   // no thickness
    data.B(true);   // upright
    return Frame(data, sizePlace);
}

struct Drawing {
    AcDbDatabase database{false, true};
    DwgReport report;
    ObjectsRead read;

    explicit Drawing(const std::string& objects, const std::vector<DwgClass>& classes = {})
    {
        const std::vector<ObjectPlace> places = {{kHandle, 0}};
        ObjectsToRead input;
        input.version = AcDb::kDHL_1015;
        input.classes = &classes;
        input.places = &places;
        input.objects = objects;
        CoreOf(database).form.version = input.version;
        read = ReadObjects(database, input, report);
    }
    AcDbObject* object()
    {
        const AcDbStub* stub = CoreOf(database).handles.Find(kHandle);
        return stub == nullptr ? nullptr : stub->object;
    }
};

}   // namespace

TEST(DwgObjects, ALineHasTheseBits)
{
    Drawing drawing(LineFrame());
    const AcDbLine* line = AcDbLine::cast(drawing.object());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->startPoint(), AcGePoint3d(1.5, -2, 0));
    EXPECT_EQ(line->endPoint(), AcGePoint3d(4, -2, 0));
    EXPECT_EQ(line->colorIndex(), 1);
    EXPECT_EQ(line->lineWeight(), AcDb::kLnWtByLayer);
    EXPECT_EQ(GroupsOf(*line).count(39), 0u);
    EXPECT_EQ(drawing.report.mendedCount(), 0u);
}

TEST(DwgObjects, ABitTooManyKeepsTheWholeByItsBits)
{
    BitWriter data;
    size_t sizePlace = 0;
    PutHead(data, kLine, sizePlace);
    data.B(true);
    for (int i = 0; i < 4; ++i)
        data.RD(1);
    data.BB(0);
    data.B(true);
    Drawing drawing(Frame(data, sizePlace));
    ASSERT_NE(drawing.object(), nullptr);
    EXPECT_EQ(AcDbLine::cast(drawing.object()), nullptr);
    EXPECT_TRUE(ObjectAccess::IsOnlyBits(*drawing.object()));
    EXPECT_EQ(drawing.read.unused, 1u);
    EXPECT_EQ(KindOf(*drawing.object()), "LINE");
}

TEST(DwgObjects, AnUnknownClassIsKeptByItsBits)
{
    DwgClass foreign;
    foreign.number = kForeign;
    foreign.dxfName = L"TCH_WALL";
    foreign.className = L"TDbWall";
    foreign.isEntity = true;
    BitWriter data;
    size_t sizePlace = 0;
    PutHead(data, kForeign, sizePlace);
    data.Bits(0x155, 11);
    Drawing drawing(Frame(data, sizePlace), {foreign});
    ASSERT_NE(drawing.object(), nullptr);
    EXPECT_EQ(KindOf(*drawing.object()), "TCH_WALL");
    const Annex* annex = ObjectAccess::Find(*drawing.object());
    ASSERT_TRUE(annex != nullptr && annex->bits != nullptr);
    EXPECT_EQ(annex->bits->dataBits, 11u);
    // 001 0101 0101 and five bits that fill the byte.
    EXPECT_EQ(annex->bits->data, std::string("\x2A\xA0"));
    EXPECT_EQ(drawing.read.opaque, 1u);
    EXPECT_EQ(GroupsOf(*drawing.object())[62][0].text, "1");
}

TEST(DwgObjects, DamagedFramesCostThemselvesOnly)
{
    const std::string whole = LineFrame();
    for (size_t size = 0; size < whole.size(); ++size) {
        Drawing cut(whole.substr(0, size));
        EXPECT_EQ(cut.report.lostCount(), 1u) << size;
        EXPECT_EQ(cut.object(), nullptr) << size;
    }
    // Whatever one byte says, the object is there by its values or its bits, or it is lost and said to be.
    for (size_t place = 0; place < whole.size(); ++place)
        for (int byte : {0x00, 0x80, 0xFF}) {
            std::string changed = whole;
            changed[place] = char(byte);
            Drawing damaged(changed);
            const bool isSaid = damaged.report.mendedCount() > 0;
            EXPECT_TRUE(isSaid || changed == whole) << place;
        }
}

TEST(DwgObjects, AllLayoutsCanBeMadeReady)
{
    struct Row {
        int from, to;
    };
    // Types 9, 58, 59, 70, 71, 75, 76 and 81 have no layout.
    static const Row types[] = {{1, 8},   {10, 50}, {52, 52}, {53, 53}, {56, 57},
                                {60, 69}, {72, 74}, {77, 80}, {82, 82}, {498, 499}};
    std::vector<const Layout*> layouts;
    for (const Row& row : types)
        for (int type = row.from; type <= row.to; ++type) {
            layouts.push_back(LayoutOfType(type));
            ASSERT_NE(layouts.back(), nullptr) << type;
        }
    for (const char* name :
         {"IMAGE", "WIPEOUT", "ACAD_TABLE", "SORTENTSTABLE", "DICTIONARYVAR", "SCALE", "IMAGEDEF", "DBCOLOR",
          "SPATIAL_FILTER", "LAYER_INDEX", "PDFUNDERLAY", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"}) {
        layouts.push_back(LayoutOfName(name));
        ASSERT_NE(layouts.back(), nullptr) << name;
    }
    for (const Layout* layout : layouts)
        for (DwgVersion version : {kR13, kR14, kR2000, kR2004, kR2007, kR2010, kR2013, kR2018}) {
            const ClassSchema* schema = SchemaOfClass(ClassOfLayout(*layout));
            const auto program = CompileLayout(*layout, schema, version);
            for (const Step& step : program->steps) {
                EXPECT_TRUE(step.kind != Step::Special || step.special != nullptr) << layout->dxfName;
                EXPECT_LT(step.variable, LayoutProgram::kMostVariables) << layout->dxfName;
            }
        }
}

TEST(DwgObjects, ControlCharactersHaveNamesInMemory)
{
    struct Row {
        const wchar_t* inFile;
        const wchar_t* inMemory;
    };
    static const Row rows[] = {
        {L"Wand\n24", L"Wand^J24"}, {L"a^b", L"a^ b"}, {L"\\S1^2;", L"\\S1^ 2;"}, {L"墙\t1", L"墙^I1"}, {L"", L""}};
    for (const Row& row : rows) {
        EXPECT_EQ(WithCarets(row.inFile), row.inMemory);
        EXPECT_EQ(WithoutCarets(row.inMemory), row.inFile);
    }
    EXPECT_EQ(WithoutCarets(L"^"), L"^");
    EXPECT_EQ(BytesOf(L"Höhe^J2", TextCodec(1252)), "H\xF6he\n2");
}

TEST(DwgObjects, DegreesSurviveRadians)
{
    EXPECT_EQ(DegreesOf(1.5707963267948966), 90.0);
    EXPECT_EQ(RadiansOf(180.0), 3.141592653589793);
    // Every angle that came from a file goes back to one that gives it again.
    for (double radians = 0.001; radians < 7; radians += 0.00137) {
        const double degrees = DegreesOf(radians);
        EXPECT_EQ(DegreesOf(RadiansOf(degrees)), degrees);
    }
}
