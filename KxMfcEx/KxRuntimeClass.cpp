#include "KxRuntimeClass.h"

namespace KxMfcEx {

CKxObject* CKxRuntimeClass::CreateObject() const
{
    return m_factory != nullptr ? m_factory() : nullptr;
}

int CKxRuntimeClass::IsDerivedFrom(const CKxRuntimeClass* base) const
{
    if (base == nullptr)
        return 0;
    for (const CKxRuntimeClass* record = this; record != nullptr; record = record->m_parent) {
        if (record == base)
            return 1;
    }
    return 0;
}

CString CKxRuntimeClass::GetParentClassName()
{
    return m_parent != nullptr ? m_parent->GetClassName() : CString(L"NULL");
}

}   // namespace KxMfcEx
