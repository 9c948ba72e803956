#include "KxArxBase/KxAcDb.h"
#include "db/core/Stub.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/Opened.h"
#include "TestUi.h"
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using namespace KxArxBase;

namespace {

// A new drawing, the toolkit on it, and the promise that nothing stays open.
class KxAcDbTest : public testing::Test {
protected:
    KxAcDbTest() : m_open(KxPlat::OpenObjectCount()), db(&drawing, 0) {}
    void TearDown() override { EXPECT_EQ(KxPlat::OpenObjectCount(), m_open); }

    AcDbObjectId AddLine(const wchar_t* space = nullptr)
    {
        AcDbObjectId id;
        db.AddEntToSpace(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), 1, space, &id);
        return id;
    }
    bool IsInDrawing(AcDbObjectId id)
    {
        const Opened<AcDbObject> object(id, AcDb::kForRead);
        return object.status() == Acad::eOk;
    }

    TestUi ui;
    AcDbDatabase drawing;

private:
    long m_open;

protected:
    CKxAcDb db;
};

AcRxClass* const* Tables()
{
    static AcRxClass* const tables[] = {
        AcDbBlockTable::desc(),    AcDbDimStyleTable::desc(),  AcDbLayerTable::desc(),
        AcDbLinetypeTable::desc(), AcDbTextStyleTable::desc(), AcDbRegAppTable::desc(),
        AcDbUCSTable::desc(),      AcDbViewTable::desc(),      AcDbViewportTable::desc()};
    return tables;
}

AcRxClass* const* Records()
{
    static AcRxClass* const records[] = {
        AcDbBlockTableRecord::desc(),    AcDbDimStyleTableRecord::desc(),  AcDbLayerTableRecord::desc(),
        AcDbLinetypeTableRecord::desc(), AcDbTextStyleTableRecord::desc(), AcDbRegAppTableRecord::desc(),
        AcDbUCSTableRecord::desc(),      AcDbViewTableRecord::desc(),      AcDbViewportTableRecord::desc()};
    return records;
}

}   // namespace

TEST_F(KxAcDbTest, EitherClassOfAPairOpensItsTable)
{
    for (int i = 0; i < 9; ++i) {
        for (AcRxClass* cls : {Tables()[i], Records()[i]}) {
            SCOPED_TRACE(i);
            AcDbSymbolTable* table = nullptr;
            AcDbSymbolTableRecord* record = nullptr;
            ASSERT_EQ(db.OpenSymbolTable(cls, table, AcDb::kForRead, 1, &record), Acad::eOk);
            EXPECT_EQ(table->isA(), Tables()[i]);
            ASSERT_NE(record, nullptr);
            EXPECT_EQ(record->isA(), Records()[i]);
            table->close();
            delete record;
        }
    }
}

TEST_F(KxAcDbTest, AClassThatIsNoTableOpensNothing)
{
    AcDbSymbolTable* table = nullptr;
    for (AcRxClass* cls : {AcDbLine::desc(), AcDbSymbolTable::desc(), static_cast<AcRxClass*>(nullptr)})
        EXPECT_EQ(db.OpenSymbolTable(cls, table, AcDb::kForRead), Acad::eInvalidInput);
    EXPECT_EQ(table, nullptr);
}

TEST_F(KxAcDbTest, TheWorkingDatabaseIsFixedOrFollowed)
{
    AcDbDatabase other;
    AcDbHostApplicationServices* host = acdbHostApplicationServices();
    AcDbDatabase* before = host->workingDatabase();
    host->setWorkingDatabase(&drawing);
    CKxAcDb follows(&other, 1);
    CKxAcDb stays(nullptr, 0);
    CKxAcDb plain;
    host->setWorkingDatabase(&other);
    EXPECT_EQ(follows.GetAcDb(), &other);
    EXPECT_EQ(stays.GetAcDb(), &drawing);
    EXPECT_EQ(plain.GetAcDb(), &drawing);
    EXPECT_EQ(CKxAcDb(follows).GetAcDb(), &other);
    host->setWorkingDatabase(before);
}

TEST_F(KxAcDbTest, AMissingRecordIsMadeOnce)
{
    AcDbSymbolTableRecord* record = nullptr;
    int created = -1;
    ASSERT_EQ(db.OpenRecWithEntyName(L"墙体", AcDbLayerTable::desc(), record, AcDb::kForWrite, 1, &created), Acad::eOk);
    EXPECT_EQ(created, 1);
    EXPECT_TRUE(record->isWriteEnabled());
    const AcDbObjectId id = record->objectId();
    record->close();

    ASSERT_EQ(db.OpenRecWithEntyName(L"墙体", AcDbLayerTableRecord::desc(), record, AcDb::kForRead, 1, &created),
              Acad::eOk);
    EXPECT_EQ(created, 0);
    EXPECT_EQ(record->objectId(), id);
    record->close();
    EXPECT_TRUE(db.IsHasLayer(L"墙体"));
    EXPECT_FALSE(db.IsHasLayer(L"墙"));
}

TEST_F(KxAcDbTest, ARecordThatCannotBeAddedLeavesNothing)
{
    AcDbSymbolTableRecord* record = nullptr;
    int created = -1;
    EXPECT_NE(db.OpenRecWithEntyName(L"a<b>", AcDbLayerTable::desc(), record, AcDb::kForRead, 1, &created), Acad::eOk);
    EXPECT_EQ(created, 0);
    EXPECT_EQ(record, nullptr);
    CStringArray names;
    db.GetRecsName(AcDbLayerTable::desc(), names);
    EXPECT_EQ(names.GetSize(), 1);
}

TEST_F(KxAcDbTest, WithoutANameTheCurrentSpaceIsMeant)
{
    AcDbSymbolTableRecord* record = nullptr;
    ASSERT_EQ(db.OpenRecWithEntyName(nullptr, AcDbBlockTable::desc(), record, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(record->objectId(), drawing.currentSpaceId());
    record->close();
    EXPECT_EQ(db.OpenRecWithEntyName(nullptr, AcDbLayerTable::desc(), record, AcDb::kForRead), Acad::eWrongObjectType);
}

TEST_F(KxAcDbTest, AFailingFirstStepIsReportedOnce)
{
    AcDbObjectId id;
    EXPECT_EQ(db.GetRecWithEntyName(L"没有", AcDbLayerTable::desc(), id), Acad::eKeyNotFound);
    EXPECT_EQ(ui.Taken(), L"\nError: eKeyNotFound");
    EXPECT_EQ(db.RenameSymbolTableRec(L"没有", AcDbLayerTable::desc(), L"有"), Acad::eKeyNotFound);
    EXPECT_EQ(ui.Taken(), L"\nError: eKeyNotFound");
}

TEST_F(KxAcDbTest, RecordsAreAddedToTheirOwnTableAndRenamed)
{
    auto* style = new AcDbTextStyleTableRecord();
    style->setName(L"仿宋");
    EXPECT_EQ(db.AddRecToSymbolTab(style, 1), Acad::eOk);
    EXPECT_TRUE(db.IsHasSymbolTabRec(AcDbTextStyleTable::desc(), L"仿宋"));
    auto* again = new AcDbTextStyleTableRecord();
    again->setName(L"仿宋");
    EXPECT_NE(db.AddRecToSymbolTab(again, 1), Acad::eOk);   // and `again` is gone
    EXPECT_EQ(db.AddRecToSymbolTab(nullptr, 1), Acad::eInvalidInput);
    EXPECT_EQ(db.RenameSymbolTableRec(L"仿宋", AcDbTextStyleTable::desc(), L"宋体"), Acad::eOk);
    EXPECT_FALSE(db.IsHasSymbolTabRec(AcDbTextStyleTable::desc(), L"仿宋"));
    EXPECT_TRUE(db.IsHasSymbolTabRec(AcDbTextStyleTable::desc(), L"宋体"));
}

TEST_F(KxAcDbTest, NamesComeInTableOrder)
{
    for (const wchar_t* name : {L"门窗", L"A", L"轴线"})
        db.Layer(name, 1, L"Continuous", nullptr, 1, 0);
    CStringArray names;
    ASSERT_EQ(db.GetRecsName(AcDbLayerTableRecord::desc(), names), Acad::eOk);
    ASSERT_EQ(names.GetSize(), 4);
    const wchar_t* const expected[] = {L"0", L"门窗", L"A", L"轴线"};
    for (int i = 0; i < 4; ++i)
        EXPECT_STREQ(names.GetAt(i), expected[i]);
}

TEST_F(KxAcDbTest, BytesUnderAKeyComeBack)
{
    struct Row {
        long length;
        std::vector<int> chunks;
    };
    static const Row rows[] = {{0, {0}},
                               {1, {1}},
                               {125, {125}},
                               {126, {126, 0}},
                               {127, {126, 1}},
                               {252, {126, 126, 0}},
                               {300, {126, 126, 48}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.length);
        std::string bytes;
        for (long i = 0; i < row.length; ++i)
            bytes.push_back(char(i * 7));
        ASSERT_EQ(db.NODAddData(L"KX_BLOB", bytes.data(), row.length, 1), Acad::eOk);

        AcDbObject* object = nullptr;
        ASSERT_EQ(db.NODOpenObject(L"KX_BLOB", object, AcDb::kForRead), Acad::eOk);
        resbuf* chain = nullptr;
        AcDbXrecord::cast(object)->rbChain(&chain);
        object->close();
        EXPECT_EQ(chain->restype, 90);
        EXPECT_EQ(chain->resval.rlong, row.length);
        std::vector<int> chunks;
        for (const resbuf* piece = chain->rbnext; piece != nullptr; piece = piece->rbnext) {
            EXPECT_EQ(piece->restype, 310);
            chunks.push_back(piece->resval.rbinary.clen);
        }
        acutRelRb(chain);
        EXPECT_EQ(chunks, row.chunks);

        void* data = nullptr;
        long length = -1;
        ASSERT_EQ(db.NODReadData(L"KX_BLOB", data, length), Acad::eOk);
        EXPECT_EQ(std::string(static_cast<char*>(data), size_t(length)), bytes);
        std::free(data);
    }
}

TEST_F(KxAcDbTest, AKeyIsOverwrittenOnlyWhenAsked)
{
    char first[] = "一";
    char second[] = "二二";
    ASSERT_EQ(db.NODAddData(L"KX_KEY", first, 3, 0), Acad::eOk);
    EXPECT_EQ(db.NODAddData(L"KX_KEY", second, 6, 0), Acad::eWrongObjectType);
    void* data = nullptr;
    long length = 0;
    db.NODReadData(L"KX_KEY", data, length);
    EXPECT_EQ(length, 3);
    std::free(data);
    ASSERT_EQ(db.NODAddData(L"KX_KEY", second, 6, 1), Acad::eOk);
    db.NODReadData(L"KX_KEY", data, length);
    EXPECT_EQ(length, 6);
    std::free(data);

    EXPECT_EQ(db.NODRemoveObject(L"KX_KEY"), Acad::eOk);
    data = &length;
    EXPECT_EQ(db.NODReadData(L"KX_KEY", data, length), Acad::eKeyNotFound);
    EXPECT_EQ(data, &length);
    EXPECT_EQ(db.NODAddData(L"KX_KEY", first, -1, 1), Acad::eInvalidInput);
}

// Another program may have written the record: its length is not to be trusted.
TEST_F(KxAcDbTest, ABlobThatLiesAboutItsLengthIsRefused)
{
    for (int claimed : {-1, 4, 2147483647}) {
        SCOPED_TRACE(claimed);
        char bytes[] = "abc";
        ads_binary piece = {3, bytes};
        resbuf* chain = acutBuildList(90, claimed, 310, &piece, 0);
        auto* record = new AcDbXrecord();
        record->setFromRbChain(*chain);
        acutRelRb(chain);
        AcDbObject* object = record;
        ASSERT_EQ(db.NODAddObject(L"KX_LIE", object, nullptr, 1), Acad::eOk);
        void* data = nullptr;
        long length = 0;
        EXPECT_EQ(db.NODReadData(L"KX_LIE", data, length), Acad::eInvalidResBuf);
        EXPECT_EQ(data, nullptr);
    }
}

TEST_F(KxAcDbTest, EntitiesJoinTheSpaceNamed)
{
    const AcDbObjectId inModel = AddLine();
    const AcDbObjectId inPaper = AddLine(ACDB_PAPER_SPACE);
    AcDbObjectIdArray ids;
    ASSERT_EQ(db.BlockTableGetEntityIds(ids, ACDB_MODEL_SPACE), Acad::eOk);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], inModel);
    db.BlockTableGetEntityIds(ids, ACDB_PAPER_SPACE);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], inPaper);
    db.BlockTableGetEntityIds(ids);
    EXPECT_EQ(ids.length(), 2);
    db.BlockTableGetEntityIds(ids, nullptr, AcDbCircle::desc());
    EXPECT_EQ(ids.length(), 0);

    AcDbObjectId none = inModel;
    EXPECT_EQ(db.AddEntToSpace(new AcDbLine(AcGePoint3d(), AcGePoint3d()), 1, L"没有的块", &none), Acad::eKeyNotFound);
    EXPECT_TRUE(none.isNull());
    EXPECT_EQ(ui.Taken(), L"\nError: eKeyNotFound");
}

TEST_F(KxAcDbTest, BlockReferencesStandWhereTheyWerePut)
{
    AcDbSymbolTableRecord* record = nullptr;
    db.OpenRecWithEntyName(L"门", AcDbBlockTable::desc(), record, AcDb::kForRead, 1);
    const AcDbObjectId block = record->objectId();
    record->close();
    db.Layer(L"门窗", 3, nullptr, nullptr, 1, 0);
    AcDbObjectId id;
    ASSERT_EQ(db.BlockRef(L"门", AcGePoint3d(10, 20, 0), AcGeScale3d(2, 3, 1), 0.5, 5, nullptr, L"门窗", nullptr, &id),
              Acad::eOk);
    const Opened<AcDbBlockReference> reference(id, AcDb::kForRead);
    ASSERT_EQ(reference.status(), Acad::eOk);
    EXPECT_EQ(reference->blockTableRecord(), block);
    EXPECT_EQ(reference->position(), AcGePoint3d(10, 20, 0));
    EXPECT_EQ(reference->scaleFactors(), AcGeScale3d(2, 3, 1));
    EXPECT_DOUBLE_EQ(reference->rotation(), 0.5);
    EXPECT_EQ(reference->colorIndex(), 5);
    EXPECT_EQ(db.BlockRef(L"窗", AcGePoint3d(), AcGeScale3d(), 0, 5, nullptr, nullptr, nullptr, &id),
              Acad::eKeyNotFound);
    EXPECT_TRUE(id.isNull());
}

TEST_F(KxAcDbTest, ErasedObjectsAreGone)
{
    AcDbObjectIdArray ids;
    ids.append(AddLine());
    ids.append(AddLine());
    EXPECT_EQ(db.EraseObjects(ids, 0), Acad::eOk);
    EXPECT_FALSE(IsInDrawing(ids[0]));
    EXPECT_FALSE(IsInDrawing(ids[1]));
    EXPECT_EQ(db.EraseObject(ids[0], 0), Acad::eWasErased);
    EXPECT_EQ(ui.Taken(), L"\nError: eWasErased");
}

TEST_F(KxAcDbTest, PurgingKeepsWhatIsUsed)
{
    AcDbObjectId used, unused;
    db.Layer(L"用", 1, nullptr, &used, 1, 0);
    db.Layer(L"不用", 1, nullptr, &unused, 1, 0);
    const AcDbObjectId line = AddLine();
    const wchar_t* layer = L"用";
    AcDbObjectIdArray lines;
    lines.append(line);
    ASSERT_EQ(db.SetEntitysProperty(lines, nullptr, layer, nullptr, nullptr), Acad::eOk);

    AcDbObjectIdArray ids;
    ids.append(used);
    ids.append(unused);
    ids.append(drawing.layerZero());
    EXPECT_EQ(db.PurgeObjects(&ids), Acad::eOk);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], unused);
    EXPECT_TRUE(db.IsHasLayer(L"不用"));   // a list is narrowed, nothing is erased

    EXPECT_EQ(db.PurgeObjects(nullptr), Acad::eOk);
    EXPECT_FALSE(db.IsHasLayer(L"不用"));
    EXPECT_TRUE(db.IsHasLayer(L"用"));
    EXPECT_TRUE(db.IsHasLayer(L"0"));
}

TEST_F(KxAcDbTest, AGroupHoldsItsMembers)
{
    AcDbObjectIdArray ids;
    AcDbObjectId group = AddLine();
    EXPECT_EQ(int(db.Group(L"空", ids, &group)), 40000);
    EXPECT_TRUE(group.isNull());
    ids.append(AddLine());
    ids.append(AddLine());
    ASSERT_EQ(db.Group(L"家具", ids, &group), Acad::eOk);
    const Opened<AcDbGroup> opened(group, AcDb::kForRead);
    ASSERT_EQ(opened.status(), Acad::eOk);
    EXPECT_EQ(opened->numEntities(), 2u);
    EXPECT_TRUE(opened->has(ids[1]));
}

TEST_F(KxAcDbTest, OnlyThePropertiesGivenChange)
{
    AcDbObjectIdArray ids;
    ids.append(AddLine());
    const int red = 1;
    const bool hidden = false;
    ASSERT_EQ(db.SetEntitysProperty(ids, &red, nullptr, nullptr, nullptr), Acad::eOk);
    ASSERT_EQ(db.SetEntitysProperty(ids, nullptr, nullptr, nullptr, &hidden), Acad::eOk);
    const Opened<AcDbEntity> line(ids[0], AcDb::kForRead);
    EXPECT_EQ(line->colorIndex(), 1);
    EXPECT_EQ(line->visibility(), AcDb::kInvisible);
    EXPECT_EQ(line->layerId(), drawing.layerZero());
}
