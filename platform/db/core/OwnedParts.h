// The entities that follow their owner in a file: the vertices of a polyline, the attributes of an insertion, and the
// end mark behind them. Until the owner joins a database they wait here and belong to it.
#pragma once
#include "../AcDbEntity.h"

namespace KxPlat {

class OwnedParts {
public:
    OwnedParts() = default;
    ~OwnedParts();
    OwnedParts(const OwnedParts&) = delete;
    OwnedParts& operator=(const OwnedParts&) = delete;

    // In file order, the end mark last where there is one.
    const std::vector<AcDbStub*>& stubs() const { return m_stubs; }
    // Calls `visit` with each live part, those that wait among them.
    template <class Visitor>
    void ForEach(Visitor visit) const
    {
        for (const AcDbStub* stub : m_stubs)
            if (const AcDbEntity* part = Live(stub))
                visit(*part);
        for (const AcDbEntity* part : m_waiting)
            visit(*part);
    }
    // Those that wait for the owner to join a database.
    const std::vector<AcDbEntity*>& waiting() const { return m_waiting; }
    // From a file, or from whoever copies the parts by himself: copies that wait are no longer wanted.
    void Attach(AcDbStub* part);
    // Copies of another owner's parts wait here.
    void CopyOf(const OwnedParts& other);
    // Puts a new part behind `after`, or behind all others when that is null. In a database the part stays open for
    // write and gets an id; outside one the id is null and the part waits.
    Acad::ErrorStatus Insert(AcDbEntity& owner, AcDbEntity* part, AcDbObjectId after, AcDbObjectId& id);
    // The owner joined a database: so do the parts that wait, and an end mark on the owner's layer.
    void Adopt(AcDbEntity& owner, DbCore& core);

private:
    static const AcDbEntity* Live(const AcDbStub* stub);
    void Complete(AcDbEntity& owner, DbCore& core);
    void DropWaiting();

    std::vector<AcDbStub*> m_stubs;
    std::vector<AcDbEntity*> m_waiting;
};

}   // namespace KxPlat
