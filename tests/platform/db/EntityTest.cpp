// Entities: the groups that they read and write, and their geometry.
#include "db/AcDb2dPolyline.h"
#include "db/AcDbArc.h"
#include "db/AcDbAttribute.h"
#include "db/AcDbBlockReference.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbCircle.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDimension.h"
#include "db/AcDbEllipse.h"
#include "db/AcDbFace.h"
#include "db/AcDbHatch.h"
#include "db/AcDbLine.h"
#include "db/AcDbMText.h"
#include "db/AcDbPolyline.h"
#include "db/AcDbRasterImage.h"
#include "db/AcDbSpline.h"
#include "db/AcDbText.h"
#include "db/AcDbTrace.h"
#include "db/AcDbViewport.h"
#include "db/core/DbCore.h"
#include "ge/AcGePlane.h"
#include "ge/EntityAxes.h"
#include "Groups.h"
#include <gtest/gtest.h>
#include <memory>

using namespace KxPlat;

namespace {

testing::AssertionResult IsNear(const AcGePoint3d& got, const AcGePoint3d& wanted)
{
    if (got.distanceTo(wanted) <= 1e-6)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "(" << got.x << ", " << got.y << ", " << got.z << ") is not (" << wanted.x
                                       << ", " << wanted.y << ", " << wanted.z << ")";
}

testing::AssertionResult HasBox(const AcDbEntity& entity, const AcGePoint3d& least, const AcGePoint3d& most)
{
    AcDbExtents box;
    if (entity.getGeomExtents(box) != Acad::eOk)
        return testing::AssertionFailure() << "no extents";
    const testing::AssertionResult low = IsNear(box.minPoint(), least);
    return low ? IsNear(box.maxPoint(), most) : low;
}

AcGeMatrix3d MirrorX()
{
    return AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d(), AcGeVector3d(1, 0, 0)));
}

class Entities : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(OpenObjectCount(), m_openBefore); }

    AcDbBlockTableRecord* OpenSpace()
    {
        AcDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(acdbOpenObject(space, db.currentSpaceId(), AcDb::kForWrite), Acad::eOk);
        return space;
    }
    AcDbObjectId Append(AcDbEntity* entity)
    {
        AcDbBlockTableRecord* space = OpenSpace();
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        space->close();
        return id;
    }
    AcDbObjectId AddBlock(const wchar_t* name, const std::vector<AcDbEntity*>& entities)
    {
        AcDbBlockTable* table = nullptr;
        EXPECT_EQ(db.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        EXPECT_EQ(table->add(block), Acad::eOk);
        for (AcDbEntity* entity : entities) {
            EXPECT_EQ(block->appendAcDbEntity(entity), Acad::eOk);
            entity->close();
        }
        const AcDbObjectId id = block->objectId();
        block->close();
        table->close();
        return id;
    }

    long m_openBefore = OpenObjectCount();
    AcDbDatabase db;
};

}   // namespace

// --- groups in and out ---

// An object read from groups of a section says the same in its canonical form.
TEST_F(Entities, SayTheirGroupsInCanonicalOrder)
{
    struct Row {
        const char* what;
        AcDbEntity* entity;
        const char* groups;
    };
    const Row rows[] = {
        {"polyline", new AcDbPolyline,
         "100 AcDbPolyline|90 3|70 1|43 0.5|38 2|10 0|20 0|42 1|10 4|20 0|40 1|41 2|10 4|20 3|210 0|220 0|230 -1"},
        {"spline", new AcDbSpline,
         "100 AcDbSpline|210 0|220 0|230 1|70 12|71 2|72 6|73 3|74 0|42 1e-07|43 1e-07|40 0|40 0|40 0|40 1|40 1|40 1|"
         "10 0|20 0|30 0|41 1|10 1|20 2|30 0|41 0.5|10 2|20 0|30 0|41 1"},
        {"weights first", new AcDbSpline,
         "100 AcDbSpline|70 4|71 1|72 4|73 2|74 0|42 1e-07|43 1e-07|40 0|40 0|40 1|40 1|41 1|41 2|10 0|20 0|30 0|10 1|"
         "20 2|30 0"},
        {"weights last", new AcDbSpline,
         "100 AcDbSpline|70 4|71 1|72 4|73 2|74 0|42 1e-07|43 1e-07|40 0|40 0|40 1|40 1|10 0|20 0|30 0|10 1|20 2|30 0|"
         "41 1|41 2"},
        {"text", new AcDbText, "100 AcDbText|10 1|20 2|30 0|40 2.5|1 abc|50 30|72 1|11 5|21 2|31 0|100 AcDbText|73 2"},
        {"mtext", new AcDbMText, "100 AcDbMText|10 0|20 0|30 0|40 2|41 0|71 5|72 1|3 first|3 second|1 last|50 90"},
        {"hatch", new AcDbHatch,
         "100 AcDbHatch|10 0|20 0|30 1|210 0|220 0|230 1|2 LINE|70 0|71 1|91 2|92 7|72 1|73 1|93 2|10 0|20 0|42 1|10 2|"
         "20 0|42 1|97 1|330 0|92 1|93 1|72 2|10 5|20 5|40 1|50 0|51 360|73 1|97 0|75 1|76 1|52 45|41 2|77 0|78 1|"
         "53 45|43 0|44 0|45 -2|46 2|79 2|49 1|49 -1|98 1|10 1|20 0"},
        {"rotated dimension", new AcDbRotatedDimension,
         "100 AcDbDimension|10 5|20 3|30 0|11 2|21 3|31 0|70 32|1 <>|71 5|42 4|100 AcDbAlignedDimension|13 0|23 0|33 0|"
         "14 4|24 3|34 0|50 15|100 AcDbRotatedDimension"},
        {"arc", new AcDbArc, "100 AcDbCircle|39 1|10 1|20 2|30 3|40 4|100 AcDbArc|50 10|51 20"},
        {"face", new AcDbFace, "100 AcDbFace|10 0|20 0|30 0|11 1|21 0|31 0|12 1|22 1|32 0|13 0|23 1|33 0|70 5"},
    };
    CoreOf(db).form.version = AcDb::kDHL_1015;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        std::unique_ptr<AcDbEntity> entity(row.entity);
        const std::string all = "100 AcDbEntity|8 0|" + std::string(row.groups);
        Groups::Put(*entity, CoreOf(db), all);
        EXPECT_EQ(Groups::Canonical(*entity, AcDb::kDHL_1015), all);
        std::unique_ptr<AcDbEntity> copy(AcDbEntity::cast(entity->clone()));
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(Groups::Canonical(*copy, AcDb::kDHL_1015), all) << "the copy says the same";
    }
}

TEST_F(Entities, ReadFormsOfOldAndCarelessFiles)
{
    AcDbText misplaced;
    Groups::Put(misplaced, CoreOf(db), "100 AcDbEntity|8 0|100 AcDbText|10 1|20 2|40 1|1 a|72 4|11 3|21 3|73 2");
    EXPECT_EQ(misplaced.verticalMode(), AcDb::kTextVertMid) << "without the second marker";
    AcDbEllipse unmarked;
    Groups::Put(unmarked, CoreOf(db), "100 AcDbEntity|8 0|10 7|20 8|30 0|11 3|21 0|31 0|40 0.5|41 0|42 3.14");
    EXPECT_TRUE(IsNear(unmarked.center(), AcGePoint3d(7, 8, 0)));
    EXPECT_EQ(unmarked.minorRadius(), 1.5);
    AcDbAttribute attribute;
    Groups::Put(attribute, CoreOf(db), "8 0|10 1|20 2|30 0|40 3|1 value|2 TAG|70 1|73 4|74 3");
    EXPECT_STREQ(attribute.tagConst(), L"TAG");
    EXPECT_TRUE(attribute.isInvisible());
    EXPECT_EQ(attribute.fieldLength(), 4);
    EXPECT_EQ(attribute.verticalMode(), AcDb::kTextTop);
}

// --- curves ---

TEST_F(Entities, ArcsAndCirclesMeasureAndMove)
{
    AcDbArc arc(AcGePoint3d(1, 0, 0), 2, kPi / 4, 3 * kPi / 4);
    const double s = std::sqrt(2.0);
    EXPECT_TRUE(HasBox(arc, AcGePoint3d(1 - s, s, 0), AcGePoint3d(1 + s, 2, 0)));
    EXPECT_NEAR(arc.length(), kPi, 1e-9);
    double area = 0;
    arc.getArea(area);
    EXPECT_NEAR(area, kPi - 2, 1e-9);
    arc.transformBy(MirrorX());
    AcGePoint3d start;
    arc.getStartPoint(start);
    EXPECT_TRUE(IsNear(start, AcGePoint3d(-1 + s, s, 0))) << "still turning left";
    EXPECT_NEAR(arc.totalAngle(), kPi / 2, 1e-9);

    AcDbCircle circle(AcGePoint3d(0, 0, 5), AcGeVector3d(1, 0, 0), 3);
    EXPECT_TRUE(IsNear(circle.center(), AcGePoint3d(0, 0, 5)));
    EXPECT_TRUE(HasBox(circle, AcGePoint3d(0, -3, 2), AcGePoint3d(0, 3, 8)));
    circle.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kYAxis));
    EXPECT_TRUE(circle.normal().isEqualTo(AcGeVector3d(0, 0, -1)));
    EXPECT_TRUE(IsNear(circle.center(), AcGePoint3d(5, 0, 0)));
    EXPECT_EQ(circle.setRadius(-1), Acad::eInvalidInput);
}

TEST_F(Entities, EllipsesStayEllipses)
{
    AcDbEllipse ellipse(AcGePoint3d(), AcGeVector3d::kZAxis, AcGeVector3d(2, 0, 0), 0.5);
    AcGeMatrix3d stretch;
    stretch.entry[1][1] = 4;   // the minor axis becomes the major one
    ASSERT_EQ(ellipse.transformBy(stretch), Acad::eOk);
    EXPECT_NEAR(ellipse.majorRadius(), 4, 1e-9);
    EXPECT_NEAR(ellipse.minorRadius(), 2, 1e-9);
    EXPECT_TRUE(HasBox(ellipse, AcGePoint3d(-2, -4, 0), AcGePoint3d(2, 4, 0)));

    AcDbEllipse half(AcGePoint3d(), AcGeVector3d::kZAxis, AcGeVector3d(2, 0, 0), 0.5, 0, kPi);
    half.transformBy(stretch);
    AcGePoint3d start, end;
    half.getStartPoint(start);
    half.getEndPoint(end);
    EXPECT_TRUE(IsNear(start, AcGePoint3d(2, 0, 0)));
    EXPECT_TRUE(IsNear(end, AcGePoint3d(-2, 0, 0)));
    EXPECT_TRUE(HasBox(half, AcGePoint3d(-2, 0, 0), AcGePoint3d(2, 4, 0)));
    EXPECT_EQ(half.set(AcGePoint3d(), AcGeVector3d::kZAxis, AcGeVector3d(), 1), Acad::eDegenerateGeometry);
}

TEST_F(Entities, PolylinesWithBulges)
{
    // A square of side 2 with a half circle bulging out of its lower side.
    AcDbPolyline polyline;
    const double corners[][3] = {{0, 0, 1}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}};
    for (unsigned index = 0; index < 4; ++index)
        polyline.addVertexAt(index, AcGePoint2d(corners[index][0], corners[index][1]), corners[index][2]);
    polyline.setClosed(true);
    double area = 0, end = 0;
    polyline.getArea(area);
    EXPECT_NEAR(area, 4 + kPi / 2, 1e-9);
    EXPECT_TRUE(HasBox(polyline, AcGePoint3d(0, -1, 0), AcGePoint3d(2, 2, 0)));
    polyline.getEndParam(end);
    EXPECT_EQ(end, 4);
    AcGePoint3d point;
    EXPECT_EQ(polyline.getPointAtParam(0.5, point), Acad::eOk);
    EXPECT_TRUE(IsNear(point, AcGePoint3d(1, -1, 0)));
    EXPECT_EQ(polyline.getPointAtParam(4.5, point), Acad::eInvalidInput);
    EXPECT_EQ(polyline.segType(0), AcDbPolyline::kArc);
    EXPECT_EQ(polyline.segType(1), AcDbPolyline::kLine);

    AcArray<AcRxObject*> pieces;
    polyline.explode(pieces);
    ASSERT_EQ(pieces.length(), 4);
    const AcDbArc* arc = AcDbArc::cast(pieces[0]);
    ASSERT_NE(arc, nullptr);
    EXPECT_NEAR(arc->length(), kPi, 1e-9);
    for (AcRxObject* piece : pieces)
        delete piece;

    polyline.transformBy(MirrorX());
    double bulge = 0;
    polyline.getBulgeAt(0, bulge);
    EXPECT_EQ(bulge, -1);
    EXPECT_TRUE(HasBox(polyline, AcGePoint3d(-2, -1, 0), AcGePoint3d(0, 2, 0)));
    polyline.removeVertexAt(3);
    polyline.removeVertexAt(2);
    EXPECT_EQ(polyline.removeVertexAt(1), Acad::eDegenerateGeometry);
    EXPECT_EQ(polyline.addVertexAt(3, AcGePoint2d()), Acad::eInvalidIndex);
}

TEST_F(Entities, PolylineWidths)
{
    AcDbPolyline polyline;
    polyline.addVertexAt(0, AcGePoint2d(0, 0));
    polyline.addVertexAt(1, AcGePoint2d(1, 0));
    polyline.setConstantWidth(0.25);
    double start = 0, end = 0, width = 0;
    polyline.getWidthsAt(1, start, end);
    EXPECT_EQ(start, 0.25);
    polyline.setWidthsAt(0, 1, 2);
    EXPECT_EQ(polyline.getConstantWidth(width), Acad::eInvalidInput) << "the vertices differ";
    polyline.setConstantWidth(0.5);
    EXPECT_EQ(polyline.getConstantWidth(width), Acad::eOk);
    EXPECT_EQ(width, 0.5);
}

// --- owners and parts ---

TEST_F(Entities, VerticesJoinWithTheirPolyline)
{
    auto* polyline = new AcDb2dPolyline;
    for (const double x : {0.0, 2.0})
        polyline->appendVertex(new AcDb2dVertex(AcGePoint3d(x, 0, 0), 1));
    polyline->setElevation(3);
    const AcDbObjectId id = Append(polyline);
    ASSERT_EQ(polyline->parts()->size(), 3u) << "two vertices and the end mark";
    EXPECT_TRUE(HasBox(*polyline, AcGePoint3d(0, -1, 3), AcGePoint3d(2, 0, 3)));

    AcDbObjectId later;
    auto* vertex = new AcDb2dVertex(AcGePoint3d(5, 5, 0));
    EXPECT_EQ(polyline->appendVertex(later, vertex), Acad::eOk);
    EXPECT_EQ(vertex->ownerId(), id);
    EXPECT_EQ(polyline->appendVertex(later, vertex), Acad::eAlreadyInDb);
    vertex->close();
    std::unique_ptr<AcDbObjectIterator> walk(polyline->vertexIterator());
    std::vector<double> places;
    for (; !walk->done(); walk->step()) {
        AcDbVertex* each = AcDbVertex::cast(walk->entity());
        places.push_back(each->position().x);
        each->close();
    }
    EXPECT_EQ(places, (std::vector<double>{0, 2, 5}));

    ASSERT_EQ(polyline->openVertex(vertex, (*polyline->parts())[1], AcDb::kForWrite), Acad::eOk);
    vertex->erase();
    vertex->close();
    walk->start();
    places.clear();
    for (; !walk->done(); walk->step()) {
        AcDbVertex* each = AcDbVertex::cast(walk->entity());
        places.push_back(each->position().x);
        each->close();
    }
    EXPECT_EQ(places, (std::vector<double>{0, 5})) << "an erased vertex is stepped over";
    polyline->close();
}

TEST_F(Entities, PartsOfAnOwnerThatNeverJoinedGoWithIt)
{
    AcDbBlockReference reference;
    EXPECT_EQ(reference.appendAttribute(new AcDbAttribute(AcGePoint3d(), L"值", L"TAG")), Acad::eOk);
    EXPECT_TRUE(reference.parts()->empty());
}

// --- insertions ---

TEST_F(Entities, InsertionsMapTheirBlock)
{
    const AcDbObjectId block = AddBlock(L"块", {new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0))});
    AcDbBlockReference reference(AcGePoint3d(10, 0, 0), block);
    reference.setScaleFactors(AcGeScale3d(2, 3, 1));
    reference.setRotation(kPi / 2);
    EXPECT_TRUE(HasBox(reference, AcGePoint3d(7, 0, 0), AcGePoint3d(10, 2, 0)));
    reference.setRotation(kPi / 4);
    const double s = std::sqrt(0.5);
    EXPECT_TRUE(HasBox(reference, AcGePoint3d(10 - s, 0, 0), AcGePoint3d(10, 5 * s, 0))) << "no wider for the turn";
    AcArray<AcRxObject*> pieces;
    ASSERT_EQ(reference.explode(pieces), Acad::eOk);
    ASSERT_EQ(pieces.length(), 1);
    EXPECT_TRUE(IsNear(AcDbLine::cast(pieces[0])->endPoint(), AcGePoint3d(10 - s, 5 * s, 0)));
    delete pieces[0];
    EXPECT_EQ(reference.setScaleFactors(AcGeScale3d(1, 0, 1)), Acad::eInvalidInput);
    AcGeMatrix3d shear;
    shear.entry[0][1] = 1;
    EXPECT_EQ(reference.transformBy(shear), Acad::eCannotScaleNonOrtho);
    const AcGeMatrix3d before = reference.blockTransform();
    EXPECT_EQ(reference.transformBy(MirrorX()), Acad::eOk);
    EXPECT_TRUE(reference.blockTransform().isEqualTo(MirrorX() * before));
}

TEST_F(Entities, InsertionsInRowsAndWithinEachOther)
{
    const AcDbObjectId inner = AddBlock(L"inner", {new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0))});
    const AcDbObjectId outer = AddBlock(L"outer", {new AcDbMInsertBlock(AcGePoint3d(0, 0, 0), inner, 3, 2, 10, 20)});
    EXPECT_TRUE(
        HasBox(AcDbBlockReference(AcGePoint3d(100, 0, 0), outer), AcGePoint3d(100, 0, 0), AcGePoint3d(121, 21, 0)));
}

TEST_F(Entities, ABlockThatContainsItselfEnds)
{
    const AcDbObjectId other = AddBlock(L"other", {});
    const AcDbObjectId block = AddBlock(L"ring", {new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0))});
    AcDbBlockTableRecord* record = nullptr;
    ASSERT_EQ(acdbOpenObject(record, block, AcDb::kForWrite), Acad::eOk);
    for (int copies = 0; copies < 3; ++copies) {
        auto* again = new AcDbBlockReference(AcGePoint3d(1, 0, 0), other);
        again->setRotation(0.3);
        ASSERT_EQ(record->appendAcDbEntity(again), Acad::eOk);
        EXPECT_EQ(again->setBlockTableRecord(block), Acad::eOk);   // appending one that points here is refused
        again->close();
    }
    record->close();
    AcDbExtents box;
    AcDbBlockReference reference(AcGePoint3d(), block);
    EXPECT_EQ(reference.getGeomExtents(box), Acad::eOk);
    EXPECT_GE(box.maxPoint().x, 1);
}

TEST_F(Entities, AttributesTakeAfterTheirDefinition)
{
    AcDbAttributeDefinition definition(AcGePoint3d(1, 2, 0), L"缺省", L"编号", L"请输入编号");
    definition.setHeight(2.5);
    definition.setInvisible(true);
    AcDbAttribute attribute;
    ASSERT_EQ(attribute.setAttributeFromBlock(&definition, AcGeMatrix3d::translation(AcGeVector3d(10, 0, 0)) *
                                                               AcGeMatrix3d::scaling(2)),
              Acad::eOk);
    EXPECT_STREQ(attribute.tagConst(), L"编号");
    EXPECT_TRUE(attribute.isInvisible());
    EXPECT_EQ(attribute.height(), 5);
    EXPECT_TRUE(IsNear(attribute.position(), AcGePoint3d(12, 4, 0)));
}

// --- texts ---

TEST_F(Entities, TextsStandWhereTheirAlignmentSays)
{
    struct Row {
        AcDb::TextHorzMode horizontal;
        AcDb::TextVertMode vertical;
        double x, y;
    };
    // Two ideographs of height 10 are 20 wide; the alignment point is (100, 50).
    static const Row rows[] = {
        {AcDb::kTextCenter, AcDb::kTextBase, 90, 50},  {AcDb::kTextRight, AcDb::kTextTop, 80, 40},
        {AcDb::kTextMid, AcDb::kTextBase, 90, 45},     {AcDb::kTextLeft, AcDb::kTextVertMid, 100, 45},
        {AcDb::kTextLeft, AcDb::kTextBottom, 100, 50},
    };
    for (const Row& row : rows) {
        AcDbText text(AcGePoint3d(1, 1, 0), L"墙体", AcDbObjectId(), 10);
        text.setHorizontalMode(row.horizontal);
        text.setVerticalMode(row.vertical);
        text.setAlignmentPoint(AcGePoint3d(100, 50, 0));
        EXPECT_TRUE(IsNear(text.position(), AcGePoint3d(row.x, row.y, 0))) << row.horizontal << row.vertical;
    }
    AcDbText turned(AcGePoint3d(5, 5, 0), L"墙体", AcDbObjectId(), 10, kPi / 2);
    EXPECT_TRUE(HasBox(turned, AcGePoint3d(-5, 5, 0), AcGePoint3d(5, 25, 0)));
    EXPECT_EQ(turned.setHeight(0), Acad::eInvalidInput);
}

TEST_F(Entities, MTextShowsItsLines)
{
    struct Row {
        const wchar_t* contents;
        std::vector<std::wstring> lines;
    };
    const Row rows[] = {
        {L"一行", {L"一行"}},
        {L"first\\Psecond", {L"first", L"second"}},
        {L"{\\fSimSun|b0|i0|c134;墙}\\H2.5x;体", {L"墙体"}},
        {L"a\\\\b\\{c\\}", {L"a\\b{c}"}},
        {L"\\S1/2; and \\S3^4;", {L"1/2 and 3/4"}},
        {L"\\U+5899\\~x", {L"墙 x"}},
        {L"%%c20\\P", {L"∅20", L""}},
        {L"\\fnoend", {L""}},
        {L"end\\", {L"end\\"}},
        {L"", {}},
    };
    for (const Row& row : rows) {
        std::vector<std::wstring> lines;
        for (const CString& line : LinesOfMText(row.contents))
            lines.emplace_back(line);
        EXPECT_EQ(lines, row.lines);
    }
}

TEST_F(Entities, MTextIsCutIntoPiecesAndBoxed)
{
    AcDbMText text;
    std::wstring all;
    for (int index = 0; index < 601; ++index)
        all += wchar_t(L'a' + index % 26);
    text.setContents(all.c_str());
    EXPECT_EQ(std::wstring(text.contentsText()), all);
    const std::string groups = Groups::Canonical(text, AcDb::kDHL_1015);
    EXPECT_NE(groups.find("|3 abcdef"), groups.npos);
    EXPECT_NE(groups.find("|1 ghijkl"), groups.npos) << "250 and 250 before it";
    text.setContents(L"墙体\\P墙");
    text.setTextHeight(3);
    text.setAttachment(AcDbMText::kMiddleCenter);
    text.setLocation(AcGePoint3d(10, 10, 0));
    EXPECT_TRUE(HasBox(text, AcGePoint3d(7, 6, 0), AcGePoint3d(13, 14, 0)));
    text.setRotation(kPi / 2);
    EXPECT_TRUE(HasBox(text, AcGePoint3d(6, 7, 0), AcGePoint3d(14, 13, 0)));
}

// --- areas, dimensions, views ---

TEST_F(Entities, HatchLoopsAndHoles)
{
    AcDbHatch hatch;
    AcGePoint2dArray square, hole, circle;
    for (const auto& corner : {AcGePoint2d(0, 0), AcGePoint2d(10, 0), AcGePoint2d(10, 10), AcGePoint2d(0, 10)}) {
        square.append(corner);
        hole.append(AcGePoint2d(4, 4) + corner.asVector() * 0.2);
    }
    AcGeDoubleArray none, bulges;
    ASSERT_EQ(hatch.appendLoop(AcDbHatch::kExternal, square, none), Acad::eOk);
    ASSERT_EQ(hatch.appendLoop(AcDbHatch::kDefault, hole, none), Acad::eOk);
    // A circle of radius 1 around (20, 5), as two half arcs.
    circle.append(AcGePoint2d(19, 5));
    circle.append(AcGePoint2d(21, 5));
    bulges.append(1);
    bulges.append(1);
    ASSERT_EQ(hatch.appendLoop(AcDbHatch::kDefault, circle, bulges), Acad::eOk);
    EXPECT_EQ(hatch.appendLoop(0, circle, AcGeDoubleArray(0)), Acad::eOk);
    ASSERT_EQ(hatch.removeLoopAt(3), Acad::eOk);
    EXPECT_EQ(hatch.numLoops(), 3);
    EXPECT_EQ(hatch.loopTypeAt(0), AcDbHatch::kExternal | AcDbHatch::kPolyline);
    double area = 0;
    hatch.getArea(area);
    EXPECT_NEAR(area, 100 - 4 + kPi, 1e-9);
    EXPECT_TRUE(HasBox(hatch, AcGePoint3d(0, 0, 0), AcGePoint3d(21, 10, 0)));
    EXPECT_EQ(hatch.removeLoopAt(3), Acad::eInvalidIndex);
}

TEST_F(Entities, HatchEdgesAndTheirMirror)
{
    // A half disc: its straight side, then an arc that turns right, whose angles are those of the mirrored arc.
    struct Row {
        const char* edges;
        double least, most;   // in Y
    };
    static const Row rows[] = {
        {"72 1|10 1|20 0|11 -1|21 0|72 2|10 0|20 0|40 1|50 180|51 360|73 1", -1, 0},
        {"72 1|10 1|20 0|11 -1|21 0|72 2|10 0|20 0|40 1|50 180|51 360|73 0", 0, 1},
        {"72 1|10 1|20 0|11 -1|21 0|72 3|10 0|20 0|11 1|21 0|40 0.5|50 180|51 360|73 1", -0.5, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.edges);
        AcDbHatch hatch;
        Groups::Put(
            hatch, CoreOf(db),
            "100 AcDbEntity|8 0|100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 1|93 2|" +
                std::string(row.edges) + "|97 0|75 0|76 1|98 0");
        EXPECT_TRUE(HasBox(hatch, AcGePoint3d(-1, row.least, 0), AcGePoint3d(1, row.most, 0)));
        const AcGeMatrix3d upsideDown = AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d(), AcGeVector3d(0, 1, 0)));
        ASSERT_EQ(hatch.transformBy(upsideDown), Acad::eOk);
        EXPECT_TRUE(HasBox(hatch, AcGePoint3d(-1, -row.most, 0), AcGePoint3d(1, -row.least, 0)));
    }
}

TEST_F(Entities, DimensionsMeasure)
{
    const AcGePoint3d from(0, 0, 0), to(3, 4, 0);
    double value = 0;
    AcDbAlignedDimension(from, to, AcGePoint3d(0, 5, 0)).measurement(value);
    EXPECT_EQ(value, 5);
    AcDbRotatedDimension(0, from, to, AcGePoint3d(0, 5, 0)).measurement(value);
    EXPECT_NEAR(value, 3, 1e-12);
    AcDbRotatedDimension upright(kPi / 2, from, to, AcGePoint3d(0, 5, 0));
    upright.measurement(value);
    EXPECT_NEAR(value, 4, 1e-12);
    upright.transformBy(AcGeMatrix3d::scaling(2));
    upright.measurement(value);
    EXPECT_NEAR(value, 8, 1e-12);
    AcDb3PointAngularDimension angle;
    Groups::Put(angle, CoreOf(db), "8 0|10 1|20 1|13 5|23 0|14 0|24 5|15 0|25 0|70 5");
    angle.measurement(value);
    EXPECT_NEAR(value, kPi / 2, 1e-12);
    AcDbOrdinateDimension ordinate;
    Groups::Put(ordinate, CoreOf(db), "8 0|10 1|20 1|13 5|23 9|14 0|24 5|70 70");
    ordinate.measurement(value);
    EXPECT_EQ(value, 4) << "flag 64: along X";
}

TEST_F(Entities, ViewportsFreezeLayersForThemselves)
{
    AcDbViewport viewport;
    AcDbObjectIdArray layers;
    layers.append(db.layerZero());
    viewport.freezeLayersInViewport(layers);
    viewport.freezeLayersInViewport(layers);
    EXPECT_TRUE(viewport.isLayerFrozenInViewport(db.layerZero()));
    EXPECT_NE(Groups::Canonical(viewport, AcDb::kDHL_1015).find("|331 "), std::string::npos);
    AcDbObjectIdArray frozen;
    viewport.getFrozenLayerList(frozen);
    EXPECT_EQ(frozen.length(), 1) << "a layer is frozen once";
    viewport.thawLayersInViewport(layers);
    EXPECT_FALSE(viewport.isLayerFrozenInViewport(db.layerZero()));
    EXPECT_TRUE(viewport.isOn());
    viewport.setOff();
    viewport.setLocked();
    EXPECT_FALSE(viewport.isOn());
    EXPECT_TRUE(viewport.isLocked());
}

TEST_F(Entities, WipeoutsShowTheirClip)
{
    AcDbWipeout wipeout;
    Groups::Put(
        wipeout, CoreOf(db),
        "100 AcDbEntity|8 0|100 AcDbWipeout|90 0|10 10|20 20|30 0|11 4|21 0|31 0|12 0|22 4|32 0|13 1|23 1|340 0|70 7|"
        "280 1|281 50|282 50|283 0|360 0|71 2|91 4|14 -0.5|24 0.5|14 0.5|24 0.5|14 0|24 -0.5|14 -0.5|24 0.5");
    EXPECT_TRUE(HasBox(wipeout, AcGePoint3d(10, 20, 0), AcGePoint3d(14, 24, 0)));
    AcGePoint3dArray vertices;
    wipeout.getVertices(vertices);
    ASSERT_EQ(vertices.length(), 4);
    EXPECT_TRUE(IsNear(vertices[2], AcGePoint3d(12, 24, 0))) << "pixels are counted from the top";
}

TEST_F(Entities, SplinesFollowTheirControlPoints)
{
    AcDbSpline spline;
    Groups::Put(
        spline, CoreOf(db),
        "100 AcDbEntity|8 0|100 AcDbSpline|70 8|71 2|72 6|73 3|74 0|42 0|43 0|40 0|40 0|40 0|40 1|40 1|40 1|10 0|20 0|"
        "30 0|10 1|20 2|30 0|10 2|20 0|30 0");
    EXPECT_TRUE(HasBox(spline, AcGePoint3d(0, 0, 0), AcGePoint3d(2, 1, 0))) << "a parabola reaches half way up";
    AcGePoint3d top;
    EXPECT_EQ(spline.getPointAtParam(0.5, top), Acad::eOk);
    EXPECT_TRUE(IsNear(top, AcGePoint3d(1, 1, 0)));
    EXPECT_FALSE(spline.isClosed());
    EXPECT_EQ(spline.getPointAtParam(1.5, top), Acad::eInvalidInput);
    AcDbSpline broken;
    Groups::Put(broken, CoreOf(db),
                "100 AcDbEntity|8 0|100 AcDbSpline|70 8|71 3|72 9|73 5|74 0|42 0|43 0|40 0|10 0|20 0|30 0");
    AcDbExtents box;
    EXPECT_EQ(broken.getGeomExtents(box), Acad::eInvalidExtents);
    EXPECT_FALSE(broken.isClosed());
}

TEST_F(Entities, SolidsLiftByTheirThickness)
{
    AcDbSolid solid(AcGePoint3d(0, 0, 1), AcGePoint3d(2, 0, 1), AcGePoint3d(0, 3, 1));
    solid.setThickness(4);
    EXPECT_TRUE(HasBox(solid, AcGePoint3d(0, 0, 1), AcGePoint3d(2, 3, 5)));
    solid.transformBy(AcGeMatrix3d::scaling(2));
    EXPECT_TRUE(HasBox(solid, AcGePoint3d(0, 0, 2), AcGePoint3d(4, 6, 10)));
    AcGePoint3d point;
    EXPECT_EQ(solid.getPointAt(4, point), Acad::eInvalidIndex);
}
