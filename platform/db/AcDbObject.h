// The root of everything that a drawing holds. An object belongs to its database once it was added; it is reached by
// id, opened for read by many or for write by one, and closed again. A new object is open for write until it is closed.
#pragma once
#include "../gi/AcGiDrawable.h"
#include "../mfc/CString.h"
#include "../rx/acadstrc.h"
#include "../rx/AcArray.h"
#include "../rx/AcRxObject.h"
#include "../rx/acutads.h"
#include "../rx/adsdef.h"
#include "AcDb.h"
#include "AcDbObjectId.h"

class AcDbDatabase;
class AcDbDwgFiler;
class AcDbIdMapping;

typedef AcArray<AcDbObjectId> AcDbObjectIdArray;

namespace KxPlat {
class ClassSchema;
struct Annex;
struct ObjectAccess;
}   // namespace KxPlat

#define ACDB_DECLARE_MEMBERS(CLASS_NAME)                                                                               \
    ACRX_DECLARE_MEMBERS(CLASS_NAME);                                                                                  \
    static const KxPlat::ClassSchema& fieldSchema();                                                                   \
    const KxPlat::ClassSchema& fields() const override                                                                 \
    {                                                                                                                  \
        return fieldSchema();                                                                                          \
    }

class AcDbObject : public AcGiDrawable {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    static const KxPlat::ClassSchema& fieldSchema();
    // The list of stored members of the object's own class.
    virtual const KxPlat::ClassSchema& fields() const { return fieldSchema(); }

    AcDbObject();
    ~AcDbObject() override;
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;

    AcDbObjectId objectId() const { return m_stub; }
    AcDbObjectId ownerId() const { return m_owner; }
    virtual Acad::ErrorStatus setOwnerId(AcDbObjectId owner);
    void getAcDbHandle(AcDbHandle& handle) const { handle = objectId().handle(); }
    AcDbDatabase* database() const { return objectId().database(); }

    Acad::ErrorStatus close();
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    Acad::ErrorStatus cancel() { return close(); }
    Acad::ErrorStatus erase(bool erasing = true);
    bool isErased() const;
    bool isEraseStatusToggled() const;
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNewObject() const;
    bool isModified() const;
    bool isReallyClosing() const { return true; }

    // Exchanges object and handle with one that is not yet in a database.
    Acad::ErrorStatus handOverTo(AcDbObject* newObject, bool keepXData = true, bool keepExtDict = true);

    AcDbObjectId extensionDictionary() const;
    Acad::ErrorStatus createExtensionDictionary();
    Acad::ErrorStatus releaseExtensionDictionary();

    void addPersistentReactor(AcDbObjectId reactor);
    void removePersistentReactor(AcDbObjectId reactor);
    bool hasPersistentReactor(AcDbObjectId reactor) const;

    // The groups of one application (1001 first), or of all with null; null when there are none. The caller frees the
    // chain.
    resbuf* xData(const ACHAR* appName = nullptr) const;
    // Replaces the data of every application that the chain names; a lone 1001 removes that application's data.
    Acad::ErrorStatus setXData(const resbuf* chain);
    bool hasXData() const;

    // Hands everything that the object stores to the filer: owner, reactors and extension dictionary, then the members
    // in the order of the class's field list, then extended data, then what the object contains.
    virtual Acad::ErrorStatus dwgOut(AcDbDwgFiler* filer) const;

    virtual Acad::ErrorStatus deepClone(AcDbObject* owner, AcDbObject*& clone, AcDbIdMapping& map,
                                        bool isPrimary = true) const;
    virtual Acad::ErrorStatus wblockClone(AcRxObject* owner, AcDbObject*& clone, AcDbIdMapping& map,
                                          bool isPrimary = true) const;
    AcRxObject* clone() const override;
    Acad::ErrorStatus copyFrom(const AcRxObject* other) override;

    // Documented checks of an object's state. Writing to an object that is not open for write changes nothing.
    void assertReadEnabled() const {}
    Acad::ErrorStatus assertWriteEnabled(bool autoUndo = true, bool recordModified = true);
    void assertNotifyEnabled() const {}

    // Called on a persistent reactor when an object that it watches was changed and closed.
    virtual void modifiedGraphics(const AcDbObject* object) {}

    // AcGiDrawable
    Adesk::Boolean isPersistent() const override { return m_stub != nullptr; }
    AcDbObjectId id() const override { return m_stub; }

protected:
    virtual Acad::ErrorStatus subErase(bool erasing) { return Acad::eOk; }
    virtual Acad::ErrorStatus subOpen(AcDb::OpenMode mode) { return Acad::eOk; }
    virtual Acad::ErrorStatus subClose() { return Acad::eOk; }

private:
    friend struct KxPlat::ObjectAccess;
    friend struct AcDbStub;

    AcDbStub* m_stub = nullptr;
    AcDbStub* m_owner = nullptr;
    uint32_t m_shape = 0;   // form in which the object was read; 0: not from a file, or no longer in that form
    uint32_t m_state = 0;
    KxPlat::Annex* m_annex = nullptr;
};

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErasedObject = false);

inline Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                        bool openErasedObject = false)
{
    return acdbOpenAcDbObject(object, id, mode, openErasedObject);
}

// Opens an object of class T; an object of another class is closed again and answers eNotThatKindOfClass.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErasedObject = false)
{
    object = nullptr;
    AcDbObject* opened = nullptr;
    Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, openErasedObject);
    if (status != Acad::eOk)
        return status;
    object = T::cast(opened);
    if (object == nullptr) {
        opened->close();
        return Acad::eNotThatKindOfClass;
    }
    return Acad::eOk;
}
