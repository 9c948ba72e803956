// How a drawing was last looked at, as its file says.
#include "../db/AcDbDatabase.h"
#include "../db/AcDbViewportTableRecord.h"
#include "../db/core/DbCore.h"
#include "DrawingView.h"

namespace KxPlat {

bool DrawingView::ZoomSaved()
{
    bool isFound = false;
    for (AcDbStub* stub : CoreOf(database()).Table(TableKind::Viewport)->records()) {
        const auto* record = static_cast<const AcDbViewportTableRecord*>(stub->object);
        if (isFound || record == nullptr || stub->erased || record->nameText().CompareNoCase(L"*Active") != 0 ||
            !(record->height() > 0) || record->viewDirection().isZeroLength())
            continue;
        Camera camera;
        camera.direction = record->viewDirection().normal();
        AcGePoint3d origin;
        AcGeVector3d x, z;
        AcGeMatrix3d::planeToWorld(camera.direction).getCoordSystem(origin, x, camera.up, z);
        camera.target = record->target() + x * record->centerPoint().x + camera.up * record->centerPoint().y;
        camera.fieldHeight = record->height();
        camera.fieldWidth = record->height() * width() / height();
        SetCamera(camera);
        isFound = true;
    }
    return isFound;
}

}   // namespace KxPlat
