// Drags an entity to where the user points, with keywords on the way. Derived classes say what a point does to the
// entity and what a keyword means; as it is, the entity moves with the point.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

class KXARX_API AsdkBaseJig : public AcEdJig {
public:
    // The entity is the caller's until Append has taken it; it stands where `base` says, from which it moves.
    AsdkBaseJig(AcDbEntity* entity, const AcGePoint3d& base);

    // Asks until a point, Enter or Esc ends it; each keyword goes to OnKeyword. `keywords` is a list parted by blanks.
    DragStatus StartDrag(const wchar_t* prompt, const wchar_t* keywords = nullptr);
    // The point that the entity has followed last.
    const AcGePoint3d& Point() const { return m_point; }
    // Takes the entity into the current space; it is no longer the caller's where the id is not null.
    AcDbObjectId Append();

    DragStatus sampler() override;
    Adesk::Boolean update() override;
    AcDbEntity* entity() const override { return m_entity; }

protected:
    // Fits the entity to a new point; false where it did not change.
    virtual bool Follow(AcDbEntity& entity, const AcGePoint3d& from, const AcGePoint3d& to);
    // `index` counts from 0. False ends the drag with the keyword's status.
    virtual bool OnKeyword(int index, const wchar_t* keyword) { return false; }

private:
    AcDbEntity* m_entity;
    AcGePoint3d m_base;
    AcGePoint3d m_point;
};
