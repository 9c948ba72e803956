// Arrays of numbers, points and vectors.
#pragma once
#include "../rx/AcArray.h"
#include "AcGePoint2d.h"
#include "AcGePoint3d.h"

typedef AcArray<int> AcGeIntArray;
typedef AcArray<double> AcGeDoubleArray;
typedef AcArray<AcGePoint2d> AcGePoint2dArray;
typedef AcArray<AcGePoint3d> AcGePoint3dArray;
typedef AcArray<AcGeVector2d> AcGeVector2dArray;
typedef AcArray<AcGeVector3d> AcGeVector3dArray;
