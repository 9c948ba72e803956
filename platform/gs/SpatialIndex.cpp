#include "SpatialIndex.h"
#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace KxPlat {

namespace {

constexpr size_t kLeaf = 32;    // entities of a leaf
constexpr size_t kBranch = 8;   // nodes below a node
constexpr double kDot = 0.75;   // pixels; what is smaller is a dot
constexpr double kRoom = 2;     // pixels around the device, for lines that are wide

// The bits of a number of 20 bits, two places between each and the next.
uint64_t Spread(uint64_t value)
{
    uint64_t spread = 0;
    for (int bit = 0; bit < 20; ++bit)
        spread |= (value >> bit & 1) << (3 * bit);
    return spread;
}

bool HasBounds(const EntitySpan& span)
{
    return span.min[0] <= span.max[0] && span.max[0] < std::numeric_limits<float>::max();
}

// Numbers that are close for places that are close.
class PlaceNumbers {
public:
    explicit PlaceNumbers(const DisplayList& list)
    {
        for (const EntitySpan& span : list.entities)
            for (int axis = 0; axis < 3 && HasBounds(span); ++axis) {
                m_min[axis] = std::min(m_min[axis], double(span.min[axis]));
                m_max[axis] = std::max(m_max[axis], double(span.max[axis]));
            }
        for (uint64_t value = 0; value < 1024; ++value)
            m_spread[value] = Spread(value);
    }
    uint64_t Of(const EntitySpan& span) const
    {
        uint64_t number = 0;
        for (int axis = 0; axis < 3; ++axis) {
            const double size = m_max[axis] - m_min[axis];
            const double share = size > 0 ? ((double(span.min[axis]) + span.max[axis]) / 2 - m_min[axis]) / size : 0;
            const auto step = uint64_t(std::clamp(share, 0.0, 1.0) * 1048575);
            number |= (m_spread[step & 1023] | m_spread[step >> 10] << 30) << axis;
        }
        return number;
    }

private:
    double m_min[3] = {INFINITY, INFINITY, INFINITY}, m_max[3] = {-INFINITY, -INFINITY, -INFINITY};
    uint64_t m_spread[1024];
};

template <class T>
void Widen(float min[3], float max[3], const T& by)
{
    for (int axis = 0; axis < 3; ++axis) {
        min[axis] = std::min(min[axis], by.min[axis]);
        max[axis] = std::max(max[axis], by.max[axis]);
    }
}

}   // namespace

Reach ReachOf(const float min[3], const float max[3], const Projection& projection)
{
    if (!(min[0] <= max[0]) || max[0] == std::numeric_limits<float>::max())
        return Reach::Seen;   // without bounds, or empty
    double low[3], high[3];   // of the affine part
    for (int row = 0; row < 3; ++row) {
        double middle = projection.entry[row][3], half = 0;
        for (int axis = 0; axis < 3; ++axis) {
            const double entry = projection.entry[row][axis] / 2;
            middle += entry * (double(min[axis]) + max[axis]);
            half += std::abs(entry) * (double(max[axis]) - min[axis]);
        }
        low[row] = middle - half;
        high[row] = middle + half;
    }
    if (projection.IsPerspective()) {
        if (low[2] > projection.NearestDepth())
            return Reach::Outside;
        const double least = projection.Foreshortening(low[2]), most = projection.Foreshortening(high[2]);
        for (int row = 0; row < 2; ++row) {
            low[row] *= low[row] < 0 ? most : least;
            high[row] *= high[row] < 0 ? least : most;
        }
    }
    low[0] += projection.middleX(), high[0] += projection.middleX();
    low[1] += projection.middleY(), high[1] += projection.middleY();
    if (high[0] < -kRoom || high[1] < -kRoom || low[0] > projection.width() + kRoom ||
        low[1] > projection.height() + kRoom)
        return Reach::Outside;
    return high[0] - low[0] < kDot && high[1] - low[1] < kDot ? Reach::Dot : Reach::Seen;
}

SpatialIndex::SpatialIndex(const DisplayList& list)
{
    const PlaceNumbers numbers(list);
    std::vector<std::pair<uint64_t, uint32_t>> places;
    places.reserve(list.entities.size());
    for (size_t at = 0; at < list.entities.size(); ++at)
        if (HasBounds(list.entities[at]))
            places.emplace_back(numbers.Of(list.entities[at]), uint32_t(at));
        else
            m_loose.push_back(uint32_t(at));
    std::sort(places.begin(), places.end());
    m_order.reserve(places.size());
    for (const auto& place : places)
        m_order.push_back(place.second);
    constexpr float big = std::numeric_limits<float>::max();
    constexpr Node kEmpty = {{big, big, big}, {-big, -big, -big}};
    std::vector<Node> level((m_order.size() + kLeaf - 1) / kLeaf, kEmpty);
    for (size_t at = 0; at < m_order.size(); ++at)
        Widen(level[at / kLeaf].min, level[at / kLeaf].max, list.entities[m_order[at]]);
    while (level.size() > 1) {
        std::vector<Node> above((level.size() + kBranch - 1) / kBranch, kEmpty);
        for (size_t at = 0; at < level.size(); ++at)
            Widen(above[at / kBranch].min, above[at / kBranch].max, level[at]);
        m_levels.push_back(std::move(level));
        level = std::move(above);
    }
    m_levels.push_back(std::move(level));
}

void SpatialIndex::Find(const DisplayList& list, const Projection& projection,
                        const std::function<bool(uint32_t)>& isWanted, std::vector<uint32_t>& found)
{
    m_marks.assign(list.entities.size() / 64 + 1, 0);
    for (const uint32_t entity : m_loose)
        Mark(entity);
    for (size_t node = 0; node < m_levels.back().size(); ++node)
        Visit(m_levels.size() - 1, node, projection, isWanted);
    found.clear();
    for (size_t word = 0; word < m_marks.size(); ++word)
        for (uint64_t bits = m_marks[word]; bits != 0; bits &= bits - 1)
            found.push_back(uint32_t(word * 64) + uint32_t(std::countr_zero(bits)));
}

void SpatialIndex::Visit(size_t level, size_t node, const Projection& projection,
                         const std::function<bool(uint32_t)>& isWanted)
{
    const Node& box = m_levels[level][node];
    const Reach reach = ReachOf(box.min, box.max, projection);
    if (reach == Reach::Outside)
        return;
    if (reach == Reach::Seen && level > 0) {
        const size_t end = std::min((node + 1) * kBranch, m_levels[level - 1].size());
        for (size_t below = node * kBranch; below < end; ++below)
            Visit(level - 1, below, projection, isWanted);
        return;
    }
    size_t first = node * kLeaf, count = kLeaf;
    for (size_t step = 0; step < level; ++step)
        first *= kBranch, count *= kBranch;
    const size_t end = std::min(first + count, m_order.size());
    for (size_t at = first; at < end; ++at) {
        if (reach == Reach::Dot && !isWanted(m_order[at]))
            continue;
        Mark(m_order[at]);
        if (reach == Reach::Dot)
            return;
    }
}

}   // namespace KxPlat
