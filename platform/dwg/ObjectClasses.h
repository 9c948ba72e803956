// The classes that a written file declares, and the type numbers of its objects.
#pragma once
#include "DwgOutput.h"
#include "Layout.h"

namespace KxPlat {

class ObjectClasses {
public:
    // Those of the file that the drawing came from keep their numbers.
    explicit ObjectClasses(const DbCore& core, DwgVersion version);

    // Declares the class where that is needed, and counts the object. 0 for a class that nobody can declare.
    int NumberOf(const Layout& layout);
    int NumberOf(std::string_view dxfName, bool isEntity);
    // Whether such an object could be given a number.
    bool Knows(std::string_view dxfName) const { return m_byName.count(std::string(dxfName)) != 0; }
    std::vector<DwgClass> Take() { return std::move(m_classes); }

private:
    DwgVersion m_version;
    std::vector<DwgClass> m_classes;
    std::unordered_map<std::string, size_t> m_byName;
};

}   // namespace KxPlat
