#include "LeftPictures.h"
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbEntity.h"
#include "ObjectAccess.h"

namespace KxPlat {

namespace {

constexpr uint32_t kLeftPicture = 1u << 30;

}   // namespace

void LeavePicture(AcDbObjectId block)
{
    const AcDbStub* stub = block;
    const AcDbBlockTableRecord* record = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
    if (record != nullptr && record->isAnonymous())
        ObjectAccess::State(*stub->object) |= kLeftPicture;
}

WithoutLeftPictures::WithoutLeftPictures(DbCore& core)
{
    AcDbObjectIdArray left;
    for (AcDbStub* stub : core.Table(TableKind::Block)->records())
        if (!stub->erased && !stub->fromXref && (ObjectAccess::State(*stub->object) & kLeftPicture) != 0)
            left.append(stub);
    if (left.isEmpty() || core.database->purge(left) != Acad::eOk)
        return;
    for (int i = 0; i < left.length(); ++i) {
        AcDbStub* stub = left.at(i);
        AcDbBlockTableRecord& block = static_cast<AcDbBlockTableRecord&>(*stub->object);
        LeaveOut(stub);
        LeaveOut(block.beginStub());
        LeaveOut(block.endStub());
        for (AcDbStub* entity : block.entities())
            LeaveOut(entity);
    }
}

WithoutLeftPictures::~WithoutLeftPictures()
{
    for (AcDbStub* stub : m_leftOut)
        stub->fromXref = false;
}

void WithoutLeftPictures::LeaveOut(AcDbStub* stub)
{
    if (stub == nullptr || stub->fromXref)
        return;
    stub->fromXref = true;
    m_leftOut.push_back(stub);
    const AcDbEntity* entity = stub->object == nullptr ? nullptr : AcDbEntity::cast(stub->object);
    if (entity != nullptr && entity->parts() != nullptr)
        for (AcDbStub* part : *entity->parts())
            LeaveOut(part);
}

}   // namespace KxPlat
