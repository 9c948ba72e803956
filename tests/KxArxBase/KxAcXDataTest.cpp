#include "KxArxBase/KxAcXData.h"
#include "db/core/Stub.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxAcXRecord.h"
#include "KxArxBase/Opened.h"
#include "KxArxBase/ResBufChain.h"
#include "rx/ResBufs.h"
#include "support/TempFolder.h"
#include "TestUi.h"
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

using namespace KxArxBase;

namespace {

// Shows what derived classes see.
class List : public CKxAcXData {
public:
    using CKxAcXData::CKxAcXData;
    using CKxAcXDataList::Chain;
    using CKxAcXDataList::GetTag;
    using CKxAcXDataList::SetTag;

    std::vector<int> Codes() const
    {
        std::vector<int> codes;
        for (const resbuf* at = Chain(); at != nullptr; at = at->rbnext)
            codes.push_back(at->restype);
        return codes;
    }
};

// A working drawing with one line. Nothing may stay open and no result buffer may be left behind.
class KxAcXDataTest : public testing::Test {
protected:
    KxAcXDataTest() : m_open(KxPlat::OpenObjectCount()), m_buffers(KxPlat::LiveResBufs())
    {
        acdbHostApplicationServices()->setWorkingDatabase(&drawing);
        line = NewLine(&drawing);
    }
    ~KxAcXDataTest() override { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }
    void TearDown() override
    {
        EXPECT_EQ(KxPlat::OpenObjectCount(), m_open);
        EXPECT_EQ(KxPlat::LiveResBufs(), m_buffers);
    }
    static AcDbObjectId NewLine(AcDbDatabase* db)
    {
        AcDbObjectId id;
        CKxAcDb(db, 0).AddEntToSpace(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(9, 0, 0)), 1, nullptr, &id);
        return id;
    }
    static std::wstring TextAt(const CKxAcXDataList& list, long index)
    {
        CString text;
        return list.GetString(index, text) ? text.GetString() : L"(none)";
    }

    TestUi ui;
    AcDbDatabase drawing;
    AcDbObjectId line;

private:
    long m_open, m_buffers;
};

int Status(Acad::ErrorStatus es)
{
    return int(es);
}

}   // namespace

TEST_F(KxAcXDataTest, TextsBecomeAnOddNumberOfPieces)
{
    struct Row {
        int length;
        int pieces;
    };
    static const Row rows[] = {{1, 1}, {254, 1}, {255, 3}, {508, 3}, {509, 3}, {762, 3}, {763, 5}, {1016, 5}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.length);
        List data(L"KxCadBase");
        const std::wstring text(size_t(row.length), L'墙');
        ASSERT_TRUE(data.SetString(7, text.c_str()));
        ASSERT_TRUE(data.SetReal(8, 2.5));
        EXPECT_EQ(data.Codes().size(), size_t(1 + 1 + row.pieces + 2));
        EXPECT_EQ(TextAt(data, 7), text);
        double real = 0;
        EXPECT_TRUE(data.GetReal(8, real));   // the tag behind the text is found
        EXPECT_EQ(real, 2.5);
    }
}

TEST_F(KxAcXDataTest, AnEmptyTextIsRefusedAndChangesNothing)
{
    List data(L"KxCadBase");
    data.SetString(7, L"标高 ±0.000");
    EXPECT_FALSE(data.SetString(7, L""));
    EXPECT_FALSE(data.SetString(7, nullptr));
    EXPECT_EQ(TextAt(data, 7), L"标高 ±0.000");
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001, 1071, 1000}));
}

TEST_F(KxAcXDataTest, SettingAgainReplacesAndKeepsTheOtherTags)
{
    List data(L"KxCadBase");
    data.SetString(7, std::wstring(600, L'a').c_str());
    data.SetLong(8, 80);
    ASSERT_TRUE(data.SetString(7, L"short"));
    EXPECT_EQ(TextAt(data, 7), L"short");
    long number = 0;
    EXPECT_TRUE(data.GetLong(8, number));
    EXPECT_EQ(number, 80);
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001, 1071, 1071, 1071, 1000}));

    // Over a text of three pieces a value of one group.
    data.SetString(7, std::wstring(600, L'b').c_str());
    data.SetReal(9, 9.5);
    ASSERT_TRUE(data.SetReal(7, 7.5));
    double real = 0;
    EXPECT_TRUE(data.GetReal(7, real));
    EXPECT_EQ(real, 7.5);
    EXPECT_TRUE(data.GetReal(9, real));
    EXPECT_EQ(real, 9.5);
    EXPECT_EQ(TextAt(data, 7), L"(none)");
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001, 1071, 1071, 1071, 1040, 1071, 1040}));
}

TEST_F(KxAcXDataTest, AStoredNumberIsNeverTakenForATag)
{
    List data(L"KxCadBase");
    ASSERT_TRUE(data.SetLong(5, 6));
    ASSERT_TRUE(data.SetLong(7, 5));
    EXPECT_EQ(data.GetTag(5), data.Chain()->rbnext);
    EXPECT_FALSE(data.IsExistTag(6));
    EXPECT_FALSE(data.SetTag(5));
    EXPECT_TRUE(data.Remove(5));
    EXPECT_FALSE(data.Remove(5));
    EXPECT_FALSE(data.IsExistTag(5));   // 7 holds a 5
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001, 1071, 1071}));
    ASSERT_TRUE(data.SetReal(8, 1));   // the end of the list is still known
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001, 1071, 1071, 1071, 1040}));
}

TEST_F(KxAcXDataTest, EveryTypeHasItsGroupCode)
{
    List data(L"KxCadBase");
    CKxAcDb(nullptr, 0).Layer(L"建筑-墙", 1, L"Continuous", nullptr, 1, 0);
    EXPECT_TRUE(data.SetString(1, L"x"));
    EXPECT_TRUE(data.SetLayer(2, L"建筑-墙"));
    EXPECT_TRUE(data.SetHandle(3, AcDbHandle(uint64_t(0x1FABCDEF012))));
    EXPECT_TRUE(data.SetPoint2d(4, AcGePoint2d(1, 2)));
    EXPECT_TRUE(data.SetPosition3d(5, AcGePoint3d(3, 4, 5)));
    EXPECT_TRUE(data.SetDisplacement2d(6, AcGePoint2d(6, 7)));
    EXPECT_TRUE(data.SetDirection3d(7, AcGeVector3d(0, 0, -1)));
    EXPECT_TRUE(data.SetReal(8, 0.1));
    EXPECT_TRUE(data.SetDistance(9, -3.5));
    EXPECT_TRUE(data.SetScale(10, 1e300));
    EXPECT_TRUE(data.SetInteger(11, -32768));
    EXPECT_TRUE(data.SetLong(12, -2147483648L));
    std::vector<int> values;
    for (size_t i = 2; i < data.Codes().size(); i += 2)
        values.push_back(data.Codes()[i]);
    EXPECT_EQ(values, (std::vector<int>{1000, 1003, 1005, 1010, 1011, 1012, 1013, 1040, 1041, 1042, 1070, 1071}));

    // Through the object and back.
    ASSERT_EQ(data.SetXData(line), Acad::eOk);
    CKxAcXData back(L"");
    ASSERT_EQ(back.GetXData(line), Acad::eOk);
    wchar_t layer[32] = L"";
    EXPECT_TRUE(back.GetLayer(2, layer));
    EXPECT_EQ(std::wstring(layer), L"建筑-墙");
    AcDbHandle handle;
    EXPECT_TRUE(back.GetHandle(3, handle));
    EXPECT_EQ(uint64_t(handle), 0x1FABCDEF012u);
    AcGePoint3d point;
    EXPECT_TRUE(back.GetPoint3d(4, point));
    EXPECT_TRUE(point.isEqualTo(AcGePoint3d(1, 2, 0)));
    AcGePoint2d flat;
    EXPECT_TRUE(back.GetPosition2d(5, flat));
    EXPECT_TRUE(flat.isEqualTo(AcGePoint2d(3, 4)));
    EXPECT_TRUE(back.GetDisplacement3d(6, point));
    EXPECT_TRUE(point.isEqualTo(AcGePoint3d(6, 7, 0)));
    AcGeVector3d direction;
    EXPECT_TRUE(back.GetDirection3d(7, direction));
    EXPECT_TRUE(direction.isEqualTo(AcGeVector3d(0, 0, -1)));
    double scale = 0;
    EXPECT_TRUE(back.GetScale(10, scale));
    EXPECT_EQ(scale, 1e300);
    int small = 0;
    EXPECT_TRUE(back.GetInteger(11, small));
    EXPECT_EQ(small, -32768);
    long large = 0;
    EXPECT_TRUE(back.GetLong(12, large));
    EXPECT_EQ(large, -2147483648L);
    // Another type's getter leaves its output alone.
    EXPECT_FALSE(back.GetReal(9, scale));
    EXPECT_EQ(scale, 1e300);
    EXPECT_FALSE(back.GetLong(11, large));
    EXPECT_FALSE(back.GetPosition2d(4, flat));
}

TEST_F(KxAcXDataTest, WhatADrawingCannotHoldIsRefused)
{
    List data(L"KxCadBase");
    data.SetReal(1, 1.5);
    const double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(data.SetReal(1, nan));
    EXPECT_FALSE(data.SetDistance(2, inf));
    EXPECT_FALSE(data.SetPoint3d(3, AcGePoint3d(0, nan, 0)));
    EXPECT_FALSE(data.SetDirection2d(3, AcGeVector2d(-inf, 0)));
    EXPECT_FALSE(data.SetInteger(4, 32768));
    EXPECT_FALSE(data.SetLong(5, 2147483648L));
    EXPECT_FALSE(data.SetReal(2147483648L, 1));
    EXPECT_FALSE(data.SetString(-2147483649L, L"x"));
    EXPECT_FALSE(data.SetLayer(6, L"没有"));
    double real = 0;
    EXPECT_TRUE(data.GetReal(1, real));
    EXPECT_EQ(real, 1.5);
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001, 1071, 1040}));
}

TEST_F(KxAcXDataTest, NamesAreCutToTheirRoom)
{
    List data(L"");
    EXPECT_EQ(data.GetAppName(), L"KxCadBase");
    data.SetAppName(std::wstring(40, L'N').c_str());
    EXPECT_EQ(data.GetAppName().GetLength(), 31);
    EXPECT_EQ(std::wstring(data.Chain()->resval.rstring), std::wstring(31, L'N'));
    data.SetLong(1, 1);
    data.SetAppName(L"");
    data.SetAppName(L"门窗");
    EXPECT_EQ(std::wstring(data.Chain()->resval.rstring), L"门窗");
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001, 1071, 1071}));
}

TEST_F(KxAcXDataTest, DatabaseMembersAnswerTheirStatuses)
{
    List data(L"Tagger");
    data.SetLong(1, 1);
    EXPECT_EQ(Status(data.GetXData(AcDbObjectId())), 16);
    EXPECT_EQ(Status(data.SetXData(AcDbObjectId())), 16);
    EXPECT_EQ(Status(data.GetXData(line)), 51);
    EXPECT_EQ(data.Codes(), (std::vector<int>{1001}));

    // Writing registered the name; the data of two applications live beside each other.
    EXPECT_TRUE(CKxAcDb(nullptr, 0).IsHasSymbolTabRec(AcDbRegAppTable::desc(), L"Tagger"));
    data.SetLong(1, 11);
    ASSERT_EQ(data.SetXData(line), Acad::eOk);
    CKxAcXData other(L"Other");
    other.SetLong(1, 22);
    ASSERT_EQ(other.SetXData(line), Acad::eOk);

    EXPECT_EQ(other.DeleteXData(line, L"tagger"), Acad::eOk);
    EXPECT_EQ(Status(data.GetXData(line)), 51);
    CKxAcXData kept(L"Other");
    ASSERT_EQ(kept.GetXData(line), Acad::eOk);
    EXPECT_EQ(kept.DeleteXData(line, nullptr), Acad::eOk);
    EXPECT_EQ(Status(kept.GetXData(line)), 51);
    const Opened<AcDbObject> object(line, AcDb::kForRead);
    EXPECT_FALSE(object->hasXData());
}

TEST_F(KxAcXDataTest, ErasedAndBusyObjectsAnswerTheHostsStatus)
{
    CKxAcXData data(L"Tagger");
    CKxAcXRecord record(L"Tagger");
    {
        const Opened<AcDbObject> busy(line, AcDb::kForRead);
        EXPECT_EQ(data.SetXData(line), Acad::eWasOpenForRead);
        EXPECT_EQ(record.SetXData(line), Acad::eWasOpenForRead);
    }
    CKxAcDb(nullptr, 0).EraseObject(line, 0);
    EXPECT_EQ(data.GetXData(line), Acad::eWasErased);
    EXPECT_EQ(data.SetXData(line), Acad::eWasErased);
    EXPECT_EQ(record.SetXData(line), Acad::eWasErased);
    EXPECT_EQ(record.RemoveXRecord(line), Acad::eWasErased);
}

TEST_F(KxAcXDataTest, ObjectsOfOtherDrawingsGetTheNameRegisteredThere)
{
    AcDbDatabase other;
    const AcDbObjectId there = NewLine(&other);
    CKxAcXData data(L"旁注");
    data.SetLong(1, 3);
    EXPECT_EQ(data.SetXData(there), Acad::eOk);
    EXPECT_TRUE(CKxAcDb(&other, 0).IsHasSymbolTabRec(AcDbRegAppTable::desc(), L"旁注"));
    EXPECT_FALSE(CKxAcDb(&drawing, 0).IsHasSymbolTabRec(AcDbRegAppTable::desc(), L"旁注"));
}

TEST_F(KxAcXDataTest, RecordsLiveInTheExtensionDictionary)
{
    CKxAcXRecord record(L"First");
    EXPECT_EQ(Status(record.GetXData(AcDbObjectId())), 16);
    EXPECT_EQ(Status(record.RemoveXRecord(AcDbObjectId())), 16);
    EXPECT_EQ(Status(record.GetXData(line)), 128);
    EXPECT_EQ(Status(record.RemoveXRecord(line)), 128);
    record.SetString(1, std::wstring(300, L'录').c_str());
    ASSERT_EQ(record.SetXData(line), Acad::eOk);

    CKxAcXRecord second(L"Second");
    second.SetLong(2, 22);
    second.SetLong(101, 1);
    ASSERT_EQ(second.SetXData(line), Acad::eOk);

    // One record, the second list; the stored name is not looked at.
    CKxAcXRecord back(L"First");
    ASSERT_EQ(back.GetXData(line), Acad::eOk);
    long number = 0;
    EXPECT_TRUE(back.GetLong(2, number));
    EXPECT_EQ(number, 22);
    EXPECT_FALSE(back.IsExistTag(1));
    {
        const Opened<AcDbObject> object(line, AcDb::kForRead);
        const Opened<AcDbDictionary> dictionary(object->extensionDictionary(), AcDb::kForRead);
        EXPECT_EQ(dictionary->numEntries(), 1u);
    }

    ASSERT_EQ(back.RemoveXRecord(line), Acad::eOk);
    EXPECT_TRUE(back.GetLong(2, number));
    EXPECT_FALSE(back.IsExistTag(101));
    EXPECT_EQ(Status(back.GetXData(line)), 22);
    EXPECT_EQ(Status(back.RemoveXRecord(line)), 22);
}

TEST_F(KxAcXDataTest, RemovingARecordLeavesItInTheDrawing)
{
    CKxAcXRecord record(L"First");
    record.SetLong(1, 1);
    record.SetXData(line);
    AcDbObjectId id;
    {
        const Opened<AcDbObject> object(line, AcDb::kForRead);
        const Opened<AcDbDictionary> dictionary(object->extensionDictionary(), AcDb::kForRead);
        dictionary->getAt(L"XRecord", id);
    }
    ASSERT_EQ(record.RemoveXRecord(line), Acad::eOk);
    const Opened<AcDbXrecord> left(id, AcDb::kForRead);
    EXPECT_EQ(left.status(), Acad::eOk);
}

TEST_F(KxAcXDataTest, ADeletedRecordHoldsTheNameAlone)
{
    CKxAcXRecord record(L"First");
    record.SetLong(1, 1);
    record.SetXData(line);
    EXPECT_EQ(record.DeleteXData(line, L"Second"), Acad::eOk);
    EXPECT_EQ(record.GetAppName(), L"Second");
    CKxAcXRecord back(L"First");
    EXPECT_EQ(back.GetXData(line), Acad::eOk);
    EXPECT_FALSE(back.IsExistTag(1));

    // A record without anything in it.
    {
        const Opened<AcDbObject> object(line, AcDb::kForRead);
        const Opened<AcDbDictionary> dictionary(object->extensionDictionary(), AcDb::kForWrite);
        auto* empty = new AcDbXrecord;
        AcDbObjectId id;
        ASSERT_EQ(dictionary->setAt(L"XRecord", empty, id), Acad::eOk);
        empty->close();
    }
    EXPECT_EQ(Status(back.GetXData(line)), 51);
    EXPECT_EQ(Status(back.RemoveXRecord(line)), 51);
    EXPECT_EQ(Status(back.GetXData(line)), 22);
}

TEST_F(KxAcXDataTest, EverythingComesBackFromAFile)
{
    const std::wstring text(600, L'墙');
    CKxAcXData data(L"Tagger");
    CKxAcXRecord record(L"Keeper");
    for (CKxAcXDataList* list : {static_cast<CKxAcXDataList*>(&data), static_cast<CKxAcXDataList*>(&record)}) {
        list->SetString(1, text.c_str());
        list->SetLong(2, 2);
        list->SetPosition3d(3, AcGePoint3d(1, 2, 3));
        list->SetHandle(4, AcDbHandle(uint64_t(0x1F)));
        list->SetReal(5, 0.1);
    }
    ASSERT_EQ(data.SetXData(line), Acad::eOk);
    ASSERT_EQ(record.SetXData(line), Acad::eOk);
    const KxTest::TempFolder folder;
    const std::wstring path = folder.DrivePath(L"tagged.dxf");
    ASSERT_EQ(drawing.saveAs(path.c_str()), Acad::eOk);

    AcDbDatabase read(false, true);
    ASSERT_EQ(read.readDwgFile(path.c_str()), Acad::eOk);
    AcDbObjectId there;
    ASSERT_EQ(read.getAcDbObjectId(there, false, line.handle()), Acad::eOk);
    CKxAcXData dataBack(L"Tagger");
    CKxAcXRecord recordBack(L"");
    ASSERT_EQ(dataBack.GetXData(there), Acad::eOk);
    ASSERT_EQ(recordBack.GetXData(there), Acad::eOk);
    for (const CKxAcXDataList* list :
         {static_cast<const CKxAcXDataList*>(&dataBack), static_cast<const CKxAcXDataList*>(&recordBack)}) {
        EXPECT_EQ(TextAt(*list, 1), text);
        long number = 0;
        EXPECT_TRUE(list->GetLong(2, number));
        AcGePoint3d place;
        EXPECT_TRUE(list->GetPosition3d(3, place));
        EXPECT_TRUE(place.isEqualTo(AcGePoint3d(1, 2, 3)));
        AcDbHandle handle;
        EXPECT_TRUE(list->GetHandle(4, handle));
        EXPECT_EQ(uint64_t(handle), 0x1Fu);
        double real = 0;
        EXPECT_TRUE(list->GetReal(5, real));
        EXPECT_EQ(real, 0.1);
    }
    // Written again the record holds the new values alone.
    recordBack.Clear();
    recordBack.SetLong(9, 9);
    ASSERT_EQ(recordBack.SetXData(there), Acad::eOk);
    ASSERT_EQ(recordBack.GetXData(there), Acad::eOk);
    EXPECT_FALSE(recordBack.IsExistTag(2));
    EXPECT_TRUE(recordBack.IsExistTag(9));
}

TEST_F(KxAcXDataTest, CopiesShareOneList)
{
    CKxAcXData data(L"A");
    data.SetLong(1, 1);
    {
        CKxAcXData copy(data);
        EXPECT_TRUE(copy.SetLong(2, 2));
        CKxAcXData assigned(L"B");
        assigned = copy;
        EXPECT_EQ(assigned.GetAppName(), L"A");
    }
    EXPECT_TRUE(data.IsExistTag(2));
}
