// What the sources of the cloner share.
#pragma once
#include "../AcDbSymbolTable.h"
#include "DbCore.h"

class AcDbBlockTableRecord;

namespace KxPlat {

// The live entities of a block from the bottom to the top.
AcDbObjectIdArray InDrawOrder(AcDbBlockTableRecord& block);

inline const AcDbObject* ObjectOf(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return stub == nullptr ? nullptr : stub->object;
}

inline std::wstring_view ViewOf(const CString& text)
{
    return std::wstring_view(text, size_t(text.GetLength()));
}

// The table that a record's class belongs to, or Count for what is no record.
inline TableKind TableOf(const DbCore& core, const AcDbObject& object)
{
    if (!object.isKindOf(AcDbSymbolTableRecord::desc()))
        return TableKind::Count;
    for (size_t i = 0; i < kTableCount; ++i)
        if (object.isKindOf(core.Table(TableKind(i))->recordClass()))
            return TableKind(i);
    return TableKind::Count;
}

}   // namespace KxPlat
