// One LISP environment: its symbols, and the evaluation of forms. A document has one.
// Variables are bound dynamically, as in the drawing host: what a function binds, the functions that it calls see.
#pragma once
#include "Builtin.h"
#include <deque>
#include <memory>
#include <unordered_map>

namespace KxPlat::Lisp {

class Interpreter {
public:
    Interpreter();
    ~Interpreter();
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    Symbol* Intern(std::wstring_view name);
    // Null when no such symbol was ever mentioned.
    Symbol* Find(std::wstring_view name) const;
    std::vector<std::wstring> SymbolNames() const;   // sorted
    const Value& T() const { return m_t; }
    Value Truth(bool isTrue) const { return isTrue ? m_t : Value(); }
    // What (princ) answers, so that nothing is printed after it.
    const Value& Nothing() const { return m_nothing; }
    bool IsNothing(const Value& value) const { return IsEq(value, m_nothing); }

    // These throw Failure.
    Value Eval(const Value& form)
    {
        switch (form.kind()) {
        case Kind::Symbol:
            return form.symbol()->value;
        case Kind::Cons:
            return EvalForm(form);
        default:
            return form;
        }
    }
    Value EvalAll(const Value& forms);   // the value of the last one
    // What can be applied: follows symbols, and makes a function of a lambda list.
    Value Callable(const Value& function);
    Value Apply(const Value& function, const Value* arguments, size_t count);
    Value Apply(const Value& function, std::initializer_list<Value> arguments)
    {
        return Apply(function, arguments.begin(), arguments.size());
    }
    Value MakeFunction(Symbol* name, const Value& parametersAndBody);
    // Calls `function` and leaves its Failure to the caller, without telling the program's *error* function.
    Value ApplyGuarded(const Value& function, const Value* arguments, size_t count);

    // The edge to everything that knows no exceptions. False when the evaluation failed, which the user then was told.
    bool Run(std::wstring_view text, Value& result);
    template <class Work>
    bool Protected(Work&& work)
    {
        Entry entry(*this);
        try {
            work();
            return true;
        } catch (const Failure& failure) {
            Conclude(failure);
        } catch (const std::bad_alloc&) {
            Conclude(Failure(L"insufficient string space"));
        }
        return false;
    }
    bool IsRunning() const { return m_entries != 0; }
    // The failure that Run or Protected ended with last; for callers that report it in their own way.
    const std::wstring& lastError() const { return m_lastError; }

    // 0: no limit. A run of more evaluations than this fails.
    void SetStepLimit(uint64_t steps) { m_stepLimit = steps; }
    // In the unit of LiveCells().
    void SetMemoryLimit(long most) { m_memoryLimit = most; }
    // Counts one evaluation; fails when the user interrupts or a limit is reached. Loops without a form call it.
    void Step();
    void CheckInterrupt();
    void AddBuiltins(const BuiltinTable& table);

private:
    // Counts the evaluations that the host has begun, one within another.
    class Entry {
    public:
        explicit Entry(Interpreter& lisp);
        ~Entry();

    private:
        Interpreter& m_lisp;
        int m_guards;
    };
    class Frame;

    Value EvalForm(const Value& form);
    Value Dispatch(const Value& form);
    Value CallWith(const Value& function, const Value& operands);
    Value ApplyBuiltin(const Builtin& builtin, const Value* arguments, size_t count);
    Value ApplyFunction(const Value& function, const Value* arguments, size_t count);
    void Locate(Failure& failure, const Value& form);
    void Conclude(const Failure& failure);

    struct Binding {
        Symbol* symbol;
        Value saved;
    };

    std::deque<Symbol> m_symbols;
    std::unordered_map<std::wstring_view, Symbol*> m_index;   // keys lie in the symbols
    std::vector<Binding> m_bindings;
    Value m_t, m_nothing;
    Symbol* m_nothingSymbol = nullptr;
    Symbol* m_lambda = nullptr;
    Symbol* m_slash = nullptr;
    Symbol* m_errorFunction = nullptr;
    int m_entries = 0;
    uint64_t m_steps = 0;
    uint64_t m_stepLimit = 0;
    long m_memoryLimit = 20'000'000;   // about a gigabyte
    int m_guards = 0;
    bool m_isInErrorFunction = false;
    std::wstring m_lastError;
};

}   // namespace KxPlat::Lisp
