// The draw order of a block's entities, kept in the block's extension dictionary. An entity is drawn in the order of
// its sort handle, which is its own handle unless the table says otherwise.
#pragma once
#include "AcDbObject.h"
#include <vector>

class AcDbBlockTableRecord;

class AcDbSortentsTable : public AcDbObject {
public:
    ACDB_DECLARE_MEMBERS(AcDbSortentsTable);

    AcDbObjectId blockId() const { return m_block; }

    // Among themselves the entities keep their order. Ids that the block does not hold are refused.
    Acad::ErrorStatus moveToTop(AcDbObjectIdArray& entities);      // drawn last, over all others
    Acad::ErrorStatus moveToBottom(AcDbObjectIdArray& entities);   // drawn first
    // The entities change places among themselves, so that they are drawn in the order of the list.
    Acad::ErrorStatus setRelativeDrawOrder(const AcDbObjectIdArray& entities);
    // The block's live entities from the bottom to the top.
    Acad::ErrorStatus getFullDrawOrder(AcDbObjectIdArray& entities, Adesk::UInt8 honorSortentsMask = 0) const;
    Acad::ErrorStatus getSortHandle(AcDbObjectId entity, AcDbHandle& handle) const;

    struct Entry {
        AcDbObjectId entity;
        AcDbObjectId sortedAs;   // the object whose handle is the sort handle; null: the entity itself
    };
    const std::vector<Entry>& entries() const { return m_entries; }

private:
    friend class AcDbBlockTableRecord;
    friend class SortEntries;
    AcDbBlockTableRecord* block() const;
    Acad::ErrorStatus move(const AcDbObjectIdArray& entities, bool toTop);
    Acad::ErrorStatus deal(const AcDbObjectIdArray& order);

    AcDbObjectId m_block;
    std::vector<Entry> m_entries;
};
