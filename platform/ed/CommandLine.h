// Takes pieces at the command level and runs what they name: commands, LISP forms, system variables.
#pragma once
#include "AcEdCommand.h"
#include "EditorState.h"
#include "Input.h"
#include <string>

namespace KxPlat {

class Session;

class CommandLine {
public:
    explicit CommandLine(Session& session) : m_session(session) {}

    // The next piece at "Command: " and what it starts, to its end. False when the input has ended; with `until`, when
    // that source has.
    bool ExecuteNext(const InputSource* until = nullptr);
    // By name, with all prefixes and aliases. False when there is none, or when it failed.
    bool Run(std::wstring name, const InputPiece& from);
    // "'NAME" at the prompt of a running command.
    void RunTransparent(const InputPiece& piece);
    // acedCommand: all pieces of the chain. RTNORM, RTCAN or RTERROR.
    int RunArguments(const resbuf* arguments);
    // The same of a source, until it is used up or the user cancels.
    void RunPieces(std::unique_ptr<InputSource> pieces);
    bool WasCancelled() const { return m_wasCancelled; }   // by the user
    void ClearCancelled() { m_wasCancelled = false; }
    bool HasQueue() const;   // strings wait that were sent to documents
    // Esc came in at a prompt. The user's own ends programs as well; one in a script or sent string only the command.
    void Cancelled(const InputPiece& piece);

private:
    bool RunText(const InputPiece& piece);
    bool RunNamed(const std::wstring& name, bool isTransparent);
    void TakeQueue();

    Session& m_session;
    bool m_wasCancelled = false;
};

// Runs a command under its flags: locks, undo mark, pick-first set, open-object count. False when it failed.
bool RunCommand(const AcEdCommand& command, bool isTransparent);
// The same frame around a command that LISP defined.
bool RunLispCommand(AcApDocument& document, const std::wstring& name);

// Application id of the module that registered a command; null for the host's own.
void* ModuleOf(const AcEdCommand& command);
// Takes away what a module left on the command stack; the number of commands.
int RemoveCommandsOf(void* module);

// The host's name for an abbreviation such as "RE"; the text itself when it is none.
std::wstring AliasOf(const std::wstring& name);

}   // namespace KxPlat
