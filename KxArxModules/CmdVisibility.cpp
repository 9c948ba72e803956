// Objects hidden and shown again, and all but the picked ones deleted. The last hiding is recorded in a LISP variable
// of the document: a list of the set of hidden objects and a flag, 0 while they are hidden.
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/ResBufChain.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::ResBufChain;
namespace Gi = KxArxBase::Gi;

namespace {

const wchar_t* const g_variable = L"HideObjectReverse";

void Show(CKxAcDb& db, const AcDbObjectIdArray& ids, bool visible)
{
    db.SetEntitysProperty(ids, nullptr, nullptr, nullptr, &visible);
}

void ShowAll(CKxAcDb& db)
{
    AcDbObjectIdArray ids;
    if (db.BlockTableGetEntityIds(ids) == Acad::eOk)
        Show(db, ids, true);
}

void Hide(CKxAcDb& db, const AcDbObjectIdArray& ids)
{
    Show(db, ids, false);
    ads_name set;
    if (Gi::GetAdsNameWithObjectIds(ids, set) != Acad::eOk)
        return;
    {
        const ResBufChain list(acutBuildList(RTLB, RTPICKS, set, RTSHORT, 0, RTLE, 0));
        acedPutSym(g_variable, list.get());
    }
    acedSSFree(set);
}

enum class Target { Picked, Others };

void PickAndHide(Target target, const wchar_t* prompt)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    const int answer = Gi::PickEntity(prompt, picked);
    if (answer == RTNONE)
        return ShowAll(db);
    if (answer != RTNORM)
        return;
    if (target == Target::Picked)
        return Hide(db, picked);
    AcDbObjectIdArray others;
    if (db.GetDifferenceSetIds(picked, others, nullptr, false, true, false, nullptr) == Acad::eOk)
        Hide(db, others);
}

bool IsConfirmed(int count)
{
    CString question;
    question.Format(L"是否要删除%d个未选择对象", count);
    return AfxMessageBox(question, MB_YESNO) == IDYES;
}

void DeleteOthers(const wchar_t* prompt, bool asks)
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked, others;
    if (Gi::PickEntity(prompt, picked) != RTNORM ||
        db.GetDifferenceSetIds(picked, others, nullptr, false, false, false, nullptr) != Acad::eOk)
        return;
    if (!asks || IsConfirmed(others.length()))
        db.EraseObjects(others, 0);
}

// Sets each recorded set of objects to what its flag asks for, and flips the flag.
void ReverseRecord(CKxAcDb& db, resbuf* item)
{
    for (; item != nullptr && item->restype != RTLE; item = item->rbnext) {
        AcDbObjectIdArray ids;
        if (item->restype != RTPICKS || Gi::GetObjectIdsWithAdsName(item->resval.rlname, ids) != Acad::eOk)
            continue;
        resbuf* flag = item->rbnext;
        if (flag == nullptr || flag->restype != RTSHORT)
            continue;
        Show(db, ids, flag->resval.rint == 0);
        flag->resval.rint = flag->resval.rint == 0 ? 1 : 0;
    }
}

}   // namespace

void KxCadBaseModule::CmdHidePickObject()
{
    PickAndHide(Target::Picked, L"\n 选择要隐藏的实体<显示所有实体>：");
}

void KxCadBaseModule::CmdHideNoPickObject()
{
    PickAndHide(Target::Others, L"\n 选择不隐藏的实体<显示所有实体>：");
}

void KxCadBaseModule::CmdDeleteNoPickObjectInCurSpace()
{
    DeleteOthers(L"\n 请选择保留实体(未选择实体将全部删除！): ", false);
}

// Its prompt has no final blank, unlike that of its sister.
void KxCadBaseModule::CmdDeleteNoPickObjectInCurSpaceSure()
{
    DeleteOthers(L"\n 请选择保留实体(未选择实体将全部删除！):", true);
}

void KxCadBaseModule::CmdShowAllObject()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    ShowAll(db);
}

void KxCadBaseModule::CmdShowAllObjectAndLayer()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    bool off = false;
    db.SetAlllayersStatus(&off, nullptr, nullptr);
    ShowAll(db);
}

void KxCadBaseModule::CmdReversePickObject()
{
    resbuf* list = nullptr;
    const int answer = acedGetSym(g_variable, &list);
    const ResBufChain owner(list);
    if (answer != RTNORM || list == nullptr)
        return;
    CKxAcDb db;
    const DocumentLock lock(db);
    ReverseRecord(db, list->rbnext);
    acedPutSym(g_variable, list);
}

}   // namespace KxArxModules
