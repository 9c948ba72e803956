#include "Fields.h"
#include "ObjectAccess.h"
#include <cstring>

namespace KxPlat {

Field List(const ListField* list)
{
    Field field;
    field.type = FieldType::List;
    field.list = list;
    return field;
}

Field Count(int code, std::function<int64_t(const AcDbObject&)> count)
{
    Field field;
    field.code = int16_t(code);
    field.isCount = true;
    field.isAlways = true;
    field.count = std::move(count);
    return field;
}

ClassSchema::ClassSchema(const ClassSchema* parent, const char* dxfName, const char* marker, std::vector<Field> fields)
    : m_dxfName(dxfName), m_handleCode(std::strcmp(dxfName, "DIMSTYLE") == 0 ? 105 : 5)
{
    static int count = 0;
    m_number = count++;
    if (parent != nullptr)
        m_sections = parent->m_sections;
    else
        m_sections.emplace_back();
    if (marker != nullptr)
        m_sections.push_back({marker, std::move(fields)});
    else
        for (Field& field : fields)
            m_sections.back().fields.push_back(std::move(field));
}

int ClassSchema::SectionOf(std::string_view marker, int first) const
{
    for (size_t i = size_t(first); i < m_sections.size(); ++i)
        if (marker == m_sections[i].marker)
            return int(i);
    return -1;
}

namespace {

void CopyField(AcDbObject& to, const AcDbObject& from, const Field& field)
{
    if (field.isCount)
        return;
    switch (field.type) {
    case FieldType::Int16:
        field.in<int16_t>(to) = field.in<int16_t>(from);
        break;
    case FieldType::Int32:
        field.in<int32_t>(to) = field.in<int32_t>(from);
        break;
    case FieldType::Int64:
        field.in<int64_t>(to) = field.in<int64_t>(from);
        break;
    case FieldType::Real:
        field.in<double>(to) = field.in<double>(from);
        break;
    case FieldType::Point2:
        field.in<AcGePoint2d>(to) = field.in<AcGePoint2d>(from);
        break;
    case FieldType::Point3:
        field.in<AcGePoint3d>(to) = field.in<AcGePoint3d>(from);
        break;
    case FieldType::Text:
        field.in<CString>(to) = field.in<CString>(from);
        break;
    case FieldType::Id:
    case FieldType::Name:
        field.in<AcDbObjectId>(to) = field.in<AcDbObjectId>(from);
        break;
    case FieldType::Bytes:
        field.in<Bytes>(to) = field.in<Bytes>(from);
        break;
    case FieldType::List:
        field.list->Copy(to, from);
        break;
    }
}

void VisitGroups(GroupList& groups, const ReferenceVisitor& visitor)
{
    for (GroupValue& group : groups)
        if (AcDbObjectId* id = std::get_if<AcDbObjectId>(&group.value))
            visitor(*id, ReferenceOfGroup(group.code));
}

}   // namespace

void CopyFields(AcDbObject& to, const AcDbObject& from)
{
    for (const Section& section : from.fields().sections())
        for (const Field& field : section.fields)
            CopyField(to, from, field);
    const Annex* annex = ObjectAccess::Find(from);
    if (annex != nullptr)
        ObjectAccess::SetAnnex(to, new Annex(*annex));
    else
        ObjectAccess::SetAnnex(to, nullptr);
}

void VisitReferences(AcDbObject& object, const ReferenceVisitor& visitor)
{
    for (const Section& section : object.fields().sections())
        for (const Field& field : section.fields) {
            if (field.list != nullptr)
                field.list->Visit(object, visitor);
            else if (field.type == FieldType::Id || field.type == FieldType::Name)
                visitor(field.in<AcDbObjectId>(object), field.reference);
        }
    if (ObjectAccess::Find(object) == nullptr)
        return;
    Annex& annex = ObjectAccess::Make(object);
    visitor(annex.extensionDictionary, Reference::HardOwner);
    for (AcDbObjectId& reactor : annex.reactors)
        visitor(reactor, Reference::SoftPointer);
    if (annex.bits != nullptr) {
        if (annex.bits.use_count() > 1)
            annex.bits = std::make_shared<KeptBits>(*annex.bits);
        for (KeptBits::Referred& referred : annex.bits->references) {
            static const Reference kinds[] = {Reference::SoftOwner, Reference::HardOwner, Reference::SoftPointer,
                                              Reference::HardPointer};
            visitor(referred.id, kinds[(referred.code - 2) & 3]);
        }
    }
    VisitGroups(annex.others, visitor);
    VisitGroups(annex.xData, visitor);
}

bool IsDefault(const AcDbObject& object, const Field& field)
{
    switch (field.type) {
    case FieldType::Int16:
        return field.in<int16_t>(object) == field.defaultInteger;
    case FieldType::Int32:
        return field.in<int32_t>(object) == field.defaultInteger;
    case FieldType::Int64:
        return field.in<int64_t>(object) == field.defaultInteger;
    case FieldType::Real:
        return field.in<double>(object) == field.defaultReal[0];
    case FieldType::Point2:
        return field.in<AcGePoint2d>(object).x == field.defaultReal[0] &&
               field.in<AcGePoint2d>(object).y == field.defaultReal[1];
    case FieldType::Point3: {
        const AcGePoint3d& point = field.in<AcGePoint3d>(object);
        return point.x == field.defaultReal[0] && point.y == field.defaultReal[1] && point.z == field.defaultReal[2];
    }
    case FieldType::Text:
        return field.in<CString>(object) == field.defaultText;
    case FieldType::Id:
    case FieldType::Name:
        return field.in<AcDbObjectId>(object).isNull();
    case FieldType::Bytes:
        return field.in<Bytes>(object) == nullptr;
    case FieldType::List:
        return field.list->IsEmpty(object);
    }
    return true;
}

void GroupSink::Value(const GroupValue& group)
{
    if (const AcDbObjectId* id = std::get_if<AcDbObjectId>(&group.value))
        Id(group.code, *id);
    else if (const CString* text = std::get_if<CString>(&group.value))
        Text(group.code, *text);
    else if (const double* real = std::get_if<double>(&group.value))
        Real(group.code, *real);
    else if (const Bytes* bytes = std::get_if<Bytes>(&group.value))
        Binary(group.code, *bytes);
    else
        Integer(group.code, std::get<int64_t>(group.value));
}

void GroupSink::Point(int code, const AcGePoint3d& point)
{
    Real(code, point.x);
    Real(code + 10, point.y);
    Real(code + 20, point.z);
}

}   // namespace KxPlat
