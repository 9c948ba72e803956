#include "OwnedParts.h"
#include "../AcDbSequenceEnd.h"
#include "DbCore.h"
#include <algorithm>

namespace KxPlat {

namespace {

bool IsEndMark(const AcDbStub* stub)
{
    return AcDbSequenceEnd::cast(stub->object) != nullptr;
}

void TakeOver(AcDbEntity& part, const AcDbEntity& owner)
{
    if (part.layerId().isNull())
        part.setLayer(owner.layerId());
    part.setInPaperSpace(owner.isInPaperSpace());
}

}   // namespace

OwnedParts::~OwnedParts()
{
    DropWaiting();
}

void OwnedParts::DropWaiting()
{
    for (AcDbEntity* part : m_waiting)
        delete part;
    m_waiting.clear();
}

void OwnedParts::Attach(AcDbStub* part)
{
    DropWaiting();
    m_stubs.push_back(part);
}

void OwnedParts::CopyOf(const OwnedParts& other)
{
    DropWaiting();
    const auto copy = [this](const AcDbEntity* part) {
        if (AcDbEntity* made = AcDbEntity::cast(part->clone()))
            m_waiting.push_back(made);
    };
    for (const AcDbStub* stub : other.m_stubs)
        if (!stub->erased && stub->object != nullptr && !IsEndMark(stub))
            copy(static_cast<const AcDbEntity*>(stub->object));
    for (const AcDbEntity* part : other.m_waiting)
        copy(part);
}

const AcDbEntity* OwnedParts::Live(const AcDbStub* stub)
{
    return stub->erased ? nullptr : AcDbEntity::cast(stub->object);
}

Acad::ErrorStatus OwnedParts::Insert(AcDbEntity& owner, AcDbEntity* part, AcDbObjectId after, AcDbObjectId& id)
{
    id.setNull();
    if (part == nullptr)
        return Acad::eNullEntityPointer;
    if (!part->objectId().isNull())
        return Acad::eAlreadyInDb;
    const Acad::ErrorStatus status = owner.assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    if (owner.database() == nullptr) {
        m_waiting.push_back(part);
        return Acad::eOk;
    }
    auto place = m_stubs.end();
    if (!after.isNull()) {
        place = std::find(m_stubs.begin(), m_stubs.end(), static_cast<AcDbStub*>(after));
        if (place == m_stubs.end())
            return Acad::eKeyNotFound;
        ++place;
    } else if (!m_stubs.empty() && IsEndMark(m_stubs.back())) {
        --place;
    }
    DbCore& core = CoreOf(*owner.database());
    TakeOver(*part, owner);
    const std::ptrdiff_t index = place - m_stubs.begin();
    id = core.Adopt(part, 0, owner.objectId(), true);
    m_stubs.insert(m_stubs.begin() + index, id);
    Complete(owner, core);
    return Acad::eOk;
}

void OwnedParts::Adopt(AcDbEntity& owner, DbCore& core)
{
    for (AcDbEntity* part : m_waiting) {
        TakeOver(*part, owner);
        m_stubs.push_back(core.Adopt(part, 0, owner.objectId(), false));
    }
    m_waiting.clear();
    if (!m_stubs.empty())
        Complete(owner, core);
}

void OwnedParts::Complete(AcDbEntity& owner, DbCore& core)
{
    if (IsEndMark(m_stubs.back()))
        return;
    auto* end = new AcDbSequenceEnd;
    TakeOver(*end, owner);
    m_stubs.push_back(core.Adopt(end, 0, owner.objectId(), false));
}

}   // namespace KxPlat
