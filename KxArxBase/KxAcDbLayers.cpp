// Layers: made and updated by name, and their three states.
#include "KxAcDb.h"
#include "KxMessages.h"
#include "Opened.h"
#include <memory>
#include <vector>

namespace KxArxBase {

namespace {

// The host refuses to freeze the current layer; the other two states are set even so.
void SetStates(AcDbLayerTableRecord& layer, const bool* off, const bool* frozen, const bool* locked)
{
    if (off != nullptr)
        layer.setIsOff(*off);
    if (locked != nullptr)
        layer.setIsLocked(*locked);
    if (frozen != nullptr)
        layer.setIsFrozen(*frozen);
}

// Remembers ids. It is asked for each of a million entities on a few thousand layers, so it is a plain table, three
// quarters of it empty, in which an id's place follows from its value.
class SeenIds {
public:
    // True for an id not met before; never for the null id.
    bool Add(AcDbObjectId id)
    {
        AcDbObjectId& slot = SlotOf(id);
        if (slot == id)
            return false;
        slot = id;
        if (++m_count * 4 > m_slots.size())
            Grow();
        return true;
    }

private:
    AcDbObjectId& SlotOf(AcDbObjectId id)
    {
        const size_t mask = m_slots.size() - 1;
        size_t at = size_t(uint64_t(id.asOldId()) * 0x9E3779B97F4A7C15u >> 32) & mask;
        while (!m_slots[at].isNull() && m_slots[at] != id)
            at = (at + 1) & mask;
        return m_slots[at];
    }
    void Grow()
    {
        const std::vector<AcDbObjectId> old = std::move(m_slots);
        m_slots.assign(old.size() * 2, AcDbObjectId());
        for (const AcDbObjectId& id : old) {
            if (!id.isNull())
                SlotOf(id) = id;
        }
    }

    std::vector<AcDbObjectId> m_slots = std::vector<AcDbObjectId>(1024);   // always a power of two
    size_t m_count = 0;
};

CString NameOf(AcDbObjectId record)
{
    Opened<AcDbSymbolTableRecord> opened(record, AcDb::kForRead);
    const ACHAR* name = nullptr;
    if (!opened || opened->getName(name) != Acad::eOk)
        return CString();
    return name;
}

}   // namespace

Acad::ErrorStatus CKxAcDb::OpenLayer(const wchar_t* name, AcDbLayerTableRecord*& layer, AcDb::OpenMode mode)
{
    layer = nullptr;
    AcDbSymbolTableRecord* record = nullptr;
    const Acad::ErrorStatus es = OpenRecWithEntyName(name, AcDbLayerTable::desc(), record, mode);
    if (es == Acad::eOk)
        layer = static_cast<AcDbLayerTableRecord*>(record);
    return es;
}

Acad::ErrorStatus CKxAcDb::Layer(const wchar_t* name, int color, const wchar_t* linetype, AcDbObjectId* id, int create,
                                 int update)
{
    if (id != nullptr)
        id->setNull();
    AcDbSymbolTableRecord* opened = nullptr;
    int created = 0;
    const Acad::ErrorStatus es = Reported(
        [&] { return OpenRecWithEntyName(name, AcDbLayerTable::desc(), opened, AcDb::kForWrite, create, &created); });
    if (es != Acad::eOk)
        return es;
    Opened<AcDbLayerTableRecord> layer(static_cast<AcDbLayerTableRecord*>(opened), es);
    if (update != 0 || created != 0) {
        AcCmColor indexed;
        indexed.setColorIndex(Adesk::UInt16(color));
        AcDbSymbolTableRecord* found = nullptr;
        AcDbObjectId linetypeId;
        if (linetype != nullptr &&
            OpenRecWithEntyName(linetype, AcDbLinetypeTable::desc(), found, AcDb::kForRead) == Acad::eOk)
            linetypeId = Opened<AcDbSymbolTableRecord>(found, Acad::eOk)->objectId();
        layer->setColor(indexed);
        layer->setLinetypeObjectId(linetypeId);
    }
    if (id != nullptr)
        *id = layer->objectId();
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDb::SetLayerStatusAll(const wchar_t* names, bool* off, const bool* frozen, const bool* locked,
                                             wchar_t separator)
{
    if (names == nullptr || *names == L'\0')
        return Acad::eOk;
    Acad::ErrorStatus result = Acad::eOk;
    bool anyClosed = false;
    CString name;
    for (int field = 0; AfxExtractSubString(name, names, field, separator); ++field) {
        AcDbLayerTableRecord* opened = nullptr;
        const Acad::ErrorStatus es = OpenLayer(name, opened, AcDb::kForWrite);
        if (es != Acad::eOk) {
            if (!anyClosed)
                result = es;   // kept only when no layer of the list is there
            continue;
        }
        SetStates(*opened, off, frozen, locked);
        result = opened->close();
        anyClosed = true;
    }
    return result;
}

Acad::ErrorStatus CKxAcDb::SetLayerStatus(const wchar_t* name, bool off, const bool* frozen, const bool* locked,
                                          wchar_t separator)
{
    return SetLayerStatusAll(name, &off, frozen, locked, separator);
}

Acad::ErrorStatus CKxAcDb::GetLayerStatus(const wchar_t* name, bool& off, bool* frozen, bool* locked, wchar_t separator)
{
    CString first;
    AfxExtractSubString(first, name, 0, separator);
    AcDbLayerTableRecord* opened = nullptr;
    const Acad::ErrorStatus es = Reported([&] { return OpenLayer(first, opened, AcDb::kForRead); });
    if (es != Acad::eOk)
        return es;
    Opened<AcDbLayerTableRecord> layer(opened, es);
    off = layer->isOff();
    if (frozen != nullptr)
        *frozen = layer->isFrozen();
    if (locked != nullptr)
        *locked = layer->isLocked();
    return layer.Close();
}

Acad::ErrorStatus CKxAcDb::SetAlllayersStatus(bool* off, const bool* frozen, const bool* locked)
{
    AcDbSymbolTableIterator* opened = nullptr;
    const Acad::ErrorStatus es = NewIterator(AcDbLayerTable::desc(), opened);
    const std::unique_ptr<AcDbSymbolTableIterator> it(opened);
    if (es != Acad::eOk)
        return es;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        it->getRecordId(id);
        AcDbObject* object = nullptr;
        if (acdbOpenObject(object, id, AcDb::kForWrite) != Acad::eOk)
            continue;
        SetStates(*static_cast<AcDbLayerTableRecord*>(object), off, frozen, locked);
        object->close();
    }
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDb::GetEntityLayers(const AcDbObjectIdArray& ids, CStringArray& names)
{
    names.RemoveAll();
    SeenIds seen;
    for (const AcDbObjectId& id : ids) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenAcDbEntity(entity, id, AcDb::kForRead) != Acad::eOk)
            continue;
        const AcDbObjectId layer = entity->layerId();
        entity->close();
        if (seen.Add(layer))
            names.Add(NameOf(layer));
    }
    return Acad::eOk;
}

}   // namespace KxArxBase
