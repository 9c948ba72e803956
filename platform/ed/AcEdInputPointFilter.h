// Sees each point of the cursor while a document asks for input, and may change it or its tooltip.
#pragma once
#include "../db/AcDbObject.h"
#include "../ge/AcGePoint3d.h"
#include "../rx/AcArray.h"
#include "../rx/AcRxObject.h"

class AcApDocument;
class AcDbCustomOsnapMode;
class AcGeCurve3d;
class AcGiViewportDraw;

namespace AcDb {

enum OsnapMask {
    kOsMaskEnd = 0x01,
    kOsMaskMid = 0x02,
    kOsMaskCen = 0x04,
    kOsMaskNode = 0x08,
    kOsMaskQuad = 0x10,
    kOsMaskInt = 0x20,
    kOsMaskIns = 0x40,
    kOsMaskPerp = 0x80,
    kOsMaskTan = 0x100,
    kOsMaskNear = 0x200
};

}   // namespace AcDb

class AcEdInputPointFilter : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdInputPointFilter);

    // A new tooltip stays the filter's; it must be good until the next call.
    virtual Acad::ErrorStatus processInputPoint(
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
        const AcGePoint3d& computedPoint, const ACHAR* tooltipString) = 0;
    virtual Acad::ErrorStatus revokeInput(AcEdInputPointFilter* previous) { return Acad::eOk; }
};
