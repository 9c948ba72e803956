// The parts that a display list is made of, and the box around them.
#include "../db/AcDbBlockTableRecord.h"
#include "../gi/AcGiTextStyle.h"
#include "../gi/fonts/Font.h"
#include "../rx/AcRxClass.h"
#include "ListGeometry.h"
#include "Scene.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace KxPlat {

namespace {

constexpr double kFarthest = 1e15;   // coordinates beyond are damage
constexpr size_t kLongestText = 20000;
constexpr double kEndless = 1e9;   // half the length at which a line without end is drawn

bool IsDrawable(const AcGePoint3d& point)
{
    return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest && std::abs(point.z) < kFarthest;
}

bool IsDrawable(const AcGeMatrix3d& transform)
{
    const double* entries = &transform.entry[0][0];
    return std::all_of(entries, entries + 16, [](double entry) { return std::abs(entry) < kFarthest; });
}

AcGePoint3d AsPoint(const AcGeVector3d& vector)
{
    return {vector.x, vector.y, vector.z};
}

float Below(double value)
{
    return std::nextafter(float(value), -std::numeric_limits<float>::infinity());
}

float Above(double value)
{
    return std::nextafter(float(value), std::numeric_limits<float>::infinity());
}

}   // namespace

void ListGeometry::ForgetBox()
{
    std::fill(m_min, m_min + 3, std::numeric_limits<double>::max());
    std::fill(m_max, m_max + 3, std::numeric_limits<double>::lowest());
    m_isEndless = false;
}

void ListGeometry::TakeBox(EntitySpan& span) const
{
    for (int axis = 0; axis < 3; ++axis) {
        span.min[axis] = m_isEndless ? std::numeric_limits<float>::lowest() : Below(m_min[axis]);
        span.max[axis] = m_isEndless ? std::numeric_limits<float>::max() : Above(m_max[axis]);
    }
}

AcGeVector3d ListGeometry::Shift(const AcGeVector3d* normal) const
{
    const double thickness = m_traits.thickness();
    return normal == nullptr || thickness == 0 ? AcGeVector3d() : *normal * thickness;
}

void ListGeometry::Touch(const AcGePoint3d& point) const
{
    const double at[] = {point.x, point.y, point.z};
    for (int axis = 0; axis < 3; ++axis) {
        m_min[axis] = std::min(m_min[axis], at[axis]);
        m_max[axis] = std::max(m_max[axis], at[axis]);
    }
}

void ListGeometry::TouchBlock(const Box& box) const
{
    for (int corner = 0; corner < 8 && !box.isEmpty(); ++corner)
        Touch(Top() * AcGePoint3d((corner & 1) != 0 ? box.max[0] : box.min[0],
                                  (corner & 2) != 0 ? box.max[1] : box.min[1],
                                  (corner & 4) != 0 ? box.max[2] : box.min[2]));
}

bool ListGeometry::AddPoints(uint32_t count, const AcGePoint3d* points, const AcGeVector3d& shift) const
{
    const size_t before = m_list.points.size();
    for (uint32_t at = 0; at < count; ++at) {
        const AcGePoint3d point = m_stack.empty() ? points[at] + shift : Top() * (points[at] + shift);
        if (!IsDrawable(point)) {
            m_list.points.resize(before);
            m_list.Note(DrawNote::Damaged);
            return false;
        }
        m_list.points.push_back(point);
    }
    for (size_t at = before; at < m_list.points.size() && !m_isEndless; ++at)
        Touch(m_list.points[at]);
    return count > 0;
}

void ListGeometry::AddStrip(uint32_t count, const AcGePoint3d* points, const AcGeVector3d& shift, ItemKind kind) const
{
    if (!shift.isZeroLength())
        kind = ItemKind::Edge;
    const uint32_t first = uint32_t(m_list.points.size());
    if (AddPoints(count, points, AcGeVector3d()))
        Push(kind, first, count);
    if (shift.isZeroLength())
        return;
    const uint32_t above = uint32_t(m_list.points.size());
    if (AddPoints(count, points, shift))
        Push(kind, above, count);
    for (uint32_t at = 0; at < count; ++at) {
        const AcGePoint3d upright[] = {points[at], points[at] + shift};
        AddStrip(2, upright, AcGeVector3d(), kind);
        if (at == 0)
            continue;
        const AcGePoint3d wall[] = {points[at - 1], points[at], points[at] + shift, points[at - 1] + shift};
        AddFace(4, wall);
    }
}

void ListGeometry::AddFace(uint32_t count, const AcGePoint3d* points) const
{
    const uint32_t first = uint32_t(m_list.points.size());
    if (count >= 3 && AddPoints(count, points, AcGeVector3d()))
        Push(ItemKind::Face, first, count);
}

void ListGeometry::AddSmoothFace(const std::vector<uint32_t>& corners, const AcGePoint3d* vertices,
                                 const std::vector<AcGeVector3d>& normals) const
{
    std::vector<AcGePoint3d> points;
    points.reserve(corners.size());
    for (const uint32_t corner : corners)
        points.push_back(vertices[corner]);
    const uint32_t first = uint32_t(m_list.points.size());
    if (points.size() < 3 || !AddPoints(uint32_t(points.size()), points.data(), AcGeVector3d()))
        return;
    for (const uint32_t corner : corners)
        m_list.points.push_back(AsPoint(m_stack.empty() ? normals[corner] : Top() * normals[corner]));
    Push(ItemKind::SmoothFace, first, uint32_t(points.size()));
}

bool ListGeometry::AddContour(uint32_t count, const AcGePoint3d* points) const
{
    const uint32_t first = uint32_t(m_list.points.size());
    if (!AddPoints(count, points, AcGeVector3d()))
        return false;
    m_list.contours.push_back({first, count});
    return true;
}

Adesk::Boolean ListGeometry::AddArc(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y,
                                    double start, double sweep, const AcGeVector3d& normal) const
{
    AddOneArc(center, x, y, start, sweep);
    const AcGeVector3d shift = Shift(&normal);
    if (!shift.isZeroLength())
        AddArcWall(center, x, y, start, sweep, shift);
    return Adesk::kFalse;
}

// The other end, uprights at the ends of an open arc, and the wall between as one smooth surface.
void ListGeometry::AddArcWall(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y, double start,
                              double sweep, const AcGeVector3d& shift) const
{
    constexpr uint32_t kSteps = 48;
    AddOneArc(center + shift, x, y, start, sweep);
    std::vector<AcGePoint3d> points;
    std::vector<AcGeVector3d> normals;
    for (uint32_t step = 0; step <= kSteps; ++step) {
        const double angle = start + sweep * step / kSteps;
        const AcGeVector3d out = x * std::cos(angle) + y * std::sin(angle);
        points.insert(points.end(), {center + out, center + out + shift});
        normals.insert(normals.end(), {out, out});
    }
    for (uint32_t at = 0; at < 2 * kSteps; at += 2)
        AddSmoothFace({at, at + 1, at + 3, at + 2}, points.data(), normals);
    if (std::abs(sweep) > 6.28)
        return;
    for (const size_t at : {size_t(0), points.size() - 2})
        AddStrip(2, points.data() + at, AcGeVector3d());
}

void ListGeometry::AddOneArc(const AcGePoint3d& center, const AcGeVector3d& x, const AcGeVector3d& y, double start,
                             double sweep) const
{
    ArcItem arc{Top() * center, x, y, start, sweep};
    if (!m_stack.empty()) {
        arc.x.transformBy(Top());
        arc.y.transformBy(Top());
    }
    if (!IsDrawable(arc.center) || !IsDrawable(AsPoint(arc.x)) || !IsDrawable(AsPoint(arc.y)) ||
        !(std::abs(sweep) <= 1e6)) {
        m_list.Note(DrawNote::Damaged);
        return;
    }
    // The box of the whole ellipse: a bound is enough.
    const AcGeVector3d reach(std::hypot(arc.x.x, arc.y.x), std::hypot(arc.x.y, arc.y.y), std::hypot(arc.x.z, arc.y.z));
    if (std::abs(sweep) > 6.28) {
        Touch(arc.center + reach);
        Touch(arc.center - reach);
    } else {
        for (int step = 0; step <= 16; ++step) {
            const double angle = start + sweep * step / 16;
            Touch(arc.center + arc.x * std::cos(angle) + arc.y * std::sin(angle));
        }
    }
    m_list.arcs.push_back(arc);
    Push(ItemKind::Arc, uint32_t(m_list.arcs.size() - 1), 1);
}

Adesk::Boolean ListGeometry::AddEndless(const AcGePoint3d& one, const AcGePoint3d& other, bool bothWays) const
{
    const AcGeVector3d way = other - one;
    if (way.isZeroLength() || !IsDrawable(one) || !IsDrawable(other))
        return Adesk::kFalse;
    const AcGeVector3d far = way.normal() * kEndless;
    const AcGePoint3d ends[] = {bothWays ? one - far : one, one + far};
    m_isEndless = true;
    AddStrip(2, ends, AcGeVector3d());
    return Adesk::kFalse;
}

void ListGeometry::Push(ItemKind kind, uint32_t first, uint32_t count) const
{
    m_list.items.push_back({kind, LookIndex(), first, count});
}

uint32_t ListGeometry::LookIndex() const
{
    const Look& look = m_traits.look;
    if (m_lastLook < m_list.looks.size() && m_list.looks[m_lastLook].Key() == look.Key())
        return m_lastLook;
    const auto [place, isNew] = m_looks.try_emplace(look, uint32_t(m_list.looks.size()));
    if (isNew)
        m_list.looks.push_back(look);
    return m_lastLook = place->second;
}

Adesk::Boolean ListGeometry::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                  const AcGeVector3d& direction, const ACHAR* message, Adesk::Int32 length,
                                  Adesk::Boolean raw, const AcGiTextStyle& style) const
{
    if (message == nullptr || direction.isZeroLength() || normal.isZeroLength())
        return Adesk::kFalse;
    TextItem item;
    CString shown;
    for (int at = 0; raw && (length < 0 || at < length) && message[at] != 0; ++at)
        shown += message[at];
    if (!raw)
        shown = ShownText(message, length);
    item.text = shown.GetString();
    if (item.text.empty())
        return Adesk::kFalse;
    if (item.text.size() > kLongestText) {
        item.text.resize(kLongestText);
        m_list.Note(DrawNote::CutText);
    }
    item.fonts = &FontsOf(style);
    item.family = style.typeface();
    const AcGeVector3d along = direction.normal();
    const AcGeVector3d up = normal.normal().crossProduct(along);
    item.origin = Top() * position;
    item.x = along * (style.textSize() * style.xScale() * (style.isBackward() ? -1 : 1));
    item.y = (up + along * std::tan(style.obliquingAngle())) * (style.textSize() * (style.isUpsideDown() ? -1 : 1));
    const AcGePoint2d size = style.extents(item.text.c_str(), false, -1, true);
    for (const double right : {0.0, size.x})
        for (const double top : {-0.3 * style.textSize(), style.isVertical() ? size.y : style.textSize()}) {
            const AcGePoint3d corner = Top() * (position + along * right + up * top);
            if (!IsDrawable(corner)) {
                m_list.Note(DrawNote::Damaged);
                return Adesk::kFalse;
            }
            Touch(corner);
        }
    if (!m_stack.empty()) {
        item.x.transformBy(Top());
        item.y.transformBy(Top());
    }
    item.tracking = style.trackingPercent();
    item.isVertical = style.isVertical();
    item.isUnderlined = style.isUnderlined();
    item.isOverlined = style.isOverlined();
    m_list.texts.push_back(std::move(item));
    Push(ItemKind::Text, uint32_t(m_list.texts.size() - 1), 1);
    return Adesk::kFalse;
}

Adesk::Boolean ListGeometry::draw(AcGiDrawable* drawable) const
{
    if (drawable == nullptr)
        return Adesk::kFalse;
    if (const AcDbBlockTableRecord* block = AcDbBlockTableRecord::cast(drawable)) {
        const Scene& scene = m_scene;
        if (scene.TakingDepth() >= kDeepestBlock || scene.IsTaking(block->objectId())) {
            m_list.Note(DrawNote::DeepBlocks);
            return Adesk::kFalse;
        }
        if (!IsDrawable(Top())) {
            m_list.Note(DrawNote::Damaged);
            return Adesk::kFalse;
        }
        m_list.blocks.push_back({block->objectId(), Top()});
        TouchBlock(m_scene.BoxOf(block->objectId()));
        Push(ItemKind::Block, uint32_t(m_list.blocks.size() - 1), 1);
        return Adesk::kFalse;
    }
    const ListTraits::State before = m_traits.Save();
    m_traits.Reset();
    if ((drawable->setAttributes(&m_traits) & AcGiDrawable::kDrawableIsInvisible) == 0)
        drawable->worldDraw(&m_draw);
    m_traits.Restore(before);
    return Adesk::kFalse;
}

}   // namespace KxPlat
