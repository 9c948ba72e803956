// What the drawings hold, against facts that other programs found in them.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbGroup.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/core/DbCore.h"
#include "db/core/FileFormats.h"
#include "db/core/ObjectAccess.h"
#include "db/core/TextCodec.h"
#include "dxf/DxfNames.h"
#include "Json.h"
#include "TagText.h"
#include "win/CharTables.h"
#include "win/CodePage.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

struct Drawing {
    std::string path;
    Json facts;
};

std::vector<Drawing> Drawings()
{
    std::vector<Drawing> drawings;
    for (const std::string folder : {KX_DRAWINGS, KX_TEST_DATA}) {
        const Json all = Json::Parse(TagText::ReadFile(folder + "/FACTS.json"));
        for (const auto& [file, facts] : all.members())
            if (file == "floorplan.dxf")
                drawings.push_back({KX_SAMPLES "/floorplan.dxf", facts});
            else if (file.ends_with(".dxf"))
                drawings.push_back({folder + "/" + file, facts["expected"].isObject() ? facts["expected"] : facts});
        if (all.isNull())
            drawings.push_back({folder + "/absent", {}});
    }
    return drawings;
}

void PrintTo(const Drawing& drawing, std::ostream* stream)
{
    *stream << drawing.path;
}

std::string NameOf(const testing::TestParamInfo<Drawing>& info)
{
    std::string name = std::filesystem::path(info.param.path).stem();
    std::replace_if(
        name.begin(), name.end(), [](char c) { return isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return name + "_" + std::to_string(info.index);
}

class Facts : public testing::TestWithParam<Drawing> {
protected:
    void SetUp() override
    {
        if (!std::filesystem::exists(GetParam().path))
            GTEST_SKIP() << GetParam().path << ": there are no drawings here";
        ASSERT_EQ(m_database.readDwgFile(FromUtf8(GetParam().path).c_str()), Acad::eOk)
            << ToUtf8(LastReadReport().error);
    }
    const Json& facts() const { return GetParam().facts; }
    DbCore& core() { return CoreOf(m_database); }
    // Records that stand in the file; the database has some of its own besides.
    template <class Record>
    std::vector<Record*> RecordsOf(TableKind kind)
    {
        std::vector<Record*> records;
        for (AcDbStub* stub : core().Table(kind)->records())
            if (stub->handle < core().form.impliedFrom || stub->handle >= core().form.impliedTo)
                records.push_back(static_cast<Record*>(stub->object));
        return records;
    }
    template <class Test>
    std::vector<std::string> LayersThat(Test&& test)
    {
        std::vector<std::string> names;
        for (const AcDbLayerTableRecord* layer : RecordsOf<AcDbLayerTableRecord>(TableKind::Layer))
            if (test(*layer))
                names.push_back(ToUtf8(static_cast<const wchar_t*>(layer->nameText())));
        return names;
    }

    AcDbDatabase m_database{false, true};
};

// The facts show names as the files spell them.
std::vector<std::string> Meant(const Json& names)
{
    std::vector<std::string> result;
    for (const std::string& name : names.texts())
        result.push_back(ToUtf8(static_cast<const wchar_t*>(TextCodec(AcDb::kDHL_1032, "").Decode(name))));
    return result;
}

using Counts = std::map<std::string, int>;

Counts CountsOf(const Json& byType)
{
    Counts counts;
    for (const auto& [type, count] : byType.members())
        counts[type] = int(count.number());
    return counts;
}

Counts CountsOf(const AcDbBlockTableRecord& block)
{
    Counts counts;
    for (const AcDbStub* stub : block.entities())
        ++counts[DxfNameOf(*stub->object)];
    return counts;
}

TEST_P(Facts, LayersAndTheirStates)
{
    const Json& layers = facts()["layers"];
    EXPECT_EQ(LayersThat([](auto&) { return true; }), Meant(layers["names"]));
    EXPECT_EQ(LayersThat([](auto& layer) { return layer.isOff(); }), Meant(layers["off"]));
    EXPECT_EQ(LayersThat([](auto& layer) { return layer.isFrozen(); }), Meant(layers["frozen"]));
    EXPECT_EQ(LayersThat([](auto& layer) { return layer.isLocked(); }), Meant(layers["locked"]));
    if (!layers["no_plot"].isNull()) {
        EXPECT_EQ(LayersThat([](auto& layer) { return !layer.isPlottable(); }), Meant(layers["no_plot"]));
    }
}

TEST_P(Facts, EntitiesOfTheModelSpace)
{
    const AcDbStub* space = core().modelSpace;
    EXPECT_EQ(CountsOf(static_cast<const AcDbBlockTableRecord&>(*space->object)),
              CountsOf(facts()["modelspace"]["by_type"]));
}

TEST_P(Facts, Blocks)
{
    int count = 0;
    std::vector<std::string> named;
    for (const AcDbStub* stub : core().Table(TableKind::Block)->records()) {
        const AcDbBlockTableRecord* block = static_cast<const AcDbBlockTableRecord*>(stub->object);
        if (block->beginStub() == nullptr || ObjectAccess::Shape(*block->beginStub()->object) == 0)
            continue;
        ++count;
        if (!block->isAnonymous() && !block->isModelSpace() && !block->isPaperSpace())
            named.push_back(ToUtf8(static_cast<const wchar_t*>(block->nameText())));
    }
    EXPECT_EQ(count, int(facts()["blocks"]["count"].number()));
    std::sort(named.begin(), named.end());
    std::vector<std::string> expected = Meant(facts()["blocks"]["named"]);
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(named, expected);
}

TEST_P(Facts, Groups)
{
    std::map<std::string, int> found, expected;
    AcDbDictionary* groups = nullptr;
    if (m_database.getGroupDictionary(groups, AcDb::kForRead) == Acad::eOk) {
        for (const AcDbDictionary::Entry& entry : groups->entries()) {
            const AcDbStub* stub = entry.id;
            if (const AcDbGroup* group = AcDbGroup::cast(stub->object))
                found[ToUtf8(static_cast<const wchar_t*>(entry.name))] = int(group->numEntities());
        }
        groups->close();
    }
    if (facts()["groups"].isNumber()) {
        int groupObjects = 0;
        core().handles.ForEach([&](const AcDbStub& stub) { groupObjects += AcDbGroup::cast(stub.object) != nullptr; });
        EXPECT_EQ(groupObjects, int(facts()["groups"].number()));
        return;
    }
    for (const Json& group : facts()["groups"].items())
        expected[group["name"].text()] = int(group["members"].number());
    EXPECT_EQ(found, expected);
}

TEST_P(Facts, CodePageAndExtendedData)
{
    if (facts()["codepage"].isText()) {
        EXPECT_EQ(ToUtf8(static_cast<const wchar_t*>(core().form.codePage)), facts()["codepage"].text());
    }
    int withData = 0, applications = 0, dictionaries = 0;
    core().handles.ForEach([&](const AcDbStub& stub) {
        const Annex* annex = stub.object == nullptr ? nullptr : ObjectAccess::Find(*stub.object);
        if (annex == nullptr)
            return;
        // The oldest viewports keep their view in extended data, which the other program takes for members.
        const bool isOldView = core().form.version < AcDb::kDHL_1012 && DxfNameOf(*stub.object) == "VIEWPORT";
        withData += !annex->xData.empty() && !isOldView;
        dictionaries += !annex->extensionDictionary.isNull();
        for (const GroupValue& group : annex->xData)
            applications += group.code == 1001;
    });
    EXPECT_EQ(applications, int(facts()["xdata_groups_1001"].number()));
    if (!facts()["objects_with_xdata"].isNull()) {
        EXPECT_EQ(withData, int(facts()["objects_with_xdata"].number()));
        EXPECT_EQ(dictionaries, int(facts()["extension_dictionaries"].number()));
    }
}

INSTANTIATE_TEST_SUITE_P(Drawings, Facts, testing::ValuesIn(Drawings()), NameOf);

}   // namespace
