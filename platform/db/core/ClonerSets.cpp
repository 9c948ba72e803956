// What holds several entities together and comes along with them: groups and the draw order.
#include "../AcDbBlockTableRecord.h"
#include "../AcDbDatabase.h"
#include "../AcDbDictionary.h"
#include "../AcDbGroup.h"
#include "../AcDbSortentsTable.h"
#include "Cloner.h"
#include "ClonerParts.h"
#include "DefaultDrawing.h"
#include "ObjectAccess.h"
#include <set>
#include <unordered_set>

namespace KxPlat {

// --- groups ----------------------------------------------------------------------------------------------------------

void Cloner::CarryGroups()
{
    std::set<AcDbObjectId> met;
    for (size_t i = 0; i < m_map.pairs().size(); ++i) {
        const AcDbObject* source = ObjectOf(m_map.pairs()[i].key());
        const Annex* annex = source == nullptr ? nullptr : ObjectAccess::Find(*source);
        if (annex == nullptr || !m_map.pairs()[i].isCloned())
            continue;
        const std::vector<AcDbObjectId> reactors = annex->reactors;
        for (AcDbObjectId reactor : reactors)
            if (AcDbGroup::cast(ObjectOf(reactor)) != nullptr && !reactor.isErased() && met.insert(reactor).second)
                CarryGroup(reactor);
    }
}

namespace {

CString NextName(const AcDbDictionary& list, const wchar_t* format, const CString& name)
{
    CString next;
    for (int i = 0;; ++i) {
        next.Format(format, i, static_cast<const wchar_t*>(name));
        if (!list.has(next))
            return next;
    }
}

}   // namespace

// In another drawing a group goes on with those of its members that came along; within one drawing only a group that
// was copied whole has a copy, which gets no name.
void Cloner::CarryGroup(AcDbObjectId group)
{
    const AcDbGroup& from = static_cast<const AcDbGroup&>(*ObjectOf(group));
    const bool isSameDrawing = group.database() == m_to.database;
    AcDbObjectIdArray clones;
    for (AcDbObjectId member : from.members()) {
        const AcDbObjectId clone = m_map.find(member);
        if (clone.isNull() && isSameDrawing && !member.isErased())
            return;
        if (!clone.isNull() && !clones.contains(clone))
            clones.append(clone);
    }
    ACHAR* text = nullptr;
    if (clones.isEmpty() || !m_map.find(group).isNull() || from.getName(text) != Acad::eOk)
        return;
    CString name(text);
    acutDelString(text);
    AcDbDictionary* names = static_cast<AcDbDictionary*>(m_to.namedObjects->object);
    AcDbDictionary* list = EnsureDictionary(m_to, names, L"ACAD_GROUP");
    const bool isUnnamed = isSameDrawing || from.isAnonymous();
    if (isUnnamed)
        name = NextName(*list, L"*A%d", name);
    else if (list->has(name))
        name = NextName(*list, L"$%d$%s", name);

    AcDbObject* opened = nullptr;
    if (OpenStub(ObjectAccess::Stub(*list), AcDb::kForWrite, false, opened) != Acad::eOk)
        return;
    AcDbGroup* copy = new AcDbGroup(from.description(), from.isSelectable());
    AcDbObjectId id;
    list->setAt(name, copy, id);
    opened->close();
    if (isUnnamed)
        copy->setAnonymous();
    copy->append(clones);
    copy->close();
    m_map.assign(AcDbIdPair(group, id, true));
}

// --- draw order ------------------------------------------------------------------------------------------------------

namespace {

AcDbObjectIdArray SortedBy(AcDbBlockTableRecord& block, bool& isSorted)
{
    AcDbObjectIdArray order;
    AcDbSortentsTable* table = nullptr;
    isSorted = block.getSortentsTable(table, AcDb::kForRead, false) == Acad::eOk;
    if (isSorted) {
        isSorted = !table->entries().empty() && table->getFullDrawOrder(order) == Acad::eOk;
        table->close();
    }
    return order;
}

}   // namespace

AcDbObjectIdArray InDrawOrder(AcDbBlockTableRecord& block)
{
    bool isSorted = false;
    AcDbObjectIdArray order = SortedBy(block, isSorted);
    if (isSorted)
        return order;
    order.setLogicalLength(0);
    for (AcDbStub* entity : block.entities())
        if (!entity->erased && entity->object != nullptr)
            order.append(entity);
    return order;
}

void Cloner::CarryDrawOrder(const AcDbObjectIdArray& objects, AcDbBlockTableRecord& block)
{
    std::set<AcDbObjectId> owners;
    std::unordered_set<AcDbObjectId> asked;
    for (int i = 0; i < objects.length(); ++i) {
        owners.insert(ObjectOf(objects.at(i))->ownerId());
        asked.insert(objects.at(i));
    }
    for (AcDbObjectId owner : owners) {
        const AcDbStub* stub = owner;
        AcDbBlockTableRecord* from = stub == nullptr ? nullptr : AcDbBlockTableRecord::cast(stub->object);
        bool isSorted = false;
        const AcDbObjectIdArray order = from == nullptr ? AcDbObjectIdArray() : SortedBy(*from, isSorted);
        AcDbObjectIdArray clones;
        for (int i = 0; i < order.length(); ++i)
            if (asked.contains(order.at(i)))
                clones.append(m_map.find(order.at(i)));
        AcDbObject* opened = nullptr;
        if (!isSorted || clones.isEmpty())
            continue;
        const bool wasOpen = block.isWriteEnabled();
        if (!wasOpen && OpenStub(ObjectAccess::Stub(block), AcDb::kForWrite, false, opened) != Acad::eOk)
            continue;
        AcDbSortentsTable* table = nullptr;
        if (block.getSortentsTable(table, AcDb::kForWrite, true) == Acad::eOk) {
            table->setRelativeDrawOrder(clones);
            table->close();
        }
        if (!wasOpen)
            block.close();
    }
}

}   // namespace KxPlat
