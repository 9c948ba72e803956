#include "Value.h"
#include <cmath>

namespace KxPlat::Lisp {

namespace {

long g_liveCells = 0;   // the one table of this file: what the cells that exist take

template <class T>
long WeightOf(const T&)
{
    return 1;
}

long WeightOf(const Text& cell)
{
    constexpr size_t kCharactersOfPair = sizeof(Cons) / sizeof(wchar_t);
    return 1 + long(cell.text.size() / kCharactersOfPair);
}

template <class T, class... Arguments>
T* NewCell(Arguments&&... arguments)
{
    T* cell = new T(std::forward<Arguments>(arguments)...);
    g_liveCells += WeightOf(*cell);
    return cell;
}

template <class T>
void DeleteCell(T* cell)
{
    g_liveCells -= WeightOf(*cell);
    delete cell;
}

}   // namespace

long LiveCells()
{
    return g_liveCells;
}

Value::Value(std::wstring_view text) : Value(Kind::Text, NewCell<Text>(std::wstring(text))) {}

Value::Value(std::wstring text) : Value(Kind::Text, NewCell<Text>(std::move(text))) {}

void Value::Release()
{
    if (--m_data.cell->references != 0)
        return;
    switch (m_kind) {
    case Kind::Text:
        DeleteCell(m_data.text);
        return;
    case Kind::Function:
        DeleteCell(m_data.function);
        return;
    case Kind::Host:
        delete host();
        return;
    default:
        break;
    }
    // Lists may be as long and as deep as memory: no recursion here.
    std::vector<Cons*> pending;
    for (Cons* cell = m_data.cons; cell != nullptr;) {
        Cons* next = nullptr;
        for (Value* part : {&cell->cdr, &cell->car}) {
            if (!part->IsCons())
                continue;
            part->m_kind = Kind::Nil;
            if (--part->m_data.cell->references != 0)
                continue;
            if (next == nullptr)
                next = part->m_data.cons;
            else
                pending.push_back(part->m_data.cons);
        }
        DeleteCell(cell);
        if (next == nullptr && !pending.empty()) {
            next = pending.back();
            pending.pop_back();
        }
        cell = next;
    }
}

Value Pair(Value first, Value rest)
{
    return NewCell<Cons>(std::move(first), std::move(rest));
}

Value NewFunction(Function*& made)
{
    made = NewCell<Function>();
    return made;
}

void ListBuilder::Add(Value value)
{
    Value cell = Pair(std::move(value), Value());
    Cons* added = const_cast<Cons*>(&cell.cons());
    if (m_last == nullptr)
        m_first = std::move(cell);
    else
        m_last->cdr = std::move(cell);
    m_last = added;
}

void ListBuilder::SetTail(Value tail)
{
    if (m_last == nullptr)
        m_first = std::move(tail);
    else
        m_last->cdr = std::move(tail);
}

Value ListBuilder::Take()
{
    m_last = nullptr;
    return std::move(m_first);
}

size_t LengthOf(const Value& list)
{
    size_t length = 0;
    for (const Value* at = &list; at->IsCons(); at = &at->cons().cdr)
        ++length;
    return length;
}

bool IsEq(const Value& a, const Value& b)
{
    if (a.kind() != b.kind())
        return a.IsNumber() && b.IsNumber() && a.number() == b.number();
    switch (a.kind()) {
    case Kind::Nil:
        return true;
    case Kind::Integer:
        return a.integer() == b.integer();
    case Kind::Real:
        return a.real() == b.real();
    case Kind::Text:
        return a.text() == b.text();
    case Kind::Host:
        return a.host()->IsSame(*b.host());
    default:
        return a.address() == b.address();
    }
}

bool IsEqual(const Value& a, const Value& b, double fuzz)
{
    std::vector<std::pair<const Value*, const Value*>> pending{{&a, &b}};
    while (!pending.empty()) {
        auto [left, right] = pending.back();
        pending.pop_back();
        while (left->IsCons() && right->IsCons() && left->address() != right->address()) {
            pending.emplace_back(&left->cons().car, &right->cons().car);
            left = &left->cons().cdr;
            right = &right->cons().cdr;
        }
        const bool isNear =
            fuzz > 0 && left->IsNumber() && right->IsNumber() && std::abs(left->number() - right->number()) <= fuzz;
        if (!isNear && !IsEq(*left, *right))
            return false;
    }
    return true;
}

}   // namespace KxPlat::Lisp
