// Blocks of dimensions that were drawn anew: kept for an undo and for copies, but not saved.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDimension.h"
#include "db/AcDbIdMapping.h"
#include "db/core/Audit.h"
#include "db/core/DbCore.h"
#include "support/TempFolder.h"
#include <gtest/gtest.h>

using namespace KxPlat;

namespace {

std::vector<std::wstring> PicturesIn(AcDbDatabase& db)
{
    std::vector<std::wstring> names;
    for (const AcDbStub* stub : CoreOf(db).Table(TableKind::Block)->records())
        if (const auto& block = static_cast<const AcDbBlockTableRecord&>(*stub->object);
            !stub->erased && block.nameText().Left(2) == L"*D")
            names.push_back(block.nameText().GetString());
    return names;
}

class DimensionBlocks : public testing::Test {
protected:
    void SetUp() override
    {
        auto* dimension = new AcDbAlignedDimension(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(5, 3, 0));
        AcDbBlockTableRecord* space = nullptr;
        ASSERT_EQ(acdbOpenObject(space, AcDbObjectId(CoreOf(db).modelSpace), AcDb::kForWrite), Acad::eOk);
        ASSERT_EQ(space->appendAcDbEntity(id, dimension), Acad::eOk);
        space->close();
        dimension->close();
    }
    template <class Change>
    void Edit(Change&& change)
    {
        AcDbAlignedDimension* dimension = nullptr;
        ASSERT_EQ(acdbOpenObject(dimension, id, AcDb::kForWrite), Acad::eOk);
        change(*dimension);
        dimension->close();
    }
    // Blocks of the file that a save leaves, which has no faults.
    size_t Saved()
    {
        const std::wstring path = folder.DrivePath(L"a.dxf");
        EXPECT_EQ(db.saveAs(path.c_str()), Acad::eOk);
        AcDbDatabase back(false, true);
        EXPECT_EQ(back.readDwgFile(path.c_str()), Acad::eOk);
        Audit audit(CoreOf(back), false);
        audit.All();
        EXPECT_EQ(audit.Findings().size(), 0u);
        return PicturesIn(back).size();
    }

    KxTest::TempFolder folder;
    AcDbDatabase db;
    AcDbObjectId id;
};

}   // namespace

TEST_F(DimensionBlocks, OnlyTheLastOneIsSaved)
{
    Edit([](AcDbAlignedDimension& d) { d.setXLine2Point(AcGePoint3d(20, 0, 0)); });
    Edit([](AcDbAlignedDimension& d) { d.transformBy(AcGeMatrix3d::translation(AcGeVector3d(5, 5, 0))); });
    EXPECT_EQ(PicturesIn(db).size(), 3u);
    EXPECT_EQ(Saved(), 1u);
    EXPECT_EQ(PicturesIn(db).size(), 3u);   // all are there as before
    EXPECT_EQ(Saved(), 1u);
}

TEST_F(DimensionBlocks, ACopyKeepsTheOneThatItShares)
{
    AcDbIdMapping map;
    AcDbObjectIdArray ids;
    ids.append(id);
    AcDbObjectId owner = CoreOf(db).modelSpace;
    ASSERT_EQ(db.deepCloneObjects(ids, owner, map), Acad::eOk);
    Edit([](AcDbAlignedDimension& d) { d.setXLine2Point(AcGePoint3d(20, 0, 0)); });
    EXPECT_EQ(Saved(), 2u);
}

TEST_F(DimensionBlocks, GoesWithItsDimension)
{
    Edit([](AcDbAlignedDimension& d) { EXPECT_EQ(d.erase(), Acad::eOk); });
    EXPECT_EQ(Saved(), 0u);
    AcDbObject* back = nullptr;
    ASSERT_EQ(acdbOpenObject(back, id, AcDb::kForWrite, true), Acad::eOk);
    ASSERT_EQ(back->erase(false), Acad::eOk);
    back->close();
    EXPECT_EQ(Saved(), 1u);
}
