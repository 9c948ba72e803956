// Finds the entities of a display list that may be seen, without a look at each.
#pragma once
#include "Camera.h"
#include "DisplayList.h"
#include <functional>

namespace KxPlat {

// Where a box falls on a device.
enum class Reach { Outside, Dot, Seen };
Reach ReachOf(const float min[3], const float max[3], const Projection& projection);
inline Reach ReachOf(const EntitySpan& span, const Projection& projection)
{
    return ReachOf(span.min, span.max, projection);
}

class SpatialIndex {
public:
    explicit SpatialIndex(const DisplayList& list);

    // The numbers of the entities that may be seen, in drawing order. Where many fall within one pixel, one of them
    // that `isWanted` says yes to stands for all.
    void Find(const DisplayList& list, const Projection& projection, const std::function<bool(uint32_t)>& isWanted,
              std::vector<uint32_t>& found);
    // The entity has a new box: from now on it is always looked at.
    void Loosen(uint32_t entity) { m_loose.push_back(entity); }
    bool IsWorn() const { return m_loose.size() > 20000; }

private:
    struct Node {
        float min[3], max[3];
    };
    void Visit(size_t level, size_t node, const Projection& projection, const std::function<bool(uint32_t)>& isWanted);
    void Mark(uint32_t entity) { m_marks[entity / 64] |= uint64_t(1) << entity % 64; }

    std::vector<uint32_t> m_order;             // neighbours in space stand together
    std::vector<std::vector<Node>> m_levels;   // from the leaves up
    std::vector<uint32_t> m_loose;             // without bounds, or changed
    std::vector<uint64_t> m_marks;
};

}   // namespace KxPlat
