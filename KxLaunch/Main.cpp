// kxlaunch: finds CAD programs, starts them and types into running ones.
#include "Commands.h"
#include "Text.h"

namespace KxLaunch {
namespace {

enum ExitStatus { kDone = 0, kFailed = 1, kWrongUsage = 2 };

int Run(int count, char** arguments)
{
    Options options;
    if (!ParseOptions(count, arguments, options))
        return kWrongUsage;
    if (options.showsHelp) {
        Print(L"%s", HelpText());
        return kDone;
    }
    if (!options.registry.IsEmpty()) {
        if (!IsFile(options.registry))
            return Complain(options.registry, L"no such file");
        // For the programs that are started, too.
        SetEnvironmentVariableW(L"KX_REGISTRY", FullPath(options.registry));
    }
    if (options.word == L"list")
        return List();
    return options.word == L"start" ? Start(options) : Send(options);
}

}   // namespace
}   // namespace KxLaunch

int main(int count, char** arguments)
{
    return KxLaunch::Run(count, arguments);
}
