#include "EntityProperties.h"
#include "db/AcDbArc.h"
#include "db/AcDbBlockReference.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbCircle.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbDimension.h"
#include "db/AcDbEllipse.h"
#include "db/AcDbHatch.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/AcDbLine.h"
#include "db/AcDbLinetypeTableRecord.h"
#include "db/AcDbMText.h"
#include "db/AcDbPoint.h"
#include "db/AcDbPolyline.h"
#include "db/AcDbText.h"
#include "DrawingEdit.h"
#include "QtText.h"
#include "rx/acutads.h"
#include "Texts.h"
#include <cmath>

namespace KxDesktop {

namespace {

using Rows = std::vector<PropertyRow>;

QString Number(double value)
{
    const QString text = QString::number(value, 'f', 4);
    return text == QLatin1String("-0.0000") ? QStringLiteral("0.0000") : text;
}

QString Place(const AcGePoint3d& point)
{
    return Number(point.x) + QStringLiteral(", ") + Number(point.y) + QStringLiteral(", ") + Number(point.z);
}

QString Degrees(double radians)
{
    return QString::number(radians * 180 / M_PI, 'f', 2) + QStringLiteral("°");
}

QString Taken(ACHAR* text)
{
    QString shown = text == nullptr ? QString() : ToQt(text);
    acutDelString(text);
    return shown;
}

void Add(Rows& rows, Text name, const QString& value)
{
    rows.push_back({Say(name), value});
}

void AddArea(Rows& rows, const AcDbCurve& curve)
{
    double area = 0;
    if (curve.getArea(area) == Acad::eOk)
        Add(rows, Text::Area, Number(area));
}

void OfLine(const AcDbEntity& entity, Rows& rows)
{
    const auto& line = static_cast<const AcDbLine&>(entity);
    const AcGeVector3d way = line.endPoint() - line.startPoint();
    Add(rows, Text::Start, Place(line.startPoint()));
    Add(rows, Text::End, Place(line.endPoint()));
    Add(rows, Text::Length, Number(way.length()));
    Add(rows, Text::Angle, Degrees(std::fmod(std::atan2(way.y, way.x) + 2 * M_PI, 2 * M_PI)));
}

void OfCircle(const AcDbEntity& entity, Rows& rows)
{
    const auto& circle = static_cast<const AcDbCircle&>(entity);
    Add(rows, Text::Center, Place(circle.center()));
    Add(rows, Text::Radius, Number(circle.radius()));
    Add(rows, Text::Diameter, Number(2 * circle.radius()));
    Add(rows, Text::Length, Number(circle.circumference()));
    AddArea(rows, circle);
}

void OfArc(const AcDbEntity& entity, Rows& rows)
{
    const auto& arc = static_cast<const AcDbArc&>(entity);
    Add(rows, Text::Center, Place(arc.center()));
    Add(rows, Text::Radius, Number(arc.radius()));
    Add(rows, Text::StartAngle, Degrees(arc.startAngle()));
    Add(rows, Text::EndAngle, Degrees(arc.endAngle()));
    Add(rows, Text::Length, Number(arc.length()));
}

void OfEllipse(const AcDbEntity& entity, Rows& rows)
{
    const auto& ellipse = static_cast<const AcDbEllipse&>(entity);
    Add(rows, Text::Center, Place(ellipse.center()));
    Add(rows, Text::Radius, Number(ellipse.majorRadius()) + QStringLiteral(" / ") + Number(ellipse.minorRadius()));
    AddArea(rows, ellipse);
}

void OfPoint(const AcDbEntity& entity, Rows& rows)
{
    Add(rows, Text::Position, Place(static_cast<const AcDbPoint&>(entity).position()));
}

void OfPolyline(const AcDbEntity& entity, Rows& rows)
{
    const auto& line = static_cast<const AcDbPolyline&>(entity);
    Add(rows, Text::Vertices, QString::number(line.numVerts()));
    Add(rows, Text::Closed, Say(line.isClosed() ? Text::Yes : Text::No));
    double end = 0, length = 0;
    if (line.getEndParam(end) == Acad::eOk && line.getDistAtParam(end, length) == Acad::eOk)
        Add(rows, Text::Length, Number(length));
    AddArea(rows, line);
    Add(rows, Text::Elevation, Number(line.elevation()));
}

void OfText(const AcDbEntity& entity, Rows& rows)
{
    const auto& text = static_cast<const AcDbText&>(entity);
    Add(rows, Text::Contents, Taken(text.textString()));
    Add(rows, Text::Position, Place(text.position()));
    Add(rows, Text::Height, Number(text.height()));
    Add(rows, Text::Rotation, Degrees(text.rotation()));
}

void OfMText(const AcDbEntity& entity, Rows& rows)
{
    const auto& text = static_cast<const AcDbMText&>(entity);
    Add(rows, Text::Contents, Taken(text.text()).replace(QLatin1String("\r\n"), QLatin1String(" ")));
    Add(rows, Text::Position, Place(text.location()));
    Add(rows, Text::Height, Number(text.textHeight()));
    Add(rows, Text::Rotation, Degrees(text.rotation()));
}

void OfInsert(const AcDbEntity& entity, Rows& rows)
{
    const auto& insert = static_cast<const AcDbBlockReference&>(entity);
    const AcGeScale3d scale = insert.scaleFactors();
    if (const OpenObject<AcDbBlockTableRecord> block(insert.blockTableRecord(), AcDb::kForRead); block)
        Add(rows, Text::BlockName, ToQt(block->nameText().GetString()));
    Add(rows, Text::Position, Place(insert.position()));
    Add(rows, Text::Scale, Place(AcGePoint3d(scale.sx, scale.sy, scale.sz)));
    Add(rows, Text::Rotation, Degrees(insert.rotation()));
}

void OfHatch(const AcDbEntity& entity, Rows& rows)
{
    const auto& hatch = static_cast<const AcDbHatch&>(entity);
    Add(rows, Text::Pattern, Taken(hatch.patternName()));
    Add(rows, Text::Scale, Number(hatch.patternScale()));
    Add(rows, Text::Angle, Degrees(hatch.patternAngle()));
    double area = 0;
    if (hatch.getArea(area) == Acad::eOk)
        Add(rows, Text::Area, Number(area));
}

void OfDimension(const AcDbEntity& entity, Rows& rows)
{
    const auto& dimension = static_cast<const AcDbDimension&>(entity);
    double value = 0;
    if (dimension.measurement(value) == Acad::eOk)
        Add(rows, Text::Measurement, Number(value));
    Add(rows, Text::Contents, Taken(dimension.dimensionText()));
}

struct KindRow {
    AcRxClass* (*kind)();
    void (*tell)(const AcDbEntity& entity, Rows& rows);
};

const KindRow g_kinds[] = {
    {AcDbLine::desc, OfLine},       {AcDbCircle::desc, OfCircle},       {AcDbArc::desc, OfArc},
    {AcDbEllipse::desc, OfEllipse}, {AcDbPoint::desc, OfPoint},         {AcDbPolyline::desc, OfPolyline},
    {AcDbText::desc, OfText},       {AcDbMText::desc, OfMText},         {AcDbBlockReference::desc, OfInsert},
    {AcDbHatch::desc, OfHatch},     {AcDbDimension::desc, OfDimension},
};

QString ColorText(const AcCmColor& color)
{
    if (color.isByLayer())
        return Say(Text::ByLayer);
    if (color.isByBlock())
        return Say(Text::ByBlock);
    return color.isByColor() ? QStringLiteral("%1,%2,%3").arg(color.red()).arg(color.green()).arg(color.blue())
                             : QString::number(color.colorIndex());
}

QString WeightText(int weight)
{
    if (weight == -1)
        return Say(Text::ByLayer);
    if (weight == -2)
        return Say(Text::ByBlock);
    return weight < 0 ? QStringLiteral("-") : QString::number(weight / 100.0, 'f', 2) + QStringLiteral(" mm");
}

QString LinetypeText(const AcDbEntity& entity)
{
    const OpenObject<AcDbLinetypeTableRecord> record(entity.linetypeId(), AcDb::kForRead);
    return record ? ToQt(record->nameText().GetString()) : Say(Text::ByLayer);
}

EntityProperties PropertiesOfOne(const AcDbEntity& entity)
{
    EntityProperties properties;
    properties.title = ToQt(entity.isA()->name()).remove(QLatin1String("AcDb"));
    Rows& general = properties.general;
    general.push_back({Say(Text::Layer), Taken(entity.layer()), PropertyRow::Choice::Layer});
    general.push_back({Say(Text::Color), ColorText(entity.color()), PropertyRow::Choice::Color});
    general.push_back({Say(Text::Linetype), LinetypeText(entity), PropertyRow::Choice::Linetype});
    Add(general, Text::LinetypeScale, Number(entity.linetypeScale()));
    Add(general, Text::LineWeight, WeightText(entity.lineWeight()));
    AcDbHandle handle;
    entity.getAcDbHandle(handle);
    ACHAR text[17] = L"";
    handle.getIntoAsciiBuffer(text);
    Add(general, Text::Handle, ToQt(text));
    for (const KindRow& row : g_kinds)
        if (entity.isKindOf(row.kind())) {
            row.tell(entity, properties.geometry);
            break;
        }
    return properties;
}

void Merge(Rows& rows, const Rows& others)
{
    for (PropertyRow& row : rows)
        for (const PropertyRow& other : others)
            if (other.name == row.name && other.value != row.value)
                row.value = Say(Text::Various);
}

}   // namespace

EntityProperties PropertiesOf(const std::vector<AcDbObjectId>& ids)
{
    EntityProperties all;
    size_t count = 0;
    for (size_t at = 0; at < ids.size() && at < kMostRead; ++at) {
        const OpenObject<AcDbEntity> entity(ids[at], AcDb::kForRead);
        if (!entity)
            continue;
        EntityProperties one = PropertiesOfOne(*entity);
        if (count++ == 0) {
            all = std::move(one);
            continue;
        }
        const bool isSameKind = all.title == one.title;
        Merge(all.general, one.general);
        Merge(all.geometry, one.geometry);
        if (!isSameKind) {
            all.title.clear();
            all.geometry.clear();
        }
    }
    if (count > 1)
        all.title = QStringLiteral("%1 %2").arg(ids.size()).arg(all.title.isEmpty() ? Say(Text::Objects) : all.title);
    return all;
}

QStringList NamesFor(AcDbDatabase& database, PropertyRow::Choice choice)
{
    const AcDbObjectId id = choice == PropertyRow::Choice::Layer ? database.layerTableId() : database.linetypeTableId();
    QStringList names;
    const OpenObject<AcDbSymbolTable> table(id, AcDb::kForRead);
    if (!table)
        return names;
    for (AcDbStub* stub : table->records())
        if (const OpenObject<AcDbSymbolTableRecord> record{AcDbObjectId(stub), AcDb::kForRead}; record)
            names << ToQt(record->nameText().GetString());
    names.sort(Qt::CaseInsensitive);
    return names;
}

}   // namespace KxDesktop
