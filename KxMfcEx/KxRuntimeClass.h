// A small runtime class system: each class that joins owns one static record, and every object can tell its own.
// Records are static and never freed; a class joins by giving itself the static members of CKxObject and overriding
// GetRtc.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

class CKxObject;

class KXARX_API CKxRuntimeClass {
public:
    // Records are built before anything runs, so that the order of static objects does not matter.
    constexpr CKxRuntimeClass() = default;
    constexpr CKxRuntimeClass(const wchar_t* name, CKxRuntimeClass* parent, CKxObject* (*factory)(), int number)
        : m_name(name), m_parent(parent), m_factory(factory), m_number(number)
    {
    }

    CKxObject* CreateObject() const;   // null without a factory
    // A class derives from itself; nothing derives from null.
    int IsDerivedFrom(const CKxRuntimeClass* base) const;

    CString GetClassName() { return m_name; }
    CString GetParentClassName();   // "NULL" for the root
    CKxRuntimeClass* GetParentClass() const { return m_parent; }

private:
    const wchar_t* m_name = L"UNKNOWCLASS";
    CKxRuntimeClass* m_parent = nullptr;
    CKxObject* (*m_factory)() = nullptr;
    int m_number = 0;
};

}   // namespace KxMfcEx
