// RECOVER: opens what can be had from a damaged drawing, tells what was wrong with it, and audits the rest.
#include "../../win/Format.h"
#include "../Session.h"
#include "HostCommands.h"
#include "Questions.h"

namespace KxPlat {

void RecoverCommand()
{
    const std::optional<std::wstring> name =
        AskFile(L"\nEnter name of drawing file to recover", L"Select File", L"", L"dwg;dxf", false);
    if (!name)
        return;
    AcApDocument* document = nullptr;
    std::wstring why;
    if (OpenDrawing(*name, document, why) != Acad::eOk)
        return FailCommand(*name + L": " + why);
    const ReadReport& report = LastReadReport();
    Ui().Print(L"\nDrawing recovery log.");
    for (const std::wstring& line : report.lines)
        Ui().Print(L"\n" + line);
    if (report.repairs > report.lines.size())
        Ui().Print(Format(L"\n... and %I64u more", report.repairs - report.lines.size()));
    Ui().Print(
        Format(L"\nTotal faults found %I64u, objects that could not be read %I64u.", report.repairs, report.lost));
    acDocManager->sendStringToExecute(document, L"_.AUDIT\n_Yes\n", true, false, true);
}

}   // namespace KxPlat
