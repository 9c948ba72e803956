// Copies objects with all that they own and, across drawings, with all that they cannot do without: table records,
// entries of the dictionaries below the named object dictionary, and entities that others point to hard. Groups whose
// members are copied, and the draw order among the copies, come along.
#pragma once
#include "../AcDbIdMapping.h"
#include "../AcDbObject.h"
#include "DbCore.h"
#include <vector>

class AcDbBlockTableRecord;

namespace KxPlat {

class Cloner {
public:
    Cloner(DbCore& destination, AcDbIdMapping& map) : m_to(destination), m_map(map) {}

    // Entities go to the block `owner`; other objects below it, unnamed. Within one drawing only owned objects are
    // copied; across drawings hard-referenced ones come along, and table records of a name that is there already are
    // ignored, replaced or renamed by the mapping's mode.
    Acad::ErrorStatus Clone(const AcDbObjectIdArray& objects, AcDbObjectId owner);
    // The model space of another drawing as the contents of the block `target` that stands for it. Records that they
    // need become dependent ones, named "xref|name"; entities are marked as never to be saved.
    void CloneXref(DbCore& source, AcDbBlockTableRecord& target);
    // All of another drawing that is in use, into a new drawing without sheets: spaces, named objects, header
    // variables.
    void CloneWhole(DbCore& source);

private:
    // How a record is to be met in the destination.
    struct Place {
        CString name;
        AcDbStub* there = nullptr;
        bool isReplaced = false;   // `there` takes the source's contents
    };

    AcDbObjectId Copy(AcDbObjectId source, AcDbObjectId owner, bool isPrimary);
    void CopyOwned(const AcDbObject& from, AcDbObject& to);
    void TranslateNamesInXData(AcDbObject& copy, const AcDbDatabase* from);
    AcDbStub* Attached(AcDbStub* source, AcDbBlockTableRecord& block, bool isPrimary);

    AcDbObjectId CopyRecord(AcDbObjectId source, TableKind kind);
    Place PlaceOf(const AcDbSymbolTableRecord& from, TableKind kind) const;
    Place XrefPlaceOf(const AcDbSymbolTableRecord& from, TableKind kind) const;
    void MarkDependent(AcDbSymbolTableRecord& record, TableKind kind, const AcDbSymbolTableRecord& from) const;
    void CopyBlockContents(AcDbObjectId source, AcDbObjectId target);
    void CopyNamedObjects(DbCore& source);
    void CopyHeader(const DbCore& source);
    CString MangledName(TableKind kind, const CString& name) const;
    CString NextAnonymous(const CString& name) const;

    // The object that means the same in the destination, or null.
    AcDbObjectId Existing(AcDbObjectId source) const;
    AcDbObjectId Brought(AcDbObjectId source, AcDbObjectId referrer);
    AcDbObjectId DictionaryLike(const AcDbObject& dictionary);
    AcDbObjectId CopyListed(AcDbObjectId source);
    AcDbObjectId CopyPointedEntity(AcDbObjectId source);
    void Translate();
    void TranslateOne(AcDbStub* clone);
    void TranslateReactors(AcDbObject& clone);

    void CarryGroups();
    void CarryGroup(AcDbObjectId group);
    void CarryDrawOrder(const AcDbObjectIdArray& objects, AcDbBlockTableRecord& block);

    DbCore& m_to;
    AcDbIdMapping& m_map;
    std::vector<AcDbStub*> m_made;   // clones; from m_translated on their references still mean the sources
    size_t m_translated = 0;
    AcDbStub* m_block = nullptr;   // where entities go
    CString m_xref;                // the name that stands in front of dependent records; empty: no xref
    bool m_isWhole = false;        // spaces are records like all others then
    bool m_keepsXref = false;      // what came with an xref stays so in its copy
};

}   // namespace KxPlat
