#include "Sight.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbViewport.h"
#include "../db/core/DbCore.h"
#include "../rx/AcRxClass.h"
#include <algorithm>
#include <cmath>

namespace KxPlat {

namespace {

Sight SightThrough(const AcDbViewport& viewport, const Projection& page, const AcDbDatabase& database)
{
    Sight sight;
    sight.block = CoreOf(database).modelSpace;
    const DevicePoint middle = page(viewport.centerPoint());
    sight.width = viewport.width() * page.Scale();
    sight.height = viewport.height() * page.Scale();
    sight.left = middle.x - sight.width / 2;
    sight.top = middle.y - sight.height / 2;
    Camera& camera = sight.camera;
    camera.direction = viewport.viewDirection();
    // The centre is given in the axes of the view, whose Y axis is up.
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    AcGeMatrix3d::planeToWorld(camera.direction).getCoordSystem(origin, x, y, z);
    const double twist = -viewport.twistAngle();
    const AcGeVector3d right = x * std::cos(twist) + y * std::sin(twist);
    camera.up = y * std::cos(twist) - x * std::sin(twist);
    camera.target = viewport.viewTarget() + right * viewport.viewCenter().x + camera.up * viewport.viewCenter().y;
    camera.fieldHeight = viewport.viewHeight();
    camera.fieldWidth = viewport.viewHeight() * viewport.width() / viewport.height();
    camera.isPerspective = viewport.isPerspectiveOn() && viewport.viewDirection().length() > 0;
    camera.eyeDistance = viewport.viewDirection().length();
    AcDbObjectIdArray frozen;
    viewport.getFrozenLayerList(frozen);
    sight.frozenLayers.assign(frozen.asArrayPtr(), frozen.asArrayPtr() + frozen.length());
    return sight;
}

}   // namespace

bool Sight::Freezes(const AcDbStub* layer) const
{
    return std::any_of(frozenLayers.begin(), frozenLayers.end(),
                       [layer](const AcDbObjectId& id) { return static_cast<const AcDbStub*>(id) == layer; });
}

void AddSightsOfViewports(Scene& scene, AcDbObjectId layoutBlock, const Projection& page, std::vector<Sight>& sights)
{
    for (const EntitySpan& span : scene.ListOf(layoutBlock).entities) {
        AcDbViewport* viewport = nullptr;
        if (acdbOpenObject(viewport, AcDbObjectId(span.entity), AcDb::kForRead) != Acad::eOk)
            continue;
        if (viewport->isOn() && viewport->number() != 1 && viewport->viewHeight() > 0 && viewport->height() > 0)
            sights.push_back(SightThrough(*viewport, page, scene.database()));
        viewport->close();
    }
}

}   // namespace KxPlat
