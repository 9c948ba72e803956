// MOVE, COPY, ROTATE, SCALE and MIRROR: one transformation of all chosen objects.
#include "../../db/AcDbText.h"
#include "../../ge/AcGeMatrix3d.h"
#include "../../ge/AcGePlane.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include <cmath>

namespace KxPlat {

namespace {

void Transform(AcDbObjectId id, const AcGeMatrix3d& transform)
{
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk)
        return;
    entity->transformBy(transform);
    entity->close();
}

void TransformPicked(const Picked& picked, const AcGeMatrix3d& transform, bool isCopy)
{
    if (isCopy) {
        for (const AcDbObjectId id : CopiesOf(picked.Ids()))
            Transform(id, transform);
    } else {
        picked.Change([&](AcDbEntity& entity) { entity.transformBy(transform); });
    }
}

struct Displacement {
    AcGePoint3d base;
    AcGeVector3d vector;
};

// From two points; Enter at the second one takes the first as the displacement itself.
bool AskDisplacement(Displacement& asked)
{
    PointAnswer base = AskPoint(L"\nSpecify base point or [Displacement] <Displacement>: ", nullptr, L"Displacement");
    if (base.isEnter() || base.is(L"Displacement")) {
        base = AskPoint(L"\nSpecify displacement <0,0,0>: ");
        asked.vector = base.point.asVector();
        return base.isPoint();
    }
    if (!base.isPoint())
        return false;
    asked.base = base.point;
    const PointAnswer second = AskPoint(L"\nSpecify second point or <use first point as displacement>: ", &base.point);
    asked.vector = second.isPoint() ? second.point - base.point : base.point.asVector();
    return second.isPoint() || second.isEnter();
}

// ROTATE and SCALE: a base point, whether copies are made, and a number or its reference.
struct Turning {
    AcGePoint3d base;
    double value = 0;
    bool isCopy = false;
};

using AskMeasure = int (*)(const ads_point, const ACHAR*, ads_real*);

struct TurningTexts {
    const wchar_t* prompt;
    const wchar_t* reference;
    const wchar_t* wanted;
};

// The answer's kind; for keywords the word is in `keyword`.
int Ask(AskMeasure ask, const AcGePoint3d& base, const std::wstring& prompt, int rules, const wchar_t* keywords,
        double& value, std::wstring& keyword)
{
    acedInitGet(rules, keywords);
    ads_real read = value;
    const int answer = ask(&base.x, prompt.c_str(), &read);
    ACHAR word[512] = L"";
    if (answer == RTNORM)
        value = read;
    if (answer == RTKWORD && acedGetInput(word) == RTNORM)
        keyword = word;
    return answer;
}

template <class Combine>
bool AskTurning(Turning& turning, AskMeasure ask, const TurningTexts& texts, int rules, Combine&& combine)
{
    const PointAnswer base = AskPoint(L"\nSpecify base point: ");
    if (!base.isPoint())
        return false;
    turning.base = base.point;
    for (;;) {
        std::wstring keyword;
        const int answer = Ask(ask, turning.base, texts.prompt, rules, L"Copy Reference", turning.value, keyword);
        if (answer != RTKWORD)
            return answer == RTNORM;
        turning.isCopy |= keyword == L"Copy";
        if (keyword != L"Reference")
            continue;
        double from = turning.value, to = turning.value;
        if (Ask(ask, turning.base, texts.reference, rules, nullptr, from, keyword) == RTCAN ||
            Ask(ask, turning.base, texts.wanted, rules, nullptr, to, keyword) != RTNORM)
            return false;
        turning.value = combine(from, to);
        return true;
    }
}

// A text that stays readable moves with its middle, and leans to the other side.
void MirrorReadably(AcDbText& text, const AcGeMatrix3d& mirroring, double axis)
{
    AcDbExtents extents;
    if (text.getGeomExtents(extents) != Acad::eOk)
        return;
    const AcGePoint3d middle = extents.minPoint() + (extents.maxPoint() - extents.minPoint()) / 2;
    AcGePoint3d mirrored = middle;
    mirrored.transformBy(mirroring);
    const double turn = std::remainder(2 * (axis - text.rotation()), M_PI);
    text.transformBy(AcGeMatrix3d::translation(mirrored - middle) *
                     AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis, middle));
}

void Mirror(AcDbEntity& entity, const AcGeMatrix3d& mirroring, double axis)
{
    AcDbText* text = AcDbText::cast(&entity);
    if (text != nullptr && IntegerVar(L"MIRRTEXT") == 0)
        MirrorReadably(*text, mirroring, axis);
    else
        entity.transformBy(mirroring);
}

}   // namespace

void MoveCommand()
{
    const Picked picked;
    Displacement asked;
    if (!picked.isEmpty() && AskDisplacement(asked))
        TransformPicked(picked, AcGeMatrix3d::translation(asked.vector), false);
}

// The user gets a copy for each further point; a program asks for one.
void CopyCommand()
{
    const Picked picked;
    Displacement asked;
    if (picked.isEmpty() || !AskDisplacement(asked))
        return;
    TransformPicked(picked, AcGeMatrix3d::translation(asked.vector), true);
    while (!AnsweredByProgram()) {
        const PointAnswer next = AskPoint(L"\nSpecify second point or [Exit/Undo] <Exit>: ", &asked.base, L"Exit");
        if (!next.isPoint())
            return;
        TransformPicked(picked, AcGeMatrix3d::translation(next.point - asked.base), true);
    }
}

void RotateCommand()
{
    static const TurningTexts texts = {L"\nSpecify rotation angle or [Copy/Reference]: ",
                                       L"\nSpecify the reference angle <0>: ", L"\nSpecify the new angle: "};
    const Picked picked;
    Turning turning;
    if (!picked.isEmpty() &&
        AskTurning(turning, acedGetAngle, texts, 0, [](double from, double to) { return to - from; }))
        TransformPicked(picked, AcGeMatrix3d::rotation(turning.value, AcGeVector3d::kZAxis, turning.base),
                        turning.isCopy);
}

void ScaleCommand()
{
    static const TurningTexts texts = {L"\nSpecify scale factor or [Copy/Reference]: ",
                                       L"\nSpecify reference length <1>: ", L"\nSpecify new length: "};
    const Picked picked;
    Turning turning;
    turning.value = 1;
    if (!picked.isEmpty() && AskTurning(turning, acedGetDist, texts, RSG_NONEG | RSG_NOZERO,
                                        [](double from, double to) { return to / from; }))
        TransformPicked(picked, AcGeMatrix3d::scaling(turning.value, turning.base), turning.isCopy);
}

void MirrorCommand()
{
    const Picked picked;
    if (picked.isEmpty())
        return;
    const PointAnswer first = AskPoint(L"\nSpecify first point of mirror line: ");
    if (!first.isPoint())
        return;
    const PointAnswer second = AskPoint(L"\nSpecify second point of mirror line: ", &first.point);
    const AcGeVector3d along = second.point - first.point;
    if (!second.isPoint() || (along.x == 0 && along.y == 0))
        return;
    const std::wstring erases = AskKeyword(L"\nErase source objects? [Yes/No] <N>: ", L"Yes No", L"No");
    const AcGeMatrix3d mirroring = AcGeMatrix3d::mirroring(AcGePlane(first.point, AcGeVector3d(-along.y, along.x, 0)));
    const double axis = std::atan2(along.y, along.x);
    if (erases == L"Yes") {
        picked.Change([&](AcDbEntity& entity) { Mirror(entity, mirroring, axis); });
    } else if (erases == L"No") {
        for (const AcDbObjectId id : CopiesOf(picked.Ids())) {
            AcDbEntity* entity = nullptr;
            if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk)
                continue;
            Mirror(*entity, mirroring, axis);
            entity->close();
        }
    }
}

}   // namespace KxPlat
