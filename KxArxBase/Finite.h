// Refuses coordinates that are no numbers before anything is made of them.
#pragma once
#include "KxHost.h"
#include <cmath>

namespace KxArxBase {

inline bool IsFinite(double value)
{
    return std::isfinite(value);
}
inline bool IsFinite(const AcGePoint2d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}
inline bool IsFinite(const AcGePoint3d& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}
inline bool IsFinite(const AcGeVector3d& vector)
{
    return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}
template <class T>
bool IsFinite(const AcArray<T>& values)
{
    for (const T& value : values)
        if (!IsFinite(value))
            return false;
    return true;
}
template <class First, class... Others>
bool AreFinite(const First& first, const Others&... others)
{
    if constexpr (sizeof...(others) == 0)
        return IsFinite(first);
    else
        return IsFinite(first) && AreFinite(others...);
}

}   // namespace KxArxBase
