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

enum class Target {
    Picked,            // the layers of the picked objects
    Others,            // all others that are on and thawed
    OthersAfterReset   // the same, once every layer has lost the state; locked ones are left out
};

enum class Regen { Never, OnEnter, Always };

struct PickCommand {
    const wchar_t* prompt;
    const wchar_t* record;   // LISP variable of the reversal record; null: none is kept
    LayerState state;
    bool value;   // what the picked layers get
    Target target;
    bool hasDefault;   // Enter takes the state away from all layers
    Regen regen;
};

const PickCommand g_hidePicked = {L"\n 选择要关闭图层上的实体<显示所有图层>：",
                                  L"HideReverse",
                                  LayerState::Off,
                                  true,
                                  Target::Picked,
                                  true,
                                  Regen::Never};
const PickCommand g_hideOthers = {L"\n 选择要保留显示图层上的实体<显示所有图层>：",
                                  L"HideReverse",
                                  LayerState::Off,
                                  true,
                                  Target::Others,
                                  true,
                                  Regen::Never};
const PickCommand g_freezePicked = {L"\n 选择要冻结图层上的实体<解冻所有图层>：",
                                    L"FrozenReverse",
                                    LayerState::Frozen,
                                    true,
                                    Target::Picked,
                                    true,
                                    Regen::OnEnter};
const PickCommand g_freezeOthers = {L"\n 选择要保留解冻图层上的实体<解冻所有图层>：",
                                    L"FrozenReverse",
                                    LayerState::Frozen,
                                    true,
                                    Target::Others,
                                    true,
                                    Regen::OnEnter};
const PickCommand g_lockPicked = {L"\n 选择要锁定图层上的实体<解锁所有图层>：",
                                  L"LockReverse",
                                  LayerState::Locked,
                                  true,
                                  Target::Picked,
                                  true,
                                  Regen::Always};
const PickCommand g_lockOthers = {L"\n 选择要保留解锁图层上的实体<解锁所有图层>：",
                                  L"LockReverse",
                                  LayerState::Locked,
                                  true,
                                  Target::OthersAfterReset,
                                  true,
                                  Regen::Always};
const PickCommand g_unlockPicked = {
    L"\n 选择要解锁图层上的实体：", nullptr, LayerState::Locked, false, Target::Picked, false, Regen::Always};

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
    if (target == Target::Picked)
        return db.GetEntityLayers(picked, names);
    return KxCadBaseModule::GetNoSelectLayers(picked, names, 0, 0, target == Target::Others ? 1 : 0);
}

// Sets the layers one by one and tells them in `record`; false when the record cannot be built.
bool SetAndRecord(CKxAcDb& db, const PickCommand& command, const CStringArray& names, ResBufChain& record)
{
    if (!record.Append(acutBuildList(RTLB, 0)))
        return false;
    for (INT_PTR i = 0; i < names.GetSize(); ++i) {
        const CString name = names.GetAt(i);
        SetState(db, name, command.state, command.value);
        if (!record.Append(acutBuildList(RTSTR, name.GetString(), RTSHORT, 1, 0)))
            return false;
    }
    return record.Append(acutBuildList(RTLE, 0));
}

void TakeDefault(CKxAcDb& db, const PickCommand& command)
{
    if (!command.hasDefault)
        return;
    ResetAll(db, command.state);
    if (command.regen != Regen::Never)
        Regenerate();
}

void Run(const PickCommand& command)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    const int answer = KxArxBase::Gi::PickEntity(command.prompt, picked);
    if (answer == RTNONE)
        return TakeDefault(db, command);
    if (answer != RTNORM)
        return;
    if (command.target == Target::OthersAfterReset)
        ResetAll(db, command.state);
    CStringArray names;
    if (LayersToSet(db, command.target, picked, names) != Acad::eOk)
        return;
    ResBufChain record;
    if (!SetAndRecord(db, command, names, record))
        return;
    if (command.record != nullptr)
        acedPutSym(command.record, record.get());
    if (command.regen == Regen::Always)
        Regenerate();
}

void ShowAll(LayerState state, bool regen)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    ResetAll(db, state);
    if (regen)
        Regenerate();
}

void Reverse(const wchar_t* record, LayerState state)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    resbuf* list = nullptr;
    acedGetSym(record, &list);
    const ResBufChain owner(list);
    KxCadBaseModule::LayerReverse(list, state == LayerState::Off, state == LayerState::Frozen,
                                  state == LayerState::Locked);
    acedPutSym(record, list);
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
        const CString name = all.GetAt(i);
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
    Run(g_hidePicked);
}

void KxCadBaseModule::CmdHideNoPickObjectLayer()
{
    Run(g_hideOthers);
}

void KxCadBaseModule::CmdFrozenPickObjectLayer()
{
    Run(g_freezePicked);
}

void KxCadBaseModule::CmdFrozenNoPickObjectLayer()
{
    Run(g_freezeOthers);
}

void KxCadBaseModule::CmdLockPickLayer()
{
    Run(g_lockPicked);
}

void KxCadBaseModule::CmdLockNoPickLayer()
{
    Run(g_lockOthers);
}

void KxCadBaseModule::CmdUnLockPickLayer()
{
    Run(g_unlockPicked);
}

void KxCadBaseModule::CmdShowAllLayer()
{
    ShowAll(LayerState::Off, false);
}

void KxCadBaseModule::CmdUnFrozenAllLayer()
{
    ShowAll(LayerState::Frozen, true);
}

void KxCadBaseModule::CmdUnLockAllLayer()
{
    ShowAll(LayerState::Locked, true);
}

void KxCadBaseModule::CmdReverseHidePickLayer()
{
    Reverse(L"HideReverse", LayerState::Off);
}

void KxCadBaseModule::CmdReverseFrozenPickLayer()
{
    Reverse(L"FrozenReverse", LayerState::Frozen);
}

void KxCadBaseModule::CmdReverseLockPickLayer()
{
    Reverse(L"LockReverse", LayerState::Locked);
}

}   // namespace KxArxModules
