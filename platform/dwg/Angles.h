// Angles are radians in DWG files and degrees in memory. What came from a file goes back to one that gives the same
// degrees again.
#pragma once
#include <cmath>
#include <initializer_list>

namespace KxPlat {

inline constexpr long double kDegreesPerRadian = 180.0L / 3.141592653589793238462643383279502884L;

inline double DegreesOf(double radians)
{
    return double((long double)(radians)*kDegreesPerRadian);
}
inline double RadiansOf(double degrees)
{
    const double radians = double((long double)(degrees) / kDegreesPerRadian);
    const double lower = std::nextafter(radians, -HUGE_VAL), higher = std::nextafter(radians, HUGE_VAL);
    for (const double tried : {radians, lower, higher})
        if (DegreesOf(tried) == degrees)
            return tried;
    return radians;
}

}   // namespace KxPlat
