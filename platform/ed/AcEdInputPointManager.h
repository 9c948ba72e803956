// The input point filters of one document; the one registered last is current.
#pragma once
#include "AcEdInputPointFilter.h"
#include <vector>

class AcEdInputPointManager {
public:
    // The filter stays the caller's, who revokes it before it dies.
    Acad::ErrorStatus registerPointFilter(AcEdInputPointFilter* filter);
    // Takes away the current one; eNotApplicable when there is none.
    Acad::ErrorStatus revokePointFilter();
    AcEdInputPointFilter* currentPointFilter() const;

private:
    std::vector<AcEdInputPointFilter*> m_filters;
};
