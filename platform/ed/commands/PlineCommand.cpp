// PLINE: lines and arcs that go on where the last one ended.
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbPolyline.h"
#include "../Prompt.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include <cmath>

namespace KxPlat {

namespace {

struct Vertex {
    AcGePoint2d point;
    double startWidth = 0, endWidth = 0;
    double bulge = 0;       // of the segment that begins here
    double direction = 0;   // in which the polyline arrives here
};

class Drawing {
public:
    void Run();

private:
    bool Begin();
    bool TakeKeyword(const std::wstring& keyword);
    void AddSegment(const AcGePoint2d& to);
    void AskWidth(bool isHalf);
    void Undo();
    void Finish(bool isClosed);
    AcGePoint3d Last() const { return {m_vertices.back().point.x, m_vertices.back().point.y, m_level}; }

    std::vector<Vertex> m_vertices;
    double m_level = 0;
    double m_startWidth = RealVar(L"PLINEWID"), m_endWidth = m_startWidth;
    bool m_drawsArcs = false;
};

bool Drawing::Begin()
{
    const PointAnswer start = AskPoint(L"\nSpecify start point: ");
    if (!start.isPoint())
        return false;
    m_level = start.point.z;
    m_vertices.push_back({AcGePoint2d(start.point.x, start.point.y)});
    acutPrintf(L"\nCurrent line-width is %s", LengthText(m_startWidth).c_str());
    return true;
}

// An arc leaves in the direction in which the segment before it arrived.
void Drawing::AddSegment(const AcGePoint2d& to)
{
    Vertex& from = m_vertices.back();
    const double chord = std::atan2(to.y - from.point.y, to.x - from.point.x);
    double turn = m_drawsArcs ? std::remainder(chord - from.direction, 2 * M_PI) : 0;
    from.bulge = std::tan(turn / 2);
    from.startWidth = m_startWidth;
    from.endWidth = m_endWidth;
    m_startWidth = m_endWidth;
    m_vertices.push_back({to, 0, 0, 0, chord + turn});
}

void Drawing::AskWidth(bool isHalf)
{
    const double share = isHalf ? 2 : 1;
    const wchar_t* name = isHalf ? L"half-width" : L"width";
    double start = m_startWidth / share;
    if (!AskReal(L"\nSpecify starting " + std::wstring(name) + L" <" + LengthText(start) + L">: ", start, RSG_NONEG))
        return;
    double end = start;
    if (!AskReal(L"\nSpecify ending " + std::wstring(name) + L" <" + LengthText(end) + L">: ", end, RSG_NONEG))
        return;
    m_startWidth = start * share;
    m_endWidth = end * share;
}

void Drawing::Undo()
{
    if (m_vertices.size() == 1) {
        acutPrintf(L"\nAll segments already undone.");
        return;
    }
    m_vertices.pop_back();
    m_startWidth = m_vertices.back().startWidth;
    m_vertices.back().bulge = 0;
    const AcGePoint3d last = Last();
    SetLastPoint(&last.x);
}

// False when the polyline is complete.
bool Drawing::TakeKeyword(const std::wstring& keyword)
{
    if (keyword == L"Close" || keyword == L"CLose")
        return false;
    if (keyword == L"Arc" || keyword == L"Line")
        m_drawsArcs = keyword == L"Arc";
    else if (keyword == L"Undo")
        Undo();
    else
        AskWidth(keyword == L"Halfwidth");
    return true;
}

void Drawing::Finish(bool isClosed)
{
    if (m_vertices.size() < 2)
        return;
    if (isClosed && m_drawsArcs)
        AddSegment(m_vertices.front().point);
    if (isClosed && m_drawsArcs)
        m_vertices.pop_back();
    auto line = std::make_unique<AcDbPolyline>(unsigned(m_vertices.size()));
    unsigned at = 0;
    for (const Vertex& vertex : m_vertices)
        line->addVertexAt(at++, vertex.point, vertex.bulge, vertex.startWidth, vertex.endWidth);
    line->setClosed(isClosed);
    line->setElevation(m_level);
    line->setThickness(RealVar(L"THICKNESS"));
    AddToSpace(std::move(line));
}

void Drawing::Run()
{
    if (!Begin())
        return;
    for (;;) {
        const AcGePoint3d last = Last();
        const PointAnswer answer = m_drawsArcs
                                       ? AskPoint(L"\nSpecify endpoint of arc or [CLose/Line/Halfwidth/Undo/Width]: ",
                                                  &last, L"CLose Line Halfwidth Undo Width")
                                       : AskPoint(L"\nSpecify next point or [Arc/Close/Halfwidth/Undo/Width]: ", &last,
                                                  L"Arc Close Halfwidth Undo Width");
        if (answer.isPoint())
            AddSegment(AcGePoint2d(answer.point.x, answer.point.y));
        else if (answer.code != RTKWORD)
            return Finish(false);
        else if (!TakeKeyword(answer.keyword))
            return Finish(true);
    }
}

}   // namespace

void PlineCommand()
{
    Drawing().Run();
}

}   // namespace KxPlat
