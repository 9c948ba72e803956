// Layers of the working drawing, as far as cloning from xrefs needs them, and commands sent to the host.
#include "ArxReferenceState.h"
#include "KxAcDb.h"
#include "Opened.h"
#include <memory>

namespace KxArxBase {

namespace {

AcDbObjectId LayerNamed(const CString& name)
{
    AcDbObjectId id;
    AcDbLayerTable* opened = nullptr;
    if (WorkingDb() == nullptr || WorkingDb()->getSymbolTable(opened, AcDb::kForRead) != Acad::eOk)
        return id;
    const Opened<AcDbLayerTable> table(opened, Acad::eOk);
    table->getAt(name, id);
    return id;
}

}   // namespace

int KxArxReference::CreateLayer(const wchar_t* name, AcDbObjectId& id)
{
    id.setNull();
    AcDbLayerTable* opened = nullptr;
    if (name == nullptr || WorkingDb() == nullptr || WorkingDb()->getSymbolTable(opened, AcDb::kForRead) != Acad::eOk)
        return 0;
    const Opened<AcDbLayerTable> table(opened, Acad::eOk);
    if (table->getAt(name, id) == Acad::eOk)
        return 1;
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    layer->setIsPlottable(false);
    if (layer->setName(name) != Acad::eOk || table->upgradeOpen() != Acad::eOk ||
        table->add(id, layer.get()) != Acad::eOk)
        return 0;
    layer.release()->close();
    return 1;
}

int KxArxReference::CopyLayer(CString from, CString to)
{
    AcCmColor color;
    AcDbObjectId linetype, plotStyle;
    AcDb::LineWeight weight = AcDb::kLnWtByLwDefault;
    bool isFrozen = false, isLocked = false, isOff = false, isFrozenInNew = false, isPlottable = true;
    {
        const Opened<AcDbLayerTableRecord> source(LayerNamed(from), AcDb::kForRead);
        if (source.status() != Acad::eOk)
            return 0;
        color = source->color();
        linetype = source->linetypeObjectId();
        weight = source->lineWeight();
        plotStyle = source->plotStyleNameId();
        isFrozen = source->isFrozen();
        isLocked = source->isLocked();
        isOff = source->isOff();
        isFrozenInNew = source->VPDFLT();
        isPlottable = source->isPlottable();
    }
    const Opened<AcDbLayerTableRecord> target(LayerNamed(to), AcDb::kForWrite);
    if (target.status() != Acad::eOk)
        return 0;
    target->setColor(color);
    target->setLinetypeObjectId(linetype);
    target->setLineWeight(weight);
    if (!plotStyle.isNull())
        target->setPlotStyleName(plotStyle);
    target->setIsFrozen(isFrozen);
    target->setIsLocked(isLocked);
    target->setIsOff(isOff);
    target->setVPDFLT(isFrozenInNew);
    target->setIsPlottable(isPlottable);
    return 1;
}

int KxArxReference::SetLayerName(AcDbObjectId entity, AcDbObjectId layer)
{
    const Opened<AcDbEntity> opened(entity, AcDb::kForWrite);
    return opened && opened->setLayer(layer) == Acad::eOk ? 1 : 0;
}

CString KxArxReference::GetlayerName(AcDbObjectId entity)
{
    const Opened<AcDbEntity> opened(entity, AcDb::kForRead);
    if (!opened)
        return CString();
    ACHAR* text = opened->layer();
    CString name(text);
    acutDelString(text);
    return name;
}

int KxArxReference::CheckLockLayer(CString layer)
{
    const Opened<AcDbLayerTableRecord> record(LayerNamed(layer), AcDb::kForRead);
    return record && record->isLocked() ? 1 : 0;
}

int KxArxReference::SetLockLayer(CString layer, bool lock)
{
    const Opened<AcDbLayerTableRecord> record(LayerNamed(layer), AcDb::kForWrite);
    if (!record)
        return 0;
    record->setIsLocked(lock);
    return 1;
}

int KxArxReference::GetCurLayer(AcDbObjectId& layer, AcCmColor& color)
{
    if (WorkingDb() == nullptr)
        return 0;
    layer = WorkingDb()->clayer();
    const Opened<AcDbLayerTableRecord> record(layer, AcDb::kForRead);
    if (!record)
        return 0;
    color = record->color();
    return 1;
}

void KxArxReference::sendCommandToAutoCAD(CString command)
{
    if (command.IsEmpty() || acDocManager->curDocument() == nullptr)
        return;
    acDocManager->sendStringToExecute(acDocManager->curDocument(), L"\003\003" + command, false, true, false);
}

}   // namespace KxArxBase
