#include "AcDbObject.h"
#include "AcDbDatabase.h"
#include "AcDbDictionary.h"
#include "AcDbEntity.h"
#include "AcDbIdMapping.h"
#include "AcDbLayerTableRecord.h"
#include "core/DbCore.h"
#include "core/GroupResbuf.h"
#include "core/ObjectAccess.h"
#include <algorithm>

using namespace KxPlat;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcGiDrawable)

const ClassSchema& AcDbObject::fieldSchema()
{
    static const ClassSchema schema(nullptr, "", nullptr, {});
    return schema;
}

AcDbObject::AcDbObject() : m_state(kNewObject) {}

AcDbObject::~AcDbObject()
{
    if (m_stub != nullptr && m_stub->object == this)
        m_stub->object = nullptr;
    delete m_annex;
}

void ObjectAccess::SetAnnex(AcDbObject& object, Annex* annex)
{
    delete object.m_annex;
    object.m_annex = annex;
}

namespace {

long g_openObjects = 0;

// Entities on a locked layer are read but not changed.
bool IsOnLockedLayer(const AcDbObject& object, const DbCore& core)
{
    if (!core.hasLockedLayers)
        return false;
    const AcDbEntity* entity = AcDbEntity::cast(&object);
    if (entity == nullptr)
        return false;
    AcDbStub* layer = entity->layerId();
    const AcDbLayerTableRecord* record = layer == nullptr ? nullptr : AcDbLayerTableRecord::cast(layer->object);
    return record != nullptr && record->isLocked();
}

}   // namespace

long KxPlat::OpenObjectCount()
{
    return g_openObjects;
}

void KxPlat::CountOpenObjects(long difference)
{
    g_openObjects += difference;
}

Acad::ErrorStatus KxPlat::OpenStub(AcDbStub* stub, AcDb::OpenMode mode, bool erasedToo, AcDbObject*& object)
{
    object = nullptr;
    if (stub == nullptr)
        return Acad::eNullObjectId;
    if (stub->object == nullptr)
        return Acad::eUnknownHandle;
    if (stub->erased && !erasedToo)
        return Acad::eWasErased;
    if (mode == AcDb::kForRead) {
        if (stub->writing)
            return Acad::eWasOpenForWrite;
        if (stub->readers == UINT16_MAX)
            return Acad::eAtMaxReaders;
        ++stub->readers;
        FetchAhead(stub);
    } else if (mode == AcDb::kForWrite) {
        if (stub->writing)
            return Acad::eWasOpenForWrite;
        if (stub->readers != 0)
            return Acad::eWasOpenForRead;
        if (IsOnLockedLayer(*stub->object, CoreOf(*stub->database)))
            return Acad::eOnLockedLayer;
        stub->writing = true;
    } else {
        if (stub->notifying)
            return Acad::eWasOpenForNotify;
        stub->notifying = true;
    }
    ++g_openObjects;
    object = stub->object;
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErasedObject)
{
    return OpenStub(id, mode, openErasedObject, object);
}

namespace {

// Entities that watch the changed one. What is open already hears nothing.
void TellReactors(const AcDbObject& changed, const Annex& annex)
{
    const std::vector<AcDbObjectId> reactors = annex.reactors;
    for (const AcDbObjectId& id : reactors) {
        AcDbEntity* reactor = nullptr;
        if (acdbOpenObject(reactor, id, AcDb::kForWrite) != Acad::eOk)
            continue;
        reactor->modifiedGraphics(&changed);
        reactor->close();
    }
}

}   // namespace

Acad::ErrorStatus AcDbObject::close()
{
    if (m_stub == nullptr)
        return Acad::eNotOpenForRead;
    bool tellsReactors = false;
    if (m_stub->writing) {
        if ((m_state & (kModified | kNewObject)) != 0)
            subClose();
        tellsReactors = (m_state & kModified) != 0 && m_annex != nullptr && !m_annex->reactors.empty();
        m_state &= ~uint32_t(kModified | kNewObject | kEraseToggled);
        m_stub->writing = false;
    } else if (m_stub->readers > 0) {
        --m_stub->readers;
    } else if (m_stub->notifying) {
        m_stub->notifying = false;
    } else {
        return Acad::eNotOpenForRead;
    }
    --g_openObjects;
    if (tellsReactors)
        TellReactors(*this, *m_annex);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (m_stub == nullptr || m_stub->readers == 0)
        return m_stub != nullptr && m_stub->writing ? Acad::eWasOpenForWrite : Acad::eNotOpenForRead;
    if (m_stub->readers > 1)
        return Acad::eHadMultipleReaders;
    if (m_stub->erased)
        return Acad::eWasErased;
    if (IsOnLockedLayer(*this, CoreOf(*m_stub->database)))
        return Acad::eOnLockedLayer;
    m_stub->readers = 0;
    m_stub->writing = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    if (m_stub == nullptr || !m_stub->writing)
        return Acad::eNotOpenForWrite;
    m_stub->writing = false;
    m_stub->readers = 1;
    m_state &= ~uint32_t(kModified | kNewObject);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::assertWriteEnabled(bool autoUndo, bool recordModified)
{
    if (m_stub == nullptr)
        return Acad::eOk;
    if (!m_stub->writing)
        return Acad::eNotOpenForWrite;
    DbCore& core = CoreOf(*m_stub->database);
    if (autoUndo)
        core.undo.Changing(*this);
    if (recordModified) {
        m_state |= kModified | kChangedSinceRead;
        core.modified |= 1;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(bool erasing)
{
    if (m_stub == nullptr)
        return Acad::eNoDatabase;
    if (!m_stub->writing)
        return Acad::eNotOpenForWrite;
    if (m_stub->erased == erasing)
        return erasing ? Acad::eWasErased : Acad::eWasNotErased;
    const Acad::ErrorStatus status = subErase(erasing);
    if (status != Acad::eOk)
        return status;
    DbCore& core = CoreOf(*m_stub->database);
    core.undo.Erasing(m_stub);
    m_stub->erased = erasing;
    m_state |= kEraseToggled | kModified;
    core.modified |= 1;
    return Acad::eOk;
}

bool AcDbObject::isErased() const
{
    return m_stub != nullptr && m_stub->erased;
}

bool AcDbObject::isEraseStatusToggled() const
{
    return (m_state & kEraseToggled) != 0;
}

bool AcDbObject::isReadEnabled() const
{
    return m_stub == nullptr || m_stub->readers > 0 || m_stub->writing;
}

bool AcDbObject::isWriteEnabled() const
{
    return m_stub == nullptr || m_stub->writing;
}

bool AcDbObject::isNewObject() const
{
    return (m_state & kNewObject) != 0;
}

bool AcDbObject::isModified() const
{
    return (m_state & kModified) != 0;
}

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId owner)
{
    const Acad::ErrorStatus status = assertWriteEnabled(false);
    if (status == Acad::eOk)
        m_owner = owner;
    return status;
}

Acad::ErrorStatus AcDbObject::handOverTo(AcDbObject* newObject, bool keepXData, bool keepExtDict)
{
    if (newObject == nullptr)
        return Acad::eNullObjectPointer;
    if (newObject->m_stub != nullptr)
        return Acad::eAlreadyInDb;
    if (m_stub == nullptr || !m_stub->writing)
        return Acad::eNotOpenForWrite;
    // What comes back by undoing would be of another class: the step cannot be taken back any more.
    CoreOf(*m_stub->database).undo.Clear();
    newObject->m_stub = m_stub;
    newObject->m_owner = m_owner;
    newObject->m_state = kNewObject | kModified;
    if (m_annex != nullptr) {
        Annex& kept = ObjectAccess::Make(*newObject);
        kept.reactors = m_annex->reactors;
        if (keepXData)
            kept.xData = m_annex->xData;
        if (keepExtDict)
            std::swap(kept.extensionDictionary, m_annex->extensionDictionary);
    }
    m_stub->object = newObject;
    m_stub = nullptr;
    m_owner = nullptr;
    return Acad::eOk;
}

AcDbObjectId AcDbObject::extensionDictionary() const
{
    if (m_annex == nullptr || m_annex->extensionDictionary.isErased())
        return AcDbObjectId();
    return m_annex->extensionDictionary;
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    if (m_stub == nullptr)
        return Acad::eNoDatabase;
    if (m_annex != nullptr && !m_annex->extensionDictionary.isNull()) {
        if (!m_annex->extensionDictionary.isErased())
            return Acad::eAlreadyInDb;
        AcDbObject* old = nullptr;
        const Acad::ErrorStatus opened = OpenStub(m_annex->extensionDictionary, AcDb::kForWrite, true, old);
        if (opened != Acad::eOk)
            return opened;
        const Acad::ErrorStatus back = old->erase(false);
        old->close();
        return back;
    }
    AcDbDictionary* dictionary = new AcDbDictionary;
    dictionary->setTreatElementsAsHard(true);
    ObjectAccess::Make(*this).extensionDictionary = CoreOf(*database()).Adopt(dictionary, 0, m_stub, true);
    return dictionary->close();
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    AcDbDictionary* dictionary = nullptr;
    const Acad::ErrorStatus opened = acdbOpenObject(dictionary, extensionDictionary(), AcDb::kForWrite);
    if (opened != Acad::eOk)
        return Acad::eKeyNotFound;
    Acad::ErrorStatus released = Acad::eContainerNotEmpty;
    if (dictionary->numEntries() == 0)
        released = dictionary->erase();
    dictionary->close();
    return released;
}

void AcDbObject::addPersistentReactor(AcDbObjectId reactor)
{
    if (reactor.isNull() || hasPersistentReactor(reactor) || assertWriteEnabled() != Acad::eOk)
        return;
    ObjectAccess::Make(*this).reactors.push_back(reactor);
}

void AcDbObject::removePersistentReactor(AcDbObjectId reactor)
{
    if (!hasPersistentReactor(reactor) || assertWriteEnabled() != Acad::eOk)
        return;
    std::vector<AcDbObjectId>& all = m_annex->reactors;
    all.erase(std::remove(all.begin(), all.end(), reactor), all.end());
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId reactor) const
{
    return m_annex != nullptr &&
           std::find(m_annex->reactors.begin(), m_annex->reactors.end(), reactor) != m_annex->reactors.end();
}

bool AcDbObject::hasXData() const
{
    return m_annex != nullptr && !m_annex->xData.empty();
}

resbuf* AcDbObject::xData(const ACHAR* appName) const
{
    return m_annex == nullptr ? nullptr : XDataChain(m_annex->xData, appName);
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain)
{
    if (chain == nullptr)
        return Acad::eNullPtr;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    return ReplaceXData(ObjectAccess::Make(*this).xData, chain, database());
}

AcRxObject* AcDbObject::clone() const
{
    AcDbObject* copy = static_cast<AcDbObject*>(isA()->create());
    if (copy == nullptr)
        return nullptr;
    CopyFields(*copy, *this);
    // What the original owns and who looks after it stay its own.
    if (copy->m_annex != nullptr) {
        copy->m_annex->extensionDictionary.setNull();
        copy->m_annex->reactors.clear();
    }
    return copy;
}

Acad::ErrorStatus AcDbObject::copyFrom(const AcRxObject* other)
{
    const AcDbObject* from = AcDbObject::cast(other);
    if (from == nullptr || from->isA() != isA())
        return Acad::eWrongObjectType;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        CopyFields(*this, *from);
    return status;
}
