#include "Scene.h"
#include "../db/AcDbAttributeDefinition.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbLayerTableRecord.h"
#include "../db/AcDbLinetypeTableRecord.h"
#include "../db/AcDbSortentsTable.h"
#include "../db/core/DbCore.h"
#include "../rx/AcRxClass.h"
#include "ListBuilder.h"
#include "SceneLists.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace KxPlat {

namespace {

Box EmptyBox()
{
    constexpr double big = std::numeric_limits<double>::max();
    return {{big, big, big}, {-big, -big, -big}};
}

void Add(Box& box, const EntitySpan& span)
{
    for (int axis = 0; axis < 3; ++axis) {
        box.min[axis] = std::min(box.min[axis], double(span.min[axis]));
        box.max[axis] = std::max(box.max[axis], double(span.max[axis]));
    }
}

bool HasBox(const EntitySpan& span)
{
    return span.min[0] <= span.max[0] && span.max[0] < std::numeric_limits<float>::max();
}

// The entities from the bottom to the top.
AcDbObjectIdArray DrawOrderOf(AcDbBlockTableRecord& block)
{
    AcDbObjectIdArray ids;
    AcDbSortentsTable* table = nullptr;
    if (block.getSortentsTable(table, AcDb::kForRead, false) == Acad::eOk) {
        table->getFullDrawOrder(ids);
        table->close();
        return ids;
    }
    for (AcDbStub* stub : block.entities())
        if (!stub->erased)
            ids.append(stub);
    return ids;
}

}   // namespace

Scene::Scene(AcDbDatabase& database) : m_database(database)
{
    UndoLog& undo = CoreOf(database).undo;
    undo.Watch();
    m_position = undo.TouchedCount();
    m_headerState = StateOfHeader();
    ReadTables();
}

Scene::~Scene()
{
    CoreOf(m_database).undo.Unwatch();
}

void Scene::Forget()
{
    m_lists.clear();
    m_position = CoreOf(m_database).undo.TouchedCount();
    m_headerState = StateOfHeader();
    ReadTables();
}

void Scene::ReadTables()
{
    m_layers.clear();
    m_linetypes.clear();
    ++m_tablesNumber;
    DbCore& core = CoreOf(m_database);
    for (AcDbStub* stub : core.Table(TableKind::Layer)->records()) {
        const auto* record = static_cast<const AcDbLayerTableRecord*>(stub->object);
        if (record == nullptr || stub->erased)
            continue;
        SceneLayer& layer = m_layers[stub];
        const AcCmColor color = record->color();
        layer.rgb = color.isByColor()
                        ? Adesk::UInt32(color.red()) << 16 | Adesk::UInt32(color.green()) << 8 | color.blue()
                        : AcCmEntityColor::lookUpRGB(Adesk::UInt8(color.colorIndex()));
        layer.isForeground = color.isForeground();
        layer.isOff = record->isOff();
        layer.isFrozen = record->isFrozen();
        layer.isPlottable = record->isPlottable();
        layer.lineWeight = int16_t(record->lineWeight());
        layer.linetype = record->linetypeObjectId();
        layer.isDefpoints = record->nameText().CompareNoCase(L"Defpoints") == 0;
        layer.isZero = record->nameText() == L"0";
    }
    for (AcDbStub* stub : core.Table(TableKind::Linetype)->records()) {
        const auto* record = static_cast<const AcDbLinetypeTableRecord*>(stub->object);
        if (record == nullptr || stub->erased)
            continue;
        SceneLinetype& linetype = m_linetypes[stub];
        const CString& name = record->nameText();
        linetype.kind = name.CompareNoCase(L"ByLayer") == 0   ? SceneLinetype::Kind::ByLayer
                        : name.CompareNoCase(L"ByBlock") == 0 ? SceneLinetype::Kind::ByBlock
                                                              : SceneLinetype::Kind::Own;
        for (int dash = 0; dash < record->numDashes(); ++dash) {
            linetype.dashes.push_back(record->dashLengthAt(dash));
            linetype.period += std::abs(linetype.dashes.back());
        }
        if (!(linetype.period > 0))
            linetype.dashes.clear();
    }
    m_linetypeScale = core.header.Real("$LTSCALE", 1);
    m_showsLineWeights = core.header.Integer("$LWDISPLAY", 0) != 0;
}

const DisplayList& Scene::ListOf(AcDbObjectId id)
{
    std::unique_ptr<Kept>& place = m_lists[id];
    if (place != nullptr)
        return place->list;
    place = std::make_unique<Kept>();
    Kept& kept = *place;   // stands while the block is taken down, so that a block within itself ends
    TakeDown(kept, id);
    return kept.list;
}

void Scene::TakeDown(Kept& kept, AcDbObjectId id)
{
    AcDbBlockTableRecord* block = nullptr;
    if (acdbOpenObject(block, id, AcDb::kForRead) != Acad::eOk)
        return;
    m_taking.push_back(id);
    const bool isSpace = block->isModelSpace() || block->isPaperSpace();
    ListBuilder builder(kept.list, *this);
    for (const AcDbObjectId& entityId : DrawOrderOf(*block)) {
        AcDbEntity* entity = nullptr;
        if (acdbOpenAcDbEntity(entity, entityId, AcDb::kForRead) != Acad::eOk)
            continue;
        const AcDbAttributeDefinition* definition = AcDbAttributeDefinition::cast(entity);
        if (isSpace || definition == nullptr || definition->isConstant())
            builder.Add(*entity);
        entity->close();
        ++m_drawnCount;
    }
    builder.Finish();
    block->close();
    m_taking.pop_back();
    kept.box = MeasuredBox(kept.list, isSpace);
}

bool Scene::IsTaking(AcDbObjectId block) const
{
    return std::find(m_taking.begin(), m_taking.end(), block) != m_taking.end();
}

SpatialIndex* Scene::IndexOf(AcDbObjectId block)
{
    constexpr size_t kShortList = 2000;
    const auto found = m_lists.find(block);
    if (found == m_lists.end() || found->second->list.entities.size() < kShortList)
        return nullptr;
    Kept& kept = *found->second;
    if (kept.index == nullptr || kept.index->IsWorn())
        kept.index = std::make_unique<SpatialIndex>(kept.list);
    return kept.index.get();
}

uint64_t Scene::CountOf(DrawNote note) const
{
    uint64_t count = m_notes[size_t(note)];
    for (const auto& [block, kept] : m_lists)
        count += kept->list.notes[size_t(note)];
    return count;
}

std::wstring Scene::LeftOutText() const
{
    static const struct {
        DrawNote note;
        const wchar_t *one, *many;
    } rows[] = {
        {DrawNote::Damaged, L"item with damaged coordinates left out", L"items with damaged coordinates left out"},
        {DrawNote::DenseHatch, L"dense hatch filled", L"dense hatches filled"},
        {DrawNote::Modeller, L"modeller solid not drawn", L"modeller solids not drawn"},
        {DrawNote::CutText, L"overlong text cut", L"overlong texts cut"},
        {DrawNote::DeepBlocks, L"endless block cut", L"endless blocks cut"},
    };
    std::wstring text;
    for (const auto& row : rows) {
        const uint64_t count = CountOf(row.note);
        if (count > 0)
            text += (text.empty() ? L"" : L", ") + std::to_wstring(count) + L" " + (count == 1 ? row.one : row.many);
    }
    return text;
}

Box Scene::BoxOf(AcDbObjectId block)
{
    const DisplayList& list = ListOf(block);
    const std::optional<Box>& known = m_lists[block]->box;
    return known.has_value() ? *known : MeasuredBox(list, false);
}

// What a dimension measures may lie far off; it is no part of what the block shows.
Box Scene::MeasuredBox(const DisplayList& list, bool isSpace) const
{
    Box box = EmptyBox();
    for (const EntitySpan& span : list.entities) {
        const bool isMark =
            !isSpace && span.itemCount == 1 && LayerOf(list.looks[list.items[span.firstItem].look].layer).isDefpoints;
        if (HasBox(span) && !isMark)
            Add(box, span);
    }
    return box;
}

Box Scene::VisibleBoxOf(AcDbObjectId block)
{
    Box box = EmptyBox();
    const DisplayList& list = ListOf(block);
    for (size_t at = 0; at < list.entities.size(); ++at) {
        const EntitySpan& span = list.entities[at];
        const auto first = list.items.begin() + span.firstItem;
        const bool isVisible = std::any_of(first, first + span.itemCount, [&](const Item& item) {
            const SceneLayer& layer = LayerOf(list.looks[item.look].layer);
            return !layer.isFrozen && (!layer.isOff || item.kind == ItemKind::Block);
        });
        if (isVisible && HasBox(span))
            Add(box, span);
    }
    return box;
}

const SceneLayer& Scene::LayerOf(const AcDbStub* layer) const
{
    static const SceneLayer unknown;
    const auto found = m_layers.find(layer);
    return found == m_layers.end() ? unknown : found->second;
}

const SceneLinetype& Scene::LinetypeOf(const AcDbStub* linetype) const
{
    static const SceneLinetype byLayer{SceneLinetype::Kind::ByLayer, {}, 0}, continuous;
    if (linetype == nullptr)
        return byLayer;
    const auto found = m_linetypes.find(linetype);
    return found == m_linetypes.end() ? continuous : found->second;
}

}   // namespace KxPlat
