// Where entities draw to while a display list is made: everything comes down in the axes of the block.
#pragma once
#include "../gi/AcGiWorldDraw.h"
#include "ListTraits.h"
#include <map>

namespace KxPlat {

class Scene;
struct Box;

class ListGeometry : public AcGiWorldGeometry {
public:
    // `draw` is the context that entities are handed, `scene` knows the boxes of blocks.
    ListGeometry(DisplayList& list, AcGiWorldDraw& draw, ListTraits& traits, Scene& scene);

    void getModelToWorldTransform(AcGeMatrix3d& transform) const override { transform = Top(); }
    void getWorldToModelTransform(AcGeMatrix3d& transform) const override { transform = Top().inverse(); }
    Adesk::Boolean pushModelTransform(const AcGeVector3d& normal) override;
    Adesk::Boolean pushModelTransform(const AcGeMatrix3d& transform) override;
    Adesk::Boolean popModelTransform() override;

    Adesk::Boolean circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) const override;
    Adesk::Boolean circle(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3) const override;
    Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                               const AcGeVector3d& startVector, double sweepAngle, AcGiArcType arcType) const override;
    Adesk::Boolean circularArc(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end,
                               AcGiArcType arcType) const override;

    Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* vertices, const AcGeVector3d* normal = nullptr,
                            Adesk::GsMarker = -1) const override;
    Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* vertices) const override;
    Adesk::Boolean mesh(Adesk::UInt32 rows, Adesk::UInt32 columns, const AcGePoint3d* vertices, const AcGiEdgeData*,
                        const AcGiFaceData*, const AcGiVertexData*, bool) const override;
    Adesk::Boolean shell(Adesk::UInt32 vertexCount, const AcGePoint3d* vertices, Adesk::UInt32 faceListSize,
                         const Adesk::Int32* faceList, const AcGiEdgeData*, const AcGiFaceData*, const AcGiVertexData*,
                         const void*, bool) const override;
    void AddEdges(const std::vector<uint32_t>& corners, const AcGePoint3d* vertices, const Adesk::UInt8* visible) const;
    void FillShell(const std::vector<std::vector<uint32_t>>& faces, const std::vector<bool>& isHole,
                   const AcGePoint3d* vertices) const;

    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                        double height, double width, double oblique, const ACHAR* message) const override;
    Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                        const ACHAR* message, Adesk::Int32 length, Adesk::Boolean raw,
                        const AcGiTextStyle& style) const override;
    Adesk::Boolean xline(const AcGePoint3d& one, const AcGePoint3d& other) const override;
    Adesk::Boolean ray(const AcGePoint3d& start, const AcGePoint3d& through) const override;
    Adesk::Boolean pline(const AcDbPolyline& polyline, Adesk::UInt32, Adesk::UInt32) const override;
    Adesk::Boolean draw(AcGiDrawable* drawable) const override;
    void setExtents(AcGePoint3d* newExtents) const override;

    void ForgetBox();
    void TakeBox(EntitySpan& span) const;

private:
    const AcGeMatrix3d& Top() const { return m_stack.empty() ? AcGeMatrix3d::kIdentity : m_stack.back(); }

    static bool CenterOf(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3, AcGePoint3d& center,
                         AcGeVector3d& normal);

    // How far the thickness moves what is drawn.
    AcGeVector3d Shift(const AcGeVector3d* normal) const;

    void Touch(const AcGePoint3d& point) const;
    void TouchBlock(const Box& box) const;

    // Points in the axes of the block; false, and nothing kept, when one is damaged.
    bool AddPoints(uint32_t count, const AcGePoint3d* points, const AcGeVector3d& shift) const;
    void AddStrip(uint32_t count, const AcGePoint3d* points, const AcGeVector3d& shift,
                  ItemKind kind = ItemKind::Strip) const;
    void AddFace(uint32_t count, const AcGePoint3d* points) const;
    // A face of a surface, by the numbers of its corners.
    void AddSmoothFace(const std::vector<uint32_t>& corners, const AcGePoint3d* vertices,
                       const std::vector<AcGeVector3d>& normals) const;
    bool AddContour(uint32_t count, const AcGePoint3d* points) const;
    Adesk::Boolean AddArc(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y, double start,
                          double sweep, const AcGeVector3d& normal) const;
    void AddArcWall(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y, double start, double sweep,
                    const AcGeVector3d& shift) const;
    void AddOneArc(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y, double start,
                   double sweep) const;
    Adesk::Boolean AddEndless(const AcGePoint3d& one, const AcGePoint3d& other, bool bothWays) const;
    void Push(ItemKind kind, uint32_t first, uint32_t count) const;
    uint32_t LookIndex() const;

    DisplayList& m_list;
    AcGiWorldDraw& m_draw;
    ListTraits& m_traits;
    Scene& m_scene;
    std::vector<AcGeMatrix3d> m_stack;
    mutable std::map<Look, uint32_t> m_looks;
    mutable uint32_t m_lastLook = 0;
    mutable double m_min[3], m_max[3];
    mutable bool m_isEndless = false;
};

}   // namespace KxPlat
