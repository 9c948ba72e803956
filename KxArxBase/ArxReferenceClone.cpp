// Cloning the entities of xref layers: the whole operation, finding the entities, making the clones.
#include "ArxReferenceState.h"
#include "KxMessages.h"
#include "Opened.h"
#include "ResBufChain.h"
#include <algorithm>
#include <memory>

namespace KxArxBase {

ArxReferenceState& TheReferenceState()
{
    static ArxReferenceState state;
    return state;
}

KxArxReference::~KxArxReference() = default;

namespace {

bool IsOnLayer(const AcDbEntity& entity, const CString& layer)
{
    ACHAR* name = entity.layer();
    const bool isSame = name != nullptr && layer.CompareNoCase(name) == 0;
    acutDelString(name);
    return isSame;
}

// Whatever way the operation ends, the maps are empty behind it.
class Operation {
public:
    Operation() { TheReferenceState().isRunning = 1; }
    ~Operation()
    {
        TheReferenceState().textStyles.RemoveAll();
        TheReferenceState().linetypes.RemoveAll();
        TheReferenceState().walked.clear();
        TheReferenceState().isRunning = 0;
    }
};

// One layer from the xref to the working drawing; `ids` receives what was made.
int CloneLayer(const CString& layer, AcGeMatrix3d& transform, AcDbObjectIdArray& ids)
{
    AcDbObjectIdArray sources, clones;
    if (KxArxReference::GetXrefLayerEnt(layer, sources, clones, transform) == 0) {
        MessageInfo(L"\n图层克隆不成功.\n", 1, 0);
        return 0;
    }
    AcDbObjectId local;
    if (KxArxReference::CreateLayer(layer, local) == 0 || KxArxReference::CopyLayer(layer, layer) == 0)
        return 0;
    for (int i = 0; i < clones.length(); ++i)
        KxArxReference::SetLayerName(clones.at(i), local);
    ids.append(clones);
    return 1;
}

}   // namespace

int KxArxReference::CloneXrefLayerOfEnt(AcDbObjectId xrefInsert, CStringArray& layers, AcDbDatabase* db,
                                        AcDbObjectIdArray ids)
{
    ArxReferenceState& state = TheReferenceState();
    const Operation operation;
    AcGeMatrix3d transform;
    {
        const Opened<AcDbEntity> entity(xrefInsert, AcDb::kForRead);
        const AcDbBlockReference* insert = AcDbBlockReference::cast(entity.get());
        if (insert == nullptr)
            return 0;
        transform = insert->blockTransform();
        const Opened<AcDbBlockTableRecord> block(insert->blockTableRecord(), AcDb::kForRead);
        if (block.status() != Acad::eOk)
            return 0;
        state.xrefBlock = block->objectId();
        state.database = db;
    }
    CopyXrefTextStyle();
    CopyXrefLineStyle();
    for (INT_PTR i = 0; i < layers.GetSize(); ++i) {
        const CString layer = layers[i];
        const bool wasLocked = CheckLockLayer(layer) == 1;
        if (wasLocked)
            SetLockLayer(layer, false);
        const int done = CloneLayer(layer, transform, ids);
        // The local layer has the name of the xref's, so that this locks both.
        if (wasLocked)
            SetLockLayer(layer, true);
        if (done == 0)
            return 0;
    }
    return 1;
}

int KxArxReference::GetXrefLayerEnt(CString layer, AcDbObjectIdArray& sources, AcDbObjectIdArray& clones,
                                    AcGeMatrix3d& transform)
{
    KxEntPairArray pairs;
    GetXrefBlockRecord(TheReferenceState().xrefBlock, layer, transform, pairs);
    if (pairs.IsEmpty())
        return 0;
    for (INT_PTR i = 0; i < pairs.GetSize(); ++i) {
        AcDbObjectId clone;
        CloneEnt(pairs[i].second, clone, pairs[i].first, 0, 1);
        clones.append(clone);
        sources.append(pairs[i].second);
    }
    return 1;
}

// --- finding ---------------------------------------------------------------------------------------------------------

int KxArxReference::GetXrefBlockRecord(AcDbObjectId& block, CString layer, AcGeMatrix3d& transform,
                                       KxEntPairArray& pairs)
{
    pairs.RemoveAll();
    return TraversingBlockRecord(block, layer, transform, pairs);
}

namespace {

// The live entities of a block; nothing for what is no block.
AcDbObjectIdArray EntitiesOf(AcDbObjectId id, Acad::ErrorStatus& status)
{
    AcDbObjectIdArray ids;
    const Opened<AcDbBlockTableRecord> block(id, AcDb::kForRead);
    status = block.status();
    AcDbBlockTableRecordIterator* made = nullptr;
    if (status != Acad::eOk || (status = block->newIterator(made)) != Acad::eOk)
        return ids;
    const std::unique_ptr<AcDbBlockTableRecordIterator> it(made);
    AcDbObjectId entity;
    for (; !it->done(); it->step())
        if (it->getEntityId(entity) == Acad::eOk)
            ids.append(entity);
    return ids;
}

}   // namespace

int KxArxReference::TraversingBlockRecord(AcDbObjectId block, CString layer, AcGeMatrix3d& transform,
                                          KxEntPairArray& pairs)
{
    Acad::ErrorStatus status = Acad::eOk;
    const AcDbObjectIdArray entities = EntitiesOf(block, status);
    if (status != Acad::eOk)
        return 0;
    ArxReferenceState& state = TheReferenceState();
    state.walked.push_back(block);
    AcDbObjectIdArray ids;
    for (int i = 0; i < entities.length(); ++i) {
        {
            const Opened<AcDbEntity> entity(entities.at(i), AcDb::kForRead);
            if (entity.status() != Acad::eOk)
                continue;
            if (AcDbBlockReference::cast(entity.get()) != nullptr && IsOnLayer(*entity.get(), layer))
                state.blockLayer = layer;
        }
        if (IsBlockReference(entities.at(i), ids, transform, pairs, layer) != 2)
            continue;
        const Opened<AcDbEntity> entity(entities.at(i), AcDb::kForRead);
        if (entity && IsOnLayer(*entity.get(), layer))
            pairs.Add(KxEntPair(transform, entities.at(i)));
    }
    state.walked.pop_back();
    return 1;
}

int KxArxReference::IsBlockReference(AcDbObjectId id, AcDbObjectIdArray& ids, AcGeMatrix3d transform,
                                     KxEntPairArray& pairs, CString layer)
{
    AcDbObjectId block;
    {
        const Opened<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.status() != Acad::eOk)
            return 0;
        const AcDbBlockReference* insert = AcDbBlockReference::cast(entity.get());
        if (insert == nullptr)
            return 2;
        transform *= insert->blockTransform();
        block = insert->blockTableRecord();
    }
    std::vector<AcDbObjectId>& walked = TheReferenceState().walked;
    if (std::find(walked.begin(), walked.end(), block) != walked.end())
        return 0;
    Acad::ErrorStatus status = Acad::eOk;
    const AcDbObjectIdArray entities = EntitiesOf(block, status);
    if (status != Acad::eOk)
        return 0;
    walked.push_back(block);
    for (int i = 0; i < entities.length(); ++i) {
        if (IsBlockReference(entities.at(i), ids, transform, pairs, layer) != 2)
            continue;
        ids.append(entities.at(i));
        const Opened<AcDbEntity> entity(entities.at(i), AcDb::kForRead);
        if (entity && IsOnLayer(*entity.get(), layer))
            pairs.Add(KxEntPair(transform, entities.at(i)));
    }
    walked.pop_back();
    return 1;
}

// --- cloning ---------------------------------------------------------------------------------------------------------

namespace {

// Application by application: a chain that is the name alone takes that application's data off.
void StripXData(AcDbEntity& entity)
{
    for (resbuf* data = entity.xData(); data != nullptr; data = entity.xData()) {
        const ResBufChain all(data);
        const ResBufChain rest(data->rbnext);
        data->rbnext = nullptr;
        if (entity.setXData(data) != Acad::eOk)
            return;
    }
}

// A circle or an arc that is scaled unevenly is drawn as an ellipse, which any transform leaves one.
AcDbEntity* EllipseOf(const AcDbEntity& entity, const AcGeMatrix3d& transform)
{
    if (transform.isUniScaledOrtho())
        return nullptr;
    const double kFullTurn = 6.28318530717958647692;
    AcDbEllipse* ellipse = nullptr;
    const AcDbCircle* circle = AcDbCircle::cast(&entity);
    const AcDbArc* arc = AcDbArc::cast(&entity);
    const AcGeVector3d normal = circle != nullptr ? circle->normal() : arc != nullptr ? arc->normal() : AcGeVector3d();
    const AcGeVector3d along = AcGeMatrix3d::planeToWorld(normal) * AcGeVector3d::kXAxis;
    if (circle != nullptr && circle->thickness() == 0)
        ellipse = new AcDbEllipse(circle->center(), normal, along * circle->radius(), 1, 0, kFullTurn);
    else if (arc != nullptr && arc->thickness() == 0)
        ellipse = new AcDbEllipse(arc->center(), normal, along * arc->radius(), 1, arc->startAngle(),
                                  arc->endAngle() < arc->startAngle() ? arc->endAngle() + kFullTurn : arc->endAngle());
    if (ellipse != nullptr)
        ellipse->setPropertiesFrom(&entity);
    return ellipse;
}

}   // namespace

int KxArxReference::CloneEnt(AcDbObjectId source, AcDbObjectId& clone, AcGeMatrix3d& transform, tagEntType type,
                             int gatherProperties)
{
    clone.setNull();
    const Opened<AcDbEntity> entity(source, AcDb::kForWrite);
    if (entity.status() != Acad::eOk)
        return 0;
    if (type == 0)
        StripXData(*entity.get());
    if (gatherProperties != 0 && GetEntProperties(entity.get(), TheReferenceState().property, type) == 0)
        return 0;
    AcDbEntity* made = EllipseOf(*entity.get(), transform);
    if (made == nullptr)
        made = AcDbEntity::cast(entity->clone());
    if (made == nullptr)
        return 0;
    AcDbObjectId id;
    if (AppendEntity(made, transform, id, type) == 0) {
        delete made;
        return 0;
    }
    made->close();
    clone = id;
    return 1;
}

int KxArxReference::AppendEntity(AcDbEntity* entity, AcGeMatrix3d& transform, AcDbObjectId& id, tagEntType type)
{
    id.setNull();
    if (entity == nullptr || WorkingDb() == nullptr)
        return 0;
    if (type != 2 && SetEntProperties(entity, type) == 0)
        return 0;
    const Opened<AcDbBlockTableRecord> space(WorkingDb()->currentSpaceId(), AcDb::kForWrite);
    if (space.status() != Acad::eOk || entity->transformBy(transform) != Acad::eOk)
        return 0;
    return space->appendAcDbEntity(id, entity) == Acad::eOk ? 1 : 0;
}

}   // namespace KxArxBase
