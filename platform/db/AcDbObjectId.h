// Names one object of one open drawing. Valid as long as its database lives, also after the object is erased.
// This is a leaf header: graphics and selections hold ids without knowing the database.
#pragma once
#include "AcDbHandle.h"
#include <cstddef>
#include <functional>

class AcDbDatabase;
class AcRxClass;
struct AcDbStub;

class AcDbObjectId {
public:
    AcDbObjectId() = default;
    AcDbObjectId(AcDbStub* stub) : m_stub(stub) {}

    static const AcDbObjectId kNull;

    bool isNull() const { return m_stub == nullptr; }
    void setNull() { m_stub = nullptr; }
    // True for an id that belongs to a database, also when its object is erased.
    bool isValid() const;
    bool isErased() const;
    // Erased itself or owned by something erased.
    bool isEffectivelyErased() const;
    bool isResident() const;
    bool objectLeftOnDisk() const { return false; }
    AcDbHandle handle() const;
    AcDbHandle nonForwardedHandle() const { return handle(); }
    AcDbDatabase* database() const;
    AcDbDatabase* originalDatabase() const { return database(); }
    // The class of the object, or null when the id names nothing.
    AcRxClass* objectClass() const;

    std::ptrdiff_t asOldId() const { return reinterpret_cast<std::ptrdiff_t>(m_stub); }
    AcDbObjectId& setFromOldId(std::ptrdiff_t oldId)
    {
        m_stub = reinterpret_cast<AcDbStub*>(oldId);
        return *this;
    }
    operator AcDbStub*() const { return m_stub; }

    bool operator==(const AcDbObjectId& other) const { return m_stub == other.m_stub; }
    bool operator!=(const AcDbObjectId& other) const { return m_stub != other.m_stub; }
    bool operator<(const AcDbObjectId& other) const { return m_stub < other.m_stub; }
    bool operator>(const AcDbObjectId& other) const { return other.m_stub < m_stub; }
    bool operator!() const { return m_stub == nullptr; }

private:
    AcDbStub* m_stub = nullptr;
};

// The four kinds of reference that a stored id can be; the type of a member says which one it is.
class AcDbHardOwnershipId : public AcDbObjectId {
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbHardOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};
class AcDbSoftOwnershipId : public AcDbObjectId {
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbSoftOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};
class AcDbHardPointerId : public AcDbObjectId {
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbHardPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};
class AcDbSoftPointerId : public AcDbObjectId {
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbSoftPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};

template <>
struct std::hash<AcDbObjectId> {
    std::size_t operator()(const AcDbObjectId& id) const
    {
        return std::hash<const void*>()(reinterpret_cast<const void*>(id.asOldId()));
    }
};
