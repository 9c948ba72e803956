// The way of a multiline: mitres at its vertices, and the places of each line of the style along it.
#include "../../ge/AcGePlane.h"
#include "../AcDbDatabase.h"
#include "../AcDbMline.h"
#include "../AcDbMlineStyle.h"
#include "../core/CurvePieces.h"
#include "../core/Members.h"
#include "../core/Stub.h"
#include <algorithm>

using namespace KxPlat;

namespace {

const AcDbMlineStyle* StyleOf(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    return AcDbMlineStyle::cast(stub == nullptr ? nullptr : stub->object);
}

void AddTriple(GroupList& groups, int code, const AcGeVector3d& value)
{
    for (unsigned axis = 0; axis < 3; ++axis)
        groups.push_back({int16_t(code + int(axis) * 10), 1, false, value[axis]});
}

}   // namespace

std::vector<AcGePoint3d> AcDbMline::Vertices() const
{
    std::vector<AcGePoint3d> vertices;
    for (int index = 0; index < numVertices(); ++index)
        vertices.push_back(vertexAt(index));
    return vertices;
}

// The parameters of an element at a vertex: how far along the mitre it stands, then where its strokes begin.
void AcDbMline::Rebuild(const std::vector<AcGePoint3d>& vertices)
{
    const AcDbMlineStyle* style = StyleOf(m_style);
    std::vector<double> offsets;
    double highest = 0, lowest = 0, offset = 0;
    AcCmColor color;
    for (int index = 0; style != nullptr && style->getElementAt(index, offset, color) == Acad::eOk; ++index)
        offsets.push_back(offset);
    if (style != nullptr)
        style->range(highest, lowest);
    const double shift = m_justification == kTop ? -highest : m_justification == kBottom ? -lowest : 0;
    m_elementCount = int16_t(offsets.size());
    m_segments.clear();
    m_start = vertices.empty() ? AcGePoint3d() : vertices.front();
    const size_t count = vertices.size();
    const auto direction = [&](size_t index) {
        const AcGeVector3d way = vertices[(index + 1) % count] - vertices[index % count];
        return way.isZeroLength() ? m_normal.perpVector() : way.normal();
    };
    for (size_t index = 0; index < count; ++index) {
        const bool hasNext = closedMline() || index + 1 < count, hasBefore = closedMline() || index > 0;
        const AcGeVector3d out = count < 2 ? m_normal.perpVector() : direction(hasNext ? index : index - 1);
        const AcGeVector3d in = count < 2 ? out : direction(hasBefore ? (index + count - 1) % count : index);
        const AcGeVector3d left = m_normal.crossProduct(out);
        AcGeVector3d mitre = left + m_normal.crossProduct(in);
        mitre = mitre.isZeroLength() ? left : mitre.normal();
        const double stretch = std::max(mitre.dotProduct(left), 1e-6);
        AddTriple(m_segments, 11, vertices[index].asVector());
        AddTriple(m_segments, 12, out);
        AddTriple(m_segments, 13, mitre);
        for (const double each : offsets) {
            m_segments.push_back({74, 1, false, int64_t(2)});
            m_segments.push_back({41, 1, false, (each + shift) * m_scale / stretch});
            m_segments.push_back({41, 1, false, 0.0});
            m_segments.push_back({75, 1, false, int64_t(0)});
        }
    }
}

std::vector<AcGePoint3d> AcDbMline::ElementAt(int element) const
{
    std::vector<AcGePoint3d> places;
    AcGePoint3d vertex;
    AcGeVector3d mitre;
    int at = -1;
    bool isFirst = false;
    for (const GroupValue& group : m_segments) {
        if (group.code == 11)
            at = -1;
        if (group.code == 11 || group.code == 21 || group.code == 31)
            vertex[unsigned(group.code - 11) / 10] = group.real();
        else if (group.code == 13 || group.code == 23 || group.code == 33)
            mitre[unsigned(group.code - 13) / 10] = group.real();
        else if (group.code == 74)
            ++at, isFirst = true;
        else if (group.code == 41 && isFirst) {
            isFirst = false;
            if (at == element)
                places.push_back(vertex + mitre * group.real());
        }
    }
    return places;
}

bool AcDbMline::addOutline(CurvePieces& pieces) const
{
    std::vector<AcGePoint3d> first, last;
    for (int element = 0; element < m_elementCount; ++element) {
        last = ElementAt(element);
        if (element == 0)
            first = last;
        pieces.AddPath(last, closedMline());
    }
    if (m_elementCount == 0)
        pieces.AddPath(Vertices(), closedMline());
    const AcDbMlineStyle* style = StyleOf(m_style);
    if (style == nullptr || closedMline() || first.empty() || last.empty())
        return true;
    if (style->startSquareCap())
        pieces.AddSegment(first.front(), last.front(), 0, 1);
    if (style->endSquareCap())
        pieces.AddSegment(first.back(), last.back(), 0, 1);
    return true;
}

Acad::ErrorStatus AcDbMline::setStyle(AcDbObjectId style)
{
    const AcDbMlineStyle* record = StyleOf(style);
    if (record == nullptr)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    m_style = style;
    m_styleName = record->name();
    Rebuild(Vertices());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMline::setScale(double scale)
{
    const Acad::ErrorStatus status = std::isfinite(scale) ? Assign(*this, m_scale, scale) : Acad::eInvalidInput;
    if (status == Acad::eOk)
        Rebuild(Vertices());
    return status;
}

Acad::ErrorStatus AcDbMline::setJustification(MlineJustification justification)
{
    if (justification < kTop || justification > kBottom)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = Assign(*this, m_justification, justification);
    if (status == Acad::eOk)
        Rebuild(Vertices());
    return status;
}

Acad::ErrorStatus AcDbMline::setClosedMline(bool closed)
{
    const Acad::ErrorStatus status = AssignBits(*this, m_flags, 2, closed);
    if (status == Acad::eOk)
        Rebuild(Vertices());
    return status;
}

Acad::ErrorStatus AcDbMline::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = Assign(*this, m_normal, normal.normal());
    if (status == Acad::eOk)
        Rebuild(Vertices());
    return status;
}

Acad::ErrorStatus AcDbMline::appendSeg(const AcGePoint3d& vertex)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    std::vector<AcGePoint3d> vertices = Vertices();
    vertices.push_back(vertex);
    Rebuild(vertices);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMline::removeLastSeg(AcGePoint3d& vertex)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    std::vector<AcGePoint3d> vertices = Vertices();
    if (status != Acad::eOk || vertices.empty())
        return status != Acad::eOk ? status : Acad::eDegenerateGeometry;
    vertex = vertices.back();
    vertices.pop_back();
    Rebuild(vertices);
    return Acad::eOk;
}
