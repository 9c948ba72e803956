#include "ObjectTypes.h"
#include "../db/AcDbEntity.h"
#include "../db/AcDbProxyEntity.h"
#include "../db/AcDbProxyObject.h"
#include "../rx/AcRxClass.h"
#include "../win/CodePage.h"

namespace KxPlat {

namespace {

constexpr std::pair<int, TableKind> kTables[] = {
    {48, TableKind::Block},    {50, TableKind::Layer},  {52, TableKind::TextStyle},
    {56, TableKind::Linetype}, {60, TableKind::View},   {62, TableKind::Ucs},
    {64, TableKind::Viewport}, {66, TableKind::RegApp}, {68, TableKind::DimStyle},
};

AcRxClass* Creatable(const wchar_t* name, bool isEntity)
{
    AcRxClass* aClass = name == nullptr ? nullptr : ClassNamed(name);
    const bool fits = aClass != nullptr && aClass->isDerivedFrom(AcDbObject::desc()) &&
                      aClass->isDerivedFrom(AcDbEntity::desc()) == isEntity;
    if (!fits)
        return nullptr;
    std::unique_ptr<AcRxObject> one(aClass->create());
    return one == nullptr ? nullptr : aClass;
}

bool IsProxy(const AcRxClass* aClass)
{
    return aClass == AcDbProxyEntity::desc() || aClass == AcDbProxyObject::desc();
}

}   // namespace

AcRxClass* ClassOfLayout(const Layout& layout)
{
    return Creatable(layout.className, layout.isEntity);
}

const ClassSchema* SchemaOfClass(AcRxClass* aClass)
{
    if (aClass == nullptr || IsProxy(aClass))
        return nullptr;
    const std::unique_ptr<AcRxObject> one(aClass->create());
    return &static_cast<const AcDbObject*>(one.get())->fields();
}

ObjectTypes::ObjectTypes(DwgVersion version, const std::vector<DwgClass>& classes) : m_version(version)
{
    for (const DwgClass& row : classes)
        m_classes.emplace(row.number, &row);
}

const ObjectType& ObjectTypes::Make(int number)
{
    constexpr int kMost = 0x10000;
    static const ObjectType unknown;
    if (number < 0 || number >= kMost)
        return unknown;
    if (m_types.size() <= size_t(number))
        m_types.resize(size_t(number) + 1);
    ObjectType& type = m_types[size_t(number)];
    for (const auto& row : kTables)
        if (row.first == number)
            type.table = row.second;
    type.layout = LayoutOfType(number);
    const auto place = m_classes.find(number);
    if (type.layout == nullptr && place != m_classes.end()) {
        const DwgClass& own = *place->second;
        type.dxfName = ToUtf8(own.dxfName);
        type.isEntity = own.isEntity;
        type.layout = LayoutOfName(type.dxfName);
        if (type.layout != nullptr && type.layout->isEntity != own.isEntity)
            type.layout = nullptr;
        if (type.layout == nullptr)
            type.aClass = Creatable(own.className.c_str(), own.isEntity);
    }
    type.isKnown = type.layout != nullptr || place != m_classes.end();
    if (type.layout != nullptr) {
        type.dxfName = type.layout->dxfName;
        type.isEntity = type.layout->isEntity;
        type.aClass = ClassOfLayout(*type.layout);
        m_programs.push_back(CompileLayout(*type.layout, SchemaOfClass(type.aClass), m_version));
        type.program = m_programs.back().get();
    }
    return type;
}

}   // namespace KxPlat
