#include "NumberTexts.h"
#include "../../win/CharTables.h"
#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

namespace KxPlat {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kInchesPerFoot = 12;
constexpr int kMostPrecision = 16;

enum ZeroBit { kNoZeroInches = 3, kNoLeadingZero = 4, kNoTrailingZeros = 8 };

std::wstring Digits(double value, int precision, std::chars_format format = std::chars_format::fixed)
{
    char text[400];
    const char* end = std::to_chars(text, text + sizeof text, value, format, precision).ptr;
    return std::wstring(std::begin(text), std::begin(text) + (end - text));
}

std::wstring Trimmed(std::wstring digits, int zeroMode)
{
    if ((zeroMode & kNoTrailingZeros) != 0 && digits.find(L'.') != std::wstring::npos) {
        digits.erase(digits.find_last_not_of(L'0') + 1);
        if (digits.back() == L'.')
            digits.pop_back();
    }
    if ((zeroMode & kNoLeadingZero) != 0 && digits.size() > 1 && digits.compare(0, 2, L"0.") == 0)
        digits.erase(0, 1);
    return digits;
}

std::wstring DecimalText(double value, int precision, int zeroMode)
{
    std::wstring digits = Digits(std::abs(value), precision);
    const bool isZero = digits.find_first_not_of(L"0.") == std::wstring::npos;
    return (value < 0 && !isZero ? L"-" : L"") + Trimmed(std::move(digits), zeroMode);
}

std::wstring ScientificText(double value, int precision)
{
    std::wstring digits = Digits(value, precision, std::chars_format::scientific);
    std::replace(digits.begin(), digits.end(), L'e', L'E');
    return digits;
}

// A whole number and a fraction in lowest terms: "5 1/2", "5", "1/2".
std::wstring WithFraction(int64_t pieces, int64_t perUnit)
{
    const int64_t whole = pieces / perUnit, rest = pieces % perUnit;
    if (rest == 0)
        return std::to_wstring(whole);
    const int64_t divisor = std::gcd(rest, perUnit);
    const std::wstring fraction = std::to_wstring(rest / divisor) + L"/" + std::to_wstring(perUnit / divisor);
    return whole == 0 ? fraction : std::to_wstring(whole) + L" " + fraction;
}

// DIMZIN 0 leaves out zero feet and zero inches, 1 keeps both, 2 keeps zero feet, 3 keeps zero inches.
std::wstring FeetAndInches(int64_t feet, const std::wstring& inches, bool isZeroInches, int zeroMode)
{
    const int mode = zeroMode & 3;
    const bool showFeet = feet != 0 || mode == 1 || mode == 2;
    const bool showInches = !isZeroInches || mode == 1 || mode == 3 || !showFeet;
    std::wstring text;
    if (showFeet)
        text = std::to_wstring(feet) + L"'";
    if (showFeet && showInches)
        text += L"-";
    if (showInches)
        text += inches + L"\"";
    return text;
}

std::wstring FractionText(double value, LengthMode mode, int precision, int zeroMode)
{
    const int64_t perUnit = int64_t(1) << std::min(precision, 8);
    const double scaled = std::abs(value) * double(perUnit);
    if (scaled > 9e15)
        return ScientificText(value, precision);
    const int64_t pieces = std::llround(scaled);
    const std::wstring sign = value < 0 && pieces != 0 ? L"-" : L"";
    if (mode == LengthMode::Fractional)
        return sign + WithFraction(pieces, perUnit);
    const int64_t perFoot = perUnit * int64_t(kInchesPerFoot);
    return sign +
           FeetAndInches(pieces / perFoot, WithFraction(pieces % perFoot, perUnit), pieces % perFoot == 0, zeroMode);
}

std::wstring EngineeringText(double value, int precision, int zeroMode)
{
    const double scale = std::pow(10.0, precision);
    const double size = std::round(std::abs(value) * scale) / scale;
    if (size > 9e15)
        return ScientificText(value, precision);
    const int64_t feet = int64_t(size / kInchesPerFoot);
    const double inches = std::max(0.0, size - double(feet) * kInchesPerFoot);
    const std::wstring digits = Trimmed(Digits(inches, precision), zeroMode);
    return (value < 0 && size != 0 ? L"-" : L"") +
           FeetAndInches(feet, digits, digits.find_first_not_of(L"0.") == std::wstring::npos, zeroMode);
}

}   // namespace

std::wstring LengthText(double value, LengthMode mode, int precision, int zeroMode)
{
    if (!std::isfinite(value))
        return std::isnan(value) ? L"nan" : value < 0 ? L"-inf" : L"inf";
    precision = std::clamp(precision, 0, kMostPrecision);
    switch (mode) {
    case LengthMode::Scientific:
        return ScientificText(value, precision);
    case LengthMode::Engineering:
        return EngineeringText(value, precision, zeroMode);
    case LengthMode::Architectural:
    case LengthMode::Fractional:
        return FractionText(value, mode, precision, zeroMode);
    case LengthMode::Decimal:
        break;
    }
    return DecimalText(value, precision, zeroMode);
}

namespace {

// Degrees alone, with minutes from precision 1, with seconds from 3, with decimals of seconds from 5.
std::wstring SexagesimalText(double degrees, int precision)
{
    const int decimals = std::max(0, precision - 4);
    const double units = precision == 0 ? 1 : precision <= 2 ? 60 : 3600;
    const double scale = std::pow(10.0, decimals);
    double rest = std::round(degrees * units * scale) / scale;
    const double whole = std::floor(rest / units);
    rest -= whole * units;
    std::wstring text = Digits(whole, 0) + L"d";
    if (precision == 0)
        return text;
    if (precision <= 2)
        return text + Digits(rest, 0) + L"'";
    const double minutes = std::floor(rest / 60);
    return text + Digits(minutes, 0) + L"'" + Digits(std::max(0.0, rest - minutes * 60), decimals) + L"\"";
}

// From north or south towards east or west; an angle on an axis is named by the axis alone.
std::wstring SurveyorText(double degrees, int precision)
{
    struct Axis {
        double degrees;
        const wchar_t* name;
    };
    static const Axis kAxes[] = {{0, L"E"}, {90, L"N"}, {180, L"W"}, {270, L"S"}};
    for (const Axis& axis : kAxes)
        if (std::abs(degrees - axis.degrees) < 1e-9)
            return axis.name;
    const bool isNorth = degrees < 180, isEast = degrees < 90 || degrees > 270;
    const double fromAxis = std::abs((isNorth ? 90 : 270) - degrees);
    return std::wstring(isNorth ? L"N " : L"S ") + SexagesimalText(fromAxis, precision) + (isEast ? L" E" : L" W");
}

}   // namespace

std::wstring AngleText(double radians, AngleMode mode, int precision)
{
    if (!std::isfinite(radians))
        return L"nan";
    precision = std::clamp(precision, 0, kMostPrecision);
    double turned = std::fmod(radians, 2 * kPi);
    if (turned < 0)
        turned += 2 * kPi;
    const double degrees = turned * 180 / kPi;
    switch (mode) {
    case AngleMode::DegreesMinutesSeconds:
        return SexagesimalText(degrees, precision);
    case AngleMode::Grads:
        return Digits(turned * 200 / kPi, precision) + L"g";
    case AngleMode::Radians:
        return Digits(turned, precision) + L"r";
    case AngleMode::Surveyor:
        return SurveyorText(degrees, precision);
    case AngleMode::Degrees:
        break;
    }
    return Digits(degrees, precision);
}

namespace {

// Takes numbers and marks from a text, from left to right.
class Scanner {
public:
    explicit Scanner(std::wstring_view text)
    {
        for (const wchar_t character : text)
            m_text += character > 0 && character < 128 ? char(Lower(character)) : '?';
    }
    void SkipBlanks()
    {
        while (m_at < m_text.size() && m_text[m_at] == ' ')
            ++m_at;
    }
    bool Take(char mark)
    {
        if (m_at >= m_text.size() || m_text[m_at] != mark)
            return false;
        ++m_at;
        return true;
    }
    bool Number(double& value)
    {
        if (m_at >= m_text.size() || (!IsDigit(wchar_t(m_text[m_at])) && m_text[m_at] != '.'))
            return false;
        const auto [end, error] = std::from_chars(m_text.data() + m_at, m_text.data() + m_text.size(), value);
        if (error != std::errc())
            return false;
        m_at = size_t(end - m_text.data());
        return true;
    }
    bool AtEnd()
    {
        SkipBlanks();
        return m_at >= m_text.size();
    }

private:
    std::string m_text;
    size_t m_at = 0;
};

// "5", "1/2", "5 1/2", "5-1/2".
bool MixedNumber(Scanner& scan, double& value)
{
    double number = 0, above = 0, below = 0;
    if (!scan.Number(number))
        return false;
    if (scan.Take('/')) {
        if (!scan.Number(below) || below == 0)
            return false;
        value = number / below;
        return true;
    }
    value = number;
    Scanner ahead = scan;
    if (!ahead.Take('-'))
        ahead.SkipBlanks();
    if (ahead.Number(above) && ahead.Take('/') && ahead.Number(below) && below != 0) {
        value += above / below;
        scan = ahead;
    }
    return true;
}

}   // namespace

bool LengthIn(std::wstring_view text, double& value)
{
    Scanner scan(text);
    scan.SkipBlanks();
    const bool isNegative = scan.Take('-');
    if (!isNegative)
        scan.Take('+');
    double length = 0, inches = 0;
    if (!MixedNumber(scan, length))
        return false;
    if (scan.Take('\'')) {
        length *= kInchesPerFoot;
        if (!scan.Take('-'))
            scan.SkipBlanks();
        if (MixedNumber(scan, inches)) {
            scan.Take('"');
            length += inches;
        }
    } else {
        scan.Take('"');
    }
    if (!scan.AtEnd())
        return false;
    value = isNegative ? -length : length;
    return true;
}

namespace {

bool DegreesIn(Scanner& scan, double& degrees)
{
    double minutes = 0, seconds = 0;
    if (!scan.Number(degrees))
        return false;
    if (!scan.Take('d'))
        return true;
    if (scan.Number(minutes) && scan.Take('\'') && scan.Number(seconds))
        scan.Take('"');
    degrees += minutes / 60 + seconds / 3600;
    return true;
}

bool BearingIn(Scanner& scan, bool isNorth, double& radians)
{
    scan.SkipBlanks();
    double degrees = 0;
    const bool hasDegrees = DegreesIn(scan, degrees);
    scan.SkipBlanks();
    const bool isEast = scan.Take('e');
    if (hasDegrees && !isEast && !scan.Take('w'))
        return false;
    const double turned = isNorth == isEast ? -degrees : degrees;
    radians = ((isNorth ? 90 : 270) + (hasDegrees ? turned : 0)) * kPi / 180;
    return scan.AtEnd();
}

}   // namespace

bool AngleIn(std::wstring_view text, AngleMode mode, double& radians)
{
    Scanner scan(text);
    scan.SkipBlanks();
    for (const bool isNorth : {true, false})
        if (scan.Take(isNorth ? 'n' : 's'))
            return BearingIn(scan, isNorth, radians);
    for (const bool isEast : {true, false}) {
        Scanner axis = scan;
        if (axis.Take(isEast ? 'e' : 'w') && axis.AtEnd()) {
            radians = isEast ? 0 : kPi;
            return true;
        }
    }
    const bool isNegative = scan.Take('-');
    double value = 0;
    if (!DegreesIn(scan, value))
        return false;
    double unit = mode == AngleMode::Radians ? 1 : mode == AngleMode::Grads ? kPi / 200 : kPi / 180;
    if (scan.Take('g'))
        unit = kPi / 200;
    else if (scan.Take('r'))
        unit = 1;
    if (!scan.AtEnd())
        return false;
    radians = (isNegative ? -value : value) * unit;
    return true;
}

}   // namespace KxPlat
