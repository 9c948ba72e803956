// A call goes to the module as a message; the module asks for code and arguments and hands its answer back with the
// functions acedRet...
#include "ExternalFunctions.h"
#include "../../mfc/Escaped.h"
#include "../../rx/acutads.h"
#include "../../rx/ResBufs.h"
#include "../../win/Format.h"
#include "../acedads.h"
#include "../Modules.h"
#include "DocumentLisp.h"
#include "HostValues.h"
#include <map>

namespace KxPlat::Lisp {

namespace {

// One running call, and the one that it interrupted.
struct RunningCall {
    Interpreter* lisp;
    int code;
    const Arguments* arguments;
    Value result;
};

// The calls that run now, innermost last, and the handlers that modules entered for their codes.
struct ExternalCalls {
    std::vector<RunningCall> running;
    std::map<std::pair<void*, int>, int (*)()> handlers;
};

ExternalCalls& Calls()
{
    static ExternalCalls calls;
    return calls;
}

RunningCall* InnermostCall()
{
    std::vector<RunningCall>& running = Calls().running;
    return running.empty() ? nullptr : &running.back();
}

class ExternalCell : public CallableCell {
public:
    ExternalCell(std::wstring name, void* appId, int code) : m_name(std::move(name)), m_appId(appId), m_code(code) {}

    const wchar_t* TypeName() const override { return L"EXRXSUBR"; }
    std::wstring Printed() const override { return Format(L"#<EXRXSUBR @%p %s>", this, m_name.c_str()); }
    void* appId() const { return m_appId; }

    Value Call(Interpreter& lisp, const Arguments& arguments) override
    {
        const Value keep(this);   // the module may take the function back while it runs
        Calls().running.push_back({&lisp, m_code, &arguments, Value()});
        std::wstring why;
        const int answer = Answer(why);
        const Value result = Calls().running.back().result;
        Calls().running.pop_back();
        if (answer == int(AcRx::kRetError) || answer == RTERROR)
            throw Failure(L"function failed: " + m_name + (why.empty() ? L"" : L": " + why));
        return result;
    }

private:
    // `why` tells of an exception, none of which gets any further.
    int Answer(std::wstring& why) const
    {
        const auto handler = Calls().handlers.find({m_appId, m_code});
        if (handler == Calls().handlers.end())
            return int(SendToModule(m_appId, AcRx::kInvkSubrMsg));
        try {
            return handler->second();
        } catch (...) {
            why = EscapedException();
            return RTERROR;
        }
    }

    std::wstring m_name;
    void* m_appId;
    int m_code;
};

ExternalCell* ExternalIn(const Value& value)
{
    return value.kind() == Kind::Host ? dynamic_cast<ExternalCell*>(value.host()) : nullptr;
}

// Inside a call its result is set; elsewhere nobody waits for one.
int SetResult(Value value)
{
    RunningCall* call = InnermostCall();
    if (call == nullptr)
        return RTERROR;
    call->result = std::move(value);
    return RTNORM;
}

int SetResultFrom(const resbuf* chain)
{
    RunningCall* call = InnermostCall();
    Value value;
    if (call == nullptr || !ValueOfChain(*call->lisp, chain, value))
        return RTERROR;
    return SetResult(std::move(value));
}

}   // namespace

void UndefineFunctionsOf(Interpreter& lisp, void* appId)
{
    for (const std::wstring& name : lisp.SymbolNames()) {
        Symbol* symbol = lisp.Find(name);
        const ExternalCell* external = ExternalIn(symbol->value);
        if (external != nullptr && external->appId() == appId)
            symbol->value = Value();
    }
}

}   // namespace KxPlat::Lisp

using namespace KxPlat::Lisp;

int acedDefun(const ACHAR* name, short code)
{
    Interpreter* lisp = CurrentInterpreter();
    if (lisp == nullptr || name == nullptr || *name == 0)
        return RTERROR;
    Symbol* symbol = lisp->Intern(name);
    if (symbol->isConstant)
        return RTERROR;
    symbol->value = new ExternalCell(symbol->name, KxPlat::RunningModule(), code);
    return RTNORM;
}

int acedUndef(const ACHAR* name, short)
{
    Interpreter* lisp = CurrentInterpreter();
    Symbol* symbol = lisp == nullptr || name == nullptr ? nullptr : lisp->Find(name);
    if (symbol == nullptr || ExternalIn(symbol->value) == nullptr)
        return RTERROR;
    symbol->value = Value();
    return RTNORM;
}

int acedRegFunc(int (*function)(), int code)
{
    void* appId = KxPlat::RunningModule();
    if (function == nullptr)
        return Calls().handlers.erase({appId, code}) != 0 ? RTNORM : RTERROR;
    Calls().handlers[{appId, code}] = function;
    return RTNORM;
}

int acedGetFunCode()
{
    const RunningCall* call = InnermostCall();
    return call == nullptr ? RTERROR : call->code;
}

resbuf* acedGetArgs()
{
    const RunningCall* call = InnermostCall();
    return call == nullptr ? nullptr : ChainOfArguments(call->arguments->first, call->arguments->count);
}

int acedRetList(const resbuf* list)
{
    return SetResultFrom(list);
}

int acedRetVal(const resbuf* value)
{
    if (value == nullptr)
        return SetResult(Value());
    resbuf one = *value;
    one.rbnext = nullptr;
    return SetResultFrom(&one);
}

int acedRetStr(const ACHAR* text)
{
    return SetResult(Value(text == nullptr ? L"" : text));
}

int acedRetInt(int value)
{
    return SetResult(Value(int32_t(value)));
}

int acedRetReal(ads_real value)
{
    return SetResult(Value(double(value)));
}

int acedRetPoint(const ads_point value)
{
    return SetResult(ListOf(double(value[X]), double(value[Y]), double(value[Z])));
}

int acedRetName(const ads_name name, int type)
{
    if (name == nullptr)
        return RTERROR;
    resbuf value = {};
    value.restype = short(type);
    ads_name_set(name, value.resval.rlname);
    return SetResultFrom(&value);
}

int acedRetNil()
{
    return SetResult(Value());
}

int acedRetT()
{
    const RunningCall* call = InnermostCall();
    return call == nullptr ? RTERROR : SetResult(call->lisp->T());
}

int acedRetVoid()
{
    const RunningCall* call = InnermostCall();
    return call == nullptr ? RTERROR : SetResult(call->lisp->Nothing());
}
