// Everything on the layers of picked objects: deleted, or moved to the front or the back of the draw order.
#include "EntityLayers.h"
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/Opened.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;
using KxArxBase::Opened;
namespace Gi = KxArxBase::Gi;

namespace {

bool IsConfirmed(int layers, int objects)
{
    CString question;
    question.Format(L"是否要删除%d个图层上的%d个对象", layers, objects);
    return AfxMessageBox(question, MB_YESNO) == IDYES;
}

int Drop(LayerSet& layers, bool (*isDropped)(AcDbObjectId))
{
    int dropped = 0;
    for (auto it = layers.begin(); it != layers.end();) {
        const bool goes = isDropped(*it);
        dropped += goes ? 1 : 0;
        it = goes ? layers.erase(it) : std::next(it);
    }
    return dropped;
}

// The number of entities moved in one space; -1 when its draw order cannot be changed.
int MoveInSpace(AcDbObjectId space, const LayerSet& layers, bool toFront)
{
    AcDbObjectIdArray entities = EntitiesOnLayers(space, layers);
    if (entities.isEmpty())
        return 0;
    Opened<AcDbBlockTableRecord> block(space, AcDb::kForWrite);
    AcDbSortentsTable* opened = nullptr;
    Acad::ErrorStatus es = block ? block->getSortentsTable(opened, AcDb::kForWrite, true) : block.status();
    if (es != Acad::eOk)
        return -1;
    const Opened<AcDbSortentsTable> order(opened, es);
    es = toFront ? order->moveToTop(entities) : order->moveToBottom(entities);
    return es == Acad::eOk ? entities.length() : -1;
}

void MoveLayers(const wchar_t* prompt, bool toFront)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    if (Gi::PickEntity(prompt, picked) != RTNORM)
        return;
    const LayerSet layers = LayersOf(picked);
    int moved = 0;
    for (const AcDbObjectId& space : SpacesOf(db))
        moved += std::max(0, MoveInSpace(space, layers, toFront));
    MsgCmdInfo(toFront ? L"\n %d 个图层上的 %d 个对象已前置。" : L"\n %d 个图层上的 %d 个对象已后置。",
               int(layers.size()), moved);
    acedCommand(RTSTR, L"REGEN", RTNONE);
}

}   // namespace

void KxCadBaseModule::CmdPickObjectDeleteLayerObjects()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    if (Gi::PickEntity(L"\n 选择要删除图层上的实体：", picked) != RTNORM)
        return;
    LayerSet layers = LayersOf(picked);
    const int locked = Drop(layers, IsLayerLocked);
    if (locked > 0)
        MsgCmdInfo(L"\n %d 个图层已锁定，其对象不删除。", locked);
    AcDbObjectIdArray all;
    for (const AcDbObjectId& space : SpacesOf(db))
        all.append(EntitiesOnLayers(space, layers));
    if (all.isEmpty() || !IsConfirmed(int(layers.size()), all.length()))
        return;
    db.EraseObjects(all, 0);
    MsgCmdInfo(L"\n 已删除 %d 个对象。", all.length());
}

void KxCadBaseModule::CmdSetLayerToFront()
{
    MoveLayers(L"\n 选择要前置图层上的实体：", true);
}

void KxCadBaseModule::CmdSetlayerToBack()
{
    MoveLayers(L"\n 选择要后置图层上的实体：", false);
}

}   // namespace KxArxModules
