// Shows the tooltip text of the object under the cursor. One instance serves all documents.
#pragma once
#include "KxHost.h"

namespace KxArxModules {

class CKxCadBaseInputFilter : public AcEdInputPointFilter {
public:
    Acad::ErrorStatus processInputPoint(
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
        const AcGePoint3d& computedPoint, const ACHAR* tooltipString) override;

private:
    CString m_text;   // the host's pointer to the last text found stays good after the call
};

}   // namespace KxArxModules
