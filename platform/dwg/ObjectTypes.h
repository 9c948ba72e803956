// What the type numbers of one file mean: the layout, and the class that such objects become.
#pragma once
#include "LayoutProgram.h"
#include "ObjectsIn.h"
#include <deque>
#include <unordered_map>

class AcRxClass;

namespace KxPlat {

struct ObjectType {
    const Layout* layout = nullptr;   // null: kept by its bits
    const LayoutProgram* program = nullptr;
    AcRxClass* aClass = nullptr;   // null: a proxy of this name
    std::string dxfName;
    bool isEntity = false;
    bool isKnown = false;                 // false: neither a built-in number nor a class of the file
    TableKind table = TableKind::Count;   // of a table itself
};

class ObjectTypes {
public:
    ObjectTypes(DwgVersion version, const std::vector<DwgClass>& classes);
    const ObjectType& operator[](int number)
    {
        return number >= 0 && size_t(number) < m_types.size() && m_types[size_t(number)].isKnown
                   ? m_types[size_t(number)]
                   : Make(number);
    }

private:
    const ObjectType& Make(int number);

    DwgVersion m_version;
    std::unordered_map<int, const DwgClass*> m_classes;
    std::deque<ObjectType> m_types;   // never move
    std::vector<std::unique_ptr<LayoutProgram>> m_programs;
};

// The class of the database that a layout's objects belong to; null where there is none.
AcRxClass* ClassOfLayout(const Layout& layout);
// Its field list; null for a proxy.
const ClassSchema* SchemaOfClass(AcRxClass* aClass);

}   // namespace KxPlat
