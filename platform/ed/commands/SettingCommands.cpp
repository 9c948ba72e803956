// Commands that set, name or show something of the drawing as a whole: COLOR, RENAME, UCS, ZOOM and REDRAW.
#include "../../db/AcDbDatabase.h"
#include "../../db/AcDbSymbolTable.h"
#include "../../db/core/DbCore.h"
#include "../../db/core/Stub.h"
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
    int points;
    const wchar_t* text;
};

const ZoomRow g_zooms[] = {
    {L"All", 0, nullptr},      {L"Center", 1, L"\nEnter magnification or height: "},   {L"Extents", 0, nullptr},
    {L"Previous", 0, nullptr}, {L"Scale", 0, L"\nEnter a scale factor (nX or nXP): "}, {L"Window", 2, nullptr},
};

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

// There is no view to change; what the question takes is taken, so that scripts run as they do elsewhere.
void ZoomCommand()
{
    acedInitGet(RSG_OTHER, L"All Center Extents Previous Scale Window");
    ads_point point;
    const int answer = acedGetPoint(nullptr,
                                    L"\nSpecify corner of window, enter a scale factor (nX or nXP), or "
                                    L"[All/Center/Extents/Previous/Scale/Window] <real time>: ",
                                    point);
    ACHAR keyword[512] = L"";
    if (answer == RTNORM)
        AskPoint(L"\nSpecify opposite corner: ");
    else if (answer == RTKWORD)
        acedGetInput(keyword);
    for (const ZoomRow& row : g_zooms) {
        if (std::wstring_view(keyword) != row.keyword)
            continue;
        for (int i = 0; i < row.points; ++i)
            AskPoint(L"\nSpecify a point: ");
        if (row.text != nullptr)
            AskLine(row.text);
    }
    Ui().Regenerated();
}

void RedrawCommand()
{
    Ui().Regenerated();
}

}   // namespace KxPlat
