#include "KxCadBaseInputFilter.h"
#include "KxArxBase/GiToolTip.h"

namespace KxArxModules {

Acad::ErrorStatus CKxCadBaseInputFilter::processInputPoint(
    bool& changedPoint, AcGePoint3d& newPoint, bool& changedTooltipStr, ACHAR*& newTooltipString, bool& retry,
    AcGiViewportDraw* drawContext, AcApDocument* document, bool pointComputed, int history,
    const AcGePoint3d& lastPoint, const AcGePoint3d& rawPoint, const AcGePoint3d& grippedPoint,
    const AcGePoint3d& cartesianSnappedPoint, const AcGePoint3d& osnappedPoint, AcDb::OsnapMask osnapMask,
    const AcArray<AcDbCustomOsnapMode*>& customOsnapModes, AcDb::OsnapMask osnapOverrides,
    const AcArray<AcDbCustomOsnapMode*>& customOsnapOverrides, const AcArray<AcDbObjectId>& apertureEntities,
    const AcArray<AcDbObjectIdArray, AcArrayObjectCopyReallocator<AcDbObjectIdArray>>& nestedEntities,
    const AcArray<int>& gsSelectionMarks, const AcArray<AcDbObjectId>& keyPointEntities,
    const AcArray<AcDbObjectIdArray, AcArrayObjectCopyReallocator<AcDbObjectIdArray>>& nestedKeyPointEntities,
    const AcArray<int>& keyPointGsSelectionMarks, const AcArray<AcGeCurve3d*>& alignmentPaths,
    const AcGePoint3d& computedPoint, const ACHAR* tooltipString)
{
    if (!pointComputed || apertureEntities.isEmpty())
        return Acad::eOk;
    m_text.Empty();
    if (KxArxBase::Gi::GetToolTipData(apertureEntities[0], m_text) != Acad::eOk)
        return Acad::eOk;
    changedTooltipStr = true;
    newTooltipString = m_text.GetBuffer();
    return Acad::eOk;
}

}   // namespace KxArxModules
