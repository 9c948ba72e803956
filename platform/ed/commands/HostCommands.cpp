#include "HostCommands.h"
#include "../AcEdCommandStack.h"
#include "../CommandLine.h"

namespace KxPlat {

namespace {

struct CommandRow {
    const wchar_t* name;
    Adesk::Int32 flags;
    void (*run)();
};

// What works on documents as wholes takes no lock and no undo mark.
constexpr Adesk::Int32 kSession = ACRX_CMD_SESSION | ACRX_CMD_NO_UNDO_MARKER;
constexpr Adesk::Int32 kQuiet = ACRX_CMD_TRANSPARENT | ACRX_CMD_NO_UNDO_MARKER;

const CommandRow g_rows[] = {
    {L"-BLOCK", ACRX_CMD_MODAL, BlockCommand},
    {L"-COLOR", ACRX_CMD_TRANSPARENT, ColorCommand},
    {L"-GROUP", ACRX_CMD_USEPICKSET, GroupCommand},
    {L"-INSERT", ACRX_CMD_MODAL, InsertCommand},
    {L"-LAYER", ACRX_CMD_TRANSPARENT, LayerCommand},
    {L"-PURGE", ACRX_CMD_MODAL, PurgeCommand},
    {L"-RENAME", ACRX_CMD_MODAL, RenameCommand},
    {L"-XREF", ACRX_CMD_MODAL, XrefCommand},
    {L"ARC", ACRX_CMD_MODAL, ArcCommand},
    {L"AREA", ACRX_CMD_NO_UNDO_MARKER, AreaCommand},
    {L"ARX", kSession, ArxCommand},
    {L"AUDIT", ACRX_CMD_MODAL, AuditCommand},
    {L"CHANGE", ACRX_CMD_USEPICKSET, ChangeCommand},
    {L"CHPROP", ACRX_CMD_USEPICKSET, ChpropCommand},
    {L"CIRCLE", ACRX_CMD_MODAL, CircleCommand},
    {L"CLOSE", kSession, CloseCommand},
    {L"COPY", ACRX_CMD_USEPICKSET, CopyCommand},
    {L"DELAY", kQuiet, DelayCommand},
    {L"DIST", kQuiet, DistCommand},
    {L"DRAWORDER", ACRX_CMD_USEPICKSET, DrawOrderCommand},
    {L"DXFOUT", kSession, DxfOutCommand},
    {L"ERASE", ACRX_CMD_USEPICKSET, EraseCommand},
    {L"EXPLODE", ACRX_CMD_USEPICKSET, ExplodeCommand},
    {L"HELP", kQuiet, HelpCommand},
    {L"ID", kQuiet, IdCommand},
    {L"LINE", ACRX_CMD_MODAL, LineCommand},
    {L"LIST", ACRX_CMD_USEPICKSET | ACRX_CMD_NO_UNDO_MARKER, ListCommand},
    {L"MIRROR", ACRX_CMD_USEPICKSET, MirrorCommand},
    {L"MOVE", ACRX_CMD_USEPICKSET, MoveCommand},
    {L"MULTIPLE", ACRX_CMD_NO_UNDO_MARKER, MultipleCommand},
    {L"NETLOAD", kSession, NetloadCommand},
    {L"NEW", kSession, NewCommand},
    {L"OOPS", ACRX_CMD_MODAL, OopsCommand},
    {L"OPEN", kSession, OpenCommand},
    {L"PLINE", ACRX_CMD_MODAL, PlineCommand},
    {L"POINT", ACRX_CMD_MODAL, PointCommand},
    {L"QSAVE", kSession, QsaveCommand},
    {L"QUIT", kSession, QuitCommand},
    {L"RECOVER", kSession, RecoverCommand},
    {L"RECTANG", ACRX_CMD_MODAL, RectangCommand},
    {L"REDEFINE", ACRX_CMD_NO_UNDO_MARKER, RedefineCommand},
    {L"REDO", ACRX_CMD_NO_UNDO_MARKER, RedoCommand},
    {L"REDRAW", kQuiet, RedrawCommand},
    {L"REGEN", ACRX_CMD_NO_UNDO_MARKER, RegenCommand},
    {L"REGENALL", ACRX_CMD_NO_UNDO_MARKER, RegenCommand},
    {L"RESUME", kQuiet, ResumeCommand},
    {L"ROTATE", ACRX_CMD_USEPICKSET, RotateCommand},
    {L"SAVE", kSession, SaveCommand},
    {L"SAVEAS", kSession, SaveAsCommand},
    {L"SCALE", ACRX_CMD_USEPICKSET, ScaleCommand},
    {L"SCRIPT", kSession, ScriptCommand},
    {L"SELECT", ACRX_CMD_USEPICKSET | ACRX_CMD_NO_UNDO_MARKER, SelectCommand},
    {L"SETVAR", ACRX_CMD_TRANSPARENT, SetVarCommand},
    {L"TEXT", ACRX_CMD_MODAL, TextCommand},
    {L"U", ACRX_CMD_NO_UNDO_MARKER, UCommand},
    {L"UCS", ACRX_CMD_NO_UNDO_MARKER, UcsCommand},
    {L"UNDEFINE", ACRX_CMD_NO_UNDO_MARKER, UndefineCommand},
    {L"UNDO", ACRX_CMD_NO_UNDO_MARKER, UndoCommand},
    {L"ZOOM", kQuiet, ZoomCommand},
};

struct AliasRow {
    const wchar_t* alias;
    const wchar_t* name;
};

const AliasRow g_aliases[] = {
    {L"-B", L"-BLOCK"},        {L"-CH", L"CHANGE"},   {L"-DRAWORDER", L"DRAWORDER"},
    {L"-G", L"-GROUP"},        {L"-I", L"-INSERT"},   {L"-LA", L"-LAYER"},
    {L"-LI", L"LIST"},         {L"-PU", L"-PURGE"},   {L"-TEXT", L"TEXT"},
    {L"-XR", L"-XREF"},        {L"?", L"HELP"},       {L"A", L"ARC"},
    {L"AA", L"AREA"},          {L"AP", L"ARX"},       {L"APPLOAD", L"ARX"},
    {L"B", L"-BLOCK"},         {L"BLOCK", L"-BLOCK"}, {L"C", L"CIRCLE"},
    {L"CO", L"COPY"},          {L"COL", L"-COLOR"},   {L"COLOR", L"-COLOR"},
    {L"COLOUR", L"-COLOR"},    {L"CP", L"COPY"},      {L"DI", L"DIST"},
    {L"DR", L"DRAWORDER"},     {L"DT", L"TEXT"},      {L"DTEXT", L"TEXT"},
    {L"DXFIN", L"OPEN"},       {L"E", L"ERASE"},      {L"EXIT", L"QUIT"},
    {L"G", L"-GROUP"},         {L"GROUP", L"-GROUP"}, {L"I", L"-INSERT"},
    {L"INSERT", L"-INSERT"},   {L"L", L"LINE"},       {L"LA", L"-LAYER"},
    {L"LAYER", L"-LAYER"},     {L"LI", L"LIST"},      {L"LS", L"LIST"},
    {L"M", L"MOVE"},           {L"MI", L"MIRROR"},    {L"PL", L"PLINE"},
    {L"PO", L"POINT"},         {L"PU", L"-PURGE"},    {L"PURGE", L"-PURGE"},
    {L"R", L"REDRAW"},         {L"RA", L"REDRAW"},    {L"RE", L"REGEN"},
    {L"REA", L"REGENALL"},     {L"REC", L"RECTANG"},  {L"RECTANGLE", L"RECTANG"},
    {L"REDRAWALL", L"REDRAW"}, {L"REN", L"-RENAME"},  {L"RENAME", L"-RENAME"},
    {L"RO", L"ROTATE"},        {L"SC", L"SCALE"},     {L"SCR", L"SCRIPT"},
    {L"SET", L"SETVAR"},       {L"X", L"EXPLODE"},    {L"XA", L"-XREF"},
    {L"XR", L"-XREF"},         {L"XREF", L"-XREF"},   {L"Z", L"ZOOM"},
};

}   // namespace

void AddHostCommands(AcEdCommandStack& stack)
{
    for (const CommandRow& row : g_rows)
        stack.addCommand(L"ACAD_MAIN", row.name, row.name, row.flags, row.run);
}

std::wstring AliasOf(const std::wstring& name)
{
    for (const AliasRow& row : g_aliases) {
        if (name == row.alias)
            return row.name;
    }
    return name;
}

}   // namespace KxPlat
