#include "HostValues.h"
#include "../../rx/acutads.h"
#include "../../rx/ResBufs.h"
#include "../../win/Format.h"
#include "../select/EntityGroups.h"
#include "../select/SelectionSet.h"
#include "Interpreter.h"
#include "Printer.h"

namespace KxPlat::Lisp {

namespace {

constexpr int kMostDepth = 500;
constexpr int kXDataMark = -3;

std::wstring_view TextIn(const resbuf& buffer)
{
    return buffer.resval.rstring == nullptr ? L"" : buffer.resval.rstring;
}

}   // namespace

PickSetCell::PickSetCell(const ads_name name, bool takesOver)
{
    ads_name_set(name, m_name);
    if (!takesOver)
        SelectionSets::All().Hold(m_name);
}

PickSetCell::~PickSetCell()
{
    SelectionSets::All().Release(m_name);
}

std::wstring PickSetCell::Printed() const
{
    return Format(L"<Selection set: %I64x>", (long long)m_name[0]);
}

bool PickSetCell::IsSame(const HostCell& other) const
{
    const auto* set = dynamic_cast<const PickSetCell*>(&other);
    return set != nullptr && ads_name_equal(set->m_name, m_name);
}

Value PickSetValue(const ads_name name, bool takesOver)
{
    return new PickSetCell(name, takesOver);
}

const ads_name& PickSetOf(const Value& value)
{
    const auto* set = value.kind() == Kind::Host ? dynamic_cast<const PickSetCell*>(value.host()) : nullptr;
    if (set == nullptr)
        BadArgument(L"lselsetp", value);
    return set->name();
}

void EntityNameOf(const Value& value, ads_name name)
{
    if (!value.IsEntityName())
        BadArgument(L"lentityp", value);
    name[0] = value.id().asOldId();
    name[1] = 0;
}

Value EntityNameValue(const ads_name name)
{
    AcDbObjectId id;
    id.setFromOldId(name[0]);
    return Value(id);
}

namespace {

// Two or three reals are a point to the host.
bool IsRealPoint(const Value& value)
{
    size_t count = 0;
    const Value* at = &value;
    for (; at->IsCons() && at->car().IsReal() && count <= 3; at = &at->cdr())
        ++count;
    return at->IsNil() && (count == 2 || count == 3);
}

bool Add(ChainBuilder& chain, const Value& value, int depth);

bool AddList(ChainBuilder& chain, const Value& value, int depth)
{
    chain.Add(acutNewRb(RTLB));
    const Value* at = &value;
    for (; at->IsCons(); at = &at->cdr())
        if (!Add(chain, at->car(), depth + 1))
            return false;
    if (!at->IsNil()) {
        chain.Add(acutNewRb(RTDOTE));
        if (!Add(chain, *at, depth + 1))
            return false;
    }
    chain.Add(acutNewRb(RTLE));
    return true;
}

bool Add(ChainBuilder& chain, const Value& value, int depth)
{
    if (depth > kMostDepth)
        return false;
    switch (value.kind()) {
    case Kind::Nil:
        chain.Add(acutNewRb(RTNIL));
        return true;
    case Kind::Integer:
        chain.Add(value.integer() == int16_t(value.integer()) ? NewShortRb(RTSHORT, value.integer())
                                                              : NewLongRb(RTLONG, value.integer()));
        return true;
    case Kind::Real:
        chain.Add(NewRealRb(RTREAL, value.real()));
        return true;
    case Kind::Text:
        chain.Add(NewTextRb(RTSTR, value.text()));
        return true;
    case Kind::Symbol:
        chain.Add(value.symbol()->isConstant ? acutNewRb(RTT) : NewTextRb(RTSTR, value.symbol()->name));
        return true;
    case Kind::EntityName: {
        const ads_name name = {value.id().asOldId(), 0};
        chain.Add(NewNameRb(RTENAME, name));
        return true;
    }
    case Kind::Cons: {
        if (!IsRealPoint(value))
            return AddList(chain, value, depth);
        const Point point = PointOf(value);
        chain.Add(NewPointRb(point.is3d ? RT3DPOINT : RTPOINT, point.x, point.y, point.z));
        return true;
    }
    case Kind::Host:
        if (const auto* set = dynamic_cast<const PickSetCell*>(value.host())) {
            chain.Add(NewNameRb(RTPICKS, set->name()));
            return true;
        }
        break;
    default:
        break;
    }
    chain.Add(NewTextRb(RTSTR, Printed(value)));
    return true;
}

}   // namespace

resbuf* ChainOfValue(const Value& value)
{
    return ChainOfArguments(&value, 1);
}

resbuf* ChainOfArguments(const Value* first, size_t count)
{
    ChainBuilder chain;
    bool isWhole = true;
    for (size_t i = 0; i < count && isWhole; ++i)
        isWhole = Add(chain, first[i], 0);
    resbuf* made = chain.Take();
    if (isWhole)
        return made;
    acutRelRb(made);
    return nullptr;
}

namespace {

// A group's value: of a DXF code, or of one of the RT types.
Value AtomOf(Interpreter* lisp, const resbuf& buffer)
{
    switch (ResKindOf(buffer.restype)) {
    case ResKind::Real:
        return Value(double(buffer.resval.rreal));
    case ResKind::Short:
        return Value(int32_t(buffer.resval.rint));
    case ResKind::Long:
        return Value(int32_t(buffer.resval.rlong));
    case ResKind::Int64:
        return Value(double(buffer.resval.mnInt64));
    case ResKind::Text:
        return Value(TextIn(buffer));
    case ResKind::EntityName:
        if (IsSelectionSetName(buffer.resval.rlname))
            return SelectionSets::All().Find(buffer.resval.rlname) == nullptr
                       ? Value()
                       : PickSetValue(buffer.resval.rlname, false);
        return buffer.resval.rlname[0] == 0 ? Value() : EntityNameValue(buffer.resval.rlname);
    case ResKind::Point: {
        const ads_real* at = buffer.resval.rpoint;
        return ValueOf(Point{at[X], at[Y], at[Z], buffer.restype != RTPOINT});
    }
    case ResKind::Binary: {
        std::wstring digits;
        for (int i = 0; i < buffer.resval.rbinary.clen; ++i)
            digits += Format(L"%02X", int(static_cast<unsigned char>(buffer.resval.rbinary.buf[i])));
        return Value(std::move(digits));
    }
    default:
        return buffer.restype == RTT && lisp != nullptr ? lisp->T() : Value();
    }
}

bool IsGroupCode(int restype)
{
    return restype < RTNONE;
}

Value GroupOf(const resbuf& buffer)
{
    return Pair(Value(int32_t(buffer.restype)), AtomOf(nullptr, buffer));
}

}   // namespace

bool ValuesOfChain(Interpreter& lisp, const resbuf* chain, std::vector<Value>& values)
{
    struct Open {
        ListBuilder members;
        bool isDotted = false;
    };
    std::vector<Open> open;
    for (const resbuf* at = chain; at != nullptr; at = at->rbnext) {
        Value member;
        if (at->restype == RTLB) {
            open.emplace_back();
            continue;
        }
        if (at->restype == RTDOTE && !open.empty()) {
            open.back().isDotted = true;
            continue;
        }
        if (at->restype == RTLE) {
            if (open.empty())
                return false;
            member = open.back().members.Take();
            open.pop_back();
        } else {
            member = IsGroupCode(at->restype) ? GroupOf(*at) : AtomOf(&lisp, *at);
        }
        if (open.empty())
            values.push_back(std::move(member));
        else if (open.back().isDotted)
            open.back().members.SetTail(std::move(member));
        else
            open.back().members.Add(std::move(member));
    }
    return open.empty();
}

// A chain of groups stays a list even when it has one member only.
bool ValueOfChain(Interpreter& lisp, const resbuf* chain, Value& value)
{
    std::vector<Value> values;
    if (!ValuesOfChain(lisp, chain, values))
        return false;
    if (values.size() == 1 && !IsGroupCode(chain->restype)) {
        value = std::move(values[0]);
        return true;
    }
    ListBuilder list;
    for (Value& one : values)
        list.Add(std::move(one));
    value = list.Take();
    return true;
}

namespace {

Value AtomOf(const GroupValue& group)
{
    if (const CString* text = std::get_if<CString>(&group.value))
        return Value(std::wstring_view(*text, size_t(text->GetLength())));
    if (const double* real = std::get_if<double>(&group.value))
        return Value(*real);
    if (const AcDbObjectId* id = std::get_if<AcDbObjectId>(&group.value)) {
        if (group.code != 1005 && !(group.code >= 320 && group.code <= 329))
            return id->isNull() ? Value() : Value(*id);
        wchar_t digits[17];
        id->handle().getIntoAsciiBuffer(digits);
        return Value(digits);
    }
    if (const Bytes* bytes = std::get_if<Bytes>(&group.value)) {
        std::wstring digits;
        if (*bytes != nullptr)
            for (const char byte : **bytes)
                digits += Format(L"%02X", int(static_cast<unsigned char>(byte)));
        return Value(std::move(digits));
    }
    const int64_t number = group.integer();
    return number == int32_t(number) ? Value(int32_t(number)) : Value(double(number));
}

// The group at `at` as (code . value) or (code x y z); `at` moves behind it.
Value GroupAt(const GroupList& groups, size_t& at)
{
    const GroupValue& group = groups[at];
    double point[3];
    const size_t count = PointAt(groups, at, point);
    at += count;
    if (count == 1)
        return Pair(Value(int32_t(group.code)), AtomOf(group));
    return Pair(Value(int32_t(group.code)), ValueOf(Point{point[0], point[1], point[2], count == 3}));
}

// One list per application: its name, then its groups.
Value XDataOf(const GroupList& groups, size_t at)
{
    ListBuilder apps;
    apps.Add(Value(int32_t(kXDataMark)));
    while (at < groups.size()) {
        ListBuilder app;
        app.Add(AtomOf(groups[at++]));
        while (at < groups.size() && groups[at].code != 1001)
            app.Add(GroupAt(groups, at));
        apps.Add(app.Take());
    }
    return apps.Take();
}

}   // namespace

Value ValueOfGroups(const GroupList& groups)
{
    ListBuilder list;
    for (size_t at = 0; at < groups.size();) {
        if (groups[at].code == kXDataMark) {
            list.Add(XDataOf(groups, at + 1));
            break;
        }
        list.Add(GroupAt(groups, at));
    }
    return list.Take();
}

Value ValueOfGroupChain(const resbuf* chain)
{
    ListBuilder list;
    for (; chain != nullptr; chain = chain->rbnext)
        list.Add(GroupOf(*chain));
    return list.Take();
}

namespace {

[[noreturn]] void BadGroup(const Value& group)
{
    throw Failure(L"bad DXF group: " + Shortened(group));
}

resbuf* PointBuffer(int code, const Value& value, const Value& group)
{
    if (!IsPoint(value))
        BadGroup(group);
    const Point point = PointOf(value);
    return NewPointRb(code, point.x, point.y, point.z);
}

resbuf* BytesBuffer(int code, const std::wstring& digits)
{
    std::string bytes;
    for (size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += char(uint64_t(AcDbHandle(digits.substr(i, 2).c_str())));
    return NewBinaryRb(code, bytes);
}

// The buffer of (code . value); a list of one value does as well.
resbuf* BufferOf(const Value& group)
{
    if (!group.IsCons() || !group.car().IsInteger())
        BadGroup(group);
    const int code = group.car().integer();
    const Value& value = group.cdr().IsCons() && group.cdr().cdr().IsNil() && ResKindOf(code) != ResKind::Point
                             ? group.cdr().car()
                             : group.cdr();
    switch (ResKindOf(code)) {
    case ResKind::Point:
        return PointBuffer(code, value, group);
    case ResKind::Text:
        if (value.IsText())
            return NewTextRb(code, value.text());
        break;
    case ResKind::Real:
        if (value.IsNumber())
            return NewRealRb(code, value.number());
        break;
    case ResKind::Short:
        if (value.IsInteger())
            return NewShortRb(code, value.integer());
        break;
    case ResKind::Long:
        if (value.IsInteger())
            return NewLongRb(code, value.integer());
        break;
    case ResKind::EntityName:
        if (value.IsEntityName() || value.IsNil()) {
            const ads_name name = {value.IsNil() ? 0 : value.id().asOldId(), 0};
            return NewNameRb(code, name);
        }
        break;
    case ResKind::Int64:
        if (value.IsNumber()) {
            resbuf* buffer = acutNewRb(code);
            buffer->resval.mnInt64 = int64_t(value.number());
            return buffer;
        }
        break;
    case ResKind::Binary:
        if (value.IsText())
            return BytesBuffer(code, value.text());
        break;
    default:
        break;
    }
    BadGroup(group);
}

void AddXData(ChainBuilder& chain, const Value& apps)
{
    chain.Add(acutNewRb(kXDataMark));
    for (const Value& app : Members(apps)) {
        if (!app.IsCons() || !app.car().IsText())
            BadGroup(app);
        chain.Add(NewTextRb(1001, app.car().text()));
        for (const Value& group : Members(app.cdr()))
            chain.Add(BufferOf(group));
    }
}

}   // namespace

resbuf* GroupChainOf(const Value& list)
{
    ChainBuilder chain;
    try {
        for (const Value& group : Members(ListIn(list))) {
            if (group.IsCons() && group.car().IsInteger() && group.car().integer() == kXDataMark)
                AddXData(chain, group.cdr());
            else
                chain.Add(BufferOf(group));
        }
    } catch (...) {
        acutRelRb(chain.Take());
        throw;
    }
    return chain.Take();
}

}   // namespace KxPlat::Lisp
