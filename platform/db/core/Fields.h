// The field list of a class: its stored members, each with its DXF group, type, default and kind of reference.
// Files in and out, copying, cloning, the walk over references, purging and undo all go by this one list.
// Members hold what the file holds: angles in degrees, flags as the bits of their group.
#pragma once
#include "../../ge/AcGePoint2d.h"
#include "../../ge/AcGePoint3d.h"
#include "../../ge/AcGeVector3d.h"
#include "../AcDb.h"
#include "GroupValue.h"
#include <cstddef>
#include <functional>
#include <initializer_list>

class AcDbObject;

namespace KxPlat {

enum class FieldType : uint8_t { Int16, Int32, Int64, Real, Point2, Point3, Text, Id, Name, Bytes, List };

// The nine symbol tables, and what a name group can name besides.
enum class TableKind : uint8_t { Block, Layer, TextStyle, Linetype, View, Ucs, Viewport, RegApp, DimStyle, Count };

// Receives an object's groups one by one in file order.
class GroupSink {
public:
    virtual ~GroupSink() = default;
    virtual void Real(int code, double value) = 0;
    virtual void Integer(int code, int64_t value) = 0;
    virtual void Text(int code, const CString& value) = 0;
    virtual void Id(int code, AcDbObjectId value) = 0;                       // by handle
    virtual void Name(int code, AcDbObjectId record, TableKind table) = 0;   // by the record's name
    virtual void Binary(int code, const Bytes& value) = 0;
    virtual void Marker(int code, std::string_view text) = 0;   // 100 and 102
    void Value(const GroupValue& group);
    // Three groups: code, code + 10, code + 20.
    void Point(int code, const AcGePoint3d& point);
};

using ReferenceVisitor = std::function<void(AcDbObjectId&, Reference)>;

// A repeated structure (vertices, loops, entries): the groups that a table of single members cannot describe.
class ListField {
public:
    virtual ~ListField() = default;
    virtual bool Starts(int code) const = 0;          // an instance of the list may begin with this group
    virtual bool Continues(int code) const = 0;       // ... and takes this one once it has begun
    virtual bool TakesAll() const { return false; }   // takes every group of its section, markers and braces too
    virtual void Put(AcDbObject& object, const GroupValue& group) const = 0;
    virtual void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion version) const = 0;
    virtual void Copy(AcDbObject& to, const AcDbObject& from) const = 0;
    virtual bool IsEmpty(const AcDbObject& object) const = 0;
    // Before a list is read into an object that may hold one already.
    virtual void Clear(AcDbObject& object) const = 0;
    virtual void Visit(AcDbObject& object, const ReferenceVisitor& visitor) const {}
    // A quick way in for the reals of long lists; false leaves the group to Put().
    virtual bool PutReal(AcDbObject& object, int code, double value) const { return false; }
    // The table that a text group of this list names a record of, or Count.
    virtual TableKind NameTable(int code) const { return TableKind::Count; }
};

struct Field {
    int16_t code = 0;
    FieldType type = FieldType::Int16;
    Reference reference = Reference::None;
    TableKind table = TableKind::Count;
    bool isAlways = false;   // written even when it holds its default
    bool isR12 = true;       // known to files without subclass markers
    bool isCount = false;    // derived from a list when written; the stored value only marks its place
    AcDb::AcDbDwgVersion sinceVersion = AcDb::kDHL_1009;
    uint32_t offset = 0;   // of the member from the start of the AcDbObject
    double defaultReal[3] = {0, 0, 0};
    int64_t defaultInteger = 0;
    const wchar_t* defaultText = L"";
    const ListField* list = nullptr;
    std::function<int64_t(const AcDbObject&)> count;

    Field& always()
    {
        isAlways = true;
        return *this;
    }
    Field& since(AcDb::AcDbDwgVersion version)
    {
        sinceVersion = version;
        return *this;
    }
    Field& notInR12()
    {
        isR12 = false;
        return *this;
    }

    template <class T>
    T& in(AcDbObject& object) const
    {
        return *reinterpret_cast<T*>(reinterpret_cast<char*>(&object) + offset);
    }
    template <class T>
    const T& in(const AcDbObject& object) const
    {
        return *reinterpret_cast<const T*>(reinterpret_cast<const char*>(&object) + offset);
    }
};

// Where the member lies in an object of class C; every class of the database has AcDbObject at its start.
template <class C, class T>
uint32_t OffsetOf(T C::*member)
{
    alignas(C) static char storage[sizeof(C)];
    C* object = reinterpret_cast<C*>(storage);
    return uint32_t(reinterpret_cast<char*>(&(object->*member)) -
                    reinterpret_cast<char*>(static_cast<AcDbObject*>(object)));
}

template <class C>
Field Int16(int code, int16_t C::*member, int16_t byDefault = 0)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Int16, field.offset = OffsetOf(member);
    field.defaultInteger = byDefault;
    return field;
}
template <class C>
Field Int32(int code, int32_t C::*member, int32_t byDefault = 0)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Int32, field.offset = OffsetOf(member);
    field.defaultInteger = byDefault;
    return field;
}
template <class C>
Field Int64(int code, int64_t C::*member, int64_t byDefault = 0)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Int64, field.offset = OffsetOf(member);
    field.defaultInteger = byDefault;
    return field;
}
template <class C>
Field Real(int code, double C::*member, double byDefault = 0.0)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Real, field.offset = OffsetOf(member);
    field.defaultReal[0] = byDefault;
    return field;
}
template <class C>
Field Point2(int code, AcGePoint2d C::*member)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Point2, field.offset = OffsetOf(member);
    return field;
}
template <class C>
Field Point3(int code, AcGePoint3d C::*member)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Point3, field.offset = OffsetOf(member);
    return field;
}
template <class C>
Field Vector3(int code, AcGeVector3d C::*member, double x = 0, double y = 0, double z = 1)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Point3, field.offset = OffsetOf(member);
    field.defaultReal[0] = x, field.defaultReal[1] = y, field.defaultReal[2] = z;
    return field;
}
template <class C>
Field Text(int code, CString C::*member, const wchar_t* byDefault = L"")
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Text, field.offset = OffsetOf(member);
    field.defaultText = byDefault;
    return field;
}
// An object id written as a handle; its group code says what kind of reference it is.
template <class C>
Field Id(int code, AcDbObjectId C::*member)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Id, field.offset = OffsetOf(member);
    field.reference = ReferenceOfGroup(code);
    return field;
}
// A symbol table record written by its name: a hard pointer.
template <class C>
Field Name(int code, AcDbObjectId C::*member, TableKind table)
{
    Field field;
    field.code = int16_t(code), field.type = FieldType::Name, field.offset = OffsetOf(member);
    field.reference = Reference::HardPointer, field.table = table;
    return field;
}
// `first` is the code that the list begins with when it is written; it decides the list's canonical place only.
Field List(const ListField* list);
// The number of entries of a list in a group of its own: always written anew, never trusted when read.
Field Count(int code, std::function<int64_t(const AcDbObject&)> count);

// One subclass marker with the fields behind it. The first section of every class is the header, without a marker.
struct Section {
    const char* marker = "";
    std::vector<Field> fields;
};

class ClassSchema {
public:
    // `marker` is null for a class that adds no subclass marker of its own; its fields then join its parent's last
    // section.
    ClassSchema(const ClassSchema* parent, const char* dxfName, const char* marker, std::vector<Field> fields);

    const char* dxfName() const { return m_dxfName; }
    const std::vector<Section>& sections() const { return m_sections; }
    // -1 when the class has no such marker from section `first` on. A marker may stand in a class twice.
    int SectionOf(std::string_view marker, int first = 1) const;
    // The group that holds an object's own handle: 105 where 5 has an older meaning.
    int handleCode() const { return m_handleCode; }
    int number() const { return m_number; }   // counts the schemas of the process, for tables beside them

private:
    const char* m_dxfName;
    std::vector<Section> m_sections;
    int m_handleCode;
    int m_number;
};

// The kinds of groups of one object that `GetGroups` leaves out or adds.
struct GroupForm {
    AcDb::AcDbDwgVersion version = AcDb::kDHL_1032;
    bool asRead = false;   // keep order and presence of the file that the object was read from
};

// Hands out the object's groups, without the leading 0 group. `asRead` needs the object to be in a database.
void GetGroups(const AcDbObject& object, GroupSink& sink, const GroupForm& form);

// Copies every member that the list names, and the groups that no field claims; not identity, owner, reactors or shape.
void CopyFields(AcDbObject& to, const AcDbObject& from);
// Visits every id that the object stores, its annex included; the visitor may replace it.
void VisitReferences(AcDbObject& object, const ReferenceVisitor& visitor);
bool IsDefault(const AcDbObject& object, const Field& field);

}   // namespace KxPlat
