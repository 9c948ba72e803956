#include "AcRxClass.h"
#include "AcRxDictionary.h"
#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace {

// Every class known to the process, by name and by DXF name. Owns the descriptions.
struct ClassTable {
    std::vector<AcRxClass*> inOrder;
    std::unordered_map<std::wstring_view, AcRxClass*> byName;
    std::unordered_map<std::wstring_view, AcRxClass*> byDxfName;

    ~ClassTable()
    {
        for (AcRxClass* each : inOrder)
            delete each;
    }
};

ClassTable& Table()
{
    static ClassTable table;
    return table;
}

bool IsKnown(const AcRxClass* aClass)
{
    const auto& all = Table().inOrder;
    return std::find(all.begin(), all.end(), aClass) != all.end();
}

AcRxClass* Found(const std::unordered_map<std::wstring_view, AcRxClass*>& index, const ACHAR* key)
{
    const auto found = key == nullptr ? index.end() : index.find(key);
    return found == index.end() ? nullptr : found->second;
}

}   // namespace

AcRxClass* KxPlat::DescribeClass(const ACHAR* name, AcRxClass* parent, AcRxObject* (*make)(), int dwgVersion,
                                 int maintVersion, int proxyFlags, const ACHAR* dxfName, const ACHAR* appName)
{
    ClassTable& table = Table();
    if (AcRxClass* known = ClassNamed(name))
        return known;
    auto* made = new AcRxClass;
    made->m_name = name;
    made->m_dxfName = dxfName == nullptr ? L"" : dxfName;
    made->m_appName = appName == nullptr ? L"" : appName;
    made->m_make = make;
    made->m_dwgVersion = dwgVersion;
    made->m_maintenanceVersion = maintVersion;
    made->m_proxyFlags = Adesk::UInt32(proxyFlags);
    if (parent != nullptr)
        made->m_line = parent->m_line;
    made->m_line.push_back(made);
    made->m_depth = made->m_line.size() - 1;
    table.inOrder.push_back(made);
    table.byName.emplace(made->m_name, made);
    if (!made->m_dxfName.empty())
        table.byDxfName.emplace(made->m_dxfName, made);
    Adesk::UInt32 id = 0;
    ClassDictionary().atPut(name, made, id);
    return made;
}

// Never deleted: modules take their classes out of it while the process ends.
AcRxDictionary& KxPlat::ClassDictionary()
{
    static AcRxDictionary* const classes = NewDictionary(false, true);
    return *classes;
}

AcRxClass* KxPlat::ClassNamed(const ACHAR* name)
{
    return Found(Table().byName, name);
}

AcRxClass* KxPlat::ClassOfDxfName(const ACHAR* dxfName)
{
    return Found(Table().byDxfName, dxfName);
}

const std::vector<AcRxClass*>& KxPlat::KnownClasses()
{
    return Table().inOrder;
}

AcRxClass* newAcRxClass(const ACHAR* className, const ACHAR* parentClassName, int dwgVersion, int maintVersion,
                        int proxyFlags, AcRxObject* (*make)(), const ACHAR* dxfName, const ACHAR* appName)
{
    AcRxClass* parent = KxPlat::ClassNamed(parentClassName);
    return KxPlat::DescribeClass(className, parent == nullptr ? AcRxObject::desc() : parent, make, dwgVersion,
                                 maintVersion, proxyFlags, dxfName, appName);
}

void deleteAcRxClass(AcRxClass* aClass)
{
    if (!IsKnown(aClass))
        return;
    ClassTable& table = Table();
    std::erase(table.inOrder, aClass);
    std::erase_if(table.byName, [aClass](const auto& row) { return row.second == aClass; });
    std::erase_if(table.byDxfName, [aClass](const auto& row) { return row.second == aClass; });
    KxPlat::ClassDictionary().remove(aClass->name());
    delete aClass;
}

KxPlat::RxClassEntry::RxClassEntry(AcRxClass* (*desc)(), AcRxClass*& held) : m_held(held)
{
    desc();
}

KxPlat::RxClassEntry::~RxClassEntry()
{
    deleteAcRxClass(m_held);
    m_held = nullptr;
}

AcRxClass::~AcRxClass() = default;

AcRxClass* AcRxClass::desc()
{
    static AcRxClass* const described =
        KxPlat::DescribeClass(L"AcRxClass", AcRxObject::desc(), nullptr, 0, 0, 0, nullptr, nullptr);
    return described;
}

AcRxClass* AcRxClass::cast(const AcRxObject* object)
{
    return object != nullptr && object->isKindOf(desc()) ? static_cast<AcRxClass*>(const_cast<AcRxObject*>(object))
                                                         : nullptr;
}

AcRxClass* AcRxClass::isA() const
{
    return desc();
}

Acad::ErrorStatus AcRxClass::getClassVersion(int& dwgVersion, int& maintenanceVersion) const
{
    dwgVersion = m_dwgVersion;
    maintenanceVersion = m_maintenanceVersion;
    return Acad::eOk;
}

AcRxObject* AcRxClass::create()
{
    return m_make == nullptr ? nullptr : m_make();
}

AcRxObject* AcRxClass::addX(AcRxClass* protocol, AcRxObject* extension)
{
    AcRxObject* before = delX(protocol);
    m_extensions.emplace_back(protocol, extension);
    return before;
}

AcRxObject* AcRxClass::delX(AcRxClass* protocol)
{
    AcRxObject* before = getX(protocol);
    std::erase_if(m_extensions, [protocol](const auto& row) { return row.first == protocol; });
    return before;
}

AcRxObject* AcRxClass::getX(const AcRxClass* protocol) const
{
    for (const auto& [known, extension] : m_extensions) {
        if (known == protocol)
            return extension;
    }
    return nullptr;
}

AcRxObject* AcRxClass::queryX(const AcRxClass* protocol) const
{
    for (auto step = m_line.rbegin(); step != m_line.rend(); ++step) {
        if (AcRxObject* extension = (*step)->getX(protocol))
            return extension;
    }
    return nullptr;
}

AcRx::Ordering AcRxClass::comparedTo(const AcRxObject* other) const
{
    const AcRxClass* that = AcRxClass::cast(other);
    if (that == nullptr)
        return AcRx::kNotOrderable;
    if (that == this)
        return AcRx::kEqual;
    if (isDerivedFrom(that))
        return AcRx::kLessThan;
    return that->isDerivedFrom(this) ? AcRx::kGreaterThan : AcRx::kNotOrderable;
}
