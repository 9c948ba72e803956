#include "PickPainter.h"
#include "../gi/fonts/Font.h"
#include "DisplayList.h"
#include "SegmentCut.h"
#include <algorithm>

namespace KxPlat {

void PickPainter::Begin(const EntitySpan& entity)
{
    End();
    m_entity = entity.entity;
}

void PickPainter::End()
{
    if (m_entity != nullptr && m_isTouched && !(m_wholly && m_isOutside))
        m_found.push_back(m_entity);
    m_entity = nullptr;
    m_isTouched = m_isOutside = false;
}

std::vector<AcDbStub*> PickPainter::Found()
{
    End();
    return std::move(m_found);
}

void PickPainter::Note(bool touches, bool isInside)
{
    m_isTouched |= touches;
    m_isOutside |= !isInside;
}

bool PickPainter::Crosses(const DevicePoint& from, const DevicePoint& to) const
{
    return !PartWithin(from, to, m_width, m_height, 0).isEmpty();
}

void PickPainter::Strip(const DevicePoint* points, size_t count, const Pen&)
{
    const bool isInside = std::all_of(points, points + count, [&](const DevicePoint& at) { return IsInside(at); });
    bool touches = isInside && count > 0;
    for (size_t at = 1; at < count && !touches; ++at)
        touches = Crosses(points[at - 1], points[at]);
    Note(touches, isInside);
}

void PickPainter::Fill(const std::vector<DevicePoint>& points, const std::vector<uint32_t>& ends, uint32_t)
{
    const DevicePoint middle{m_width / 2, m_height / 2, 0};
    bool covers = false, touches = false;
    uint32_t begin = 0;
    for (const uint32_t end : ends) {
        for (uint32_t at = begin, before = end - 1; at < end; before = at++) {
            const DevicePoint &a = points[before], &b = points[at];
            touches = touches || Crosses(a, b);
            if ((a.y > middle.y) != (b.y > middle.y) && middle.x < (b.x - a.x) * (middle.y - a.y) / (b.y - a.y) + a.x)
                covers = !covers;
        }
        begin = end;
    }
    Note(touches || covers,
         std::all_of(points.begin(), points.end(), [&](const DevicePoint& at) { return IsInside(at); }));
}

bool PickPainter::Text(const TextItem& text, const DevicePoint& origin, const DevicePoint& x, const DevicePoint& y,
                       uint32_t rgb)
{
    double advance = 0;
    for (const wchar_t letter : text.text)
        advance += text.isVertical ? 0 : text.fonts->GlyphOf(letter).advance * text.tracking;
    const double right = text.isVertical ? 1 : advance, bottom = text.isVertical ? -1.2 * double(text.text.size()) : 0;
    std::vector<DevicePoint> box;
    for (const auto& [along, up] :
         {std::pair(0.0, bottom), std::pair(right, bottom), std::pair(right, 1.0), std::pair(0.0, 1.0)})
        box.push_back({origin.x + x.x * along + y.x * up, origin.y + x.y * along + y.y * up, 0});
    Fill(box, {4}, rgb);
    return true;
}

}   // namespace KxPlat
