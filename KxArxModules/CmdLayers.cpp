// Layers off, frozen and locked by picking objects on them; all back again; and the last such action reversed.
// A picking command leaves a record in a LISP variable of the document: a list of layer names, each followed by its
// flag.
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/ResBufChain.h"
#include "KxCadBaseModule.h"
#include <string>
#include <unordered_set>

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::ResBufChain;

namespace {

enum class LayerState { Off, Frozen, Locked };

// When a command that sets or takes away a state regenerates the drawing.
enum class Regen { Never, OnReset, Always };

struct LayerKind {
    LayerState state;
    const wchar_t* record;   // LISP variable of the reversal record
    Regen regen;
};

const LayerKind g_hide = {LayerState::Off, L"HideReverse", Regen::Never};
const LayerKind g_freeze = {LayerState::Frozen, L"FrozenReverse", Regen::OnReset};
const LayerKind g_lock = {LayerState::Locked, L"LockReverse", Regen::Always};

enum class Target {
    Picked,             // sets the state on the layers of the picked objects
    Others,             // sets it on all others that are on and thawed
    OthersAfterReset,   // the same, once every layer has lost the state; locked ones are left out
    Release             // takes it away from the layers of the picked objects: no default, no record
};

void Regenerate()
{
    acedCommand(RTSTR, L"REGEN", RTNONE);
}

// Freezing and locking switch the layer on as well.
Acad::ErrorStatus SetState(CKxAcDb& db, const wchar_t* layer, LayerState state, bool value)
{
    switch (state) {
    case LayerState::Frozen:
        return db.SetLayerStatus(layer, false, &value, nullptr, L';');
    case LayerState::Locked:
        return db.SetLayerStatus(layer, false, nullptr, &value, L';');
    default:
        return db.SetLayerStatus(layer, value, nullptr, nullptr, L';');
    }
}

void ResetAll(CKxAcDb& db, LayerState state)
{
    bool value = false;
    db.SetAlllayersStatus(state == LayerState::Off ? &value : nullptr, state == LayerState::Frozen ? &value : nullptr,
                          state == LayerState::Locked ? &value : nullptr);
}

Acad::ErrorStatus LayersToSet(CKxAcDb& db, Target target, const AcDbObjectIdArray& picked, CStringArray& names)
{
    if (target == Target::Picked || target == Target::Release)
        return db.GetEntityLayers(picked, names);
    return KxCadBaseModule::GetNoSelectLayers(picked, names, 0, 0, target == Target::Others ? 1 : 0);
}

// Sets the layers one by one and tells them in `record`; false when the record cannot be built.
bool SetAndRecord(CKxAcDb& db, LayerState state, bool value, const CStringArray& names, ResBufChain& record)
{
    if (!record.Append(acutBuildList(RTLB, 0)))
        return false;
    for (INT_PTR i = 0; i < names.GetSize(); ++i) {
        const CString& name = names.GetAt(i);
        SetState(db, name, state, value);
        if (!record.Append(acutBuildList(RTSTR, name.GetString(), RTSHORT, 1, 0)))
            return false;
    }
    return record.Append(acutBuildList(RTLE, 0));
}

void TakeAway(CKxAcDb& db, const LayerKind& kind)
{
    ResetAll(db, kind.state);
    if (kind.regen != Regen::Never)
        Regenerate();
}

void Pick(const LayerKind& kind, Target target, const wchar_t* prompt)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    const int answer = KxArxBase::Gi::PickEntity(prompt, picked);
    if (answer == RTNONE && target != Target::Release)
        return TakeAway(db, kind);
    if (answer != RTNORM)
        return;
    if (target == Target::OthersAfterReset)
        ResetAll(db, kind.state);
    CStringArray names;
    if (LayersToSet(db, target, picked, names) != Acad::eOk)
        return;
    ResBufChain record;
    if (!SetAndRecord(db, kind.state, target != Target::Release, names, record))
        return;
    if (target != Target::Release)
        acedPutSym(kind.record, record.get());
    if (kind.regen == Regen::Always)
        Regenerate();
}

void ShowAll(const LayerKind& kind)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    TakeAway(db, kind);
}

void Reverse(const LayerKind& kind)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    resbuf* list = nullptr;
    acedGetSym(kind.record, &list);
    const ResBufChain owner(list);
    KxCadBaseModule::LayerReverse(list, kind.state == LayerState::Off, kind.state == LayerState::Frozen,
                                  kind.state == LayerState::Locked);
    acedPutSym(kind.record, list);
    Regenerate();
}

}   // namespace

Acad::ErrorStatus KxCadBaseModule::LayerReverse(resbuf*& list, int bOff, int bFrozen, int bLocked)
{
    if (list == nullptr)
        return Acad::eNullPtr;
    CKxAcDb db;
    Acad::ErrorStatus es = Acad::eOk;
    resbuf* item = list->rbnext;
    while (item != nullptr && item->restype != RTLE) {
        if (item->restype != RTSTR)
            return Acad::eWrongObjectType;
        const wchar_t* name = item->resval.rstring;
        item = item->rbnext;
        if (item == nullptr || item->restype != RTSHORT)
            return Acad::eWrongObjectType;
        item->resval.rint = item->resval.rint == 0 ? 1 : 0;
        const bool flag = item->resval.rint != 0;
        if (bOff != 0)
            es = SetState(db, name, LayerState::Off, flag);
        if (bFrozen != 0)
            es = SetState(db, name, LayerState::Frozen, flag);
        if (bLocked != 0)
            es = SetState(db, name, LayerState::Locked, flag);
        item = item->rbnext;
    }
    return es;
}

Acad::ErrorStatus KxCadBaseModule::GetNoSelectLayers(const AcArray<AcDbObjectId>& picked, CStringArray& names,
                                                     int bWithOff, int bWithFrozen, int bWithLocked)
{
    names.RemoveAll();
    CKxAcDb db;
    CStringArray pickedNames;
    const Acad::ErrorStatus es = db.GetEntityLayers(picked, pickedNames);
    std::unordered_set<std::wstring> excluded;
    for (INT_PTR i = 0; i < pickedNames.GetSize(); ++i)
        excluded.insert(pickedNames.GetAt(i).GetString());
    CStringArray all;
    if (db.GetRecsName(AcDbLayerTableRecord::desc(), all) != Acad::eOk)
        return es;
    for (INT_PTR i = 0; i < all.GetSize(); ++i) {
        const CString& name = all.GetAt(i);
        bool off = false, frozen = false, locked = false;
        if (excluded.count(name.GetString()) != 0 || db.GetLayerStatus(name, off, &frozen, &locked, L';') != Acad::eOk)
            continue;
        if ((!off || bWithOff != 0) && (!frozen || bWithFrozen != 0) && (!locked || bWithLocked != 0))
            names.Add(name);
    }
    return es;
}

void KxCadBaseModule::CmdHidePickObjectLayer()
{
    Pick(g_hide, Target::Picked, L"\n 选择要关闭图层上的实体<显示所有图层>：");
}

void KxCadBaseModule::CmdHideNoPickObjectLayer()
{
    Pick(g_hide, Target::Others, L"\n 选择要保留显示图层上的实体<显示所有图层>：");
}

void KxCadBaseModule::CmdFrozenPickObjectLayer()
{
    Pick(g_freeze, Target::Picked, L"\n 选择要冻结图层上的实体<解冻所有图层>：");
}

void KxCadBaseModule::CmdFrozenNoPickObjectLayer()
{
    Pick(g_freeze, Target::Others, L"\n 选择要保留解冻图层上的实体<解冻所有图层>：");
}

void KxCadBaseModule::CmdLockPickLayer()
{
    Pick(g_lock, Target::Picked, L"\n 选择要锁定图层上的实体<解锁所有图层>：");
}

void KxCadBaseModule::CmdLockNoPickLayer()
{
    Pick(g_lock, Target::OthersAfterReset, L"\n 选择要保留解锁图层上的实体<解锁所有图层>：");
}

void KxCadBaseModule::CmdUnLockPickLayer()
{
    Pick(g_lock, Target::Release, L"\n 选择要解锁图层上的实体：");
}

void KxCadBaseModule::CmdShowAllLayer()
{
    ShowAll(g_hide);
}

void KxCadBaseModule::CmdUnFrozenAllLayer()
{
    ShowAll(g_freeze);
}

void KxCadBaseModule::CmdUnLockAllLayer()
{
    ShowAll(g_lock);
}

void KxCadBaseModule::CmdReverseHidePickLayer()
{
    Reverse(g_hide);
}

void KxCadBaseModule::CmdReverseFrozenPickLayer()
{
    Reverse(g_freeze);
}

void KxCadBaseModule::CmdReverseLockPickLayer()
{
    Reverse(g_lock);
}

}   // namespace KxArxModules
