// What is said of the edges of a mesh or shell, edge by edge in the order of the faces.
#pragma once
#include "../rx/AcRxObject.h"

class AcGiEdgeData {
public:
    // AcGiVisibility values; the array stays the caller's.
    void setVisibility(const Adesk::UInt8* visibilities) { m_visibility = visibilities; }
    Adesk::UInt8* visibility() const { return const_cast<Adesk::UInt8*>(m_visibility); }

private:
    const Adesk::UInt8* m_visibility = nullptr;
};
