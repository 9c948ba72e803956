#include "AcEdJig.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbHostApplicationServices.h"
#include "../rx/adscodes.h"
#include "acedads.h"
#include <cstdarg>

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdJig, AcRxObject)

void AcEdJig::setDispPrompt(const ACHAR* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    m_prompt.FormatV(format, arguments);
    va_end(arguments);
}

// The bits of the controls as the questions of the command line know them.
void AcEdJig::PrepareInput() const
{
    static const struct {
        int control, bit;
    } kRows[] = {{kNoZeroResponseAccepted, 2},
                 {kNoNegativeResponseAccepted, 4},
                 {kNoDwgLimitsChecking, 8},
                 {kAcceptOtherInputString, 128}};
    int bits = (m_controls & kNullResponseAccepted) != 0 ? 0 : 1;
    for (const auto& row : kRows)
        bits |= (m_controls & row.control) != 0 ? row.bit : 0;
    acedInitGet(bits, m_keywords.IsEmpty() ? nullptr : static_cast<const ACHAR*>(m_keywords));
}

AcEdJig::DragStatus AcEdJig::StatusOf(int answer) const
{
    if (answer != RTKWORD)
        return answer == RTNORM ? kNormal : answer == RTNONE ? kNull : answer == RTCAN ? kCancel : kOther;
    constexpr size_t kLongest = 512;
    ACHAR given[kLongest] = {};
    acedGetInput(given);
    int start = 0;
    for (int status = kKW1; status <= kKW9; ++status) {
        const CString word = m_keywords.Tokenize(L" ", start);
        if (word.IsEmpty())
            break;
        if (word.CompareNoCase(given) == 0)
            return DragStatus(status);
    }
    return kOther;
}

AcEdJig::DragStatus AcEdJig::drag()
{
    DragStatus status = sampler();
    if (status == kNormal || status == kNoChange) {
        update();
        status = kNormal;
    }
    return status;
}

AcDbObjectId AcEdJig::append()
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTableRecord* space = nullptr;
    AcDbObjectId id;
    if (entity() == nullptr || database == nullptr ||
        acdbOpenObject(space, database->currentSpaceId(), AcDb::kForWrite) != Acad::eOk)
        return id;
    const Acad::ErrorStatus status = space->appendAcDbEntity(id, entity());
    space->close();
    if (status != Acad::eOk)
        return AcDbObjectId();
    entity()->close();
    return id;
}

AcEdJig::DragStatus AcEdJig::acquireString(ACHAR* value)
{
    PrepareInput();
    return StatusOf(acedGetString((m_controls & kAnyBlankTerminatesInput) != 0 ? 0 : 1, m_prompt, value));
}

AcEdJig::DragStatus AcEdJig::acquireAngle(double& value)
{
    PrepareInput();
    return StatusOf(acedGetAngle(nullptr, m_prompt, &value));
}

AcEdJig::DragStatus AcEdJig::acquireAngle(double& value, const AcGePoint3d& base)
{
    PrepareInput();
    const ads_point from = {base.x, base.y, base.z};
    return StatusOf(acedGetAngle(from, m_prompt, &value));
}

AcEdJig::DragStatus AcEdJig::acquireDist(double& value)
{
    PrepareInput();
    return StatusOf(acedGetDist(nullptr, m_prompt, &value));
}

AcEdJig::DragStatus AcEdJig::acquireDist(double& value, const AcGePoint3d& base)
{
    PrepareInput();
    const ads_point from = {base.x, base.y, base.z};
    return StatusOf(acedGetDist(from, m_prompt, &value));
}

namespace {

AcEdJig::DragStatus Moved(AcEdJig::DragStatus status, const ads_point given, AcGePoint3d& value)
{
    if (status == AcEdJig::kNormal)
        value.set(given[0], given[1], given[2]);
    return status;
}

}   // namespace

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value)
{
    PrepareInput();
    ads_point given = {};
    return Moved(StatusOf(acedGetPoint(nullptr, m_prompt, given)), given, value);
}

AcEdJig::DragStatus AcEdJig::acquirePoint(AcGePoint3d& value, const AcGePoint3d& base)
{
    PrepareInput();
    const ads_point from = {base.x, base.y, base.z};
    ads_point given = {};
    return Moved(StatusOf(acedGetPoint(from, m_prompt, given)), given, value);
}
