#include "AcDbLayerTableRecord.h"
#include "AcDbDatabase.h"
#include "core/DbCore.h"
#include "core/StoredColor.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbLayerTableRecord::fieldSchema()
{
    using Layer = AcDbLayerTableRecord;
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "LAYER", "AcDbLayerTableRecord",
                                    {
                                        Text(2, &Layer::m_name).always(),
                                        Int16(70, &Layer::m_flags).always(),
                                        Int16(62, &Layer::m_color, 7).always(),
                                        Int32(420, &Layer::m_trueColor, kNoTrueColor).since(AcDb::kDHL_1018),
                                        Name(6, &Layer::m_linetype, TableKind::Linetype).always(),
                                        Int16(290, &Layer::m_isPlottable, 1).since(AcDb::kDHL_1015),
                                        Int16(370, &Layer::m_lineWeight, -3).always().since(AcDb::kDHL_1015),
                                        Id(390, &Layer::m_plotStyle).since(AcDb::kDHL_1015),
                                        Id(347, &Layer::m_material).since(AcDb::kDHL_1021),
                                    });
    return schema;
}

const ClassSchema& AcDbLayerTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

AcDbLayerTableRecord::AcDbLayerTableRecord() : m_trueColor(kNoTrueColor) {}

void AcDbLayerTableRecord::setIsOff(bool off)
{
    if (off == isOff() || assertWriteEnabled() != Acad::eOk)
        return;
    // A layer without a colour of its own still has to show that it is off.
    m_color = m_color == 0 ? int16_t(-7) : int16_t(-m_color);
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen)
{
    if (frozen && database() != nullptr && database()->clayer() == objectId())
        return Acad::eInvalidLayer;
    if (frozen == isFrozen())
        return Acad::eOk;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_flags = int16_t(m_flags ^ 1);
    return status;
}

void AcDbLayerTableRecord::setIsLocked(bool locked)
{
    if (locked == isLocked() || assertWriteEnabled() != Acad::eOk)
        return;
    m_flags = int16_t(m_flags ^ 4);
    if (database() != nullptr && locked)
        CoreOf(*database()).hasLockedLayers = true;
}

void AcDbLayerTableRecord::setVPDFLT(bool frozen)
{
    if (frozen != VPDFLT() && assertWriteEnabled() == Acad::eOk)
        m_flags = int16_t(m_flags ^ 2);
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plot)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_isPlottable = plot;
    return status;
}

AcCmColor AcDbLayerTableRecord::color() const
{
    return ColorOf(m_color, m_trueColor);
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    if (assertWriteEnabled() == Acad::eOk)
        StoreColor(color, m_color, m_trueColor);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId linetype)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_linetype = linetype;
    return status;
}

Acad::ErrorStatus AcDbLayerTableRecord::setPlotStyleName(AcDbObjectId plotStyle)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_plotStyle = plotStyle;
    return status;
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_lineWeight = int16_t(weight);
    return status;
}

// The host keeps a layer's description in its extended data.
ACHAR* AcDbLayerTableRecord::description() const
{
    ACHAR* text = nullptr;
    resbuf* chain = xData(L"AcAecLayerStandard");
    const resbuf* last = nullptr;
    for (const resbuf* at = chain; at != nullptr; at = at->rbnext)
        if (at->restype == 1000)
            last = at;
    acutUpdString(last == nullptr ? L"" : last->resval.rstring, text);
    acutRelRb(chain);
    return text;
}

Acad::ErrorStatus AcDbLayerTableRecord::setDescription(const ACHAR* description)
{
    if (description == nullptr)
        return Acad::eInvalidInput;
    resbuf* chain = acutBuildList(1001, L"AcAecLayerStandard", 1000, L"", 1000, description, 0);
    const Acad::ErrorStatus status = setXData(chain);
    acutRelRb(chain);
    return status;
}

bool AcDbLayerTableRecord::isErasable() const
{
    return nameText() != L"0" && (database() == nullptr || database()->clayer() != objectId());
}
