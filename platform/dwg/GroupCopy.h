// Collects the groups that a list hands out.
#pragma once
#include "../db/core/Fields.h"
#include "../win/CodePage.h"

namespace KxPlat {

class GroupCopy final : public GroupSink {
public:
    explicit GroupCopy(GroupList& groups) : m_groups(groups) {}
    void Real(int code, double value) override { Add(code, value); }
    void Integer(int code, int64_t value) override { Add(code, value); }
    void Text(int code, const CString& value) override { Add(code, value); }
    void Id(int code, AcDbObjectId value) override { Add(code, value); }
    void Name(int code, AcDbObjectId record, TableKind) override { Add(code, record); }
    void Binary(int code, const Bytes& value) override { Add(code, value); }
    void Marker(int code, std::string_view text) override { Add(code, CString(FromUtf8(text).c_str())); }

private:
    template <class T>
    void Add(int code, const T& value)
    {
        m_groups.emplace_back();
        m_groups.back().code = int16_t(code);
        m_groups.back().value = value;
    }
    GroupList& m_groups;
};

}   // namespace KxPlat
