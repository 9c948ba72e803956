// Variables and functions of LISP for modules.
#include "../../rx/acutads.h"
#include "../../win/CharTables.h"
#include "../acedads.h"
#include "DocumentLisp.h"
#include "HostValues.h"

using namespace KxPlat::Lisp;

// A variable that was never set, or is nil, is RTERROR with a null chain.
int acedGetSym(const ACHAR* name, resbuf** result)
{
    if (result == nullptr)
        return RTERROR;
    *result = nullptr;
    const Interpreter* lisp = CurrentInterpreter();
    const Symbol* symbol = lisp == nullptr || name == nullptr ? nullptr : lisp->Find(name);
    if (symbol == nullptr || symbol->value.IsNil())
        return RTERROR;
    *result = ChainOfValue(symbol->value);
    return *result != nullptr ? RTNORM : RTERROR;
}

// A null chain sets nil.
int acedPutSym(const ACHAR* name, resbuf* chain)
{
    Interpreter* lisp = CurrentInterpreter();
    if (lisp == nullptr || name == nullptr || *name == 0)
        return RTERROR;
    Symbol* symbol = lisp->Intern(name);
    Value value;
    if (symbol->isConstant || !ValueOfChain(*lisp, chain, value))
        return RTERROR;
    symbol->value = value;
    return RTNORM;
}

// The first buffer names the function, the others are its arguments.
int acedInvoke(const resbuf* call, resbuf** result)
{
    if (result == nullptr)
        return RTERROR;
    *result = nullptr;
    Interpreter* lisp = CurrentInterpreter();
    if (lisp == nullptr || call == nullptr || call->restype != RTSTR || call->resval.rstring == nullptr)
        return RTERROR;
    const Symbol* symbol = lisp->Find(call->resval.rstring);
    if (symbol == nullptr || symbol->value.IsNil())
        return RTERROR;
    std::vector<Value> arguments;
    if (!ValuesOfChain(*lisp, call->rbnext, arguments))
        return RTERROR;
    const Value function = symbol->value;
    Value value;
    if (!lisp->Protected([&] { value = lisp->Apply(function, arguments.data(), arguments.size()); }))
        return RTERROR;
    if (!lisp->IsNothing(value) && value)
        *result = ChainOfValue(value);
    return RTNORM;
}
