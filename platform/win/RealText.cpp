#include "RealText.h"
#include <algorithm>
#include <charconv>
#include <cmath>

namespace KxPlat {
namespace {

constexpr int kMostDigits = 1100;   // no double has more digits behind the point than 1074

std::string Converted(double value, std::chars_format format, int precision)
{
    std::string text(static_cast<size_t>(precision) + 400, '\0');
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value, format, precision);
    text.resize(static_cast<size_t>(result.ptr - text.data()));
    return text;
}

size_t MantissaEnd(const std::string& text)
{
    return std::min(text.find('e'), text.size());
}

// True when the exact digits of `value` go on with a single 5 behind `precision` digits.
bool IsTie(double value, std::chars_format format, int precision)
{
    const std::string one = Converted(value, format, precision + 1);
    if (one[MantissaEnd(one) - 1] != '5')
        return false;
    const std::string exact = Converted(value, format, kMostDigits);
    const size_t end = MantissaEnd(one);
    return exact.compare(0, end, one, 0, end) == 0 &&
           std::min(exact.find_first_not_of('0', end), exact.size()) == MantissaEnd(exact);
}

// Adds one to the last digit of a number without exponent; a carry may lengthen it.
void CountUp(std::string& digits)
{
    for (size_t i = digits.size(); i-- > 0;) {
        if (digits[i] == '.')
            continue;
        if (digits[i] != '9') {
            ++digits[i];
            return;
        }
        digits[i] = '0';
    }
    digits.insert(digits.begin(), '1');
}

std::string WithExponent(std::string mantissa, int exponent)
{
    std::string digits = std::to_string(std::abs(exponent));
    digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, '0');
    return mantissa + (exponent < 0 ? "e-" : "e+") + digits;
}

std::string Fixed(double value, int precision)
{
    if (!IsTie(value, std::chars_format::fixed, precision))
        return Converted(value, std::chars_format::fixed, precision);
    std::string digits = Converted(value, std::chars_format::fixed, precision + 1);
    digits.pop_back();
    if (digits.back() == '.')
        digits.pop_back();
    CountUp(digits);
    return digits;
}

std::string Scientific(double value, int precision, int& exponent)
{
    const bool tie = IsTie(value, std::chars_format::scientific, precision);
    std::string text = Converted(value, std::chars_format::scientific, tie ? precision + 1 : precision);
    const size_t end = MantissaEnd(text);
    exponent = std::stoi(text.substr(end + 1));
    text.resize(tie ? end - 1 : end);
    if (text.back() == '.')
        text.pop_back();
    if (!tie)
        return text;
    CountUp(text);
    if (text.find('.') == 2 || (text.find('.') == std::string::npos && text.size() == 2)) {
        ++exponent;   // 9.95 became 10.0
        text.pop_back();
        if (precision > 0)
            text.erase(text.find('.'), 1).insert(1, ".");
    }
    return text;
}

void KeepPoint(std::string& text)
{
    if (text.find('.') == std::string::npos)
        text.insert(MantissaEnd(text), ".");
}

void DropZeros(std::string& digits)
{
    if (digits.find('.') == std::string::npos)
        return;
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.')
        digits.pop_back();
}

std::string General(double value, int precision, bool alternate)
{
    precision = std::max(precision, 1);
    int exponent = 0;
    std::string mantissa = Scientific(value, precision - 1, exponent);
    const bool scientific = exponent < -4 || exponent >= precision;
    std::string text = scientific ? mantissa : Fixed(value, precision - 1 - exponent);
    if (!alternate)
        DropZeros(text);
    else
        KeepPoint(text);
    return scientific ? WithExponent(text, exponent) : text;
}

std::string Hexadecimal(double value, int precision)
{
    return "0x" + Converted(value, std::chars_format::hex, precision < 0 ? 13 : precision);
}

// Infinity reads as the digits "1#INF" with zeros behind, cut to the precision like a number: "1.#J" is 1.#INF rounded.
std::string Special(double value, int precision)
{
    const int places = precision < 0 ? 6 : precision;
    // The NaN that arithmetic makes has its sign set, and its own name.
    std::string tail = std::isinf(value) ? "#INF" : std::signbit(value) ? "#IND" : "#QNAN";
    if (places < static_cast<int>(tail.size())) {
        const bool up = tail[static_cast<size_t>(places)] >= '5';
        tail.resize(static_cast<size_t>(places));
        if (up && !tail.empty())
            ++tail.back();
    } else {
        tail.append(static_cast<size_t>(places) - tail.size(), '0');
    }
    return tail.empty() ? "1" : "1." + tail;
}

std::string SpecialOfKind(double value, char kind, int precision)
{
    if (kind == 'g') {
        std::string text = Special(value, precision < 0 ? 5 : std::max(precision, 1) - 1);
        DropZeros(text);
        return text;
    }
    return kind == 'e' ? WithExponent(Special(value, precision), 0) : Special(value, precision);
}

}   // namespace

std::string RealDigits(double value, char kind, int precision, bool alternate)
{
    const bool capital = kind >= 'A' && kind <= 'Z';
    const char small = capital ? static_cast<char>(kind + 'a' - 'A') : kind;
    const int places = std::min(precision < 0 ? 6 : precision, kMostDigits);
    std::string text;
    const double special = value;
    value = std::fabs(value);
    if (!std::isfinite(value)) {
        text = SpecialOfKind(special, small, precision);
    } else if (small == 'a') {
        text = Hexadecimal(value, std::min(precision, kMostDigits));
    } else if (small == 'g') {
        text = General(value, places, alternate);
    } else if (small == 'e') {
        int exponent = 0;
        const std::string mantissa = Scientific(value, places, exponent);
        text = WithExponent(mantissa, exponent);
    } else {
        text = Fixed(value, places);
    }
    if (alternate && small != 'g')
        KeepPoint(text);
    if (capital)
        std::transform(text.begin(), text.end(), text.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
    return text;
}

}   // namespace KxPlat
