// The tables themselves, and what is particular to layers, line types and views.
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/core/RecordNames.h"
#include "../win/CharTables.h"
#include "../win/CodePage.h"
#include "DwgTypes.h"
#include "HeaderRoots.h"
#include "SpecialPairs.h"
#include <cmath>
#include <unordered_set>

namespace KxPlat {

namespace {

TableKind KindOf(const DbCore& core, const AcDbObject& table)
{
    for (size_t kind = 0; kind < kTableCount; ++kind)
        if (core.tables[kind] != nullptr && core.tables[kind]->object == &table)
            return TableKind(kind);
    return TableKind::Count;
}

bool IsStandardLinetype(const CString& name)
{
    return EqualNoCase(name.GetString(), L"ByLayer") || EqualNoCase(name.GetString(), L"ByBlock");
}

}   // namespace

// --- tables ---

void ReadTable(ObjectDecoder& in, const Step&)
{
    AcDbSymbolTable* table = static_cast<AcDbSymbolTable*>(in.object);
    const TableKind kind = KindOf(in.input.core, *in.object);
    uint32_t count = in.data.BL();
    if (kind == TableKind::DimStyle && in.version >= kR2000)
        count += in.data.RC();
    if (kind == TableKind::Block || kind == TableKind::Linetype)
        count += 2;
    if (!in.IsCount(count))
        return;
    std::vector<uint64_t> records(count);
    for (uint64_t& record : records)
        record = in.Handle();
    if (in.handles.isBroken())
        return;
    std::unordered_set<uint64_t> met;
    int spaces = 0;
    for (size_t place = 0; place < records.size(); ++place) {
        const uint64_t handle = records[place];
        AcDbSymbolTableRecord* record =
            handle == 0 || !met.insert(handle).second ? nullptr : AcDbSymbolTableRecord::cast(in.input.Need(handle));
        if (record != nullptr && record->isKindOf(table->recordClass())) {
            if (kind == TableKind::Block && place + 2 < records.size())
                NumberBlock(*static_cast<AcDbBlockTableRecord*>(record), place, spaces);
            table->attach(record->objectId());
            ObjectAccess::Owner(*record) = in.input.StubOf(in.handle);
        }
    }
    PlaceWanted written;
    written.code = 70;
    in.PutInteger(FindPlace(&table->fields(), false, written), int64_t(table->records().size()));
}

void WriteTable(ObjectEncoder& out, const Step&)
{
    const AcDbSymbolTable* table = static_cast<const AcDbSymbolTable*>(out.object);
    const TableKind kind = KindOf(out.output.core, *out.object);
    // The two standard line types, and the spaces, do not count among the others.
    std::vector<const AcDbStub*> counted;
    for (const AcDbStub* stub : table->records()) {
        if (out.output.HandleOf(stub) == 0 || kind == TableKind::Block)
            continue;
        const CString& name = static_cast<const AcDbSymbolTableRecord*>(stub->object)->nameText();
        if (kind != TableKind::Linetype || !IsStandardLinetype(name))
            counted.push_back(stub);
    }
    if (kind == TableKind::Block)
        counted = out.output.blocks;
    out.data.BL(uint32_t(counted.size()));
    if (kind == TableKind::DimStyle)
        out.data.RC(0);
    for (const AcDbStub* stub : counted)
        out.Ref(2, stub);
    const DwgRoots& roots = out.output.roots;
    if (kind == TableKind::Block) {
        out.handles.H(3, roots.modelSpace);
        out.handles.H(3, roots.paperSpace);
    } else if (kind == TableKind::Linetype) {
        out.handles.H(3, roots.byBlock);
        out.handles.H(3, roots.byLayer);
    }
}

void ReadXref(ObjectDecoder& in, const Step&)
{
    in.Handle();
}

// A record that came with another drawing bears the name of that drawing's block before its own.
void WriteXref(ObjectEncoder& out, const Step&)
{
    const AcDbSymbolTableRecord* record = static_cast<const AcDbSymbolTableRecord*>(out.object);
    const int mark = record->nameText().Find(L'|');
    const AcDbStub* block = nullptr;
    if (record->isDependent() && mark > 0)
        block = out.output.core.Table(TableKind::Block)->find({record->nameText().GetString(), size_t(mark)});
    out.Ref(5, block);
}

// --- layers ---

namespace {

enum LayerBit { kFrozen = 1, kOff = 2, kFrozenInNew = 4, kLocked = 8, kPlots = 16 };

// The bits of a layer in the file, and those of its group 70.
constexpr std::pair<int, int> kLayerBits[] = {{kFrozen, 1}, {kFrozenInNew, 2}, {kLocked, 4}};

}   // namespace

void ReadLayerBits(ObjectDecoder& in, const Step& step)
{
    const int bits = in.data.BS();
    int16_t& flags = in.At<int16_t>(step.place.offset);
    for (const auto& row : kLayerBits)
        flags = int16_t((bits & row.first) != 0 ? flags | row.second : flags & ~row.second);
    in.variables[step.variable] = (bits & kOff) != 0;
    in.At<int16_t>(step.also[0]) = (bits & kPlots) != 0;
    in.At<int16_t>(step.also[1]) = LineWeightOf(bits >> 5 & 31);
}

void WriteLayerBits(ObjectEncoder& out, const Step& step)
{
    const int16_t flags = out.At<int16_t>(step.place.offset);
    PlaceWanted color;
    color.code = 62;
    int bits = out.GetInteger(FindPlace(&out.object->fields(), false, color)) < 0 ? kOff : 0;
    for (const auto& row : kLayerBits)
        bits |= (flags & row.second) != 0 ? row.first : 0;
    bits |= out.At<int16_t>(step.also[0]) != 0 ? kPlots : 0;
    out.data.BS(bits | NumberOfLineWeight(out.At<int16_t>(step.also[1])) << 5);
}

void ReadLayerColor(ObjectDecoder& in, const Step& step)
{
    const StoredDwgColor color = in.Color();
    const int16_t index = color.index < 0 ? int16_t(-color.index) : color.index;
    in.At<int16_t>(step.place.offset) = in.variables[step.countBy] != 0 || color.index < 0 ? int16_t(-index) : index;
    if (color.hasRgb)
        in.At<int32_t>(step.also[0]) = int32_t(color.rgb);
    if (!color.name.IsEmpty()) {
        GroupValue name;
        name.value = color.name;
        in.PutOther(430, step.place.section, std::move(name));
    }
}

void WriteLayerColor(ObjectEncoder& out, const Step& step)
{
    const int32_t rgb = out.At<int32_t>(step.also[0]);
    Place name = step.place;
    name.keep = Keep::Other;
    name.code = 430;
    out.Color(std::abs(int(out.At<int16_t>(step.place.offset))), rgb != INT32_MIN, uint32_t(rgb), out.GetText(name));
}

// --- line types ---

namespace {

struct Dash {
    double length = 0, x = 0, y = 0, scale = 0, rotation = 0;
    int shape = 0, flags = 0;
    const AcDbStub* style = nullptr;
    CString text;
};

enum DashFlag { kUpright = 1, kIsText = 2, kIsShape = 4 };

constexpr size_t kTexts = 256;   // characters, or bytes before R2007

CString DashText(const std::string& area, size_t at, const ObjectDecoder& in)
{
    if (!HasStringStream(in.version))
        return at < area.size() ? in.input.codec.Decode(area.c_str() + at) : CString();
    std::u16string units;
    for (size_t i = at * 2; i + 1 < area.size(); i += 2) {
        const char16_t unit = char16_t(uint8_t(area[i]) | uint8_t(area[i + 1]) << 8);
        if (unit == 0)
            break;
        units.push_back(unit);
    }
    return CString(FromUtf16(units).c_str());
}

}   // namespace

void ReadDashes(ObjectDecoder& in, const Step& step)
{
    std::vector<Dash> dashes(in.data.RC());
    bool hasText = false;
    for (Dash& dash : dashes) {
        dash.length = in.data.BD();
        dash.shape = in.data.BS();
        dash.x = in.data.RD();
        dash.y = in.data.RD();
        dash.scale = in.data.BD();
        dash.rotation = in.data.BD();
        dash.flags = in.data.BS();
        hasText = hasText || (dash.flags & kIsText) != 0;
    }
    std::string area;
    if (!HasStringStream(in.version))
        in.data.Bytes(kTexts, area);
    else if (hasText)
        in.data.Bytes(kTexts * 2, area);
    const auto real = [&](int code, double value) { in.PutReal(step.place, code, value); };
    for (const Dash& dash : dashes) {
        AcDbStub* style = in.Ref();
        real(49, dash.length);
        in.PutInteger(step.place, 74, dash.flags);
        if ((dash.flags & (kIsText | kIsShape)) == 0)
            continue;
        in.PutInteger(step.place, 75, (dash.flags & kIsText) != 0 ? 0 : dash.shape);
        Place id = step.place;
        id.code = 340;
        in.PutId(id, style);
        real(46, dash.scale);
        real(50, DegreesOf(dash.rotation));
        real(44, dash.x);
        real(45, dash.y);
        if ((dash.flags & kIsText) != 0) {
            Place text = step.place;
            text.code = 9;
            in.PutText(text, DashText(area, size_t(dash.shape), in));
        }
    }
}

void WriteDashes(ObjectEncoder& out, const Step& step)
{
    std::vector<Dash> dashes;
    for (const GroupValue& group : out.BucketOf(step.place).groups()) {
        if (group.code == 49)
            dashes.emplace_back();
        if (dashes.empty())
            continue;
        Dash& dash = dashes.back();
        switch (group.code) {
        case 49:
            dash.length = group.real();
            break;
        case 74:
            dash.flags = int(group.integer());
            break;
        case 75:
            dash.shape = int(group.integer());
            break;
        case 340:
            dash.style = group.id();
            break;
        case 46:
            dash.scale = group.real();
            break;
        case 50:
            dash.rotation = RadiansOf(group.real());
            break;
        case 44:
            dash.x = group.real();
            break;
        case 45:
            dash.y = group.real();
            break;
        case 9:
            dash.text = group.text();
            break;
        default:
            break;
        }
    }
    dashes.resize(std::min<size_t>(dashes.size(), 255));
    std::string area;
    for (Dash& dash : dashes) {
        if ((dash.flags & kIsText) == 0)
            continue;
        std::string bytes;
        if (HasStringStream(out.version)) {
            for (char16_t unit : ToUtf16({dash.text.GetString(), size_t(dash.text.GetLength())}))
                bytes += {char(unit & 255), char(unit >> 8)};
            bytes.append(2, '\0');
        } else {
            bytes = out.output.codec.Encode(dash.text);
            bytes.push_back('\0');
        }
        dash.shape = int(area.size() / (HasStringStream(out.version) ? 2 : 1));
        area += bytes;
    }
    out.data.RC(int(dashes.size()));
    for (const Dash& dash : dashes) {
        out.data.BD(dash.length);
        out.data.BS(dash.shape);
        out.data.RD(dash.x);
        out.data.RD(dash.y);
        out.data.BD(dash.scale);
        out.data.BD(dash.rotation);
        out.data.BS(dash.flags);
        out.Ref(5, dash.style);
    }
    const size_t size = !HasStringStream(out.version) ? kTexts : area.empty() ? 0 : kTexts * 2;
    area.resize(size);
    out.data.Bytes(area);
}

// --- views ---

// The width in memory is a part of the height.
void ReadAspect(ObjectDecoder& in, const Step& step)
{
    const double width = in.data.BD(), height = in.At<double>(step.also[0]);
    in.At<double>(step.place.offset) = height == 0 ? 1 : width / height;
}

void WriteAspect(ObjectEncoder& out, const Step& step)
{
    const double aspect = out.At<double>(step.place.offset), height = out.At<double>(step.also[0]);
    const double width = aspect * height;
    for (const double tried : {width, std::nextafter(width, -HUGE_VAL), std::nextafter(width, HUGE_VAL)})
        if (tried / height == aspect)
            return out.data.BD(tried);
    out.data.BD(width);
}

}   // namespace KxPlat
