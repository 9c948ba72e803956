// The drawing builder on both targets, and the creation members over it.
#include "DrawingTest.h"
#include "RecordingDraw.h"
#include <cmath>
#include <cstdlib>
#include <limits>

using namespace KxTest;

namespace {

class KxAcDrawTest : public Drawing {};

}   // namespace

TEST_F(KxAcDrawTest, ArraysOfAPolylineLoseTheirLastElement)
{
    CArray<double, double> bulges, starts, ends;
    Fill(bulges, {0.5, -0.25, 1});
    Fill(starts, {1, 2, 3, 4});
    Fill(ends, {5});
    EXPECT_EQ(draw.DrawPolyLine(Flat({{0, 0}, {4, 0}, {4, 3}}), &bulges, 1, &starts, &ends, 1), Acad::eOk);
    const auto polyline = Added<AcDbPolyline>();
    const struct {
        double bulge, start, end;
    } rows[] = {{0.5, 1, 0}, {-0.25, 2, 0}, {0, 3, 0}};
    for (unsigned i = 0; i < 3; ++i) {
        double bulge = 9, start = 9, end = 9;
        polyline->getBulgeAt(i, bulge);
        polyline->getWidthsAt(i, start, end);
        EXPECT_EQ(bulge, rows[i].bulge) << i;
        EXPECT_EQ(start, rows[i].start) << i;
        EXPECT_EQ(end, rows[i].end) << i;
    }
    EXPECT_TRUE(polyline->isClosed());
    EXPECT_EQ(polyline->colorIndex(), 1);
}

TEST_F(KxAcDrawTest, PolylinesTakeTheirPlaneAndWidth)
{
    const double width = 0.3;
    EXPECT_EQ(draw.DrawPolyLine(Flat({{0, 0}, {4, 0}}), nullptr, 256, nullptr, nullptr, 0, nullptr, nullptr,
                                AcGeVector3d(0, 1, 0), 2, 5, &width),
              Acad::eOk);
    const auto polyline = Added<AcDbPolyline>();
    double constant = 0;
    EXPECT_EQ(polyline->getConstantWidth(constant), Acad::eOk);
    EXPECT_EQ(constant, 0.3);
    EXPECT_EQ(polyline->thickness(), 2);
    EXPECT_EQ(polyline->elevation(), 5);
    EXPECT_TRUE(polyline->normal().isEqualTo(AcGeVector3d(0, 1, 0)));
    EXPECT_EQ(Number(draw.DrawPolyLine(Flat({}))), 3);
}

TEST_F(KxAcDrawTest, TextsTakeTheSizesOfTheirStyle)
{
    AcDbObjectId style;
    db.TextStyle(L"标注", L"txt.shx", L"hztxt.shx", 3.5, 0.7, 1, &style, 1);
    const struct {
        double height, factor;
        const wchar_t* style;
        double expectedHeight, expectedFactor;
    } rows[] = {{-2.5, 1, nullptr, 2.5, 1},
                {0, 1, L"标注", 3.5, 1},
                {-4, 0, L"标注", 3.5, 0.7},
                {2, 0.8, L"标注", 2, 0.8},
                {2.5, 1, L"没有", 2.5, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.height);
        EXPECT_EQ(draw.DrawTextW(AcGePoint3d(1, 2, 0), L"房间", row.height, 0, row.factor, row.style), Acad::eOk);
        const auto text = Added<AcDbText>();
        EXPECT_EQ(text->height(), row.expectedHeight);
        EXPECT_EQ(text->widthFactor(), row.expectedFactor);
        EXPECT_EQ(text->textStyle() == style, row.style != nullptr && CString(row.style) == L"标注");
    }
    EXPECT_EQ(draw.DrawTextW(AcGePoint3d(10, 5, 0), L"AB", 2, 0, 1, nullptr, 256, nullptr, nullptr, AcDb::kTextRight,
                             AcDb::kTextTop),
              Acad::eOk);
    const auto text = Added<AcDbText>();
    EXPECT_TRUE(text->alignmentPoint().isEqualTo(AcGePoint3d(10, 5, 0)));
    EXPECT_NEAR(text->position().y, 3, 1e-9);
    EXPECT_LT(text->position().x, 9);
}

TEST_F(KxAcDrawTest, TheFunnelRefusesWhatItCannotDraw)
{
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(Number(draw.DrawEntity(entity, 1, nullptr, nullptr)), 15);
    const AcDbObjectId id = db.Line(AcGePoint3d(), AcGePoint3d(1, 0, 0));
    const Opened<AcDbEntity> reading(id, AcDb::kForRead);
    entity = reading.get();
    EXPECT_EQ(Number(draw.DrawEntity(entity, 1, nullptr, nullptr)), 45);
    EXPECT_EQ(draw.GetEnts().length(), 0);
}

TEST_F(KxAcDrawTest, PropertiesGoByName)
{
    AcDbObjectId layer;
    db.Layer(L"墙体", 1, L"Continuous", &layer, 1, 1);
    EXPECT_EQ(draw.DrawLine(AcGePoint3d(), AcGePoint3d(1, 1, 0), 3, L"墙体", L"ByBlock"), Acad::eOk);
    {
        const auto line = Added<AcDbLine>();
        EXPECT_EQ(line->layerId(), layer);
        EXPECT_EQ(line->colorIndex(), 3);
        EXPECT_EQ(line->linetypeId(), drawing.byBlockLinetype());
    }
    // A name that is none is told, and the line is there without it.
    EXPECT_EQ(draw.DrawLine(AcGePoint3d(), AcGePoint3d(1, 1, 0), 3, L"没有"), Acad::eKeyNotFound);
    EXPECT_EQ(Added<AcDbLine>()->layerId(), drawing.layerZero());
    EXPECT_TRUE(db.Line(AcGePoint3d(), AcGePoint3d(1, 1, 0), 3, nullptr, L"没有").isNull());
}

TEST_F(KxAcDrawTest, AppendsInOrderAndForgets)
{
    draw.DrawLine(AcGePoint3d(), AcGePoint3d(1, 0, 0));
    draw.DrawCircle(AcGePoint3d(), 2);
    draw.DrawPoint(AcGePoint3d(3, 3, 3));
    EXPECT_EQ(draw.GetEnts().length(), 3);
    AcDbObjectIdArray ids;
    ids.append(AcDbObjectId());
    EXPECT_EQ(draw.AddEntsToDb(nullptr, &ids), Acad::eOk);
    ASSERT_EQ(ids.length(), 3);
    AcRxClass* const classes[] = {AcDbLine::desc(), AcDbCircle::desc(), AcDbPoint::desc()};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(ids[i].objectClass(), classes[i]);
    EXPECT_EQ(draw.GetEnts().length(), 0);
    EXPECT_EQ(draw.AddEntsToDb(nullptr, &ids), Acad::eOk);
    EXPECT_EQ(ids.length(), 0);
    // A block that is none takes nothing; the entities are gone all the same.
    draw.DrawLine(AcGePoint3d(), AcGePoint3d(1, 0, 0));
    draw.DrawLine(AcGePoint3d(), AcGePoint3d(2, 0, 0));
    EXPECT_EQ(draw.AddEntsToDb(L"没有这块", &ids), Acad::eKeyNotFound);
    EXPECT_EQ(ids.length(), 0);
    EXPECT_EQ(draw.GetEnts().length(), 0);
    // What a block does not take stops no other.
    draw.Draw2dVertex(AcGePoint3d());
    draw.DrawLine(AcGePoint3d(), AcGePoint3d(1, 0, 0));
    EXPECT_EQ(draw.AddEntsToDb(nullptr, &ids), Acad::eOk);
    EXPECT_EQ(ids.length(), 1);
    draw.DrawLine(AcGePoint3d(), AcGePoint3d(1, 0, 0));   // deleted with the builder
}

TEST_F(KxAcDrawTest, StatesAreSavedAndGivenBack)
{
    EXPECT_EQ(Number(draw.PopDrawState()), 151);
    AcDbObjectId layer, style;
    db.Layer(L"轴线", 2, L"Continuous", &layer, 1, 1);
    db.TextStyle(L"仿宋", L"txt", nullptr, 0, 1, 1, &style, 1);
    EXPECT_EQ(draw.PushDrawState(), Acad::eOk);
    const AcDbObjectId before = drawing.clayer(), styleBefore = drawing.textstyle();
    const double sizeBefore = drawing.textsize();
    AcCmColor red;
    red.setColorIndex(1);
    drawing.setCecolor(red);
    drawing.setClayer(layer);
    drawing.setTextstyle(style);
    drawing.setTextsize(7);
    CKxAcDrawState state;
    EXPECT_EQ(draw.GetCurDrawState(nullptr, state), Acad::eOk);
    EXPECT_EQ(state.colorIndex, 1);
    EXPECT_EQ(state.layerId, layer);
    EXPECT_EQ(state.textSize, 7);
    EXPECT_EQ(draw.PopDrawState(), Acad::eOk);
    EXPECT_EQ(drawing.clayer(), before);
    EXPECT_EQ(drawing.textstyle(), styleBefore);
    EXPECT_EQ(drawing.textsize(), sizeBefore);
    EXPECT_EQ(drawing.cecolor().colorIndex(), 256);
    EXPECT_EQ(Number(draw.PopDrawState()), 151);

    const AcDbObjectId id = db.Line(AcGePoint3d(), AcGePoint3d(1, 0, 0), 5, nullptr, L"轴线");
    const Opened<AcDbEntity> line(id, AcDb::kForRead);
    int color = 0;
    AcDbObjectId lineLayer;
    EXPECT_EQ(draw.GetCurDrawState(line.get(), &color, &lineLayer, nullptr), Acad::eOk);
    EXPECT_EQ(color, 5);
    EXPECT_EQ(lineLayer, layer);
}

TEST_F(KxAcDrawTest, ShowsAtOnceWithTraitsOfItsOwn)
{
    AcDbObjectId layer;
    db.Layer(L"墙体", 1, L"Continuous", &layer, 1, 1);
    RecordingDraw screen;
    Builder shown(&drawing, &screen);
    EXPECT_EQ(shown.IsGiDraw(), 1);
    EXPECT_EQ(shown.GetGiDraw(), &screen);
    const struct {
        const char* what;
        int color;
        const wchar_t* layer;
        int expected;
    } rows[] = {
        {"by a red layer", 256, L"墙体", 1}, {"a colour of its own", 3, L"墙体", 3}, {"by layer", 256, nullptr, 256}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        screen.calls().clear();
        EXPECT_EQ(shown.DrawCircle(AcGePoint3d(), 2, row.color, row.layer, L"ByBlock"), Acad::eOk);
        ASSERT_EQ(screen.calls().size(), 1u);
        EXPECT_EQ(screen.calls()[0].what, L"circle");
        EXPECT_EQ(screen.calls()[0].color, row.expected);
        EXPECT_EQ(screen.calls()[0].linetype, drawing.byBlockLinetype());
        EXPECT_EQ(screen.subEntityTraits().color(), 7);   // what it was before
    }
    EXPECT_EQ(shown.GetEnts().length(), 0);
    screen.calls().clear();
    shown.DrawRotatedDim(0, AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(10, 3, 0));
    std::wstring all;
    for (const Drawn& call : screen.calls())
        all += call.what + L";";
    EXPECT_NE(all.find(L"10.0000"), std::wstring::npos) << "the measured text";
    EXPECT_NE(all.find(L"polyline;"), std::wstring::npos);
}

namespace {

struct Created {
    const char* what;
    AcDbObjectId id;
    AcRxClass* cls;
    double lowX, lowY, highX, highY;   // of the box, seen from above; NaN for what has none
};

const double kNone = std::numeric_limits<double>::quiet_NaN();

// Two lines, half a unit to either side.
AcDbObjectId DoubleLine(AcDbDatabase& drawing)
{
    AcDbDictionary* opened = nullptr;
    const Acad::ErrorStatus status = drawing.getMLStyleDictionary(opened, AcDb::kForWrite);
    Opened<AcDbDictionary> styles(opened, status);
    auto* style = new AcDbMlineStyle;
    int index = 0;
    style->setName(L"双线");
    style->addElement(index, 0.5, AcCmColor());
    style->addElement(index, -0.5, AcCmColor());
    AcDbObjectId id;
    styles->setAt(L"双线", style, id);
    style->close();
    return id;
}

std::vector<Created> CreateAll(CKxAcDb& db)
{
    const AcGePoint3dArray way = Points({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}});
    const AcGeVector3d z(0, 0, 1);
    AcDbObjectIdArray boundary;
    boundary.append(db.Circle(AcGePoint3d(5, 5, 0), 2));
    AcGeIntArray face;
    for (const int corner : {1, 2, 3, 0})
        face.append(corner);
    return {
        {"line", db.Line({1, 2, 0}, {4, 6, 0}), AcDbLine::desc(), 1, 2, 4, 6},
        {"polyline", db.PLine(Flat({{0, 0}, {2, 0}, {2, 1}}), 1, 1), AcDbPolyline::desc(), 0, 0, 2, 1},
        {"circle", boundary[0], AcDbCircle::desc(), 3, 3, 7, 7},
        {"arc", db.Arc({0, 0, 0}, 2, 0, 1.5707963267948966, 4), AcDbArc::desc(), 0, 0, 2, 2},
        {"text", db.Text({1, 1, 0}, L"A", 2.5), AcDbText::desc(), kNone, 0, 0, 0},
        {"point", db.Point({7, 8, 9}), AcDbPoint::desc(), 7, 8, 7, 8},
        {"xline", db.XLine({0, 0, 0}, {1, 1, 0}), AcDbXline::desc(), kNone, 0, 0, 0},
        {"ray", db.Ray({0, 0, 0}, {1, 1, 0}), AcDbRay::desc(), kNone, 0, 0, 0},
        {"old polyline", db.Add2dPolyline(way), AcDb2dPolyline::desc(), 0, 0, 4, 4},
        {"fitted polyline", db.Add2dPolyline(way, 0, AcDb::k2dFitCurvePoly), AcDb2dPolyline::desc(), kNone, 0, 0, 0},
        {"smooth polyline", db.Add2dPolyline(way, 0, AcDb::k2dCubicSplinePoly), AcDb2dPolyline::desc(), 0, 0, 4, 4},
        {"polyline in space", db.Add3dPolyline(way, 1), AcDb3dPolyline::desc(), 0, 0, 4, 4},
        {"face", db.AddFace({0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 3}), AcDbFace::desc(), 0, 0, 1, 1},
        {"mesh of faces", db.AddPolyFaceMesh(way, face), AcDbPolyFaceMesh::desc(), 0, 0, 4, 4},
        {"prism", db.AddPolyFaceMesh(way, 2.5), AcDbPolyFaceMesh::desc(), 0, 0, 4, 4},
        {"mesh of rows",
         db.AddPolygonMesh(AcDb::kSimpleMesh, 2, 2, Points({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 1}})),
         AcDbPolygonMesh::desc(), 0, 0, 1, 1},
        {"solid", db.AddSolid({0, 0, 0}, {2, 0, 0}, {0, 1, 0}, {2, 1, 0}), AcDbSolid::desc(), 0, 0, 2, 1},
        {"trace", db.AddTrace({0, 0, 0}, {2, 0, 0}, {0, 1, 0}, {2, 1, 0}), AcDbTrace::desc(), 0, 0, 2, 1},
        {"multiline", db.AddMline(way, DoubleLine(*db.GetAcDb())), AcDbMline::desc(), 0, -1, 5, 4},
        {"text of lines", db.AddMText(AcDbObjectId(), L"A\\PB", 2, 0, {1, 1, 0}), AcDbMText::desc(), kNone, 0, 0, 0},
        {"hatch", db.AddHatch(AcDbHatch::kExternal, boundary, 1, L"ANSI31"), AcDbHatch::desc(), 3, 3, 7, 7},
        {"leader", db.AddLeader(way), AcDbLeader::desc(), 0, 0, 4, 4},
        {"spline", db.AddSpline(way), AcDbSpline::desc(), kNone, 0, 0, 0},
        {"ellipse", db.AddEllipse({5, 5, 0}, z, {3, 0, 0}, 0.5, 0, 6.28318530717958647692), AcDbEllipse::desc(), 2, 3.5,
         8, 6.5},
        {"tolerance", db.AddFcf(L"{\\Fgdt;j}%%v0.5%%vA", {0, 0, 0}), AcDbFcf::desc(), kNone, 0, 0, 0},
        {"viewport", db.AddViewport({100, 100, 0}, 50, 30), AcDbViewport::desc(), 75, 85, 125, 115},
        {"attribute definition", db.AddAttributeDefinition({0, 0, 0}, L"1", L"编号", L"编号?"),
         AcDbAttributeDefinition::desc(), kNone, 0, 0, 0},
        {"angle of two lines", db.Add2LineAngularDim({0, 0, 0}, {5, 0, 0}, {0, 0, 0}, {0, 5, 0}, {3, 3, 0}),
         AcDb2LineAngularDimension::desc(), kNone, 0, 0, 0},
        {"angle of three points", db.Add3PointAngularDim({0, 0, 0}, {5, 0, 0}, {0, 5, 0}, {3, 3, 0}),
         AcDb3PointAngularDimension::desc(), kNone, 0, 0, 0},
        {"diameter", db.AddDiameTricDim({7, 5, 0}, {3, 5, 0}, 0), AcDbDiametricDimension::desc(), kNone, 0, 0, 0},
        {"ordinate", db.AddOrdinateDim(1, {3, 0, 0}, {3, 6, 0}), AcDbOrdinateDimension::desc(), kNone, 0, 0, 0},
        {"radius", db.AddRadialDim({5, 5, 0}, {7, 5, 0}, 3), AcDbRadialDimension::desc(), kNone, 0, 0, 0},
        {"rotated", db.AddRotatedDim(0, {0, 0, 0}, {10, 0, 0}, {10, 3, 0}), AcDbRotatedDimension::desc(), kNone, 0, 0,
         0},
    };
}

}   // namespace

TEST_F(KxAcDrawTest, EveryMemberCreatesItsEntity)
{
    for (const Created& row : CreateAll(db)) {
        SCOPED_TRACE(row.what);
        ASSERT_FALSE(row.id.isNull());
        EXPECT_EQ(row.id.objectClass(), row.cls);
        AcDbExtents box;
        if (std::isnan(row.lowX))
            continue;
        ASSERT_EQ(db.GetEntityExtents(row.id, box), Acad::eOk);
        EXPECT_NEAR(box.minPoint().x, row.lowX, 1e-9);
        EXPECT_NEAR(box.minPoint().y, row.lowY, 1e-9);
        EXPECT_NEAR(box.maxPoint().x, row.highX, 1e-9);
        EXPECT_NEAR(box.maxPoint().y, row.highY, 1e-9);
    }
}

// Drawn by the test of written files, which other programs then judge.
TEST_F(KxAcDrawTest, CreatedDrawingIsSaved)
{
    const char* path = std::getenv("KX_DRAWN_FILE");
    if (path == nullptr)
        GTEST_SKIP() << "KX_DRAWN_FILE names no file";
    for (const Created& row : CreateAll(db))
        ASSERT_FALSE(row.id.isNull()) << row.what;
    EXPECT_EQ(db.SaveAcDbToFile(CString(path), AcApDocument::k2010_dxf, 0), Acad::eOk);
}

TEST_F(KxAcDrawTest, NumbersThatAreNoneDrawNothing)
{
    const double bad[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()};
    for (const double x : bad) {
        const AcGePoint3d p(x, 0, 0);
        const AcGePoint3dArray way = Points({{0, 0, 0}, p});
        EXPECT_TRUE(db.Line({0, 0, 0}, p).isNull());
        EXPECT_TRUE(db.PLine(Flat({{0, 0}, {x, 1}})).isNull());
        EXPECT_TRUE(db.Circle(p, 1).isNull());
        EXPECT_TRUE(db.Circle({0, 0, 0}, x).isNull());
        EXPECT_TRUE(db.Arc({0, 0, 0}, 1, 0, x, 256).isNull());
        EXPECT_TRUE(db.Text(p, L"A", 1).isNull());
        EXPECT_TRUE(db.Add2dPolyline(way).isNull());
        EXPECT_TRUE(db.Add3dPolyline(way).isNull());
        EXPECT_TRUE(db.AddSpline(way).isNull());
        EXPECT_TRUE(db.AddLeader(way).isNull());
        EXPECT_TRUE(db.AddMline(way, AcDbObjectId()).isNull());
        EXPECT_TRUE(db.AddRotatedDim(0, {0, 0, 0}, p, {1, 1, 0}).isNull());
        EXPECT_TRUE(db.AddEllipse({0, 0, 0}, {0, 0, 1}, {x, 0, 0}, 0.5, 0, 1).isNull());
    }
    const AcGeVector3d none;
    EXPECT_TRUE(db.Circle({0, 0, 0}, 0).isNull());
    EXPECT_TRUE(db.Circle({0, 0, 0}, -1).isNull());
    EXPECT_TRUE(db.XLine({0, 0, 0}, none).isNull());
    EXPECT_TRUE(db.AddEllipse({0, 0, 0}, {0, 0, 1}, {1, 0, 0}, 2, 0, 1).isNull());
    EXPECT_TRUE(db.AddSpline(Points({{1, 1, 0}, {1, 1, 0}})).isNull());
    AcDbObjectIdArray all;
    db.BlockTableGetEntityIds(all, ACDB_MODEL_SPACE);
    EXPECT_EQ(all.length(), 0);
}
