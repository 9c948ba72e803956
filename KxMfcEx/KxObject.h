// The root of the runtime classes.
#pragma once
#include "KxRuntimeClass.h"

namespace KxMfcEx {

class KXARX_API CKxObject {
public:
    virtual ~CKxObject() = default;
    // The record of the object's dynamic class.
    virtual CKxRuntimeClass* GetRtc() const;

    static CKxRuntimeClass* Dest() { return &rtcCKxObject; }
    static CKxObject* CreateObject();   // on the heap; null when there is no memory
    static CKxRuntimeClass* GetParentRtc() { return rtcCKxObject.GetParentClass(); }
    // `p` when its class derives from this one, else null.
    static CKxObject* Cast(const CKxObject* p);

    int IsDerivedFrom(const CKxRuntimeClass* cls) const { return GetRtc()->IsDerivedFrom(cls); }
    int IsAClass(const CKxRuntimeClass* cls) const { return GetRtc() == cls ? 1 : 0; }
    CString GetClassName() const { return GetRtc()->GetClassName(); }
    CString GetParentClassName() const { return GetRtc()->GetParentClassName(); }

    static CKxRuntimeClass rtcCKxObject;
};

}   // namespace KxMfcEx
