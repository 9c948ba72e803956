#include "KxArxBase/KxDrawData.h"
#include "db/core/Stub.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/Opened.h"
#include "TestUi.h"
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace KxDrawData;

namespace {

AcDbObjectIdArray Entities(AcDbDatabase& db)
{
    AcDbObjectIdArray ids;
    KxArxBase::CKxAcDb(&db, 0).BlockTableGetEntityIds(ids, ACDB_MODEL_SPACE);
    return ids;
}

Record Of(decltype(Record::geometry) geometry)
{
    Record record;
    record.geometry = std::move(geometry);
    return record;
}

}   // namespace

TEST(KxDrawData, GeometryGoesThroughADrawingAndBack)
{
    TestUi ui;
    AcDbDatabase db;
    const long open = KxPlat::OpenObjectCount();
    PolyLine outline;
    outline.vertices = {{AcGePoint2d(0, 0), 0, 0.5, 1}, {AcGePoint2d(4, 0), 1, 0, 0}, {AcGePoint2d(4, 3), 0, 0, 0}};
    outline.isClosed = true;
    outline.elevation = 2.5;
    Text text;
    text.position = AcGePoint3d(1, 2, 0), text.text = L"门厅", text.height = 3.5, text.rotation = 0.25;
    std::vector<Record> records = {Of(Point{AcGePoint3d(1, 2, 3)}),
                                   Of(Line{AcGePoint3d(0, 0, 1), AcGePoint3d(5, 5, 1)}),
                                   Of(Circle{AcGePoint3d(1, 1, 0), AcGeVector3d(0, 0, -1), 2}),
                                   Of(Arc{AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 4, 1, 2}),
                                   Of(outline),
                                   Of(text)};
    KxArxBase::CKxAcDb(&db, 0).Layer(L"墙", 1, L"Continuous", nullptr, 1, 0);
    records[1].layer = L"墙", records[1].linetype = L"Continuous", records[1].color = 5;
    for (const Record& record : records)
        ASSERT_EQ(AddToSpace(&db, record, nullptr), Acad::eOk);

    std::vector<Record> back;
    ASSERT_EQ(FromEntities(Entities(db), back), Acad::eOk);
    ASSERT_EQ(back.size(), records.size());
    for (size_t i = 0; i < back.size(); ++i)
        EXPECT_EQ(back[i].geometry.index(), records[i].geometry.index());
    EXPECT_EQ(back[1].layer, L"墙");
    EXPECT_EQ(back[1].linetype, L"Continuous");
    EXPECT_EQ(back[1].color, 5);
    EXPECT_EQ(back[0].layer, L"0");
    EXPECT_TRUE(std::get<Line>(back[1].geometry).end.isEqualTo(AcGePoint3d(5, 5, 1)));
    EXPECT_TRUE(std::get<Circle>(back[2].geometry).normal.isEqualTo(AcGeVector3d(0, 0, -1)));
    EXPECT_DOUBLE_EQ(std::get<Arc>(back[3].geometry).endAngle, 2);
    const PolyLine& polyline = std::get<PolyLine>(back[4].geometry);
    ASSERT_EQ(polyline.vertices.size(), 3u);
    EXPECT_TRUE(polyline.isClosed);
    EXPECT_EQ(polyline.elevation, 2.5);
    EXPECT_EQ(polyline.vertices[0].endWidth, 1);
    EXPECT_EQ(polyline.vertices[1].bulge, 1);
    EXPECT_EQ(std::get<Text>(back[5].geometry).text, L"门厅");
    EXPECT_EQ(std::get<Text>(back[5].geometry).style, L"Standard");
    EXPECT_NEAR(std::get<Text>(back[5].geometry).rotation, 0.25, 1e-12);
    EXPECT_EQ(KxPlat::OpenObjectCount(), open);
}

TEST(KxDrawData, WhatIsNoGeometryAddsNothing)
{
    TestUi ui;
    AcDbDatabase db;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Text noStyle;
    noStyle.text = L"x", noStyle.height = 1, noStyle.style = L"没有";
    Record noLayer = Of(Point{});
    noLayer.layer = L"没有";
    struct Row {
        Record record;
        Acad::ErrorStatus status;
    };
    const Row rows[] = {{Of(Point{AcGePoint3d(nan, 0, 0)}), Acad::eInvalidInput},
                        {Of(Circle{AcGePoint3d(), AcGeVector3d(0, 0, 1), 0}), Acad::eInvalidInput},
                        {Of(Arc{AcGePoint3d(), AcGeVector3d(0, 0, 1), 1, nan, 0}), Acad::eInvalidInput},
                        {Of(PolyLine()), Acad::eInvalidInput},
                        {Of(Text()), Acad::eInvalidInput},
                        {Of(noStyle), Acad::eKeyNotFound},
                        {noLayer, Acad::eKeyNotFound}};
    for (const Row& row : rows) {
        AcDbObjectId id;
        EXPECT_EQ(AddToSpace(&db, row.record, nullptr, &id), row.status);
        EXPECT_TRUE(id.isNull());
    }
    EXPECT_EQ(AddToSpace(nullptr, Of(Point{}), nullptr), Acad::eNoDatabase);
    EXPECT_EQ(Entities(db).length(), 0);
    Record kept = Of(Point{AcGePoint3d(7, 0, 0)});
    AcDbRay ray;
    EXPECT_EQ(FromEntity(&ray, kept), Acad::eNotThatKindOfClass);
    EXPECT_EQ(FromEntity(nullptr, kept), Acad::eNullEntityPointer);
    EXPECT_EQ(std::get<Point>(kept.geometry).position.x, 7);
}
