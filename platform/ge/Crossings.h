// Where two curves meet.
#pragma once
#include "AcGeCurve3d.h"
#include <vector>

namespace KxPlat {

struct Crossing {
    AcGePoint3d point;
    double first, second;   // the parameters on both curves
};

// How far apart two curves may pass and still meet: a little for rounding, more for places far from the origin.
double MeetingTolerance(const AcGePoint3d& around);

// In order along the first curve, each once. Curves that run on top of each other meet at the ends of what they share
// when both are straight or both are arcs of one circle; touching is meeting. Endless lines are allowed.
std::vector<Crossing> Crossings(const AcGeCurve3d& first, const AcGeCurve3d& second);

}   // namespace KxPlat
