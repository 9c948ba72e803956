// Objects of the drawing as programs of the object model see them: an entity, a layer, the document, a collection.
// Properties are groups of the object under another name, so that what entmod refuses is refused here too.
#pragma once
#include "Families.h"

namespace KxPlat::Lisp {

class VlaObject : public HostCell {
public:
    // What it stands for: an object of the drawing, or one of the document's own things by name.
    explicit VlaObject(AcDbObjectId id) : m_id(id) {}
    explicit VlaObject(std::wstring thing) : m_thing(std::move(thing)) {}
    const wchar_t* TypeName() const override { return L"VLA-OBJECT"; }
    std::wstring Printed() const override;
    bool IsSame(const HostCell& other) const override;
    AcDbObjectId id() const { return m_id; }
    const std::wstring& thing() const { return m_thing; }   // "Application", "Document", "Layers"; empty for objects

private:
    AcDbObjectId m_id;
    std::wstring m_thing;
};

// Fails unless the value is one.
const VlaObject& VlaObjectOf(const Value& value);

// By the property's name without regard to case. Fails for an object that has none of this name.
Value PropertyOf(Interpreter& lisp, const Value& object, std::wstring_view name);
void SetProperty(Interpreter& lisp, const Value& object, std::wstring_view name, const Value& value);
bool HasProperty(Interpreter& lisp, const Value& object, std::wstring_view name, bool forChange);
// VLA-GET-NAME and VLA-PUT-NAME for each property.
void AddPropertyFunctions(Interpreter& lisp);

// What vlax-for walks: the members of a block or of a table.
std::vector<Value> MembersOfCollection(const Value& object);

}   // namespace KxPlat::Lisp
