#include "KxCadBaseModule.h"

namespace KxArxModules {

namespace {

const int kModal = ACRX_CMD_MODAL;
const int kTransparent = ACRX_CMD_TRANSPARENT;
const int kUsesPickSet = ACRX_CMD_USEPICKSET;

struct CommandRow {
    const wchar_t* globalName;
    const wchar_t* localName;
    void (*handler)();
    int flags;
};

using M = KxCadBaseModule;

// Users type these names and scripts call them: a spelling once given stays.
const CommandRow g_commands[] = {
    {L"KxCadBaseTest", L"KxCadBaseTest", M::CmdTestKxCadBase, kModal},
    {L"CleanBlock", L"QLK", M::CmdCleanBlock, kModal},
    {L"CleanDimStyle", L"QLCCYS", M::CmdCleanDimStyle, kModal},
    {L"CleanLineStyle", L"QLXX", M::CmdCleanLineStyle, kModal},
    {L"CleanPrintStyle", L"QLDYYS", M::CmdCleanPrintStyle, kModal},
    {L"CleanShape", L"QLX", M::CmdCleanShape, kModal},
    {L"CleanTextStyle", L"QLWZYS", M::CmdCleanTextStyle, kModal},
    {L"CleanMlineStyle", L"QLDXYS", M::CmdCleanMlineStyle, kModal},
    {L"CleanDatabase", L"QLSJK", M::CmdCleanDatabase, kModal},
    {L"CleanLayer", L"QLTC", M::CmdCleanLayer, kModal},
    {L"KxInFile", L"CWJ", M::CmdInsertFile, kTransparent},
    {L"DeleteNoPickObjectInCurSpaceSure", L"DelNPickObjSure", M::CmdDeleteNoPickObjectInCurSpaceSure, kUsesPickSet},
    {L"DeleteNoPickObjectInCurSpace", L"SWXDX", M::CmdDeleteNoPickObjectInCurSpace, kUsesPickSet},
    {L"HidePickObject", L"XDXYC", M::CmdHidePickObject, kUsesPickSet},
    {L"HideNoPickObject", L"WXDXYC", M::CmdHideNoPickObject, kUsesPickSet},
    {L"ShowAllObject", L"DXXSQB", M::CmdShowAllObject, kModal},
    {L"ReversePickObject", L"DXQF", M::CmdReversePickObject, kModal},
    {L"HidePickObjectLayer", L"XCYC", M::CmdHidePickObjectLayer, kUsesPickSet},
    {L"HideNoPickObjectLayer", L"WXCYS", M::CmdHideNoPickObjectLayer, kUsesPickSet},
    {L"ShowAllLayer", L"TCXSQB", M::CmdShowAllLayer, kModal},
    {L"ReverseHidePickLayer", L"TCXSQF", M::CmdReverseHidePickLayer, kModal},
    {L"ShowAllObjectAndLayer", L"XSQB", M::CmdShowAllObjectAndLayer, kModal},
    {L"FrozenPickObjectLayer", L"XCDJ", M::CmdFrozenPickObjectLayer, kUsesPickSet},
    {L"FrozenNoPickObjectLayer", L"WXCDJ", M::CmdFrozenNoPickObjectLayer, kUsesPickSet},
    {L"UnFrozenAllLayer", L"TCJDQB", M::CmdUnFrozenAllLayer, kModal},
    {L"ReverseFrozenPickLayer", L"TCDJQF", M::CmdReverseFrozenPickLayer, kModal},
    {L"LockPickLayer", L"XCSD", M::CmdLockPickLayer, kUsesPickSet},
    {L"LockNoPickLayer", L"WXCSD", M::CmdLockNoPickLayer, kUsesPickSet},
    {L"UnLockPickLayer", L"JSCSD", M::CmdUnLockPickLayer, kUsesPickSet},
    {L"UnLockAllLayer", L"TCJSQB", M::CmdUnLockAllLayer, kModal},
    {L"ReverseLockPickLayer", L"TCSDQF", M::CmdReverseLockPickLayer, kModal},
    {L"ChangePickObjectLayer", L"MBGC", M::CmdChangePickObjectLayer, kUsesPickSet},
    {L"SaveLayerStatus", L"BCTCZT", M::CmdSaveLayerStatus, kModal},
    {L"RecoverLayerStatus", L"HFTCZT", M::CmdRecoverLayerStatus, kModal},
    {L"KxListCloseLayer", L"KXKGBTC", M::CmdKxListCloseLayer, kModal},
    {L"KxListForzenLayer", L"KXKDJTC", M::CmdKxListForzenLayer, kModal},
    {L"KxListLockLayer", L"KXKSDTC", M::CmdKxListLockLayer, kModal},
    {L"KxLayerWalk", L"KXTCLL", M::CmdKxLayerWalk, kModal},
    {L"KxSetCurLayer", L"KXDQTC", M::CmdKxSetCurLayer, kUsesPickSet},
    {L"KxObjectChangeToCurLayer", L"KXMBDQTC", M::CmdKxObjectChangeToCurLayer, kUsesPickSet},
    {L"KxCombineLayer", L"KXTCHB", M::CmdKxCombineLayer, kModal},
    {L"KxAddToolTipToObject", L"KXTSWZ", M::CmdAddToolTipToObject, kUsesPickSet},
    {L"KxRemoveToolTipToObject", L"KXRMTSWZ", M::CmdRemoveToolTipToObject, kUsesPickSet},
    {L"KxPickObjectDeleteLayerObjects", L"KXSTCST", M::CmdPickObjectDeleteLayerObjects, kUsesPickSet},
    {L"KxDlgAbout", L"KXGY", M::CmdDlgAbout, kModal},
    {L"MakeGroup", L"KXBZ", M::CmdMakeGroup, kModal},
    {L"ZValueToZero", L"KXZZGL", M::CmdZValueToZero, kModal},
    {L"SetLayerToFront", L"KXTCQZ", M::CmdSetLayerToFront, kModal},
    {L"SetlayerToBack", L"KXTCHZ", M::CmdSetlayerToBack, kModal},
    {L"KxAlignText", L"KXWZDQ", M::CmdKxAlignText, kModal},
    {L"LoadProFromIni", L"KXLDP", M::CmdLoadProFromIni, kModal},
    {L"UnLoadProFromIni", L"KXULDP", M::CmdUnLoadProFromIni, kModal},
};

}   // namespace

void KxCadBaseModule::RegisterCommands()
{
    for (const CommandRow& row : g_commands)
        RegCmd(nullptr, row.globalName, row.localName, row.handler, row.flags);
}

}   // namespace KxArxModules
