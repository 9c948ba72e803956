// A list of ids under one group code.
#pragma once
#include "Fields.h"
#include "Stub.h"

namespace KxPlat {

template <class C>
class IdListField : public ListField {
public:
    IdListField(int code, std::vector<AcDbObjectId> C::*member) : m_code(code), m_member(member) {}

    bool Starts(int code) const override { return code == m_code; }
    bool Continues(int code) const override { return code == m_code; }
    void Put(AcDbObject& object, const GroupValue& group) const override { Of(object).push_back(group.id()); }
    void Get(const AcDbObject& object, GroupSink& sink, AcDb::AcDbDwgVersion) const override
    {
        for (AcDbObjectId id : static_cast<const C&>(object).*m_member)
            if (!IsErased(id))
                sink.Id(m_code, id);
    }
    void Copy(AcDbObject& to, const AcDbObject& from) const override { Of(to) = static_cast<const C&>(from).*m_member; }
    bool IsEmpty(const AcDbObject& object) const override { return (static_cast<const C&>(object).*m_member).empty(); }
    void Clear(AcDbObject& object) const override { Of(object).clear(); }
    void Visit(AcDbObject& object, const ReferenceVisitor& visitor) const override
    {
        for (AcDbObjectId& id : Of(object))
            visitor(id, ReferenceOfGroup(m_code));
    }

private:
    // What was erased is still listed, in case that the erasing is undone, but no longer handed out.
    static bool IsErased(const AcDbStub* stub) { return stub != nullptr && stub->erased; }
    std::vector<AcDbObjectId>& Of(AcDbObject& object) const { return static_cast<C&>(object).*m_member; }

    int m_code;
    std::vector<AcDbObjectId> C::*m_member;
};

}   // namespace KxPlat
