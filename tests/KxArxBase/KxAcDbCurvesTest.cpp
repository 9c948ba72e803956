// Blocks with attributes, selections, curves cut and joined, of the toolkit; polygons.
#include "db/core/Stub.h"
#include "KxArxBase/ArxBaseFun.h"
#include "KxArxBase/GeFunctions.h"
#include "KxArxBase/GePolygon.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/Opened.h"
#include "TestUi.h"
#include <cmath>
#include <gtest/gtest.h>
#include <random>

using namespace KxArxBase;

namespace {

const double kPi = 3.14159265358979323846;

class ToolkitTest : public testing::Test {
protected:
    ToolkitTest() : m_open(KxPlat::OpenObjectCount()), db(&drawing, 0) {}
    void TearDown() override { EXPECT_EQ(KxPlat::OpenObjectCount(), m_open); }

    int Count(AcRxClass* cls = nullptr)
    {
        AcDbObjectIdArray ids;
        db.BlockTableGetEntityIds(ids, ACDB_MODEL_SPACE, cls);
        return ids.length();
    }

    TestUi ui;
    AcDbDatabase drawing;

private:
    long m_open;

protected:
    CKxAcDb db;
};

AcGePoint2dArray Polygon(std::initializer_list<AcGePoint2d> points)
{
    AcGePoint2dArray array;
    for (const AcGePoint2d& point : points)
        array.append(point);
    return array;
}

AcDbObjectIdArray Ids(std::initializer_list<AcDbObjectId> ids)
{
    AcDbObjectIdArray array;
    for (const AcDbObjectId& id : ids)
        array.append(id);
    return array;
}

}   // namespace

TEST_F(ToolkitTest, BlocksAreMadeInsertedAndTaggedWithTexts)
{
    const AcDbObjectId line = db.Line({10, 10, 0}, {12, 10, 0});
    const AcDbObjectId tag = db.AddAttributeDefinition({10, 11, 0}, L"M1", L"编号", L"编号?");
    AcDbObjectId block, ref, again;
    EXPECT_EQ(db.MakeBlock(L"门", Ids({line, tag}), {10, 10, 0}, &block), Acad::eOk);
    EXPECT_EQ(db.MakeBlock(L"门", Ids({line}), {0, 0, 0}, &again), Acad::eDuplicateRecordName);
    EXPECT_EQ(int(db.MakeBlock(L"窗", AcDbObjectIdArray(), {0, 0, 0})), 40000);
    EXPECT_EQ(db.MakeBlock(L"坏", Ids({AcDbObjectId()}), {0, 0, 0}), Acad::eNullObjectId);
    EXPECT_FALSE(db.IsHasSymbolTabRec(AcDbBlockTable::desc(), L"坏"));
    CStringArray tags, values;
    tags.Add(L"编号");
    values.Add(L"M-1021");
    EXPECT_EQ(db.BlockRefAttribs(L"门", {5, 5, 0}, AcGeScale3d(2, 2, 2), kPi / 2, tags, values, 1, nullptr, nullptr,
                                 nullptr, &ref),
              Acad::eOk);
    CString name, text;
    EXPECT_EQ(db.GetBlockRefName(ref, name), Acad::eOk);
    EXPECT_EQ(name, L"门");
    EXPECT_EQ(db.GetAttribute(ref, L"编号", text), Acad::eOk);
    EXPECT_EQ(text, L"M-1021");
    EXPECT_EQ(db.SetAttribute(ref, L"编号", L"M-0921"), Acad::eOk);
    CStringArray gotTags, texts;
    EXPECT_EQ(db.GetAttributes(ref, gotTags, texts), Acad::eOk);
    ASSERT_EQ(texts.GetSize(), 1);
    EXPECT_EQ(texts[0], L"M-0921");
    EXPECT_EQ(db.GetAttribute(ref, L"价格", text), Acad::eKeyNotFound);
    AcDbObjectIdArray refs;
    EXPECT_EQ(db.GetBlockRefIds(L"门", refs), Acad::eOk);
    EXPECT_EQ(refs.length(), 1);
    // Turned by a right angle and doubled, the line stands upright above the place.
    AcDbObjectIdArray parts;
    EXPECT_EQ(db.ExplodeEntity(ref, &parts, 1), Acad::eOk);
    ASSERT_EQ(parts.length(), 1);
    const Opened<AcDbLine> part(parts[0], AcDb::kForRead);
    EXPECT_LT(part->endPoint().distanceTo({5, 9, 0}), 1e-9);
}

TEST_F(ToolkitTest, BlocksNeverHoldThemselves)
{
    const AcGeScale3d one(1, 1, 1);
    db.MakeBlock(L"里", Ids({db.Line({0, 0, 0}, {1, 0, 0})}), {0, 0, 0});
    db.MakeBlock(L"外", Ids({db.Line({0, 0, 0}, {1, 0, 0})}), {0, 0, 0});
    EXPECT_EQ(db.BlockRef(L"里", {0, 0, 0}, one, 0, 256, L"外", nullptr, nullptr), Acad::eOk);
    EXPECT_EQ(db.BlockRef(L"外", {0, 0, 0}, one, 0, 256, L"里", nullptr, nullptr), Acad::eSelfReference);
    EXPECT_EQ(db.BlockRef(L"里", {0, 0, 0}, one, 0, 256, L"里", nullptr, nullptr), Acad::eSelfReference);
}

TEST_F(ToolkitTest, SelectsByLayerColourAndPlace)
{
    db.Layer(L"墙", 1, L"Continuous", nullptr, 1, 1);
    const AcDbObjectId wall = db.Line({1, 1, 0}, {3, 1, 0}, 256, nullptr, L"墙");
    const AcDbObjectId red = db.Circle({2, 2, 0}, 0.5, 1);
    const AcDbObjectId out = db.Line({2, 2, 0}, {20, 2, 0}, 3);
    AcDbObjectIdArray ids;
    EXPECT_EQ(db.SelectByLayer(L"没有,墙", ids), Acad::eOk);
    EXPECT_EQ(ids, Ids({wall}));
    EXPECT_EQ(db.SelectByColor(1, ids), Acad::eOk);
    EXPECT_EQ(ids, Ids({red}));
    EXPECT_EQ(db.SelectByWindow({4, 4, 0}, {0, 0, 0}, 0, ids), Acad::eOk);
    EXPECT_EQ(ids, Ids({wall, red}));
    EXPECT_EQ(db.SelectByWindow({4, 4, 0}, {0, 0, 0}, 1, ids, AcDbLine::desc()), Acad::eOk);
    EXPECT_EQ(ids, Ids({wall, out}));
    const AcGePoint2dArray triangle = Polygon({{0, 0}, {6, 0}, {0, 6}});
    EXPECT_EQ(db.SelectByPolygon(triangle, 0, ids), Acad::eOk);
    EXPECT_EQ(ids, Ids({wall, red}));
    EXPECT_EQ(db.SelectByPolygon(triangle, 1, ids), Acad::eOk);
    EXPECT_EQ(ids, Ids({wall, red, out}));
    EXPECT_EQ(db.SelectByPolygon(Polygon({{0, 0}, {1, 1}}), 1, ids), Acad::eInvalidInput);
    int color = 0;
    CString layer;
    bool visible = false;
    EXPECT_EQ(db.GetEntityProperty(wall, &color, &layer, nullptr, &visible), Acad::eOk);
    EXPECT_EQ(color, 256);
    EXPECT_EQ(layer, L"墙");
    EXPECT_TRUE(visible);
    db.EraseObject(wall, 0);
    EXPECT_EQ(db.GetEntityProperty(wall, &color), Acad::eWasErased);
    EXPECT_EQ(db.GetEntityProperty(AcDbObjectId(), &color), Acad::eNullObjectId);
}

TEST_F(ToolkitTest, CutAndJoinedAgainIsTheSameCurve)
{
    AcGePoint2dArray points = Polygon({{0, 0}, {10, 0}, {10, 5}, {3, 8}});
    CArray<double, double> bulges;
    for (const double bulge : {0.4, 0.0, -0.7, 0.0, 0.0})
        bulges.Add(bulge);
    const AcDbObjectId curve = db.PolyLine(points, &bulges, 2);
    double length = 0, joinedLength = 0;
    db.GetCurveLength(curve, length);
    AcGePoint3dArray before, cuts, after;
    db.GetCurvePoints(curve, 40, before);
    for (const int at : {31, 5, 17})
        cuts.append(before[at]);
    AcDbObjectIdArray parts;
    ASSERT_EQ(db.CutCurve(curve, cuts, &parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 4);
    EXPECT_EQ(Count(), 4);
    double sum = 0;
    for (const AcDbObjectId& part : parts) {
        double one = 0;
        int color = 0;
        db.GetCurveLength(part, one);
        db.GetEntityProperty(part, &color);
        EXPECT_EQ(color, 2);
        sum += one;
    }
    EXPECT_NEAR(sum, length, 1e-9);
    std::swap(parts[0], parts[2]);
    AcDbObjectId joined;
    ASSERT_EQ(db.JoinCurves(parts, &joined), Acad::eOk);
    EXPECT_EQ(Count(), 1);
    db.GetCurveLength(joined, joinedLength);
    EXPECT_NEAR(joinedLength, length, 1e-9);
    db.GetCurvePoints(joined, 40, after);
    const bool isTurned = after[0].distanceTo(before[0]) > 1e-6;
    for (int i = 0; i < 40; ++i)
        EXPECT_LT(after[isTurned ? 39 - i : i].distanceTo(before[i]), 1e-8) << i;
}

TEST_F(ToolkitTest, CutsWhereOthersCross)
{
    const AcDbObjectId circle = db.Circle({0, 0, 0}, 5, 1);
    const AcDbObjectId across = db.Line({-9, 3, 0}, {9, 3, 0});
    const AcDbObjectId away = db.Line({-9, 30, 0}, {9, 30, 0});
    AcDbObjectIdArray parts;
    EXPECT_EQ(db.CutCurve(circle, Ids({away}), &parts), Acad::eInvalidInput);
    EXPECT_EQ(db.CutCurve(circle, Ids({across, away}), &parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 2);
    double sum = 0;
    for (const AcDbObjectId& part : parts) {
        EXPECT_EQ(part.objectClass(), AcDbArc::desc());
        double one = 0;
        db.GetCurveLength(part, one);
        sum += one;
    }
    EXPECT_NEAR(sum, 10 * kPi, 1e-9);
    EXPECT_EQ(db.CutCurve(circle, Ids({across}), &parts), Acad::eWasErased);
    AcGePoint3dArray points;
    EXPECT_EQ(db.IntersectCurves(parts.isEmpty() ? across : parts[0], across, points), Acad::eOk);
}

TEST_F(ToolkitTest, PutsCurvesInOrder)
{
    const AcDbObjectId a = db.Line({0, 0, 0}, {1, 0, 0}), b = db.Line({2, 1, 0}, {1, 0, 0}),
                       c = db.Arc({2, 2, 0}, 1, -kPi / 2, 0, 1), apart = db.Line({50, 0, 0}, {51, 0, 0});
    AcDbObjectIdArray curves = Ids({c, b, apart, a});
    AcArray<int> turned;
    EXPECT_EQ(db.SortCurves(curves, &turned), Acad::eOk);
    EXPECT_EQ(curves, Ids({c, b, a, apart}));
    const int expected[] = {1, 0, 1, 0};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(turned[i], expected[i]) << i;
    AcDbObjectId joined;
    EXPECT_EQ(db.JoinCurves(curves, &joined), Acad::eInvalidInput);
    EXPECT_EQ(Count(), 4);
    EXPECT_EQ(db.JoinCurves(Ids({c, b, a}), &joined), Acad::eOk);
    double length = 0;
    db.GetCurveLength(joined, length);
    EXPECT_NEAR(length, 1 + std::sqrt(2.0) + kPi / 2, 1e-9);
    EXPECT_EQ(db.JoinCurves(Ids({db.Circle({0, 0, 0}, 1)}), &joined), Acad::eInvalidInput);
}

TEST_F(ToolkitTest, OffsetsBesideTheCurve)
{
    const AcDbObjectId rectangle = db.PLine(Polygon({{0, 0}, {4, 0}, {4, 3}, {0, 3}}), 256, 1);
    AcDbObjectIdArray parallels;
    EXPECT_EQ(db.OffsetCurve(rectangle, 1, &parallels), Acad::eOk);
    ASSERT_EQ(parallels.length(), 1);
    double area = 0;
    EXPECT_EQ(db.GetCurveArea(parallels[0], area), Acad::eOk);
    EXPECT_NEAR(area, 30, 1e-9);
    EXPECT_EQ(db.OffsetCurve(rectangle, -2, &parallels), Acad::eInvalidInput);
    EXPECT_EQ(db.OffsetCurve(db.Text({0, 0, 0}, L"A", 1), 1, &parallels), Acad::eNotThatKindOfClass);
    int segment = -1;
    AcGePoint3d place;
    EXPECT_EQ(CArxBaseFun::SegmentAt(rectangle, {5, 2, 0}, segment, place), Acad::eOk);
    EXPECT_EQ(segment, 1);
    EXPECT_TRUE(place.isEqualTo({4, 2, 0}));
    AcGePoint3dArray corners;
    EXPECT_EQ(CArxBaseFun::PolylinePoints(rectangle, corners), Acad::eOk);
    EXPECT_EQ(corners.length(), 4);
}

// --- polygons ---

TEST(Polygons, KnownInsidesAndAreas)
{
    const AcGePoint2dArray notched = Polygon({{0, 0}, {4, 0}, {4, 4}, {2, 1}, {0, 4}});
    EXPECT_DOUBLE_EQ(Ge::PolygonArea(notched), 10);
    const struct {
        AcGePoint2d point;
        int where;
    } rows[] = {{{2, 0.5}, 1}, {{2, 2}, 0}, {{2, 1}, -1}, {{4, 2}, -1}, {{5, 0}, 0}, {{0.5, 2.5}, 1}, {{-1, 0}, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(Ge::PointInPolygon(row.point, notched), row.where) << row.point.x << " " << row.point.y;
    AcGePoint2dArray hull;
    Ge::ConvexHull(notched, hull);
    EXPECT_EQ(hull.length(), 4);
    EXPECT_DOUBLE_EQ(Ge::PolygonArea(hull), 16);
    const AcGePoint2d middle = Ge::PolygonCentroid(Polygon({{1, 1}, {5, 1}, {5, 3}, {1, 3}}));
    EXPECT_NEAR(middle.x, 3, 1e-12);
    EXPECT_NEAR(middle.y, 2, 1e-12);
}

TEST(Polygons, ShareKnownAreas)
{
    const AcGePoint2dArray square = Polygon({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
    const struct {
        const char* what;
        AcGePoint2dArray other;
        int count;
        double area;
    } rows[] = {
        {"a corner", Polygon({{2, 2}, {6, 2}, {6, 6}, {2, 6}}), 1, 4},
        {"the same, turned right", Polygon({{0, 0}, {0, 4}, {4, 4}, {4, 0}}), 1, 16},
        {"inside", Polygon({{1, 1}, {2, 1}, {2, 2}}), 1, 0.5},
        {"around", Polygon({{-9, -9}, {9, -9}, {9, 9}, {-9, 9}}), 1, 16},
        {"beside, one edge shared", Polygon({{4, 0}, {8, 0}, {8, 4}, {4, 4}}), 0, 0},
        {"an edge in common inside", Polygon({{2, 0}, {4, 0}, {4, 2}, {2, 2}}), 1, 4},
        {"apart", Polygon({{10, 10}, {11, 10}, {11, 11}}), 0, 0},
        {"a comb of two teeth", Polygon({{-1, 3}, {5, 3}, {5, 6}, {3, 6}, {3, 5}, {-1, 5}}), 1, 4},
        {"in two parts", Polygon({{-1, -1}, {1, -1}, {1, 5}, {3, 5}, {3, -1}, {5, -1}, {5, 6}, {-1, 6}}), 2, 8},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        AcArray<AcGePoint2dArray> shared;
        Ge::PolygonIntersection(square, row.other, shared);
        EXPECT_EQ(shared.length(), row.count);
        double area = 0;
        for (const AcGePoint2dArray& part : shared)
            area += Ge::PolygonArea(part);
        EXPECT_NEAR(area, row.area, 1e-9);
    }
}

// What two polygons share is as large seen from either, and no place tells otherwise.
TEST(Polygons, ShareWhatLiesInBoth)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<> radius(2, 10), place(-4, 4);
    for (int round = 0; round < 60; ++round) {
        const auto star = [&](int corners) {
            AcGePoint2dArray polygon;
            const double x = place(random), y = place(random);
            for (int i = 0; i < corners; ++i) {
                const double angle = 2 * kPi * i / corners, reach = radius(random);
                polygon.append(AcGePoint2d(x + reach * std::cos(angle), y + reach * std::sin(angle)));
            }
            return polygon;
        };
        const AcGePoint2dArray a = star(5 + round % 8), b = star(4 + round % 5);
        AcArray<AcGePoint2dArray> ab, ba;
        Ge::PolygonIntersection(a, b, ab);
        Ge::PolygonIntersection(b, a, ba);
        double one = 0, other = 0;
        for (const AcGePoint2dArray& part : ab)
            one += Ge::PolygonArea(part);
        for (const AcGePoint2dArray& part : ba)
            other += Ge::PolygonArea(part);
        EXPECT_NEAR(one, other, 1e-9);
        for (int k = 0; k < 200; ++k) {
            const AcGePoint2d at(place(random) * 2, place(random) * 2);
            bool isInShared = false;
            for (const AcGePoint2dArray& part : ab)
                isInShared = isInShared || Ge::PointInPolygon(at, part) != 0;
            EXPECT_EQ(isInShared, Ge::PointInPolygon(at, a) != 0 && Ge::PointInPolygon(at, b) != 0) << round;
        }
    }
}

TEST(SmallGeometry, AnglesMatricesAndBulges)
{
    EXPECT_NEAR(Ge::GetAngle({0, 0, 0}, {0, -2, 5}), 1.5 * kPi, 1e-12);
    EXPECT_NEAR(Ge::GetAngle({1, 0, 0}, {0, 0, 0}, {0, 1, 0}), kPi / 2, 1e-12);
    const struct {
        double angle, expected;
    } texts[] = {{0, 0}, {kPi / 2, kPi / 2}, {kPi, 0}, {1.5 * kPi, kPi / 2}, {kPi * 0.75, -kPi / 4}, {-0.1, -0.1}};
    for (const auto& row : texts)
        EXPECT_NEAR(Ge::TextAngle(row.angle), row.expected, 1e-9) << row.angle;
    EXPECT_EQ(Ge::SideOf({1, 1, 0}, {0, 0, 0}, {2, 0, 0}), 1);
    EXPECT_EQ(Ge::SideOf({1, -1, 9}, {0, 0, 0}, {2, 0, 0}), -1);
    EXPECT_EQ(Ge::SideOf({7, 0, 0}, {0, 0, 0}, {2, 0, 0}), 0);
    EXPECT_NEAR(Ge::BulgeOfArc({0, 0}, {1, -1}, {2, 0}), 1, 1e-12);
    EXPECT_TRUE(Ge::MiddleOfBulge({0, 0}, {2, 0}, 1).isEqualTo(AcGePoint2d(1, -1)));
    const AcGeMatrix3d align = CArxBaseFun::AlignMatrix({0, 0, 0}, {1, 0, 0}, {5, 5, 0}, {5, 7, 0}, 1);
    EXPECT_LT((align * AcGePoint3d(1, 0, 0)).distanceTo({5, 7, 0}), 1e-12);
    EXPECT_LT((CArxBaseFun::MirrorMatrix({0, 0, 0}, {1, 1, 0}) * AcGePoint3d(3, 0, 0)).distanceTo({0, 3, 0}), 1e-12);
    EXPECT_TRUE(CArxBaseFun::IsAngleBetween(0.1, 6, 1));
    EXPECT_FALSE(CArxBaseFun::IsAngleBetween(3, 6, 1));
    AcGePoint3d center;
    double radius = 0;
    EXPECT_TRUE(Ge::CircleThrough({1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, center, radius));
    EXPECT_NEAR(radius, 1, 1e-12);
    EXPECT_FALSE(Ge::CircleThrough({1, 0, 0}, {2, 0, 0}, {3, 0, 0}, center, radius));
}
