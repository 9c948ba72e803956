#include "Families.h"
#include "Interpreter.h"

namespace KxPlat::Lisp {

namespace {

// Numbers by value, texts by the numbers of their characters.
int Order(const Value& a, const Value& b)
{
    if (a.IsText() && b.IsText())
        return a.text().compare(b.text());
    if (a.IsText())
        BadArgument(L"stringp", b);
    const double left = NumberOf(a), right = NumberOf(b);
    return left < right ? -1 : left > right ? 1 : 0;
}

template <class Holds>
Value Chain(Interpreter& lisp, const Arguments& arguments)
{
    for (size_t i = 1; i < arguments.count; ++i)
        if (!Holds()(Order(arguments[i - 1], arguments[i]), 0))
            return Value();
    return lisp.T();
}

Value AllSame(Interpreter& lisp, const Arguments& arguments)
{
    for (size_t i = 1; i < arguments.count; ++i)
        if (!IsEq(arguments[i - 1], arguments[i]))
            return Value();
    return lisp.T();
}

Value NoneSame(Interpreter& lisp, const Arguments& arguments)
{
    for (size_t i = 1; i < arguments.count; ++i)
        if (IsEq(arguments[i - 1], arguments[i]))
            return Value();
    return lisp.T();
}

Value Equal(Interpreter& lisp, const Arguments& arguments)
{
    const double fuzz = arguments.count == 3 ? NumberOf(arguments[2]) : 0;
    return lisp.Truth(IsEqual(arguments[0], arguments[1], fuzz));
}

Value Not(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(arguments[0].IsNil());
}

const Builtin kRows[] = {
    {L"=", AllSame, 1},
    {L"/=", NoneSame, 1},
    {L"<", Chain<std::less<int>>, 1},
    {L">", Chain<std::greater<int>>, 1},
    {L"<=", Chain<std::less_equal<int>>, 1},
    {L">=", Chain<std::greater_equal<int>>, 1},
    {L"EQ", AllSame, 2, 2},
    {L"EQUAL", Equal, 2, 3},
    {L"NOT", Not, 1, 1},
    {L"NULL", Not, 1, 1},
};

}   // namespace

const BuiltinTable kComparison = TableOf(kRows);

}   // namespace KxPlat::Lisp
