// The description of a class: its name, parent, DXF name and how to make an instance.
#pragma once
#include "AcRxObject.h"
#include <string>
#include <utility>
#include <vector>

namespace KxPlat {

AcRxClass* DescribeClass(const ACHAR* name, AcRxClass* parent, AcRxObject* (*make)(), int dwgVersion, int maintVersion,
                         int proxyFlags, const ACHAR* dxfName, const ACHAR* appName);

}   // namespace KxPlat

class AcRxClass : public AcRxObject {
public:
    static AcRxClass* desc();
    static AcRxClass* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    ~AcRxClass() override;

    const ACHAR* name() const { return m_name.c_str(); }
    // Null for a class without one.
    const ACHAR* dxfName() const { return m_dxfName.empty() ? nullptr : m_dxfName.c_str(); }
    const ACHAR* appName() const { return m_appName.c_str(); }
    Acad::ErrorStatus getClassVersion(int& dwgVersion, int& maintenanceVersion) const;
    Adesk::UInt32 proxyFlags() const { return m_proxyFlags; }

    bool isDerivedFrom(const AcRxClass* other) const
    {
        return other != nullptr && other->m_depth <= m_depth && m_line[other->m_depth] == other;
    }
    AcRxClass* myParent() const { return m_depth == 0 ? nullptr : m_line[m_depth - 1]; }
    // A new instance that the caller owns; null for an abstract class.
    AcRxObject* create();

    // An extension of this class by an object of class `protocol`. Answers what stood there before.
    AcRxObject* addX(AcRxClass* protocol, AcRxObject* extension);
    AcRxObject* delX(AcRxClass* protocol);
    AcRxObject* getX(const AcRxClass* protocol) const;
    AcRxObject* queryX(const AcRxClass* protocol) const override;

    AcRx::Ordering comparedTo(const AcRxObject* other) const override;

private:
    friend AcRxClass* KxPlat::DescribeClass(const ACHAR*, AcRxClass*, AcRxObject* (*)(), int, int, int, const ACHAR*,
                                            const ACHAR*);
    AcRxClass() = default;

    std::wstring m_name;
    std::wstring m_dxfName;
    std::wstring m_appName;
    AcRxObject* (*m_make)() = nullptr;
    std::vector<AcRxClass*> m_line;   // from the root class down to this one
    size_t m_depth = 0;
    int m_dwgVersion = 0;
    int m_maintenanceVersion = 0;
    Adesk::UInt32 m_proxyFlags = 0;
    std::vector<std::pair<const AcRxClass*, AcRxObject*>> m_extensions;
};

// Enters a class; one of that name that is there already is answered instead.
AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int dwgVersion = 0, int maintVersion = 0,
                        int proxyFlags = 0, AcRxObject* (*make)() = nullptr, const ACHAR* dxfName = nullptr,
                        const ACHAR* appName = nullptr);
void deleteAcRxClass(AcRxClass* aClass);
// Classes build their own hierarchy; the call is there for programs that make it.
inline void acrxBuildClassHierarchy() {}

namespace KxPlat {

// Null when there is none. Class names are exact, DXF names are as well.
AcRxClass* ClassNamed(const ACHAR* name);
AcRxClass* ClassOfDxfName(const ACHAR* dxfName);
// All classes known now, in the order in which they became known.
const std::vector<AcRxClass*>& KnownClasses();

}   // namespace KxPlat
