// The builder itself: its states, the end of every call, and appending.
#include "KxAcDraw.h"
#include "Opened.h"

namespace KxArxBase {

CKxAcDrawState::~CKxAcDrawState() = default;

CKxAcDraw::CKxAcDraw(AcDbDatabase* db, AcGiWorldDraw* draw)
    : m_draw(draw), m_entities(0, 8), m_db(db, 0), m_states(0, 8)
{
}

CKxAcDraw::~CKxAcDraw()
{
    for (void* entity : m_entities)
        delete static_cast<AcDbEntity*>(entity);
}

Acad::ErrorStatus CKxAcDraw::ReadDatabase(CKxAcDrawState& state)
{
    const AcDbDatabase* db = GetAcDb();
    if (db == nullptr)
        return Acad::eNoDatabase;
    state.colorIndex = db->cecolor().colorIndex();
    state.layerId = db->clayer();
    state.linetypeId = db->celtype();
    state.textStyleId = db->textstyle();
    state.textSize = db->textsize();
    return Acad::eOk;
}

namespace {

void ReadTraits(const AcGiSubEntityTraits& traits, CKxAcDrawState& state)
{
    state.colorIndex = traits.color();
    state.layerId = traits.layerId();
    state.linetypeId = traits.lineTypeId();
}

}   // namespace

Acad::ErrorStatus CKxAcDraw::PushDrawState()
{
    CKxAcDrawState state;
    if (IsGiDraw()) {
        ReadTraits(m_draw->subEntityTraits(), state);
    } else {
        const Acad::ErrorStatus es = ReadDatabase(state);
        if (es != Acad::eOk)
            return es;
    }
    m_states.append(state);
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDraw::PopDrawState()
{
    if (m_states.isEmpty())
        return static_cast<Acad::ErrorStatus>(151);
    const CKxAcDrawState& state = m_states.last();
    Acad::ErrorStatus es = Acad::eOk;
    if (IsGiDraw()) {
        AcGiSubEntityTraits& traits = m_draw->subEntityTraits();
        traits.setColor(state.colorIndex);
        traits.setLayer(state.layerId);
        traits.setLineType(state.linetypeId);
    } else {
        AcDbDatabase* db = GetAcDb();
        if (db == nullptr)
            return Acad::eNoDatabase;
        AcCmColor color;
        color.setColorIndex(state.colorIndex);
        db->setCecolor(color);
        db->setClayer(state.layerId);
        db->setCeltype(state.linetypeId);
        db->setTextstyle(state.textStyleId);
        es = db->setTextsize(state.textSize);
    }
    m_states.removeLast();
    return es;
}

Acad::ErrorStatus CKxAcDraw::GetCurDrawState(const AcDbEntity* entity, CKxAcDrawState& state)
{
    if (IsGiDraw()) {
        ReadTraits(m_draw->subEntityTraits(), state);
        return Acad::eOk;
    }
    if (entity == nullptr || !entity->isReadEnabled())
        return ReadDatabase(state);
    state.colorIndex = entity->colorIndex();
    state.layerId = entity->layerId();
    state.linetypeId = entity->linetypeId();
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDraw::GetCurDrawState(const AcDbEntity* entity, int* color, AcDbObjectId* layer,
                                             AcDbObjectId* linetype)
{
    CKxAcDrawState state;
    const Acad::ErrorStatus es = GetCurDrawState(entity, state);
    if (es != Acad::eOk)
        return es;
    if (color != nullptr)
        *color = state.colorIndex;
    if (layer != nullptr)
        *layer = state.layerId;
    if (linetype != nullptr)
        *linetype = state.linetypeId;
    return Acad::eOk;
}

Acad::ErrorStatus CKxAcDraw::DrawEntity(AcDbEntity*& entity, int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (entity == nullptr)
        return static_cast<Acad::ErrorStatus>(15);
    if (!entity->isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const Acad::ErrorStatus es = m_db.SetEntityProperty(entity, &color, layer, linetype);
    if (!IsGiDraw()) {
        m_entities.append(entity);
        return es;
    }
    Show(*entity, color, layer, linetype);
    delete entity;
    entity = nullptr;
    PopDrawState();
    return es;
}

// A colour by layer is that of the layer here, since a context's own layer is another one.
void CKxAcDraw::Show(AcDbEntity& entity, int color, const wchar_t* layer, const wchar_t* linetype)
{
    PushDrawState();
    AcGiSubEntityTraits& traits = m_draw->subEntityTraits();
    AcDbObjectId id;
    if (layer != nullptr && color == 256 && m_db.FindRec(layer, AcDbLayerTableRecord::desc(), id)) {
        const Opened<AcDbLayerTableRecord> record(id, AcDb::kForRead);
        if (record)
            color = record->color().colorIndex();
    }
    traits.setColor(Adesk::UInt16(color));
    if (linetype != nullptr && m_db.FindRec(linetype, AcDbLinetypeTableRecord::desc(), id))
        traits.setLineType(id);
    if (AcGiWorldDraw* world = AcGiWorldDraw::cast(m_draw))
        entity.worldDraw(world);
    else if (AcGiViewportDraw* view = AcGiViewportDraw::cast(m_draw))
        entity.viewportDraw(view);
}

Acad::ErrorStatus CKxAcDraw::AddEntsToDb(const wchar_t* block, AcDbObjectIdArray* ids)
{
    if (ids != nullptr)
        ids->setLogicalLength(0);
    Acad::ErrorStatus es = Acad::eOk;
    for (void*& each : m_entities) {
        AcDbEntity* entity = static_cast<AcDbEntity*>(each);
        each = nullptr;
        AcDbObjectId id;
        es = m_db.AddEntToSpace(entity, 1, block, &id);
        if (es == Acad::eOk && ids != nullptr)
            ids->append(id);
    }
    m_entities.setLogicalLength(0);
    return es;
}

Acad::ErrorStatus CKxAcDraw::Finish(AcDbEntity* entity, int color, const wchar_t* layer, const wchar_t* linetype)
{
    return entity == nullptr ? Acad::eOutOfMemory : DrawEntity(entity, color, layer, linetype);
}

}   // namespace KxArxBase
