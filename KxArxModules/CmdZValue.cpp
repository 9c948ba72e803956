// Objects laid into the plane z = 0.
#include "KxArxBase/DbZValue.h"
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxMessages.h"
#include "KxCadBaseModule.h"
#include "WorkMeter.h"

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;

void KxCadBaseModule::CmdZValueToZero()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray ids;
    const int answer = KxArxBase::Gi::PickEntity(L"\n 选择要将Z值归零的实体<所有实体>：", ids, -1, nullptr, 0);
    if (answer == RTNONE) {
        if (db.BlockTableGetEntityIds(ids) != Acad::eOk)
            return;
    } else if (answer != RTNORM) {
        return;
    }
    int laid = 0, refused = 0;
    {
        WorkMeter meter(L"ZValueToZero", ids.length());
        for (const AcDbObjectId& id : ids) {
            meter.Step();
            bool changed = false;
            if (KxArxBase::Db::SetZValueToZero(id, changed) != Acad::eOk)
                ++refused;
            laid += changed ? 1 : 0;
        }
    }
    MsgCmdInfo(L"\n %d 个对象的Z值已归零。", laid);
    if (refused > 0)
        MsgCmdInfo(L"\n %d 个对象不能归零。", refused);
}

}   // namespace KxArxModules
