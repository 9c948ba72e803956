// A list field over a vector of object ids, one handle group for each.
#pragma once
#include "Fields.h"
#include <vector>

namespace KxPlat {

template <class C>
class IdList : public ListField {
public:
    IdList(int code, std::vector<AcDbObjectId> C::*member) : m_code(code), m_member(member) {}

    bool Starts(int code) const override { return code == m_code; }
    bool Continues(int code) const override { return code == m_code; }
    void Put(AcDbObject& object, const GroupValue& group) const override
    {
        (static_cast<C&>(object).*m_member).push_back(group.id());
    }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        for (const AcDbObjectId& id : static_cast<const C&>(object).*m_member)
            sink.Id(m_code, id);
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        static_cast<C&>(to).*m_member = static_cast<const C&>(from).*m_member;
    }
    bool IsEmpty(const AcDbObject& object) const override { return (static_cast<const C&>(object).*m_member).empty(); }
    void Clear(AcDbObject& object) const override { (static_cast<C&>(object).*m_member).clear(); }
    void Visit(AcDbObject& object, const ReferenceVisitor& visitor) const override
    {
        for (AcDbObjectId& id : static_cast<C&>(object).*m_member)
            visitor(id, ReferenceOfGroup(m_code));
    }

private:
    int m_code;
    std::vector<AcDbObjectId> C::*m_member;
};

}   // namespace KxPlat
