// The groups of an object as texts, by code, so that two objects can be compared and a difference be printed.
#pragma once
#include "db/AcDbProxyEntity.h"
#include "db/AcDbProxyObject.h"
#include "db/core/DbCore.h"
#include "db/core/ObjectAccess.h"
#include "db/core/RecordNames.h"
#include "rx/AcRxClass.h"
#include "win/CodePage.h"
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace DwgTests {

struct GroupText {
    std::string text;
    double real = 0;
    bool isReal = false;

    bool IsAbout(const GroupText& other, double tolerance) const
    {
        if (!isReal || !other.isReal)
            return text == other.text;
        return std::fabs(real - other.real) <= tolerance * std::fmax(1.0, std::fabs(real));
    }
};

using GroupTexts = std::map<int, std::vector<GroupText>>;

class GroupTextSink final : public KxPlat::GroupSink {
public:
    GroupTexts groups;

    void Real(int code, double value) override
    {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.17g", value);
        groups[code].push_back({digits, value, true});
    }
    void Integer(int code, int64_t value) override { groups[code].push_back({std::to_string(value)}); }
    void Text(int code, const CString& value) override { groups[code].push_back({Utf8(value)}); }
    void Id(int code, AcDbObjectId value) override
    {
        const AcDbStub* stub = value;
        char digits[20];
        std::snprintf(digits, sizeof digits, "%llX", stub == nullptr ? 0ULL : (unsigned long long)stub->handle);
        groups[code].push_back({digits});
    }
    void Name(int code, AcDbObjectId record, KxPlat::TableKind) override
    {
        const AcDbStub* stub = record;
        const bool isThere = stub != nullptr && stub->object != nullptr;
        groups[code].push_back({isThere ? Utf8(KxPlat::RecordNameOf(*stub->object)) : std::string("-")});
    }
    void Binary(int code, const KxPlat::Bytes& value) override
    {
        groups[code].push_back({value == nullptr ? std::string() : *value});
    }
    void Marker(int code, std::string_view text) override { groups[code].push_back({std::string(text)}); }

    static std::string Utf8(const CString& text)
    {
        return KxPlat::ToUtf8(std::wstring_view(text, size_t(text.GetLength())));
    }
};

inline GroupTexts GroupsOf(const AcDbObject& object)
{
    GroupTextSink sink;
    KxPlat::GetGroups(object, sink, KxPlat::GroupForm());
    return std::move(sink.groups);
}

inline std::string KindOf(const AcDbObject& object)
{
    if (const AcDbProxyEntity* proxy = AcDbProxyEntity::cast(&object))
        return proxy->dxfName();
    if (const AcDbProxyObject* proxy = AcDbProxyObject::cast(&object))
        return proxy->dxfName();
    return KxPlat::ToUtf8(object.isA()->name());
}

// Empty where both have the same values under this code.
inline std::string DifferenceAt(const GroupTexts& a, const GroupTexts& b, int code, double tolerance)
{
    static const std::vector<GroupText> none;
    const auto inA = a.find(code), inB = b.find(code);
    const std::vector<GroupText>& left = inA == a.end() ? none : inA->second;
    const std::vector<GroupText>& right = inB == b.end() ? none : inB->second;
    if (left.size() != right.size())
        return std::to_string(left.size()) + " groups against " + std::to_string(right.size());
    for (size_t i = 0; i < left.size(); ++i)
        if (!left[i].IsAbout(right[i], tolerance))
            return left[i].text + " against " + right[i].text;
    return {};
}

}   // namespace DwgTests
