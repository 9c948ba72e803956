// The platform's own way to what an object hides from callers: identity, owner, shape and annex.
#pragma once
#include "../AcDbObject.h"
#include "GroupValue.h"
#include "KeptBits.h"
#include "Stub.h"

namespace KxPlat {

// What most objects do not have. Created on first need.
struct Annex {
    AcDbObjectId extensionDictionary;
    std::vector<AcDbObjectId> reactors;   // soft pointers, in order
    GroupList xData;                      // 1001 and what follows, application by application
    GroupList others;                     // groups that no field claims, in file order
    std::shared_ptr<KeptBits> bits;       // shared between copies until their references part
};

enum StateBit : uint32_t {
    kNewObject = 1,          // not yet closed for the first time
    kChangedSinceRead = 2,   // its groups may differ from the file's
    kModified = 4,           // in this opening
    kEraseToggled = 8,
    kPlaceholder = 16   // stands for a record that names mention but no table defines
};

struct ObjectAccess {
    static AcDbStub*& Stub(AcDbObject& object) { return object.m_stub; }
    static AcDbStub* Stub(const AcDbObject& object) { return object.m_stub; }
    static AcDbStub*& Owner(AcDbObject& object) { return object.m_owner; }
    static AcDbStub* Owner(const AcDbObject& object) { return object.m_owner; }
    static uint32_t& Shape(AcDbObject& object) { return object.m_shape; }
    static uint32_t Shape(const AcDbObject& object) { return object.m_shape; }
    static uint32_t& State(AcDbObject& object) { return object.m_state; }
    static uint32_t State(const AcDbObject& object) { return object.m_state; }
    static const Annex* Find(const AcDbObject& object) { return object.m_annex; }
    static Annex& Make(AcDbObject& object)
    {
        if (object.m_annex == nullptr)
            object.m_annex = new Annex;
        return *object.m_annex;
    }
    static void SetAnnex(AcDbObject& object, Annex* annex);
    // Nothing but bits is known of the object: only a DWG file of their version can hold it.
    static bool IsOnlyBits(const AcDbObject& object)
    {
        return object.m_annex != nullptr && object.m_annex->bits != nullptr;
    }
    static Acad::ErrorStatus CallErase(AcDbObject& object, bool erasing) { return object.subErase(erasing); }
    static Acad::ErrorStatus CallClose(AcDbObject& object) { return object.subClose(); }
    static Acad::ErrorStatus CallOpen(AcDbObject& object, AcDb::OpenMode mode) { return object.subOpen(mode); }
};

}   // namespace KxPlat
