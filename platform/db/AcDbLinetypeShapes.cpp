// Shapes and texts in the pattern of a linetype.
#include "../ge/EntityAxes.h"
#include "AcDbLinetypeTableRecord.h"
#include <algorithm>
#include <iterator>

using namespace KxPlat;

namespace {

// The groups of one dash in the order of a file. Flags (74): 1 against the drawing's axes, 2 a text, 4 a shape.
const int kOrder[] = {49, 74, 75, 340, 46, 50, 44, 45, 9};
const int kUcsOriented = 1, kText = 2, kShape = 4;

int RankOf(int code)
{
    return int(std::find(std::begin(kOrder), std::end(kOrder), code) - std::begin(kOrder));
}

}   // namespace

const GroupValue* AcDbLinetypeTableRecord::shapeGroup(int index, int code) const
{
    const GroupValue* at = const_cast<AcDbLinetypeTableRecord*>(this)->dash(index);
    if (at == nullptr)
        return nullptr;
    const GroupValue* const end = m_pattern.data() + m_pattern.size();
    for (++at; at != end && at->code != 49; ++at)
        if (at->code == code)
            return at;
    return nullptr;
}

// Replaces the group of this code, or puts it in at its place.
Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeGroup(int index, GroupValue group)
{
    const GroupValue* start = dash(index);
    if (start == nullptr)
        return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    auto at = m_pattern.begin() + (start - m_pattern.data()) + 1;
    while (at != m_pattern.end() && at->code != 49 && RankOf(at->code) < RankOf(group.code))
        ++at;
    if (at != m_pattern.end() && at->code == group.code)
        *at = std::move(group);
    else
        m_pattern.insert(at, std::move(group));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeFlag(int index, int flag, bool isOn)
{
    const GroupValue* flags = shapeGroup(index, 74);
    const int64_t old = flags == nullptr ? 0 : flags->integer();
    return setShapeGroup(index, {74, 0, false, isOn ? old | flag : old & ~int64_t(flag)});
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setIsScaledToFit(bool scaledToFit)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        m_alignment = scaledToFit ? 83 : 65;
    return status;
}

AcDbObjectId AcDbLinetypeTableRecord::shapeStyleAt(int index) const
{
    const GroupValue* group = shapeGroup(index, 340);
    return group == nullptr ? AcDbObjectId() : group->id();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeStyleAt(int index, AcDbObjectId style)
{
    return setShapeGroup(index, {340, 0, false, style});
}

int AcDbLinetypeTableRecord::shapeNumberAt(int index) const
{
    const GroupValue* group = shapeGroup(index, 75);
    return group == nullptr ? 0 : int(group->integer());
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeNumberAt(int index, int number)
{
    const Acad::ErrorStatus status = setShapeGroup(index, {75, 0, false, int64_t(number)});
    return status == Acad::eOk ? setShapeFlag(index, kShape, number != 0) : status;
}

AcGeVector2d AcDbLinetypeTableRecord::shapeOffsetAt(int index) const
{
    const GroupValue *x = shapeGroup(index, 44), *y = shapeGroup(index, 45);
    return AcGeVector2d(x == nullptr ? 0 : x->real(), y == nullptr ? 0 : y->real());
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeOffsetAt(int index, const AcGeVector2d& offset)
{
    const Acad::ErrorStatus status = setShapeGroup(index, {44, 0, false, offset.x});
    return status == Acad::eOk ? setShapeGroup(index, {45, 0, false, offset.y}) : status;
}

double AcDbLinetypeTableRecord::shapeScaleAt(int index) const
{
    const GroupValue* group = shapeGroup(index, 46);
    return group == nullptr ? 1 : group->real();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeScaleAt(int index, double scale)
{
    return setShapeGroup(index, {46, 0, false, scale});
}

double AcDbLinetypeTableRecord::shapeRotationAt(int index) const
{
    const GroupValue* group = shapeGroup(index, 50);
    return group == nullptr ? 0 : Radians(group->real());
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeRotationAt(int index, double rotation)
{
    return setShapeGroup(index, {50, 0, false, Degrees(rotation)});
}

bool AcDbLinetypeTableRecord::shapeIsUcsOrientedAt(int index) const
{
    const GroupValue* flags = shapeGroup(index, 74);
    return flags != nullptr && (flags->integer() & kUcsOriented) != 0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setShapeIsUcsOrientedAt(int index, bool isUcsOriented)
{
    return setShapeFlag(index, kUcsOriented, isUcsOriented);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::textAt(int index, ACHAR*& text) const
{
    const GroupValue* group = shapeGroup(index, 9);
    return acutNewString(group == nullptr ? L"" : group->text().GetString(), text);
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setTextAt(int index, const ACHAR* text)
{
    const Acad::ErrorStatus status = setShapeGroup(index, {9, 0, false, CString(text)});
    return status == Acad::eOk ? setShapeFlag(index, kText, text != nullptr && *text != 0) : status;
}
