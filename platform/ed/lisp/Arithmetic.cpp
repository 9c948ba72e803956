// Integers have 32 bits and wrap around; one real among the arguments makes the result real.
#include "Families.h"
#include "Interpreter.h"
#include <cmath>
#include <numeric>

namespace KxPlat::Lisp {

namespace {

int32_t Wrapped(int64_t number)
{
    return int32_t(uint32_t(uint64_t(number)));
}

bool HasReal(const Arguments& arguments)
{
    bool found = false;
    for (const Value& value : arguments) {
        NumberOf(value);
        found = found || value.IsReal();
    }
    return found;
}

struct Plus {
    int64_t operator()(int64_t a, int64_t b) const { return a + b; }
    double operator()(double a, double b) const { return a + b; }
};
struct Minus {
    int64_t operator()(int64_t a, int64_t b) const { return a - b; }
    double operator()(double a, double b) const { return a - b; }
};
struct Times {
    int64_t operator()(int64_t a, int64_t b) const { return a * b; }
    double operator()(double a, double b) const { return a * b; }
};
struct Over {
    int64_t operator()(int64_t a, int64_t b) const
    {
        if (b == 0)
            Fail(L"divide by zero");
        return a / b;
    }
    double operator()(double a, double b) const
    {
        if (b == 0)
            Fail(L"divide by zero");
        return a / b;
    }
};
struct Remainder {
    int64_t operator()(int64_t a, int64_t b) const
    {
        if (b == 0)
            Fail(L"divide by zero");
        return a % b;
    }
    double operator()(double a, double b) const
    {
        if (b == 0)
            Fail(L"divide by zero");
        return std::fmod(a, b);
    }
};
struct Least {
    int64_t operator()(int64_t a, int64_t b) const { return std::min(a, b); }
    double operator()(double a, double b) const { return std::min(a, b); }
};
struct Greatest {
    int64_t operator()(int64_t a, int64_t b) const { return std::max(a, b); }
    double operator()(double a, double b) const { return std::max(a, b); }
};

template <class Operation>
Value Fold(Interpreter&, const Arguments& arguments)
{
    if (arguments.count == 0)
        return Value(int32_t(0));
    const Operation operation;
    if (HasReal(arguments)) {
        double result = arguments[0].number();
        for (size_t i = 1; i < arguments.count; ++i)
            result = operation(result, arguments[i].number());
        return Value(result);
    }
    int32_t result = arguments[0].integer();
    for (size_t i = 1; i < arguments.count; ++i)
        result = Wrapped(operation(int64_t(result), int64_t(arguments[i].integer())));
    return Value(result);
}

Value Subtract(Interpreter& lisp, const Arguments& arguments)
{
    if (arguments.count != 1)
        return Fold<Minus>(lisp, arguments);
    NumberOf(arguments[0]);
    return arguments[0].IsReal() ? Value(-arguments[0].real()) : Value(Wrapped(-int64_t(arguments[0].integer())));
}

template <int Step>
Value Next(Interpreter&, const Arguments& arguments)
{
    NumberOf(arguments[0]);
    return arguments[0].IsReal() ? Value(arguments[0].real() + Step)
                                 : Value(Wrapped(int64_t(arguments[0].integer()) + Step));
}

Value Absolute(Interpreter&, const Arguments& arguments)
{
    NumberOf(arguments[0]);
    return arguments[0].IsReal() ? Value(std::abs(arguments[0].real()))
                                 : Value(Wrapped(std::abs(int64_t(arguments[0].integer()))));
}

Value CommonDivisor(Interpreter&, const Arguments& arguments)
{
    return Value(Wrapped(std::gcd(int64_t(IntegerOf(arguments[0])), int64_t(IntegerOf(arguments[1])))));
}

Value CommonMultiple(Interpreter&, const Arguments& arguments)
{
    return Value(Wrapped(std::lcm(int64_t(IntegerOf(arguments[0])), int64_t(IntegerOf(arguments[1])))));
}

template <double (*Of)(double)>
Value OfReal(Interpreter&, const Arguments& arguments)
{
    return Value(Of(NumberOf(arguments[0])));
}

Value SquareRoot(Interpreter&, const Arguments& arguments)
{
    if (NumberOf(arguments[0]) < 0)
        Fail(L"function undefined for argument");
    return Value(std::sqrt(arguments[0].number()));
}

Value Logarithm(Interpreter&, const Arguments& arguments)
{
    if (NumberOf(arguments[0]) <= 0)
        Fail(L"function undefined for argument");
    return Value(std::log(arguments[0].number()));
}

Value Power(Interpreter&, const Arguments& arguments)
{
    const double result = std::pow(NumberOf(arguments[0]), NumberOf(arguments[1]));
    const bool isInteger = !HasReal(arguments) && arguments[1].integer() >= 0 && std::abs(result) <= INT32_MAX;
    return isInteger ? Value(int32_t(result)) : Value(result);
}

Value ArcTangent(Interpreter&, const Arguments& arguments)
{
    const double y = NumberOf(arguments[0]);
    return Value(arguments.count == 2 ? std::atan2(y, NumberOf(arguments[1])) : std::atan(y));
}

// A real too large for an integer stays real.
Value Fix(Interpreter&, const Arguments& arguments)
{
    const double whole = std::trunc(NumberOf(arguments[0]));
    return std::abs(whole) <= INT32_MAX ? Value(int32_t(whole)) : Value(whole);
}

Value Float(Interpreter&, const Arguments& arguments)
{
    return Value(NumberOf(arguments[0]));
}

Value BitNot(Interpreter&, const Arguments& arguments)
{
    return Value(~IntegerOf(arguments[0]));
}

Value BitAnd(Interpreter&, const Arguments& arguments)
{
    int32_t result = arguments.count == 0 ? 0 : -1;
    for (const Value& value : arguments)
        result &= IntegerOf(value);
    return Value(result);
}

Value BitOr(Interpreter&, const Arguments& arguments)
{
    int32_t result = 0;
    for (const Value& value : arguments)
        result |= IntegerOf(value);
    return Value(result);
}

Value BitXor(Interpreter&, const Arguments& arguments)
{
    int32_t result = 0;
    for (const Value& value : arguments)
        result ^= IntegerOf(value);
    return Value(result);
}

Value Shift(Interpreter&, const Arguments& arguments)
{
    const uint32_t bits = uint32_t(IntegerOf(arguments[0]));
    const int32_t by = IntegerOf(arguments[1]);
    if (by <= -32 || by >= 32)
        return Value(int32_t(0));
    return Value(int32_t(by >= 0 ? bits << by : bits >> -by));
}

// Bit 8 of `function` answers for 0 and 0, bit 4 for 0 and 1, bit 2 for 1 and 0, bit 1 for 1 and 1.
int32_t BooleOf(int32_t function, int32_t a, int32_t b)
{
    int32_t result = 0;
    if ((function & 1) != 0)
        result |= a & b;
    if ((function & 2) != 0)
        result |= a & ~b;
    if ((function & 4) != 0)
        result |= ~a & b;
    if ((function & 8) != 0)
        result |= ~(a | b);
    return result;
}

Value Boole(Interpreter&, const Arguments& arguments)
{
    int32_t result = IntegerOf(arguments[1]);
    for (size_t i = 2; i < arguments.count; ++i)
        result = BooleOf(IntegerOf(arguments[0]), result, IntegerOf(arguments[i]));
    return Value(result);
}

Value IsMinus(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(NumberOf(arguments[0]) < 0);
}

Value IsZero(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(NumberOf(arguments[0]) == 0);
}

const Builtin kRows[] = {
    {L"+", Fold<Plus>},
    {L"-", Subtract},
    {L"*", Fold<Times>},
    {L"/", Fold<Over>},
    {L"REM", Fold<Remainder>},
    {L"MIN", Fold<Least>},
    {L"MAX", Fold<Greatest>},
    {L"1+", Next<1>, 1, 1},
    {L"1-", Next<-1>, 1, 1},
    {L"ABS", Absolute, 1, 1},
    {L"GCD", CommonDivisor, 2, 2},
    {L"LCM", CommonMultiple, 2, 2},
    {L"SQRT", SquareRoot, 1, 1},
    {L"EXP", OfReal<std::exp>, 1, 1},
    {L"EXPT", Power, 2, 2},
    {L"LOG", Logarithm, 1, 1},
    {L"SIN", OfReal<std::sin>, 1, 1},
    {L"COS", OfReal<std::cos>, 1, 1},
    {L"ATAN", ArcTangent, 1, 2},
    {L"FIX", Fix, 1, 1},
    {L"FLOAT", Float, 1, 1},
    {L"~", BitNot, 1, 1},
    {L"LOGAND", BitAnd},
    {L"LOGIOR", BitOr},
    {L"LOGXOR", BitXor},
    {L"LSH", Shift, 2, 2},
    {L"BOOLE", Boole, 2},
    {L"MINUSP", IsMinus, 1, 1},
    {L"ZEROP", IsZero, 1, 1},
};

}   // namespace

const BuiltinTable kArithmetic = TableOf(kRows);

}   // namespace KxPlat::Lisp
