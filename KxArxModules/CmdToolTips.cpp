// Tooltip texts of objects: attached and removed.
#include "KxArxBase/GiPick.h"
#include "KxArxBase/GiToolTip.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

void KxCadBaseModule::CmdAddToolTipToObject()
{
    AcDbObjectIdArray picked;
    if (KxArxBase::Gi::PickEntity(L"\n 选择加入提示文字对象 ：", picked, 1) != RTNORM)
        return;
    wchar_t text[5000] = {};
    if (acedGetString(1, L"\n 输入提示文字：", text) == RTNORM)
        KxArxBase::Gi::AddToolTipDataToObject(picked, text);
}

void KxCadBaseModule::CmdRemoveToolTipToObject()
{
    AcDbObjectIdArray picked;
    if (KxArxBase::Gi::PickEntity(L"\n 选择删除提示文字对象 ：", picked, 1) == RTNORM)
        KxArxBase::Gi::RemoveToolTipData(picked);
}

}   // namespace KxArxModules
