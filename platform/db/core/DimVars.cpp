#include "DimVars.h"
#include "../../ge/EntityAxes.h"
#include "../../win/Format.h"
#include "../AcDbDimStyleTableRecord.h"
#include "../AcDbTextStyleTableRecord.h"
#include "ObjectAccess.h"
#include <cmath>
#include <cstdarg>

namespace KxPlat {

namespace {

struct Default {
    DimVar which;
    double value;
};

const Default kDefaults[] = {
    {DimVar::Scale, 1},         {DimVar::ArrowSize, 0.18},  {DimVar::ExtensionOffset, 0.0625},
    {DimVar::TextGap, 0.09},    {DimVar::CenterMark, 0.09}, {DimVar::ExtensionBeyond, 0.18},
    {DimVar::TextHeight, 0.18}, {DimVar::TextInside, 1},    {DimVar::TextOutside, 1},
    {DimVar::LinearFactor, 1},  {DimVar::Decimals, 4},      {DimVar::LinearUnits, 2},
    {DimVar::Separator, L'.'},
};

// The values between the braces behind the text "DSTYLE" of the application "ACAD".
GroupList OverridesOf(const AcDbObject& object)
{
    GroupList overrides;
    const Annex* annex = ObjectAccess::Find(object);
    if (annex == nullptr)
        return overrides;
    bool isOurs = false, isInside = false;
    for (const GroupValue& group : annex->xData) {
        if (group.code == 1001)
            isOurs = group.text().CompareNoCase(L"ACAD") == 0, isInside = false;
        else if (isOurs && group.code == 1000 && group.text().CompareNoCase(L"DSTYLE") == 0)
            isInside = true;
        else if (isInside && group.code == 1002 && group.text() == L"}")
            break;
        else if (isInside && group.code != 1002)
            overrides.push_back(group);
    }
    return overrides;
}

}   // namespace

DimVars::DimVars(const AcDbObject& object, AcDbObjectId style) : m_overrides(OverridesOf(object))
{
    const AcDbStub* stub = style;
    m_style = AcDbDimStyleTableRecord::cast(stub == nullptr ? nullptr : stub->object);
}

const GroupValue* DimVars::Find(DimVar which) const
{
    for (size_t index = 0; index + 1 < m_overrides.size(); index += 2)
        if (m_overrides[index].integer() == int(which))
            return &m_overrides[index + 1];
    const Annex* annex = m_style == nullptr ? nullptr : ObjectAccess::Find(*m_style);
    if (annex != nullptr)
        for (const GroupValue& group : annex->others)
            if (group.code == int(which))
                return &group;
    return nullptr;
}

double DimVars::Real(DimVar which) const
{
    if (const GroupValue* found = Find(which))
        return found->real();
    for (const Default& each : kDefaults)
        if (each.which == which)
            return each.value;
    return 0;
}

CString DimVars::Text(DimVar which) const
{
    const GroupValue* found = Find(which);
    return found == nullptr ? CString() : found->text();
}

AcDbObjectId DimVars::Id(DimVar which) const
{
    const GroupValue* found = Find(which);
    return found == nullptr ? AcDbObjectId() : found->id();
}

double DimVars::Scale() const
{
    const double scale = Real(DimVar::Scale);
    return scale > 0 ? scale : 1;
}

double DimVars::TextHeight() const
{
    const AcDbStub* stub = Id(DimVar::TextStyle);
    const auto* style = AcDbTextStyleTableRecord::cast(stub == nullptr ? nullptr : stub->object);
    return style != nullptr && style->textSize() > 0 ? style->textSize() : Size(DimVar::TextHeight);
}

// --- figures ---

namespace {

std::wstring Formatted(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::wstring text = FormatV(format, arguments);
    va_end(arguments);
    return text;
}

// Digits behind the point, without the zeros that the bits name.
std::wstring Decimal(double value, int digits, int zeros)
{
    std::wstring text = Formatted(L"%.*f", digits, value);
    if ((zeros & 8) != 0 && text.find(L'.') != std::wstring::npos) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.')
            text.pop_back();
    }
    if ((zeros & 4) != 0 && text.compare(0, 2, L"0.") == 0)
        text.erase(0, 1);
    return text;
}

// A number of inches with its fraction in lowest terms.
std::wstring Fraction(double value, int digits)
{
    long denominator = 1L << std::min(std::max(digits, 0), 8);
    long numerator = std::lround(value * double(denominator));
    const long whole = numerator / denominator;
    numerator %= denominator;
    while (numerator != 0 && numerator % 2 == 0)
        numerator /= 2, denominator /= 2;
    if (numerator == 0)
        return Formatted(L"%Ld", whole);
    return whole == 0 ? Formatted(L"%Ld/%Ld", numerator, denominator)
                      : Formatted(L"%Ld %Ld/%Ld", whole, numerator, denominator);
}

enum LinearUnits { kScientific = 1, kDecimal, kEngineering, kArchitectural, kFractional };

std::wstring Length(double value, int units, int digits, int zeros)
{
    const double feet = std::floor(value / 12), inches = value - feet * 12;
    switch (units) {
    case kScientific: {
        // Two digits of exponent are enough where they hold it.
        std::wstring text = Formatted(L"%.*E", digits, value);
        const size_t exponent = text.find(L'E') + 2;
        if (text.size() - exponent == 3 && text[exponent] == L'0')
            text.erase(exponent, 1);
        return text;
    }
    case kEngineering:
        return Formatted(L"%.0f'-%s\"", feet, Decimal(inches, digits, 0).c_str());
    case kArchitectural:
        return Formatted(L"%.0f'-%s\"", feet, Fraction(inches, digits).c_str());
    case kFractional:
        return Fraction(value, digits);
    default:
        return Decimal(value, digits, zeros);
    }
}

enum AngleUnits { kDegrees, kDegreesMinutes, kGrads, kRadians };

std::wstring Angle(double radians, int units, int digits, int zeros)
{
    const double degrees = Degrees(radians);
    switch (units) {
    case kDegreesMinutes: {
        const long seconds = std::lround(degrees * 3600);
        return Formatted(L"%Ld\u00B0%Ld'%Ld\"", seconds / 3600, seconds / 60 % 60, seconds % 60);
    }
    case kGrads:
        return Decimal(degrees / 0.9, digits, zeros << 2) + L"g";
    case kRadians:
        return Decimal(radians, digits, zeros << 2) + L"r";
    default:
        return Decimal(degrees, digits, zeros << 2) + L"\u00B0";
    }
}

}   // namespace

CString DimFigure(const DimVars& vars, double value, bool isAngle)
{
    std::wstring text;
    if (isAngle) {
        text = Angle(value, vars.Integer(DimVar::AngleUnits), vars.Integer(DimVar::AngleDecimals),
                     vars.Integer(DimVar::AngleZeros));
    } else {
        value *= std::fabs(vars.Real(DimVar::LinearFactor));
        const double rounding = vars.Real(DimVar::Rounding);
        if (rounding > 0)
            value = std::round(value / rounding) * rounding;
        text = Length(value, vars.Integer(DimVar::LinearUnits), vars.Integer(DimVar::Decimals),
                      vars.Integer(DimVar::Zeros));
    }
    const size_t point = text.find(L'.');
    if (point != std::wstring::npos && vars.Integer(DimVar::Separator) > L' ')
        text[point] = wchar_t(vars.Integer(DimVar::Separator));
    CString figure(text.c_str());
    // The text of the style stands around lengths: what comes before its mark and what comes behind it.
    CString around = vars.Text(DimVar::Post);
    if (!isAngle && !around.IsEmpty()) {
        if (around.Replace(L"<>", figure) == 0)
            around = figure + around;
        figure = around;
    }
    return figure;
}

CString DimText(const CString& figure, const CString& own)
{
    if (own.IsEmpty())
        return figure;
    CString text = own == L" " ? CString() : own;
    text.Replace(L"<>", figure);
    return text;
}

}   // namespace KxPlat
