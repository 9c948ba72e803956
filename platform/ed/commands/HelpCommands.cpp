// HELP, SETVAR, REGEN and SCRIPT.
#include "../../rx/AcRxDictionary.h"
#include "../../win/CharTables.h"
#include "../../win/CodePage.h"
#include "../../win/Files.h"
#include "../AcEdCommandStack.h"
#include "../Session.h"
#include "../SetVariable.h"
#include "../SupportFiles.h"
#include "HostCommands.h"
#include "Questions.h"
#include <algorithm>
#include <memory>

namespace KxPlat {

namespace {

// "NAME" or "NAME (LOCAL)", group by group.
void ListCommands()
{
    const std::unique_ptr<AcEdCommandIterator> commands(acedRegCmds->iterator());
    std::wstring group;
    for (; !commands->done(); commands->next()) {
        const AcEdCommand& command = *commands->command();
        if (group != commands->commandGroup()) {
            group = commands->commandGroup();
            Ui().Print(L"\n" + group + L":");
        }
        std::wstring line = std::wstring(L"\n  ") + command.globalName();
        if (!EqualNoCase(command.globalName(), command.localName()))
            line += std::wstring(L" (") + command.localName() + L")";
        Ui().Print(line);
    }
}

}   // namespace

void HelpCommand()
{
    ListCommands();
    Ui().Print(
        L"\nA form in parentheses is LISP, !NAME shows a variable, ' before a name runs a command within another "
        L"one.\nEnter repeats the last command, Esc cancels.");
}

void SetVarCommand()
{
    ACHAR name[512] = L"";
    if (acedGetString(0, L"\nEnter variable name or [?]: ", name) != RTNORM || name[0] == 0)
        return;
    if (name[0] != L'?')
        return AskVariable(Upper(name));
    ACHAR pattern[512] = L"";
    if (acedGetString(0, L"\nEnter variable(s) to list <*>: ", pattern) == RTNORM)
        ListVariables(pattern[0] != 0 ? pattern : L"*");
}

void RegenCommand()
{
    Ui().Print(L"\nRegenerating model.");
    Ui().Regenerated();
}

// The script goes on top of what is being read now.
void ScriptCommand()
{
    const std::optional<std::wstring> name =
        AskFile(L"\nEnter script file name", L"Select Script File", L"", L"scr", false);
    if (!name)
        return;
    std::wstring path = FindSupportFile(*name);
    if (path.empty())
        path = FindSupportFile(*name + L".scr");
    int error = 0;
    const std::string bytes = path.empty() ? std::string() : ReadWholeFile(HostPath(path), error);
    if (path.empty() || error != 0)
        return FailCommand(*name + L": " + (path.empty() ? L"no such file" : SystemErrorText(error)));
    Session::Current()->input().Push(std::make_unique<TextSource>(ScriptText(bytes), TextSource::Kind::Script));
}

}   // namespace KxPlat
