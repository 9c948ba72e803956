// A list field that keeps its groups as they are: for structures that nothing but files has to understand yet, and for
// those whose meaning depends on the order of their groups.
#pragma once
#include "Fields.h"
#include "ObjectAccess.h"

namespace KxPlat {

template <class C>
class GroupListField : public ListField {
public:
    // `codes`: groups that belong to the list. Empty: every group of the section.
    GroupListField(GroupList C::*member, std::initializer_list<int> codes) : m_member(member), m_codes(codes) {}

    bool Starts(int code) const override { return TakesAll() || Has(code); }
    bool Continues(int code) const override { return TakesAll() ? code < 1000 : Has(code); }
    bool TakesAll() const override { return m_codes.empty(); }
    void Put(AcDbObject& object, const GroupValue& group) const override
    {
        (static_cast<C&>(object).*m_member).push_back(group);
    }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        for (const GroupValue& group : static_cast<const C&>(object).*m_member)
            sink.Value(group);
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override
    {
        static_cast<C&>(to).*m_member = static_cast<const C&>(from).*m_member;
    }
    bool IsEmpty(const AcDbObject& object) const override { return (static_cast<const C&>(object).*m_member).empty(); }
    void Clear(AcDbObject& object) const override { (static_cast<C&>(object).*m_member).clear(); }
    void Visit(AcDbObject& object, const ReferenceVisitor& visitor) const override
    {
        for (GroupValue& group : static_cast<C&>(object).*m_member)
            if (AcDbObjectId* id = std::get_if<AcDbObjectId>(&group.value))
                visitor(*id, ReferenceOfGroup(group.code));
    }

private:
    bool Has(int code) const
    {
        for (int one : m_codes)
            if (one == code)
                return true;
        return false;
    }

    GroupList C::*m_member;
    std::vector<int> m_codes;
};

}   // namespace KxPlat
