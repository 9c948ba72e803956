#include "ObjectEncoder.h"
#include "../win/CodePage.h"
#include "DwgTexts.h"
#include "DwgTypes.h"
#include "SpecialItems.h"
#include <algorithm>

namespace KxPlat {

// --- values of places ---

void ObjectEncoder::Begin(const AcDbObject& written, uint64_t ownHandle)
{
    data.Clear();
    texts.Clear();
    handles.Clear();
    m_buckets.clear();
    object = &written;
    handle = ownHandle;
}

GroupBucket& ObjectEncoder::BucketOf(const Place& place)
{
    const int section = place.list == nullptr ? place.section : -1;
    for (GroupBucket& bucket : m_buckets)
        if (bucket.list == place.list && bucket.section == section)
            return bucket;
    m_buckets.emplace_back(place.list, section);
    m_buckets.back().Fill(*object);
    if (place.list != nullptr && !output.dropped.empty())
        m_buckets.back().Thin(output);
    return m_buckets.back();
}

int64_t ObjectEncoder::GetInteger(const Place& place)
{
    switch (place.keep) {
    case Keep::Member:
        switch (place.type) {
        case FieldType::Int16:
            return At<int16_t>(place.offset);
        case FieldType::Int32:
            return At<int32_t>(place.offset);
        case FieldType::Int64:
            return At<int64_t>(place.offset);
        default:
            return int64_t(At<double>(place.offset));
        }
    case Keep::List:
    case Keep::Other:
        if (const GroupValue* group = BucketOf(place).Take(place.code))
            return group->integer();
        return place.defaultInteger;
    default:
        return place.defaultInteger;
    }
}

bool ObjectEncoder::GetReals(const Place& place, int count, double* values)
{
    if (place.keep == Keep::Member) {
        for (int i = 0; i < count; ++i)
            values[i] = At<double>(place.offset + uint32_t(i) * 8);
        return true;
    }
    for (int i = 0; i < count; ++i) {
        values[i] = place.defaultReal[i];
        if (place.keep == Keep::Nowhere)
            continue;
        const GroupValue* group = BucketOf(place).Take(place.code + 10 * i);
        if (group == nullptr && i == 0) {
            for (int k = 0; k < count; ++k)
                values[k] = place.defaultReal[k];
            return false;
        }
        if (group != nullptr)
            values[i] = group->real();
    }
    return true;
}

CString ObjectEncoder::GetText(const Place& place)
{
    if (place.keep == Keep::Member)
        return At<CString>(place.offset);
    if (place.keep == Keep::Nowhere)
        return CString();
    const GroupValue* group = BucketOf(place).Take(place.code);
    return group == nullptr ? CString() : group->text();
}

const AcDbStub* ObjectEncoder::GetId(const Place& place)
{
    if (place.keep == Keep::Member)
        return At<AcDbObjectId>(place.offset);
    if (place.keep == Keep::Nowhere)
        return nullptr;
    const GroupValue* group = BucketOf(place).Take(place.code);
    return group == nullptr ? AcDbObjectId() : group->id();
}

// --- bits ---

void ObjectEncoder::Text(const CString& text)
{
    if (!HasStringStream(version)) {
        const std::string bytes = BytesOf(text, output.codec);
        if (bytes.empty())
            return data.BS(0);
        const size_t length = std::min<size_t>(bytes.size(), 0x7FFE);
        data.BS(int(length) + 1);
        data.Bytes(std::string_view(bytes).substr(0, length));
        return data.RC(0);
    }
    const CString plain = WithoutCarets(text);
    const std::u16string units = ToUtf16({plain.GetString(), size_t(plain.GetLength())});
    const size_t length = std::min<size_t>(units.size(), 0xFFFF);
    texts.BS(int(length));
    for (size_t i = 0; i < length; ++i)
        texts.RS(units[i]);
}

void ObjectEncoder::Color(int index, bool hasRgb, uint32_t rgb, const CString& name)
{
    if (version <= kR2000)
        return data.BS(index);
    data.BS(0);
    data.BL(hasRgb                   ? 0xC2000000u | (rgb & 0xFFFFFF)
            : index == kByLayerColor ? 0xC0000000u
            : index == 0             ? 0xC1000000u
                                     : 0xC3000000u | uint32_t(index & 0xFF));
    const int mark = name.Find(L'$');
    data.RC(name.IsEmpty() ? 0 : mark < 0 ? 1 : 3);
    if (name.IsEmpty())
        return;
    Text(name.Mid(mark + 1));
    if (mark >= 0)
        Text(name.Left(mark));
}

bool ObjectEncoder::IsAtDefault(const Step& step)
{
    if (step.kind != Step::Value || step.place.keep != Keep::Member)
        return false;
    if (step.bits < Bits::RD)
        return GetInteger(step.place) == step.place.defaultInteger;
    double values[3];
    GetReals(step.place, step.components, values);
    return std::memcmp(values, step.place.defaultReal, step.components * sizeof(double)) == 0;
}

bool ObjectEncoder::IsAtDefault(size_t begin, size_t end)
{
    for (size_t i = begin; i < end; ++i)
        if (!IsAtDefault(m_program->steps[i]))
            return false;
    return true;
}

// The bits of the conditions behind: those whose values are needed.
int64_t ObjectEncoder::AutoBits(size_t at)
{
    const std::vector<Step>& steps = m_program->steps;
    int64_t bits = 0;
    for (size_t i = at + 1; i < steps.size(); ++i) {
        const Step& test = steps[i];
        if (test.kind != Step::If || test.variable != steps[at].variable || test.mask == -1)
            continue;
        const bool isLeftOut = IsAtDefault(i + 1, test.jump);
        if (isLeftOut == (test.test == Step::None))
            bits |= test.mask;
        i = test.jump - 1;
    }
    return bits;
}

// As many rows as there are groups to begin them, and no more than their counter says.
int64_t ObjectEncoder::Counted(const Step& step)
{
    const Step& anchor = m_program->steps[step.anchor];
    if (anchor.bits == Bits::Bytes && anchor.kind == Step::Value) {
        int64_t size = 0;
        for (const GroupValue& group : BucketOf(anchor.place).groups())
            if (group.code == anchor.place.code && group.section == anchor.place.section)
                if (const KxPlat::Bytes* bytes = std::get_if<KxPlat::Bytes>(&group.value))
                    size += *bytes == nullptr ? 0 : int64_t((*bytes)->size());
        return size;
    }
    int64_t most = INT64_MAX;
    if (step.place.keep == Keep::Member)
        most = GetInteger(step.place);
    else if (step.place.keep != Keep::Nowhere)
        if (const GroupValue* group = BucketOf(step.place).Take(step.place.code))
            most = group->integer();
    if (anchor.place.keep != Keep::List && anchor.place.keep != Keep::Other)
        return most == INT64_MAX ? 0 : most;
    return std::max<int64_t>(0, std::min<int64_t>(most, int64_t(BucketOf(anchor.place).CountOf(anchor.place.code))));
}

int64_t ObjectEncoder::Integer(const Step& step)
{
    int64_t value = 0;
    if (step.isCounter)
        value = Counted(step);
    else if (step.mask != 0)
        value = ((At<int16_t>(step.place.offset) & step.mask) != 0) != step.isOpposite;
    else
        value = GetInteger(step.place);
    if (step.calculated != nullptr)
        value = step.calculated->value(*this);
    if (step.pairs.empty())
        return value;
    int64_t others = 0;
    bool hasOthers = false;
    for (const BitPair& pair : step.pairs) {
        if (pair.offset == 0 && !hasOthers) {
            hasOthers = true;
            for (const GroupValue& group : BucketOf(step.basePlace).groups())
                if (group.code == step.basePlace.code && group.section == step.basePlace.section)
                    others = group.integer();
        }
        const int64_t member = pair.offset == 0 ? others : At<int16_t>(pair.offset);
        if (((member & pair.memberBit) != 0) != pair.isOpposite)
            value |= pair.bit;
    }
    return value;
}

void ObjectEncoder::Reals(const Step& step)
{
    double values[3];
    GetReals(step.place, step.components, values);
    if (step.isAngle)
        values[0] = RadiansOf(values[0]);
    switch (step.bits) {
    case Bits::RD:
        for (int i = 0; i < step.components; ++i)
            data.RD(values[i]);
        break;
    case Bits::DD:
        for (int i = 0; i < step.components; ++i)
            data.DD(values[i], At<double>(step.reference + uint32_t(i) * 8));
        break;
    case Bits::BT: {
        const bool isZero = std::bit_cast<uint64_t>(values[0]) == 0;
        data.B(isZero);
        if (!isZero)
            data.BD(values[0]);
        break;
    }
    case Bits::BE: {
        static constexpr double up[3] = {0, 0, 1};
        const bool isUp = std::memcmp(values, up, sizeof up) == 0;
        data.B(isUp);
        if (isUp)
            break;
        [[fallthrough]];
    }
    default:
        for (int i = 0; i < step.components; ++i)
            data.BD(values[i]);
        break;
    }
}

void ObjectEncoder::Bytes(const Step& step)
{
    while (const GroupValue* group = BucketOf(step.place).Take(step.place.code))
        if (const KxPlat::Bytes* bytes = std::get_if<KxPlat::Bytes>(&group->value))
            if (*bytes != nullptr)
                data.Bytes(**bytes);
}

void ObjectEncoder::One(const Step& step, int64_t given, bool isGiven)
{
    const auto integer = [&] { return isGiven ? given : Integer(step); };
    switch (step.bits) {
    case Bits::B:
        return data.B(integer() != 0);
    case Bits::BB:
        return data.BB(int(integer() & 3));
    case Bits::B3:
        return data.B3(int(integer()));
    case Bits::B4:
        return data.Bits(uint64_t(integer()), 4);
    case Bits::RC:
        return data.RC(int(integer()));
    case Bits::RS:
        return data.RS(int(integer()));
    case Bits::RL:
        return data.RL(uint32_t(integer()));
    case Bits::BS:
        return data.BS(int(integer()));
    case Bits::BL:
        return data.BL(uint32_t(integer()));
    case Bits::BLL:
        return data.BLL(uint64_t(integer()));
    case Bits::Color: {
        const int64_t index = integer();
        const GroupValue* rgb = nullptr;
        const GroupValue* name = nullptr;
        if (step.place.code >= 60 && step.place.code < 70 && step.place.keep != Keep::Nowhere) {
            rgb = BucketOf(step.place).Take(step.place.code + 358);
            name = BucketOf(step.place).Take(step.place.code + 368);
        }
        return Color(int(index), rgb != nullptr, rgb == nullptr ? 0 : uint32_t(rgb->integer()),
                     name == nullptr ? CString() : name->text());
    }
    case Bits::Text:
        return Text(GetText(step.place));
    case Bits::Handle:
        return Ref(step.handleCode, GetId(step.place));
    case Bits::InData:
        return data.H(0, std::wcstoull(GetText(step.place), nullptr, 16));
    case Bits::Bytes:
        return Bytes(step);
    default:
        return Reals(step);
    }
}

void ObjectEncoder::Value(size_t at)
{
    const Step& step = m_program->steps[at];
    const int64_t count = step.bits == Bits::Bytes ? 1 : step.countBy >= 0 ? variables[step.countBy] : step.fixedCount;
    if (step.variable < 0) {
        for (int64_t i = 0; i < count; ++i)
            One(step, 0, false);
        return;
    }
    int64_t value = Integer(step);
    if (step.isAuto)
        value |= AutoBits(at);
    variables[step.variable] = value;
    One(step, value, true);
}

bool ObjectEncoder::Holds(const Step& step) const
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

void ObjectEncoder::Run(const LayoutProgram& program)
{
    struct Loop {
        uint32_t begin;
        int64_t left;
        const Step* anchor;
        GroupBucket::View before;
    };
    Loop loops[8];
    int depth = 0;
    m_program = &program;
    std::fill(std::begin(variables), std::end(variables), 0);
    const std::vector<Step>& steps = program.steps;
    const auto enter = [this](Loop& loop) {
        if (loop.anchor->place.keep == Keep::List || loop.anchor->place.keep == Keep::Other)
            loop.before = BucketOf(loop.anchor->place).EnterRow(loop.anchor->place.code);
    };
    const auto leave = [this](const Loop& loop) {
        if (loop.anchor->place.keep == Keep::List || loop.anchor->place.keep == Keep::Other)
            BucketOf(loop.anchor->place).Leave(loop.before);
    };
    for (size_t at = 0; at < steps.size();) {
        const Step& step = steps[at++];
        switch (step.kind) {
        case Step::Value:
            Value(at - 1);
            break;
        case Step::If:
            if (!Holds(step))
                at = step.jump;
            break;
        case Step::Jump:
            at = step.jump;
            break;
        case Step::For:
            if (variables[step.countBy] <= 0) {
                at = step.jump;
                break;
            }
            loops[depth] = {uint32_t(at), variables[step.countBy], &steps[step.anchor], {0, 0}};
            enter(loops[depth++]);
            break;
        case Step::EndFor:
            leave(loops[depth - 1]);
            if (--loops[depth - 1].left > 0) {
                at = loops[depth - 1].begin;
                enter(loops[depth - 1]);
            } else
                --depth;
            break;
        case Step::Special:
            step.special->write(*this, step);
            break;
        case Step::Eat:
            BucketOf(step.place).Take(step.place.code);
            break;
        case Step::Or:
            variables[step.variable] |= variables[step.countBy];
            break;
        case Step::Const:
            break;
        }
    }
}

}   // namespace KxPlat
