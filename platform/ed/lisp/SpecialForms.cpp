// Forms that decide themselves which of their operands are evaluated.
#include "Families.h"
#include "Interpreter.h"
#include "Printer.h"

namespace KxPlat::Lisp {

namespace {

const Value& First(const Value& operands)
{
    if (!operands.IsCons())
        Fail(L"too few arguments");
    return operands.car();
}

void RefuseMore(const Value& operands)
{
    if (operands.IsCons())
        Fail(L"too many arguments");
}

Symbol* Assignable(const Value& name)
{
    if (!name.IsSymbol())
        Fail(L"syntax error");
    if (name.symbol()->isConstant)
        throw Failure(L"bad argument type: symbolp " + name.symbol()->name);
    return name.symbol();
}

Value Quote(Interpreter&, const Value& operands)
{
    const Value& form = First(operands);
    RefuseMore(operands.cdr());
    return form;
}

Value FunctionOf(Interpreter& lisp, const Value& operands)
{
    const Value& form = First(operands);
    return form.IsCons() ? lisp.Callable(form) : form;
}

Value Setq(Interpreter& lisp, const Value& operands)
{
    Value result;
    for (const Value* at = &operands; at->IsCons(); at = &at->cdr().cdr()) {
        Symbol* symbol = Assignable(at->car());
        result = lisp.Eval(First(at->cdr()));
        symbol->value = result;
    }
    return result;
}

Value If(Interpreter& lisp, const Value& operands)
{
    const Value& branches = operands.cdr();
    First(branches);
    RefuseMore(branches.cdr().cdr());
    return lisp.Eval(First(operands)) ? lisp.Eval(branches.car()) : lisp.Eval(branches.cdr().car());
}

Value Cond(Interpreter& lisp, const Value& operands)
{
    for (const Value& clause : Members(operands)) {
        if (!clause.IsCons())
            BadArgument(L"listp", clause);
        Value test = lisp.Eval(clause.car());
        if (test)
            return clause.cdr().IsCons() ? lisp.EvalAll(clause.cdr()) : test;
    }
    return Value();
}

Value And(Interpreter& lisp, const Value& operands)
{
    for (const Value& form : Members(operands))
        if (!lisp.Eval(form))
            return Value();
    return lisp.T();
}

Value Or(Interpreter& lisp, const Value& operands)
{
    for (const Value& form : Members(operands))
        if (lisp.Eval(form))
            return lisp.T();
    return Value();
}

Value Progn(Interpreter& lisp, const Value& operands)
{
    return lisp.EvalAll(operands);
}

Value While(Interpreter& lisp, const Value& operands)
{
    const Value& test = First(operands);
    Value result;
    while (lisp.Eval(test)) {
        lisp.Step();
        result = lisp.EvalAll(operands.cdr());
    }
    return result;
}

Value Repeat(Interpreter& lisp, const Value& operands)
{
    Value result;
    for (int32_t left = IntegerOf(lisp.Eval(First(operands))); left > 0; --left) {
        lisp.Step();
        result = lisp.EvalAll(operands.cdr());
    }
    return result;
}

// The loop's variable is put back, also when the body fails.
struct Restored {
    explicit Restored(Symbol* which) : symbol(which), value(which->value) {}
    ~Restored() { symbol->value = value; }
    Symbol* symbol;
    Value value;
};

Value Foreach(Interpreter& lisp, const Value& operands)
{
    Symbol* variable = Assignable(First(operands));
    const Value list = lisp.Eval(First(operands.cdr()));
    Restored restored(variable);
    Value result;
    for (const Value& member : Members(ListIn(list))) {
        lisp.Step();
        variable->value = member;
        result = lisp.EvalAll(operands.cdr().cdr());
    }
    return result;
}

Value Lambda(Interpreter& lisp, const Value& operands)
{
    return lisp.MakeFunction(nullptr, operands);
}

Value Defun(Interpreter& lisp, const Value& operands)
{
    Symbol* name = Assignable(First(operands));
    name->value = lisp.MakeFunction(name, operands.cdr());
    return name;
}

// As a list, which programs may take apart.
Value DefunQ(Interpreter& lisp, const Value& operands)
{
    Symbol* name = Assignable(First(operands));
    lisp.MakeFunction(name, operands.cdr());
    name->value = operands.cdr();
    return name;
}

const Builtin kRows[] = {
    {L"QUOTE", nullptr, 1, 1, Quote},    {L"FUNCTION", nullptr, 1, 1, FunctionOf}, {L"SETQ", nullptr, 0, -1, Setq},
    {L"IF", nullptr, 2, 3, If},          {L"COND", nullptr, 0, -1, Cond},          {L"AND", nullptr, 0, -1, And},
    {L"OR", nullptr, 0, -1, Or},         {L"PROGN", nullptr, 0, -1, Progn},        {L"WHILE", nullptr, 1, -1, While},
    {L"REPEAT", nullptr, 1, -1, Repeat}, {L"FOREACH", nullptr, 2, -1, Foreach},    {L"LAMBDA", nullptr, 1, -1, Lambda},
    {L"DEFUN", nullptr, 2, -1, Defun},   {L"DEFUN-Q", nullptr, 2, -1, DefunQ},
};

}   // namespace

const BuiltinTable kSpecialForms = TableOf(kRows);

}   // namespace KxPlat::Lisp
