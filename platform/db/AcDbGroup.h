// A named set of entities, kept in the group dictionary. Its members are soft pointers and hold it as a reactor.
#pragma once
#include "AcDbObject.h"
#include <vector>

class AcDbGroup;

class AcDbGroupIterator {
public:
    explicit AcDbGroupIterator(const AcDbGroup& group);
    AcDbObjectId objectId() const;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode) const;
    bool done() const { return m_at >= m_ids.size(); }
    bool next();

private:
    std::vector<AcDbObjectId> m_ids;
    std::size_t m_at = 0;
};

class AcDbGroup : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbGroup);

    AcDbGroup() = default;
    explicit AcDbGroup(const ACHAR* description, bool selectable = true)
        : m_description(description), m_isSelectable(selectable)
    {
    }

    AcDbGroupIterator* newIterator() { return new AcDbGroupIterator(*this); }
    const ACHAR* description() const { return m_description; }
    Acad::ErrorStatus setDescription(const ACHAR* description);
    bool isSelectable() const { return m_isSelectable != 0; }
    Acad::ErrorStatus setSelectable(bool selectable);
    ACHAR* name() const;   // the caller frees it with acutDelString
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus setName(const ACHAR* newName);
    bool isAnonymous() const { return m_isUnnamed != 0; }
    Acad::ErrorStatus setAnonymous();

    Adesk::UInt32 numEntities() const;
    Adesk::UInt32 allEntityIds(AcDbObjectIdArray& ids) const;
    bool has(AcDbObjectId id) const;
    // Already present, or not in this group's drawing: refused.
    Acad::ErrorStatus append(AcDbObjectId id);
    Acad::ErrorStatus append(const AcDbObjectIdArray& ids);
    Acad::ErrorStatus remove(AcDbObjectId id);
    Acad::ErrorStatus clear();

    // As stored, erased members included.
    const std::vector<AcDbObjectId>& members() const { return m_members; }
    // Takes out a member that is not there.
    void dropMember(AcDbObjectId id) { std::erase(m_members, id); }

private:
    friend class GroupMembers;
    CString m_description;
    std::vector<AcDbObjectId> m_members;
    int16_t m_isUnnamed = 0;
    int16_t m_isSelectable = 1;
};
