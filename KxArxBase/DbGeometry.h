// Extents of many entities, and the vertices of flat polylines.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Db {

// The box around all of them; empty for none. Entities that cannot be opened or have no extents are passed over, with
// `skipText` also texts.
KXARX_API Acad::ErrorStatus GetExtents(AcDbExtents& result, const AcDbObjectIdArray& ids, int skipText);
KXARX_API Acad::ErrorStatus AddExtents(AcDbExtents& extents, const AcArray<AcGePoint3d>& points);

// The new vertices are straight and without width. A polyline given as an object stays open.
KXARX_API Acad::ErrorStatus SetPLinePt2D(AcDbPolyline* polyline, const AcArray<AcGePoint2d>& points);
KXARX_API Acad::ErrorStatus SetPLinePt2D(AcDbObjectId polyline, const AcArray<AcGePoint2d>& points);
KXARX_API Acad::ErrorStatus GetPLinePt2D(AcDbPolyline* polyline, AcArray<AcGePoint2d>& points);
KXARX_API Acad::ErrorStatus GetPLinePt2D(AcDbObjectId polyline, AcArray<AcGePoint2d>& points);

}   // namespace KxArxBase::Db
