// Objects made into a group, named or without a name.
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/Opened.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;
using KxArxBase::Opened;

namespace {

const wchar_t* const g_forbidden = L"<>/\\\":;?*|,=`";
const int g_longestName = 255;

bool HasGroup(CKxAcDb& db, const wchar_t* name)
{
    AcDbDictionary* opened = nullptr;
    const Acad::ErrorStatus es = db.GetAcDb()->getGroupDictionary(opened, AcDb::kForRead);
    const Opened<AcDbDictionary> groups(opened, es);
    return groups && groups->has(name);
}

// As the host counts its unnamed groups.
CString FreeUnnamedName(CKxAcDb& db)
{
    CString name;
    int number = 0;
    do
        name.Format(L"*A%d", ++number);
    while (HasGroup(db, name));
    return name;
}

bool IsUsable(CKxAcDb& db, const CString& name)
{
    if (name.FindOneOf(g_forbidden) >= 0 || name.GetLength() > g_longestName)
        MsgCmdInfo(L"\n 编组名 %s 无效。", name.GetString());
    else if (HasGroup(db, name))
        MsgCmdInfo(L"\n 编组 %s 已存在。", name.GetString());
    else
        return true;
    return false;
}

// False when the user gives up; an empty name stands for a group without one.
bool AskName(CKxAcDb& db, CString& name)
{
    for (;;) {
        wchar_t answer[MAX_PATH * 2] = {};
        const int result = acedGetString(1, L"\n 输入编组名<未命名>：", answer);
        if (result != RTNORM && result != RTNONE)
            return false;
        name = answer;
        name.Trim();
        if (name.IsEmpty() || IsUsable(db, name))
            return true;
    }
}

}   // namespace

void KxCadBaseModule::CmdMakeGroup()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    CString name;
    if (KxArxBase::Gi::PickEntity(L"\n 选择要编组的实体：", picked, -1, nullptr, 0) != RTNORM || !AskName(db, name))
        return;
    const bool isUnnamed = name.IsEmpty();
    if (isUnnamed)
        name = FreeUnnamedName(db);
    AcDbObjectId id;
    if (db.Group(name, picked, &id) != Acad::eOk) {
        MsgCmdInfo(L"\n 编组失败！");
        return;
    }
    if (isUnnamed) {
        const Opened<AcDbGroup> group(id, AcDb::kForWrite);
        if (group)
            group->setAnonymous();
    }
    MsgCmdInfo(L"\n 编组 %s：%d 个对象。", name.GetString(), picked.length());
}

}   // namespace KxArxModules
