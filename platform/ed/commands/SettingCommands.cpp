// Commands that set, name or show something of the drawing as a whole: COLOR, RENAME, UCS, ZOOM and REDRAW.
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbSymbolTable.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"
#include "../../ui/ViewRequest.h"
#include "../lisp/NumberTexts.h"
#include "../Prompt.h"
#include "../Session.h"
#include "EntityTools.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

namespace {

struct TableRow {
    const wchar_t* keyword;
    const wchar_t* singular;
    TableKind kind;
};

const TableRow g_tables[] = {
    {L"Block", L"block", TableKind::Block},
    {L"Dimstyle", L"dimension style", TableKind::DimStyle},
    {L"LAyer", L"layer", TableKind::Layer},
    {L"LType", L"linetype", TableKind::Linetype},
    {L"Style", L"text style", TableKind::TextStyle},
    {L"Ucs", L"UCS", TableKind::Ucs},
    {L"VIew", L"view", TableKind::View},
};

void RenameIn(const TableRow& row)
{
    const std::wstring what = row.singular;
    const std::optional<std::wstring> old = AskLine(L"\nEnter old " + what + L" name: ");
    if (!old || old->empty())
        return;
    const AcDbSymbolTable& table = *CoreOf(WorkingDatabase()).Table(row.kind);
    const AcDbObjectId id = table.find(*old);
    if (id.isNull())
        return FailCommand(L"Cannot find " + what + L" \"" + *old + L"\".");
    const std::optional<std::wstring> name = AskLine(L"\nEnter new " + what + L" name: ");
    if (!name || name->empty())
        return;
    AcDbSymbolTableRecord* record = nullptr;
    Acad::ErrorStatus status = acdbOpenObject(record, id, AcDb::kForWrite);
    if (status == Acad::eOk) {
        status = table.find(*name) != nullptr ? Acad::eDuplicateRecordName : record->setName(name->c_str());
        record->close();
    }
    if (status != Acad::eOk)
        FailCommand(L"Cannot rename " + what + L" \"" + *old + L"\" to \"" + *name + L"\".");
}

// What each way of zooming asks for: points, or a text.
struct ZoomRow {
    const wchar_t* keyword;
    ViewRequest::Kind kind;
    int points;
    const wchar_t* text;   // null: no number is asked
};

const ZoomRow g_zooms[] = {
    {L"All", ViewRequest::Kind::All, 0, nullptr},
    {L"Center", ViewRequest::Kind::Center, 1, L"\nEnter magnification or height: "},
    {L"Extents", ViewRequest::Kind::Extents, 0, nullptr},
    {L"Previous", ViewRequest::Kind::Previous, 0, nullptr},
    {L"Scale", ViewRequest::Kind::Scale, 0, L"\nEnter a scale factor (nX or nXP): "},
    {L"Window", ViewRequest::Kind::Window, 2, nullptr},
};

// "2" or "0.5x"; false for what is neither.
bool ReadFactor(std::wstring text, ViewRequest& request)
{
    const size_t x = text.find_first_of(L"xX");
    request.isRelative = x != std::wstring::npos;
    text = text.substr(0, x);
    return LengthIn(text, request.number) && request.number > 0;
}

// False when the user gave up.
bool AskCorner(ViewRequest& request, int at)
{
    const PointAnswer answer = AskPoint(at == 0 ? L"\nSpecify a point: " : L"\nSpecify opposite corner: ");
    request.points[at][0] = answer.point.x;
    request.points[at][1] = answer.point.y;
    return answer.isPoint();
}

bool AskZoom(const ZoomRow& row, ViewRequest& request)
{
    request.kind = row.kind;
    for (int at = 0; at < row.points; ++at)
        if (!AskCorner(request, at))
            return false;
    if (row.text == nullptr)
        return true;
    const std::optional<std::wstring> number = AskLine(row.text);
    return number && ReadFactor(*number, request);
}

}   // namespace

void ColorCommand()
{
    const std::optional<std::wstring> name = AskLine(L"\nEnter default object color <" + TextVar(L"CECOLOR") + L">: ");
    if (name && !name->empty() && SetVar(L"CECOLOR", VarOf(*name)) != VarAnswer::Done)
        FailCommand(L"Invalid color \"" + *name + L"\".");
}

void RenameCommand()
{
    const std::wstring kind = AskKeyword(L"\nEnter object type to rename [Block/Dimstyle/LAyer/LType/Style/Ucs/VIew]: ",
                                         L"Block Dimstyle LAyer LType Style Ucs VIew");
    for (const TableRow& row : g_tables) {
        if (kind == row.keyword)
            RenameIn(row);
    }
}

// The world is the only coordinate system.
void UcsCommand()
{
    const PointAnswer answer = AskPoint(L"\nSpecify origin of UCS or [World] <World>: ", nullptr, L"World Previous");
    const bool isOrigin = answer.isPoint() && answer.point == AcGePoint3d::kOrigin;
    if (answer.isPoint() && !isOrigin)
        FailCommand(L"The world is the only coordinate system.");
}

// The view is the host window's. Without one all is asked none the less, so that scripts run everywhere.
void ZoomCommand()
{
    acedInitGet(RSG_OTHER, L"All Center Extents Previous Scale Window");
    ads_point point;
    const int answer = acedGetPoint(nullptr,
                                    L"\nSpecify corner of window, enter a scale factor (nX or nXP), or "
                                    L"[All/Center/Extents/Previous/Scale/Window] <real time>: ",
                                    point);
    ViewRequest request;
    bool isWhole = false;
    if (answer == RTNORM) {
        request.kind = ViewRequest::Kind::Window;
        request.points[0][0] = point[X];
        request.points[0][1] = point[Y];
        isWhole = AskCorner(request, 1);
    } else if (answer == RTKWORD) {
        ACHAR typed[512] = L"";
        acedGetInput(typed);
        request.kind = ViewRequest::Kind::Scale;
        isWhole = ReadFactor(typed, request);
        for (const ZoomRow& row : g_zooms)
            if (std::wstring_view(typed) == row.keyword)
                isWhole = AskZoom(row, request);
    }
    if (isWhole)
        RequestView(request);
    Ui().Regenerated();
}

void RedrawCommand()
{
    Ui().Regenerated();
}

}   // namespace KxPlat
