// Lists of the layers that are off, frozen or locked, and the walk through all layers.
#include "DlgOperLayers.h"
#include "KxArxBase/DocumentLock.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

namespace {

void OperateLayers(CDlgOperLayers::Mode mode)
{
    KxArxBase::CKxAcDb db;
    const KxArxBase::DocumentLock lock(db);
    acDocManager->pushResourceHandle(ModuleResources());
    CDlgOperLayers dialog(mode);
    dialog.DoModal();
    acDocManager->popResourceHandle();
    if (dialog.HasChanged())
        acedCommand(RTSTR, L"REGEN", RTNONE);
}

}   // namespace

void KxCadBaseModule::CmdKxListCloseLayer()
{
    OperateLayers(CDlgOperLayers::kOff);
}

void KxCadBaseModule::CmdKxListForzenLayer()
{
    OperateLayers(CDlgOperLayers::kFrozen);
}

void KxCadBaseModule::CmdKxListLockLayer()
{
    OperateLayers(CDlgOperLayers::kLocked);
}

void KxCadBaseModule::CmdKxLayerWalk()
{
    OperateLayers(CDlgOperLayers::kWalk);
}

}   // namespace KxArxModules
