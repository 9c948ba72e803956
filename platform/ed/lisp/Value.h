// LISP values. A value is two words: numbers lie in it, everything else is a counted cell. Lists cannot be changed in
// place, and symbols belong to their interpreter, so that no cycle of counted cells can arise.
#pragma once
#include "../../db/AcDbObjectId.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace KxPlat::Lisp {

class Interpreter;
class Value;
struct Builtin;
struct Cons;
struct Function;
struct HostCell;
struct Symbol;
struct Text;

enum class Kind : uint8_t { Nil, Integer, Real, Symbol, EntityName, Builtin, Text, Cons, Function, Host };

struct Cell {
    uint32_t references = 0;
};

class Value {
public:
    Value() = default;
    Value(int32_t number) : m_kind(Kind::Integer) { m_data.integer = number; }
    Value(double number) : m_kind(Kind::Real) { m_data.real = number; }
    Value(Symbol* symbol) : m_kind(Kind::Symbol) { m_data.symbol = symbol; }
    Value(AcDbObjectId id) : m_kind(Kind::EntityName) { m_data.stub = id; }
    Value(const Builtin* builtin) : m_kind(Kind::Builtin) { m_data.builtin = builtin; }
    Value(std::wstring_view text);
    Value(const wchar_t* text) : Value(std::wstring_view(text)) {}
    Value(std::wstring text);
    Value(Cons* cell) : Value(Kind::Cons, reinterpret_cast<Cell*>(cell)) {}
    Value(Function* cell) : Value(Kind::Function, reinterpret_cast<Cell*>(cell)) {}
    Value(HostCell* cell);
    Value(bool) = delete;   // the interpreter's T is meant

    Value(const Value& other) : m_kind(other.m_kind), m_data(other.m_data) { Hold(); }
    Value(Value&& other) noexcept : m_kind(other.m_kind), m_data(other.m_data) { other.m_kind = Kind::Nil; }
    Value& operator=(const Value& other)
    {
        Value(other).Swap(*this);
        return *this;
    }
    Value& operator=(Value&& other) noexcept
    {
        Value(std::move(other)).Swap(*this);
        return *this;
    }
    ~Value()
    {
        if (IsCounted())
            Release();
    }
    void Swap(Value& other) noexcept
    {
        std::swap(m_kind, other.m_kind);
        std::swap(m_data, other.m_data);
    }

    Kind kind() const { return m_kind; }
    bool IsNil() const { return m_kind == Kind::Nil; }
    explicit operator bool() const { return m_kind != Kind::Nil; }
    bool IsCons() const { return m_kind == Kind::Cons; }
    bool IsList() const { return m_kind == Kind::Cons || m_kind == Kind::Nil; }
    bool IsInteger() const { return m_kind == Kind::Integer; }
    bool IsReal() const { return m_kind == Kind::Real; }
    bool IsNumber() const { return IsInteger() || IsReal(); }
    bool IsText() const { return m_kind == Kind::Text; }
    bool IsSymbol() const { return m_kind == Kind::Symbol; }
    bool IsEntityName() const { return m_kind == Kind::EntityName; }

    // Each is valid for its kind only.
    int32_t integer() const { return m_data.integer; }
    double real() const { return m_data.real; }
    double number() const { return IsInteger() ? m_data.integer : m_data.real; }
    Symbol* symbol() const { return m_data.symbol; }
    AcDbObjectId id() const { return m_data.stub; }
    const Builtin* builtin() const { return m_data.builtin; }
    const std::wstring& text() const;
    const Cons& cons() const { return *m_data.cons; }
    const Function& function() const { return *m_data.function; }
    HostCell* host() const;
    const void* address() const { return m_data.cell; }

    // Nil for anything but a pair.
    const Value& car() const;
    const Value& cdr() const;

private:
    Value(Kind kind, Cell* cell) : m_kind(kind)
    {
        m_data.cell = cell;
        Hold();
    }
    bool IsCounted() const { return m_kind >= Kind::Text; }
    void Hold();
    void Release();

    Kind m_kind = Kind::Nil;
    union {
        int32_t integer;
        double real;
        Symbol* symbol;
        AcDbStub* stub;
        const Builtin* builtin;
        Cell* cell;
        Text* text;
        Cons* cons;
        Function* function;
    } m_data = {0};
};

struct Text : Cell {
    explicit Text(std::wstring value) : text(std::move(value)) {}
    std::wstring text;
};

struct Cons : Cell {
    Cons(Value first, Value rest) : car(std::move(first)), cdr(std::move(rest)) {}
    Value car, cdr;
};

// What DEFUN and LAMBDA make. A symbol may stand among the parameters and the locals.
struct Function : Cell {
    Symbol* name = nullptr;   // null for a lambda
    std::vector<Symbol*> parameters;
    std::vector<Symbol*> locals;
    Value body;     // a list of forms
    Value source;   // parameters and body as they were read
};

// A thing of the host's that LISP holds: a file, a selection set, a caught error, a function of a module.
struct HostCell : Cell {
    virtual ~HostCell() = default;
    virtual const wchar_t* TypeName() const = 0;   // the answer of (type x)
    virtual std::wstring Printed() const = 0;
    virtual bool IsSame(const HostCell& other) const { return this == &other; }
};

struct Symbol {
    std::wstring name;   // in capitals
    Value value;
    bool isConstant = false;
};

// Memory that values take now, in pairs: a text counts as several by its length. A runaway program is stopped before
// memory ends.
long LiveCells();

inline void Value::Hold()
{
    if (IsCounted())
        ++m_data.cell->references;
}
inline Value::Value(HostCell* cell) : Value(Kind::Host, static_cast<Cell*>(cell)) {}
inline HostCell* Value::host() const
{
    return static_cast<HostCell*>(m_data.cell);
}
inline const std::wstring& Value::text() const
{
    return m_data.text->text;
}
inline const Value& Value::car() const
{
    static const Value nil;
    return IsCons() ? m_data.cons->car : nil;
}
inline const Value& Value::cdr() const
{
    static const Value nil;
    return IsCons() ? m_data.cons->cdr : nil;
}

Value Pair(Value first, Value rest);
Value NewFunction(Function*& made);

// Puts values at the end of a list that nobody else has seen yet.
class ListBuilder {
public:
    void Add(Value value);
    void SetTail(Value tail);   // the list's end becomes dotted
    bool IsEmpty() const { return m_last == nullptr; }
    Value Take();

private:
    Value m_first;
    Cons* m_last = nullptr;
};

template <class... Values>
Value ListOf(Values&&... values)
{
    ListBuilder list;
    (list.Add(Value(std::forward<Values>(values))), ...);
    return list.Take();
}

// Members of a proper list, for range loops; a dotted end is passed over.
class Members {
public:
    explicit Members(const Value& list) : m_list(list) {}
    class Iterator {
    public:
        explicit Iterator(const Value* at) : m_at(at) {}
        const Value& operator*() const { return m_at->cons().car; }
        Iterator& operator++()
        {
            m_at = &m_at->cons().cdr;
            return *this;
        }
        bool operator!=(std::nullptr_t) const { return m_at->IsCons(); }

    private:
        const Value* m_at;
    };
    Iterator begin() const { return Iterator(&m_list); }
    std::nullptr_t end() const { return nullptr; }

private:
    const Value m_list;   // held, since what the loop does may drop the last other reference
};

size_t LengthOf(const Value& list);

// The same atom or the same cell.
bool IsEq(const Value& a, const Value& b);
// The same structure; reals and integers may differ by `fuzz`.
bool IsEqual(const Value& a, const Value& b, double fuzz = 0);

}   // namespace KxPlat::Lisp
