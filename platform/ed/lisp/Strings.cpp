#include "../../db/core/Wildcard.h"
#include "../../win/CharTables.h"
#include "Families.h"
#include "Interpreter.h"
#include "Reader.h"

namespace KxPlat::Lisp {

namespace {

constexpr size_t kMostCharacters = size_t(64) << 20;

Value Concatenate(Interpreter&, const Arguments& arguments)
{
    std::wstring text;
    for (const Value& part : arguments) {
        text += TextOf(part);
        if (text.size() > kMostCharacters)
            Fail(L"insufficient string space");
    }
    return Value(std::move(text));
}

// Positions count from 1.
Value Substring(Interpreter&, const Arguments& arguments)
{
    const std::wstring& text = TextOf(arguments[0]);
    const int32_t start = IntegerOf(arguments[1]);
    if (start < 1)
        throw Failure(L"bad argument value: positive " + std::to_wstring(start));
    const int32_t length = arguments.count == 3 ? IntegerOf(arguments[2]) : INT32_MAX;
    if (size_t(start) > text.size() || length <= 0)
        return Value(L"");
    return Value(text.substr(size_t(start) - 1, size_t(length)));
}

Value LengthOfTexts(Interpreter&, const Arguments& arguments)
{
    size_t length = 0;
    for (const Value& text : arguments)
        length += TextOf(text).size();
    return Value(int32_t(length));
}

Value Case(Interpreter&, const Arguments& arguments)
{
    const std::wstring& text = TextOf(arguments[0]);
    return Value(arguments.Get(1) ? Lower(text) : Upper(text));
}

Value CodeOfFirst(Interpreter&, const Arguments& arguments)
{
    const std::wstring& text = TextOf(arguments[0]);
    return Value(int32_t(text.empty() ? 0 : text[0]));
}

Value Character(Interpreter&, const Arguments& arguments)
{
    const int32_t code = IntegerOf(arguments[0]);
    if (code < 0 || code > 0x10FFFF)
        BadArgument(L"fixnump:", arguments[0]);
    return Value(code == 0 ? std::wstring() : std::wstring(1, wchar_t(code)));
}

Value Matches(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(WildcardMatchExact(TextOf(arguments[0]), TextOf(arguments[1])));
}

Value ReadForm(Interpreter& lisp, const Arguments& arguments)
{
    Value form;
    if (arguments.count == 1)
        Reader(lisp, TextOf(arguments[0])).Read(form);
    return form;
}

const Builtin kRows[] = {
    {L"STRCAT", Concatenate},    {L"SUBSTR", Substring, 2, 3},  {L"STRLEN", LengthOfTexts},
    {L"STRCASE", Case, 1, 2},    {L"ASCII", CodeOfFirst, 1, 1}, {L"CHR", Character, 1, 1},
    {L"WCMATCH", Matches, 2, 2}, {L"READ", ReadForm, 0, 1},     {L"XSTRCASE", Case, 1, 1},
};

}   // namespace

const BuiltinTable kStrings = TableOf(kRows);

}   // namespace KxPlat::Lisp
