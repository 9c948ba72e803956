// acedEntSel: one object, with the point at which it was picked.
#include "../../db/core/Stub.h"
#include "../../win/CharTables.h"
#include "../acedads.h"
#include "../Prompt.h"
#include "ChooseObjects.h"
#include "DocumentSelection.h"
#include "Errno.h"

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

}   // namespace

int acedEntSel(const ACHAR* text, ads_name entity, ads_point picked)
{
    AcDbDatabase* database = CurrentDatabase();
    if (database == nullptr || entity == nullptr || picked == nullptr)
        return RTERROR;
    ads_name_clear(entity);
    picked[X] = picked[Y] = picked[Z] = 0;
    Prompt prompt(InputKind::Entity, text != nullptr ? text : L"\nSelect object: ");
    InputPiece piece;
    const int answer = prompt.Next(piece);
    if (answer == RTNONE || (answer == RTNORM && piece.IsEnter()))
        return Failed(Errno::NullResponse);
    if (answer != RTNORM)
        return answer;
    const AcDbObjectId id = ObjectIn(piece, *database, picked);
    if (id.isNull() || !id.isResident() || id.isErased())
        return Failed(Errno::NothingFound);
    return acdbGetAdsName(entity, id) == Acad::eOk ? RTNORM : RTERROR;
}
