// What the shared DWG drawings hold, against facts that another program found in them.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbGroup.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/core/DbCore.h"
#include "db/core/DefaultDrawing.h"
#include "db/core/ObjectAccess.h"
#include "dwg/DwgReader.h"
#include "DwgFiles.h"
#include "dxf/DxfNames.h"
#include "platform/dxf/Json.h"
#include "win/CodePage.h"
#include <map>

using namespace KxPlat;

namespace {

using Names = std::vector<std::string>;
using Counts = std::map<std::string, int>;

std::string Utf8(const CString& text)
{
    return ToUtf8(std::wstring_view(text, size_t(text.GetLength())));
}

Names Sorted(Names names)
{
    std::sort(names.begin(), names.end());
    return names;
}

class DwgFacts : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        static const Json all = [] {
            int error = 0;
            return Json::Parse(ReadWholeFile(std::string(KX_DRAWINGS) + "/FACTS.json", error));
        }();
        m_facts = all[DwgFiles::NameOf(GetParam()) + ".dwg"]["expected"];
        ASSERT_TRUE(m_facts.isObject());
        MappedFile file;
        ASSERT_EQ(file.Open(GetParam()), 0);
        ASSERT_TRUE(ReadDwg(m_database, file.View(), m_report, &m_read)) << m_report.error();
        CompleteDrawing(core());
    }
    DbCore& core() { return CoreOf(m_database); }
    template <class Test>
    Names LayersThat(Test&& test)
    {
        Names names;
        for (AcDbStub* stub : core().Table(TableKind::Layer)->records())
            if (const auto& layer = static_cast<const AcDbLayerTableRecord&>(*stub->object); test(layer))
                names.push_back(Utf8(layer.nameText()));
        return names;
    }

    Json m_facts;
    AcDbDatabase m_database{false, true};
    DwgReport m_report;
    ObjectsRead m_read;
};

TEST_P(DwgFacts, EveryObjectIsReadToItsLastBit)
{
    EXPECT_EQ(m_report.mendedCount(), 0u) << m_report.lines()[0];
    EXPECT_EQ(m_read.unused, 0u);
    EXPECT_GT(m_read.count, 400u);
}

TEST_P(DwgFacts, LayersAndTheirStates)
{
    const Json& layers = m_facts["layers"];
    EXPECT_EQ(Sorted(LayersThat([](auto&) { return true; })), Sorted(layers["names"].texts()));
    EXPECT_EQ(LayersThat([](auto& layer) { return layer.isOff(); }), layers["off"].texts());
    EXPECT_EQ(LayersThat([](auto& layer) { return layer.isFrozen(); }), layers["frozen"].texts());
    EXPECT_EQ(LayersThat([](auto& layer) { return layer.isLocked(); }), layers["locked"].texts());
}

TEST_P(DwgFacts, Blocks)
{
    Names named;
    int count = 0;
    for (const AcDbStub* stub : core().Table(TableKind::Block)->records()) {
        const auto& block = static_cast<const AcDbBlockTableRecord&>(*stub->object);
        ++count;
        if (!block.isAnonymous() && !block.isModelSpace() && !block.isPaperSpace())
            named.push_back(Utf8(block.nameText()));
    }
    EXPECT_EQ(count, int(m_facts["blocks"]["count"].number()));
    EXPECT_EQ(Sorted(named), Sorted(m_facts["blocks"]["named"].texts()));
}

// The other program has a name for each kind of dimension and polyline, and none for some classes.
std::string ClassOf(const std::string& kind)
{
    for (const char* family : {"DIMENSION", "POLYLINE"})
        if (kind.starts_with(family))
            return family;
    return kind == "PROXY_ENTITY" ? "ACAD_PROXY_ENTITY" : kind;
}

TEST_P(DwgFacts, EntitiesOfTheModelSpace)
{
    Counts found, expected;
    const AcDbStub* space = core().modelSpace;
    ASSERT_NE(space, nullptr);
    for (const AcDbStub* stub : static_cast<const AcDbBlockTableRecord&>(*space->object).entities())
        ++found[DxfNameOf(*stub->object)];
    for (const auto& [kind, count] : m_facts["modelspace"]["by_type"].members())
        expected[ClassOf(kind)] += int(count.number());
    int unnamed = 0;
    for (const auto& [kind, count] : found)
        if (expected.count(kind) == 0)
            unnamed += count;
    EXPECT_EQ(unnamed, expected["UNKNOWN_ENT"]);
    expected.erase("UNKNOWN_ENT");
    for (const auto& [kind, count] : expected)
        EXPECT_EQ(found[kind], count) << kind;
}

TEST_P(DwgFacts, Groups)
{
    std::vector<int> found, expected;
    core().handles.ForEach([&](const AcDbStub& stub) {
        if (const AcDbGroup* group = AcDbGroup::cast(stub.object))
            found.push_back(int(group->numEntities()));
    });
    for (const Json& group : m_facts["groups"].items())
        expected.push_back(int(group["members"].number()));
    EXPECT_EQ(found, expected);
}

TEST_P(DwgFacts, ExtendedDataAndDictionaries)
{
    int withData = 0, dictionaries = 0;
    core().handles.ForEach([&](const AcDbStub& stub) {
        const Annex* annex = stub.object == nullptr ? nullptr : ObjectAccess::Find(*stub.object);
        if (annex == nullptr)
            return;
        withData += !annex->xData.empty();
        dictionaries += !annex->extensionDictionary.isNull();
    });
    EXPECT_EQ(withData, int(m_facts["objects_with_xdata"].number()));
    EXPECT_EQ(dictionaries, int(m_facts["extension_dictionaries"].number()));
}

// What is computed anew when the drawing is saved, belongs to the session of the program that wrote the twin, or is
// spelled otherwise in text.
bool IsOwnOfTwin(const std::string& name)
{
    for (const char* own :
         {"$TDUPDATE", "$TDUUPDATE", "$TDUCREATE", "$TDINDWG", "$TDUSRTIMER", "$TDCREATE", "$HANDSEED", "$ACADMAINTVER",
          "$LASTSAVEDBY", "$VERSIONGUID", "$DWGCODEPAGE", "$REQUIREDVERSIONS", "$EXTMIN", "$EXTMAX", "$PEXTMIN",
          "$PEXTMAX", "$ATTDIA", "$XCLIPFRAME", "$SAVEIMAGES"})
        if (name == own)
            return true;
    return false;
}

TEST_P(DwgFacts, HeaderVariablesAreThoseOfTheTwin)
{
    const std::string twin = GetParam().substr(0, GetParam().size() - 3) + "dxf";
    if (!std::filesystem::exists(twin))
        return;
    AcDbDatabase other(false, true);
    ASSERT_EQ(other.readDwgFile(FromUtf8(twin).c_str()), Acad::eOk);
    size_t compared = 0;
    for (const HeaderVar& expected : CoreOf(other).header.All()) {
        if (IsOwnOfTwin(expected.name))
            continue;
        SCOPED_TRACE(expected.name);
        const HeaderVar* found = core().header.Find(expected.name);
        ASSERT_NE(found, nullptr);
        ASSERT_EQ(found->groups.size(), expected.groups.size());
        ++compared;
        for (size_t i = 0; i < found->groups.size(); ++i) {
            const GroupValue& a = found->groups[i];
            const GroupValue& b = expected.groups[i];
            EXPECT_EQ(a.code, b.code);
            EXPECT_EQ(a.value.index(), b.value.index());
            EXPECT_NEAR(a.real(), b.real(), 1e-9 * (1 + std::abs(b.real())));
            EXPECT_EQ(Utf8(a.text()), Utf8(b.text()));
        }
    }
    EXPECT_GT(compared, 140u);
}

INSTANTIATE_TEST_SUITE_P(Dwg, DwgFacts, testing::ValuesIn(DwgFiles::All()),
                         [](const auto& row) { return DwgFiles::NameOf(row.param); });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DwgFacts);

}   // namespace
