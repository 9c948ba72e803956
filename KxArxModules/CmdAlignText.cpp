// Texts moved so that one edge or their middle lines up: with a point, or with the first text picked.
#include "KxArxBase/DocumentLock.h"
#include "KxArxBase/GiPick.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxMessages.h"
#include "KxArxBase/Opened.h"
#include "KxCadBaseModule.h"

namespace KxArxModules {

using KxArxBase::CKxAcDb;
using KxArxBase::DocumentLock;
using KxArxBase::MsgCmdInfo;
using KxArxBase::Opened;

namespace {

struct Alignment {
    const wchar_t* keyword;
    bool isAcross;   // lines up in X, else in Y
    double share;    // of the text's extents, from the left or from the bottom
};

const Alignment g_alignments[] = {
    {L"Left", true, 0.0}, {L"Center", true, 0.5},  {L"Right", true, 1.0},
    {L"Top", false, 1.0}, {L"Middle", false, 0.5}, {L"Bottom", false, 0.0},
};

bool IsText(AcDbObjectId id)
{
    const AcRxClass* cls = id.objectClass();
    return cls != nullptr && (cls->isDerivedFrom(AcDbText::desc()) || cls->isDerivedFrom(AcDbMText::desc()));
}

AcDbObjectIdArray TextsOf(const AcDbObjectIdArray& ids)
{
    AcDbObjectIdArray texts;
    for (const AcDbObjectId& id : ids) {
        if (IsText(id))
            texts.append(id);
    }
    return texts;
}

// Null when the user gives up.
const Alignment* AskAlignment()
{
    acedInitGet(0, L"Left Center Right Top Middle Bottom");
    wchar_t keyword[MAX_PATH] = {};
    const int answer = acedGetKword(L"\n 对齐方式 [左(L)/中(C)/右(R)/上(T)/垂直居中(M)/下(B)]<左>：", keyword);
    if (answer == RTNONE)
        return &g_alignments[0];
    for (const Alignment& row : g_alignments) {
        if (answer == RTNORM && CString(keyword).CompareNoCase(row.keyword) == 0)
            return &row;
    }
    return nullptr;
}

bool PlaceOf(const AcDbEntity& text, const Alignment& alignment, double& place)
{
    AcDbExtents extents;
    if (text.getGeomExtents(extents) != Acad::eOk)
        return false;
    const AcGePoint3d low = extents.minPoint(), high = extents.maxPoint();
    place =
        alignment.isAcross ? low.x + (high.x - low.x) * alignment.share : low.y + (high.y - low.y) * alignment.share;
    return true;
}

// Where the texts shall line up; false when the user gives up.
bool AskPlace(AcDbObjectId first, const Alignment& alignment, double& place)
{
    acedInitGet(0, L"First");
    ads_point point = {0, 0, 0};
    const int answer = acedGetPoint(nullptr, L"\n 指定对齐点或 [以第一个文字为准(F)]<以第一个文字为准>：", point);
    if (answer == RTNORM) {
        place = alignment.isAcross ? point[X] : point[Y];
        return true;
    }
    const Opened<AcDbEntity> text(first, AcDb::kForRead);
    return (answer == RTNONE || answer == RTKWORD) && text && PlaceOf(*text.get(), alignment, place);
}

bool Align(AcDbObjectId id, const Alignment& alignment, double place)
{
    Opened<AcDbEntity> text(id, AcDb::kForRead);
    double now = 0.0;
    if (!text || !PlaceOf(*text.get(), alignment, now) || text->upgradeOpen() != Acad::eOk)
        return false;
    const AcGeVector3d way = alignment.isAcross ? AcGeVector3d(place - now, 0, 0) : AcGeVector3d(0, place - now, 0);
    return text->transformBy(AcGeMatrix3d::translation(way)) == Acad::eOk;
}

}   // namespace

void KxCadBaseModule::CmdKxAlignText()
{
    CKxAcDb db;
    const DocumentLock lock(db);
    AcDbObjectIdArray picked;
    if (KxArxBase::Gi::PickEntity(L"\n 选择要对齐的文字：", picked, -1, nullptr, 0) != RTNORM)
        return;
    const AcDbObjectIdArray texts = TextsOf(picked);
    if (texts.isEmpty()) {
        MsgCmdInfo(L"\n 没有选择文字。");
        return;
    }
    const Alignment* alignment = AskAlignment();
    double place = 0.0;
    if (alignment == nullptr || !AskPlace(texts.first(), *alignment, place))
        return;
    int aligned = 0;
    for (const AcDbObjectId& id : texts)
        aligned += Align(id, *alignment, place) ? 1 : 0;
    MsgCmdInfo(L"\n %d 个文字已对齐。", aligned);
}

}   // namespace KxArxModules
