// Objects moved to another layer, and the layer of an object made the current one.
#include "EntityLayers.h"
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxMessages.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;
namespace Gi = KxArxBase::Gi;

namespace {

void Move(const AcDbObjectIdArray& picked, AcDbObjectId layer)
{
    const Moved result = MoveToLayer(picked, layer);
    MsgCmdInfo(L"\n %d 个对象已移到图层 %s。", result.moved, LayerName(layer).GetString());
    if (result.locked > 0)
        MsgCmdInfo(L"\n %d 个对象位于锁定图层上，未更改。", result.locked);
}

}   // namespace

void KxCadBaseModule::CmdChangePickObjectLayer()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked, target;
    if (Gi::PickEntity(L"\n 选择要更改图层的实体：", picked) != RTNORM ||
        Gi::PickEntity(L"\n 选择目标图层上的实体：", target, 1, nullptr, 0) != RTNORM)
        return;
    const AcDbObjectId layer = LayerOf(target.first());
    if (!layer.isNull())
        Move(picked, layer);
}

void KxCadBaseModule::CmdKxObjectChangeToCurLayer()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    if (Gi::PickEntity(L"\n 选择要移到当前图层的实体：", picked) == RTNORM)
        Move(picked, db.GetAcDb()->clayer());
}

void KxCadBaseModule::CmdKxSetCurLayer()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    if (Gi::PickEntity(L"\n 选择将其图层置为当前的实体：", picked, 1) != RTNORM)
        return;
    const AcDbObjectId layer = LayerOf(picked.first());
    const CString name = LayerName(layer);
    const bool isSet = db.GetAcDb()->setClayer(layer) == Acad::eOk;
    MsgCmdInfo(isSet ? L"\n 当前图层：%s。" : L"\n 图层 %s 已冻结，不能置为当前图层。", name.GetString());
}

}   // namespace KxArxModules
