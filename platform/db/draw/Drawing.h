// What the drawing of several classes has in common.
#pragma once
#include "../../ge/AcGePoint2d.h"
#include "../../ge/AcGePoint3d.h"
#include "../../gi/AcGiWorldDraw.h"
#include <vector>

namespace KxPlat {

// A flat polyline in its own plane: vertex, bulge and widths of the segment that begins there.
struct WideVertex {
    AcGePoint2d point;
    double bulge = 0;
    double startWidth = 0;
    double endWidth = 0;
};

// Draws it in the plane that `toWorld` brings into the world: thin where the widths are 0, filled elsewhere.
void DrawWidePolyline(AcGiWorldDraw& draw, const std::vector<WideVertex>& vertices, bool isClosed,
                      const AcGeMatrix3d& toWorld, const AcGeVector3d& normal);

// Points along a bulged segment from `from` (which is left out) to `to`.
void AddBulge(std::vector<AcGePoint2d>& points, const AcGePoint2d& from, const AcGePoint2d& to, double bulge);

struct MTextBlock;

// Texts of several lines; `attachment` is 1 for the upper left corner at `place` to 9 for the lower right one. With a
// width of 0 the widest line counts.
void DrawBlockOfText(AcGiWorldDraw& draw, const MTextBlock& block, const AcGePoint3d& place, const AcGeVector3d& along,
                     const AcGeVector3d& normal, int attachment, double width);

// Draws without filling or thickness being left switched for what follows.
class FillSwitch {
public:
    FillSwitch(AcGiWorldDraw& draw, AcGiFillType type) : m_traits(draw.subEntityTraits()), m_before(m_traits.fillType())
    {
        m_traits.setFillType(type);
    }
    ~FillSwitch() { m_traits.setFillType(m_before); }
    FillSwitch(const FillSwitch&) = delete;
    FillSwitch& operator=(const FillSwitch&) = delete;

private:
    AcGiSubEntityTraits& m_traits;
    AcGiFillType m_before;
};

}   // namespace KxPlat
