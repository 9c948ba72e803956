// Keeps the display lists of a scene in step with what happens to the drawing.
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbEntity.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/core/DbCore.h"
#include "../rx/AcRxClass.h"
#include "ListBuilder.h"
#include "Scene.h"
#include "SceneLists.h"
#include <algorithm>

namespace KxPlat {

namespace {

// What pictures depend on besides objects.
constexpr const char* kHeaderVariables[] = {"$ATTMODE", "$DIMASZ", "$DIMSCALE",  "$DIMTXT",    "$FILLMODE",
                                            "$PDMODE",  "$PDSIZE", "$PSLTSCALE", "$QTEXTMODE", "$SPLFRAME"};

// Layers and linetypes are read again whenever something changed; these have no part in pictures at all.
bool ChangesNoList(const AcDbObject& object)
{
    static const wchar_t* const kinds[] = {L"AcDbLayerTableRecord",
                                           L"AcDbLinetypeTableRecord",
                                           L"AcDbGroup",
                                           L"AcDbRegAppTableRecord",
                                           L"AcDbViewportTableRecord",
                                           L"AcDbViewTableRecord",
                                           L"AcDbUCSTableRecord",
                                           L"AcDbXrecord",
                                           L"AcDbDictionary",
                                           L"AcDbPlotSettings",
                                           L"AcDbBlockTableRecord",
                                           L"AcDbSymbolTable",
                                           L"AcDbDictionaryVar"};
    for (const AcRxClass* type = object.isA(); type != nullptr; type = type->myParent())
        for (const wchar_t* kind : kinds)
            if (CString(type->name()) == kind)
                return true;
    return false;
}

// The block that the entity or what it is a part of lies in; `entity` becomes that. Null when it lies nowhere.
AcDbStub* BlockOf(AcDbStub*& entity)
{
    for (int step = 0; step < 8 && entity != nullptr && entity->object != nullptr; ++step) {
        AcDbStub* owner = entity->object->ownerId();
        if (owner == nullptr || owner->object == nullptr)
            return nullptr;
        if (owner->object->isKindOf(AcDbBlockTableRecord::desc()))
            return owner;
        entity = owner;
    }
    return nullptr;
}

}   // namespace

std::string Scene::StateOfHeader() const
{
    std::string state;
    const HeaderVars& header = CoreOf(m_database).header;
    for (const char* name : kHeaderVariables)
        state += std::to_string(header.Real(name)) + ' ' + std::to_string(header.Integer(name)) + '\n';
    return state;
}

// False when something was touched that many entities may depend on: a text style, the draw order.
bool Scene::Sort(const std::vector<AcDbStub*>& touched, Touched& byBlock) const
{
    for (AcDbStub* stub : touched) {
        if (stub->object == nullptr)
            continue;
        if (!stub->object->isKindOf(AcDbEntity::desc())) {
            if (!ChangesNoList(*stub->object))
                return false;
            continue;
        }
        AcDbStub* entity = stub;
        if (AcDbStub* block = BlockOf(entity))
            byBlock[block].insert(entity);
    }
    return true;
}

// Whatever shows a block that changed has a new box, and so has what shows the block that this one lies in.
void Scene::SpreadToReferences(Touched& byBlock) const
{
    std::vector<const AcDbStub*> changed;
    for (const auto& [block, entities] : byBlock)
        changed.push_back(block);
    for (size_t at = 0; at < changed.size(); ++at)
        for (const auto& [block, kept] : m_lists) {
            const DisplayList& list = kept->list;
            const bool shows = std::any_of(list.blocks.begin(), list.blocks.end(), [&](const BlockItem& item) {
                return static_cast<const AcDbStub*>(item.block) == changed[at];
            });
            if (!shows)
                continue;
            for (const EntitySpan& span : list.entities)
                for (uint32_t item = span.firstItem; item < span.firstItem + span.itemCount; ++item)
                    if (list.items[item].kind == ItemKind::Block &&
                        static_cast<const AcDbStub*>(list.blocks[list.items[item].first].block) == changed[at])
                        byBlock[block].insert(span.entity);
            if (std::find(changed.begin(), changed.end(), block) == changed.end())
                changed.push_back(block);
        }
}

bool Scene::Update()
{
    std::vector<AcDbStub*> touched;
    Touched byBlock;
    const bool isTold = CoreOf(m_database).undo.TouchedSince(m_position, touched);
    if (!isTold || m_headerState != StateOfHeader() || !Sort(touched, byBlock)) {
        Forget();
        return true;
    }
    if (!touched.empty())
        ReadTables();
    SpreadToReferences(byBlock);
    bool isChanged = false;
    // Blocks of references first: their boxes are asked for by those around them.
    for (const auto& [block, entities] : byBlock) {
        const auto found = m_lists.find(block);
        const bool isSpace = static_cast<const AcDbBlockTableRecord*>(block->object)->isLayout();
        if (found != m_lists.end() && !isSpace)
            m_lists.erase(found), isChanged = true;
    }
    for (const auto& [block, entities] : byBlock) {
        const auto found = m_lists.find(block);
        if (found == m_lists.end() || !static_cast<const AcDbBlockTableRecord*>(block->object)->isLayout())
            continue;
        isChanged = true;
        TakeDownAnew(*found->second, const_cast<AcDbStub*>(block), entities);
        if (found->second->orphans > 10000 + found->second->list.items.size() / 2)
            m_lists.erase(found);
    }
    return isChanged;
}

// The new items stand at the end of the list; those of before are nobody's.
void Scene::TakeDownAnew(Kept& kept, AcDbObjectId block, const std::unordered_set<AcDbStub*>& entities)
{
    DisplayList& list = kept.list;
    kept.box.reset();
    std::unordered_set<AcDbStub*> unknown = entities;
    std::vector<size_t> places;
    for (size_t at = 0; at < list.entities.size(); ++at)
        if (unknown.erase(list.entities[at].entity) != 0)
            places.push_back(at);
    ListBuilder builder(list, *this);
    const auto add = [&](AcDbStub* stub) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenAcDbEntity(entity, AcDbObjectId(stub), AcDb::kForRead) != Acad::eOk)
            return false;
        builder.Add(*entity);
        builder.Finish();
        entity->close();
        ++m_drawnCount;
        return true;
    };
    for (const size_t at : places) {
        kept.orphans += list.entities[at].itemCount;
        AcDbStub* stub = list.entities[at].entity;
        const bool isThere = stub->object->ownerId() == block && add(stub);
        EntitySpan span{stub, 0, 0, {1, 1, 1}, {0, 0, 0}};
        if (isThere) {
            span = list.entities.back();
            list.entities.pop_back();
        }
        list.entities[at] = span;
        if (kept.index != nullptr)
            kept.index->Loosen(uint32_t(at));
    }
    // New ones come in the order of their handles, which is that of their making.
    std::vector<AcDbStub*> added(unknown.begin(), unknown.end());
    std::sort(added.begin(), added.end(), [](AcDbStub* a, AcDbStub* b) { return a->handle < b->handle; });
    for (AcDbStub* stub : added)
        if (stub->object->ownerId() == block && add(stub) && kept.index != nullptr)
            kept.index->Loosen(uint32_t(list.entities.size() - 1));
}

}   // namespace KxPlat
