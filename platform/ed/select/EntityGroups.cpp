#include "EntityGroups.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbLayout.h"
#include "../../db/core/Fields.h"
#include "../../db/core/GroupResbuf.h"
#include "../../db/core/RecordNames.h"
#include "../../db/core/Stub.h"
#include "../../db/core/Wildcard.h"
#include "../../dxf/DxfNames.h"
#include "../../rx/acutads.h"
#include "../../rx/ResBufs.h"
#include "../../win/CodePage.h"
#include <numbers>

namespace KxPlat {

namespace {

constexpr int kEntityName = -1, kXDataMark = -3;

GroupValue TextGroup(int code, const CString& text)
{
    GroupValue group;
    group.code = int16_t(code);
    group.value = text;
    return group;
}

// References by name become texts; handles of the object itself as well.
class Collector : public GroupSink {
public:
    explicit Collector(GroupList& groups) : m_groups(groups) {}

    void Real(int code, double value) override { Add(code).value = value; }
    void Integer(int code, int64_t value) override { Add(code).value = value; }
    void Text(int code, const CString& value) override { Add(code).value = value; }
    void Id(int code, AcDbObjectId value) override
    {
        if (code != 5 && code != 105) {
            Add(code).value = value;
            return;
        }
        wchar_t digits[17];
        value.handle().getIntoAsciiBuffer(digits);
        Add(code).value = CString(digits);
    }
    void Name(int code, AcDbObjectId record, TableKind table) override
    {
        const AcDbStub* stub = record;
        const wchar_t* byDefault = table == TableKind::Linetype ? L"ByLayer" : table == TableKind::Layer ? L"0" : L"";
        Add(code).value = stub == nullptr || stub->object == nullptr ? CString(byDefault) : RecordNameOf(*stub->object);
    }
    void Binary(int code, const Bytes& value) override { Add(code).value = value; }
    void Marker(int code, std::string_view text) override { Add(code).value = CString(FromUtf8(text).c_str()); }

private:
    GroupValue& Add(int code)
    {
        GroupValue& group = m_groups.emplace_back();
        group.code = int16_t(code);
        return group;
    }
    GroupList& m_groups;
};

bool IsMarker(const GroupValue& group, const wchar_t* text)
{
    return group.code == 100 && group.text() == text;
}

// The groups between a subclass marker and the next one.
struct Range {
    size_t first = 0, end = 0;
};

Range SectionOf(const GroupList& groups, const wchar_t* marker)
{
    Range range;
    while (range.first < groups.size() && !IsMarker(groups[range.first], marker))
        ++range.first;
    range.end = range.first = std::min(range.first + 1, groups.size());
    while (range.end < groups.size() && groups[range.end].code != 100 && groups[range.end].code < 1000)
        ++range.end;
    return range;
}

bool HasCode(const GroupList& groups, const Range& range, int code)
{
    for (size_t i = range.first; i < range.end; ++i)
        if (groups[i].code == code)
            return true;
    return false;
}

// Programs expect the space of an entity, by number and by its layout's name.
void AddSpace(GroupList& groups, const AcDbObject& entity)
{
    const AcDbStub* owner = entity.ownerId();
    const AcDbBlockTableRecord* block = owner == nullptr ? nullptr : AcDbBlockTableRecord::cast(owner->object);
    if (block == nullptr || !(block->isModelSpace() || block->isPaperSpace() || block->isLayout()))
        return;
    const Range range = SectionOf(groups, L"AcDbEntity");
    size_t at = range.first;
    if (!HasCode(groups, range, 67)) {
        GroupValue space;
        space.code = 67;
        space.value = int64_t(block->isModelSpace() ? 0 : 1);
        groups.insert(groups.begin() + std::ptrdiff_t(at++), space);
    }
    if (HasCode(groups, range, 410))
        return;
    const AcDbStub* layoutStub = block->getLayoutId();
    const AcDbLayout* layout = layoutStub == nullptr ? nullptr : AcDbLayout::cast(layoutStub->object);
    const ACHAR* name = nullptr;
    if (layout != nullptr)
        layout->getLayoutName(name);
    const CString text = name != nullptr ? name : block->isModelSpace() ? L"Model" : L"Layout1";
    groups.insert(groups.begin() + std::ptrdiff_t(at), TextGroup(410, text));
}

// Files leave out the direction of most entities; programs always see it.
void AddNormal(GroupList& groups, const AcDbObject& object)
{
    for (const Section& section : object.fields().sections())
        for (const Field& field : section.fields) {
            if (field.code != 210 || field.type != FieldType::Point3)
                continue;
            const Range range = SectionOf(groups, FromUtf8(section.marker).c_str());
            if (HasCode(groups, range, 210))
                return;
            GroupValue parts[3];
            for (int i = 0; i < 3; ++i) {
                parts[i].code = int16_t(210 + 10 * i);
                parts[i].value = field.defaultReal[i];
            }
            groups.insert(groups.begin() + std::ptrdiff_t(range.end), parts, parts + 3);
            return;
        }
}

// Without braces between them the owner stands before the handle.
void OwnerFirst(GroupList& groups)
{
    if (groups.size() > 1 && groups[0].code == 5 && groups[1].code == 330)
        std::swap(groups[0], groups[1]);
}

bool IsWanted(const CString& app, const std::vector<std::wstring>& patterns)
{
    for (const std::wstring& pattern : patterns)
        if (WildcardMatch(std::wstring_view(app, size_t(app.GetLength())), pattern))
            return true;
    return false;
}

void TakeXData(GroupList& groups, const std::vector<std::wstring>& apps)
{
    size_t first = groups.size();
    while (first > 0 && groups[first - 1].code >= 1000)
        --first;
    GroupList kept;
    bool isKept = false;
    for (size_t i = first; i < groups.size(); ++i) {
        if (groups[i].code == 1001)
            isKept = IsWanted(groups[i].text(), apps);
        if (isKept)
            kept.push_back(groups[i]);
    }
    groups.resize(first);
    if (kept.empty())
        return;
    groups.push_back(TextGroup(kXDataMark, CString()));
    groups.insert(groups.end(), kept.begin(), kept.end());
}

}   // namespace

bool IsPointGroup(int code)
{
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 || code == 211 ||
           (code >= 1010 && code <= 1013);
}

bool IsAngle(const AcDbObject& object, int code)
{
    return code >= 50 && code <= 58 &&
           (AcDbEntity::cast(&object) != nullptr || AcDbSymbolTableRecord::cast(&object) != nullptr);
}

size_t PointAt(const GroupList& groups, size_t at, double (&point)[3])
{
    point[0] = groups[at].real();
    point[1] = point[2] = 0;
    size_t count = 1;
    if (!IsPointGroup(groups[at].code))
        return count;
    while (count < 3 && at + count < groups.size() && groups[at + count].code == groups[at].code + 10 * int(count)) {
        point[count] = groups[at + count].real();
        ++count;
    }
    return count;
}

GroupList GroupsForPrograms(AcDbObjectId id, const std::vector<std::wstring>& apps)
{
    const AcDbStub* stub = id;
    GroupList groups;
    if (stub == nullptr || stub->object == nullptr || stub->erased)
        return groups;
    const AcDbObject& object = *stub->object;
    Collector collector(groups);
    GroupForm form;
    form.version = AcDb::kDHL_1024;
    GetGroups(object, collector, form);
    for (GroupValue& group : groups) {
        if (IsAngle(object, group.code))
            group.value = group.real() * std::numbers::pi / 180;
    }
    OwnerFirst(groups);
    if (AcDbEntity::cast(&object) != nullptr)
        AddSpace(groups, object);
    AddNormal(groups, object);
    TakeXData(groups, apps);
    GroupValue name;
    name.code = kEntityName;
    name.value = id;
    groups.insert(groups.begin(), {name, TextGroup(0, CString(FromUtf8(DxfNameOf(object)).c_str()))});
    return groups;
}

resbuf* ChainForPrograms(const GroupList& groups)
{
    ChainBuilder chain;
    for (size_t i = 0; i < groups.size();) {
        if (groups[i].code < 0) {
            const AcDbObjectId id = groups[i].id();
            ads_name name = {id.asOldId(), 0};
            chain.Add(groups[i].code == kXDataMark ? acutNewRb(kXDataMark) : NewNameRb(groups[i].code, name));
            ++i;
            continue;
        }
        size_t end = i;
        while (end < groups.size() && groups[end].code >= 0)
            ++end;
        chain.Add(ChainOf(GroupList(groups.begin() + std::ptrdiff_t(i), groups.begin() + std::ptrdiff_t(end))));
        i = end;
    }
    return chain.Take();
}

}   // namespace KxPlat
