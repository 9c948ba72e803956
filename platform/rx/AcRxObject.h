// The root of all runtime-typed objects, and the macros that give a class its description.
#pragma once
#include "acadstrc.h"
#include "rxdefs.h"

class AcRxClass;

class AcRxObject {
public:
    virtual ~AcRxObject();

    static AcRxClass* desc();
    static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }
    static void rxInit();

    virtual AcRxClass* isA() const;
    bool isKindOf(const AcRxClass* aClass) const;
    // The extension of `protocol` that the object's class, or one above it, carries; null when there is none.
    virtual AcRxObject* queryX(const AcRxClass* protocol) const;
    AcRxObject* x(const AcRxClass* protocol) const { return queryX(protocol); }

    // A copy that the caller owns; null where a class cannot be copied.
    virtual AcRxObject* clone() const;
    virtual Acad::ErrorStatus copyFrom(const AcRxObject* other);
    virtual Adesk::Boolean isEqualTo(const AcRxObject* other) const;
    virtual AcRx::Ordering comparedTo(const AcRxObject* other) const;

protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};

namespace KxPlat {

// Lets a class be known by name as soon as the binary that holds it is loaded, and forgets it on unloading.
class RxClassEntry {
public:
    RxClassEntry(AcRxClass* (*desc)(), AcRxClass*& held);
    ~RxClassEntry();
    RxClassEntry(const RxClassEntry&) = delete;
    RxClassEntry& operator=(const RxClassEntry&) = delete;

private:
    AcRxClass*& m_held;
};

}   // namespace KxPlat

// In the class: isA(), desc(), cast(), rxInit().
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                                                               \
    AcRxClass* isA() const override;                                                                                   \
    static AcRxClass* gpDesc;                                                                                          \
    static AcRxClass* desc();                                                                                          \
    static CLASS_NAME* cast(const AcRxObject* object)                                                                  \
    {                                                                                                                  \
        return object != nullptr && object->isKindOf(CLASS_NAME::desc())                                               \
                   ? static_cast<CLASS_NAME*>(const_cast<AcRxObject*>(object))                                         \
                   : nullptr;                                                                                          \
    }                                                                                                                  \
    static void rxInit()

// A class describes itself when it is first asked to, its parent before it, so that no order of start-up matters.
#define KX_RX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, MAKE, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, DXF_NAME, APP)   \
    AcRxClass* CLASS_NAME::gpDesc = nullptr;                                                                           \
    AcRxClass* CLASS_NAME::isA() const                                                                                 \
    {                                                                                                                  \
        return CLASS_NAME::desc();                                                                                     \
    }                                                                                                                  \
    AcRxClass* CLASS_NAME::desc()                                                                                      \
    {                                                                                                                  \
        if (gpDesc == nullptr)                                                                                         \
            rxInit();                                                                                                  \
        return gpDesc;                                                                                                 \
    }                                                                                                                  \
    void CLASS_NAME::rxInit()                                                                                          \
    {                                                                                                                  \
        if (gpDesc == nullptr)                                                                                         \
            gpDesc = KxPlat::DescribeClass(L## #CLASS_NAME, PARENT_CLASS::desc(), MAKE, DWG_VERSION, MAINT_VERSION,    \
                                           PROXY_FLAGS, DXF_NAME, APP);                                                \
    }                                                                                                                  \
    static const KxPlat::RxClassEntry g_rxEntryOf##CLASS_NAME(&CLASS_NAME::desc, CLASS_NAME::gpDesc);

#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                                                          \
    KX_RX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, nullptr, 0, 0, 0, nullptr, nullptr)

#define ACRX_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, VERNO)                                                      \
    static AcRxObject* g_rxMake##CLASS_NAME()                                                                          \
    {                                                                                                                  \
        return new CLASS_NAME();                                                                                       \
    }                                                                                                                  \
    KX_RX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, &g_rxMake##CLASS_NAME, VERNO, 0, 0, nullptr, nullptr)

// DXF_NAME is a bare word and becomes the text of the object's 0 group.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, DXF_NAME, APP)      \
    static AcRxObject* g_rxMake##CLASS_NAME()                                                                          \
    {                                                                                                                  \
        return new CLASS_NAME();                                                                                       \
    }                                                                                                                  \
    KX_RX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, &g_rxMake##CLASS_NAME, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS,     \
                         L## #DXF_NAME, L## #APP)

#include "AcRxClass.h"
