#include "db/AcDbXref.h"
#include "db/core/DbCore.h"
#include "KxArxBase/ArxReferenceState.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxArxReference.h"
#include "KxArxBase/Opened.h"
#include "support/TempFolder.h"
#include "TestUi.h"
#include "win/Files.h"
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

using namespace KxArxBase;

namespace {

const double kPi = 3.14159265358979323846;

AcDbObjectId Add(AcDbDatabase& db, AcDbEntity* entity, const wchar_t* layer, const wchar_t* space = nullptr)
{
    AcDbObjectId id;
    CKxAcDb tool(&db, 0);
    tool.AddEntToSpace(entity, 1, space, &id);
    AcDbObjectIdArray ids;
    ids.append(id);
    tool.SetEntitysProperty(ids, nullptr, layer, nullptr, nullptr);
    return id;
}

void AddBlock(AcDbDatabase& db, const wchar_t* name)
{
    auto* block = new AcDbBlockTableRecord;
    block->setName(name);
    CKxAcDb(&db, 0).AddRecToSymbolTab(block, 1);
}

// A working drawing with an attached one: layers 墙 and 文字, a text style, a linetype, blocks three deep.
class ArxReference : public testing::Test {
protected:
    void SetUp() override
    {
        MakePlan();
        ASSERT_EQ(acdbAttachXref(&host, folder.DrivePath(L"plan.dxf").c_str(), L"plan", xref), Acad::eOk);
        auto* shown = new AcDbBlockReference(AcGePoint3d(1000, 0, 0), xref);
        shown->setScaleFactors(AcGeScale3d(2, 2, 2));
        insert = Add(host, shown, L"0");
        acdbHostApplicationServices()->setWorkingDatabase(&host);
        m_open = KxPlat::OpenObjectCount();
    }
    void TearDown() override
    {
        EXPECT_EQ(KxPlat::OpenObjectCount(), m_open);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    void MakePlan()
    {
        AcDbDatabase plan;
        CKxAcDb db(&plan, 0);
        AcDbObjectId style;
        db.LineType(L"*", nullptr);
        db.Layer(L"墙", 3, L"Continuous", nullptr, 1, 0);
        db.Layer(L"文字", 5, L"Continuous", nullptr, 1, 0);
        db.TextStyle(L"仿宋", L"simfang.ttf", L"", 0, 0.7, 1, &style, 1);
        Add(plan, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0)), L"墙");
        Add(plan, new AcDbLine(AcGePoint3d(0, 5, 0), AcGePoint3d(10, 5, 0)), L"0");
        Add(plan, new AcDbText(AcGePoint3d(1, 2, 0), L"客厅", style, 3.5, 0), L"文字");
        auto* dimensions = new AcDbDimStyleTableRecord;
        dimensions->setName(L"建筑");
        dimensions->setReal(40, 100);
        dimensions->setDimtxsty(style);
        db.AddRecToSymbolTab(dimensions, 1);
        // Rotated, scaled unevenly, mirrored: one inside the other.
        AddBlock(plan, L"外");
        AddBlock(plan, L"中");
        AddBlock(plan, L"内");
        Add(plan, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), L"墙", L"内");
        Add(plan, new AcDbCircle(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 1), L"墙", L"内");
        Nest(plan, L"内", L"中", AcGePoint3d(5, 0, 0), AcGeScale3d(-1, 1, 1), 0);
        Nest(plan, L"中", L"外", AcGePoint3d(0, 7, 0), AcGeScale3d(2, 3, 1), 0);
        Nest(plan, L"外", nullptr, AcGePoint3d(100, 0, 0), AcGeScale3d(1, 1, 1), kPi / 2);
        ASSERT_EQ(plan.saveAs(folder.DrivePath(L"plan.dxf").c_str()), Acad::eOk);
    }
    static void Nest(AcDbDatabase& db, const wchar_t* block, const wchar_t* space, AcGePoint3d at, AcGeScale3d scale,
                     double rotation)
    {
        ASSERT_EQ(CKxAcDb(&db, 0).BlockRef(block, at, scale, rotation, 256, space, L"0", nullptr), Acad::eOk);
    }
    int CloneLayers(std::initializer_list<const wchar_t*> names)
    {
        CStringArray layers;
        for (const wchar_t* name : names)
            layers.Add(name);
        return KxArxReference::CloneXrefLayerOfEnt(insert, layers, &host, AcDbObjectIdArray());
    }
    // Of the working drawing, besides the insertion of the xref.
    template <class T>
    std::vector<const T*> Made()
    {
        AcDbObjectIdArray ids;
        std::vector<const T*> all;
        CKxAcDb(&host, 0).BlockTableGetEntityIds(ids, ACDB_MODEL_SPACE);
        for (AcDbObjectId id : ids)
            if (const T* entity = T::cast(static_cast<AcDbStub*>(id)->object); entity != nullptr && id != insert)
                all.push_back(entity);
        return all;
    }
    AcDbObjectId Record(AcRxClass* cls, const wchar_t* name)
    {
        AcDbObjectId id;
        CKxAcDb(&host, 0).GetRecWithEntyName(name, cls, id);
        return id;
    }

    TestUi ui;
    KxTest::TempFolder folder;
    AcDbDatabase host;
    AcDbObjectId xref, insert;

private:
    long m_open = 0;
};

bool IsNear(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return a.distanceTo(b) < 1e-6;
}

}   // namespace

TEST_F(ArxReference, EntitiesStandWhereTheInsertionShowsThem)
{
    ASSERT_EQ(CloneLayers({L"plan|墙"}), 1);
    const auto lines = Made<AcDbLine>();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_TRUE(IsNear(lines[0]->startPoint(), AcGePoint3d(1000, 0, 0)));
    EXPECT_TRUE(IsNear(lines[0]->endPoint(), AcGePoint3d(1020, 0, 0)));
    // (1, 0) of the innermost block: mirrored and moved (4, 0); scaled and moved (8, 7); turned and moved (93, 8);
    // twice as large and moved (1186, 16). Its (0, 0) in the same way: (5, 0), (10, 7), (93, 10), (1186, 20).
    EXPECT_TRUE(IsNear(lines[1]->startPoint(), AcGePoint3d(1186, 20, 0)));
    EXPECT_TRUE(IsNear(lines[1]->endPoint(), AcGePoint3d(1186, 16, 0)));
    // The circle of radius 1 becomes an ellipse of half axes 2 * 3 and 2 * 2; the longer one lies along X when turned.
    const auto ellipses = Made<AcDbEllipse>();
    ASSERT_EQ(ellipses.size(), 1u);
    EXPECT_TRUE(IsNear(ellipses[0]->center(), AcGePoint3d(1186, 20, 0)));
    EXPECT_NEAR(ellipses[0]->majorAxis().length(), 6, 1e-9);
    EXPECT_NEAR(std::fabs(ellipses[0]->majorAxis().x), 6, 1e-9);
    EXPECT_NEAR(ellipses[0]->radiusRatio(), 2.0 / 3, 1e-9);
    EXPECT_EQ(Made<AcDbText>().size(), 0u);
    EXPECT_EQ(ui.Taken(), L"");
}

TEST_F(ArxReference, ClonesLieOnTheXrefLayer)
{
    ASSERT_EQ(CloneLayers({L"plan|墙", L"PLAN|文字"}), 1);
    for (const AcDbLine* line : Made<AcDbLine>())
        EXPECT_EQ(line->layerId(), Record(AcDbLayerTable::desc(), L"plan|墙"));
    const auto texts = Made<AcDbText>();
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0]->layerId(), Record(AcDbLayerTable::desc(), L"plan|文字"));
    EXPECT_STREQ(CString(texts[0]->textStringConst()).GetString(), L"客厅");
    EXPECT_DOUBLE_EQ(texts[0]->height(), 7);   // twice 3.5
    // Every dependent text style becomes "Standard".
    EXPECT_EQ(texts[0]->textStyle(), Record(AcDbTextStyleTable::desc(), L"Standard"));
}

TEST_F(ArxReference, ALayerWithoutEntitiesEndsTheOperation)
{
    EXPECT_EQ(CloneLayers({L"plan|墙", L"plan|没有", L"plan|文字"}), 0);
    EXPECT_EQ(ui.Taken(), L"\n图层克隆不成功.\n");
    EXPECT_EQ(Made<AcDbLine>().size(), 2u);   // the layer before it stays
    EXPECT_EQ(Made<AcDbText>().size(), 0u);
    EXPECT_EQ(TheReferenceState().textStyles.GetCount(), 0);
    EXPECT_EQ(TheReferenceState().isRunning, 0);
}

TEST_F(ArxReference, LockedLayersAreLockedAgain)
{
    ASSERT_EQ(KxArxReference::SetLockLayer(L"plan|墙", true), 1);
    ASSERT_EQ(CloneLayers({L"plan|墙"}), 1);
    EXPECT_EQ(Made<AcDbLine>().size(), 2u);
    EXPECT_EQ(KxArxReference::CheckLockLayer(L"plan|墙"), 1);
}

TEST_F(ArxReference, WhatIsNoInsertionIsRefused)
{
    CStringArray layers;
    layers.Add(L"plan|墙");
    const AcDbObjectId line = Add(host, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), L"0");
    EXPECT_EQ(KxArxReference::CloneXrefLayerOfEnt(line, layers, &host, AcDbObjectIdArray()), 0);
    EXPECT_EQ(KxArxReference::CloneXrefLayerOfEnt(AcDbObjectId(), layers, &host, AcDbObjectIdArray()), 0);
    AcDbObjectIdArray ids;
    KxEntPairArray pairs;
    EXPECT_EQ(KxArxReference::IsBlockReference(line, ids, AcGeMatrix3d(), pairs, L"0"), 2);
    EXPECT_EQ(KxArxReference::IsBlockReference(AcDbObjectId(), ids, AcGeMatrix3d(), pairs, L"0"), 0);
    AcGeMatrix3d identity;
    AcDbObjectId clone;
    EXPECT_EQ(KxArxReference::CloneEnt(AcDbObjectId(), clone, identity, 0, 1), 0);
    EXPECT_TRUE(clone.isNull());
}

TEST_F(ArxReference, ABlockWithinItselfIsWalkedOnce)
{
    AddBlock(host, L"环");
    Add(host, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), L"0", L"环");
    CKxAcDb db(&host, 0);
    AcDbObjectId ring;
    db.BlockRef(L"环", AcGePoint3d(), AcGeScale3d(1, 1, 1), 0, 256, L"环", L"0", nullptr);
    db.BlockRef(L"环", AcGePoint3d(), AcGeScale3d(1, 1, 1), 0, 256, nullptr, L"0", nullptr, &ring);
    AcDbObjectIdArray ids;
    KxEntPairArray pairs;
    EXPECT_EQ(KxArxReference::IsBlockReference(ring, ids, AcGeMatrix3d(), pairs, L"0"), 1);
    EXPECT_EQ(ids.length(), 1);
    EXPECT_EQ(pairs.GetSize(), 1);
}

TEST_F(ArxReference, ExtendedDataIsTakenOffInFullConversionOnly)
{
    for (const int type : {1, 0}) {
        SCOPED_TRACE(type);
        const AcDbObjectId line = Add(host, new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), L"0");
        acdbRegApp(L"甲");
        acdbRegApp(L"乙");
        {
            const Opened<AcDbObject> object(line, AcDb::kForWrite);
            resbuf* data = acutBuildList(1001, L"甲", 1071, 5, 1001, L"乙", 1000, L"x", 0);
            ASSERT_EQ(object->setXData(data), Acad::eOk);
            acutRelRb(data);
        }
        AcGeMatrix3d identity;
        AcDbObjectId clone;
        ASSERT_EQ(KxArxReference::CloneEnt(line, clone, identity, type, 1), 1);
        const Opened<AcDbObject> source(line, AcDb::kForRead), made(clone, AcDb::kForRead);
        EXPECT_EQ(source->hasXData(), type != 0);
        EXPECT_EQ(made->hasXData(), type != 0);
    }
}

TEST_F(ArxReference, PolylinesComeWithTheirVertices)
{
    auto* polyline = new AcDb3dPolyline;
    const AcDbObjectId source = Add(host, polyline, L"0");
    {
        const Opened<AcDb3dPolyline> opened(source, AcDb::kForWrite);
        for (const AcGePoint3d& at : {AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0), AcGePoint3d(4, 3, 1)}) {
            auto* vertex = new AcDb3dPolylineVertex(at);
            AcDbObjectId id;
            ASSERT_EQ(opened->appendVertex(id, vertex), Acad::eOk);
            vertex->close();
        }
    }
    AcGeMatrix3d moved = AcGeMatrix3d::translation(AcGeVector3d(10, 0, 0));
    AcDbObjectId clone;
    ASSERT_EQ(KxArxReference::CloneEnt(source, clone, moved, 2, 0), 1);
    AcDbExtents box;
    const Opened<AcDbEntity> made(clone, AcDb::kForRead), left(source, AcDb::kForRead);
    ASSERT_EQ(made->getGeomExtents(box), Acad::eOk);
    EXPECT_TRUE(IsNear(box.minPoint(), AcGePoint3d(10, 0, 0)));
    EXPECT_TRUE(IsNear(box.maxPoint(), AcGePoint3d(14, 3, 1)));
    ASSERT_EQ(left->getGeomExtents(box), Acad::eOk);
    EXPECT_TRUE(IsNear(box.minPoint(), AcGePoint3d(0, 0, 0)));
}

TEST_F(ArxReference, DependentRecordsGetLocalOnes)
{
    AcDbObjectIdArray styles, linetypes;
    EXPECT_EQ(KxArxReference::GetXrefTextStyle(&host, styles), 1);
    EXPECT_EQ(KxArxReference::GetXrefLineStyle(nullptr, linetypes), 0);
    ASSERT_GE(styles.length(), 2);
    AcDbObjectId local;
    EXPECT_EQ(KxArxReference::CreateOneTextStyleRecord(&host, styles.at(0), local), 1);
    EXPECT_EQ(local, Record(AcDbTextStyleTable::desc(), L"Standard"));
    EXPECT_EQ(KxArxReference::CreateOneTextStyleRecord(nullptr, styles.at(0), local), 0);
    EXPECT_EQ(KxArxReference::CreateOneTextStyleRecord(&host, AcDbObjectId(), local), 0);
    const AcDbObjectId dimStyle = Record(AcDbDimStyleTable::desc(), L"plan|Standard");
    ASSERT_FALSE(dimStyle.isNull());
    EXPECT_EQ(KxArxReference::CopyOneXrefDimStyleToCurDimTable(dimStyle, local), 1);
    EXPECT_EQ(local, Record(AcDbDimStyleTable::desc(), L"Standard"));
    // Another one comes with its variables, and with the local text style.
    ASSERT_EQ(KxArxReference::CopyOneXrefDimStyleToCurDimTable(Record(AcDbDimStyleTable::desc(), L"plan|建筑"), local),
              1);
    EXPECT_EQ(local, Record(AcDbDimStyleTable::desc(), L"建筑"));
    const Opened<AcDbDimStyleTableRecord> style(local, AcDb::kForRead);
    EXPECT_EQ(style->real(40, 1), 100);
    EXPECT_EQ(style->dimtxsty(), Record(AcDbTextStyleTable::desc(), L"Standard"));
    EXPECT_FALSE(style->isDependent());
}

TEST_F(ArxReference, ALinetypeIsCopiedDashByDash)
{
    auto* gas = new AcDbLinetypeTableRecord;
    gas->setName(L"煤气");
    gas->setComments(L"---- GAS ----");
    gas->setPatternLength(1.5);
    gas->setIsScaledToFit(true);
    gas->setNumDashes(2);
    gas->setDashLengthAt(0, 0.5);
    gas->setDashLengthAt(1, -1);
    gas->setShapeStyleAt(1, host.textstyle());
    gas->setTextAt(1, L"GAS");
    gas->setShapeScaleAt(1, 0.1);
    gas->setShapeRotationAt(1, kPi / 2);
    gas->setShapeOffsetAt(1, AcGeVector2d(-0.1, -0.05));
    gas->setShapeIsUcsOrientedAt(1, true);
    CKxAcDb(&host, 0).AddRecToSymbolTab(gas, 1);
    AcDbDatabase other;
    AcDbObjectId made;
    ASSERT_EQ(KxArxReference::CreateOneLineStyleRecord(&other, Record(AcDbLinetypeTable::desc(), L"煤气"), made), 1);
    const Opened<AcDbLinetypeTableRecord> copy(made, AcDb::kForRead);
    EXPECT_EQ(copy->numDashes(), 2);
    EXPECT_EQ(copy->dashLengthAt(1), -1);
    EXPECT_TRUE(copy->isScaledToFit());
    EXPECT_DOUBLE_EQ(copy->patternLength(), 1.5);
    EXPECT_DOUBLE_EQ(copy->shapeScaleAt(1), 0.1);
    EXPECT_DOUBLE_EQ(copy->shapeRotationAt(1), kPi / 2);
    EXPECT_EQ(copy->shapeOffsetAt(1), AcGeVector2d(-0.1, -0.05));
    EXPECT_TRUE(copy->shapeIsUcsOrientedAt(1));
    EXPECT_FALSE(copy->shapeIsUcsOrientedAt(0));
    ACHAR* text = nullptr;
    copy->textAt(1, text);
    EXPECT_EQ(std::wstring(text), L"GAS");
    acutDelString(text);
    // Once more: the one that is there is taken.
    AcDbObjectId again;
    EXPECT_EQ(KxArxReference::CreateOneLineStyleRecord(&other, Record(AcDbLinetypeTable::desc(), L"煤气"), again), 1);
    EXPECT_EQ(again, made);
}

TEST_F(ArxReference, LayersAreMadeAndCopied)
{
    AcDbObjectId id, again;
    ASSERT_EQ(KxArxReference::CreateLayer(L"新层", id), 1);
    EXPECT_EQ(KxArxReference::CreateLayer(L"新层", again), 1);
    EXPECT_EQ(id, again);
    {
        const Opened<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        EXPECT_FALSE(layer->isPlottable());
    }
    ASSERT_EQ(KxArxReference::CopyLayer(L"plan|墙", L"新层"), 1);
    EXPECT_EQ(KxArxReference::CopyLayer(L"没有", L"新层"), 0);
    const Opened<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    EXPECT_EQ(layer->colorIndex(), 3);
    EXPECT_TRUE(layer->isPlottable());
    EXPECT_EQ(KxArxReference::CreateLayer(L"a|b", again), 0);
    EXPECT_EQ(KxArxReference::CheckLockLayer(L"没有"), 0);
    EXPECT_EQ(KxArxReference::GetlayerName(insert), L"0");
}

TEST(ArxReferenceClasses, OfTheArchitectureProgramAreTold)
{
    struct Row {
        const wchar_t* name;
        int kind;
    };
    static const Row rows[] = {{L"TDbText", 1},
                               {L"tdbsymbcomposing", 1},
                               {L"TDbDimension2", 2},
                               {L"TDBSYMBSECTION", 2},
                               {L"TDbWall", 0},
                               {L"AcDbText", 0},
                               {L"", 0}};
    for (const Row& row : rows)
        EXPECT_EQ(KxArxReference::IsTianZhengEntity(row.name), row.kind) << CString(row.name).GetString();
}

// Every layer of a real drawing that has entities comes whole: as many clones as the drawing shows on it.
TEST(ArxReferenceDrawings, LayersOfRealDrawingsComeWhole)
{
    TestUi ui;
    int tried = 0;
    for (const wchar_t* name : {L"floorplan_r2004.dxf", L"cn_plan_r2013_ansi936.dxf"}) {
        const std::filesystem::path file = std::filesystem::path(KX_DRAWINGS) / name;
        if (!std::filesystem::exists(file))
            continue;
        ++tried;
        AcDbDatabase host;
        AcDbObjectId xref;
        ASSERT_EQ(acdbAttachXref(&host, KxPlat::DrivePath(file.string()).c_str(), L"plan", xref), Acad::eOk);
        const AcDbObjectId insert = Add(host, new AcDbBlockReference(AcGePoint3d(5, 0, 0), xref), L"0");
        acdbHostApplicationServices()->setWorkingDatabase(&host);
        CStringArray layers;
        CKxAcDb(&host, 0).GetRecsName(AcDbLayerTable::desc(), layers);
        AcGeMatrix3d identity;
        size_t wanted = 0;
        CStringArray filled;
        for (INT_PTR i = 0; i < layers.GetSize(); ++i) {
            KxEntPairArray pairs;
            KxArxReference::GetXrefBlockRecord(xref, layers[i], identity, pairs);
            if (layers[i].Find(L'|') < 0 || pairs.IsEmpty())
                continue;
            filled.Add(layers[i]);
            wanted += size_t(pairs.GetSize());
        }
        EXPECT_GT(filled.GetSize(), 3);
        EXPECT_EQ(KxArxReference::CloneXrefLayerOfEnt(insert, filled, &host, AcDbObjectIdArray()), 1);
        AcDbObjectIdArray made;
        CKxAcDb(&host, 0).BlockTableGetEntityIds(made, ACDB_MODEL_SPACE);
        // A few kinds cannot take an uneven scale.
        EXPECT_GE(size_t(made.length()), wanted * 98 / 100);
        EXPECT_LE(size_t(made.length()), wanted + 1);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    if (tried == 0)
        GTEST_SKIP() << "no folder of real drawings";
}
