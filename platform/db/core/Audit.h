// Checks a whole drawing: that every reference means something that is there, that everything has its place, that
// values are such as a drawing can have. What is wrong can be put right on the way; nothing is thrown away that can
// still be drawn.
#pragma once
#include "../AcDbObjectId.h"
#include "DbCore.h"
#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

class AcDbBlockTableRecord;
class AcDbEntity;

namespace KxPlat {

struct AuditFinding {
    std::wstring object;   // "AcDbLine(2F)"
    std::wstring what;     // "layer 墙 is not defined"
    std::wstring fix;      // what was done, or would be
};

class Audit {
public:
    Audit(DbCore& core, bool fixes) : m_core(core), m_fixes(fixes) {}

    void Tables();
    void Objects();   // references and values of everything
    void Blocks();    // contents, and blocks that contain themselves
    void Groups();
    void All();

    const std::vector<AuditFinding>& Findings() const { return m_findings; }
    size_t ErasedCount() const { return m_erased; }

private:
    // Reports, and makes the change unless the drawing is only looked at.
    void Found(AcDbStub* stub, std::wstring what, std::wstring fix, const std::function<void(AcDbObject&)>& change);
    void EraseFound(AcDbStub* stub, std::wstring what);

    void Records(TableKind kind);
    void RecordName(TableKind kind, AcDbStub* stub);
    void Named(AcDbStub* stub, const Field& field);
    void References(AcDbStub* stub);
    void Entries(AcDbStub* stub);
    void Applications(AcDbStub* stub);
    void Values(AcDbStub* stub);
    void EntityValues(AcDbStub* stub);
    void Place(AcDbStub* stub);
    bool IsInPlace(const AcDbStub& stub) const;
    bool Closes(AcDbStub* block, std::vector<AcDbStub*>& path, std::unordered_set<AcDbStub*>& done);
    AcDbObjectId DefaultRecord(TableKind kind) const;

    DbCore& m_core;
    bool m_fixes;
    std::vector<AuditFinding> m_findings;
    std::unordered_set<const AcDbStub*> m_listed;   // entities that some block lists
    size_t m_erased = 0;
};

}   // namespace KxPlat
