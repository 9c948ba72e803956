// Dictionaries, extended records, and objects that call others by name.
#include "../db/AcDbSymbolTable.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "DwgCodePages.h"
#include "DwgTexts.h"
#include "GroupCopy.h"
#include "SpecialPairs.h"

namespace KxPlat {

// --- dictionaries ---

void ReadEntry(ObjectDecoder& in, const Step& step)
{
    Place place = step.place;
    place.code = in.At<int16_t>(step.also[0]) != 0 ? int16_t(360) : int16_t(350);
    in.PutId(place, in.Ref());
}

void WriteEntry(ObjectEncoder& out, const Step& step)
{
    GroupBucket& bucket = out.BucketOf(step.place);
    const GroupValue* entry = bucket.Take(350);
    if (entry == nullptr)
        entry = bucket.Take(360);
    out.Ref(2, entry == nullptr ? AcDbObjectId() : entry->id());
}

// --- extended records ---

namespace {

enum class Stored : uint8_t { Text, Point, Real, Short, Long, Long64, Byte, Bytes, Handle };

struct StoredRow {
    int first, last;
    Stored as;
};

// Angles are degrees in memory here, too.
constexpr bool IsAngle(int code)
{
    return code >= 50 && code <= 58;
}

constexpr StoredRow kStored[] = {
    {0, 9, Stored::Text},       {10, 17, Stored::Point},     {18, 59, Stored::Real},       {60, 79, Stored::Short},
    {90, 99, Stored::Long},     {100, 102, Stored::Text},    {105, 105, Stored::Text},     {110, 112, Stored::Point},
    {113, 149, Stored::Real},   {160, 169, Stored::Long64},  {170, 179, Stored::Short},    {210, 217, Stored::Point},
    {218, 239, Stored::Real},   {270, 279, Stored::Short},   {280, 299, Stored::Byte},     {300, 309, Stored::Text},
    {310, 319, Stored::Bytes},  {320, 369, Stored::Handle},  {370, 389, Stored::Short},    {390, 399, Stored::Handle},
    {400, 409, Stored::Short},  {410, 419, Stored::Text},    {420, 429, Stored::Long},     {430, 439, Stored::Text},
    {440, 459, Stored::Long},   {460, 469, Stored::Real},    {470, 479, Stored::Text},     {480, 489, Stored::Handle},
    {999, 1003, Stored::Text},  {1004, 1004, Stored::Bytes}, {1005, 1005, Stored::Handle}, {1010, 1013, Stored::Point},
    {1014, 1059, Stored::Real}, {1060, 1070, Stored::Short}, {1071, 1071, Stored::Long},
};

const StoredRow* StoredAs(int code)
{
    for (const StoredRow& row : kStored)
        if (code >= row.first && code <= row.last)
            return &row;
    return nullptr;
}

const ListField* DataList(const ClassSchema& schema)
{
    for (const Section& section : schema.sections())
        for (const Field& field : section.fields)
            if (field.list != nullptr && field.list->TakesAll())
                return field.list;
    return nullptr;
}

CString RecordText(BitReader& items, const ObjectDecoder& in)
{
    const size_t length = items.RS();
    if (HasStringStream(in.version)) {
        std::u16string units(std::min(length, items.Left() / 16), 0);
        for (char16_t& unit : units)
            unit = items.RS();
        if (units.size() < length)
            items.Break();
        const std::wstring wide = FromUtf16(units);
        return WithCarets(CString(wide.c_str(), int(wide.size())));
    }
    const int page = items.RC();
    std::string bytes;
    items.Bytes(length, bytes);
    const TextCodec own(page == 0 ? in.input.codec.codePage() : CodePageOfNumber(page).windows);
    return WithCarets(own.Decode(bytes));
}

// False for a code that means nothing.
bool ReadGroup(ObjectDecoder& in, BitReader& items, const ListField& list)
{
    const int code = items.RS();
    const StoredRow* row = StoredAs(code);
    if (row == nullptr)
        return false;
    GroupValue group;
    group.code = int16_t(code);
    std::string bytes;
    switch (row->as) {
    case Stored::Text:
        group.value = RecordText(items, in);
        break;
    case Stored::Point:
        for (int i = 0; i < 3; ++i) {
            group.code = int16_t(code + 10 * i);
            group.value = items.RD();
            list.Put(*in.object, group);
        }
        return !items.isBroken();
    case Stored::Real:
        group.value = IsAngle(code) ? DegreesOf(items.RD()) : items.RD();
        break;
    case Stored::Short:
        group.value = int64_t(int16_t(items.RS()));
        break;
    case Stored::Long:
        group.value = int64_t(int32_t(items.RL()));
        break;
    case Stored::Long64:
        group.value = int64_t(items.RLL());
        break;
    case Stored::Byte:
        group.value = int64_t(items.RC());
        break;
    case Stored::Bytes:
        items.Bytes(items.RC(), bytes);
        group.value = std::make_shared<const std::string>(std::move(bytes));
        break;
    case Stored::Handle:
        group.value = AcDbObjectId(in.input.StubOf(items.RLL()));
        break;
    }
    list.Put(*in.object, group);
    return !items.isBroken();
}

}   // namespace

// Some programs put data of their own form into a record: it is kept by its bits then.
void ReadRecordGroups(ObjectDecoder& in, const Step&)
{
    const uint32_t size = in.data.BL();
    std::string bytes;
    in.data.Bytes(size, bytes);
    const ListField* list = DataList(in.object->fields());
    BitReader items(bytes);
    while (items.Left() > 0)
        if (list == nullptr || !ReadGroup(in, items, *list)) {
            in.isForeign = true;
            return;
        }
}

void ReadRecordIds(ObjectDecoder& in, const Step&)
{
    while (in.handles.Left() >= 8)
        in.Handle();
}

namespace {

void WriteRecordText(ObjectEncoder& out, BitWriter& items, const CString& text)
{
    if (HasStringStream(out.version)) {
        const CString plain = WithoutCarets(text);
        const std::u16string units = ToUtf16({plain.GetString(), size_t(plain.GetLength())});
        const size_t length = std::min<size_t>(units.size(), 0xFFFF);
        items.RS(int(length));
        for (size_t i = 0; i < length; ++i)
            items.RS(units[i]);
        return;
    }
    const std::string bytes = BytesOf(text, out.output.codec);
    const size_t length = std::min<size_t>(bytes.size(), 0xFFFF);
    items.RS(int(length));
    items.RC(NumberOfCodePage(out.output.codec.codePage()));
    items.Bytes(std::string_view(bytes).substr(0, length));
}

// How many groups were taken.
size_t WriteGroup(ObjectEncoder& out, BitWriter& items, const GroupList& groups, size_t at)
{
    const GroupValue& group = groups[at];
    const StoredRow* row = StoredAs(group.code);
    if (row == nullptr)
        return 1;
    items.RS(group.code);
    switch (row->as) {
    case Stored::Text:
        WriteRecordText(out, items, group.text());
        break;
    case Stored::Point: {
        size_t taken = 0;
        for (size_t i = 0; i < 3; ++i) {
            const bool isThere =
                taken == i && at + i < groups.size() && groups[at + i].code == group.code + 10 * int(i);
            items.RD(isThere ? groups[at + i].real() : 0.0);
            taken += isThere;
        }
        return taken;
    }
    case Stored::Real:
        items.RD(IsAngle(group.code) ? RadiansOf(group.real()) : group.real());
        break;
    case Stored::Short:
        items.RS(int(group.integer()));
        break;
    case Stored::Long:
        items.RL(uint32_t(group.integer()));
        break;
    case Stored::Long64:
        items.RLL(uint64_t(group.integer()));
        break;
    case Stored::Byte:
        items.RC(int(group.integer()));
        break;
    case Stored::Bytes: {
        const Bytes* bytes = std::get_if<Bytes>(&group.value);
        const std::string_view view =
            bytes == nullptr || *bytes == nullptr ? std::string_view() : std::string_view(**bytes).substr(0, 255);
        items.RC(int(view.size()));
        items.Bytes(view);
        break;
    }
    case Stored::Handle:
        items.RLL(out.output.HandleOf(group.id()));
        break;
    }
    return 1;
}

GroupList DataOf(const ObjectEncoder& out)
{
    GroupList groups;
    GroupCopy copy(groups);
    if (const ListField* list = DataList(out.object->fields()))
        list->Get(*out.object, copy, kR2018);
    return groups;
}

}   // namespace

void WriteRecordGroups(ObjectEncoder& out, const Step&)
{
    const GroupList groups = DataOf(out);
    BitWriter items;
    for (size_t at = 0; at < groups.size();)
        at += WriteGroup(out, items, groups, at);
    out.data.BL(uint32_t(items.bytes().size()));
    out.data.Bytes(items.bytes());
}

// What the data refer to stands once more behind them, as references of the right kind.
void WriteRecordIds(ObjectEncoder& out, const Step&)
{
    for (const GroupValue& group : DataOf(out)) {
        const Reference kind = ReferenceOfGroup(group.code);
        if (group.id().isNull() || out.output.HandleOf(group.id()) == 0 || kind == Reference::None)
            continue;
        const int code = kind == Reference::SoftOwner     ? 2
                         : kind == Reference::HardOwner   ? 3
                         : kind == Reference::HardPointer ? 5
                                                          : 4;
        out.Ref(code, group.id());
    }
}

// --- names ---

namespace {

constexpr int kByLayerIndex = 32767, kByBlockIndex = 32766;
constexpr const wchar_t* kByLayerName = L"BYLAYER";
constexpr const wchar_t* kByBlockName = L"BYBLOCK";

template <class Visit>
void ForEachLinetype(const DbCore& core, Visit&& visit)
{
    int index = 0;
    for (const AcDbStub* stub : core.Table(TableKind::Linetype)->records()) {
        if (stub->object == nullptr || stub->erased)
            continue;
        const CString& name = static_cast<const AcDbSymbolTableRecord*>(stub->object)->nameText();
        if (!EqualNoCase(name.GetString(), L"ByLayer") && !EqualNoCase(name.GetString(), L"ByBlock"))
            visit(index++, name);
    }
}

}   // namespace

void ReadLinetypeIndex(ObjectDecoder& in, const Step& step)
{
    const int index = in.data.BS();
    CString name = index == kByBlockIndex ? kByBlockName : kByLayerName;
    ForEachLinetype(in.input.core, [&](int at, const CString& linetype) {
        if (at == index)
            name = linetype;
    });
    in.PutText(step.place, name);
}

void WriteLinetypeIndex(ObjectEncoder& out, const Step& step)
{
    const CString name = out.GetText(step.place);
    int index = EqualNoCase(name.GetString(), L"ByBlock") ? kByBlockIndex : kByLayerIndex;
    ForEachLinetype(out.output.core, [&](int at, const CString& linetype) {
        if (EqualNoCase(name.GetString(), linetype.GetString()))
            index = at;
    });
    out.data.BS(index);
}

void ReadNamedBy(ObjectDecoder& in, const Step& step)
{
    const uint64_t named = in.Handle();
    if (named == 0 && step.place.keep == Keep::Member)
        return;
    CString name = in.input.NameOf(named);
    for (const wchar_t* standard : {kByLayerName, kByBlockName})
        if (EqualNoCase(name.GetString(), standard))
            name = standard;
    in.PutText(step.place, name);
}

void WriteNamedBy(ObjectEncoder& out, const Step& step)
{
    const CString name = out.GetText(step.place);
    out.Ref(5, name.IsEmpty() ? nullptr : out.output.core.Table(TableKind::View)->find(name.GetString()));
}

void ReadReactorImage(ObjectDecoder& in, const Step& step)
{
    in.PutId(step.place, ObjectAccess::Owner(*in.object));
}

}   // namespace KxPlat
