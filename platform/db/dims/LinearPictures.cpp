// What linear, aligned and ordinate dimensions show.
#include "../../ge/EntityAxes.h"
#include "DimPicture.h"
#include <cmath>

using namespace KxPlat;

namespace {

void LinearPicture(DimPicture& picture, const AcGePoint2d& first, const AcGePoint2d& second, const AcGePoint2d& line,
                   const AcGeVector2d& along)
{
    const AcGeVector2d across = along.perpVector();
    const AcGePoint2d from = first + across * (line - first).dotProduct(across);
    const AcGePoint2d to = second + across * (line - second).dotProduct(across);
    if (!picture.vars().Is(DimVar::NoExtension1))
        picture.Extension(first, from);
    if (!picture.vars().Is(DimVar::NoExtension2))
        picture.Extension(second, to);
    // Left to right, or upwards, so that a text beyond the end reads on.
    const AcGeVector2d run = to - from;
    const bool isBackwards = run.x < -1e-9 || (std::fabs(run.x) <= 1e-9 && run.y < 0);
    picture.DimensionLine(isBackwards ? to : from, isBackwards ? from : to);
}

}   // namespace

void AcDbAlignedDimension::Picture(DimPicture& picture) const
{
    const AcGePoint2d first = picture.Flat(m_line1), second = picture.Flat(m_line2);
    const AcGeVector2d along = first.isEqualTo(second) ? AcGeVector2d::kXAxis : (second - first).normal();
    LinearPicture(picture, first, second, picture.Flat(m_definition), along);
    for (const AcGePoint3d& point : {m_line1, m_line2, m_definition})
        picture.DefinitionPoint(point);
}

void AcDbRotatedDimension::Picture(DimPicture& picture) const
{
    const AcGeVector2d along(std::cos(rotation()), std::sin(rotation()));
    LinearPicture(picture, picture.Flat(m_line1), picture.Flat(m_line2), picture.Flat(m_definition), along);
    for (const AcGePoint3d& point : {m_line1, m_line2, m_definition})
        picture.DefinitionPoint(point);
}

// A leader away from the point, along the axis that is not measured; the text at its end.
void AcDbOrdinateDimension::Picture(DimPicture& picture) const
{
    const AcGeVector2d out = isUsingXAxis() ? AcGeVector2d::kYAxis : AcGeVector2d::kXAxis;
    const AcGePoint2d from = picture.Flat(m_defining), end = picture.Flat(m_leaderEnd);
    const double sign = (end - from).dotProduct(out) < 0 ? -1 : 1;
    const double offset = picture.vars().Size(DimVar::ExtensionOffset);
    const double step = 2 * picture.ArrowSize();
    const AcGeVector2d aside = (end - from) - out * (end - from).dotProduct(out);
    const AcGePoint2d start = from + out * (sign * offset);
    if (aside.length() <= 1e-9) {
        picture.Line(start, end);
    } else {
        const AcGePoint2d knee = end - out * (sign * step), heel = knee - out * (sign * step) - aside;
        picture.Line(start, heel);
        picture.Line(heel, knee);
        picture.Line(knee, end);
    }
    const double half = picture.TextWidth() / 2 + picture.vars().Size(DimVar::TextGap);
    AcGePoint2d middle = end + out * (sign * half);
    picture.HasOwnPlace(middle);
    picture.Text(middle, isUsingXAxis() ? kPi / 2 : 0);
    for (const AcGePoint3d& point : {m_defining, m_definition})
        picture.DefinitionPoint(point);
}
