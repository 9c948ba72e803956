// Drawings that were saved as DWG and as DXF: both readers find the same entities in the same places.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/core/DefaultDrawing.h"
#include "dwg/DwgReader.h"
#include "DwgFiles.h"
#include "dxf/DxfReader.h"
#include "ObjectGroups.h"
#include <set>

using namespace KxPlat;
using namespace DwgTests;

namespace {

constexpr double kDecimals = 1e-9;   // DXF files have fewer digits

// Where the twins differ for reasons of their own: the class, the code, why.
struct Explained {
    const char* kind;
    int code;
};
constexpr Explained kExplained[] = {
    // The standard text style is not named in DXF, and a direction along x is not given.
    {"AcDbText", 7},
    {"AcDbMText", 7},
    {"AcDbAttribute", 7},
    {"AcDbAttributeDefinition", 7},
    {"AcDbMText", 11},
    {"AcDbMText", 21},
    {"AcDbMText", 31},
    // Extents of a paragraph, which only DWG keeps.
    {"AcDbMText", 42},
    {"AcDbMText", 43},
    // Old twins number their viewport twice, in extended data.
    {"AcDbViewport", 68},
};

bool IsExplained(const std::string& kind, int code)
{
    for (const Explained& row : kExplained)
        if (kind == row.kind && code == row.code)
            return true;
    return false;
}

// Values of the entity itself: neither its handle and owner nor what hangs on it.
bool IsGeometry(int code)
{
    return (code >= 1 && code <= 79 && code != 5) || (code >= 110 && code <= 149) || (code >= 170 && code <= 299) ||
           code == 370 || code == 420 || (code >= 450 && code <= 470);
}

// The number of an anonymous block is given anew with each saving.
std::string WithoutNumber(std::string name)
{
    while (name.size() > 2 && name[0] == '*' && name.back() >= '0' && name.back() <= '9')
        name.pop_back();
    return name;
}

std::string WithTwin(const std::string& dwg)
{
    const std::string dxf = dwg.substr(0, dwg.size() - 3) + "dxf";
    return std::filesystem::exists(dxf) ? dxf : std::string();
}

std::vector<std::string> Twins()
{
    std::vector<std::string> paths;
    for (const std::string& path : DwgFiles::All())
        if (!WithTwin(path).empty())
            paths.push_back(path);
    return paths;
}

class DwgTwins : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        MappedFile file;
        ASSERT_EQ(file.Open(GetParam()), 0);
        ASSERT_TRUE(ReadDwg(m_dwg, file.View(), m_dwgReport)) << m_dwgReport.error();
        ASSERT_TRUE(ReadDxf(m_dxf, WithTwin(GetParam()), m_dxfReport)) << m_dxfReport.error();
        CompleteDrawing(CoreOf(m_dwg));
        CompleteDrawing(CoreOf(m_dxf));
    }
    static std::set<std::string> Names(AcDbDatabase& database, TableKind kind)
    {
        std::set<std::string> names;
        for (const AcDbStub* stub : CoreOf(database).Table(kind)->records()) {
            const std::string name = WithoutNumber(GroupTextSink::Utf8(RecordNameOf(*stub->object)));
            // Old versions have their hatches in such blocks, made anew with each saving.
            if (name != "*X")
                names.insert(name);
        }
        return names;
    }
    static std::vector<std::string> Keys(AcDbDatabase& database, const wchar_t* dictionary)
    {
        std::vector<std::string> keys;
        AcDbDictionary* root = AcDbDictionary::cast(CoreOf(database).namedObjects->object);
        AcDbObjectId id;
        if (root->getAt(dictionary, id) != Acad::eOk)
            return keys;
        const AcDbObject& found = *static_cast<AcDbStub*>(id)->object;
        const GroupTexts groups = GroupsOf(found);
        const auto place = groups.find(3);
        if (place != groups.end())
            for (const GroupText& key : place->second)
                keys.push_back(key.text);
        std::sort(keys.begin(), keys.end());
        return keys;
    }

    AcDbDatabase m_dwg{false, true}, m_dxf{false, true};
    DwgReport m_dwgReport;
    DxfReport m_dxfReport;
};

TEST_P(DwgTwins, LayersBlocksAndGroups)
{
    for (TableKind kind : {TableKind::Layer, TableKind::Linetype, TableKind::TextStyle, TableKind::DimStyle})
        EXPECT_EQ(Names(m_dwg, kind), Names(m_dxf, kind));
    EXPECT_EQ(Keys(m_dwg, L"ACAD_GROUP"), Keys(m_dxf, L"ACAD_GROUP"));
    // The R14 twin calls its model space by another name.
    if (CoreOf(m_dwg).form.version != AcDb::kDHL_1014) {
        EXPECT_EQ(Names(m_dwg, TableKind::Block), Names(m_dxf, TableKind::Block));
    }
}

TEST_P(DwgTwins, EntityByEntity)
{
    int compared = 0;
    CoreOf(m_dwg).handles.ForEach([&](const AcDbStub& stub) {
        const AcDbStub* twin = CoreOf(m_dxf).handles.Find(stub.handle);
        if (stub.object == nullptr || !stub.object->isKindOf(AcDbEntity::desc()) || twin == nullptr ||
            twin->object == nullptr || ObjectAccess::IsOnlyBits(*stub.object))
            return;
        const std::string kind = KindOf(*stub.object);
        // Saved for an old version some kinds become others.
        if (kind != KindOf(*twin->object))
            return;
        ++compared;
        GroupTexts ours = GroupsOf(*stub.object), theirs = GroupsOf(*twin->object);
        for (GroupTexts* groups : {&ours, &theirs})
            for (int name : {2, 3})
                for (GroupText& text : (*groups)[name])
                    text.text = WithoutNumber(text.text);
        std::set<int> codes;
        for (const GroupTexts* groups : {&ours, &theirs})
            for (const auto& row : *groups)
                if (IsGeometry(row.first) && !IsExplained(kind, row.first))
                    codes.insert(row.first);
        // A spline through points is worked out by each program in its own way.
        const bool isFit = kind == "AcDbSpline" && ours.count(11) != 0;
        const bool isSpace = kind == "AcDbBlockBegin" && CoreOf(m_dwg).form.version == AcDb::kDHL_1014;
        for (int code : codes) {
            const double tolerance = isFit ? 1e-3 : kDecimals;
            const std::string difference = DifferenceAt(ours, theirs, code, tolerance);
            EXPECT_TRUE(difference.empty() || isSpace)
                << kind << " " << std::hex << stub.handle << std::dec << " group " << code << ": " << difference;
        }
    });
    EXPECT_GT(compared, 250);
}

INSTANTIATE_TEST_SUITE_P(Shared, DwgTwins, testing::ValuesIn(Twins()),
                         [](const auto& info) { return DwgFiles::NameOf(info.param); });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DwgTwins);

}   // namespace
