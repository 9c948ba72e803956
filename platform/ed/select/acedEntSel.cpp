// One object, with the point at which it was picked.
#include "../../db/core/Stub.h"
#include "../../rx/ResBufs.h"
#include "../../win/CharTables.h"
#include "../acedads.h"
#include "../Prompt.h"
#include "ChooseObjects.h"
#include "DocumentSelection.h"
#include "Errno.h"
#include "NestedEntity.h"

using namespace KxPlat;

namespace {

// What an answer means: an object, or nothing. `picked` is set for points only.
AcDbObjectId ObjectIn(const InputPiece& piece, AcDbDatabase& database, ads_point picked)
{
    if (!piece.objects.empty()) {
        ads_point_set(piece.value.resval.rpoint, picked);
        return static_cast<AcDbStub*>(piece.objects.front());
    }
    if (piece.type == InputPiece::Type::Value && piece.value.restype == RTENAME) {
        AcDbObjectId id;
        acdbGetObjectId(id, piece.value.resval.rlname);
        return id;
    }
    const bool isLast =
        piece.type == InputPiece::Type::Text &&
        (EqualNoCase(piece.text, L"L") || EqualNoCase(piece.text, L"_L") || EqualNoCase(piece.text, L"LAST"));
    if (isLast)
        return LastVisible(database);
    ads_point point;
    if (!PointIn(piece, point))
        return AcDbObjectId();
    ads_point_set(point, picked);
    return ObjectAt(database, AcGePoint2d(point[X], point[Y]));
}

int Failed(Errno why)
{
    SetErrno(why);
    return RTERROR;
}

// RTNORM with an object, or what the caller answers.
int AskForOne(const ACHAR* text, AcDbDatabase& database, AcDbObjectId& id, ads_point picked)
{
    picked[X] = picked[Y] = picked[Z] = 0;
    Prompt prompt(InputKind::Entity, text != nullptr ? text : L"\nSelect object: ");
    InputPiece piece;
    const int answer = prompt.Next(piece);
    if (answer == RTNONE || (answer == RTNORM && piece.IsEnter()))
        return Failed(Errno::NullResponse);
    if (answer != RTNORM)
        return answer;
    id = ObjectIn(piece, database, picked);
    return id.isNull() || !id.isResident() || id.isErased() ? Failed(Errno::NothingFound) : RTNORM;
}

}   // namespace

int acedEntSel(const ACHAR* text, ads_name entity, ads_point picked)
{
    AcDbDatabase* database = CurrentDatabase();
    if (database == nullptr || entity == nullptr || picked == nullptr)
        return RTERROR;
    ads_name_clear(entity);
    AcDbObjectId id;
    const int answer = AskForOne(text, *database, id, picked);
    if (answer != RTNORM)
        return answer;
    return acdbGetAdsName(entity, id) == Acad::eOk ? RTNORM : RTERROR;
}

int acedNEntSelP(const ACHAR* text, ads_name entity, ads_point picked, int pickFlag, ads_matrix xform,
                 resbuf** containers)
{
    AcDbDatabase* database = CurrentDatabase();
    if (database == nullptr || entity == nullptr || picked == nullptr || xform == nullptr || containers == nullptr)
        return RTERROR;
    ads_name_clear(entity);
    *containers = nullptr;
    AcDbObjectId id;
    int answer = RTNORM;
    if (pickFlag == 0)
        answer = AskForOne(text, *database, id, picked);
    else if (id = ObjectAt(*database, AcGePoint2d(picked[X], picked[Y])); id.isNull())
        answer = Failed(Errno::NothingFound);
    if (answer != RTNORM)
        return answer;
    const NestedEntity found = NestedAt(id, AcGePoint2d(picked[X], picked[Y]));
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column)
            xform[row][column] = found.place(row, column);
    ChainBuilder chain;
    ads_name name;
    for (const AcDbObjectId container : found.containers)
        if (acdbGetAdsName(name, container) == Acad::eOk)
            chain.Add(NewNameRb(RTENAME, name));
    *containers = chain.Take();
    return acdbGetAdsName(entity, found.id) == Acad::eOk ? RTNORM : RTERROR;
}
