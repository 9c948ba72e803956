// Numbers to texts and back.
#include "../../win/CharTables.h"
#include "Families.h"
#include "HostVariables.h"
#include "Interpreter.h"
#include "NumberTexts.h"
#include "Reader.h"
#include <algorithm>
#include <charconv>
#include <cmath>

namespace KxPlat::Lisp {

namespace {

int IntegerOr(const Value& value, const wchar_t* variable, int byDefault)
{
    return value ? IntegerOf(value) : HostInteger(variable, byDefault);
}

LengthMode LengthModeOf(const Value& value)
{
    const int mode = IntegerOr(value, L"LUNITS", 2);
    if (mode < 1 || mode > 5)
        Fail(L"bad argument value");
    return LengthMode(mode);
}

AngleMode AngleModeOf(const Value& value)
{
    const int mode = IntegerOr(value, L"AUNITS", 0);
    if (mode < 0 || mode > 4)
        Fail(L"bad argument value");
    return AngleMode(mode);
}

Value RealToText(Interpreter&, const Arguments& arguments)
{
    const double value = NumberOf(arguments[0]);
    return Value(LengthText(value, LengthModeOf(arguments.Get(1)), IntegerOr(arguments.Get(2), L"LUPREC", 4),
                            HostInteger(L"DIMZIN", 0)));
}

Value AngleToText(Interpreter&, const Arguments& arguments)
{
    const double value = NumberOf(arguments[0]);
    return Value(AngleText(value, AngleModeOf(arguments.Get(1)), IntegerOr(arguments.Get(2), L"AUPREC", 0)));
}

Value TextToReal(Interpreter&, const Arguments& arguments)
{
    LengthModeOf(arguments.Get(1));
    double value = 0;
    return LengthIn(TextOf(arguments[0]), value) ? Value(value) : Value();
}

Value TextToAngle(Interpreter&, const Arguments& arguments)
{
    double value = 0;
    return AngleIn(TextOf(arguments[0]), AngleModeOf(arguments.Get(1)), value) ? Value(value) : Value();
}

// The longest beginning of the text that is a number; 0 when there is none.
double LeadingNumber(const std::wstring& text)
{
    std::string digits;
    for (const wchar_t character : text)
        digits += character > 0 && character < 128 ? char(character) : '?';
    const size_t start = digits.find_first_not_of(" \t\n\r");
    if (start == std::string::npos)
        return 0;
    const char* first = digits.data() + start + (digits[start] == '+' ? 1 : 0);
    double value = 0;
    std::from_chars(first, digits.data() + digits.size(), value);
    return std::isfinite(value) ? value : 0;
}

Value TextToInteger(Interpreter&, const Arguments& arguments)
{
    const double value = std::trunc(LeadingNumber(TextOf(arguments[0])));
    return Value(int32_t(uint32_t(int64_t(std::clamp(value, -2147483648.0, 2147483647.0)))));
}

Value TextToFloat(Interpreter&, const Arguments& arguments)
{
    return Value(LeadingNumber(TextOf(arguments[0])));
}

Value IntegerToText(Interpreter&, const Arguments& arguments)
{
    return Value(std::to_wstring(IntegerOf(arguments[0])));
}

const Builtin kRows[] = {
    {L"RTOS", RealToText, 1, 3},    {L"ANGTOS", AngleToText, 1, 3}, {L"DISTOF", TextToReal, 1, 2},
    {L"ANGTOF", TextToAngle, 1, 2}, {L"ATOI", TextToInteger, 1, 1}, {L"ATOF", TextToFloat, 1, 1},
    {L"ITOA", IntegerToText, 1, 1},
};

}   // namespace

const BuiltinTable kNumberTexts = TableOf(kRows);

}   // namespace KxPlat::Lisp
