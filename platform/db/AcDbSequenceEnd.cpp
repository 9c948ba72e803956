#include "AcDbSequenceEnd.h"
#include "core/Fields.h"
#include "core/Stub.h"

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbSequenceEnd, AcDbEntity, 0, 0, 0, SEQEND, AcDb)

const ClassSchema& AcDbSequenceEnd::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "SEQEND", nullptr, {});
    return schema;
}

bool AcDbObjectIterator::isSkipped(bool skipErased) const
{
    const AcDbStub* stub = m_parts[size_t(m_at)];
    return stub->object == nullptr || (skipErased && stub->erased) || AcDbSequenceEnd::cast(stub->object) != nullptr;
}

void AcDbObjectIterator::start(bool atBeginning, bool skipErased)
{
    m_at = atBeginning ? -1 : std::ptrdiff_t(m_parts.size());
    step(!atBeginning, skipErased);
}

void AcDbObjectIterator::step(bool backwards, bool skipErased)
{
    do
        m_at += backwards ? -1 : 1;
    while (!done() && isSkipped(skipErased));
}

bool AcDbObjectIterator::done() const
{
    return m_at < 0 || m_at >= std::ptrdiff_t(m_parts.size());
}

AcDbObjectId AcDbObjectIterator::objectId() const
{
    return done() ? AcDbObjectId() : AcDbObjectId(m_parts[size_t(m_at)]);
}

AcDbEntity* AcDbObjectIterator::entity(AcDb::OpenMode mode) const
{
    AcDbEntity* opened = nullptr;
    acdbOpenObject(opened, objectId(), mode);
    return opened;
}
