#include "ObjectDecoder.h"
#include "../win/CodePage.h"
#include "DwgTexts.h"
#include "DwgTypes.h"
#include "SpecialItems.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr size_t kChunk = 127;   // bytes in a binary group

bool HasEscape(std::wstring_view text)
{
    return text.find(L"\\U+") != text.npos || text.find(L"\\M+") != text.npos;
}

bool IsPointCode(int code)
{
    return (code >= 10 && code < 19) || (code >= 110 && code < 120) || (code >= 210 && code < 220);
}

CString FromUnits(const std::u16string& units, const TextCodec& codec)
{
    const std::wstring wide = FromUtf16(units);
    if (HasEscape(wide))
        return codec.Decode(ToUtf8(wide));
    return CString(wide.c_str(), int(wide.size()));
}

}   // namespace

CString ObjectDecoder::Text()
{
    if (!HasStringStream(version)) {
        const size_t length = data.BS();
        std::string_view bytes = data.View(length, m_room);
        if (!bytes.empty() && bytes.back() == 0)
            bytes.remove_suffix(1);
        return WithCarets(input.codec.Decode(bytes));
    }
    if (!hasTexts)
        return CString();
    const size_t length = texts.BS();
    if (length * 16 > texts.Left()) {
        texts.Break();
        return CString();
    }
    constexpr size_t kShort = 120;
    wchar_t wide[kShort];
    std::u16string units;
    bool isPlain = length <= kShort;
    for (size_t i = 0; i < length; ++i) {
        const uint16_t unit = texts.RS();
        if (isPlain && unit < 0xD800 && unit != '\\') {
            wide[i] = unit;
            continue;
        }
        if (isPlain)
            for (size_t k = 0; k < i; ++k)
                units.push_back(char16_t(wide[k]));
        isPlain = false;
        units.push_back(unit);
    }
    return WithCarets(isPlain ? CString(wide, int(length)) : FromUnits(units, TextCodec(kUtf8)));
}

StoredDwgColor ObjectDecoder::Color()
{
    StoredDwgColor color;
    color.index = int16_t(data.BS());
    if (version <= kR2000)
        return color;
    const uint32_t rgb = data.BL();
    const int flags = data.RC();
    if ((flags & 1) != 0)
        color.name = Text();
    if ((flags & 2) != 0) {
        CString book = Text();
        book += L"$";
        color.name = book + color.name;
    }
    switch (rgb >> 24) {
    case 0xC0:
        color.index = kByLayerColor;
        break;
    case 0xC1:
        color.index = 0;
        break;
    case 0xC2:
        color.hasRgb = true;
        color.rgb = rgb & 0xFFFFFF;
        color.index = IndexOfRgb(color.rgb);
        break;
    case 0xC3:
        color.index = int16_t(rgb & 0xFF);
        break;
    default:
        break;
    }
    return color;
}

void ObjectDecoder::PutOther(int code, int section, GroupValue&& value)
{
    GroupList& others = ObjectAccess::Make(*object).others;
    value.code = int16_t(code);
    value.section = uint8_t(section);
    value.startsRun = others.empty();
    others.push_back(std::move(value));
}

GroupValue* ObjectDecoder::FindOther(int code, int section)
{
    if (ObjectAccess::Find(*object) == nullptr)
        return nullptr;
    for (GroupValue& group : ObjectAccess::Make(*object).others)
        if (group.code == code && group.section == section)
            return &group;
    return nullptr;
}

void ObjectDecoder::PutInteger(const Place& place, int code, int64_t value)
{
    GroupValue group;
    switch (place.keep) {
    case Keep::Member:
        if (place.type == FieldType::Int16)
            At<int16_t>(place.offset) = int16_t(value);
        else if (place.type == FieldType::Int32)
            At<int32_t>(place.offset) = int32_t(value);
        else if (place.type == FieldType::Int64)
            At<int64_t>(place.offset) = value;
        else if (place.type == FieldType::Real)
            At<double>(place.offset) = double(value);
        break;
    case Keep::List:
        group.code = int16_t(code);
        group.value = value;
        place.list->Put(*object, group);
        break;
    case Keep::Other:
        group.value = value;
        PutOther(code, place.section, std::move(group));
        break;
    case Keep::Nowhere:
        break;
    }
}

void ObjectDecoder::PutReal(const Place& place, int code, double value)
{
    GroupValue group;
    if (place.keep == Keep::List) {
        if (place.list->PutReal(*object, code, value))
            return;
        group.code = int16_t(code);
        group.value = value;
        place.list->Put(*object, group);
    } else if (place.keep == Keep::Other) {
        group.value = value;
        PutOther(code, place.section, std::move(group));
    }
}

void ObjectDecoder::PutText(const Place& place, const CString& text)
{
    GroupValue group;
    if (place.keep == Keep::Member) {
        At<CString>(place.offset) = text;
    } else if (place.keep == Keep::List) {
        group.code = place.code;
        group.value = text;
        place.list->Put(*object, group);
    } else if (place.keep == Keep::Other) {
        group.value = text;
        PutOther(place.code, place.section, std::move(group));
    }
}

void ObjectDecoder::PutId(const Place& place, AcDbStub* stub)
{
    GroupValue group;
    if (place.keep == Keep::Member) {
        At<AcDbObjectId>(place.offset) = stub;
    } else if (place.keep == Keep::List) {
        group.code = place.code;
        group.value = AcDbObjectId(stub);
        place.list->Put(*object, group);
    } else if (place.keep == Keep::Other && stub != nullptr) {
        group.value = AcDbObjectId(stub);
        PutOther(place.code, place.section, std::move(group));
    }
}

void ObjectDecoder::PutBytes(const Place& place, std::string_view bytes)
{
    for (size_t at = 0; at < bytes.size(); at += kChunk) {
        GroupValue group;
        group.value = std::make_shared<const std::string>(bytes.substr(at, kChunk));
        PutOther(place.code, place.section, std::move(group));
    }
}

void ObjectDecoder::Pairs(const Step& step, int64_t value)
{
    int others = 0;
    bool hasOthers = false;
    for (const BitPair& pair : step.pairs) {
        const bool isSet = ((value & pair.bit) != 0) != pair.isOpposite;
        if (pair.offset == 0) {
            hasOthers = true;
            others |= isSet ? pair.memberBit : 0;
            continue;
        }
        int16_t& member = At<int16_t>(pair.offset);
        member = int16_t(isSet ? member | pair.memberBit : member & ~pair.memberBit);
    }
    if (!hasOthers)
        return;
    if (GroupValue* group = FindOther(step.basePlace.code, step.basePlace.section))
        group->value = group->integer() | others;
    else
        PutInteger(step.basePlace, others);
}

void ObjectDecoder::Integer(const Step& step, int64_t value)
{
    if (step.variable >= 0)
        variables[step.variable] = value;
    if (!step.pairs.empty())
        Pairs(step, value);
    if (step.base != 0)
        At<int16_t>(step.basePlace.offset) |= int16_t(step.base);
    if (step.place.keep == Keep::Nowhere)
        return;
    if (step.mask != 0) {
        int16_t& member = At<int16_t>(step.place.offset);
        const bool isSet = (value != 0) != step.isOpposite;
        member = int16_t(isSet ? member | step.mask : member & ~step.mask);
    } else if (!step.hasDefault || step.place.keep != Keep::Other || value != step.place.defaultInteger)
        PutInteger(step.place, value);
}

void ObjectDecoder::Reals(const Step& step)
{
    double values[3];
    switch (step.bits) {
    case Bits::RD:
        for (int i = 0; i < step.components; ++i)
            values[i] = data.RD();
        break;
    case Bits::DD:
        for (int i = 0; i < step.components; ++i)
            values[i] = data.DD(At<double>(step.reference + uint32_t(i) * 8));
        break;
    case Bits::BT:
        values[0] = data.B() ? 0.0 : data.BD();
        break;
    case Bits::BE:
        values[0] = values[1] = 0.0, values[2] = 1.0;
        if (data.B())
            break;
        [[fallthrough]];
    default:
        for (int i = 0; i < step.components; ++i)
            values[i] = data.BD();
        break;
    }
    if (step.isAngle)
        values[0] = DegreesOf(values[0]);
    const Place& place = step.place;
    if (place.keep == Keep::Member) {
        for (int i = 0; i < step.components; ++i)
            At<double>(place.offset + uint32_t(i) * 8) = values[i];
        for (uint32_t offset : step.also)
            At<double>(offset) = values[0];
        return;
    }
    if (place.keep == Keep::Nowhere)
        return;
    bool isDefault = step.hasDefault && place.keep == Keep::Other;
    for (int i = 0; i < step.components; ++i)
        isDefault = isDefault && values[i] == place.defaultReal[i];
    for (int i = 0; i < step.components && !isDefault; ++i)
        PutReal(place, place.code + 10 * i, values[i]);
}

void ObjectDecoder::One(const Step& step)
{
    switch (step.bits) {
    case Bits::B:
        return Integer(step, data.B());
    case Bits::BB:
        return Integer(step, data.BB());
    case Bits::B3:
        return Integer(step, data.B3());
    case Bits::B4:
        return Integer(step, int64_t(data.Bits(4)));
    case Bits::RC:
        return Integer(step, data.RC());
    case Bits::RS:
        return Integer(step, int16_t(data.RS()));
    case Bits::RL:
        return Integer(step, int32_t(data.RL()));
    case Bits::BS:
        return Integer(step, int16_t(data.BS()));
    case Bits::BL:
        return Integer(step, int32_t(data.BL()));
    case Bits::BLL:
        return Integer(step, int64_t(data.BLL()));
    case Bits::Color: {
        const StoredDwgColor color = Color();
        Integer(step, color.index);
        Place place = step.place;
        if (place.code >= 60 && place.code < 70 && color.hasRgb)
            PutInteger(place, place.code + 358, int64_t(color.rgb));
        place.code = int16_t(place.code + 368);
        if (!color.name.IsEmpty() && place.code >= 430 && place.code < 440 && place.keep != Keep::Member)
            PutText(place, color.name);
        return;
    }
    case Bits::Text:
        if (const CString text = Text(); !step.hasDefault || !text.IsEmpty())
            PutText(step.place, text);
        for (uint32_t offset : step.also)
            At<CString>(offset) = At<CString>(step.place.offset);
        return;
    case Bits::Handle:
        return PutId(step.place, Ref());
    case Bits::InData: {
        CString digits;
        digits.Format(L"%I64X", static_cast<long long>(data.H().From(handle)));
        return PutText(step.place, digits);
    }
    default:
        return Reals(step);
    }
}

void ObjectDecoder::Value(const Step& step)
{
    const int64_t count = step.countBy >= 0 ? variables[step.countBy] : step.fixedCount;
    if (!IsCount(count))
        return;
    if (step.bits == Bits::Bytes) {
        std::string bytes;
        data.Bytes(size_t(count), bytes);
        return PutBytes(step.place, bytes);
    }
    for (int64_t i = 0; i < count && !data.isBroken() && !texts.isBroken() && !handles.isBroken(); ++i)
        One(step);
}

bool ObjectDecoder::Holds(const Step& step) const
{
    const int64_t value = variables[step.variable] & step.mask;
    switch (step.test) {
    case Step::None:
        return value == 0;
    case Step::Equal:
        return value == step.operand;
    case Step::More:
        return value > step.operand;
    default:
        return value != 0;
    }
}

void ObjectDecoder::Run(const LayoutProgram& program)
{
    struct Loop {
        uint32_t begin;
        int64_t left;
    };
    Loop loops[8];
    int depth = 0;
    std::fill(std::begin(variables), std::end(variables), 0);
    const Annex* annex = ObjectAccess::Find(*object);
    const size_t first = annex == nullptr ? 0 : annex->others.size();
    size_t firstRow = ~size_t(0);
    const auto noteRow = [&] {
        if (firstRow == ~size_t(0) && !program.order.empty()) {
            const Annex* now = ObjectAccess::Find(*object);
            firstRow = now == nullptr ? 0 : now->others.size();
        }
    };
    const std::vector<Step>& steps = program.steps;
    for (size_t at = 0; at < steps.size() && !data.isBroken() && !isRest;) {
        const Step& step = steps[at++];
        switch (step.kind) {
        case Step::Value:
            if (step.countBy >= 0)
                noteRow();
            Value(step);
            break;
        case Step::If:
            if (!Holds(step))
                at = step.jump;
            break;
        case Step::Jump:
            at = step.jump;
            break;
        case Step::For:
            noteRow();
            if (!IsCount(variables[step.countBy]))
                break;
            if (variables[step.countBy] == 0 || depth == 8)
                at = step.jump;
            else
                loops[depth++] = {uint32_t(at), variables[step.countBy]};
            break;
        case Step::EndFor:
            if (--loops[depth - 1].left > 0)
                at = loops[depth - 1].begin;
            else
                --depth;
            break;
        case Step::Special:
            step.special->read(*this, step);
            break;
        case Step::Const:
            PutInteger(step.place, step.operand);
            break;
        case Step::Or:
            variables[step.variable] |= variables[step.countBy];
            break;
        case Step::Eat:
            break;
        }
    }
    if (!program.order.empty())
        Order(program, first, firstRow);
}

// The groups of a proxy as drawing exchange files have them: its markers and single values first, then the rest.
void ObjectDecoder::Order(const LayoutProgram& program, size_t first, size_t firstRow)
{
    GroupList& others = ObjectAccess::Make(*object).others;
    firstRow = std::min(firstRow, others.size());
    GroupList ordered;
    std::vector<bool> isTaken(others.size());
    const auto take = [&](size_t i) {
        isTaken[i] = true;
        ordered.push_back(std::move(others[i]));
    };
    for (const LayoutProgram::Ordered& row : program.order) {
        if (row.marker != nullptr) {
            GroupValue marker;
            marker.code = 100;
            marker.section = isEntity ? 1 : 0;
            marker.value = CString(row.marker);
            ordered.push_back(std::move(marker));
            continue;
        }
        const size_t end = row.isAnywhere ? others.size() : firstRow;
        const size_t most = IsPointCode(row.code) ? 3 : 1;
        for (size_t i = first; i < end; ++i)
            if (!isTaken[i] && others[i].code == row.code) {
                for (size_t k = 0; k < most && i + k < end && others[i + k].code == row.code + 10 * int(k); ++k)
                    take(i + k);
                break;
            }
    }
    for (size_t i = first; i < others.size(); ++i)
        if (!isTaken[i])
            take(i);
    others.resize(first);
    std::move(ordered.begin(), ordered.end(), std::back_inserter(others));
}

}   // namespace KxPlat
