// What the command line remembers between one call and the next. One per session.
#pragma once
#include "../rx/AdeskTypes.h"
#include "../ui/Progress.h"
#include "acedads.h"
#include "SysVars.h"
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace KxPlat {

struct RunningCommand {
    std::wstring globalName;
    Adesk::Int32 flags = 0;
    bool isTransparent = false;
    void* module = nullptr;   // application id of the module that it belongs to; null for the host's own
};

// Set by acedInitGet for one prompt.
struct PromptRules {
    int bits = 0;
    std::wstring keywords;
};

struct EditorState {
    PromptRules rules;
    std::wstring lastInput;             // what acedGetInput answers
    bool isAnsweredByProgram = false;   // the last answer came from an argument of a command call
    int errorNumber = 0;
    std::vector<RunningCommand> running;   // innermost last
    std::wstring lastCommand;              // what Enter repeats
    std::vector<std::wstring> undefined;   // names in capitals that UNDEFINE took from the host's commands
    int secureLoad = 1;
    std::wstring trustedFolders;                  // of this session, parted by ";"
    bool runsSentText = false;                    // what runs was sent by a module
    void* module = nullptr;                       // application id of the module whose code runs now
    std::map<std::wstring, VarValue> variables;   // those of the process, by name in capitals
    std::vector<AcedFilterWinMsgFn> filters;
    std::vector<AcedWatchWinMsgFn> watches;
    std::unique_ptr<Progress> meter;   // of a module, while one is shown
    int64_t meterLeast = 0, meterAt = 0;

    int TransparentDepth() const;
};

// A message of the host's windows on its way through what modules hooked in; true when one of them swallowed it.
bool PassMessage(MSG& message);

// Null while no session runs.
EditorState* TheEditor();

}   // namespace KxPlat
