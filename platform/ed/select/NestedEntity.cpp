#include "NestedEntity.h"
#include "../../db/AcDbBlockReference.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDimension.h"
#include "../../db/core/Stub.h"
#include "Candidates.h"
#include "HitTest.h"
#include <limits>
#include <memory>

namespace KxPlat {

namespace {

constexpr int kMostNesting = 16;

const AcDbEntity* EntityOf(const AcDbStub* stub)
{
    return stub == nullptr || stub->erased ? nullptr : AcDbEntity::cast(stub->object);
}

// The block that an entity shows, null for others; `place` becomes that of the block's contents.
const AcDbBlockTableRecord* BlockOf(const AcDbEntity& entity, AcGeMatrix3d& place)
{
    const AcDbStub* stub = nullptr;
    if (const AcDbBlockReference* reference = AcDbBlockReference::cast(&entity)) {
        stub = reference->blockTableRecord();
        place = place * reference->blockTransform();
    } else if (const AcDbDimension* dimension = AcDbDimension::cast(&entity)) {
        stub = dimension->dimBlockId();
    }
    const AcDbBlockTableRecord* block = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
    if (block != nullptr)
        place = place * AcGeMatrix3d::translation(AcGePoint3d() - block->origin());
    return block;
}

struct Nearest {
    const AcDbStub* stub = nullptr;
    double distance = std::numeric_limits<double>::infinity();

    // Of two at the same place the later one lies on top.
    void Try(const AcDbStub* candidate, const AcGePoint2d& point, const AcGeMatrix3d& place)
    {
        const AcDbEntity* entity = EntityOf(candidate);
        if (entity == nullptr || !IsReached(*entity, Reach::Visible))
            return;
        const double found = DistanceTo(SegmentsOf(*entity, place), point);
        if (found <= distance) {
            distance = found;
            stub = candidate;
        }
    }
};

}   // namespace

NestedEntity NestedAt(AcDbObjectId top, const AcGePoint2d& point)
{
    NestedEntity found;
    found.id = top;
    for (int nesting = 0; nesting < kMostNesting; ++nesting) {
        const AcDbEntity* entity = EntityOf(found.id);
        AcGeMatrix3d inner = found.place;
        const AcDbBlockTableRecord* block = entity == nullptr ? nullptr : BlockOf(*entity, inner);
        if (block == nullptr)
            break;
        Nearest member, attribute;
        for (const AcDbStub* stub : block->entities())
            member.Try(stub, point, inner);
        if (const AcDbBlockReference* reference = AcDbBlockReference::cast(entity)) {
            const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
            for (; !attributes->done(); attributes->step())
                attribute.Try(attributes->objectId(), point, found.place);
        }
        // An attribute is placed with the insertion, not with what is in the block.
        if (attribute.stub != nullptr && attribute.distance <= member.distance) {
            found.containers.insert(found.containers.begin(), found.id);
            found.id = AcDbObjectId(const_cast<AcDbStub*>(attribute.stub));
            break;
        }
        if (member.stub == nullptr)
            break;
        found.containers.insert(found.containers.begin(), found.id);
        found.id = AcDbObjectId(const_cast<AcDbStub*>(member.stub));
        found.place = inner;
    }
    return found;
}

}   // namespace KxPlat
