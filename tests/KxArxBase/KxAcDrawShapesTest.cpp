// What dimensions, hatches and clouds of the builder show.
#include "DrawingTest.h"
#include <cmath>

using namespace KxTest;

namespace {

class KxAcDrawShapes : public Drawing {};

}   // namespace

TEST_F(KxAcDrawShapes, DimensionsShowWhatTheyMeasure)
{
    AcDbObjectId style;
    db.DimStyle(L"两位", &style, 1);
    {
        Opened<AcDbDimStyleTableRecord> record(style, AcDb::kForWrite);
        record->setReal(271, 2);    // digits
        record->setReal(179, 1);    // digits of angles
        record->setReal(144, 10);   // factor
    }
    const AcGePoint3d o(0, 0, 0), x(5, 0, 0), y(0, 5, 0);
    const struct {
        const char* what;
        AcDbObjectId id;
        const wchar_t* expected;
    } rows[] = {
        {"plain", db.AddRotatedDim(0, o, {10, 4, 0}, {10, 8, 0}), L"10.0000"},
        {"upright", db.AddRotatedDim(1.5707963267948966, o, {10, 4, 0}, {12, 4, 0}), L"4.0000"},
        {"scaled, two digits", db.AddRotatedDim(0, o, {10, 4, 0}, {10, 8, 0}, nullptr, style), L"100.00"},
        {"around the figure", db.AddRotatedDim(0, o, {10, 4, 0}, {10, 8, 0}, L"<> (3 处)"), L"10.0000 (3 处)"},
        {"in its place", db.AddRotatedDim(0, o, {10, 4, 0}, {10, 8, 0}, L"等分"), L"等分"},
        {"hidden", db.AddRotatedDim(0, o, {10, 4, 0}, {10, 8, 0}, L" "), L""},
        {"radius", db.AddRadialDim(o, x, 2), L"R5.0000"},
        {"diameter", db.AddDiameTricDim(x, {-5, 0, 0}, 0), L"\u00D810.0000"},
        {"angle", db.Add3PointAngularDim(o, x, y, {3, 3, 0}), L"90\u00B0"},
        {"angle the other way", db.Add3PointAngularDim(o, x, y, {-3, -3, 0}), L"270\u00B0"},
        {"angle of lines", db.Add2LineAngularDim(o, x, o, {5, 5, 0}, {4, 1, 0}, nullptr, style), L"45.0\u00B0"},
        {"angle beside it", db.Add2LineAngularDim(o, x, o, {5, 5, 0}, {-1, 4, 0}), L"135\u00B0"},
        {"ordinate", db.AddOrdinateDim(0, {3, 7, 0}, {9, 7, 0}), L"7.0000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Opened<AcDbDimension> dimension(row.id, AcDb::kForRead);
        ASSERT_TRUE(bool(dimension));
        const Opened<AcDbBlockTableRecord> block(dimension->dimBlockId(), AcDb::kForRead);
        ASSERT_TRUE(bool(block));
        CString shown;
        int lines = 0;
        AcDbBlockTableRecordIterator* opened = nullptr;
        block->newIterator(opened);
        for (const std::unique_ptr<AcDbBlockTableRecordIterator> it(opened); !it->done(); it->step()) {
            AcDbEntity* entity = nullptr;
            it->getEntity(entity, AcDb::kForRead);
            if (const AcDbMText* text = AcDbMText::cast(entity))
                shown = text->contentsText();
            lines += entity->isKindOf(AcDbLine::desc()) || entity->isKindOf(AcDbArc::desc());
            entity->close();
        }
        EXPECT_EQ(shown, row.expected);
        EXPECT_GT(lines, 0);
    }
}

TEST_F(KxAcDrawShapes, HatchesFollowTheirBoundary)
{
    AcDbObjectIdArray boundary;
    boundary.append(db.PLine(Flat({{0, 0}, {10, 0}, {10, 10}, {0, 10}}), 256, 1));
    boundary.append(db.Circle({5, 5, 0}, 2));
    const AcDbObjectId id = db.AddHatch(AcDbHatch::kDefault, boundary, 1, L"ANSI31");
    const auto area = [&] {
        double value = 0;
        const Opened<AcDbHatch> hatch(id, AcDb::kForRead);
        hatch->getArea(value);
        return value;
    };
    const double pi = 3.14159265358979323846;
    EXPECT_NEAR(area(), 100 - 4 * pi, 1e-9);   // the circle is an island
    {
        Opened<AcDbCircle> circle(boundary[1], AcDb::kForWrite);
        circle->setRadius(3);
    }
    EXPECT_NEAR(area(), 100 - 9 * pi, 1e-9);
    db.EraseObject(boundary[1], 0);
    {
        const Opened<AcDbHatch> hatch(id, AcDb::kForRead);
        EXPECT_FALSE(hatch->associative());
        EXPECT_EQ(hatch->numPatternDefinitions(), 1);
        double angle = 0, bx = 0, by = 0, ox = 0, oy = 0;
        AcGeDoubleArray dashes;
        EXPECT_EQ(hatch->getPatternDefinitionAt(0, angle, bx, by, ox, oy, dashes), Acad::eOk);
        EXPECT_NEAR(angle, pi / 4, 1e-12);
        EXPECT_NEAR(std::hypot(ox, oy), 3.175, 1e-9);   // an eighth of an inch
    }
    // An open chain bounds nothing.
    AcDbObjectIdArray open;
    open.append(db.Line({0, 0, 0}, {1, 0, 0}));
    open.append(db.Line({1, 0, 0}, {1, 1, 0}));
    EXPECT_TRUE(db.AddHatch(AcDbHatch::kDefault, open, 0, L"SOLID").isNull());
    open.append(db.Line({0, 0, 0}, {1, 1, 0}));
    EXPECT_FALSE(db.AddHatch(AcDbHatch::kDefault, open, 0, L"SOLID").isNull());
    open.append(AcDbObjectId());
    EXPECT_TRUE(db.AddHatch(AcDbHatch::kDefault, open, 0, L"SOLID").isNull());
}

TEST_F(KxAcDrawShapes, CloudsGoAroundTheirBox)
{
    EXPECT_EQ(draw.DrawPlRevCloud(AcGePoint2d(10, 4), AcGePoint2d(0, 0), 2.5), Acad::eOk);
    {
        const auto cloud = Added<AcDbPolyline>();
        EXPECT_EQ(cloud->numVerts(), 4u + 2 + 4 + 2);
        AcDbExtents box;
        cloud->getGeomExtents(box);
        EXPECT_NEAR(box.minPoint().y, -0.625, 1e-9);   // chord times bulge over two
        EXPECT_NEAR(box.maxPoint().x, 10.5, 1e-9);
        EXPECT_TRUE(cloud->isClosed());
    }
    EXPECT_EQ(draw.DrawPlRevCloud(AcGePoint2d(1, 1), AcGePoint2d(1, 5), 1), Acad::eInvalidInput);
    EXPECT_EQ(draw.DrawPlRevCloud(AcGePoint2d(0, 0), AcGePoint2d(1, 5), 0), Acad::eInvalidInput);
}
