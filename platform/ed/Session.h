// A running editor: documents, modules and the command line, between start and stop. One at a time in a process.
#pragma once
#include "../ap/Documents.h"
#include "CommandLine.h"
#include "EditorState.h"
#include "HostServices.h"
#include "Input.h"
#include "ProgramCommands.h"
#include <memory>
#include <string>
#include <string_view>

namespace KxPlat {

struct SessionOptions {
    std::wstring release = L"18.1";   // that the host presents: ACADVER
    bool echo = true;                 // show prompts and answers that come from scripts
    bool hasKeyboard = true;          // ask HostUi when scripts have ended
};

// Starts with no document; OpenDrawing and NewDrawing (ap/Documents.h) add some.
class Session {
public:
    explicit Session(const SessionOptions& options = {});
    ~Session();   // unloads all modules, closes all documents without saving
    Session(const Session&) = delete;

    static Session* Current();

    InputStack& input() { return m_input; }
    CommandLine& line() { return m_line; }
    EditorState& state() { return m_state; }
    ProgramCommands& programs() { return m_programs; }
    const SessionOptions& options() const { return m_options; }

    // Loads what each document starts with, and from then on does so for new ones.
    void StartPrograms();
    // Programs in this file's folder may be loaded: the user has named it himself.
    void TrustFolderOf(const std::wstring& path);

    // Text as if typed, to its end, and what it queues. False when a command or form in it failed. A command that asks
    // for more goes on with what lies below: the keyboard.
    bool Run(std::wstring_view text);
    bool RunScript(std::wstring_view text) { return Run(text); }
    // Until the input ends or the user quits.
    void Loop();

    // Something under a script went wrong; the session remembers it.
    void Fail() { m_hasFailed = true; }
    bool HasFailed() const { return m_hasFailed; }
    void ClearFailure() { m_hasFailed = false; }
    // Ends Loop() as soon as the running command has ended.
    void Quit() { m_isQuitting = true; }
    bool IsQuitting() const { return m_isQuitting; }

private:
    SessionOptions m_options;
    HostServices m_services;
    InputStack m_input;
    EditorState m_state;
    CommandLine m_line;
    ProgramCommands m_programs;
    bool m_hasFailed = false;
    bool m_isQuitting = false;
    bool m_startsPrograms = false;
};

// What the command line needs of LISP. The evaluator enters itself here.
struct LispHook {
    virtual ~LispHook() = default;
    // Evaluates the forms in `text` (or a "!name") in the document's environment and answers the value of the last one
    // as one value or a list; the caller frees the chain. False when it failed, which the user has been told by then.
    virtual bool Evaluate(AcApDocument& document, std::wstring_view text, resbuf*& value) = 0;
    // The same at the command prompt: prints the value as the user sees it, on a new line, unless it is (princ)'s.
    virtual bool EvaluateAndPrint(AcApDocument& document, std::wstring_view text) = 0;
    // C:NAME as a command.
    virtual bool HasCommand(AcApDocument& document, std::wstring_view name) = 0;
    virtual bool RunCommand(AcApDocument& document, std::wstring_view name) = 0;
    virtual std::vector<std::wstring> CommandNames(AcApDocument& document) { return {}; }
    // The module goes: functions that it still has defined go with it.
    virtual void ModuleUnloaded(void* appId) {}
};
void SetLispHook(LispHook* hook);
LispHook* TheLispHook();   // null while there is no evaluator

}   // namespace KxPlat
