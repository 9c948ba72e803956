#include "OldForms.h"
#include "../db/AcDb2dPolyline.h"
#include "../db/AcDb2dVertex.h"
#include "../db/AcDb3dPolyline.h"
#include "../db/AcDb3dPolylineVertex.h"
#include "../db/AcDbMText.h"
#include "../db/AcDbPolyline.h"
#include "../db/AcDbTable.h"
#include "../db/AcDbText.h"
#include "../db/core/ObjectAccess.h"
#include "../rx/acutads.h"
#include "DxfNames.h"
#include <cmath>
#include <set>
#include <sstream>

namespace KxPlat {

namespace {

// All entities that AC1009 knows.
const std::set<std::string_view> kOldEntities = {"LINE",     "POINT",  "CIRCLE", "ARC",      "TRACE",    "SOLID",
                                                 "TEXT",     "SHAPE",  "INSERT", "ATTDEF",   "ATTRIB",   "VERTEX",
                                                 "POLYLINE", "SEQEND", "3DFACE", "VIEWPORT", "DIMENSION"};

uint64_t HandleOf(const AcDbEntity& entity)
{
    const AcDbStub* stub = entity.objectId();
    return stub == nullptr ? 0 : stub->handle;
}

// Layer, colour and the like of another entity.
template <class T>
void Dress(T& piece, const AcDbEntity& entity)
{
    piece.setPropertiesFrom(&entity);
    piece.setInPaperSpace(entity.isInPaperSpace());
}

void EndSequence(const AcDbEntity& entity, RecordSink& sink)
{
    AcDbSequenceEnd end;
    Dress(end, entity);
    sink.Record("SEQEND", end);
}

void WritePolyline(const AcDbPolyline& polyline, RecordSink& sink)
{
    AcDb2dPolyline old;
    Dress(old, polyline);
    old.setElevation(polyline.elevation());
    old.setThickness(polyline.thickness());
    old.setNormal(polyline.normal());
    double width = 0;
    if (polyline.getConstantWidth(width) == Acad::eOk) {
        old.setDefaultStartWidth(width);
        old.setDefaultEndWidth(width);
    }
    if (polyline.isClosed())
        old.makeClosed();
    sink.Record("POLYLINE", old, HandleOf(polyline));
    for (unsigned i = 0; i < polyline.numVerts(); ++i) {
        AcGePoint2d point;
        double bulge = 0, startWidth = 0, endWidth = 0;
        polyline.getPointAt(i, point);
        polyline.getBulgeAt(i, bulge);
        polyline.getWidthsAt(i, startWidth, endWidth);
        AcDb2dVertex vertex(AcGePoint3d(point.x, point.y, polyline.elevation()), bulge, startWidth, endWidth);
        Dress(vertex, polyline);
        sink.Record("VERTEX", vertex);
    }
    EndSequence(polyline, sink);
}

// Any curve with two ends, by chords.
bool WriteCurve(const AcDbCurve& curve, RecordSink& sink)
{
    constexpr int kChords = 64;
    double start = 0, end = 0;
    if (curve.getStartParam(start) != Acad::eOk || curve.getEndParam(end) != Acad::eOk || !std::isfinite(start) ||
        !std::isfinite(end))
        return false;
    AcDb3dPolyline old;
    Dress(old, curve);
    if (curve.isClosed())
        old.makeClosed();
    const int points = curve.isClosed() ? kChords : kChords + 1;
    sink.Record("POLYLINE", old, HandleOf(curve));
    for (int i = 0; i < points; ++i) {
        AcGePoint3d point;
        if (curve.getPointAtParam(start + (end - start) * i / kChords, point) != Acad::eOk)
            continue;
        AcDb3dPolylineVertex vertex(point);
        Dress(vertex, curve);
        sink.Record("VERTEX", vertex);
    }
    EndSequence(curve, sink);
    return true;
}

// Each line as a text of its own, at the left end of the paragraph.
void WriteParagraph(const AcDbMText& paragraph, RecordSink& sink)
{
    constexpr double kLineStep = 5.0 / 3.0;   // of the text height
    ACHAR* seen = paragraph.text();
    std::vector<std::wstring> lines;
    std::wistringstream stream(seen == nullptr ? L"" : seen);
    for (std::wstring line; std::getline(stream, line);) {
        while (!line.empty() && line.back() == L'\r')
            line.pop_back();
        lines.push_back(line);
    }
    acutDelString(seen);
    const double step = paragraph.textHeight() * kLineStep * paragraph.lineSpacingFactor();
    const double whole = step * double(lines.empty() ? 0 : lines.size() - 1) + paragraph.textHeight();
    const int row = (int(paragraph.attachment()) - 1) / 3, column = (int(paragraph.attachment()) - 1) % 3;
    const double width = paragraph.actualWidth();
    const double x = column == 0 ? 0 : column == 1 ? -width / 2 : -width;
    double y = (row == 0 ? 0 : row == 1 ? whole / 2 : whole) - paragraph.textHeight();
    AcGeVector3d along = paragraph.direction();
    const AcGeVector3d up = paragraph.normal().crossProduct(along);
    for (const std::wstring& line : lines) {
        AcDbText text(paragraph.location() + along * x + up * y, line.c_str(), paragraph.textStyle(),
                      paragraph.textHeight(), paragraph.rotation());
        Dress(text, paragraph);
        if (!line.empty())
            sink.Record("TEXT", text);
        y -= step;
    }
}

}   // namespace

bool WriteTableAsInsert(const AcDbEntity& entity, RecordSink& sink)
{
    const AcDbTable* table = ObjectAccess::IsOnlyBits(entity) ? AcDbTable::cast(&entity) : nullptr;
    if (table == nullptr)
        return false;
    AcDbBlockReference insert(table->position(), table->blockTableRecord());
    Dress(insert, entity);
    insert.setNormal(table->normal());
    insert.setPosition(table->position());
    insert.setScaleFactors(table->scaleFactors());
    insert.setRotation(table->rotation());
    ObjectAccess::Owner(insert) = ObjectAccess::Owner(entity);
    sink.Record("INSERT", insert, HandleOf(entity));
    return true;
}

bool WriteOldForm(const AcDbEntity& entity, RecordSink& sink)
{
    if (kOldEntities.count(DxfNameOf(entity)) != 0)
        return false;
    if (const AcDbPolyline* polyline = AcDbPolyline::cast(&entity))
        WritePolyline(*polyline, sink);
    else if (const AcDbMText* paragraph = AcDbMText::cast(&entity))
        WriteParagraph(*paragraph, sink);
    else if (const AcDbCurve* curve = AcDbCurve::cast(&entity))
        WriteCurve(*curve, sink);
    return true;
}

}   // namespace KxPlat
