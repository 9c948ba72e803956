// The list functions whose names begin with VL-.
#include "Families.h"
#include "Interpreter.h"
#include <algorithm>

namespace KxPlat::Lisp {

namespace {

// The members that are kept by `Keep`, a test of the value that the predicate gave.
template <bool KeepTrue>
Value Filter(Interpreter& lisp, const Arguments& arguments)
{
    const Value predicate = lisp.Callable(arguments[0]);
    ListBuilder list;
    for (const Value& member : Members(ListIn(arguments[1])))
        if (bool(lisp.Apply(predicate, {member})) == KeepTrue)
            list.Add(member);
    return list.Take();
}

Value Remove(Interpreter&, const Arguments& arguments)
{
    ListBuilder list;
    for (const Value& member : Members(ListIn(arguments[1])))
        if (!IsEqual(member, arguments[0]))
            list.Add(member);
    return list.Take();
}

template <bool FindTrue>
Value MemberIf(Interpreter& lisp, const Arguments& arguments)
{
    const Value predicate = lisp.Callable(arguments[0]);
    Value at = ListIn(arguments[1]);
    while (at.IsCons() && bool(lisp.Apply(predicate, {at.car()})) != FindTrue)
        at = Value(at.cdr());
    return at.IsCons() ? at : Value();
}

// The predicate's arguments, taken from all lists at once; false when one of them has ended.
bool NextMembers(std::vector<Value>& lists, std::vector<Value>& members)
{
    for (size_t i = 0; i < lists.size(); ++i) {
        if (!lists[i].IsCons())
            return false;
        members[i] = lists[i].car();
        lists[i] = Value(lists[i].cdr());
    }
    return !lists.empty();
}

std::vector<Value> ListsFrom(const Arguments& arguments, size_t first)
{
    std::vector<Value> lists;
    for (size_t i = first; i < arguments.count; ++i)
        lists.push_back(ListIn(arguments[i]));
    return lists;
}

Value Every(Interpreter& lisp, const Arguments& arguments)
{
    const Value predicate = lisp.Callable(arguments[0]);
    std::vector<Value> lists = ListsFrom(arguments, 1), members(lists.size());
    while (NextMembers(lists, members))
        if (!lisp.Apply(predicate, members.data(), members.size()))
            return Value();
    return lisp.T();
}

Value Some(Interpreter& lisp, const Arguments& arguments)
{
    const Value predicate = lisp.Callable(arguments[0]);
    std::vector<Value> lists = ListsFrom(arguments, 1), members(lists.size());
    while (NextMembers(lists, members))
        if (Value found = lisp.Apply(predicate, members.data(), members.size()))
            return found;
    return Value();
}

Value Position(Interpreter&, const Arguments& arguments)
{
    int32_t index = 0;
    for (const Value& member : Members(ListIn(arguments[1]))) {
        if (IsEqual(member, arguments[0]))
            return Value(index);
        ++index;
    }
    return Value();
}

// A merge sort of our own: a predicate that contradicts itself must not lead outside the data, as std::sort would be.
void MergeSort(Interpreter& lisp, const Value& predicate, const std::vector<Value>& values, std::vector<size_t>& order)
{
    std::vector<size_t> merged(order.size());
    for (size_t width = 1; width < order.size(); width *= 2) {
        for (size_t start = 0; start < order.size(); start += 2 * width) {
            const size_t middle = std::min(start + width, order.size());
            const size_t end = std::min(start + 2 * width, order.size());
            size_t left = start, right = middle;
            for (size_t to = start; to < end; ++to) {
                const bool takeRight =
                    left >= middle ||
                    (right < end && lisp.Apply(predicate, {values[order[right]], values[order[left]]}));
                merged[to] = takeRight ? order[right++] : order[left++];
            }
        }
        order.swap(merged);
    }
}

std::vector<size_t> SortedOrder(Interpreter& lisp, const Arguments& arguments, std::vector<Value>& values)
{
    for (const Value& member : Members(ListIn(arguments[0])))
        values.push_back(member);
    std::vector<size_t> order(values.size());
    for (size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    MergeSort(lisp, lisp.Callable(arguments[1]), values, order);
    return order;
}

Value Sort(Interpreter& lisp, const Arguments& arguments)
{
    std::vector<Value> values;
    ListBuilder list;
    for (const size_t index : SortedOrder(lisp, arguments, values))
        list.Add(values[index]);
    return list.Take();
}

Value SortIndices(Interpreter& lisp, const Arguments& arguments)
{
    std::vector<Value> values;
    ListBuilder list;
    for (const size_t index : SortedOrder(lisp, arguments, values))
        list.Add(Value(int32_t(index)));
    return list.Take();
}

Value ListWithTail(Interpreter&, const Arguments& arguments)
{
    ListBuilder list;
    for (size_t i = 0; i + 1 < arguments.count; ++i)
        list.Add(arguments[i]);
    list.SetTail(arguments[arguments.count - 1]);
    return list.Take();
}

Value ListLength(Interpreter&, const Arguments& arguments)
{
    const Value* end = &ListIn(arguments[0]);
    while (end->IsCons())
        end = &end->cdr();
    return end->IsNil() ? Value(int32_t(LengthOf(arguments[0]))) : Value();
}

Value IsPair(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(arguments[0].IsCons());
}

const Builtin kRows[] = {
    {L"VL-REMOVE", Remove, 2, 2},
    {L"VL-REMOVE-IF", Filter<false>, 2, 2},
    {L"VL-REMOVE-IF-NOT", Filter<true>, 2, 2},
    {L"VL-MEMBER-IF", MemberIf<true>, 2, 2},
    {L"VL-MEMBER-IF-NOT", MemberIf<false>, 2, 2},
    {L"VL-EVERY", Every, 2},
    {L"VL-SOME", Some, 2},
    {L"VL-POSITION", Position, 2, 2},
    {L"VL-SORT", Sort, 2, 2},
    {L"VL-SORT-I", SortIndices, 2, 2},
    {L"VL-LIST*", ListWithTail, 1},
    {L"VL-LIST-LENGTH", ListLength, 1, 1},
    {L"VL-CONSP", IsPair, 1, 1},
};

}   // namespace

const BuiltinTable kVlLists = TableOf(kRows);

}   // namespace KxPlat::Lisp
