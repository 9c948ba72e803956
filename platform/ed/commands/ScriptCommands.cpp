// DELAY, RESUME, MULTIPLE, UNDEFINE and REDEFINE.
#include "../../rx/AcRxDictionary.h"
#include "../../win/CharTables.h"
#include "../../win/WinSystem.h"
#include "../AcEdCommandStack.h"
#include "../Prompt.h"
#include "../Session.h"
#include "HostCommands.h"
#include "Questions.h"
#include <algorithm>

namespace KxPlat {

namespace {

std::wstring AskCommandName(const wchar_t* prompt)
{
    const std::optional<std::wstring> name = AskLine(prompt);
    return name ? Upper(*name) : std::wstring();
}

}   // namespace

// In steps, so that the user can break it off.
void DelayCommand()
{
    int left = 0;
    acedInitGet(RSG_NONULL | RSG_NONEG, nullptr);
    if (acedGetInt(L"\nEnter delay time (in milliseconds): ", &left) != RTNORM)
        return;
    constexpr int kStep = 50, kMost = 32767;
    for (left = std::min(left, kMost); left > 0 && !Ui().Interrupted(); left -= kStep)
        Sleep(DWORD(std::min(left, kStep)));
}

// A script is not held up by anything but its end, so there is nothing to go on with.
void ResumeCommand() {}

// The command named runs again and again, until it is cancelled or the input ends.
void MultipleCommand()
{
    const std::wstring name = AskCommandName(L"\nEnter command name to repeat: ");
    Session& session = *Session::Current();
    if (name.empty())
        return;
    session.line().ClearCancelled();
    InputPiece piece;
    piece.type = InputPiece::Type::Text;
    piece.text = name;
    while (session.line().Run(name, piece) && !session.line().WasCancelled() && !session.IsQuitting() &&
           session.input().HasMore()) {
    }
}

// What a program defines takes the place of the host's command; "." before the name still reaches that.
void UndefineCommand()
{
    const std::wstring name = AskCommandName(L"\nEnter command name: ");
    std::vector<std::wstring>& undefined = TheEditor()->undefined;
    if (name.empty())
        return;
    if (acedRegCmds->lookupCmd(name.c_str(), false) == nullptr)
        return FailCommand(L"Unknown command \"" + name + L"\".");
    if (std::find(undefined.begin(), undefined.end(), name) == undefined.end())
        undefined.push_back(name);
}

void RedefineCommand()
{
    const std::wstring name = AskCommandName(L"\nEnter command name: ");
    if (!name.empty() && std::erase(TheEditor()->undefined, name) == 0)
        FailCommand(L"Command \"" + name + L"\" is not undefined.");
}

}   // namespace KxPlat
