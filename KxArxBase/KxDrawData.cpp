#include "KxDrawData.h"
#include "KxAcDb.h"
#include "Opened.h"
#include <cmath>
#include <memory>

namespace KxDrawData {

using KxArxBase::CKxAcDb;
using KxArxBase::Opened;

namespace {

CString Taken(ACHAR* text)
{
    CString taken(text);
    acutDelString(text);
    return taken;
}

PolyLine PolyLineOf(const AcDbPolyline& polyline)
{
    PolyLine data;
    data.isClosed = polyline.isClosed();
    data.elevation = polyline.elevation();
    data.normal = polyline.normal();
    for (unsigned int i = 0; i < polyline.numVerts(); ++i) {
        Vertex vertex;
        polyline.getPointAt(i, vertex.position);
        polyline.getBulgeAt(i, vertex.bulge);
        polyline.getWidthsAt(i, vertex.startWidth, vertex.endWidth);
        data.vertices.push_back(vertex);
    }
    return data;
}

Text TextOf(const AcDbText& text)
{
    const Opened<AcDbTextStyleTableRecord> style(text.textStyle(), AcDb::kForRead);
    const ACHAR* name = L"";
    if (style)
        style->getName(name);
    return {text.position(), text.textStringConst(), name,         text.height(),
            text.rotation(), text.widthFactor(),     text.normal()};
}

// --- making entities -------------------------------------------------------------------------------------------------

bool IsNumber(const AcGePoint3d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool IsLength(double length)
{
    return std::isfinite(length) && length > 0;
}

// Each answers null for a geometry that is none.
struct Maker {
    AcDbDatabase* db;

    std::unique_ptr<AcDbEntity> operator()(const Point& point) const
    {
        return IsNumber(point.position) ? std::make_unique<AcDbPoint>(point.position) : nullptr;
    }
    std::unique_ptr<AcDbEntity> operator()(const Line& line) const
    {
        return IsNumber(line.start) && IsNumber(line.end) ? std::make_unique<AcDbLine>(line.start, line.end) : nullptr;
    }
    std::unique_ptr<AcDbEntity> operator()(const Circle& circle) const
    {
        if (!IsNumber(circle.center) || !IsLength(circle.radius))
            return nullptr;
        return std::make_unique<AcDbCircle>(circle.center, circle.normal, circle.radius);
    }
    std::unique_ptr<AcDbEntity> operator()(const Arc& arc) const
    {
        if (!IsNumber(arc.center) || !IsLength(arc.radius) || !std::isfinite(arc.startAngle + arc.endAngle))
            return nullptr;
        return std::make_unique<AcDbArc>(arc.center, arc.normal, arc.radius, arc.startAngle, arc.endAngle);
    }
    std::unique_ptr<AcDbEntity> operator()(const PolyLine& data) const
    {
        if (data.vertices.empty() || !std::isfinite(data.elevation))
            return nullptr;
        auto polyline = std::make_unique<AcDbPolyline>(unsigned(data.vertices.size()));
        for (const Vertex& vertex : data.vertices) {
            if (!std::isfinite(vertex.position.x + vertex.position.y + vertex.bulge))
                return nullptr;
            polyline->addVertexAt(polyline->numVerts(), vertex.position, vertex.bulge, vertex.startWidth,
                                  vertex.endWidth);
        }
        polyline->setClosed(data.isClosed);
        polyline->setElevation(data.elevation);
        polyline->setNormal(data.normal);
        return polyline;
    }
    std::unique_ptr<AcDbEntity> operator()(const Text& data) const
    {
        if (!IsNumber(data.position) || !IsLength(data.height) || !IsLength(data.widthFactor))
            return nullptr;
        AcDbObjectId style = db->textstyle();
        if (!data.style.IsEmpty() &&
            CKxAcDb(db, 0).GetRecWithEntyName(data.style, AcDbTextStyleTable::desc(), style) != Acad::eOk)
            return nullptr;
        auto text = std::make_unique<AcDbText>(data.position, data.text, style, data.height, data.rotation);
        text->setWidthFactor(data.widthFactor);
        text->setNormal(data.normal);
        return text;
    }
};

Acad::ErrorStatus CheckNamed(CKxAcDb& tool, AcRxClass* cls, const CString& name)
{
    AcDbObjectId id;
    return name.IsEmpty() ? Acad::eOk : tool.GetRecWithEntyName(name, cls, id);
}

}   // namespace

Acad::ErrorStatus FromEntity(const AcDbEntity* entity, Record& record)
{
    Record made;
    if (entity == nullptr)
        return Acad::eNullEntityPointer;
    if (const AcDbPoint* point = AcDbPoint::cast(entity))
        made.geometry = Point{point->position()};
    else if (const AcDbLine* line = AcDbLine::cast(entity))
        made.geometry = Line{line->startPoint(), line->endPoint()};
    else if (const AcDbCircle* circle = AcDbCircle::cast(entity))
        made.geometry = Circle{circle->center(), circle->normal(), circle->radius()};
    else if (const AcDbArc* arc = AcDbArc::cast(entity))
        made.geometry = Arc{arc->center(), arc->normal(), arc->radius(), arc->startAngle(), arc->endAngle()};
    else if (const AcDbPolyline* polyline = AcDbPolyline::cast(entity))
        made.geometry = PolyLineOf(*polyline);
    else if (const AcDbText* text = AcDbText::cast(entity); text != nullptr && text->isA() == AcDbText::desc())
        made.geometry = TextOf(*text);
    else
        return Acad::eNotThatKindOfClass;
    made.layer = Taken(entity->layer());
    made.linetype = Taken(entity->linetype());
    made.color = entity->colorIndex();
    record = std::move(made);
    return Acad::eOk;
}

Acad::ErrorStatus FromEntities(const AcDbObjectIdArray& ids, std::vector<Record>& records)
{
    Acad::ErrorStatus last = Acad::eOk;
    for (int i = 0; i < ids.length(); ++i) {
        const Opened<AcDbEntity> entity(ids.at(i), AcDb::kForRead);
        Record record;
        if (entity.status() != Acad::eOk)
            last = entity.status();
        else if (FromEntity(entity.get(), record) == Acad::eOk)
            records.push_back(std::move(record));
    }
    return last;
}

Acad::ErrorStatus AddToSpace(AcDbDatabase* db, const Record& record, const wchar_t* space, AcDbObjectId* id)
{
    if (id != nullptr)
        id->setNull();
    if (db == nullptr)
        return Acad::eNoDatabase;
    CKxAcDb tool(db, 0);
    Acad::ErrorStatus es = CheckNamed(tool, AcDbLayerTable::desc(), record.layer);
    if (es == Acad::eOk)
        es = CheckNamed(tool, AcDbLinetypeTable::desc(), record.linetype);
    const Text* text = std::get_if<Text>(&record.geometry);
    if (es == Acad::eOk && text != nullptr)
        es = CheckNamed(tool, AcDbTextStyleTable::desc(), text->style);
    if (es != Acad::eOk)
        return es;
    std::unique_ptr<AcDbEntity> entity = std::visit(Maker{db}, record.geometry);
    if (entity == nullptr || record.color < 0 || record.color > 256)
        return Acad::eInvalidInput;
    AcDbObjectId added;
    entity->setDatabaseDefaults(db);
    es = tool.AddEntToSpace(entity.release(), 1, space, &added);
    if (es != Acad::eOk)
        return es;
    AcDbObjectIdArray ids;
    ids.append(added);
    const auto given = [](const CString& name) { return name.IsEmpty() ? nullptr : name.GetString(); };
    tool.SetEntitysProperty(ids, &record.color, given(record.layer), given(record.linetype), nullptr);
    if (id != nullptr)
        *id = added;
    return Acad::eOk;
}

}   // namespace KxDrawData
