// The states of all layers, saved in a LISP variable of the document and put back later.
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/ResBufChain.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;
using KxArxBase::ResBufChain;

namespace {

// A list of layer names, each followed by 1 or 0 for off, frozen and locked.
const wchar_t* const g_variable = L"LayerSta";

bool BuildSnapshot(CKxAcDb& db, const CStringArray& names, ResBufChain& list)
{
    if (!list.Append(acutBuildList(RTLB, 0)))
        return false;
    for (INT_PTR i = 0; i < names.GetSize(); ++i) {
        const CString& name = names.GetAt(i);
        bool off = false, frozen = false, locked = false;
        if (db.GetLayerStatus(name, off, &frozen, &locked, L';') != Acad::eOk)
            continue;
        if (!list.Append(acutBuildList(RTSTR, name.GetString(), RTSHORT, int(off), RTSHORT, int(frozen), RTSHORT,
                                       int(locked), 0)))
            return false;
    }
    return list.Append(acutBuildList(RTLE, 0));
}

// Takes up to three flags after a name; what is no flag stays where it is and leaves the flag as it was.
const resbuf* ReadFlags(const resbuf* item, bool (&flags)[3])
{
    for (bool& flag : flags) {
        if (item == nullptr || item->restype != RTSHORT)
            continue;
        flag = item->resval.rint != 0;
        item = item->rbnext;
    }
    return item;
}

void ApplySnapshot(CKxAcDb& db, const resbuf* item)
{
    bool flags[3] = {};   // off, frozen, locked; what a layer does not give is that of the layer before
    while (item != nullptr && item->restype != RTLE) {
        if (item->restype != RTSTR) {
            // Nobody steps over an element that is no name: only the user can end this.
            if (acedUsrBrk() != 0)
                return;
            continue;
        }
        const wchar_t* name = item->resval.rstring;
        item = ReadFlags(item->rbnext, flags);
        db.SetLayerStatus(name, flags[0], &flags[1], &flags[2], L';');
    }
}

}   // namespace

void KxCadBaseModule::CmdSaveLayerStatus()
{
    CKxAcDb db;
    CStringArray names;
    if (db.GetRecsName(AcDbLayerTableRecord::desc(), names) != Acad::eOk) {
        // The user reads the status of a second attempt, as with every failing first step.
        KxArxBase::MessageError(db.GetRecsName(AcDbLayerTableRecord::desc(), names), 1, 0, L"Error: ");
        return;
    }
    ResBufChain list;
    if (!BuildSnapshot(db, names, list))
        return;
    const bool stored = acedPutSym(g_variable, list.get()) == RTNORM;
    MsgCmdInfo(stored ? L"\n 图层状态已保存。" : L"\n 图层状态保存失败！");
}

void KxCadBaseModule::CmdRecoverLayerStatus()
{
    resbuf* list = nullptr;
    const int answer = acedGetSym(g_variable, &list);
    const ResBufChain owner(list);
    if (answer != RTNORM || list == nullptr || list->restype == RTNIL) {
        MsgCmdInfo(L"\n 未保存图层状态，恢复图层状态失败！");
        return;
    }
    CKxAcDb db;
    {
        const DocumentLock lock(db);
        ApplySnapshot(db, list->rbnext);
    }
    acedCommand(RTSTR, L"REGEN", 0);
}

}   // namespace KxArxModules
