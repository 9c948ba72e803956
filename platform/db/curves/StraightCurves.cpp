// Lines, rays and construction lines as curves.
#include "../AcDbLine.h"
#include "../AcDbRay.h"
#include "../core/CurvePieces.h"
#include "../core/Members.h"

using namespace KxPlat;

namespace {

// To the right of a direction, as seen against the world's Z axis; of an upright one, along X.
AcGeVector3d RightOf(const AcGeVector3d& direction, const AcGeVector3d& normal)
{
    const AcGeVector3d right = direction.crossProduct(normal);
    return right.isZeroLength() ? AcGeVector3d::kXAxis : right.normal();
}

}   // namespace

bool AcDbLine::addOutline(CurvePieces& pieces) const
{
    pieces.AddSegment(m_start, m_end, 0, m_start.distanceTo(m_end));
    return true;
}

AcDbCurve* AcDbLine::PartBetween(double from, double to) const
{
    AcGePoint3d start, end;
    if (getPointAtParam(from, start) != Acad::eOk || getPointAtParam(to, end) != Acad::eOk)
        return nullptr;
    auto* part = new AcDbLine(start, end);
    part->setThickness(m_thickness);
    part->setNormal(m_normal);
    return part;
}

Acad::ErrorStatus AcDbLine::MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const
{
    const AcGeVector3d shift = RightOf(m_end - m_start, m_normal) * distance;
    if (m_start.isEqualTo(m_end))
        return Acad::eDegenerateGeometry;
    auto* parallel = new AcDbLine(m_start + shift, m_end + shift);
    parallel->setThickness(m_thickness);
    parallel->setNormal(m_normal);
    curves.push_back(parallel);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::extend(double newParameter)
{
    const double length = m_start.distanceTo(m_end);
    if (length == 0 || !std::isfinite(newParameter))
        return Acad::eDegenerateGeometry;
    if (newParameter >= 0 && newParameter <= length)
        return Acad::eInvalidInput;
    const AcGePoint3d moved = m_start + (m_end - m_start) * (newParameter / length);
    return newParameter < 0 ? Assign(*this, m_start, moved) : Assign(*this, m_end, moved);
}

Acad::ErrorStatus AcDbLine::reverseCurve()
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        std::swap(m_start, m_end);
    return status;
}

namespace KxPlat {

Acad::ErrorStatus EndlessLine::reverseCurve()
{
    return Assign(*this, m_direction, -m_direction);
}

AcDbCurve* EndlessLine::PartBetween(double from, double to) const
{
    const bool hasStart = std::isfinite(from), hasEnd = std::isfinite(to);
    if (hasStart && hasEnd)
        return new AcDbLine(m_base + m_direction * from, m_base + m_direction * to);
    EndlessLine* part = nullptr;
    if (hasStart || hasEnd)
        part = new AcDbRay;
    else
        part = new AcDbXline;
    part->setBasePoint(hasStart ? m_base + m_direction * from : hasEnd ? m_base + m_direction * to : m_base);
    part->setUnitDir(hasEnd ? -m_direction : m_direction);
    return part;
}

Acad::ErrorStatus EndlessLine::MakeOffset(double distance, std::vector<AcDbCurve*>& curves) const
{
    auto* parallel = static_cast<EndlessLine*>(static_cast<AcDbCurve*>(clone()));
    if (parallel == nullptr)
        return Acad::eOutOfMemory;
    parallel->setBasePoint(m_base + RightOf(m_direction, AcGeVector3d::kZAxis) * distance);
    curves.push_back(parallel);
    return Acad::eOk;
}

}   // namespace KxPlat

bool AcDbRay::addOutline(CurvePieces& pieces) const
{
    const double endless = std::numeric_limits<double>::infinity();
    pieces.push_back({std::make_shared<AcGeRay3d>(basePoint(), unitDir().normal()), 0, endless, 0, endless});
    return true;
}

bool AcDbXline::addOutline(CurvePieces& pieces) const
{
    const double endless = std::numeric_limits<double>::infinity();
    pieces.push_back(
        {std::make_shared<AcGeLine3d>(basePoint(), unitDir().normal()), -endless, endless, -endless, endless});
    return true;
}
