#include "LayerStates.h"
#include "KxArxBase/Opened.h"
#include <algorithm>
#include <memory>

namespace KxArxModules {

using KxArxBase::Opened;

namespace {

CString NameOf(AcDbObjectId record)
{
    const Opened<AcDbSymbolTableRecord> opened(record, AcDb::kForRead);
    const ACHAR* name = nullptr;
    if (!opened || opened->getName(name) != Acad::eOk)
        return CString();
    return name;
}

LayerStates::Row RowOf(const AcDbLayerTableRecord& layer)
{
    LayerStates::Row row;
    row.id = layer.objectId();
    const ACHAR* name = nullptr;
    if (layer.getName(name) == Acad::eOk)
        row.name = name;
    row.linetype = NameOf(layer.linetypeObjectId());
    row.color = layer.color().colorIndex();
    row.off = layer.isOff();
    row.frozen = layer.isFrozen();
    row.locked = layer.isLocked();
    return row;
}

}   // namespace

LayerStates::LayerStates(KxArxBase::CKxAcDb& db)
{
    AcDbSymbolTableIterator* opened = nullptr;
    const Acad::ErrorStatus es = db.NewIterator(AcDbLayerTable::desc(), opened);
    const std::unique_ptr<AcDbSymbolTableIterator> it(opened);
    for (; es == Acad::eOk && !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        const Opened<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (layer)
            m_rows.push_back(RowOf(*layer.get()));
    }
}

// Opens for write only what changes, so that undo holds no more than that.
void LayerStates::Set(AcDbObjectId id, const bool* off, const bool* frozen, const bool* locked)
{
    Opened<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    if (!layer)
        return;
    const bool changes = (off != nullptr && *off != layer->isOff()) ||
                         (frozen != nullptr && *frozen != layer->isFrozen()) ||
                         (locked != nullptr && *locked != layer->isLocked());
    if (!changes || layer->upgradeOpen() != Acad::eOk)
        return;
    if (off != nullptr)
        layer->setIsOff(*off);
    if (locked != nullptr)
        layer->setIsLocked(*locked);
    if (frozen != nullptr)
        layer->setIsFrozen(*frozen);
}

void LayerStates::ShowOnly(const std::vector<int>& shown) const
{
    const bool yes = true;
    const bool no = false;
    for (int i = 0; i < int(m_rows.size()); ++i) {
        const bool isShown = std::find(shown.begin(), shown.end(), i) != shown.end();
        Set(m_rows[size_t(i)].id, isShown ? &no : &yes, isShown ? &no : nullptr, nullptr);
    }
}

void LayerStates::Restore() const
{
    for (const Row& row : m_rows)
        Set(row.id, &row.off, &row.frozen, &row.locked);
}

}   // namespace KxArxModules
