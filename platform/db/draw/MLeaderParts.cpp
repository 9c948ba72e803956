#include "MLeaderParts.h"
#include <algorithm>

namespace KxPlat {

namespace {

// The groups nest: a context ("300") holds text and leaders ("302"), a leader holds lines ("304"); 301, 303 and 305
// close them.
class Reader {
public:
    explicit Reader(MLeaderParts& parts) : m_parts(parts) {}

    void Take(const GroupValue& group)
    {
        const bool opens = (m_depth == 0 && group.code == 300) || (m_depth == 1 && group.code == 302) ||
                           (m_depth == 2 && group.code == 304);
        if (opens) {
            ++m_depth;
            if (m_depth == 2)
                m_parts.branches.emplace_back();
            else if (m_depth == 3)
                m_parts.branches.back().lines.emplace_back();
            return;
        }
        if (m_depth > 0 && group.code == 299 + 2 * m_depth) {
            --m_depth;
            return;
        }
        switch (m_depth) {
        case 0:
            TakeOutside(group);
            break;
        case 1:
            TakeOfContext(group);
            break;
        case 2:
            TakeOfLeader(group);
            break;
        default:
            TakeOfLine(group);
        }
    }

private:
    // Sets the coordinate that the group is of, x in group `code`; false for another group.
    template <class Place>
    static bool Coordinate(Place& place, const GroupValue& group, int code)
    {
        const int axis = (group.code - code) / 10;
        if (group.code < code || group.code > code + 20 || (group.code - code) % 10 != 0)
            return false;
        place[unsigned(axis)] = group.real();
        return true;
    }

    void TakeOutside(const GroupValue& group)
    {
        if (group.code == 172)
            m_parts.hasText = group.integer() == 2;
        else if (group.code == 291)
            m_parts.hasLanding = group.integer() != 0;
    }
    void TakeOfContext(const GroupValue& group)
    {
        Coordinate(m_parts.normal, group, 11);
        Coordinate(m_parts.textPlace, group, 12);
        Coordinate(m_parts.textDirection, group, 13);
        switch (group.code) {
        case 290:
            m_parts.hasText = group.integer() != 0;
            break;
        case 304:
            m_parts.text = group.text();
            break;
        case 340:
            m_parts.textStyle = group.id();
            break;
        case 341:
            m_parts.block = group.id();
            break;
        case 41:
            m_parts.textHeight = group.real();
            break;
        case 43:
            m_parts.textWidth = group.real();
            break;
        case 47:
            if (m_matrixCells < 16)
                m_parts.blockTransform.entry[m_matrixCells / 4][m_matrixCells % 4] = group.real();
            ++m_matrixCells;
            break;
        case 140:
            m_parts.arrowSize = group.real();
            break;
        case 171:
            m_parts.attachment = std::clamp(int(group.integer()), 1, 3);
            break;
        default:
            break;
        }
    }
    void TakeOfLeader(const GroupValue& group)
    {
        MLeaderBranch& branch = m_parts.branches.back();
        Coordinate(branch.end, group, 10);
        Coordinate(branch.direction, group, 11);
        if (group.code == 40)
            branch.landing = group.real();
    }
    void TakeOfLine(const GroupValue& group)
    {
        std::vector<AcGePoint3d>& line = m_parts.branches.back().lines.back();
        if (group.code == 10)
            line.emplace_back();
        if (!line.empty())
            Coordinate(line.back(), group, 10);
    }

    MLeaderParts& m_parts;
    int m_depth = 0;
    int m_matrixCells = 0;
};

}   // namespace

MLeaderParts PartsOfMLeader(const GroupList& groups)
{
    MLeaderParts parts;
    Reader reader(parts);
    for (const GroupValue& group : groups)
        reader.Take(group);
    return parts;
}

}   // namespace KxPlat
