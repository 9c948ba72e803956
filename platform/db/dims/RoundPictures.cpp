// What dimensions of radii, diameters, arcs and angles show.
#include "../../ge/AcGeCircArc2d.h"
#include "../../ge/EntityAxes.h"
#include "DimPicture.h"
#include <cmath>

using namespace KxPlat;

namespace {

// Two strokes through the centre of a circle.
void CenterMark(DimPicture& picture, const AcGePoint2d& center)
{
    const double size = std::fabs(picture.vars().Size(DimVar::CenterMark));
    if (size <= 0)
        return;
    picture.Line(center - AcGeVector2d(size, 0), center + AcGeVector2d(size, 0));
    picture.Line(center - AcGeVector2d(0, size), center + AcGeVector2d(0, size));
}

// From the tip outwards by `length`, with a hook to the side and the text behind it; inwards without a length.
void LeaderAndText(DimPicture& picture, const AcGePoint2d& center, const AcGePoint2d& tip, double length)
{
    const AcGeVector2d out = (tip - center).isZeroLength() ? AcGeVector2d::kXAxis : (tip - center).normal();
    const double gap = picture.vars().Size(DimVar::TextGap), arrow = picture.ArrowSize();
    AcGePoint2d middle;
    if (picture.HasOwnPlace(middle)) {
        picture.Line(tip, middle);
        picture.Arrow(tip, middle.distanceTo(center) > tip.distanceTo(center) ? -out : out);
        picture.Text(middle, 0);
        return;
    }
    const double room = tip.distanceTo(center) - arrow - gap;
    if (length <= 0 && room >= picture.TextWidth()) {
        middle = center + out * (room / 2);
        picture.Line(tip, tip - out * (room - (room - picture.TextWidth()) / 2 + arrow - picture.TextWidth()));
        picture.Arrow(tip, out);
    } else {
        const AcGePoint2d end = tip + out * (length > 0 ? length : 2 * arrow);
        const double side = out.x < 0 ? -1 : 1;
        const AcGePoint2d hook = end + AcGeVector2d(side * arrow, 0);
        picture.Line(tip, end);
        picture.Line(end, hook);
        picture.Arrow(tip, -out);
        middle = hook + AcGeVector2d(side * (gap + picture.TextWidth() / 2), 0);
    }
    picture.Text(middle, 0);
}

// An arc with arrows at both ends and the text in its middle. Angles turn left from the first to the second.
void ArcWithText(DimPicture& picture, const AcGePoint2d& center, double radius, double start, double sweep)
{
    const auto at = [&](double angle) { return center + AcGeVector2d(std::cos(angle), std::sin(angle)) * radius; };
    const auto leftOf = [](double angle) { return AcGeVector2d(-std::sin(angle), std::cos(angle)); };
    const double end = start + sweep, gap = picture.vars().Size(DimVar::TextGap);
    const double taken = picture.TextWidth() + 2 * gap, length = radius * sweep;
    const bool isAbove = picture.vars().Is(DimVar::TextAbove);
    AcGePoint2d middle;
    const bool isOwnPlace = picture.HasOwnPlace(middle);
    const bool fits = length >= taken + 2 * picture.ArrowSize();
    const double half = radius > 0 ? taken / 2 / radius : 0;
    if (!isOwnPlace)
        middle = at(start + sweep / 2);
    if (!isOwnPlace && isAbove)
        middle += (middle - center).normal() * (picture.TextHeight() / 2 + gap);
    if (fits && !isAbove && !isOwnPlace) {
        picture.Arc(center, radius, start, start + sweep / 2 - half);
        picture.Arc(center, radius, start + sweep / 2 + half, end);
    } else {
        picture.Arc(center, radius, start, end);
        if (!fits && !isAbove && !isOwnPlace)
            middle += (middle - center).normal() * (std::max(picture.TextHeight(), picture.TextWidth()) / 2 + gap);
    }
    picture.Arrow(at(start), leftOf(start) * (fits ? -1.0 : 1.0));
    picture.Arrow(at(end), leftOf(end) * (fits ? 1.0 : -1.0));
    const double angle = picture.vars().Is(DimVar::TextInside) ? 0 : DimPicture::Readable(start + sweep / 2 - kPi / 2);
    picture.Text(middle, angle);
}

// From the end of a line to an arc that it does not reach.
void ExtendToArc(DimPicture& picture, const AcGePoint2d& center, const AcGePoint2d& end, double radius, double angle)
{
    const AcGePoint2d onArc = center + AcGeVector2d(std::cos(angle), std::sin(angle)) * radius;
    if ((end - center).dotProduct(onArc - center) < radius * radius)
        picture.Extension(end, onArc);
}

}   // namespace

void AcDbRadialDimension::Picture(DimPicture& picture) const
{
    CenterMark(picture, picture.Flat(m_definition));
    LeaderAndText(picture, picture.Flat(m_definition), picture.Flat(m_chord), m_leaderLength);
    for (const AcGePoint3d& point : {m_definition, m_chord})
        picture.DefinitionPoint(point);
}

void AcDbRadialDimensionLarge::Picture(DimPicture& picture) const
{
    const AcGePoint2d shown = picture.Flat(m_overrideCenter), jog = picture.Flat(m_jog), tip = picture.Flat(m_chord);
    picture.Line(shown, jog);
    LeaderAndText(picture, jog, tip, 0);
    for (const AcGePoint3d& point : {m_definition, m_chord, m_overrideCenter, m_jog})
        picture.DefinitionPoint(point);
}

// Through the circle while the leader has no length and the text fits inside, else a leader outside.
void AcDbDiametricDimension::Picture(DimPicture& picture) const
{
    const AcGePoint2d tip = picture.Flat(m_chord), far = picture.Flat(m_definition);
    const AcGePoint2d center = far + (tip - far) * 0.5;
    if (m_leaderLength <= 0) {
        picture.DimensionLine(far, tip);
    } else {
        CenterMark(picture, center);
        LeaderAndText(picture, center, tip, m_leaderLength);
    }
    for (const AcGePoint3d& point : {m_definition, m_chord})
        picture.DefinitionPoint(point);
}

// Of the four angles that two lines make, the one in which the arc's point lies.
void AcDb2LineAngularDimension::Picture(DimPicture& picture) const
{
    const AcGePoint2d s1 = picture.Flat(m_start1), e1 = picture.Flat(m_end1);
    const AcGePoint2d s2 = picture.Flat(m_start2), e2 = picture.Flat(m_definition), place = picture.Flat(arcPoint());
    const AcGeVector2d u = e1 - s1, v = e2 - s2;
    const double across = u.x * v.y - u.y * v.x;
    if (std::fabs(across) > 1e-12 * u.length() * v.length()) {
        const AcGeVector2d between = s2 - s1;
        const AcGePoint2d center = s1 + u * ((between.x * v.y - between.y * v.x) / across);
        const double radius = center.distanceTo(place), at = (place - center).angle();
        // The directions around the centre in order; the two that stand on either side of the point.
        double rays[2] = {u.angle(), v.angle()}, before = 2 * kPi, after = 2 * kPi;
        for (const double ray : {rays[0], rays[0] + kPi, rays[1], rays[1] + kPi}) {
            before = std::min(before, FullTurn(at - ray));
            after = std::min(after, FullTurn(ray - at));
        }
        ArcWithText(picture, center, radius, at - before, before + after);
        for (const double ray : {at - before, at + after}) {
            const AcGeVector2d direction(std::cos(ray), std::sin(ray));
            const bool isFirst = std::fabs(direction.x * u.y - direction.y * u.x) <= 1e-9 * u.length();
            const AcGePoint2d ends[2] = {isFirst ? s1 : s2, isFirst ? e1 : e2};
            const bool takesEnd = (ends[1] - center).dotProduct(direction) > (ends[0] - center).dotProduct(direction);
            ExtendToArc(picture, center, ends[takesEnd ? 1 : 0], radius, ray);
        }
    }
    for (const AcGePoint3d& point : {m_start1, m_end1, m_start2, m_definition})
        picture.DefinitionPoint(point);
}

void AcDb3PointAngularDimension::Picture(DimPicture& picture) const
{
    const AcGePoint2d center = picture.Flat(m_center), place = picture.Flat(m_definition);
    const AcGePoint2d ends[2] = {picture.Flat(m_line1), picture.Flat(m_line2)};
    const double radius = center.distanceTo(place), at = (place - center).angle();
    double start = (ends[0] - center).angle(), end = (ends[1] - center).angle();
    bool isSwapped = FullTurn(at - start) > FullTurn(end - start);
    if (isSwapped)
        std::swap(start, end);
    ArcWithText(picture, center, radius, start, FullTurn(end - start));
    ExtendToArc(picture, center, ends[isSwapped ? 1 : 0], radius, start);
    ExtendToArc(picture, center, ends[isSwapped ? 0 : 1], radius, end);
    for (const AcGePoint3d& point : {m_line1, m_line2, m_center})
        picture.DefinitionPoint(point);
}

void AcDbArcDimension::Picture(DimPicture& picture) const
{
    const AcGePoint2d center = picture.Flat(m_center);
    const AcGePoint2d ends[2] = {picture.Flat(m_line1), picture.Flat(m_line2)};
    const double start = (ends[0] - center).angle(), end = (ends[1] - center).angle();
    const double radius = center.distanceTo(picture.Flat(m_definition));
    ArcWithText(picture, center, radius, start, FullTurn(end - start));
    ExtendToArc(picture, center, ends[0], radius, start);
    ExtendToArc(picture, center, ends[1], radius, end);
    for (const AcGePoint3d& point : {m_line1, m_line2, m_center})
        picture.DefinitionPoint(point);
}
