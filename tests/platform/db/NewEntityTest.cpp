// Entities made from points: fitted polylines, multilines, splines, tolerances, figures of dimensions.
#include "db/AcDb2dPolyline.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDictionary.h"
#include "db/AcDbDimension.h"
#include "db/AcDbDimStyleTableRecord.h"
#include "db/AcDbFcf.h"
#include "db/AcDbLine.h"
#include "db/AcDbMline.h"
#include "db/AcDbMlineStyle.h"
#include "db/AcDbPolyline.h"
#include "db/AcDbSpline.h"
#include "db/core/CurvePieces.h"
#include "db/core/DimVars.h"
#include "rx/acutads.h"
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

using namespace KxPlat;

namespace {

AcGePoint3dArray Points(std::initializer_list<AcGePoint3d> points)
{
    AcGePoint3dArray array;
    for (const AcGePoint3d& point : points)
        array.append(point);
    return array;
}

}   // namespace

// A fitted curve passes its points, and no two of its arcs meet at an angle.
TEST(FittedPolylines, PassTheirPointsSmoothly)
{
    const AcGePoint3dArray points = Points({{0, 0, 0}, {4, 1, 0}, {5, 5, 0}, {1, 6, 0}, {-2, 3, 0}});
    for (const bool isClosed : {false, true}) {
        const AcDb2dPolyline polyline(AcDb::k2dFitCurvePoly, points, 0, isClosed);
        CurvePieces pieces;
        polyline.addOutline(pieces);
        ASSERT_EQ(pieces.size(), isClosed ? 10u : 8u);
        for (int index = 0; index < points.length(); ++index) {
            AcGePoint3d nearest;
            polyline.getClosestPointTo(points[index], nearest);
            EXPECT_LT(nearest.distanceTo(points[index]), 1e-9) << index;
        }
        for (size_t index = 0; index + (isClosed ? 0 : 1) < pieces.size(); ++index) {
            const CurvePiece &one = pieces[index], &next = pieces[(index + 1) % pieces.size()];
            const AcGeVector3d in = one.curve->derivativesAt(one.to).first.normal();
            const AcGeVector3d out = next.curve->derivativesAt(next.from).first.normal();
            EXPECT_LT((in - out).length(), 1e-7) << index;
        }
    }
}

TEST(FittedPolylines, SplinesKeepTheirFrame)
{
    const AcGePoint3dArray frame = Points({{0, 0, 0}, {4, 1, 0}, {5, 5, 0}, {1, 6, 0}});
    const AcDb3dPolyline open(AcDb::k3dCubicSplinePoly, frame, Adesk::kFalse);
    AcGePoint3d start, end;
    open.getStartPoint(start);
    open.getEndPoint(end);
    EXPECT_TRUE(start.isEqualTo(frame[0]));
    EXPECT_TRUE(end.isEqualTo(frame[3]));
    double last = 0;
    open.getEndParam(last);
    EXPECT_EQ(last, 24);   // eight for each side of the frame
    const AcDb2dPolyline closed(AcDb::k2dQuadSplinePoly, frame, 2, Adesk::kTrue);
    closed.getEndParam(last);
    EXPECT_EQ(last, 32);
    closed.getStartPoint(start);
    EXPECT_EQ(start.z, 2);
}

TEST(Multilines, RunBesideTheirWay)
{
    AcDbDatabase drawing;
    auto* style = new AcDbMlineStyle;
    style->setName(L"240墙");
    AcCmColor color;
    color.setColorIndex(3);
    int index = -1;
    style->addElement(index, -0.5, color);
    style->addElement(index, 0.5, color);
    EXPECT_EQ(index, 0);   // in falling order
    AcDbDictionary* styles = nullptr;
    ASSERT_EQ(drawing.getMLStyleDictionary(styles, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    ASSERT_EQ(styles->setAt(L"240墙", style, id), Acad::eOk);
    styles->close();
    style->close();
    const struct {
        AcDbMline::MlineJustification justification;
        double low, high;   // how far the lines lie beside the way along X
    } rows[] = {{AcDbMline::kTop, -240, 0}, {AcDbMline::kZero, -120, 120}, {AcDbMline::kBottom, 0, 240}};
    for (const auto& row : rows) {
        AcDbMline mline;
        mline.setStyle(id);
        mline.setScale(240);
        mline.setJustification(row.justification);
        for (const AcGePoint3d& point : {AcGePoint3d(0, 0, 0), AcGePoint3d(1000, 0, 0), AcGePoint3d(1000, 1000, 0)})
            mline.appendSeg(point);
        CurvePieces pieces;
        mline.addOutline(pieces);
        ASSERT_EQ(pieces.size(), 4u);
        double low = 1e9, high = -1e9;
        for (const CurvePiece& piece : pieces) {
            const AcGePoint3d start = piece.curve->evalPoint(piece.from), end = piece.curve->evalPoint(piece.to);
            if (std::fabs(start.x) < 1e-9) {
                low = std::min(low, start.y), high = std::max(high, start.y);
                EXPECT_NEAR(start.y, end.y, 1e-9);          // parallel
                EXPECT_NEAR(end.x, 1000 - start.y, 1e-9);   // as far as the mitre
            }
        }
        EXPECT_NEAR(low, row.low, 1e-9);
        EXPECT_NEAR(high, row.high, 1e-9);
    }
    AcDbMline mline;
    EXPECT_EQ(mline.setStyle(drawing.layerZero()), Acad::eInvalidInput);
    mline.setStyle(id);
    mline.appendSeg(AcGePoint3d(1, 0, 0));
    AcGePoint3d removed;
    EXPECT_EQ(mline.removeLastSeg(removed), Acad::eOk);
    EXPECT_EQ(mline.removeLastSeg(removed), Acad::eDegenerateGeometry);
}

TEST(Splines, FromPointsAreFlatAndClosedWhereThePointsAre)
{
    AcDbSpline flat(Points({{0, 0, 1}, {2, 3, 1}, {5, -1, 1}}));
    EXPECT_TRUE(flat.isPlanar());
    EXPECT_EQ(flat.numFitPoints(), 3);
    EXPECT_EQ(flat.degree(), 3);
    EXPECT_FALSE(AcDbSpline(Points({{0, 0, 0}, {2, 3, 1}, {5, -1, 0}, {6, 6, 6}})).isPlanar());
    EXPECT_TRUE(AcDbSpline(Points({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 0, 0}})).isClosed());
    EXPECT_EQ(AcDbSpline(Points({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}}), 3).degree(), 2);
    EXPECT_EQ(AcDbSpline(Points({{1, 1, 0}})).numControlPoints(), 0);
}

TEST(Tolerances, StandInCells)
{
    AcDbFcf frame(L"{\\Fgdt;j}%%v0.5%%vA%%v%%v%%v^J{\\Fgdt;r}%%v0.1", AcGePoint3d(1, 2, 0), AcGeVector3d(0, 0, 1),
                  AcGeVector3d(1, 0, 0));
    CurvePieces pieces;
    frame.addOutline(pieces);
    EXPECT_EQ(pieces.size(), 5u * 4);   // three cells, then two
    AcDbExtents box;
    frame.getGeomExtents(box);
    EXPECT_NEAR(box.minPoint().x, 1, 1e-9);
    EXPECT_NEAR(box.maxPoint().y, 2.18, 1e-9);   // half a row of twice the text height above the place
    EXPECT_NEAR(box.minPoint().y, 1.46, 1e-9);
}

TEST(DimensionFigures, FollowTheStyle)
{
    struct Variable {
        int code;
        double value;
    };
    const struct {
        const char* what;
        double value;
        std::vector<Variable> variables;
        bool isAngle;
        const wchar_t* expected;
    } rows[] = {
        {"plain", 12.5, {}, false, L"12.5000"},
        {"two digits", 12.345, {{271, 2}}, false, L"12.35"},
        {"no zeros behind", 12.5, {{78, 8}}, false, L"12.5"},
        {"no zeros at all behind", 12, {{78, 8}}, false, L"12"},
        {"no zero before", 0.5, {{78, 4}, {271, 2}}, false, L".50"},
        {"rounded to quarters", 12.4, {{45, 0.25}, {271, 2}}, false, L"12.50"},
        {"a factor", 2, {{144, 25.4}, {271, 1}}, false, L"50.8"},
        {"a comma", 1.5, {{278, L','}, {271, 1}}, false, L"1,5"},
        {"scientific", 1500, {{277, 1}, {271, 2}}, false, L"1.50E+03"},
        {"feet and inches", 30.5, {{277, 3}, {271, 1}}, false, L"2'-6.5\""},
        {"fractions", 6.75, {{277, 5}, {271, 3}}, false, L"6 3/4"},
        {"feet and fractions", 27.5, {{277, 4}, {271, 4}}, false, L"2'-3 1/2\""},
        {"degrees", 0.5235987755982988, {{179, 1}}, true, L"30.0\u00B0"},
        {"degrees and minutes", 0.5279620985249867, {{275, 1}}, true, L"30\u00B015'0\""},
        {"grads", 1.5707963267948966, {{275, 2}}, true, L"100g"},
        {"radians", 1.5, {{275, 3}, {179, 2}}, true, L"1.50r"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        AcDbDatabase drawing;
        AcDbDimStyleTableRecord* style = nullptr;
        ASSERT_EQ(acdbOpenObject(style, drawing.dimstyle(), AcDb::kForWrite), Acad::eOk);
        for (const Variable& variable : row.variables)
            style->setReal(variable.code, variable.value);
        style->close();
        const AcDbLine any(AcGePoint3d(), AcGePoint3d(1, 0, 0));
        EXPECT_EQ(DimFigure(DimVars(any, drawing.dimstyle()), row.value, row.isAngle), CString(row.expected));
    }
    EXPECT_EQ(DimText(L"5", L"约 <> 米"), L"约 5 米");
    EXPECT_EQ(DimText(L"5", L" "), L"");
}

TEST(AnonymousBlocks, GetNumbers)
{
    AcDbDatabase drawing;
    AcDbBlockTable* table = nullptr;
    drawing.getBlockTable(table, AcDb::kForWrite);
    for (const wchar_t* expected : {L"*U1", L"*U2", L"*U3"}) {
        auto* block = new AcDbBlockTableRecord;
        EXPECT_EQ(block->setName(L"*U"), Acad::eOk);
        EXPECT_EQ(table->add(block), Acad::eOk);
        ACHAR* name = nullptr;
        block->getName(name);
        EXPECT_STREQ(name, expected);
        acutDelString(name);
        block->close();
    }
    table->close();
    AcDbBlockTableRecord record;
    EXPECT_EQ(record.setName(std::wstring(256, L'墙').c_str()), Acad::eInvalidSymbolTableName);
    EXPECT_EQ(record.setName(std::wstring(255, L'墙').c_str()), Acad::eOk);
}

// Moved and turned, a dimension takes its picture along; changed, it gets a new one.
TEST(DimensionPictures, FollowTheirDimension)
{
    AcDbDatabase drawing;
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(acdbOpenObject(space, drawing.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    auto* dimension = new AcDbRotatedDimension(0, AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(10, 3, 0));
    AcDbObjectId id;
    ASSERT_EQ(space->appendAcDbEntity(id, dimension), Acad::eOk);
    space->close();
    EXPECT_TRUE(dimension->dimBlockId().isNull());
    dimension->close();
    const AcDbObjectId first = dimension->dimBlockId();
    EXPECT_FALSE(first.isNull());
    AcDbExtents before, after;
    ASSERT_EQ(dimension->getGeomExtents(before), Acad::eOk);
    EXPECT_LE(before.minPoint().x, 0);
    EXPECT_GE(before.maxPoint().y, 3);

    AcDbRotatedDimension* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(opened->transformBy(AcGeMatrix3d::translation(AcGeVector3d(100, 0, 0))), Acad::eOk);
    opened->close();
    opened->getGeomExtents(after);
    EXPECT_NEAR(after.minPoint().x, before.minPoint().x + 100, 1e-9);
    EXPECT_NEAR(after.maxPoint().y, before.maxPoint().y, 1e-9);

    ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
    opened->setXLine2Point(AcGePoint3d(125, 0, 0));
    opened->close();
    double measured = 0;
    opened->measurement(measured);
    EXPECT_NEAR(measured, 25, 1e-12);
    opened->getGeomExtents(after);
    EXPECT_GE(after.maxPoint().x, 125);
    // A change that is none of its picture leaves the block alone.
    const AcDbObjectId block = opened->dimBlockId();
    ASSERT_EQ(acdbOpenObject(opened, id, AcDb::kForWrite), Acad::eOk);
    opened->setColorIndex(1);
    opened->close();
    EXPECT_EQ(opened->dimBlockId(), block);
}
