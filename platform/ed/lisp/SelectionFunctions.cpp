#include "../../rx/ResBufs.h"
#include "../../win/CharTables.h"
#include "../acedads.h"
#include "Chain.h"
#include "HostValues.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

namespace {

// A chain of the points in a list, as polygons and fences take them.
resbuf* PointChain(const Value& list)
{
    ChainBuilder chain;
    for (const Value& member : Members(list)) {
        if (!IsPoint(member)) {
            acutRelRb(chain.Take());
            Fail(L"bad point argument");
        }
        const Point point = PointOf(member);
        chain.Add(NewPointRb(RT3DPOINT, point.x, point.y, point.z));
    }
    return chain.Take();
}

bool IsListOfPoints(const Value& value)
{
    return value.IsCons() && value.car().IsCons() && value.car().car().IsNumber();
}

// The arguments of (ssget [mode] [point [point]] [points] [filter]).
struct Request {
    std::wstring mode;
    bool hasMode = false;
    ads_point points[2] = {};
    int pointCount = 0;
    const Value* pointList = nullptr;
    const Value* filter = nullptr;

    explicit Request(const Arguments& arguments)
    {
        for (const Value& argument : arguments) {
            if (argument.IsNil())
                continue;
            if (argument.IsText() && !hasMode) {
                mode = argument.text();
                hasMode = true;
            } else if (IsPoint(argument) && pointCount < 2) {
                const Point point = PointOf(argument);
                points[pointCount][X] = point.x;
                points[pointCount][Y] = point.y;
                points[pointCount++][Z] = point.z;
            } else if (IsListOfPoints(argument) && TakesPoints() && pointList == nullptr) {
                pointList = &argument;
            } else if (argument.IsCons() && filter == nullptr) {
                filter = &argument;
            } else {
                Fail(L"bad argument value");
            }
        }
    }
    bool TakesPoints() const
    {
        const std::wstring upper = Upper(mode);
        const std::wstring way =
            upper.substr(upper.find_first_not_of(L"_.") == std::wstring::npos ? 0 : upper.find_first_not_of(L"_."));
        return way.starts_with(L"WP") || way.starts_with(L"CP") || way.starts_with(L"F");
    }
};

Value SsGet(Interpreter& lisp, const Arguments& arguments)
{
    const Request request(arguments);
    const Chain filter(request.filter == nullptr ? nullptr : GroupChainOf(*request.filter));
    const Chain polygon(request.pointList == nullptr ? nullptr : PointChain(*request.pointList));
    const void* first = polygon.get() != nullptr ? static_cast<const void*>(polygon.get())
                        : request.pointCount > 0 ? static_cast<const void*>(request.points[0])
                                                 : nullptr;
    ads_name set;
    const int answer = acedSSGet(request.hasMode ? request.mode.c_str() : nullptr, first,
                                 request.pointCount > 1 ? request.points[1] : nullptr, filter.get(), set);
    if (answer == RTCAN)
        throw Failure(L"Function cancelled", Failure::Kind::Cancelled);
    return answer == RTNORM ? PickSetValue(set, true) : Value();
}

Value SsLength(Interpreter&, const Arguments& arguments)
{
    Adesk::Int32 length = 0;
    acedSSLength(PickSetOf(arguments[0]), &length);
    return Value(length);
}

Value SsName(Interpreter&, const Arguments& arguments)
{
    const ads_name& set = PickSetOf(arguments[0]);
    const double index = NumberOf(arguments[1]);
    ads_name entity;
    if (!(index >= 0 && index <= INT32_MAX) || acedSSName(set, Adesk::Int32(index), entity) != RTNORM)
        return Value();
    return EntityNameValue(entity);
}

// (ssadd) makes an empty set, (ssadd entity) one of it, (ssadd entity set) changes the set.
Value SsAdd(Interpreter&, const Arguments& arguments)
{
    ads_name entity, result;
    if (arguments.Get(0))
        EntityNameOf(arguments[0], entity);
    const bool hasSet = bool(arguments.Get(1));
    if (hasSet && !arguments[0])
        return arguments[1];
    if (acedSSAdd(arguments.Get(0) ? entity : nullptr, hasSet ? PickSetOf(arguments[1]) : nullptr, result) != RTNORM)
        return Value();
    return hasSet ? arguments[1] : PickSetValue(result, true);
}

Value SsDel(Interpreter&, const Arguments& arguments)
{
    ads_name entity;
    EntityNameOf(arguments[0], entity);
    return acedSSDel(entity, PickSetOf(arguments[1])) == RTNORM ? arguments[1] : Value();
}

Value SsMember(Interpreter&, const Arguments& arguments)
{
    ads_name entity;
    EntityNameOf(arguments[0], entity);
    return acedSSMemb(entity, PickSetOf(arguments[1])) == RTNORM ? arguments[0] : Value();
}

Value SsNameX(Interpreter& lisp, const Arguments& arguments)
{
    Chain chain;
    const Adesk::Int32 index = arguments.Get(1) ? IntegerOf(arguments[1]) : -1;
    Value value;
    if (acedSSNameX(chain.address(), PickSetOf(arguments[0]), index) != RTNORM || chain.get() == nullptr ||
        !ValueOfChain(lisp, chain.get(), value))
        return Value();
    return value.IsCons() && !value.car().IsCons() ? ListOf(value) : value;
}

Value SsSetFirst(Interpreter&, const Arguments& arguments)
{
    acedSSSetFirst(arguments.Get(0) ? PickSetOf(arguments[0]) : nullptr,
                   arguments.Get(1) ? PickSetOf(arguments[1]) : nullptr);
    return ListOf(arguments.Get(0), arguments.Get(1));
}

Value SetIn(const Chain& chain)
{
    return chain.get() == nullptr ? Value() : PickSetValue(chain.get()->resval.rlname, true);
}

Value SsGetFirst(Interpreter&, const Arguments&)
{
    Chain grips, pickFirst;
    acedSSGetFirst(grips.address(), pickFirst.address());
    return ListOf(SetIn(grips), SetIn(pickFirst));
}

const Builtin kRows[] = {
    {L"SSGET", SsGet, 0, 4},     {L"SSLENGTH", SsLength, 1, 1},     {L"SSNAME", SsName, 2, 2},
    {L"SSADD", SsAdd, 0, 2},     {L"SSDEL", SsDel, 2, 2},           {L"SSMEMB", SsMember, 2, 2},
    {L"SSNAMEX", SsNameX, 1, 2}, {L"SSSETFIRST", SsSetFirst, 1, 2}, {L"SSGETFIRST", SsGetFirst, 0, 0},
};

}   // namespace

const BuiltinTable kSelections = TableOf(kRows);

}   // namespace KxPlat::Lisp
