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
    {L"-LAYER", ACRX_CMD_TRANSPARENT, LayerCommand},
    {L"-PURGE", ACRX_CMD_MODAL, PurgeCommand},
    {L"ARX", kSession, ArxCommand},
    {L"CLOSE", kSession, CloseCommand},
    {L"DXFOUT", kSession, DxfOutCommand},
    {L"ERASE", ACRX_CMD_USEPICKSET, EraseCommand},
    {L"HELP", kQuiet, HelpCommand},
    {L"LIST", ACRX_CMD_USEPICKSET | ACRX_CMD_NO_UNDO_MARKER, ListCommand},
    {L"NEW", kSession, NewCommand},
    {L"OPEN", kSession, OpenCommand},
    {L"QSAVE", kSession, QsaveCommand},
    {L"QUIT", kSession, QuitCommand},
    {L"RECOVER", kSession, RecoverCommand},
    {L"REDO", ACRX_CMD_NO_UNDO_MARKER, RedoCommand},
    {L"REGEN", ACRX_CMD_NO_UNDO_MARKER, RegenCommand},
    {L"REGENALL", ACRX_CMD_NO_UNDO_MARKER, RegenCommand},
    {L"SAVE", kSession, SaveCommand},
    {L"SAVEAS", kSession, SaveAsCommand},
    {L"SCRIPT", kSession, ScriptCommand},
    {L"SELECT", ACRX_CMD_USEPICKSET | ACRX_CMD_NO_UNDO_MARKER, SelectCommand},
    {L"SETVAR", ACRX_CMD_TRANSPARENT, SetVarCommand},
    {L"U", ACRX_CMD_NO_UNDO_MARKER, UCommand},
    {L"UNDO", ACRX_CMD_NO_UNDO_MARKER, UndoCommand},
};

struct AliasRow {
    const wchar_t* alias;
    const wchar_t* name;
};

const AliasRow g_aliases[] = {
    {L"-LA", L"-LAYER"},   {L"-PU", L"-PURGE"}, {L"?", L"HELP"},     {L"AP", L"ARX"},       {L"APPLOAD", L"ARX"},
    {L"DXFIN", L"OPEN"},   {L"E", L"ERASE"},    {L"EXIT", L"QUIT"},  {L"LA", L"-LAYER"},    {L"LAYER", L"-LAYER"},
    {L"LI", L"LIST"},      {L"LS", L"LIST"},    {L"PU", L"-PURGE"},  {L"PURGE", L"-PURGE"}, {L"RE", L"REGEN"},
    {L"REA", L"REGENALL"}, {L"SCR", L"SCRIPT"}, {L"SET", L"SETVAR"},
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
