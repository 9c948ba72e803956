#include "../../win/CharTables.h"
#include "Families.h"
#include "Interpreter.h"
#include <algorithm>

namespace KxPlat::Lisp {

namespace {

// `path` holds the letters between C and R as bits, A as 0 and D as 1, the one applied first lowest.
template <unsigned Path, unsigned Length>
Value Along(Interpreter&, const Arguments& arguments)
{
    const Value* at = &arguments[0];
    for (unsigned step = 0; step < Length; ++step) {
        ListIn(*at);
        at = (Path >> step & 1) != 0 ? &at->cdr() : &at->car();
    }
    return *at;
}

Value MakePair(Interpreter&, const Arguments& arguments)
{
    return Pair(arguments[0], arguments[1]);
}

Value List(Interpreter&, const Arguments& arguments)
{
    ListBuilder list;
    for (const Value& value : arguments)
        list.Add(value);
    return list.Take();
}

Value Append(Interpreter&, const Arguments& arguments)
{
    ListBuilder list;
    for (size_t i = 0; i + 1 < arguments.count; ++i)
        for (const Value& member : Members(ListIn(arguments[i])))
            list.Add(member);
    if (arguments.count > 0) {
        ListIn(arguments[arguments.count - 1]);
        list.SetTail(arguments[arguments.count - 1]);
    }
    return list.Take();
}

Value Reverse(Interpreter&, const Arguments& arguments)
{
    Value result;
    for (const Value& member : Members(ListIn(arguments[0])))
        result = Pair(member, std::move(result));
    return result;
}

Value Length(Interpreter&, const Arguments& arguments)
{
    const Value* end = &ListIn(arguments[0]);
    while (end->IsCons())
        end = &end->cdr();
    if (!end->IsNil())
        BadArgument(L"listp", *end);
    return Value(int32_t(LengthOf(arguments[0])));
}

Value Nth(Interpreter&, const Arguments& arguments)
{
    const int32_t index = IntegerOf(arguments[0]);
    if (index < 0)
        BadArgument(L"fixnump:", arguments[0]);
    const Value* at = &ListIn(arguments[1]);
    for (int32_t i = 0; i < index && at->IsCons(); ++i)
        at = &at->cdr();
    return at->car();
}

Value Last(Interpreter&, const Arguments& arguments)
{
    const Value* at = &ListIn(arguments[0]);
    while (at->cdr().IsCons())
        at = &at->cdr();
    return at->car();
}

Value Member(Interpreter&, const Arguments& arguments)
{
    const Value* at = &ListIn(arguments[1]);
    while (at->IsCons() && !IsEqual(at->car(), arguments[0]))
        at = &at->cdr();
    return at->IsCons() ? *at : Value();
}

Value Assoc(Interpreter&, const Arguments& arguments)
{
    for (const Value& member : Members(ListIn(arguments[1]))) {
        if (!member.IsList())
            Fail(L"bad association list");
        if (member.IsCons() && IsEqual(member.car(), arguments[0]))
            return member;
    }
    return Value();
}

Value Subst(Interpreter&, const Arguments& arguments)
{
    ListBuilder list;
    for (const Value& member : Members(ListIn(arguments[2])))
        list.Add(IsEqual(member, arguments[1]) ? arguments[0] : member);
    return list.Take();
}

Value SortTexts(Interpreter&, const Arguments& arguments)
{
    std::vector<Value> texts;
    for (const Value& member : Members(ListIn(arguments[0]))) {
        TextOf(member);
        texts.push_back(member);
    }
    std::stable_sort(texts.begin(), texts.end(),
                     [](const Value& a, const Value& b) { return CompareNoCase(a.text(), b.text()) < 0; });
    ListBuilder list;
    for (const Value& text : texts)
        list.Add(text);
    return list.Take();
}

const Builtin kRows[] = {
    {L"CAR", Along<0b0, 1>, 1, 1},
    {L"CDR", Along<0b1, 1>, 1, 1},
    {L"CAAR", Along<0b00, 2>, 1, 1},
    {L"CADR", Along<0b01, 2>, 1, 1},
    {L"CDAR", Along<0b10, 2>, 1, 1},
    {L"CDDR", Along<0b11, 2>, 1, 1},
    {L"CAAAR", Along<0b000, 3>, 1, 1},
    {L"CAADR", Along<0b001, 3>, 1, 1},
    {L"CADAR", Along<0b010, 3>, 1, 1},
    {L"CADDR", Along<0b011, 3>, 1, 1},
    {L"CDAAR", Along<0b100, 3>, 1, 1},
    {L"CDADR", Along<0b101, 3>, 1, 1},
    {L"CDDAR", Along<0b110, 3>, 1, 1},
    {L"CDDDR", Along<0b111, 3>, 1, 1},
    {L"CAAAAR", Along<0b0000, 4>, 1, 1},
    {L"CAAADR", Along<0b0001, 4>, 1, 1},
    {L"CAADAR", Along<0b0010, 4>, 1, 1},
    {L"CAADDR", Along<0b0011, 4>, 1, 1},
    {L"CADAAR", Along<0b0100, 4>, 1, 1},
    {L"CADADR", Along<0b0101, 4>, 1, 1},
    {L"CADDAR", Along<0b0110, 4>, 1, 1},
    {L"CADDDR", Along<0b0111, 4>, 1, 1},
    {L"CDAAAR", Along<0b1000, 4>, 1, 1},
    {L"CDAADR", Along<0b1001, 4>, 1, 1},
    {L"CDADAR", Along<0b1010, 4>, 1, 1},
    {L"CDADDR", Along<0b1011, 4>, 1, 1},
    {L"CDDAAR", Along<0b1100, 4>, 1, 1},
    {L"CDDADR", Along<0b1101, 4>, 1, 1},
    {L"CDDDAR", Along<0b1110, 4>, 1, 1},
    {L"CDDDDR", Along<0b1111, 4>, 1, 1},
    {L"CONS", MakePair, 2, 2},
    {L"LIST", List},
    {L"APPEND", Append},
    {L"REVERSE", Reverse, 1, 1},
    {L"LENGTH", Length, 1, 1},
    {L"NTH", Nth, 2, 2},
    {L"LAST", Last, 1, 1},
    {L"MEMBER", Member, 2, 2},
    {L"ASSOC", Assoc, 2, 2},
    {L"SUBST", Subst, 3, 3},
    {L"ACAD_STRLSORT", SortTexts, 1, 1},
};

}   // namespace

const BuiltinTable kLists = TableOf(kRows);

}   // namespace KxPlat::Lisp
