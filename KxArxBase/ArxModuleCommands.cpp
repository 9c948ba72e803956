// Commands that a module has on the host's command stack.
#include "ArxModuleRegManage.h"
#include "KxMessages.h"

namespace KxArxBase {

bool CArxModuleRegManage::IsGroupRecorded(const CString& group) const
{
    for (INT_PTR i = 0; i < m_groups.GetSize(); ++i) {
        if (m_groups.GetAt(i) == group)
            return true;
    }
    return false;
}

Acad::ErrorStatus CArxModuleRegManage::RegCmd(const wchar_t* group, const wchar_t* globalName, const wchar_t* localName,
                                              void (*func)(), long flags)
{
    if (GetInstance() == nullptr)
        return AsStatus(KxAcad::eNoModule);
    const CString groupName = group != nullptr ? CString(group) : GetModuleName();
    const Acad::ErrorStatus es = Reported([&] {
        return acedRegCmds->addCommand(groupName, globalName, localName, Adesk::Int32(flags), func, nullptr, -1,
                                       nullptr, nullptr);
    });
    if (es == Acad::eOk && !IsGroupRecorded(groupName))
        m_groups.Add(groupName);
    return es;
}

Acad::ErrorStatus CArxModuleRegManage::RegCmd(tagAutoCadCmd* const cmds, int count, const wchar_t* group)
{
    for (int i = 0; i < count; ++i)
        RegCmd(group, cmds[i].globalName, cmds[i].localName, cmds[i].function, cmds[i].flags);
    return Acad::eOk;
}

int CArxModuleRegManage::RemoveCmd(const wchar_t* group)
{
    if (group == nullptr)
        return RemoveAllGroups();
    if (acedRegCmds->removeGroup(group) != Acad::eOk)
        return 0;
    for (INT_PTR i = m_groups.GetSize() - 1; i >= 0; --i) {
        if (m_groups.GetAt(i).CompareNoCase(group) == 0)
            m_groups.RemoveAt(i);
    }
    return 1;
}

int CArxModuleRegManage::RemoveAllGroups()
{
    CStringArray kept;
    int removed = 0;
    for (INT_PTR i = 0; i < m_groups.GetSize(); ++i) {
        if (acedRegCmds->removeGroup(m_groups.GetAt(i)) == Acad::eOk)
            ++removed;
        else
            kept.Add(m_groups.GetAt(i));
    }
    m_groups.Copy(kept);
    return removed;
}

}   // namespace KxArxBase
