// Entities that keep their groups as they are, moved and flattened by what those groups mean.
#include "db/AcDbDatabase.h"
#include "db/AcDbLight.h"
#include "db/AcDbMLeader.h"
#include "db/AcDbSubDMesh.h"
#include "db/core/DbCore.h"
#include "Groups.h"
#include <gtest/gtest.h>
#include <memory>

using namespace KxPlat;

namespace {

AcGeMatrix3d Flat()
{
    AcGeMatrix3d map;
    map.entry[2][2] = 0;
    return map;
}

std::string Mapped(AcDbEntity& entity, const std::string& groups, const AcGeMatrix3d& map, Acad::ErrorStatus wanted)
{
    AcDbDatabase db;
    Groups::Put(entity, CoreOf(db), groups);
    EXPECT_EQ(entity.transformBy(map), wanted);
    const std::string all = Groups::Canonical(entity, AcDb::kDHL_1032);
    return all.substr(all.rfind("100 "));   // without what all entities have
}

}   // namespace

TEST(GroupMap, PointsMoveAndVectorsDoNot)
{
    struct Row {
        const char* what;
        std::unique_ptr<AcDbEntity> entity;
        const char* before;
        const char* after;
    };
    Row rows[] = {
        {"mesh", std::make_unique<AcDbSubDMesh>(), "100 AcDbSubDMesh|71 2|92 1|10 1|20 2|30 3|93 4",
         "100 AcDbSubDMesh|71 2|92 1|10 11|20 22|30 33|93 4"},
        {"light", std::make_unique<AcDbLight>(), "100 AcDbLight|70 1|10 1|20 2|30 3|11 0|21 0|31 0",
         "100 AcDbLight|70 1|10 11|20 22|30 33|11 10|21 20|31 30"},
        // The normal (11) and the direction (13) of the text stay, its place (12) moves; in a leader 11 is the
        // direction of the landing, in a line of it a break. Behind the context 10 is a scale.
        {"multi-leader", std::make_unique<AcDbMLeader>(),
         "100 AcDbMLeader|300 CONTEXT_DATA{|10 1|20 1|30 1|304 text|11 0|21 0|31 1|12 2|22 2|32 2|13 1|23 0|33 0|302 "
         "LEADER{|10 3|20 3|30 3|11 1|21 0|31 0|304 LEADER_LINE{|10 4|20 4|30 4|11 5|21 5|31 5|305 }|303 }|301 }|10 "
         "1|20 1|30 1",
         "100 AcDbMLeader|300 CONTEXT_DATA{|10 11|20 21|30 31|304 text|11 0|21 0|31 1|12 12|22 22|32 32|13 1|23 0|33 "
         "0|302 LEADER{|10 13|20 23|30 33|11 1|21 0|31 0|304 LEADER_LINE{|10 14|20 24|30 34|11 15|21 25|31 35|305 "
         "}|303 "
         "}|301 }|10 1|20 1|30 1"},
    };
    const AcGeMatrix3d move = AcGeMatrix3d::translation(AcGeVector3d(10, 20, 30));
    for (Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(Mapped(*row.entity, row.before, move, Acad::eOk), row.after);
    }
}

TEST(GroupMap, FlatteningKeepsNormalsAndRefusesUprightTexts)
{
    AcDbMLeader lying, upright;
    EXPECT_EQ(Mapped(lying,
                     "100 AcDbMLeader|300 CONTEXT_DATA{|10 1|20 1|30 7|11 0|21 0|31 1|13 0.6|23 0.8|33 0|40 2|301 }",
                     Flat(), Acad::eOk),
              "100 AcDbMLeader|300 CONTEXT_DATA{|10 1|20 1|30 0|11 0|21 0|31 1|13 0.6|23 0.8|33 0|40 2|301 }");
    const std::string groups = "100 AcDbMLeader|300 CONTEXT_DATA{|10 1|20 1|30 7|11 0|21 -1|31 0|13 0|23 0|33 1|301 }";
    EXPECT_EQ(Mapped(upright, groups, Flat(), Acad::eDegenerateGeometry), groups);
}

TEST(GroupMap, ExtentsHoldAllPoints)
{
    AcDbDatabase db;
    AcDbSubDMesh mesh;
    AcDbExtents extents;
    EXPECT_EQ(mesh.getGeomExtents(extents), Acad::eInvalidExtents);
    Groups::Put(mesh, CoreOf(db), "100 AcDbSubDMesh|92 2|10 1|20 5|30 3|10 4|20 2|30 -1");
    ASSERT_EQ(mesh.getGeomExtents(extents), Acad::eOk);
    EXPECT_EQ(extents.minPoint(), AcGePoint3d(1, 2, -1));
    EXPECT_EQ(extents.maxPoint(), AcGePoint3d(4, 5, 3));
}
