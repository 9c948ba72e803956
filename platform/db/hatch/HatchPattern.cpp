// The pattern of a hatch: its lines as groups, from the table of patterns or from a spacing.
#include "../../ge/EntityAxes.h"
#include "../AcDbDatabase.h"
#include "../AcDbHatch.h"
#include "../AcDbHostApplicationServices.h"
#include "../core/Members.h"
#include "HatchPatterns.h"

using namespace KxPlat;

namespace {

constexpr double kMillimetresOfInch = 25.4;

GroupValue NumberGroup(int code, double value)
{
    return {int16_t(code), 0, false, value};
}

GroupValue CountGroup(int code, int64_t value)
{
    return {int16_t(code), 0, false, value};
}

void AddLine(GroupList& groups, const PatternLine& line, double angle, double scale)
{
    const double turned = angle + Radians(line.angle);
    const AcGeVector2d base = AcGeVector2d(line.x, line.y).rotateBy(angle) * scale;
    const AcGeVector2d step = AcGeVector2d(line.along, line.across).rotateBy(turned) * scale;
    groups.push_back(NumberGroup(53, Degrees(FullTurn(turned))));
    groups.push_back(NumberGroup(43, base.x));
    groups.push_back(NumberGroup(44, base.y));
    groups.push_back(NumberGroup(45, step.x));
    groups.push_back(NumberGroup(46, step.y));
    groups.push_back(CountGroup(79, int64_t(line.dashes.size())));
    for (const double dash : line.dashes)
        groups.push_back(NumberGroup(49, dash * scale));
}

}   // namespace

void AcDbHatch::SetPatternGroup(int code, GroupValue value)
{
    for (GroupValue& group : m_pattern) {
        if (group.code == 53)
            break;
        if (group.code == code) {
            group = value;
            return;
        }
    }
    // 52, 41 and 77 stand before the count of lines.
    auto place = m_pattern.begin();
    const auto rank = [](int code) { return code == 52 ? 0 : code == 41 ? 1 : code == 77 ? 2 : 3; };
    while (place != m_pattern.end() && rank(place->code) < rank(code))
        ++place;
    m_pattern.insert(place, value);
}

void AcDbHatch::BuildPattern()
{
    const double angle = patternAngle(), scale = patternScale();
    const bool isDouble = patternDouble();
    m_pattern.clear();
    if (m_isSolid != 0)
        return;
    std::vector<PatternLine> lines;
    double unit = scale;
    if (m_patternType == kUserDefined) {
        unit = 1;
        lines.push_back({0, 0, 0, 0, m_patternSpace, {}});
        if (isDouble)
            lines.push_back({90, 0, 0, 0, m_patternSpace, {}});
    } else if (const std::vector<PatternLine>* found =
                   FindPattern({m_patternName.GetString(), size_t(m_patternName.GetLength())})) {
        lines = *found;
        AcDbDatabase* drawing = database() != nullptr ? database() : acdbHostApplicationServices()->workingDatabase();
        unit *= drawing != nullptr && !drawing->measurementIsMetric() ? 1 : kMillimetresOfInch;
    }
    m_pattern = {NumberGroup(52, Degrees(angle)), NumberGroup(41, scale), CountGroup(77, isDouble),
                 CountGroup(78, int64_t(lines.size()))};
    for (const PatternLine& line : lines)
        AddLine(m_pattern, line, angle, unit);
}

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType type, const ACHAR* name)
{
    if (name == nullptr || (*name == 0 && type != kUserDefined) || type < kUserDefined || type > kCustomDefined)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_patternName = *name == 0 ? L"_USER" : name;
    m_patternType = int16_t(type);
    m_isSolid = m_patternName.CompareNoCase(L"SOLID") == 0;
    BuildPattern();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPatternAngle(double angle)
{
    const Acad::ErrorStatus status = std::isfinite(angle) ? assertWriteEnabled() : Acad::eInvalidInput;
    if (status == Acad::eOk)
        SetPatternGroup(52, NumberGroup(52, Degrees(angle)));
    return status;
}

Acad::ErrorStatus AcDbHatch::setPatternScale(double scale)
{
    const Acad::ErrorStatus status = scale > 0 && std::isfinite(scale) ? assertWriteEnabled() : Acad::eInvalidInput;
    if (status == Acad::eOk)
        SetPatternGroup(41, NumberGroup(41, scale));
    return status;
}

Acad::ErrorStatus AcDbHatch::setPatternSpace(double space)
{
    const Acad::ErrorStatus status = space > 0 && std::isfinite(space) ? assertWriteEnabled() : Acad::eInvalidInput;
    if (status == Acad::eOk)
        m_patternSpace = space;
    return status;
}

Acad::ErrorStatus AcDbHatch::setPatternDouble(bool isDouble)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        SetPatternGroup(77, CountGroup(77, isDouble));
    return status;
}

bool AcDbHatch::patternDouble() const
{
    return PatternReal(77, 0) != 0;
}

int AcDbHatch::numPatternDefinitions() const
{
    return int(PatternReal(78, 0));
}

Acad::ErrorStatus AcDbHatch::getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY,
                                                    double& offsetX, double& offsetY, AcGeDoubleArray& dashes) const
{
    int at = -1;
    bool isFound = false;
    dashes.setLogicalLength(0);
    for (const GroupValue& group : m_pattern) {
        at += group.code == 53;
        if (at != index)
            continue;
        isFound = true;
        double* const reals[] = {&baseX, &baseY, &offsetX, &offsetY};
        if (group.code == 53)
            angle = Radians(group.real());
        else if (group.code >= 43 && group.code <= 46)
            *reals[group.code - 43] = group.real();
        else if (group.code == 49)
            dashes.append(group.real());
    }
    return isFound ? Acad::eOk : Acad::eInvalidIndex;
}

Acad::ErrorStatus AcDbHatch::evaluateHatch(bool)
{
    double area = 0;
    if (numLoops() == 0 || getArea(area) != Acad::eOk)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    // A pattern that is not built in keeps the lines that it has.
    const bool isKnown = m_patternType == kUserDefined ||
                         FindPattern({m_patternName.GetString(), size_t(m_patternName.GetLength())}) != nullptr;
    if (isKnown)
        BuildPattern();
    if (m_seeds.empty())
        m_seeds.emplace_back(0, 0);
    return Acad::eOk;
}
