#include "db/core/Stub.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/Opened.h"
#include "TestUi.h"
#include <gtest/gtest.h>

using namespace KxArxBase;

namespace {

class KxAcDbLayers : public testing::Test {
protected:
    KxAcDbLayers() : m_open(KxPlat::OpenObjectCount()), db(&drawing, 0)
    {
        for (const wchar_t* name : {L"A", L"B", L"C"})
            db.Layer(name, 1, L"Continuous", nullptr, 1, 0);
    }
    void TearDown() override { EXPECT_EQ(KxPlat::OpenObjectCount(), m_open); }

    // "off frozen locked" of a layer as three digits, "-" when it is not there.
    std::string States(const wchar_t* name)
    {
        bool off = false, frozen = false, locked = false;
        if (db.GetLayerStatus(name, off, &frozen, &locked, L';') != Acad::eOk)
            return "-";
        return std::string(off ? "1" : "0") + (frozen ? "1" : "0") + (locked ? "1" : "0");
    }
    AcDbObjectId AddLine(const wchar_t* layer)
    {
        auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
        line->setDatabaseDefaults(&drawing);
        db.SetEntityProperty(line, nullptr, nullptr, nullptr);
        AcDbObjectId id;
        db.AddEntToSpace(line, 1, nullptr, &id);
        AcDbObjectIdArray ids;
        ids.append(id);
        db.SetEntitysProperty(ids, nullptr, layer, nullptr, nullptr);
        return id;
    }

    TestUi ui;
    AcDbDatabase drawing;

private:
    long m_open;

protected:
    CKxAcDb db;
};

bool g_yes = true;
bool g_no = false;

}   // namespace

TEST_F(KxAcDbLayers, AnExistingLayerChangesOnlyOnUpdate)
{
    AcDbObjectId id, again;
    ASSERT_EQ(db.Layer(L"墙体", 3, L"Continuous", &id, 1, 0), Acad::eOk);
    ASSERT_EQ(db.Layer(L"墙体", 5, L"ByBlock", &again, 1, 0), Acad::eOk);
    EXPECT_EQ(again, id);
    {
        const Opened<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        EXPECT_EQ(layer->color().colorIndex(), 3);
        EXPECT_EQ(layer->linetypeObjectId(), drawing.continuousLinetype());
    }
    ASSERT_EQ(db.Layer(L"墙体", 5, L"Continuous", &again, 0, 1), Acad::eOk);
    const Opened<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    EXPECT_EQ(layer->color().colorIndex(), 5);
}

TEST_F(KxAcDbLayers, AnUnknownLinetypeGivesTheNullId)
{
    AcDbObjectId id;
    ASSERT_EQ(db.Layer(L"轴线", 1, L"没有的线型", &id, 1, 0), Acad::eOk);
    const Opened<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    EXPECT_TRUE(layer->linetypeObjectId().isNull());
    EXPECT_FALSE(db.IsHasSymbolTabRec(AcDbLinetypeTable::desc(), L"没有的线型"));
}

TEST_F(KxAcDbLayers, AMissingLayerIsReportedAndNotMade)
{
    AcDbObjectId id = drawing.layerZero();
    EXPECT_EQ(db.Layer(L"没有", 1, L"Continuous", &id, 0, 1), Acad::eKeyNotFound);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(ui.Taken(), L"\nError: eKeyNotFound");
}

TEST_F(KxAcDbLayers, StatesAreSetOnEachNameOfAList)
{
    struct Row {
        const wchar_t* names;
        wchar_t separator;
        bool* off;
        const bool* frozen;
        const bool* locked;
        const char* a;
        const char* b;
        const char* c;
        int status;
    };
    // Cumulative: each row starts from what the one before left.
    static const Row rows[] = {
        {L"A,,B", L',', &g_yes, nullptr, nullptr, "100", "100", "000", Acad::eOk},
        {L"", L',', &g_no, nullptr, nullptr, "100", "100", "000", Acad::eOk},
        {L"a;没有;C", L';', nullptr, &g_yes, nullptr, "110", "100", "010", Acad::eOk},
        {L"C", L';', nullptr, nullptr, &g_yes, "110", "100", "011", Acad::eOk},
        {L"A,B", L';', &g_no, nullptr, nullptr, "110", "100", "011", Acad::eKeyNotFound},
        {L"A;B;C", L';', &g_no, &g_no, &g_no, "000", "000", "000", Acad::eOk},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.names));
        EXPECT_EQ(int(db.SetLayerStatusAll(row.names, row.off, row.frozen, row.locked, row.separator)), row.status);
        EXPECT_EQ(States(L"A"), row.a);
        EXPECT_EQ(States(L"B"), row.b);
        EXPECT_EQ(States(L"C"), row.c);
        EXPECT_EQ(ui.Taken(), L"");   // names that are no layers are passed over without a word
    }
}

TEST_F(KxAcDbLayers, AllLayersChangeOnlyTheStateGiven)
{
    db.SetLayerStatus(L"B", true, nullptr, &g_yes, L';');
    ASSERT_EQ(db.SetAlllayersStatus(nullptr, &g_yes, nullptr), Acad::eOk);
    EXPECT_EQ(States(L"A"), "010");
    EXPECT_EQ(States(L"B"), "111");
    EXPECT_EQ(States(L"0"), "000");   // the current layer is never frozen
    db.SetAlllayersStatus(&g_no, &g_no, nullptr);
    EXPECT_EQ(States(L"B"), "001");
}

TEST_F(KxAcDbLayers, UnknownStatesStayUntouched)
{
    bool off = true, frozen = true, locked = true;
    EXPECT_EQ(db.GetLayerStatus(L"没有", off, &frozen, &locked, L';'), Acad::eKeyNotFound);
    EXPECT_TRUE(off && frozen && locked);
    EXPECT_EQ(ui.Taken(), L"\nError: eKeyNotFound");
}

TEST_F(KxAcDbLayers, LayersOfEntitiesComeOnceInTheOrderMet)
{
    AcDbObjectIdArray ids;
    for (const wchar_t* layer : {L"C", L"C", L"A", L"C", L"A", L"0"})
        ids.append(AddLine(layer));
    const AcDbObjectId erased = AddLine(L"B");
    db.EraseObject(erased, 0);
    ids.append(erased);
    ids.append(AcDbObjectId());
    CStringArray names;
    ASSERT_EQ(db.GetEntityLayers(ids, names), Acad::eOk);
    ASSERT_EQ(names.GetSize(), 3);
    EXPECT_STREQ(names.GetAt(0), L"C");
    EXPECT_STREQ(names.GetAt(1), L"A");
    EXPECT_STREQ(names.GetAt(2), L"0");
}

TEST_F(KxAcDbLayers, TextStylesTakeAFileOrATypeface)
{
    AcDbObjectId id;
    ASSERT_EQ(db.TextStyle(L"工程", L"txt.shx", L"gbcbig.shx", 3.5, 0.7, 1, &id, 1), Acad::eOk);
    {
        const Opened<AcDbTextStyleTableRecord> style(id, AcDb::kForRead);
        const ACHAR* file = nullptr;
        style->getFileName(file);
        EXPECT_STREQ(file, L"txt.shx");
        ACHAR* big = nullptr;
        style->bigFontFileName(big);
        EXPECT_STREQ(big, L"gbcbig.shx");
        acutDelString(big);
        EXPECT_DOUBLE_EQ(style->textSize(), 3.5);
        EXPECT_DOUBLE_EQ(style->xScale(), 0.7);
    }
    AcDbObjectId same;
    ASSERT_EQ(db.TextStyle(L"工程", L"仿宋", nullptr, 0, 1, 0, &same, 1), Acad::eOk);
    EXPECT_EQ(same, id);
    const Opened<AcDbTextStyleTableRecord> style(id, AcDb::kForRead);
    ACHAR* face = nullptr;
    bool bold = true, italic = true;
    int charset = -1, pitch = -1;
    ASSERT_EQ(style->font(face, bold, italic, charset, pitch), Acad::eOk);
    EXPECT_STREQ(face, L"仿宋");
    acutDelString(face);
    EXPECT_FALSE(bold || italic);
    EXPECT_EQ(charset, 1);
    EXPECT_EQ(pitch, 16);
}

TEST_F(KxAcDbLayers, AWidthThatIsNoneIsRefused)
{
    AcDbObjectId id;
    EXPECT_NE(db.TextStyle(L"零宽", L"txt.shx", L"", 3.5, 0, 1, &id, 1), Acad::eOk);
    EXPECT_FALSE(id.isNull());
}

TEST_F(KxAcDbLayers, DimensionStylesAreFoundOrMade)
{
    AcDbObjectId id, again;
    EXPECT_EQ(db.DimStyle(L"建筑", &id, 0), Acad::eKeyNotFound);
    EXPECT_TRUE(id.isNull());
    ASSERT_EQ(db.DimStyle(L"建筑", &id, 1), Acad::eOk);
    ASSERT_EQ(db.DimStyle(L"建筑", &again, 0), Acad::eOk);
    EXPECT_EQ(again, id);
}
