// Functions that the interpreter brings along, in tables: one per family, one file each.
#pragma once
#include "Failure.h"
#include <cstddef>

namespace KxPlat::Lisp {

// The evaluated arguments of one call.
struct Arguments {
    const Value* first;
    size_t count;

    const Value& operator[](size_t index) const { return first[index]; }
    // Nil when the caller left it out.
    const Value& Get(size_t index) const
    {
        static const Value nil;
        return index < count ? first[index] : nil;
    }
    const Value* begin() const { return first; }
    const Value* end() const { return first + count; }
};

struct Builtin {
    const wchar_t* name;   // in capitals
    Value (*call)(Interpreter& lisp, const Arguments& arguments);
    int least = 0;
    int most = -1;                                                          // -1: any number
    Value (*special)(Interpreter& lisp, const Value& operands) = nullptr;   // gets its operands unevaluated
};

struct BuiltinTable {
    const Builtin* first;
    size_t count;
};

template <size_t N>
constexpr BuiltinTable TableOf(const Builtin (&rows)[N])
{
    return {rows, N};
}

// Arguments by type; each fails in the host's words when the value is another.
int32_t IntegerOf(const Value& value);
double NumberOf(const Value& value);
const std::wstring& TextOf(const Value& value);
Symbol* SymbolOf(const Value& value);
const Value& ListIn(const Value& value);

struct Point {
    double x = 0, y = 0, z = 0;
    bool is3d = false;
};
Point PointOf(const Value& value);
bool IsPoint(const Value& value);
Value ValueOf(const Point& point);   // of two or three reals

}   // namespace KxPlat::Lisp
