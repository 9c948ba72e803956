#include "GroupMap.h"
#include "FlatMap.h"

namespace KxPlat {

namespace {

bool IsTriple(const GroupList& groups, size_t at)
{
    return at + 2 < groups.size() && groups[at + 1].code == groups[at].code + 10 &&
           groups[at + 2].code == groups[at].code + 20;
}

AcGeVector3d Triple(const GroupList& groups, size_t at)
{
    return {groups[at].real(), groups[at + 1].real(), groups[at + 2].real()};
}

void Put(GroupList& groups, size_t at, const AcGeVector3d& triple)
{
    for (unsigned axis = 0; axis < 3; ++axis)
        groups[at + axis].value = triple[axis];
}

// The zero vector when it has no image.
AcGeVector3d Image(const AcGeVector3d& triple, GroupRole role, const AcGeMatrix3d& transform)
{
    switch (role) {
    case GroupRole::Vector: {
        const AcGeVector3d mapped = transform * triple;
        return mapped.isZeroLength() ? AcGeVector3d() : mapped.normal();
    }
    case GroupRole::Normal:
        return FlatMap(transform, triple).normal();
    default:
        return triple;
    }
}

}   // namespace

bool MapGroups(GroupList& groups, const AcGeMatrix3d& transform, const RoleOfGroup& roles)
{
    GroupList mapped = groups;
    const double scale = (transform * AcGeVector3d::kXAxis).length();
    for (size_t i = 0; i < mapped.size(); ++i) {
        const GroupRole role = roles(groups[i]);
        if (role == GroupRole::Length)
            mapped[i].value = mapped[i].real() * scale;
        if (role == GroupRole::None || role == GroupRole::Length || !IsTriple(groups, i))
            continue;
        const AcGeVector3d triple = Triple(groups, i);
        if (role == GroupRole::Point) {
            const AcGePoint3d point = transform * AcGePoint3d(triple.x, triple.y, triple.z);
            Put(mapped, i, point.asVector());
            continue;
        }
        const AcGeVector3d image = Image(triple, role, transform);
        if (image.isZeroLength() && !triple.isZeroLength())
            return false;
        Put(mapped, i, image);
    }
    groups = std::move(mapped);
    return true;
}

void AddGroupPoints(AcDbExtents& extents, const GroupList& groups, const RoleOfGroup& roles)
{
    for (size_t i = 0; i < groups.size(); ++i) {
        if (roles(groups[i]) != GroupRole::Point || !IsTriple(groups, i))
            continue;
        const AcGeVector3d triple = Triple(groups, i);
        extents.addPoint(AcGePoint3d(triple.x, triple.y, triple.z));
    }
}

}   // namespace KxPlat
