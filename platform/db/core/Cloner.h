// Copies objects with all that they own and, across drawings, with all that they cannot do without.
#pragma once
#include "../AcDbIdMapping.h"
#include "../AcDbObject.h"
#include "DbCore.h"
#include <vector>

namespace KxPlat {

class Cloner {
public:
    Cloner(DbCore& destination, AcDbIdMapping& map) : m_to(destination), m_map(map) {}

    // Entities go to the block `owner`; other objects below it, unnamed. Within one drawing only owned objects are
    // copied; across drawings hard-referenced ones come along, and table records of a name that is there already are
    // ignored, replaced or renamed by the mapping's mode.
    Acad::ErrorStatus Clone(const AcDbObjectIdArray& objects, AcDbObjectId owner);

private:
    AcDbObjectId Copy(AcDbObjectId source, AcDbObjectId owner, bool isPrimary);
    AcDbObjectId CopyRecord(AcDbObjectId source, TableKind kind);
    void CopyOwned(const AcDbObject& from, AcDbObject& to);
    void CopyBlockContents(AcDbObjectId source, AcDbObjectId target);
    AcDbObjectId Existing(AcDbObjectId source) const;
    void Translate();
    CString MangledName(TableKind kind, const CString& name) const;

    DbCore& m_to;
    AcDbIdMapping& m_map;
    std::vector<AcDbStub*> m_made;   // clones whose references still mean the sources
};

}   // namespace KxPlat
