// Dimensions, leaders, tolerances.
#include "Finite.h"
#include "KxAcDraw.h"
#include <memory>
#include <new>

namespace KxArxBase {

// Without a style of its own a dimension has the current one.
Acad::ErrorStatus CKxAcDraw::FinishDim(AcDbDimension* dimension, AcDbObjectId style, int color, const wchar_t* layer,
                                       const wchar_t* linetype)
{
    std::unique_ptr<AcDbDimension> held(dimension);
    if (held == nullptr)
        return Acad::eOutOfMemory;
    if (style.isNull() && GetAcDb() != nullptr)
        style = GetAcDb()->dimstyle();
    const Acad::ErrorStatus es = style.isNull() ? Acad::eOk : held->setDimensionStyle(style);
    return es != Acad::eOk ? es : Finish(held.release(), color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::Draw2LineAngularDim(const AcGePoint3d& line1Start, const AcGePoint3d& line1End,
                                                 const AcGePoint3d& line2Start, const AcGePoint3d& line2End,
                                                 const AcGePoint3d& arcPoint, const wchar_t* text, AcDbObjectId style,
                                                 int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(line1Start, line1End, line2Start, line2End, arcPoint))
        return Acad::eInvalidInput;
    return FinishDim(new (std::nothrow)
                         AcDb2LineAngularDimension(line1Start, line1End, line2Start, line2End, arcPoint, text),
                     style, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::Draw3PointAngularDim(const AcGePoint3d& center, const AcGePoint3d& line1Point,
                                                  const AcGePoint3d& line2Point, const AcGePoint3d& arcPoint,
                                                  const wchar_t* text, AcDbObjectId style, int color,
                                                  const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(center, line1Point, line2Point, arcPoint))
        return Acad::eInvalidInput;
    return FinishDim(new (std::nothrow) AcDb3PointAngularDimension(center, line1Point, line2Point, arcPoint, text),
                     style, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawDiameTricDim(const AcGePoint3d& chordPoint, const AcGePoint3d& farChordPoint,
                                              double leaderLength, const wchar_t* text, AcDbObjectId style, int color,
                                              const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(chordPoint, farChordPoint, leaderLength))
        return Acad::eInvalidInput;
    return FinishDim(new (std::nothrow) AcDbDiametricDimension(chordPoint, farChordPoint, leaderLength, text), style,
                     color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawOrdinateDim(int useXAxis, const AcGePoint3d& definingPoint,
                                             const AcGePoint3d& leaderEnd, const wchar_t* text, AcDbObjectId style,
                                             int color, const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(definingPoint, leaderEnd))
        return Acad::eInvalidInput;
    return FinishDim(new (std::nothrow) AcDbOrdinateDimension(useXAxis != 0, definingPoint, leaderEnd, text), style,
                     color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawRadialDim(const AcGePoint3d& center, const AcGePoint3d& chordPoint,
                                           double leaderLength, const wchar_t* text, AcDbObjectId style, int color,
                                           const wchar_t* layer, const wchar_t* linetype)
{
    if (!AreFinite(center, chordPoint, leaderLength))
        return Acad::eInvalidInput;
    return FinishDim(new (std::nothrow) AcDbRadialDimension(center, chordPoint, leaderLength, text), style, color,
                     layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawRotatedDim(double rotation, const AcGePoint3d& line1Point,
                                            const AcGePoint3d& line2Point, const AcGePoint3d& dimLinePoint,
                                            const wchar_t* text, AcDbObjectId style, int color, const wchar_t* layer,
                                            const wchar_t* linetype)
{
    if (!AreFinite(rotation, line1Point, line2Point, dimLinePoint))
        return Acad::eInvalidInput;
    return FinishDim(new (std::nothrow) AcDbRotatedDimension(rotation, line1Point, line2Point, dimLinePoint, text),
                     style, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawAlignedDimension(const AcGePoint3d& line1Point, const AcGePoint3d& line2Point,
                                                  const AcGePoint3d& dimLinePoint, const wchar_t* text,
                                                  const wchar_t* style, int color, const wchar_t* layer,
                                                  const wchar_t* linetype)
{
    AcDbObjectId styleId;
    if (!AreFinite(line1Point, line2Point, dimLinePoint))
        return Acad::eInvalidInput;
    if (style != nullptr && !m_db.FindRec(style, AcDbDimStyleTableRecord::desc(), styleId))
        return Acad::eKeyNotFound;
    return FinishDim(new (std::nothrow) AcDbAlignedDimension(line1Point, line2Point, dimLinePoint, text), styleId,
                     color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawLeader(AcGePoint3dArray points, AcDbObjectId annotation, int arrow, int spline,
                                        int color, const wchar_t* layer, const wchar_t* linetype,
                                        const AcGeVector3d* normal)
{
    if (points.length() < 2 || !IsFinite(points) ||
        (normal != nullptr && (!IsFinite(*normal) || normal->isZeroLength())))
        return Acad::eInvalidInput;
    auto* leader = new (std::nothrow) AcDbLeader;
    if (leader == nullptr)
        return Acad::eOutOfMemory;
    if (normal != nullptr)
        leader->setPlane(AcGePlane(AcGePoint3d::kOrigin, *normal));
    for (const AcGePoint3d& point : points)
        leader->appendVertex(point);
    if (GetAcDb() != nullptr)
        leader->setDimensionStyle(GetAcDb()->dimstyle());
    if (arrow == 0)
        leader->disableArrowHead();
    if (spline != 0)
        leader->setToSplineLeader();
    if (!annotation.isNull()) {
        leader->attachAnnotation(annotation);
        leader->evaluateLeader();
    }
    return Finish(leader, color, layer, linetype);
}

Acad::ErrorStatus CKxAcDraw::DrawFcf(const wchar_t* text, const AcGePoint3d& location, const AcGeVector3d& normal,
                                     const AcGeVector3d& direction, int color, const wchar_t* layer,
                                     const wchar_t* linetype)
{
    if (text == nullptr || !AreFinite(location, normal, direction) || normal.isZeroLength() || direction.isZeroLength())
        return Acad::eInvalidInput;
    auto* frame = new (std::nothrow) AcDbFcf(text, location, normal, direction);
    if (frame != nullptr && GetAcDb() != nullptr)
        frame->setDimensionStyle(GetAcDb()->dimstyle());
    return Finish(frame, color, layer, linetype);
}

}   // namespace KxArxBase
