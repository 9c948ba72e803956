// Properties of entities taken from an xref and put on their clones.
#include "ArxReferenceState.h"
#include "Opened.h"
#include <memory>
#include <vector>

namespace KxArxBase {

namespace {

// The linetype that a clone gets for the one of its source.
AcDbObjectId LocalLinetype(const AcDbEntity& entity)
{
    AcDbDatabase* db = WorkingDb();
    ACHAR* text = entity.linetype();
    const CString name(text);
    acutDelString(text);
    if (name.CompareNoCase(L"ByLayer") == 0)
        return db->byLayerLinetype();
    if (name.CompareNoCase(L"ByBlock") == 0)
        return db->byBlockLinetype();
    if (name.CompareNoCase(L"Continuous") == 0)
        return db->continuousLinetype();
    AcDbObjectId own = entity.linetypeId(), local;
    return TheReferenceState().linetypes.Lookup(own, local) ? local : db->byLayerLinetype();
}

void GatherLinetype(const AcDbEntity& entity, tagEntProperty& properties, tagEntType type)
{
    properties.linetype = type == 0 ? LocalLinetype(entity) : entity.linetypeId();
}

AcDbObjectId LocalTextStyle(AcDbObjectId style, tagEntType type)
{
    AcDbObjectId local;
    if (type != 0 || TheReferenceState().textStyles.Lookup(style, local))
        return type != 0 ? style : local;
    return WorkingDb()->textstyle();
}

void GatherText(const AcDbText& text, tagEntProperty& properties, tagEntType type)
{
    properties.textStyle = LocalTextStyle(text.textStyle(), type);
    properties.alignmentPoint = text.alignmentPoint();
    properties.height = text.height();
    properties.horizontalMode = text.horizontalMode();
    properties.verticalMode = text.verticalMode();
    properties.normal = text.normal();
    properties.oblique = text.oblique();
    properties.position = text.position();
    properties.rotation = text.rotation();
    properties.thickness = text.thickness();
    properties.widthFactor = text.widthFactor();
}

void GatherMText(const AcDbMText& text, tagEntProperty& properties, tagEntType type)
{
    properties.textStyle = LocalTextStyle(text.textStyle(), type);
    properties.attachment = text.attachment();
    ACHAR* contents = text.contents();
    properties.contents = contents;
    acutDelString(contents);
    properties.direction = text.direction();
    properties.flowDirection = text.flowDirection();
    properties.lineSpacingFactor = text.lineSpacingFactor();
    properties.lineSpacingStyle = text.lineSpacingStyle();
    properties.location = text.location();
    properties.normal = text.normal();
    properties.rotation = text.rotation();
    properties.height = text.textHeight();
    properties.width = text.width();
}

struct ClassRow {
    const wchar_t* name;
    int kind;
};

// Classes of the architecture program.
const ClassRow g_architecture[] = {
    {L"TDbText", 1},          {L"TDbMText", 1},         {L"TDbSymbArrow", 1},  {L"TDbSymbIndexPointer", 1},
    {L"TDbSymbElevation", 1}, {L"TDbSymbComposing", 1}, {L"TDbDimension2", 2}, {L"TDbRadiusDim", 2},
    {L"TDbSymbCoord", 2},     {L"TDbSymbSection", 2},
};

// Entities that hand out their pieces, deleted with the list.
class Pieces {
public:
    explicit Pieces(const AcDbEntity& entity)
    {
        AcArray<AcRxObject*> pieces;
        entity.explode(pieces);
        for (AcRxObject* piece : pieces)
            m_pieces.emplace_back(piece);
    }
    template <class T>
    const T* First() const
    {
        for (const auto& piece : m_pieces)
            if (const T* found = T::cast(piece.get()))
                return found;
        return nullptr;
    }

private:
    std::vector<std::unique_ptr<AcRxObject>> m_pieces;
};

// What the host shows of an entity whose class it does not know.
CString ClassNameOf(const AcDbEntity& entity)
{
    const AcDbProxyEntity* proxy = AcDbProxyEntity::cast(&entity);
    return proxy != nullptr ? proxy->originalClassName() : entity.isA()->name();
}

}   // namespace

int KxArxReference::IsTianZhengEntity(CString className)
{
    for (const ClassRow& row : g_architecture)
        if (className.CompareNoCase(row.name) == 0)
            return row.kind;
    return 0;
}

int KxArxReference::GetEntProperties(AcDbEntity* entity, tagEntProperty& properties, tagEntType type)
{
    if (entity == nullptr || WorkingDb() == nullptr)
        return 0;
    const CString className = ClassNameOf(*entity);
    if (IsTianZhengEntity(className) != 0)
        return GetTiangentEntProperties(TheReferenceState().database, className, entity, properties, type);
    GatherLinetype(*entity, properties, type);
    properties.colorIndex = entity->colorIndex();
    if (const AcDbText* text = AcDbText::cast(entity))
        GatherText(*text, properties, type);
    else if (const AcDbMText* lines = AcDbMText::cast(entity))
        GatherMText(*lines, properties, type);
    else if (const AcDbDimension* dimension = AcDbDimension::cast(entity))
        properties.dimStyle = dimension->dimensionStyle();
    return 1;
}

int KxArxReference::GetTiangentEntProperties(AcDbDatabase*, CString className, AcDbEntity* entity,
                                             tagEntProperty& properties, tagEntType type)
{
    const int kind = IsTianZhengEntity(className);
    if (entity == nullptr || WorkingDb() == nullptr || kind == 0)
        return 0;
    GatherLinetype(*entity, properties, type);
    properties.colorIndex = entity->colorIndex();
    const Pieces pieces(*entity);
    if (const AcDbCurve* curve = pieces.First<AcDbCurve>())
        GatherLinetype(*curve, properties, type);
    const AcDbDimension* dimension = kind == 2 ? pieces.First<AcDbDimension>() : nullptr;
    if (dimension != nullptr)
        properties.dimStyle = dimension->dimensionStyle();
    if (const AcDbText* text = pieces.First<AcDbText>())
        properties.textStyle = LocalTextStyle(text->textStyle(), type);
    else if (const AcDbMText* lines = pieces.First<AcDbMText>())
        properties.textStyle = LocalTextStyle(lines->textStyle(), type);
    return 1;
}

// --- putting on ------------------------------------------------------------------------------------------------------

namespace {

bool IsOk(Acad::ErrorStatus status)
{
    return status == Acad::eOk;
}

AcDbObjectId LocalStyleFor(AcDbObjectId recorded)
{
    AcDbObjectId local;
    return KxArxReference::CopyOneXrefTextSyleToCurTextTable(recorded, local) == 1 ? local : recorded;
}

bool PutOnText(AcDbText& text, const tagEntProperty& properties)
{
    return IsOk(text.setTextStyle(LocalStyleFor(properties.textStyle))) &&
           IsOk(text.setLinetype(properties.linetype)) && IsOk(text.setHorizontalMode(properties.horizontalMode)) &&
           IsOk(text.setVerticalMode(properties.verticalMode)) && IsOk(text.setNormal(properties.normal)) &&
           IsOk(text.setOblique(properties.oblique)) && IsOk(text.setRotation(properties.rotation)) &&
           IsOk(text.setThickness(properties.thickness)) && IsOk(text.setWidthFactor(properties.widthFactor));
}

}   // namespace

int KxArxReference::SetEntProperties(AcDbEntity* entity, tagEntType type)
{
    AcDbObjectId layer;
    AcCmColor color;
    if (entity == nullptr || GetCurLayer(layer, color) == 0)
        return 0;
    const tagEntProperty& properties = TheReferenceState().property;
    if (type == 0 &&
        (!IsOk(entity->setLayer(layer, true)) || !IsOk(entity->setColorIndex(properties.colorIndex, true))))
        return 0;
    const int dimension = IsDimensionMarker(entity, properties.dimStyle, properties.textStyle, type);
    if (dimension != 2)
        return dimension;
    if (AcDbText* text = AcDbText::cast(entity))
        return PutOnText(*text, properties) ? 1 : 0;
    if (AcDbMText* lines = AcDbMText::cast(entity))
        return IsOk(lines->setTextStyle(LocalStyleFor(properties.textStyle))) &&
               IsOk(lines->setLinetype(properties.linetype));
    if (entity->isKindOf(AcDbCurve::desc()) || entity->isKindOf(AcDbHatch::desc()))
        return IsOk(entity->setLinetype(properties.linetype)) ? 1 : 0;
    return 1;
}

int KxArxReference::IsDimensionMarker(AcDbEntity* entity, AcDbObjectId dimStyle, AcDbObjectId textStyle, int type)
{
    AcRxClass* const kinds[] = {AcDbOrdinateDimension::desc(),    AcDbArcDimension::desc(),
                                AcDbRadialDimensionLarge::desc(), AcDbAlignedDimension::desc(),
                                AcDbRotatedDimension::desc(),     AcDb2LineAngularDimension::desc(),
                                AcDbDiametricDimension::desc(),   AcDbRadialDimension::desc()};
    AcDbDimension* dimension = AcDbDimension::cast(entity);
    bool isKnown = false;
    for (const AcRxClass* kind : kinds)
        isKnown = isKnown || (dimension != nullptr && dimension->isKindOf(kind));
    if (!isKnown)
        return 2;
    if (type == 0 && !IsOk(dimension->setLinetype(TheReferenceState().property.linetype)))
        return 0;
    AcDbObjectId local;
    if (CopyOneXrefDimStyleToCurDimTable(dimStyle, local) == 0)
        return 0;
    if (!textStyle.isNull()) {
        const Opened<AcDbDimStyleTableRecord> style(local, AcDb::kForWrite);
        if (style && style->dimtxsty().isNull())
            style->setDimtxsty(LocalStyleFor(textStyle));
    }
    return IsOk(dimension->setDimensionStyle(local)) ? 1 : 0;
}

}   // namespace KxArxBase
