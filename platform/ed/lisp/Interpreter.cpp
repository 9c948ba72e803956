#include "Interpreter.h"
#include "../../ui/HostUi.h"
#include "../../win/CharTables.h"
#include "../../win/Fiber.h"
#include "Families.h"
#include "Printer.h"
#include "Reader.h"
#include "VlaObjects.h"
#include <algorithm>
#include <utility>

namespace KxPlat::Lisp {

namespace {

// Left of a stack for commands and modules when forms are nested as deep as they may.
constexpr std::ptrdiff_t kStackForCommands = std::ptrdiff_t(3) << 20;
constexpr std::ptrdiff_t kStackForErrorFunction = std::ptrdiff_t(1) << 20;
constexpr uint64_t kStepsBetweenChecks = 4096;
constexpr size_t kArgumentsInFrame = 6;

const char* StackPointer()
{
    return static_cast<const char*>(__builtin_frame_address(0));
}

}   // namespace

Interpreter::Interpreter()
{
    m_t = Value(Intern(L"T"));
    m_t.symbol()->value = m_t;
    m_t.symbol()->isConstant = true;
    m_nothing = Value(Intern(L""));
    m_lambda = Intern(L"LAMBDA");
    m_slash = Intern(L"/");
    m_errorFunction = Intern(L"*ERROR*");
    Intern(L"PI")->value = Value(3.14159265358979323846);
    Intern(L"PAUSE")->value = Value(L"\\");
    for (const BuiltinTable& table : Families())
        AddBuiltins(table);
    AddPropertyFunctions(*this);
}

Interpreter::~Interpreter() = default;

void Interpreter::AddBuiltins(const BuiltinTable& table)
{
    for (size_t i = 0; i < table.count; ++i)
        Intern(table.first[i].name)->value = Value(&table.first[i]);
}

Symbol* Interpreter::Intern(std::wstring_view name)
{
    std::wstring upper = Upper(name);
    const auto found = m_index.find(upper);
    if (found != m_index.end())
        return found->second;
    Symbol& symbol = m_symbols.emplace_back();
    symbol.name = std::move(upper);
    m_index.emplace(symbol.name, &symbol);
    return &symbol;
}

Symbol* Interpreter::Find(std::wstring_view name) const
{
    const auto found = m_index.find(Upper(name));
    return found == m_index.end() ? nullptr : found->second;
}

std::vector<std::wstring> Interpreter::SymbolNames() const
{
    std::vector<std::wstring> names;
    for (const Symbol& symbol : m_symbols)
        if (symbol.value && !symbol.name.empty())
            names.push_back(symbol.name);
    std::sort(names.begin(), names.end());
    return names;
}

void Interpreter::CheckInterrupt()
{
    if (Ui().Interrupted())
        throw Failure(L"Function cancelled", Failure::Kind::Cancelled);
}

void Interpreter::Step()
{
    if (StackPointer() - Fiber::StackEnd() < kStackForCommands - (m_isInErrorFunction ? kStackForErrorFunction : 0))
        Fail(L"Hard error occurred *** internal stack limit reached (simulated)");
    if (++m_steps % kStepsBetweenChecks != 0)
        return;
    CheckInterrupt();
    if (LiveCells() > m_memoryLimit)
        Fail(L"insufficient node space");
    if (m_stepLimit != 0 && m_steps > m_stepLimit)
        throw Failure(L"Function cancelled", Failure::Kind::Cancelled);
}

// The program's *error* function runs where the error happened: it must see the variables as they are bound there.
void Interpreter::Locate(Failure& failure, const Value& form)
{
    if (failure.isLocated)
        return;
    failure.isLocated = true;
    failure.form = form;
    if (m_guards > 0 || m_isInErrorFunction || failure.kind == Failure::Kind::Exit)
        return;
    const Value handler = m_errorFunction->value;
    if (!handler)
        return;
    m_isInErrorFunction = true;
    try {
        Value message{failure.message};
        Apply(handler, &message, 1);
        failure.isHandled = true;
    } catch (const Failure& another) {
        failure.message = another.message;
        failure.form = another.form;
    }
    m_isInErrorFunction = false;
}

Value Interpreter::EvalForm(const Value& form)
{
    try {
        Step();
        return Dispatch(form);
    } catch (Failure& failure) {
        Locate(failure, form);
        throw;
    }
}

Value Interpreter::Dispatch(const Value& form)
{
    const Value& head = form.cons().car;
    const Value& operands = form.cons().cdr;
    if (head.IsSymbol()) {
        const Value& bound = head.symbol()->value;
        if (bound.kind() == Kind::Builtin && bound.builtin()->special != nullptr)
            return bound.builtin()->special(*this, operands);
        if (bound.kind() == Kind::Builtin)
            return CallWith(bound, operands);
        if (bound.IsNil())
            throw Failure(L"no function definition: " + head.symbol()->name);
    }
    return CallWith(Callable(head), operands);
}

Value Interpreter::CallWith(const Value& function, const Value& operands)
{
    Value inFrame[kArgumentsInFrame];
    std::vector<Value> onHeap;
    const size_t count = LengthOf(operands);
    Value* arguments = inFrame;
    if (count > kArgumentsInFrame) {
        onHeap.resize(count);
        arguments = onHeap.data();
    }
    const Value* at = &operands;
    for (size_t i = 0; i < count; ++i, at = &at->cons().cdr)
        arguments[i] = Eval(at->cons().car);
    return Apply(function, arguments, count);
}

Value Interpreter::Apply(const Value& function, const Value* arguments, size_t count)
{
    switch (function.kind()) {
    case Kind::Builtin:
        return ApplyBuiltin(*function.builtin(), arguments, count);
    case Kind::Function:
        return ApplyFunction(function, arguments, count);
    case Kind::Host:
        if (auto* callable = dynamic_cast<CallableCell*>(function.host()))
            return callable->Call(*this, {arguments, count});
        break;
    default:
        break;
    }
    const Value resolved = Callable(function);
    if (resolved.kind() != Kind::Builtin && resolved.kind() != Kind::Function && resolved.kind() != Kind::Host)
        throw Failure(L"bad function: " + Shortened(function));
    return Apply(resolved, arguments, count);
}

Value Interpreter::Callable(const Value& function)
{
    switch (function.kind()) {
    case Kind::Builtin:
    case Kind::Function:
        return function;
    case Kind::Host:
        if (dynamic_cast<CallableCell*>(function.host()) != nullptr)
            return function;
        break;
    case Kind::Symbol:
        if (function.symbol()->value.IsNil())
            throw Failure(L"no function definition: " + function.symbol()->name);
        if (!function.symbol()->value.IsSymbol())
            return Callable(function.symbol()->value);
        break;
    case Kind::Cons:
        if (IsEq(function.car(), Value(m_lambda)))
            return MakeFunction(nullptr, function.cdr());
        if (function.car().IsList() && !(function.car().IsCons() && IsEq(function.car().car(), Value(m_lambda))))
            return MakeFunction(nullptr, function);   // a list of parameters and forms
        break;
    default:
        break;
    }
    throw Failure(L"bad function: " + Shortened(function));
}

Value Interpreter::MakeFunction(Symbol* name, const Value& parametersAndBody)
{
    if (!parametersAndBody.IsCons())
        Fail(L"too few arguments");
    Function* made = nullptr;
    Value function = NewFunction(made);
    made->name = name;
    made->source = parametersAndBody;
    made->body = parametersAndBody.cdr();
    std::vector<Symbol*>* into = &made->parameters;
    for (const Value& parameter : Members(ListIn(parametersAndBody.car()))) {
        if (!parameter.IsSymbol())
            Fail(L"bad argument list");
        if (parameter.symbol() == m_slash)
            into = &made->locals;
        else
            into->push_back(parameter.symbol());
    }
    return function;
}

Value Interpreter::ApplyBuiltin(const Builtin& builtin, const Value* arguments, size_t count)
{
    if (builtin.special != nullptr) {
        // Applied to values: each is handed over as a quoted form.
        ListBuilder operands;
        for (size_t i = 0; i < count; ++i)
            operands.Add(ListOf(Intern(L"QUOTE"), arguments[i]));
        return builtin.special(*this, operands.Take());
    }
    if (count < size_t(builtin.least))
        Fail(L"too few arguments");
    if (builtin.most >= 0 && count > size_t(builtin.most))
        Fail(L"too many arguments");
    return builtin.call(*this, {arguments, count});
}

// Bindings are put back on every way out, an error's included.
class Interpreter::Frame {
public:
    explicit Frame(Interpreter& lisp) : m_lisp(lisp), m_mark(lisp.m_bindings.size()) {}
    ~Frame()
    {
        std::vector<Binding>& bindings = m_lisp.m_bindings;
        for (; bindings.size() > m_mark; bindings.pop_back())
            bindings.back().symbol->value.Swap(bindings.back().saved);
    }
    void Bind(Symbol* symbol, Value value)
    {
        m_lisp.m_bindings.push_back({symbol, std::move(value)});
        symbol->value.Swap(m_lisp.m_bindings.back().saved);
    }

private:
    Interpreter& m_lisp;
    size_t m_mark;
};

Value Interpreter::ApplyFunction(const Value& held, const Value* arguments, size_t count)
{
    const Value keep = held;   // the body may redefine the function that is running
    const Function& function = keep.function();
    if (count < function.parameters.size())
        Fail(L"too few arguments");
    if (count > function.parameters.size())
        Fail(L"too many arguments");
    Frame frame(*this);
    for (size_t i = 0; i < count; ++i)
        frame.Bind(function.parameters[i], arguments[i]);
    for (Symbol* local : function.locals)
        frame.Bind(local, Value());
    return EvalAll(function.body);
}

Value Interpreter::EvalAll(const Value& forms)
{
    Value result;
    for (const Value* at = &forms; at->IsCons(); at = &at->cons().cdr)
        result = Eval(at->cons().car);
    return result;
}

Value Interpreter::ApplyGuarded(const Value& function, const Value* arguments, size_t count)
{
    struct Guard {
        int& depth;
        explicit Guard(int& guards) : depth(guards) { ++depth; }
        ~Guard() { --depth; }
    } guard(m_guards);
    return Apply(function, arguments, count);
}

Interpreter::Entry::Entry(Interpreter& lisp) : m_lisp(lisp), m_guards(std::exchange(lisp.m_guards, 0))
{
    if (lisp.m_entries++ == 0)
        lisp.m_steps = 0;
}

Interpreter::Entry::~Entry()
{
    --m_lisp.m_entries;
    m_lisp.m_guards = m_guards;
}

void Interpreter::Conclude(const Failure& failure)
{
    m_lastError = failure.message;
    if (failure.isHandled || failure.kind == Failure::Kind::Exit)
        return;
    std::wstring report = L"\n; error: " + failure.message;
    if (failure.form)
        report += L"\n; in: " + Shortened(failure.form);
    if (!failure.place.empty())
        report += L"\n; file: " + failure.place;
    Ui().Print(report + L"\n");
}

bool Interpreter::Run(std::wstring_view text, Value& result)
{
    return Protected([&] {
        Reader reader(*this, text);
        Value form;
        while (reader.Read(form))
            result = Eval(form);
    });
}

}   // namespace KxPlat::Lisp
