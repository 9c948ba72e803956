// Entities of real drawings: their classes know the groups that they hold, and their boxes are those that the program
// which wrote the drawing found.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbMText.h"
#include "db/AcDbProxyEntity.h"
#include "db/AcDbViewport.h"
#include "db/core/DbCore.h"
#include "db/core/FileFormats.h"
#include "db/core/ObjectAccess.h"
#include "win/CodePage.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace KxPlat;

namespace {

// Groups of any entity that no member stands for: graphics kept for others, transparency, material, shadows.
const std::set<int> kOfAll = {92, 160, 284, 310, 347, 348, 440};
// View styles, lights and the like of a viewport.
const std::set<int> kOfViewports = {61, 63, 141, 142, 282, 292, 348, 361, 421};

// The columns of a text come behind a group 101, with codes that mean something else before it.
bool IsExpected(const AcDbEntity& entity, int code, bool isEmbedded)
{
    if (kOfAll.count(code) != 0 || entity.isKindOf(AcDbProxyEntity::desc()) || isEmbedded)
        return true;
    if (entity.isKindOf(AcDbMText::desc()))
        return code == 46;
    return entity.isKindOf(AcDbViewport::desc()) && (kOfViewports.count(code) != 0 || code == 68);
}

}   // namespace

TEST(EntityFields, NoGroupOfAKnownClassIsLeftOver)
{
    std::map<std::string, std::set<int>> unexpected;
    int drawings = 0;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(KX_DRAWINGS, none)) {
        if (entry.path().extension() != ".dxf")
            continue;
        ++drawings;
        AcDbDatabase database(false, true);
        ASSERT_EQ(database.readDwgFile(FromUtf8(entry.path().string()).c_str()), Acad::eOk) << entry.path();
        CoreOf(database).handles.ForEach([&](AcDbStub& stub) {
            const AcDbEntity* entity = AcDbEntity::cast(stub.object);
            const Annex* annex = entity == nullptr ? nullptr : ObjectAccess::Find(*entity);
            bool isEmbedded = false;
            for (const GroupValue& group : annex == nullptr ? GroupList() : annex->others) {
                isEmbedded = isEmbedded || group.code == 101;
                if (!IsExpected(*entity, group.code, isEmbedded))
                    unexpected[ToUtf8(entity->isA()->name())].insert(group.code);
            }
        });
    }
    if (drawings == 0)
        GTEST_SKIP() << KX_DRAWINGS << ": there are no drawings here";
    for (const auto& [name, codes] : unexpected)
        ADD_FAILURE() << name << ": " << testing::PrintToString(codes);
}

class EntityExtents : public testing::TestWithParam<const char*> {};

// $EXTMIN and $EXTMAX of drawings that were zoomed before they were saved. Splines and texts may differ a little.
TEST_P(EntityExtents, AreThoseOfTheHeader)
{
    const std::string path = std::string(KX_DRAWINGS) + "/" + GetParam();
    if (!std::filesystem::exists(path))
        GTEST_SKIP() << path << ": there is no such drawing here";
    AcDbDatabase database(false, true);
    ASSERT_EQ(database.readDwgFile(FromUtf8(path).c_str()), Acad::eOk);
    const DbCore& core = CoreOf(database);
    AcDbExtents all, one;
    for (const AcDbStub* stub : static_cast<AcDbBlockTableRecord*>(core.modelSpace->object)->entities())
        if (static_cast<const AcDbEntity*>(stub->object)->getGeomExtents(one) == Acad::eOk)
            all.addExt(one);
    const GroupList& least = core.header.Find("$EXTMIN")->groups;
    const GroupList& most = core.header.Find("$EXTMAX")->groups;
    const double within = 1e-4 * (most[0].real() - least[0].real());
    EXPECT_NEAR(all.minPoint().x, least[0].real(), within);
    EXPECT_NEAR(all.minPoint().y, least[1].real(), within);
    EXPECT_NEAR(all.maxPoint().x, most[0].real(), within);
    EXPECT_NEAR(all.maxPoint().y, most[1].real(), within);
}

INSTANTIATE_TEST_SUITE_P(Drawings, EntityExtents,
                         testing::Values("cn_layers_r14_gbk.dxf", "draft_r12_1.4MB.dxf", "frozen_off_r12.dxf",
                                         "groups_r2013.dxf", "letters_r12_ascii.dxf", "letters_r2000_binary.dxf",
                                         "small_r13_dos932.dxf", "wipeout_r2018_binary.dxf"),
                         [](const auto& info) {
                             std::string name = info.param;
                             std::replace_if(
                                 name.begin(), name.end(), [](char c) { return isalnum(c) == 0; }, '_');
                             return name;
                         });
