// SAVE, QSAVE, SAVEAS and DXFOUT.
#include "../../db/AcDbDatabase.h"
#include "../../db/core/BackUp.h"
#include "../../db/core/DbCore.h"
#include "../../win/CharTables.h"
#include "../../win/Files.h"
#include "../../win/Format.h"
#include "../Modules.h"
#include "../Prompt.h"
#include "../Session.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

namespace {

struct VersionRow {
    const wchar_t* keyword;
    AcDb::AcDbDwgVersion version;
};

const VersionRow g_versions[] = {
    {L"R12", AcDb::kDHL_1009},  {L"R13", AcDb::kDHL_1012},  {L"R14", AcDb::kDHL_1014},
    {L"2000", AcDb::kDHL_1015}, {L"2004", AcDb::kDHL_1018}, {L"2007", AcDb::kDHL_1021},
    {L"2010", AcDb::kDHL_1024}, {L"2013", AcDb::kDHL_1027}, {L"2018", AcDb::kDHL_1032},
};

AcApDocument& Document()
{
    return *acDocManager->mdiActiveDocument();
}

bool HasKnownExtension(const std::wstring& path)
{
    return FormatOf(path) != nullptr;
}

// A name without an extension takes that of the drawing, or the one given.
std::wstring Completed(const std::wstring& path, const wchar_t* extension)
{
    const size_t dot = path.find_last_of(L".\\/:");
    const bool hasExtension = dot != std::wstring::npos && path[dot] == L'.';
    return hasExtension ? path : path + extension;
}

const wchar_t* UsualExtension(const AcApDocument& document)
{
    return CoreOf(*document.database()).form.isDxf || FormatOf(L"x.dwg") == nullptr ? L".dxf" : L".dwg";
}

bool MayReplace(const AcApDocument& document, const std::wstring& path)
{
    const std::wstring full = FullDrivePath(path);
    const FileInfo info = FileInfoOf(HostPath(full));
    if (!info.exists || info.isFolder || (document.isNamedDrawing() && EqualNoCase(full, document.fileName())) ||
        IntegerVar(L"EXPERT") >= 2)
        return true;
    return AskYesNo(L"\nA drawing with this name already exists.\nDo you want to replace it? [Yes/No]", false);
}

std::optional<std::wstring> AskTarget(const AcApDocument& document)
{
    std::wstring initial = document.fileName();
    if (!document.isNamedDrawing())
        initial = initial.substr(0, initial.find_last_of(L'.')) + UsualExtension(document);
    std::optional<std::wstring> path = AskFile(L"\nSave drawing as", L"Save Drawing As", initial, L"dwg;dxf", true);
    if (path)
        path = Completed(*path, UsualExtension(document));
    return path && MayReplace(document, *path) ? path : std::nullopt;
}

std::wstring VersionList(const wchar_t* separator)
{
    std::wstring list;
    for (const VersionRow& row : g_versions)
        list += (list.empty() ? L"" : separator) + std::wstring(row.keyword);
    return list;
}

AcDb::AcDbDwgVersion VersionOf(AcApDocument& document)
{
    const AcDb::AcDbDwgVersion version = StateOf(document).saveVersion;
    return version != AcDb::kDHL_CURRENT ? version : document.database()->originalFileVersion();
}

const wchar_t* NameOfVersion(AcDb::AcDbDwgVersion version)
{
    for (const VersionRow& row : g_versions) {
        if (row.version == version)
            return row.keyword;
    }
    return L"";
}

// A DWG file that is replaced stays beside the new one; the exchange formats leave none.
bool KeepOldFile(const std::wstring& path)
{
    const bool isKept = EqualNoCase(FormatOf(path)->extension, L".dwg") && IntegerVar(L"ISAVEBAK") != 0;
    return !isKept || BackUpFile(FullDrivePath(path));
}

// What the file cannot be or hold, though the user asked for it.
void TellLosses(const std::wstring& path, AcDb::AcDbDwgVersion wanted)
{
    const AcDb::AcDbDwgVersion written = FormatOf(path)->written(wanted);
    if (written != wanted)
        Ui().Print(Format(L"\nThe file has version %s: version %s cannot be written.", NameOfVersion(written),
                          NameOfVersion(wanted)));
    if (const uint64_t dropped = LastWriteReport().dropped; dropped != 0)
        Ui().Print(Format(L"\n%I64u objects that this version cannot hold were left out.", dropped));
}

bool Save(AcApDocument& document, const std::wstring& path, AcDb::AcDbDwgVersion version)
{
    SendToModules(AcRx::kSaveMsg, &document);
    LastWriteReport() = WriteReport();
    std::wstring why;
    if (!HasKnownExtension(path)) {
        why = L"no drawing file format has this extension";
    } else if (!KeepOldFile(path)) {
        why = L"the backup cannot be written";
    } else if (SaveDrawing(document, path, version, why) == Acad::eOk) {
        TellLosses(path, version != AcDb::kDHL_CURRENT ? version : VersionOf(document));
        return true;
    }
    FailCommand(path + L": " + why);
    return false;
}

// False when the user cancelled. Enter keeps the drawing's own version.
bool AskVersion(AcApDocument& document, AcDb::AcDbDwgVersion& version)
{
    std::wstring present = L"2010";
    for (const VersionRow& row : g_versions) {
        if (row.version == VersionOf(document))
            present = row.keyword;
    }
    acedInitGet(0, VersionList(L" ").c_str());
    ACHAR answer[512] = L"";
    const std::wstring prompt = L"\nEnter file format [" + VersionList(L"/") + L"] <" + present + L">: ";
    const int result = acedGetKword(prompt.c_str(), answer);
    for (const VersionRow& row : g_versions) {
        if (result == RTNORM && EqualNoCase(answer, row.keyword))
            version = row.version;
    }
    return result == RTNORM || result == RTNONE;
}

}   // namespace

void SaveCommand()
{
    AcApDocument& document = Document();
    const std::optional<std::wstring> path = AskTarget(document);
    if (path && Save(document, *path, AcDb::kDHL_CURRENT) && !document.isNamedDrawing())
        RenameDocument(document, *path);
}

void QsaveCommand()
{
    AcApDocument& document = Document();
    if (!document.isNamedDrawing())
        return SaveAsCommand();
    Save(document, document.fileName(), AcDb::kDHL_CURRENT);
}

void SaveAsCommand()
{
    AcApDocument& document = Document();
    AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT;
    if (!AskVersion(document, version))
        return;
    const std::optional<std::wstring> path = AskTarget(document);
    if (!path || !Save(document, *path, version))
        return;
    if (version != AcDb::kDHL_CURRENT)
        StateOf(document).saveVersion = version;
    RenameDocument(document, *path);
}

// Decimals of accuracy, with Binary and Version as options in front.
void DxfOutCommand()
{
    AcApDocument& document = Document();
    const std::wstring name = document.fileName();
    const std::optional<std::wstring> given = AskFile(L"\nEnter name of DXF file", L"Save DXF",
                                                      name.substr(0, name.find_last_of(L'.')) + L".dxf", L"dxf", true);
    if (!given)
        return;
    const std::wstring path = Completed(*given, L".dxf");
    bool isBinary = false;
    AcDb::AcDbDwgVersion version = VersionOf(document);
    int decimals = 16;
    for (;;) {
        acedInitGet(RSG_NONEG, L"Binary Version");
        const int answer =
            acedGetInt(L"\nEnter decimal places of accuracy (0 to 16) or [Binary/Version] <16>: ", &decimals);
        if (answer == RTCAN || answer == RTERROR)
            return;
        if (answer != RTKWORD)
            break;
        ACHAR keyword[512] = L"";
        acedGetInput(keyword);
        isBinary = keyword[0] == L'B';
        if (isBinary)
            break;
        if (!AskVersion(document, version))
            return;
    }
    if (!MayReplace(document, path))
        return;
    const FileFormat* format = FormatOf(path);
    if (format == nullptr ||
        format->write(*document.database(), FullDrivePath(path).c_str(), version, isBinary, decimals) != Acad::eOk)
        FailCommand(path + L": it cannot be written");
}

}   // namespace KxPlat
