// How selected entities stand out: dashed in a colour of their own, with their grips.
#pragma once
#include "Image.h"
#include "SceneWalk.h"

namespace KxPlat {

void DrawEmphasis(Scene& scene, AcDbObjectId block, const Projection& projection, const DrawOptions& options,
                  const std::vector<AcDbObjectId>& entities, bool showsGrips, Image& image);

// The places by which an entity is taken hold of: ends, corners, centres, where it stands.
std::vector<AcGePoint3d> GripsOf(const DisplayList& list, const EntitySpan& span);

}   // namespace KxPlat
