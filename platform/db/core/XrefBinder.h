// Makes an xref a part of its host.
#pragma once
#include "../AcDbObject.h"
#include "DbCore.h"
#include <unordered_map>

class AcDbBlockTableRecord;

namespace KxPlat {

class XrefBinder {
public:
    // With `merges` records lose the xref's name, and give way to the host's own of the same name.
    XrefBinder(DbCore& core, bool merges) : m_core(core), m_merges(merges) {}
    void Bind(AcDbBlockTableRecord& block);

private:
    void BindRecord(AcDbSymbolTableRecord& record, TableKind kind, const CString& xref);
    CString BoundName(TableKind kind, const CString& xref, const CString& name) const;
    void Redirect();

    DbCore& m_core;
    bool m_merges;
    std::unordered_map<AcDbObjectId, AcDbObjectId> m_merged;   // a dependent record, and the one in its place
};

}   // namespace KxPlat
