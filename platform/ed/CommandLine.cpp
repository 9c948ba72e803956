#include "CommandLine.h"
#include "../db/AcDbDatabase.h"
#include "../db/core/DbCore.h"
#include "../rx/AcRxDictionary.h"
#include "../win/CharTables.h"
#include "AcEdCommandStack.h"
#include "AliasFile.h"
#include "Prompt.h"
#include "Session.h"
#include "SetVariable.h"
#include <algorithm>
#include <utility>

namespace KxPlat {

namespace {

// A name as typed, without its prefixes: "_" global names, "." the host's own command, "'" transparent.
struct TypedName {
    std::wstring name;
    bool isGlobal = false;
    bool isNative = false;
};

TypedName Stripped(std::wstring typed)
{
    TypedName result;
    size_t at = 0;
    for (; at < typed.size() && (typed[at] == L'_' || typed[at] == L'.' || typed[at] == L'\''); ++at) {
        result.isGlobal |= typed[at] == L'_';
        result.isNative |= typed[at] == L'.';
    }
    result.name = Upper(typed.substr(at));
    return result;
}

AcEdCommand* LookupOne(const TypedName& typed, const std::wstring& name)
{
    const std::vector<std::wstring>& undefined = TheEditor()->undefined;
    const bool isHidden = !typed.isNative && std::find(undefined.begin(), undefined.end(), name) != undefined.end();
    return isHidden ? nullptr : acedRegCmds->lookupCmd(name.c_str(), typed.isGlobal);
}

bool IsLispCommand(const TypedName& typed, const std::wstring& name)
{
    AcApDocument* document = acDocManager->curDocument();
    LispHook* lisp = TheLispHook();
    return !typed.isNative && lisp != nullptr && document != nullptr && lisp->HasCommand(*document, name);
}

// What a name stands for: a command, else one that LISP defined, else nothing.
struct Target {
    AcEdCommand* command = nullptr;
    std::wstring lisp;
};

// A command's own name wins over the user's aliases, and these over the host's.
Target Lookup(const TypedName& typed)
{
    std::wstring name = typed.name;
    std::vector<std::wstring> names = {name};
    if (!typed.isNative) {
        if (const std::wstring alias = UserAlias(name); !alias.empty())
            names.push_back(name = alias);
        names.push_back(AliasOf(name));
    }
    for (const std::wstring& each : names) {
        if (AcEdCommand* command = LookupOne(typed, each))
            return {command, L""};
        if (IsLispCommand(typed, each))
            return {nullptr, each};
    }
    // "-NAME" asks on the command line; a command without a dialog needs no other form.
    if (name.size() > 1 && name[0] == L'-')
        return {acedRegCmds->lookupCmd(name.c_str() + 1, typed.isGlobal), L""};
    return {};
}

}   // namespace

bool CommandLine::ExecuteNext(const InputSource* until)
{
    if (Ui().Interrupted()) {
        Ui().Print(L"*Cancel*");
        m_session.input().DropAll();
        m_session.Fail();
    }
    TakeQueue();
    InputRequest request;
    request.kind = InputKind::Command;
    request.prompt = L"\nCommand: ";
    const InputPiece piece = m_session.input().Next(request, TextRule::Word, until);
    switch (piece.type) {
    case InputPiece::Type::End:
        return false;
    case InputPiece::Type::Cancel:
        Cancelled(piece);
        return true;
    case InputPiece::Type::Value:
        return true;
    case InputPiece::Type::Text:
        break;
    }
    if (!RunText(piece))
        m_session.Fail();
    return true;
}

// Sent strings are taken up while no command runs: first those of the current document.
void CommandLine::TakeQueue()
{
    if (!m_session.state().running.empty() || OpenDocuments().empty())
        return;
    const std::vector<AcApDocument*>& documents = OpenDocuments();
    AcApDocument* from = acDocManager->curDocument();
    for (AcApDocument* document : documents) {
        if (!StateOf(*from).queue.empty())
            break;
        if (!StateOf(*document).queue.empty() && StateOf(*document).queue.front().activate)
            from = document;
    }
    std::vector<QueuedText>& queue = StateOf(*from).queue;
    if (queue.empty())
        return;
    MakeCurrent(from);
    const std::vector<QueuedText> taken = std::exchange(queue, {});
    for (auto text = taken.rbegin(); text != taken.rend(); ++text)
        m_session.input().Push(std::make_unique<TextSource>(text->text, TextSource::Kind::Sent, text->echo));
}

bool CommandLine::HasQueue() const
{
    const std::vector<AcApDocument*>& documents = OpenDocuments();
    return m_session.input().HasSent() || std::any_of(documents.begin(), documents.end(), [](AcApDocument* document) {
               return !StateOf(*document).queue.empty();
           });
}

bool CommandLine::RunText(const InputPiece& piece)
{
    struct Sent {
        explicit Sent(bool is) : before(std::exchange(TheEditor()->runsSentText, is)) {}
        ~Sent() { TheEditor()->runsSentText = before; }
        bool before;
    } const sent(piece.isSent || (piece.isLiteral && TheEditor()->runsSentText));
    const std::wstring& text = piece.text;
    if (text.empty()) {
        const std::wstring last = m_session.state().lastCommand;
        return piece.isLiteral || last.empty() || Run(last, piece);
    }
    AcApDocument* document = acDocManager->curDocument();
    LispHook* lisp = TheLispHook();
    if (lisp != nullptr && document != nullptr && (text[0] == L'(' || text[0] == L'!')) {
        CoreOf(*document->database()).undo.Begin(L"LISP");
        return lisp->EvaluateAndPrint(*document, text);
    }
    return Run(text, piece);
}

bool CommandLine::Run(std::wstring text, const InputPiece& from)
{
    const TypedName typed = Stripped(std::move(text));
    AcApDocument* document = acDocManager->curDocument();
    const Target target = Lookup(typed);
    if (AcEdCommand* command = target.command) {
        if (m_session.state().running.empty() && (command->commandFlags() & ACRX_CMD_NOHISTORY) == 0)
            m_session.state().lastCommand = command->globalName();
        return KxPlat::RunCommand(*command, false);
    }
    if (!target.lisp.empty()) {
        if (m_session.state().running.empty())
            m_session.state().lastCommand = target.lisp;
        return RunLispCommand(*document, target.lisp);
    }
    if (FindVar(typed.name) != nullptr) {
        if (document != nullptr && m_session.state().running.empty())
            CoreOf(*document->database()).undo.Begin(typed.name.c_str());
        AskVariable(typed.name);
        return true;
    }
    Ui().Print(L"\nUnknown command \"" + typed.name + L"\".  Press F1 for help.");
    return false;
}

void CommandLine::RunTransparent(const InputPiece& piece)
{
    const TypedName typed = Stripped(piece.text);
    const std::wstring outer = m_session.state().running.empty() ? L"" : m_session.state().running.back().globalName;
    AcEdCommand* command = Lookup(typed).command;
    if (command != nullptr && (command->commandFlags() & ACRX_CMD_TRANSPARENT) == 0) {
        Ui().Print(L"\n** That command may not be invoked transparently **");
        FailInput(piece);
        return;
    }
    const bool isVariable = command == nullptr && FindVar(typed.name) != nullptr;
    if (command == nullptr && !isVariable) {
        Ui().Print(L"\nUnknown command \"" + typed.name + L"\".  Press F1 for help.");
        FailInput(piece);
        return;
    }
    // The prompt that was interrupted keeps its rules.
    const PromptRules rules = m_session.state().rules;
    if (isVariable)
        AskVariable(typed.name);
    else if (!KxPlat::RunCommand(*command, true))
        FailInput(piece);
    m_session.state().rules = rules;
    if (!outer.empty())
        Ui().Print(L"\nResuming " + outer + L" command.");
}

int CommandLine::RunArguments(const resbuf* arguments)
{
    InputStack& input = m_session.input();
    const bool hadFailed = m_session.HasFailed();
    m_wasCancelled = false;
    m_session.ClearFailure();
    const PromptRules rules = std::exchange(m_session.state().rules, PromptRules());
    const InputSource* source = input.Push(std::make_unique<ArgumentSource>(arguments));
    while (ExecuteNext(source)) {
    }
    input.Remove(source);
    m_session.state().rules = rules;
    const bool failed = m_session.HasFailed();
    if (hadFailed)
        m_session.Fail();
    return m_wasCancelled ? RTCAN : failed ? RTERROR : RTNORM;
}

void CommandLine::RunPieces(std::unique_ptr<InputSource> pieces)
{
    const InputSource* source = m_session.input().Push(std::move(pieces));
    while (!m_wasCancelled && ExecuteNext(source)) {
    }
    m_session.input().Remove(source);
}

void CommandLine::Cancelled(const InputPiece& piece)
{
    m_wasCancelled |= !piece.isLiteral;
    if (piece.isTyped || !m_session.state().running.empty())
        Ui().Print(L"*Cancel*");
    if (piece.isTyped)
        m_session.input().DropPrograms();
}

}   // namespace KxPlat
