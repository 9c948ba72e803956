// NEW, OPEN, CLOSE and QUIT.
#include "../../db/AcDbDatabase.h"
#include "../../db/core/DbCore.h"
#include "../../win/Format.h"
#include "../Session.h"
#include "../SupportFiles.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

namespace {

bool IsModified(const AcApDocument& document)
{
    return CoreOf(*document.database()).modified != 0;
}

bool MayDiscard(const AcApDocument& document)
{
    if (!IsModified(document))
        return true;
    return AskYesNo(
        std::wstring(L"\nReally want to discard all changes to drawing ") + document.docTitle() + L"? [Yes/No]", false);
}

// The name as given, or with the first extension under which there is such a file.
std::wstring DrawingFile(const std::wstring& name)
{
    for (const wchar_t* extension : {L"", L".dwg", L".dxf"}) {
        std::wstring found = FindSupportFile(name + extension);
        if (!found.empty())
            return found;
    }
    return name;
}

}   // namespace

void NewCommand()
{
    std::optional<std::wstring> name = AskLine(L"\nEnter template file name or [. (for none)] <.>: ");
    if (!name)
        return;
    if (*name == L".")
        name->clear();
    AcApDocument* document = nullptr;
    std::wstring why;
    if (NewDrawing(name->empty() ? *name : DrawingFile(*name), document, why) != Acad::eOk)
        FailCommand(*name + L": " + why);
}

void OpenCommand()
{
    const std::optional<std::wstring> name =
        AskFile(L"\nEnter name of drawing to open", L"Select File", L"", L"dwg;dxf", false);
    if (!name)
        return;
    AcApDocument* document = nullptr;
    std::wstring why;
    if (OpenDrawing(DrawingFile(*name), document, why) != Acad::eOk)
        return FailCommand(*name + L": " + why);
    const ReadReport& report = LastReadReport();
    if (report.repairs != 0)
        Ui().Print(Format(L"\n%I64u faults were mended, the first: %s", report.repairs, report.firstRepair.c_str()));
}

// There is always a drawing: behind the last one a new one comes up.
void CloseCommand()
{
    AcApDocument* document = acDocManager->mdiActiveDocument();
    if (document == nullptr || !MayDiscard(*document))
        return;
    acDocManager->closeDocument(document);
    std::wstring why;
    if (OpenDocuments().empty())
        NewDrawing(L"", document, why);
}

void QuitCommand()
{
    for (const AcApDocument* document : OpenDocuments()) {
        if (!MayDiscard(*document))
            return;
    }
    Session::Current()->Quit();
}

}   // namespace KxPlat
