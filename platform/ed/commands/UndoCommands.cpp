// U, REDO and UNDO. A step is a whole command.
#include "../../db/AcDbDatabase.h"
#include "../../db/core/DbCore.h"
#include "../../win/Format.h"
#include "../Prompt.h"
#include "../Session.h"
#include "HostCommands.h"
#include <algorithm>

namespace KxPlat {

namespace {

// How many steps there were when the user set each mark.
struct UndoMarks : DocumentPart {
    std::vector<size_t> depths;
};

AcApDocument& Document()
{
    return *acDocManager->curDocument();
}

DbCore& Core()
{
    return CoreOf(*Document().database());
}

bool StepBack()
{
    CString name;
    if (!Core().undo.Undo(Core().header, name))
        return false;
    Ui().Print(std::wstring(L"\n") + name.GetString());
    return true;
}

void StepsBack(size_t steps)
{
    size_t done = 0;
    while (done < steps && StepBack())
        ++done;
    if (done < steps)
        Ui().Print(done == 0 ? L"\nNothing to undo" : L"\nEverything has been undone");
    std::vector<size_t>& marks = PartOf<UndoMarks>(Document()).depths;
    while (!marks.empty() && marks.back() > Core().undo.UndoDepth())
        marks.pop_back();
    Ui().Regenerated();
}

void BackToMark()
{
    std::vector<size_t>& marks = PartOf<UndoMarks>(Document()).depths;
    const size_t depth = marks.empty() ? 0 : marks.back();
    if (marks.empty())
        Ui().Print(L"\nThis will undo everything.");
    else
        marks.pop_back();
    StepsBack(Core().undo.UndoDepth() - std::min(depth, Core().undo.UndoDepth()));
}

}   // namespace

void UCommand()
{
    StepsBack(1);
}

void RedoCommand()
{
    CString name;
    if (!Core().undo.Redo(Core().header, name)) {
        Ui().Print(L"\nNothing to redo");
        return;
    }
    Ui().Print(std::wstring(L"\n") + name.GetString());
    Ui().Regenerated();
}

void UndoCommand()
{
    int steps = 1;
    acedInitGet(RSG_NONEG | RSG_NOZERO, L"Mark Back");
    switch (acedGetInt(L"\nEnter the number of operations to undo or [Mark/Back] <1>: ", &steps)) {
    case RTNORM:
    case RTNONE:
        return StepsBack(size_t(steps));
    case RTKWORD: {
        ACHAR keyword[512] = L"";
        acedGetInput(keyword);
        if (keyword[0] == L'M')
            PartOf<UndoMarks>(Document()).depths.push_back(Core().undo.UndoDepth());
        else
            BackToMark();
        return;
    }
    default:
        return;
    }
}

}   // namespace KxPlat
