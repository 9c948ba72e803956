#include "Builtin.h"
#include "Printer.h"

namespace KxPlat::Lisp {

void BadArgument(const wchar_t* predicate, const Value& value)
{
    throw Failure(std::wstring(L"bad argument type: ") + predicate + L" " + Shortened(value));
}

void Fail(const wchar_t* message)
{
    throw Failure(message);
}

int32_t IntegerOf(const Value& value)
{
    if (!value.IsInteger())
        BadArgument(L"fixnump:", value);
    return value.integer();
}

double NumberOf(const Value& value)
{
    if (!value.IsNumber())
        BadArgument(L"numberp:", value);
    return value.number();
}

const std::wstring& TextOf(const Value& value)
{
    if (!value.IsText())
        BadArgument(L"stringp", value);
    return value.text();
}

Symbol* SymbolOf(const Value& value)
{
    if (!value.IsSymbol())
        BadArgument(L"symbolp", value);
    return value.symbol();
}

const Value& ListIn(const Value& value)
{
    if (!value.IsList())
        BadArgument(L"listp", value);
    return value;
}

bool IsPoint(const Value& value)
{
    const Value* at = &value;
    size_t length = 0;
    for (; at->IsCons() && at->car().IsNumber() && length <= 3; at = &at->cdr())
        ++length;
    return at->IsNil() && (length == 2 || length == 3);
}

Point PointOf(const Value& value)
{
    if (!value.IsCons())
        BadArgument(L"2D/3D point:", value);
    if (!IsPoint(value))
        Fail(L"bad point argument");
    const Value& rest = value.cdr();
    Point point{value.car().number(), rest.car().number(), 0, rest.cdr().IsCons()};
    if (point.is3d)
        point.z = rest.cdr().car().number();
    return point;
}

Value ValueOf(const Point& point)
{
    return point.is3d ? ListOf(point.x, point.y, point.z) : ListOf(point.x, point.y);
}

}   // namespace KxPlat::Lisp
