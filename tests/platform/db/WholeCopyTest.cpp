// A new drawing's multiline style, and a whole drawing copied to a new one.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbCircle.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbGroup.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLayout.h"
#include "db/AcDbLine.h"
#include "db/AcDbMlineStyle.h"
#include "db/AcDbXrecord.h"
#include "db/core/Audit.h"
#include "db/core/DbCore.h"
#include "db/core/DefaultDrawing.h"
#include <gtest/gtest.h>
#include <memory>
#include <set>

using namespace KxPlat;

namespace {

AcDbObject* At(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub == nullptr ? nullptr : stub->object;
}

AcDbDictionary* Named(AcDbDatabase& db, const wchar_t* name)
{
    AcDbObjectId id;
    static_cast<AcDbDictionary*>(CoreOf(db).namedObjects->object)->getAt(name, id);
    return AcDbDictionary::cast(At(id));
}

AcDbObjectId AddLayer(AcDbDatabase& db, const wchar_t* name)
{
    AcDbLayerTable* table = nullptr;
    AcDbObjectId id;
    db.getSymbolTable(table, AcDb::kForWrite);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(name);
    EXPECT_EQ(table->add(id, layer), Acad::eOk);
    layer->close();
    table->close();
    return id;
}

AcDbObjectId Append(AcDbObjectId block, AcDbEntity* entity)
{
    AcDbBlockTableRecord* record = nullptr;
    EXPECT_EQ(acdbOpenObject(record, block, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    record->close();
    return id;
}

AcDbObjectId AddTo(AcDbDictionary* dictionary, const wchar_t* key, AcDbObject* object)
{
    AcDbDictionary* opened = nullptr;
    AcDbObjectId id;
    EXPECT_EQ(acdbOpenObject(opened, dictionary->objectId(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(opened->setAt(key, object, id), Acad::eOk);
    opened->close();
    object->close();
    return id;
}

AcDbStub* Block(AcDbDatabase& db, const wchar_t* name)
{
    return CoreOf(db).Table(TableKind::Block)->find(name);
}

// A second sheet, in a block of its own.
AcDbObjectId AddSheet(AcDbDatabase& db, const wchar_t* name)
{
    AcDbBlockTable* blocks = nullptr;
    db.getSymbolTable(blocks, AcDb::kForWrite);
    auto* record = new AcDbBlockTableRecord;
    AcDbObjectId block;
    record->setName(L"*Paper_Space0");
    EXPECT_EQ(blocks->add(block, record), Acad::eOk);
    blocks->close();
    auto* layout = new AcDbLayout;
    layout->build(name, 2, block);
    record->setLayoutId(AddTo(Named(db, L"ACAD_LAYOUT"), name, layout));
    record->close();
    return block;
}

std::vector<const AcRxClass*> ClassesIn(AcDbDatabase& db, const wchar_t* block)
{
    std::vector<const AcRxClass*> classes;
    for (const AcDbStub* entity : static_cast<AcDbBlockTableRecord*>(Block(db, block)->object)->entities())
        if (!entity->erased)
            classes.push_back(entity->object->isA());
    return classes;
}

}   // namespace

TEST(NewDrawing, HasTheStandardMultilineStyle)
{
    AcDbDatabase db;
    AcDbObjectId id;
    ASSERT_EQ(Named(db, L"ACAD_MLINESTYLE")->getAt(L"Standard", id), Acad::eOk);
    const auto* style = AcDbMlineStyle::cast(At(id));
    ASSERT_NE(style, nullptr);
    EXPECT_STREQ(style->name(), L"Standard");
    ASSERT_EQ(style->numElements(), 2);
    for (int i = 0; i < 2; ++i) {
        double offset = 0;
        AcCmColor color;
        ASSERT_EQ(style->getElementAt(i, offset, color), Acad::eOk);
        EXPECT_EQ(offset, i == 0 ? 0.5 : -0.5);
        EXPECT_EQ(color.colorIndex(), 256);
    }
    EXPECT_NEAR(style->startAngle(), 1.5707963267948966, 1e-15);
    EXPECT_FALSE(style->filled());
    EXPECT_EQ(CoreOf(db).header.Text("$CMLSTYLE"), CString(L"Standard"));
}

class WholeCopy : public testing::Test {
protected:
    void TearDown() override
    {
        copy.reset();
        EXPECT_EQ(OpenObjectCount(), m_open);
    }
    void Copy()
    {
        AcDbDatabase* made = nullptr;
        ASSERT_EQ(db.wblock(made), Acad::eOk);
        copy.reset(made);
        Audit audit(CoreOf(*made), false);
        audit.All();
        for (const AuditFinding& finding : audit.Findings())
            ADD_FAILURE() << CString(finding.object.c_str()).GetString() << ": " << finding.what.c_str();
        CoreOf(*made).handles.ForEach([&](AcDbStub& stub) {
            if (stub.object != nullptr && !stub.erased)
                VisitReferences(*stub.object, [&](AcDbObjectId& id, Reference) {
                    EXPECT_TRUE(id.isNull() || (id.database() == made && At(id) != nullptr));
                });
        });
    }

    long m_open = OpenObjectCount();
    AcDbDatabase db;
    std::unique_ptr<AcDbDatabase> copy;
};

TEST_F(WholeCopy, TakesTheSheetsAlong)
{
    const AcDbObjectId second = AddSheet(db, L"平面");
    Append(CoreOf(db).modelSpace, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
    Append(Block(db, ACDB_PAPER_SPACE), new AcDbCircle(AcGePoint3d(), AcGeVector3d(0, 0, 1), 2));
    Append(second, new AcDbCircle(AcGePoint3d(), AcGeVector3d(0, 0, 1), 3));
    Append(second, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
    Copy();
    const auto* line = AcDbLine::desc();
    const auto* circle = AcDbCircle::desc();
    EXPECT_EQ(ClassesIn(*copy, ACDB_MODEL_SPACE), std::vector<const AcRxClass*>({line}));
    EXPECT_EQ(ClassesIn(*copy, ACDB_PAPER_SPACE), std::vector<const AcRxClass*>({circle}));
    EXPECT_EQ(ClassesIn(*copy, L"*Paper_Space0"), std::vector<const AcRxClass*>({circle, line}));

    const struct {
        const wchar_t* layout;
        const wchar_t* block;
        int tab;
    } rows[] = {{L"Model", ACDB_MODEL_SPACE, 0}, {L"Layout1", ACDB_PAPER_SPACE, 1}, {L"平面", L"*Paper_Space0", 2}};
    EXPECT_EQ(Named(*copy, L"ACAD_LAYOUT")->numEntries(), 3u);
    for (const auto& row : rows) {
        AcDbObjectId id;
        ASSERT_EQ(Named(*copy, L"ACAD_LAYOUT")->getAt(row.layout, id), Acad::eOk) << row.layout;
        const auto* layout = static_cast<AcDbLayout*>(At(id));
        EXPECT_EQ(layout->getBlockTableRecordId(), AcDbObjectId(Block(*copy, row.block)));
        EXPECT_EQ(static_cast<AcDbBlockTableRecord*>(Block(*copy, row.block)->object)->getLayoutId(), id);
        EXPECT_EQ(layout->getTabOrder(), row.tab);
    }
}

TEST_F(WholeCopy, LeavesBehindWhatNothingRefersTo)
{
    const AcDbObjectId used = AddLayer(db, L"used"), current = AddLayer(db, L"current");
    AddLayer(db, L"unused");
    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    line->setLayer(used);
    Append(CoreOf(db).modelSpace, line);
    ASSERT_EQ(db.setClayer(current), Acad::eOk);
    Copy();
    std::set<std::wstring> names;
    for (AcDbStub* stub : CoreOf(*copy).Table(TableKind::Layer)->records())
        names.insert(static_cast<AcDbLayerTableRecord*>(stub->object)->nameText().GetString());
    EXPECT_EQ(names, std::set<std::wstring>({L"0", L"used", L"current"}));
    EXPECT_STREQ(static_cast<AcDbLayerTableRecord*>(At(copy->clayer()))->nameText(), L"current");
}

TEST_F(WholeCopy, KeepsVariablesGroupsAndDataOfPrograms)
{
    db.setLtscale(7);
    db.setInsbase(AcGePoint3d(3, 4, 5));
    const AcDbObjectId line = Append(CoreOf(db).modelSpace, new AcDbLine(AcGePoint3d(), AcGePoint3d(1, 0, 0)));
    auto* group = new AcDbGroup(L"", true);
    AddTo(Named(db, L"ACAD_GROUP"), L"G", group);
    AcDbGroup* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, group->objectId(), AcDb::kForWrite), Acad::eOk);
    opened->append(line);
    opened->close();
    auto* record = new AcDbXrecord;
    ads_name toLine = {line.asOldId(), 0};
    resbuf* chain = acutBuildList(40, 1.5, 330, toLine, RTNONE);
    record->setFromRbChain(*chain);
    acutRelRb(chain);
    AddTo(static_cast<AcDbDictionary*>(CoreOf(db).namedObjects->object), L"MINE", record);
    Copy();
    EXPECT_EQ(copy->ltscale(), 7);
    EXPECT_EQ(copy->insbase(), AcGePoint3d(3, 4, 5));
    const AcDbStub* copied = static_cast<AcDbBlockTableRecord*>(CoreOf(*copy).modelSpace->object)->entities().at(0);
    AcDbObjectId id;
    ASSERT_EQ(Named(*copy, L"ACAD_GROUP")->getAt(L"G", id), Acad::eOk);
    EXPECT_EQ(Named(*copy, L"ACAD_GROUP")->numEntries(), 1u);
    EXPECT_EQ(static_cast<AcDbGroup*>(At(id))->members().at(0), AcDbObjectId(const_cast<AcDbStub*>(copied)));
    ASSERT_EQ(static_cast<AcDbDictionary*>(CoreOf(*copy).namedObjects->object)->getAt(L"MINE", id), Acad::eOk);
    resbuf* read = nullptr;
    ASSERT_EQ(static_cast<AcDbXrecord*>(At(id))->rbChain(&read), Acad::eOk);
    EXPECT_EQ(read->resval.rreal, 1.5);
    acutRelRb(read);
    AcDbObjectId styles;
    EXPECT_EQ(Named(*copy, L"ACAD_MLINESTYLE")->getAt(L"Standard", styles), Acad::eOk);
}
