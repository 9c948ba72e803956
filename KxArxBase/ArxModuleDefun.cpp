// LISP functions that a module defines in each document.
#include "ArxModuleRegManage.h"
#include <algorithm>
#include <cwchar>

namespace KxArxBase {

CArxModuleRegManage::tagDefun& CArxModuleRegManage::tagDefun::operator=(const tagDefun& other)
{
    if (this != &other) {
        const size_t most = sizeof(name) / sizeof(name[0]) - 1;
        const size_t length = size_t(std::find(other.name, other.name + most, L'\0') - other.name);
        std::copy_n(other.name, length, name);
        name[length] = L'\0';
        function = other.function;
        code = other.code;
    }
    return *this;
}

bool CArxModuleRegManage::tagDefun::operator==(const tagDefun& other) const
{
    return function == other.function && code == other.code && std::wcscmp(name, other.name) == 0;
}

int CArxModuleRegManage::Defun(tagDefun def, int bDefine)
{
    return bDefine != 0 ? acedDefun(def.name, short(def.code)) : acedUndef(def.name, short(def.code));
}

Acad::ErrorStatus CArxModuleRegManage::Defun(tagDefun* const defs, int count)
{
    if (defs == nullptr)
        return Acad::eNullHandle;
    for (int i = 0; i < count; ++i) {
        if (Defun(defs[i], TRUE) == RTNORM)
            RecordDefun(defs[i]);
    }
    return Acad::eOk;
}

void CArxModuleRegManage::RecordDefun(const tagDefun& def)
{
    const int kMostPerStep = 455;   // 65,536 bytes of records with two-byte characters
    const int count = m_defuns.length();
    if (count == m_defuns.physicalLength())
        m_defuns.setPhysicalLength(count + std::max(m_defuns.growLength(), std::min(count, kMostPerStep)));
    m_defuns.append(def);
}

int CArxModuleRegManage::FindDefun(const tagDefun& def) const
{
    return m_defuns.find(def);
}

Acad::ErrorStatus CArxModuleRegManage::Undefine(tagDefun* const defs, int count)
{
    if (defs != nullptr && count >= 1) {
        for (int i = 0; i < count; ++i) {
            if (Defun(defs[i], FALSE) != RTNORM)
                continue;
            const int at = FindDefun(defs[i]);
            if (at >= 0)
                m_defuns.removeAt(at);
        }
        return Acad::eOk;
    }
    // The index moves on even when an entry has left its place, so every second entry stays defined; a further
    // call takes the rest.
    for (int i = 0; i < m_defuns.length(); ++i) {
        if (Defun(m_defuns[i], FALSE) == RTNORM)
            m_defuns.removeAt(i);
    }
    return Acad::eOk;
}

int CArxModuleRegManage::DoDefun(int funcCode, resbuf* args)
{
    if (funcCode < 0)
        funcCode = acedGetFunCode();
    if (funcCode < 0)
        return RTERROR;
    resbuf* fetched = nullptr;
    if (args == nullptr)
        args = fetched = acedGetArgs();
    int result = RTNORM;
    for (const tagDefun& def : m_defuns) {
        if (def.code == funcCode) {
            result = def.function(args);
            break;
        }
    }
    if (fetched != nullptr)
        acutRelRb(fetched);
    return result;
}

}   // namespace KxArxBase
