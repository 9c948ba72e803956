// System variables with a meaning to the platform: asked from what they describe, and set there.
#include "../ap/Documents.h"
#include "../db/AcDbBlockTableRecord.h"
#include "../db/AcDbDatabase.h"
#include "../db/AcDbDictionary.h"
#include "../db/AcDbSymbolTable.h"
#include "../db/core/DbCore.h"
#include "../db/core/Stub.h"
#include "../win/CharTables.h"
#include "../win/Files.h"
#include "../win/WinSystem.h"
#include "ColorText.h"
#include "EditorState.h"
#include "Session.h"
#include "SupportFiles.h"
#include "SysVars.h"
#include <ctime>
#include <iterator>

namespace KxPlat {

namespace {

using enum VarType;
using enum VarHome;

std::wstring RecordName(AcDbObjectId id)
{
    const AcDbStub* stub = id;
    const auto* record = stub != nullptr ? AcDbSymbolTableRecord::cast(stub->object) : nullptr;
    const ACHAR* name = nullptr;
    return record != nullptr && record->getName(name) == Acad::eOk ? name : L"";
}

template <AcDbObjectId (AcDbDatabase::*Current)() const>
bool GetRecord(AcApDocument& document, VarValue& value)
{
    value = VarOf(RecordName((document.database()->*Current)()));
    return true;
}

template <TableKind Kind, Acad::ErrorStatus (AcDbDatabase::*Make)(AcDbObjectId)>
bool SetRecord(AcApDocument& document, const VarValue& value)
{
    const AcDbStub* record = CoreOf(*document.database()).Table(Kind)->find(value.text);
    return record != nullptr && (document.database()->*Make)(AcDbObjectId(const_cast<AcDbStub*>(record))) == Acad::eOk;
}

bool GetColor(AcApDocument& document, VarValue& value)
{
    const AcCmColor color = document.database()->cecolor();
    if (color.isByColor())
        value = VarOf(L"RGB:" + std::to_wstring(color.red()) + L"," + std::to_wstring(color.green()) + L"," +
                      std::to_wstring(color.blue()));
    else
        value = VarOf(color.isByLayer()   ? L"BYLAYER"
                      : color.isByBlock() ? L"BYBLOCK"
                                          : std::to_wstring(color.colorIndex()));
    return true;
}

bool SetColor(AcApDocument& document, const VarValue& value)
{
    AcCmColor color;
    return ColorFromText(value.text, color) && document.database()->setCecolor(color) == Acad::eOk;
}

bool GetTileMode(AcApDocument& document, VarValue& value)
{
    value = VarOf(document.database()->tilemode() ? 1 : 0);
    return true;
}

bool SetTileMode(AcApDocument& document, const VarValue& value)
{
    return document.database()->setTilemode(value.integer != 0) == Acad::eOk;
}

bool GetSpace(AcApDocument& document, VarValue& value)
{
    value = VarOf(document.database()->tilemode() ? 0 : 1);
    return true;
}

bool GetLayout(AcApDocument& document, VarValue& value)
{
    value = VarOf(document.database()->tilemode() ? L"Model" : L"Layout1");
    AcDbDictionary* layouts = nullptr;
    if (document.database()->tilemode() || document.database()->getLayoutDictionary(layouts) != Acad::eOk)
        return true;
    const AcDbStub* space = document.database()->currentSpaceId();
    const auto* record = AcDbBlockTableRecord::cast(space->object);
    ACHAR* name = nullptr;
    if (record != nullptr && layouts->nameAt(record->getLayoutId(), name) == Acad::eOk) {
        value = VarOf(name);
        acutDelString(name);
    }
    layouts->close();
    return true;
}

bool GetDbMod(AcApDocument& document, VarValue& value)
{
    value = VarOf(CoreOf(*document.database()).modified);
    return true;
}

bool GetDrawingName(AcApDocument& document, VarValue& value)
{
    value = VarOf(document.docTitle());
    return true;
}

bool GetDrawingFolder(AcApDocument& document, VarValue& value)
{
    const std::wstring path = document.isNamedDrawing() ? document.fileName() : FullDrivePath(L".") + L"\\";
    value = VarOf(path.substr(0, path.find_last_of(L'\\') + 1));
    return true;
}

bool GetDrawingTitled(AcApDocument& document, VarValue& value)
{
    value = VarOf(document.isNamedDrawing() ? 1 : 0);
    return true;
}

bool GetWriteState(AcApDocument& document, VarValue& value)
{
    value = VarOf(document.isReadOnly() ? 0 : 1);
    return true;
}

// Bits: 1 a command runs, 2 a transparent one as well.
bool GetActive(AcApDocument&, VarValue& value)
{
    const EditorState* editor = TheEditor();
    value = VarOf(editor == nullptr || editor->running.empty() ? 0 : editor->TransparentDepth() > 0 ? 3 : 1);
    return true;
}

bool GetCommandNames(AcApDocument&, VarValue& value)
{
    std::wstring names;
    if (const EditorState* editor = TheEditor()) {
        for (const RunningCommand& command : editor->running)
            names += (names.empty() ? L"" : L"'") + command.globalName;
    }
    value = VarOf(names);
    return true;
}

bool GetErrorNumber(AcApDocument&, VarValue& value)
{
    value = VarOf(TheEditor() != nullptr ? TheEditor()->errorNumber : 0);
    return true;
}

bool SetErrorNumber(AcApDocument&, const VarValue& value)
{
    if (TheEditor() != nullptr)
        TheEditor()->errorNumber = value.integer;
    return true;
}

bool GetSupportPath(AcApDocument&, VarValue& value)
{
    value = VarOf(SupportPath());
    return true;
}

bool GetTempFolder(AcApDocument&, VarValue& value)
{
    value = VarOf(DrivePath(TempFolder()) + L"\\");
    return true;
}

std::tm LocalTime()
{
    const std::time_t now = std::time(nullptr);
    const std::tm* parts = std::localtime(&now);
    return parts != nullptr ? *parts : std::tm();
}

// Days since noon of the first day of the Julian calendar, and as YYYYMMDD.HHMMSS.
double JulianDay(const std::tm& parts)
{
    const int month = parts.tm_mon + 1, year = parts.tm_year + 1900;
    const int shift = (14 - month) / 12, years = year + 4800 - shift, months = month + 12 * shift - 3;
    const int day =
        parts.tm_mday + (153 * months + 2) / 5 + 365 * years + years / 4 - years / 100 + years / 400 - 32045;
    return day + (parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec) / 86400.0;
}

bool GetDate(AcApDocument&, VarValue& value)
{
    value.type = Real;
    value.real[0] = JulianDay(LocalTime());
    return true;
}

bool GetCalendarDate(AcApDocument&, VarValue& value)
{
    const std::tm parts = LocalTime();
    value.type = Real;
    value.real[0] = (parts.tm_year + 1900) * 10000.0 + (parts.tm_mon + 1) * 100 + parts.tm_mday + parts.tm_hour / 1e2 +
                    parts.tm_min / 1e4 + parts.tm_sec / 1e6;
    return true;
}

bool GetMilliseconds(AcApDocument&, VarValue& value)
{
    value.type = Long;
    value.integer = int(GetTickCount());
    return true;
}

bool GetWeight(AcApDocument& document, VarValue& value)
{
    value = VarOf(int(CoreOf(*document.database()).header.Integer("$CELWEIGHT", -1)));
    return true;
}

bool SetWeight(AcApDocument& document, const VarValue& value)
{
    DbCore& core = CoreOf(*document.database());
    core.undo.ChangingHeader(core.header, "$CELWEIGHT");
    core.header.SetInteger("$CELWEIGHT", 370, value.integer);
    return true;
}

bool GetSecureLoad(AcApDocument&, VarValue& value)
{
    value = VarOf(TheEditor() != nullptr ? TheEditor()->secureLoad : 1);
    return true;
}

bool SetSecureLoad(AcApDocument&, const VarValue& value)
{
    if (TheEditor() != nullptr)
        TheEditor()->secureLoad = value.integer;
    return SetSetting(L"SECURELOAD", std::to_wstring(value.integer));
}

bool GetTrustedPaths(AcApDocument&, VarValue& value)
{
    value = VarOf(Setting(L"TRUSTEDPATHS"));
    return true;
}

bool SetTrustedPaths(AcApDocument&, const VarValue& value)
{
    return SetSetting(L"TRUSTEDPATHS", value.text);
}

const VarRow kRows[] = {
    {L"ACADPREFIX", Text, Computed, L"", 0, 0, true, 0, GetSupportPath},
    {L"CDATE", Real, Computed, L"0", 0, 0, true, 0, GetCalendarDate},
    {L"CECOLOR", Text, Computed, L"", 0, 0, false, 0, GetColor, SetColor},
    {L"CELTYPE", Text, Computed, L"", 0, 0, false, 0, GetRecord<&AcDbDatabase::celtype>,
     SetRecord<TableKind::Linetype, &AcDbDatabase::setCeltype>},
    {L"CELWEIGHT", Short, Computed, L"-1", -3, 211, false, 0, GetWeight, SetWeight},
    {L"CLAYER", Text, Computed, L"", 0, 0, false, 0, GetRecord<&AcDbDatabase::clayer>,
     SetRecord<TableKind::Layer, &AcDbDatabase::setClayer>},
    {L"CMDACTIVE", Short, Computed, L"0", 0, 0, true, 0, GetActive},
    {L"CMDNAMES", Text, Computed, L"", 0, 0, true, 0, GetCommandNames},
    {L"CTAB", Text, Computed, L"", 0, 0, true, 0, GetLayout},
    {L"CVPORT", Short, Computed, L"2", 0, 0, true, 0, GetSpace},
    {L"DATE", Real, Computed, L"0", 0, 0, true, 0, GetDate},
    {L"DBMOD", Short, Computed, L"0", 0, 0, true, 0, GetDbMod},
    {L"DIMSTYLE", Text, Computed, L"", 0, 0, true, 0, GetRecord<&AcDbDatabase::dimstyle>},
    {L"DWGNAME", Text, Computed, L"", 0, 0, true, 0, GetDrawingName},
    {L"DWGPREFIX", Text, Computed, L"", 0, 0, true, 0, GetDrawingFolder},
    {L"DWGTITLED", Short, Computed, L"0", 0, 0, true, 0, GetDrawingTitled},
    {L"ERRNO", Short, Computed, L"0", 0, 0, false, 0, GetErrorNumber, SetErrorNumber},
    {L"MILLISECS", Long, Computed, L"0", 0, 0, true, 0, GetMilliseconds},
    {L"SECURELOAD", Short, Computed, L"1", 0, 2, false, 0, GetSecureLoad, SetSecureLoad},
    {L"TRUSTEDPATHS", Text, Computed, L"", 0, 0, false, 0, GetTrustedPaths, SetTrustedPaths},
    {L"TEMPPREFIX", Text, Computed, L"", 0, 0, true, 0, GetTempFolder},
    {L"TEXTSTYLE", Text, Computed, L"", 0, 0, false, 0, GetRecord<&AcDbDatabase::textstyle>,
     SetRecord<TableKind::TextStyle, &AcDbDatabase::setTextstyle>},
    {L"TILEMODE", Short, Computed, L"1", 0, 1, false, 0, GetTileMode, SetTileMode},
    {L"WRITESTAT", Short, Computed, L"1", 0, 0, true, 0, GetWriteState},
};

}   // namespace

const VarTable kComputedVars = {kRows, std::size(kRows)};

}   // namespace KxPlat
