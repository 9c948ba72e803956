// Lines and curves.
#include "Finite.h"
#include "KxAcDraw.h"
#include <algorithm>
#include <memory>
#include <new>

namespace KxArxBase {

namespace {

// Arrays are taken as one element shorter than they are.
bool Supplies(const CArray<double, double>* array, int index)
{
    return array != nullptr && array->GetSize() >= index + 2;
}

bool AreFiniteArrays(std::initializer_list<const CArray<double, double>*> arrays)
{
    for (const CArray<double, double>* array : arrays)
        for (int i = 0; array != nullptr && i < array->GetSize(); ++i)
            if (!IsFinite(array->GetAt(i)))
                return false;
    return true;
}

}   // namespace

Acad::ErrorStatus CKxAcDraw::DrawLine(const AcGePoint3d& start, const AcGePoint3d& end, int color, const wchar_t* layer,
                                      const wchar_t* linetype)
{
    if (!AreFinite(start, end))
        return Acad::eInvalidInput;
    return Finish(new (std::nothrow) AcDbLine(start, end), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawPolyLine(AcGePoint2dArray points, const CArray<double, double>* bulges, int color,
                                          const CArray<double, double>* startWidths,
                                          const CArray<double, double>* endWidths, int closed, const wchar_t* layer,
                                          const wchar_t* linetype, const AcGeVector3d& normal, double thickness,
                                          double elevation, const double* constantWidth)
{
    if (points.length() < 1 || !AreFinite(points, normal, thickness, elevation) || normal.isZeroLength() ||
        !AreFiniteArrays({bulges, startWidths, endWidths}))
        return Acad::eInvalidInput;
    auto* polyline = new (std::nothrow) AcDbPolyline(unsigned(points.length()));
    if (polyline == nullptr)
        return Acad::eOutOfMemory;
    for (int i = 0; i < points.length(); ++i)
        polyline->addVertexAt(unsigned(i), points[i], Supplies(bulges, i) ? bulges->GetAt(i) : 0,
                              Supplies(startWidths, i) ? startWidths->GetAt(i) : -1,
                              Supplies(endWidths, i) ? endWidths->GetAt(i) : -1);
    if (constantWidth != nullptr)
        polyline->setConstantWidth(*constantWidth);
    polyline->setElevation(elevation);
    polyline->setNormal(normal);
    polyline->setThickness(thickness);
    polyline->setClosed(closed != 0);
    return Finish(polyline, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawRect(const AcGePoint2d& corner, double width, double height, double rotation,
                                      int color, const wchar_t* layer, const wchar_t* linetype,
                                      const AcGeVector3d& normal, double thickness, double elevation,
                                      const double* constantWidth)
{
    if (!AreFinite(corner, width, height, rotation))
        return Acad::eInvalidInput;
    const AcGeVector2d along = AcGeVector2d(width, 0).rotateBy(rotation);
    const AcGeVector2d up = AcGeVector2d(0, height).rotateBy(rotation);
    AcGePoint2dArray corners;
    for (const AcGePoint2d& point : {corner, corner + along, corner + along + up, corner + up})
        corners.append(point);
    return DrawPolyLine(corners, nullptr, color, nullptr, nullptr, 1, layer, linetype, normal, thickness, elevation,
                        constantWidth);
}

Acad::ErrorStatus CKxAcDraw::DrawCircle(const AcGePoint3d& center, double radius, int color, const wchar_t* layer,
                                        const wchar_t* linetype, const AcGeVector3d& normal, double thickness)
{
    if (!AreFinite(center, radius, normal, thickness) || !(radius > 0) || normal.isZeroLength())
        return Acad::eInvalidInput;
    auto* circle = new (std::nothrow) AcDbCircle(center, normal, radius);
    if (circle != nullptr)
        circle->setThickness(thickness);
    return Finish(circle, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawPoint(const AcGePoint3d& position, int color, const wchar_t* layer,
                                       const wchar_t* linetype, const AcGeVector3d& normal, double thickness,
                                       double xAxisAngle)
{
    if (!AreFinite(position, normal, thickness, xAxisAngle) || normal.isZeroLength())
        return Acad::eInvalidInput;
    auto* point = new (std::nothrow) AcDbPoint(position);
    if (point == nullptr)
        return Acad::eOutOfMemory;
    point->setNormal(normal);
    point->setThickness(thickness);
    point->setEcsRotation(xAxisAngle);
    return Finish(point, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle,
                                     int color, const wchar_t* layer, const wchar_t* linetype,
                                     const AcGeVector3d& normal, double thickness)
{
    if (!AreFinite(center, radius, startAngle, endAngle, normal, thickness) || !(radius > 0) || normal.isZeroLength())
        return Acad::eInvalidInput;
    auto* arc = new (std::nothrow) AcDbArc(center, normal, radius, startAngle, endAngle);
    if (arc != nullptr)
        arc->setThickness(thickness);
    return Finish(arc, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawXLine(const AcGePoint3d& base, const AcGeVector3d& direction, int color,
                                       const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(base, direction) || direction.isZeroLength())
        return Acad::eInvalidInput;
    auto* line = new (std::nothrow) AcDbXline;
    if (line == nullptr)
        return Acad::eOutOfMemory;
    line->setBasePoint(base);
    line->setUnitDir(direction);
    return Finish(line, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawRay(const AcGePoint3d& base, const AcGeVector3d& direction, int color,
                                     const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(base, direction) || direction.isZeroLength())
        return Acad::eInvalidInput;
    auto* ray = new (std::nothrow) AcDbRay;
    if (ray == nullptr)
        return Acad::eOutOfMemory;
    ray->setBasePoint(base);
    ray->setUnitDir(direction);
    return Finish(ray, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawEllipse(const AcGePoint3d& center, const AcGeVector3d& normal,
                                         const AcGeVector3d& majorAxis, double radiusRatio, double startAngle,
                                         double endAngle, int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(center, normal, majorAxis, radiusRatio, startAngle, endAngle))
        return Acad::eInvalidInput;
    std::unique_ptr<AcDbEllipse> ellipse(new (std::nothrow) AcDbEllipse);
    if (ellipse == nullptr)
        return Acad::eOutOfMemory;
    const Acad::ErrorStatus es = ellipse->set(center, normal, majorAxis, radiusRatio, startAngle, endAngle);
    return es != Acad::eOk ? es : Finish(ellipse.release(), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawSpline(AcGePoint3dArray fitPoints, int order, int degree, double fitTolerance,
                                        int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(fitPoints, fitTolerance))
        return Acad::eInvalidInput;
    const int wanted = order > 0 ? order : degree + 1;
    if (wanted < 2 || wanted > 26)
        return Acad::eInvalidInput;
    std::unique_ptr<AcDbSpline> spline(new (std::nothrow) AcDbSpline(fitPoints, wanted, fitTolerance));
    if (spline == nullptr)
        return Acad::eOutOfMemory;
    if (spline->numControlPoints() == 0)
        return Acad::eInvalidInput;
    return Finish(spline.release(), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawMline(AcGePoint3dArray points, AcDbObjectId style, double scale, int closed,
                                       int justification, int color, const wchar_t* layer, const wchar_t* linetype,
                                       const AcGeVector3d& normal)
{
    if (points.length() < 2 || !AreFinite(points, scale, normal) || normal.isZeroLength())
        return Acad::eInvalidInput;
    std::unique_ptr<AcDbMline> mline(new (std::nothrow) AcDbMline);
    if (mline == nullptr)
        return Acad::eOutOfMemory;
    Acad::ErrorStatus es = style.isNull() ? Acad::eOk : mline->setStyle(style);
    if (es == Acad::eOk)
        es = mline->setJustification(static_cast<AcDbMline::MlineJustification>(justification));
    if (es != Acad::eOk)
        return es;
    mline->setNormal(normal);
    mline->setScale(scale);
    mline->setClosedMline(closed != 0);
    for (const AcGePoint3d& point : points)
        mline->appendSeg(point);
    return Finish(mline.release(), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawPlRevCloud(const AcGePoint2d& corner, const AcGePoint2d& otherCorner, double arcLength,
                                            double bulge, int color, const wchar_t* layer, const wchar_t* linetype)
{
    const AcGePoint2d low(std::min(corner.x, otherCorner.x), std::min(corner.y, otherCorner.y));
    const AcGePoint2d high(std::max(corner.x, otherCorner.x), std::max(corner.y, otherCorner.y));
    if (!AreFinite(corner, otherCorner, arcLength, bulge) || !(arcLength > 0) || low.x == high.x || low.y == high.y)
        return Acad::eInvalidInput;
    const double kMostArcs = 100000;   // of one side
    AcGePoint2dArray points;
    CArray<double, double> bulges;
    const AcGePoint2d corners[] = {low, {high.x, low.y}, high, {low.x, high.y}};
    for (int side = 0; side < 4; ++side) {
        const AcGeVector2d way = corners[(side + 1) % 4] - corners[side];
        const double arcs = std::ceil(way.length() / arcLength - 1e-9);
        if (arcs > kMostArcs)
            return Acad::eInvalidInput;
        for (int arc = 0; arc < std::max(arcs, 1.0); ++arc) {
            points.append(corners[side] + way * (arc / std::max(arcs, 1.0)));
            bulges.Add(bulge);
        }
    }
    bulges.Add(bulge);   // the last element is never used
    return DrawPolyLine(points, &bulges, color, nullptr, nullptr, 1, layer, linetype);
}

}   // namespace KxArxBase
