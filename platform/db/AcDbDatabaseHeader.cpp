// The header variables of a drawing that have accessors of their own.
#include "AcDbBlockTableRecord.h"
#include "AcDbDatabase.h"
#include "AcDbLayerTableRecord.h"
#include "core/DbCore.h"
#include <cmath>

using namespace KxPlat;

namespace {

// The record that a header variable names; the fallback where the variable or the record is missing.
AcDbObjectId RecordOf(const DbCore& core, TableKind kind, const char* variable, const wchar_t* fallback)
{
    const AcDbSymbolTable* table = core.Table(kind);
    if (table == nullptr)
        return AcDbObjectId();
    const HeaderVar* var = core.header.Find(variable);
    if (var != nullptr && !var->groups.empty()) {
        const CString name = var->groups[0].text();
        if (AcDbStub* found = table->find(std::wstring_view(name, size_t(name.GetLength()))))
            return found;
    }
    return table->find(fallback);
}

Acad::ErrorStatus SetRecord(DbCore& core, AcRxClass* kind, const char* variable, int code, AcDbObjectId id)
{
    const AcDbStub* stub = id;
    if (stub == nullptr || stub->object == nullptr || stub->erased)
        return Acad::eNullObjectId;
    if (!stub->object->isKindOf(kind) || stub->database != core.database)
        return Acad::eWrongObjectType;
    core.undo.ChangingHeader(core.header, variable);
    core.header.SetText(variable, code, static_cast<AcDbSymbolTableRecord*>(stub->object)->nameText());
    core.modified |= 4;
    return Acad::eOk;
}

void SetNumber(DbCore& core, const char* variable, int code, double value)
{
    core.undo.ChangingHeader(core.header, variable);
    if (KindOfGroup(code) == GroupKind::Real)
        core.header.SetReal(variable, code, value);
    else
        core.header.SetInteger(variable, code, int64_t(value));
    core.modified |= 4;
}

AcDbObjectId Linetype(const DbCore& core, const wchar_t* name)
{
    const AcDbSymbolTable* table = core.Table(TableKind::Linetype);
    return table == nullptr ? nullptr : table->find(name);
}

}   // namespace

AcDbObjectId AcDbDatabase::layerZero() const
{
    const AcDbSymbolTable* table = m_core->Table(TableKind::Layer);
    return table == nullptr ? nullptr : table->find(L"0");
}

AcDbObjectId AcDbDatabase::continuousLinetype() const
{
    return Linetype(*m_core, L"Continuous");
}

AcDbObjectId AcDbDatabase::byLayerLinetype() const
{
    return Linetype(*m_core, L"ByLayer");
}

AcDbObjectId AcDbDatabase::byBlockLinetype() const
{
    return Linetype(*m_core, L"ByBlock");
}

AcDbObjectId AcDbDatabase::clayer() const
{
    return RecordOf(*m_core, TableKind::Layer, "$CLAYER", L"0");
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer)
{
    const AcDbStub* stub = layer;
    const AcDbLayerTableRecord* record = stub == nullptr ? nullptr : AcDbLayerTableRecord::cast(stub->object);
    if (record != nullptr && record->isFrozen())
        return Acad::eInvalidLayer;
    return SetRecord(*m_core, AcDbLayerTableRecord::desc(), "$CLAYER", 8, layer);
}

AcDbObjectId AcDbDatabase::celtype() const
{
    return RecordOf(*m_core, TableKind::Linetype, "$CELTYPE", L"ByLayer");
}

Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId linetype)
{
    return SetRecord(*m_core, m_core->Table(TableKind::Linetype)->recordClass(), "$CELTYPE", 6, linetype);
}

AcDbObjectId AcDbDatabase::textstyle() const
{
    return RecordOf(*m_core, TableKind::TextStyle, "$TEXTSTYLE", L"Standard");
}

Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId style)
{
    return SetRecord(*m_core, m_core->Table(TableKind::TextStyle)->recordClass(), "$TEXTSTYLE", 7, style);
}

double AcDbDatabase::textsize() const
{
    return m_core->header.Real("$TEXTSIZE", 2.5);
}

Acad::ErrorStatus AcDbDatabase::setTextsize(double size)
{
    if (!(size > 0) || !std::isfinite(size))
        return Acad::eInvalidInput;
    SetNumber(*m_core, "$TEXTSIZE", 40, size);
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::dimstyle() const
{
    return RecordOf(*m_core, TableKind::DimStyle, "$DIMSTYLE", L"Standard");
}

Acad::ErrorStatus AcDbDatabase::setDimstyle(AcDbObjectId style)
{
    return SetRecord(*m_core, m_core->Table(TableKind::DimStyle)->recordClass(), "$DIMSTYLE", 2, style);
}

AcCmColor AcDbDatabase::cecolor() const
{
    AcCmColor color;
    color.setColorIndex(Adesk::UInt16(m_core->header.Integer("$CECOLOR", 256)));
    return color;
}

Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color)
{
    SetNumber(*m_core, "$CECOLOR", 62, color.colorIndex());
    return Acad::eOk;
}

double AcDbDatabase::celtscale() const
{
    return m_core->header.Real("$CELTSCALE", 1);
}

AcDb::LineWeight AcDbDatabase::celweight() const
{
    return AcDb::LineWeight(m_core->header.Integer("$CELWEIGHT", -1));
}

double AcDbDatabase::ltscale() const
{
    return m_core->header.Real("$LTSCALE", 1);
}

Acad::ErrorStatus AcDbDatabase::setLtscale(double scale)
{
    if (!(scale > 0))
        return Acad::eInvalidInput;
    SetNumber(*m_core, "$LTSCALE", 40, scale);
    return Acad::eOk;
}

bool AcDbDatabase::tilemode() const
{
    return m_core->header.Integer("$TILEMODE", 1) != 0;
}

// The space follows: the model, or the layout that the first paper space block is.
Acad::ErrorStatus AcDbDatabase::setTilemode(bool model)
{
    if (model == tilemode())
        return Acad::eOk;
    AcDbStub* space = model ? m_core->modelSpace : m_core->Table(TableKind::Block)->find(ACDB_PAPER_SPACE);
    return space == nullptr ? Acad::eKeyNotFound : setCurrentSpace(space);
}

AcDbObjectId AcDbDatabase::currentSpaceId() const
{
    return m_core->currentSpace != nullptr ? m_core->currentSpace : m_core->modelSpace;
}

Acad::ErrorStatus AcDbDatabase::setCurrentSpace(AcDbObjectId block)
{
    const AcDbStub* stub = block;
    const AcDbBlockTableRecord* record = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
    if (record == nullptr || (!record->isModelSpace() && !record->isPaperSpace()))
        return Acad::eWrongObjectType;
    m_core->currentSpace = block;
    SetNumber(*m_core, "$TILEMODE", 70, record->isModelSpace() ? 1 : 0);
    return Acad::eOk;
}

AcGePoint3d AcDbDatabase::insbase() const
{
    return m_core->header.Point("$INSBASE");
}

Acad::ErrorStatus AcDbDatabase::setInsbase(const AcGePoint3d& base)
{
    m_core->undo.ChangingHeader(m_core->header, "$INSBASE");
    m_core->header.SetPoint("$INSBASE", base);
    m_core->modified |= 4;
    return Acad::eOk;
}

AcDb::UnitsValue AcDbDatabase::insunits() const
{
    return AcDb::UnitsValue(m_core->header.Integer("$INSUNITS", 0));
}

bool AcDbDatabase::measurementIsMetric() const
{
    return m_core->header.Integer("$MEASUREMENT", 0) != 0;
}
