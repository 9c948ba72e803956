#include "EntityTools.h"
#include "../../ap/Documents.h"
#include "../../db/AcDbBlockTableRecord.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbHostApplicationServices.h"
#include "../../db/AcDbIdMapping.h"
#include "../EditorState.h"
#include "../lisp/NumberTexts.h"
#include "../Session.h"

namespace KxPlat {

Picked::~Picked()
{
    if (m_result == RTNORM)
        acedSSFree(m_set);
}

std::vector<AcDbObjectId> Picked::Ids() const
{
    std::vector<AcDbObjectId> ids;
    Adesk::Int32 count = 0;
    if (isEmpty() || acedSSLength(m_set, &count) != RTNORM)
        return ids;
    for (Adesk::Int32 i = 0; i < count; ++i) {
        ads_name name;
        AcDbObjectId id;
        if (acedSSName(m_set, i, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk)
            ids.push_back(id);
    }
    return ids;
}

AcDbEntity* Picked::OpenForChange(AcDbObjectId id, int& locked)
{
    AcDbEntity* entity = nullptr;
    const Acad::ErrorStatus status = acdbOpenObject(entity, id, AcDb::kForWrite);
    locked += status == Acad::eOnLockedLayer;
    return status == Acad::eOk ? entity : nullptr;
}

void Picked::TellLocked(int count)
{
    if (count > 0)
        acutPrintf(L"\n%d %s on a locked layer.", count, count == 1 ? L"was" : L"were");
}

AcDbDatabase& WorkingDatabase()
{
    return *acdbHostApplicationServices()->workingDatabase();
}

AcDbObjectId AddToSpaceAsIs(std::unique_ptr<AcDbEntity> entity)
{
    AcDbObjectId id;
    AcDbBlockTableRecord* space = nullptr;
    if (acdbOpenObject(space, WorkingDatabase().currentSpaceId(), AcDb::kForWrite) != Acad::eOk)
        return id;
    if (space->appendAcDbEntity(id, entity.get()) == Acad::eOk)
        entity.release()->close();
    space->close();
    return id;
}

AcDbObjectId AddToSpace(std::unique_ptr<AcDbEntity> entity)
{
    entity->setDatabaseDefaults(&WorkingDatabase());
    return AddToSpaceAsIs(std::move(entity));
}

std::vector<AcDbObjectId> CopiesOf(const std::vector<AcDbObjectId>& ids)
{
    AcDbObjectIdArray originals;
    for (const AcDbObjectId id : ids)
        originals.append(id);
    AcDbObjectId space = WorkingDatabase().currentSpaceId();
    AcDbIdMapping map;
    std::vector<AcDbObjectId> copies;
    if (WorkingDatabase().deepCloneObjects(originals, space, map) != Acad::eOk)
        return copies;
    for (const AcDbObjectId id : ids) {
        AcDbIdPair pair;
        pair.setKey(id);
        if (map.compute(pair) && pair.isCloned())
            copies.push_back(pair.value());
    }
    return copies;
}

PointAnswer AskPoint(const std::wstring& prompt, const AcGePoint3d* base, const wchar_t* keywords)
{
    PointAnswer answer;
    ads_point from = {0, 0, 0}, point = {0, 0, 0};
    if (base != nullptr)
        ads_point_set(&base->x, from);
    acedInitGet(0, keywords);
    answer.code = acedGetPoint(base != nullptr ? from : nullptr, prompt.c_str(), point);
    answer.point = AcGePoint3d(point[X], point[Y], point[Z]);
    ACHAR keyword[512] = L"";
    if (answer.code == RTKWORD && acedGetInput(keyword) == RTNORM)
        answer.keyword = keyword;
    return answer;
}

std::wstring AskKeyword(const std::wstring& prompt, const wchar_t* keywords, const wchar_t* byDefault)
{
    acedInitGet(0, keywords);
    ACHAR keyword[512] = L"";
    switch (acedGetKword(prompt.c_str(), keyword)) {
    case RTNORM:
        return keyword;
    case RTNONE:
        return byDefault;
    default:
        return {};
    }
}

bool AskReal(const std::wstring& prompt, double& number, int rules)
{
    acedInitGet(rules, nullptr);
    ads_real read = number;
    const int answer = acedGetReal(prompt.c_str(), &read);
    if (answer == RTNORM)
        number = read;
    return answer == RTNORM || answer == RTNONE;
}

bool AskDistance(const std::wstring& prompt, const AcGePoint3d& base, double& distance)
{
    acedInitGet(RSG_NONEG | RSG_NOZERO, nullptr);
    ads_real read = distance;
    const int answer = acedGetDist(&base.x, prompt.c_str(), &read);
    if (answer == RTNORM)
        distance = read;
    return answer == RTNORM || answer == RTNONE;
}

bool AskAngle(const std::wstring& prompt, const AcGePoint3d& base, double& radians)
{
    acedInitGet(0, nullptr);
    ads_real read = radians;
    const int answer = acedGetAngle(&base.x, prompt.c_str(), &read);
    if (answer == RTNORM)
        radians = read;
    return answer == RTNORM || answer == RTNONE;
}

bool AnsweredByProgram()
{
    return TheEditor() != nullptr && TheEditor()->isAnsweredByProgram;
}

std::wstring LengthText(double value)
{
    return LengthText(value, LengthMode(IntegerVar(L"LUNITS")), IntegerVar(L"LUPREC"), IntegerVar(L"DIMZIN"));
}

std::wstring PointText(const AcGePoint3d& point)
{
    return L"X = " + LengthText(point.x) + L"     Y = " + LengthText(point.y) + L"     Z = " + LengthText(point.z);
}

}   // namespace KxPlat
