// The string functions whose names begin with VL-. Their positions count from 0.
#include "../../win/CharTables.h"
#include "Families.h"
#include "Interpreter.h"
#include "Printer.h"
#include <algorithm>

namespace KxPlat::Lisp {

namespace {

size_t PositionOr(const Arguments& arguments, size_t index, size_t byDefault)
{
    if (!arguments.Get(index))
        return byDefault;
    const int32_t position = IntegerOf(arguments[index]);
    return position < 0 ? 0 : size_t(position);
}

Value FoundAt(size_t position)
{
    return position == std::wstring::npos ? Value() : Value(int32_t(position));
}

wchar_t CharacterOf(const Value& code)
{
    const int32_t number = IntegerOf(code);
    if (number < 0 || number > 0x10FFFF)
        BadArgument(L"fixnump:", code);
    return wchar_t(number);
}

Value Search(Interpreter&, const Arguments& arguments)
{
    return FoundAt(TextOf(arguments[1]).find(TextOf(arguments[0]), PositionOr(arguments, 2, 0)));
}

Value Substitute(Interpreter&, const Arguments& arguments)
{
    std::wstring text = TextOf(arguments[2]);
    const std::wstring &replacement = TextOf(arguments[0]), &pattern = TextOf(arguments[1]);
    const size_t at = text.find(pattern, PositionOr(arguments, 3, 0));
    if (at != std::wstring::npos)
        text.replace(at, pattern.size(), replacement);
    return Value(std::move(text));
}

Value Translate(Interpreter&, const Arguments& arguments)
{
    const std::wstring &from = TextOf(arguments[0]), &to = TextOf(arguments[1]);
    std::wstring text = TextOf(arguments[2]);
    for (wchar_t& character : text) {
        const size_t at = from.find(character);
        if (at < to.size())
            character = to[at];
    }
    return Value(std::move(text));
}

enum Side { kLeft = 1, kRight = 2 };

template <int Sides>
Value Trim(Interpreter&, const Arguments& arguments)
{
    const std::wstring &characters = TextOf(arguments[0]), &text = TextOf(arguments[1]);
    const size_t first = (Sides & kLeft) != 0 ? text.find_first_not_of(characters) : 0;
    if (first == std::wstring::npos)
        return Value(L"");
    const size_t last = (Sides & kRight) != 0 ? text.find_last_not_of(characters) + 1 : text.size();
    return Value(text.substr(first, std::max(first, last) - first));
}

Value Position(Interpreter&, const Arguments& arguments)
{
    const wchar_t character = CharacterOf(arguments[0]);
    const std::wstring& text = TextOf(arguments[1]);
    const size_t start = PositionOr(arguments, 2, 0);
    return FoundAt(arguments.Get(3) ? text.rfind(character) : text.find(character, start));
}

Value Mismatch(Interpreter&, const Arguments& arguments)
{
    const std::wstring &a = TextOf(arguments[0]), &b = TextOf(arguments[1]);
    const size_t fromA = PositionOr(arguments, 2, 0), fromB = PositionOr(arguments, 3, 0);
    const bool ignoresCase = bool(arguments.Get(4));
    size_t same = 0;
    while (fromA + same < a.size() && fromB + same < b.size()) {
        const wchar_t left = a[fromA + same], right = b[fromB + same];
        if (left != right && !(ignoresCase && Upper(left) == Upper(right)))
            break;
        ++same;
    }
    return Value(int32_t(same));
}

Value Element(Interpreter&, const Arguments& arguments)
{
    const std::wstring& text = TextOf(arguments[0]);
    const int32_t index = IntegerOf(arguments[1]);
    if (index < 0 || size_t(index) >= text.size())
        Fail(L"bad argument value: string index out of range");
    return Value(int32_t(text[size_t(index)]));
}

Value ToList(Interpreter&, const Arguments& arguments)
{
    ListBuilder list;
    for (const wchar_t character : TextOf(arguments[0]))
        list.Add(Value(int32_t(character)));
    return list.Take();
}

Value FromList(Interpreter&, const Arguments& arguments)
{
    std::wstring text;
    for (const Value& code : Members(ListIn(arguments[0])))
        text += CharacterOf(code);
    return Value(std::move(text));
}

template <PrintStyle Style>
Value ToText(Interpreter&, const Arguments& arguments)
{
    return Value(Printed(arguments[0], Style));
}

const Builtin kRows[] = {
    {L"VL-STRING-SEARCH", Search, 2, 3},
    {L"VL-STRING-SUBST", Substitute, 3, 4},
    {L"VL-STRING-TRANSLATE", Translate, 3, 3},
    {L"VL-STRING-TRIM", Trim<kLeft | kRight>, 2, 2},
    {L"VL-STRING-LEFT-TRIM", Trim<kLeft>, 2, 2},
    {L"VL-STRING-RIGHT-TRIM", Trim<kRight>, 2, 2},
    {L"VL-STRING-POSITION", Position, 2, 4},
    {L"VL-STRING-MISMATCH", Mismatch, 2, 5},
    {L"VL-STRING-ELT", Element, 2, 2},
    {L"VL-STRING->LIST", ToList, 1, 1},
    {L"VL-LIST->STRING", FromList, 1, 1},
    {L"VL-PRIN1-TO-STRING", ToText<PrintStyle::Quoted>, 1, 1},
    {L"VL-PRINC-TO-STRING", ToText<PrintStyle::Plain>, 1, 1},
};

}   // namespace

const BuiltinTable kVlStrings = TableOf(kRows);

}   // namespace KxPlat::Lisp
