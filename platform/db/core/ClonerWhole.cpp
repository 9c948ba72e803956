// A whole drawing copied to a new one: what nothing refers to stays behind, save what names mean to a user.
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbDictionary.h"
#include "Cloner.h"
#include "ClonerParts.h"
#include "ObjectAccess.h"

namespace KxPlat {

namespace {

// Header variables that name a record: it is in use, whatever the entities say.
struct NamedRow {
    const char* variable;
    TableKind kind;
};

const NamedRow kNamed[] = {
    {"$CLAYER", TableKind::Layer},      {"$CELTYPE", TableKind::Linetype},   {"$TEXTSTYLE", TableKind::TextStyle},
    {"$DIMSTYLE", TableKind::DimStyle}, {"$DIMTXSTY", TableKind::TextStyle}, {"$DIMLTYPE", TableKind::Linetype},
    {"$DIMLTEX1", TableKind::Linetype}, {"$DIMLTEX2", TableKind::Linetype},  {"$DIMBLK", TableKind::Block},
    {"$DIMBLK1", TableKind::Block},     {"$DIMBLK2", TableKind::Block},      {"$DIMLDRBLK", TableKind::Block},
};

// Everything of these has its name from a user and is chosen by it.
const TableKind kWholeTables[] = {TableKind::Viewport, TableKind::View, TableKind::Ucs};

}   // namespace

void Cloner::CloneWhole(DbCore& source)
{
    m_isWhole = true;
    m_map.setDuplicateRecordCloning(AcDb::kDrcReplace);
    m_block = m_to.modelSpace;
    for (AcDbStub* stub : source.Table(TableKind::Block)->records()) {
        const AcDbBlockTableRecord& block = static_cast<const AcDbBlockTableRecord&>(*stub->object);
        if (!stub->erased && (block.isModelSpace() || block.isPaperSpace()))
            CopyRecord(stub, TableKind::Block);
    }
    for (TableKind kind : kWholeTables)
        for (AcDbStub* stub : source.Table(kind)->records())
            if (!stub->erased)
                CopyRecord(stub, kind);
    for (const NamedRow& row : kNamed)
        if (AcDbStub* stub = source.Table(row.kind)->find(ViewOf(source.header.Text(row.variable))))
            CopyRecord(stub, row.kind);
    CopyNamedObjects(source);
    Translate();
    CopyHeader(source);
}

// Sheets, styles, groups and data that programs left.
void Cloner::CopyNamedObjects(DbCore& source)
{
    const AcDbDictionary& from = static_cast<const AcDbDictionary&>(*source.namedObjects->object);
    AcDbObject* opened = nullptr;
    if (OpenStub(m_to.namedObjects, AcDb::kForWrite, false, opened) != Acad::eOk)
        return;
    AcDbDictionary& to = static_cast<AcDbDictionary&>(*opened);
    m_map.assign(AcDbIdPair(source.namedObjects, m_to.namedObjects, false));
    for (const AcDbDictionary::Entry& entry : from.entries()) {
        AcDbObjectId id;
        AcDbObject* there = nullptr;
        if (entry.id.isErased() || ObjectOf(entry.id) == nullptr)
            continue;
        if (to.getAt(entry.name, there, AcDb::kForWrite) != Acad::eOk) {
            if (AcDbStub* copy = Copy(entry.id, m_to.namedObjects, false))
                to.setAt(entry.name, copy->object, id);
            continue;
        }
        // A new drawing has a list of groups, which nobody can take away.
        CopyFields(*there, *ObjectOf(entry.id));
        m_map.assign(AcDbIdPair(entry.id, there->objectId(), true));
        m_made.push_back(ObjectAccess::Stub(*there));
        CopyOwned(*ObjectOf(entry.id), *there);
        there->close();
    }
    to.close();
}

void Cloner::CopyHeader(const DbCore& source)
{
    for (const HeaderVar& var : source.header.All()) {
        if (var.name == "$HANDSEED")
            continue;
        GroupList groups = var.groups;
        for (GroupValue& group : groups)
            if (AcDbObjectId* id = std::get_if<AcDbObjectId>(&group.value))
                *id = m_map.find(*id).isNull() ? id->isNull() ? AcDbObjectId() : Existing(*id) : m_map.find(*id);
        m_to.header.Get(var.name).groups = std::move(groups);
    }
}

}   // namespace KxPlat
