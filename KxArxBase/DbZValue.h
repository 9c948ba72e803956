// Lays entities into the plane z = 0, as seen from above.
#pragma once
#include "KxHost.h"
#include "KxMfcEx/KxExport.h"

namespace KxArxBase::Db {

// Everything that the entity consists of comes to lie at z = 0: points, vertices, elevation, thickness, the picture of
// a dimension. An insertion keeps its scale and direction, only its place and its attributes come down; a tilted circle
// or arc is replaced by an ellipse. An entity without a flat likeness (a solid, an upright circle, a tilted curve with
// bulges) stays as it is and answers eNotApplicable or eDegenerateGeometry.
// `changed` is false for an entity that was flat already.
KXARX_API Acad::ErrorStatus SetZValueToZero(AcDbObjectId id, bool& changed);

}   // namespace KxArxBase::Db
