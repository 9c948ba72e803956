// Functions applied to values, and symbols as values.
#include "Families.h"
#include "Interpreter.h"
#include "Printer.h"
#include <algorithm>

namespace KxPlat::Lisp {

namespace {

std::vector<Value> ValuesOf(const Value& list)
{
    std::vector<Value> values;
    for (const Value& member : Members(ListIn(list)))
        values.push_back(member);
    return values;
}

Value ApplyTo(Interpreter& lisp, const Arguments& arguments)
{
    const std::vector<Value> values = ValuesOf(arguments[1]);
    return lisp.Apply(lisp.Callable(arguments[0]), values.data(), values.size());
}

// Ends with the shortest list.
Value Mapcar(Interpreter& lisp, const Arguments& arguments)
{
    const Value function = lisp.Callable(arguments[0]);
    std::vector<Value> lists(arguments.begin() + 1, arguments.end()), members(lists.size());
    ListBuilder results;
    for (;;) {
        for (size_t i = 0; i < lists.size(); ++i) {
            if (!ListIn(lists[i]).IsCons())
                return results.Take();
            members[i] = lists[i].car();
            lists[i] = Value(lists[i].cdr());
        }
        lisp.Step();
        results.Add(lisp.Apply(function, members.data(), members.size()));
    }
}

Value Evaluate(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Eval(arguments[0]);
}

Value Set(Interpreter&, const Arguments& arguments)
{
    Symbol* symbol = SymbolOf(arguments[0]);
    if (symbol->isConstant)
        BadArgument(L"symbolp", arguments[0]);
    symbol->value = arguments[1];
    return arguments[1];
}

Value IsBound(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(arguments[0].IsSymbol() && arguments[0].symbol()->value);
}

Value CatchAll(Interpreter& lisp, const Arguments& arguments)
{
    const std::vector<Value> values = ValuesOf(arguments.Get(1));
    try {
        return lisp.ApplyGuarded(arguments[0], values.data(), values.size());
    } catch (const Failure& failure) {
        if (failure.kind == Failure::Kind::Exit)
            throw;
        return new ErrorCell(failure.message);
    }
}

const ErrorCell* ErrorIn(const Value& value)
{
    return value.kind() == Kind::Host ? dynamic_cast<const ErrorCell*>(value.host()) : nullptr;
}

Value IsCaughtError(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(ErrorIn(arguments[0]) != nullptr);
}

Value CaughtMessage(Interpreter&, const Arguments& arguments)
{
    const ErrorCell* error = ErrorIn(arguments[0]);
    if (error == nullptr)
        BadArgument(L"VL-CATCH-ALL-APPLY-ERROR", arguments[0]);
    return Value(error->message);
}

Value Quit(Interpreter&, const Arguments&)
{
    throw Failure(L"quit / exit abort", Failure::Kind::Exit);
}

Value SymbolName(Interpreter&, const Arguments& arguments)
{
    return Value(SymbolOf(arguments[0])->name);
}

Value SymbolValue(Interpreter&, const Arguments& arguments)
{
    return SymbolOf(arguments[0])->value;
}

// (atoms-family 0) gives symbols, 1 texts; with a list of names, nil for those without a value.
Value AtomsFamily(Interpreter& lisp, const Arguments& arguments)
{
    const bool asTexts = IntegerOf(arguments[0]) == 1;
    const auto made = [&](const std::wstring& name) { return asTexts ? Value(name) : Value(lisp.Intern(name)); };
    ListBuilder list;
    if (arguments.count == 1) {
        for (const std::wstring& name : lisp.SymbolNames())
            list.Add(made(name));
        return list.Take();
    }
    for (const Value& name : Members(ListIn(arguments[1]))) {
        const Symbol* symbol = lisp.Find(TextOf(name));
        list.Add(symbol != nullptr && symbol->value ? made(symbol->name) : Value());
    }
    return list.Take();
}

// The list form of a function, as DEFUN-Q keeps it.
Value FunctionAsList(Interpreter&, const Arguments& arguments)
{
    const Value& bound = SymbolOf(arguments[0])->value;
    if (bound.kind() == Kind::Function)
        return bound.function().source;
    return bound.IsCons() ? bound : Value();
}

Value SetFunctionList(Interpreter& lisp, const Arguments& arguments)
{
    lisp.MakeFunction(nullptr, arguments[1]);
    SymbolOf(arguments[0])->value = arguments[1];
    return arguments[0];
}

Value DoNothing(Interpreter&, const Arguments&)
{
    return Value();
}

const Builtin kRows[] = {
    {L"APPLY", ApplyTo, 2, 2},
    {L"MAPCAR", Mapcar, 2},
    {L"EVAL", Evaluate, 1, 1},
    {L"SET", Set, 2, 2},
    {L"BOUNDP", IsBound, 1, 1},
    {L"VL-CATCH-ALL-APPLY", CatchAll, 1, 2},
    {L"VL-CATCH-ALL-ERROR-P", IsCaughtError, 1, 1},
    {L"VL-CATCH-ALL-ERROR-MESSAGE", CaughtMessage, 1, 1},
    {L"QUIT", Quit, 0, 0},
    {L"EXIT", Quit, 0, 0},
    {L"VL-SYMBOL-NAME", SymbolName, 1, 1},
    {L"VL-SYMBOL-VALUE", SymbolValue, 1, 1},
    {L"ATOMS-FAMILY", AtomsFamily, 1, 2},
    {L"DEFUN-Q-LIST-REF", FunctionAsList, 1, 1},
    {L"DEFUN-Q-LIST-SET", SetFunctionList, 2, 2},
    {L"GC", DoNothing, 0, 0},
    {L"MEM", DoNothing, 0, 0},
    {L"VL-LOAD-COM", DoNothing, 0, 0},
};

}   // namespace

const BuiltinTable kApplication = TableOf(kRows);

}   // namespace KxPlat::Lisp
