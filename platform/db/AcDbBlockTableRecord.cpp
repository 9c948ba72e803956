#include "AcDbBlockTableRecord.h"
#include "AcDbAttributeDefinition.h"
#include "AcDbBlockReference.h"
#include "AcDbDatabase.h"
#include "AcDbVertex.h"
#include "core/DbCore.h"
#include "core/EraseUnused.h"
#include "core/ObjectAccess.h"
#include <algorithm>
#include <set>

using namespace KxPlat;

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity, 0, 0, 0, BLOCK, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity, 0, 0, 0, ENDBLK, AcDb)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, 0, 0, 0, BLOCK_RECORD, AcDb)
ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, 1)

const ClassSchema& AcDbBlockBegin::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "BLOCK", "AcDbBlockBegin",
                                    {
                                        Text(2, &AcDbBlockBegin::m_name).always(),
                                        Int16(70, &AcDbBlockBegin::m_flags).always(),
                                        Point3(10, &AcDbBlockBegin::m_origin).always(),
                                        Text(3, &AcDbBlockBegin::m_name2).always(),
                                        Text(1, &AcDbBlockBegin::m_path),
                                        Text(4, &AcDbBlockBegin::m_comments).since(AcDb::kDHL_1015),
                                    });
    return schema;
}

const ClassSchema& AcDbBlockEnd::fieldSchema()
{
    static const ClassSchema schema(&AcDbEntity::fieldSchema(), "ENDBLK", "AcDbBlockEnd", {});
    return schema;
}

const ClassSchema& AcDbBlockTableRecord::fieldSchema()
{
    using Block = AcDbBlockTableRecord;
    static const ClassSchema schema(&AcDbSymbolTableRecord::fieldSchema(), "BLOCK_RECORD", "AcDbBlockTableRecord",
                                    {
                                        Text(2, &Block::m_name).always(),
                                        Id(340, &Block::m_layout).since(AcDb::kDHL_1015),
                                        Int16(70, &Block::m_units).since(AcDb::kDHL_1021),
                                        Int16(280, &Block::m_explodable, 1).since(AcDb::kDHL_1021),
                                        Int16(281, &Block::m_scaleUniformly).since(AcDb::kDHL_1021),
                                    });
    return schema;
}

const ClassSchema& AcDbBlockTable::fieldSchema()
{
    static const ClassSchema schema(&AcDbSymbolTable::fieldSchema(), "TABLE", nullptr, {});
    return schema;
}

// --- entities ---

namespace {

constexpr int kMostNesting = 64;

// Whether a block shows another one, at any depth.
bool Reaches(AcDbObjectId from, AcDbObjectId block, int depth)
{
    if (from == block)
        return true;
    const AcDbStub* stub = from;
    const auto* record = AcDbBlockTableRecord::cast(stub == nullptr ? nullptr : stub->object);
    if (record == nullptr || depth > kMostNesting)
        return false;
    std::vector<AcDbObjectId> seen;
    for (const AcDbStub* each : record->entities()) {
        const auto* inner = each->erased || each->object == nullptr ? nullptr : AcDbBlockReference::cast(each->object);
        if (inner == nullptr || std::find(seen.begin(), seen.end(), inner->blockTableRecord()) != seen.end())
            continue;
        seen.push_back(inner->blockTableRecord());
        if (Reaches(inner->blockTableRecord(), block, depth + 1))
            return true;
    }
    return false;
}

}   // namespace

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity)
{
    if (entity == nullptr)
        return Acad::eNullEntityPointer;
    if (!entity->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (database() == nullptr)
        return Acad::eNoDatabase;
    if (AcDbVertex::cast(entity) != nullptr)
        return Acad::eWrongObjectType;
    // Of all entities only insertions and polylines have parts: a quick way around the question.
    const auto* reference = entity->parts() == nullptr ? nullptr : AcDbBlockReference::cast(entity);
    if (reference != nullptr && Reaches(reference->blockTableRecord(), objectId(), 0))
        return Acad::eSelfReference;
    const Acad::ErrorStatus status = assertWriteEnabled(false, false);
    if (status != Acad::eOk)
        return status;
    DbCore& core = CoreOf(*database());
    if (entity->layerId().isNull())
        entity->setLayer(database()->layerZero());
    entity->setInPaperSpace(isPaperSpace());
    id = core.Adopt(entity, 0, objectId(), true);
    m_entities.push_back(id);
    core.modified |= 1;
    entity->adoptParts(core);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const
{
    iterator = new AcDbBlockTableRecordIterator(*this, skipDeleted);
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(const AcDbBlockTableRecord& block, bool skipErased)
    : m_entities(block.entities())
{
    start(true, skipErased);
}

void AcDbBlockTableRecordIterator::skip(int direction, bool skipDeleted)
{
    m_count = std::ptrdiff_t(m_entities.size());
    while (skipDeleted && !done() && m_entities[size_t(m_at)]->erased)
        m_at += direction;
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted)
{
    m_at = atBeginning ? 0 : std::ptrdiff_t(m_entities.size()) - 1;
    skip(atBeginning ? 1 : -1, skipDeleted);
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted)
{
    m_at += forward ? 1 : -1;
    skip(forward ? 1 : -1, skipDeleted);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const
{
    if (done())
        return Acad::eInvalidInput;
    id = m_entities[size_t(m_at)];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErasedEntity) const
{
    entity = nullptr;
    return done() ? Acad::eInvalidInput
                  : acdbOpenObject(entity, AcDbObjectId(m_entities[size_t(m_at)]), mode, openErasedEntity);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(AcDbObjectId id)
{
    for (size_t i = 0; i < m_entities.size(); ++i)
        if (AcDbObjectId(m_entities[i]) == id) {
            m_at = std::ptrdiff_t(i);
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

// --- BLOCK and ENDBLK ---

void AcDbBlockTableRecord::setBegin(AcDbStub* begin)
{
    m_begin = begin;
}

AcDbBlockBegin* AcDbBlockTableRecord::beginObject() const
{
    return m_begin == nullptr ? nullptr : static_cast<AcDbBlockBegin*>(m_begin->object);
}

void AcDbBlockTableRecord::takeNameFromBegin()
{
    if (const AcDbBlockBegin* begin = beginObject())
        m_name = begin->m_name;
}

void AcDbBlockTableRecord::nameBegin()
{
    if (AcDbBlockBegin* begin = beginObject())
        begin->m_name = begin->m_name2 = m_name;
}

void AcDbBlockTableRecord::completeBlock()
{
    DbCore& core = CoreOf(*database());
    if (m_begin == nullptr) {
        AcDbBlockBegin* begin = new AcDbBlockBegin;
        begin->m_name = begin->m_name2 = m_name;
        begin->m_flags = isAnonymous() && !isModelSpace() && !isPaperSpace() ? 1 : 0;
        begin->setLayer(database()->layerZero());
        begin->setInPaperSpace(isPaperSpace());
        m_begin = core.Adopt(begin, 0, objectId(), false);
    }
    if (m_end == nullptr) {
        AcDbBlockEnd* end = new AcDbBlockEnd;
        end->setLayer(database()->layerZero());
        end->setInPaperSpace(isPaperSpace());
        m_end = core.Adopt(end, 0, objectId(), false);
    }
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockBegin(AcDbBlockBegin*& begin, AcDb::OpenMode mode)
{
    return acdbOpenObject(begin, AcDbObjectId(m_begin), mode);
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockEnd(AcDbBlockEnd*& end, AcDb::OpenMode mode)
{
    return acdbOpenObject(end, AcDbObjectId(m_end), mode);
}

namespace {

// BLOCK is opened for the moment of one change, so that the change is recorded and written like any other.
template <class Change>
Acad::ErrorStatus ChangeBegin(AcDbStub* stub, Change&& change)
{
    AcDbBlockBegin* begin = nullptr;
    Acad::ErrorStatus status = acdbOpenObject(begin, AcDbObjectId(stub), AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    status = begin->assertWriteEnabled();
    if (status == Acad::eOk)
        change(*begin);
    begin->close();
    return status;
}

}   // namespace

AcGePoint3d AcDbBlockTableRecord::origin() const
{
    const AcDbBlockBegin* begin = beginObject();
    return begin == nullptr ? AcGePoint3d() : begin->m_origin;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin)
{
    if (database() == nullptr)
        return Acad::eNoDatabase;
    completeBlock();
    return ChangeBegin(m_begin, [&](AcDbBlockBegin& begin) { begin.m_origin = origin; });
}

Acad::ErrorStatus AcDbBlockTableRecord::pathName(ACHAR*& path) const
{
    const AcDbBlockBegin* begin = beginObject();
    path = nullptr;
    return acutNewString(begin == nullptr ? L"" : static_cast<const ACHAR*>(begin->m_path), path);
}

Acad::ErrorStatus AcDbBlockTableRecord::setPathName(const ACHAR* path)
{
    if (database() == nullptr)
        return Acad::eNoDatabase;
    completeBlock();
    return ChangeBegin(m_begin, [&](AcDbBlockBegin& begin) { begin.m_path = path; });
}

ACHAR* AcDbBlockTableRecord::comments() const
{
    const AcDbBlockBegin* begin = beginObject();
    ACHAR* text = nullptr;
    acutNewString(begin == nullptr ? L"" : static_cast<const ACHAR*>(begin->m_comments), text);
    return text;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* comments)
{
    if (database() == nullptr)
        return Acad::eNoDatabase;
    completeBlock();
    return ChangeBegin(m_begin, [&](AcDbBlockBegin& begin) { begin.m_comments = comments; });
}

int16_t AcDbBlockTableRecord::blockFlags() const
{
    const AcDbBlockBegin* begin = beginObject();
    return begin == nullptr ? int16_t(0) : begin->m_flags;
}

void AcDbBlockTableRecord::setBlockFlags(int16_t flags)
{
    completeBlock();
    ChangeBegin(m_begin, [&](AcDbBlockBegin& begin) { begin.m_flags = flags; });
}

// --- what kind of block ---

void AcDbBlockTableRecord::setDependent(bool dependent)
{
    setBlockFlags(int16_t(dependent ? blockFlags() | 16 : blockFlags() & ~48));
}

AcDb::XrefStatus AcDbBlockTableRecord::xrefStatus() const
{
    return isFromExternalReference() || isFromOverlayReference() ? m_xrefStatus : AcDb::kXrfNotAnXref;
}

namespace {

// Old files write the spaces with a dollar sign.
bool IsSpaceName(const CString& name, const wchar_t* space, bool withNumber)
{
    const CString rest = name.Mid(1);
    const CString head = withNumber ? rest.Left(int(wcslen(space))) : rest;
    return !name.IsEmpty() && (name[0] == L'*' || name[0] == L'$') && head.CompareNoCase(space) == 0;
}

}   // namespace

bool AcDbBlockTableRecord::isModelSpace() const
{
    return IsSpaceName(m_name, L"Model_Space", false);
}

bool AcDbBlockTableRecord::isPaperSpace() const
{
    return IsSpaceName(m_name, L"Paper_Space", true);
}

bool AcDbBlockTableRecord::isAnonymous() const
{
    return !m_name.IsEmpty() && m_name[0] == L'*';
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const
{
    for (const AcDbStub* stub : m_entities)
        if (!stub->erased && stub->object != nullptr && stub->object->isKindOf(AcDbAttributeDefinition::desc()))
            return true;
    return false;
}

Acad::ErrorStatus AcDbBlockTableRecord::setLayoutId(AcDbObjectId layout)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_layout = layout;
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::setBlockInsertUnits(AcDb::UnitsValue units)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_units = int16_t(units);
    return status;
}

bool AcDbBlockTableRecord::isErasable() const
{
    return !isModelSpace() && !isPaperSpace() && (m_layout.isNull() || m_layout.isErased());
}

// A definition goes with its entities, and comes back with those that went with it.
Acad::ErrorStatus AcDbBlockTableRecord::subErase(bool erasing)
{
    const Acad::ErrorStatus status = AcDbSymbolTableRecord::subErase(erasing);
    if (status != Acad::eOk)
        return status;
    if (erasing && (ObjectAccess::State(*this) & kKnownUnused) == 0) {
        AcDbObjectIdArray references;
        getBlockReferenceIds(references);
        if (references.length() > 0)
            return Acad::eCannotBeErasedByCaller;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly, bool)
{
    if (database() == nullptr)
        return Acad::eNoDatabase;
    DbCore& core = CoreOf(*database());
    std::set<AcDbStub*> reached{objectId()};
    bool isGrowing = true;
    std::set<AcDbStub*> found;
    while (isGrowing) {
        isGrowing = false;
        for (AcDbStub* blockStub : core.Table(TableKind::Block)->records()) {
            if (blockStub->erased)
                continue;
            for (AcDbStub* stub : static_cast<AcDbBlockTableRecord*>(blockStub->object)->entities()) {
                if (stub->erased || stub->object == nullptr || !stub->object->isKindOf(AcDbBlockReference::desc()))
                    continue;
                AcDbStub* target = static_cast<AcDbBlockReference*>(stub->object)->blockTableRecord();
                if (reached.count(target) == 0 || !found.insert(stub).second)
                    continue;
                ids.append(stub);
                isGrowing = reached.insert(blockStub).second || isGrowing;
            }
        }
        isGrowing = isGrowing && !directOnly;
    }
    return Acad::eOk;
}
