// Questions in one call, and the drag jig, in a session whose answers are typed.
#include "KxArxBase/ArxBaseFun.h"
#include "KxArxBase/AsdkBaseJig.h"
#include "KxArxBase/GiAsk.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/Opened.h"
#include "platform/ed/EditorTest.h"
#include <memory>

using namespace KxArxBase;

namespace {

class AskTest : public KxTest::Editor {
protected:
    CKxAcDb db;
};

// Turns the entity by keyword, and ends on the second one.
class TurningJig : public AsdkBaseJig {
public:
    using AsdkBaseJig::AsdkBaseJig;
    int turns = 0;

protected:
    bool OnKeyword(int index, const wchar_t* keyword) override
    {
        if (index != 0 || CString(keyword) != L"Turn")
            return false;
        ++turns;
        entity()->transformBy(CArxBaseFun::RotateMatrix(Point(), 1.5707963267948966));
        return true;
    }
};

}   // namespace

TEST_F(AskTest, AnswersAndKeywords)
{
    AcGePoint3d point(9, 9, 9), base(1, 1, 0);
    CString keyword, text;
    double number = 0;
    int count = 0;
    Type(L"3,4\n");
    EXPECT_EQ(Gi::PickPoint(L"\n起点: ", point), RTNORM);
    EXPECT_TRUE(point.isEqualTo(AcGePoint3d(3, 4, 0)));
    Type(L"c\n");
    EXPECT_EQ(Gi::PickPoint(L"\n下一点 [Close/Undo]: ", point, &base, 0, L"Close Undo", &keyword), RTKWORD);
    EXPECT_EQ(keyword, L"Close");
    EXPECT_TRUE(point.isEqualTo(AcGePoint3d(3, 4, 0)));   // kept
    Type(L"4,5\n");
    EXPECT_EQ(Gi::PickDistance(L"\n距离: ", number, &base), RTNORM);
    EXPECT_NEAR(number, 5, 1e-12);
    Type(L"\n");
    EXPECT_EQ(Gi::AskInt(L"\n数量: ", count), RTNONE);
    Type(L"12\n");
    EXPECT_EQ(Gi::AskInt(L"\n数量: ", count), RTNORM);
    EXPECT_EQ(count, 12);
    Type(L"2.5\n");
    EXPECT_EQ(Gi::AskReal(L"\n系数: ", number), RTNORM);
    EXPECT_EQ(number, 2.5);
    Type(L"卧 室\n");
    EXPECT_EQ(Gi::AskString(L"\n名称: ", text), RTNORM);
    EXPECT_EQ(text, L"卧 室");
    Type(L"y\n");
    EXPECT_EQ(Gi::AskKeyword(L"\n确定 [Yes/No]: ", L"Yes No", keyword), RTNORM);
    EXPECT_EQ(keyword, L"Yes");
}

TEST_F(AskTest, SelectionsAndDocuments)
{
    AcDbObjectIdArray ids;
    EXPECT_EQ(int(Gi::SelectAll(ids)), 40000);
    const AcDbObjectId line = db.Line({0, 0, 0}, {5, 0, 0}), circle = db.Circle({2, 2, 0}, 1);
    EXPECT_EQ(Gi::SelectAll(ids), Acad::eOk);
    EXPECT_EQ(ids.length(), 2);
    resbuf* filter = acutBuildList(RTDXF0, L"CIRCLE", 0);
    EXPECT_EQ(Gi::SelectAll(ids, filter), Acad::eOk);
    acutRelRb(filter);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_EQ(ids[0], circle);
    EXPECT_EQ(Gi::SetPickSet(ids), Acad::eOk);
    EXPECT_EQ(Gi::SetPickSet(AcDbObjectIdArray()), Acad::eOk);
    AcDbObjectId picked;
    AcGePoint3d at;
    Type(L"3,0\n");
    EXPECT_EQ(Gi::PickOneEntity(L"\n选择直线: ", picked, at, AcDbLine::desc()), RTNORM);
    EXPECT_EQ(picked, line);
    Type(L"3,0\n");
    EXPECT_EQ(CArxBaseFun::PickPolyline(L"\n选择多段线: ", picked, at), RTERROR);
    EXPECT_TRUE(picked.isNull());
    AcArray<AcApDocument*> documents;
    Gi::GetDocuments(documents);
    ASSERT_EQ(documents.length(), 1);
    EXPECT_EQ(documents[0], Gi::CurrentDocument());
}

TEST_F(AskTest, JigsFollowThePointAndTurnByKeyword)
{
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    TurningJig jig(line.get(), AcGePoint3d(0, 0, 0));
    Type(L"t\n10,10\n");
    EXPECT_EQ(jig.StartDrag(L"\n放置 [Turn/Exit]: ", L"Turn Exit"), AcEdJig::kNormal);
    EXPECT_EQ(jig.turns, 1);
    EXPECT_TRUE(line->startPoint().isEqualTo(AcGePoint3d(10, 10, 0)));
    EXPECT_TRUE(line->endPoint().isEqualTo(AcGePoint3d(10, 11, 0)));
    const AcDbObjectId id = jig.Append();
    ASSERT_FALSE(id.isNull());
    line.release();
    EXPECT_EQ(Opened<AcDbLine>(id, AcDb::kForRead).status(), Acad::eOk);
    EXPECT_TRUE(jig.Append().isNull());

    AcDbCircle circle(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 1);
    TurningJig other(&circle, AcGePoint3d(0, 0, 0));
    Type(L"e\n");
    EXPECT_EQ(other.StartDrag(L"\n放置: ", L"Turn Exit"), AcEdJig::kKW2);
    Type(L"\n");
    EXPECT_EQ(other.StartDrag(L"\n放置: "), AcEdJig::kNull);
    EXPECT_TRUE(circle.center().isEqualTo(AcGePoint3d(0, 0, 0)));
}
