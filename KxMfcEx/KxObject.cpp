#include "KxObject.h"
#include <new>

namespace KxMfcEx {

constinit CKxRuntimeClass CKxObject::rtcCKxObject(L"CKxObject", nullptr, &CKxObject::CreateObject, 0);

CKxRuntimeClass* CKxObject::GetRtc() const
{
    return &rtcCKxObject;
}

CKxObject* CKxObject::CreateObject()
{
    return new (std::nothrow) CKxObject;
}

CKxObject* CKxObject::Cast(const CKxObject* p)
{
    if (p == nullptr || !p->IsDerivedFrom(Dest()))
        return nullptr;
    return const_cast<CKxObject*>(p);
}

}   // namespace KxMfcEx
