#include "ChooseObjects.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbDictionary.h"
#include "../../db/AcDbGroup.h"
#include "../../db/AcDbViewportTableRecord.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"

namespace KxPlat {

namespace {

const AcDbEntity& EntityOf(AcDbObjectId id)
{
    return static_cast<const AcDbEntity&>(*static_cast<const AcDbStub*>(id)->object);
}

// Half the pick box, in drawing units: a small part of the height of the view.
double PickReach(AcDbDatabase& database)
{
    constexpr double kPartOfView = 1.0 / 200;
    const AcDbStub* active = CoreOf(database).Table(TableKind::Viewport)->find(L"*Active");
    const auto* view = active == nullptr ? nullptr : AcDbViewportTableRecord::cast(active->object);
    return (view == nullptr ? 1.0 : view->height()) * kPartOfView;
}

}   // namespace

std::vector<AcDbObjectId> ObjectsIn(AcDbDatabase& database, const HitShape& shape, HitMode mode)
{
    std::vector<AcDbObjectId> hit;
    for (const AcDbObjectId id : EntitiesOf(database, Reach::Visible))
        if (shape.Hits(EntityOf(id), mode))
            hit.push_back(id);
    return hit;
}

AcDbObjectId ObjectAt(AcDbDatabase& database, const AcGePoint2d& point)
{
    const double reach = PickReach(database);
    AcDbObjectId nearest;
    double distance = reach;
    for (const AcDbObjectId id : EntitiesOf(database, Reach::Visible)) {
        const double found = DistanceTo(EntityOf(id), point, distance);
        if (found <= distance) {   // of two at the same place the later one lies on top
            distance = found;
            nearest = id;
        }
    }
    return nearest;
}

std::vector<AcDbObjectId> MembersOfGroup(AcDbDatabase& database, const std::wstring& name)
{
    std::vector<AcDbObjectId> ids;
    AcDbDictionary* groups = nullptr;
    if (database.getGroupDictionary(groups) != Acad::eOk)
        return ids;
    AcDbGroup* group = nullptr;
    if (groups->getAt(name.c_str(), group, AcDb::kForRead) == Acad::eOk) {
        for (const AcDbObjectId member : group->members()) {
            const AcDbStub* stub = member;
            if (stub != nullptr && !stub->erased && AcDbEntity::cast(stub->object) != nullptr)
                ids.push_back(member);
        }
        group->close();
    }
    groups->close();
    return ids;
}

}   // namespace KxPlat
