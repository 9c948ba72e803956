#include "DocumentLisp.h"
#include "../../db/AcDbDatabase.h"
#include "../../db/core/DbCore.h"
#include "../../rx/acutads.h"
#include "../../win/CharTables.h"
#include "../Session.h"
#include "ExternalFunctions.h"
#include "HostValues.h"
#include "Printer.h"

namespace KxPlat::Lisp {

Interpreter& InterpreterOf(AcApDocument& document)
{
    return PartOf<DocumentLisp>(document).interpreter;
}

Interpreter* CurrentInterpreter()
{
    AcApDocument* document = acDocManager->curDocument();
    return document == nullptr ? nullptr : &InterpreterOf(*document);
}

namespace {

bool IsCallable(const Value& value)
{
    return value.kind() == Kind::Function || value.kind() == Kind::Builtin || value.IsCons() ||
           (value.kind() == Kind::Host && dynamic_cast<CallableCell*>(value.host()) != nullptr);
}

// The value of a variable behind "!", or of the forms.
bool Answer(Interpreter& lisp, std::wstring_view text, Value& value)
{
    if (text.empty() || text[0] != L'!')
        return lisp.Run(text, value);
    return lisp.Run(text.substr(1), value);
}

const Symbol* CommandSymbol(AcApDocument& document, std::wstring_view name)
{
    const Symbol* symbol = InterpreterOf(document).Find(L"C:" + std::wstring(name));
    return symbol != nullptr && IsCallable(symbol->value) ? symbol : nullptr;
}

void ShowValue(Interpreter& lisp, const Value& value)
{
    if (!lisp.IsNothing(value))
        Ui().Print(L"\n" + Printed(value));
}

class Hook : public LispHook {
public:
    bool Evaluate(AcApDocument& document, std::wstring_view text, resbuf*& result) override
    {
        DocumentLisp& lisp = PartOf<DocumentLisp>(document);
        ProgramCommands::Scope commands(Session::Current()->programs());
        Value value;
        result = nullptr;
        if (!Answer(lisp.interpreter, text, value))
            return false;
        commands.Finish();
        lisp.lastAnswer = value;
        if (!lisp.interpreter.IsNothing(value))
            result = ChainOfValue(value);
        return true;
    }
    bool EvaluateAndPrint(AcApDocument& document, std::wstring_view text) override
    {
        Interpreter& lisp = InterpreterOf(document);
        // What a form does to the drawing is one step back.
        if (TheEditor() != nullptr && TheEditor()->running.empty())
            CoreOf(*document.database()).undo.Begin(L"LISP");
        ProgramCommands::Scope commands(Session::Current()->programs());
        Value value;
        if (!Answer(lisp, text, value))
            return false;
        ShowValue(lisp, value);
        commands.Finish();
        return true;
    }
    bool HasCommand(AcApDocument& document, std::wstring_view name) override
    {
        return CommandSymbol(document, name) != nullptr;
    }
    bool RunCommand(AcApDocument& document, std::wstring_view name) override
    {
        const Symbol* symbol = CommandSymbol(document, name);
        if (symbol == nullptr)
            return false;
        Interpreter& lisp = InterpreterOf(document);
        const Value function = symbol->value;
        ProgramCommands::Scope commands(Session::Current()->programs());
        Value value;
        if (!lisp.Protected([&] { value = lisp.Apply(function, nullptr, 0); }))
            return false;
        ShowValue(lisp, value);
        commands.Finish();
        return true;
    }
    std::vector<std::wstring> CommandNames(AcApDocument& document) override
    {
        std::vector<std::wstring> names;
        for (const std::wstring& name : InterpreterOf(document).SymbolNames())
            if (name.starts_with(L"C:") && CommandSymbol(document, name.substr(2)) != nullptr)
                names.push_back(name.substr(2));
        return names;
    }
    void ModuleUnloaded(void* appId) override
    {
        for (AcApDocument* document : OpenDocuments())
            UndefineFunctionsOf(InterpreterOf(*document), appId);
    }
};

// The evaluator is there as soon as the platform is loaded.
struct HookEntry {
    HookEntry() { SetLispHook(&hook); }
    ~HookEntry() { SetLispHook(nullptr); }
    Hook hook;
};
HookEntry g_hookEntry;

}   // namespace

}   // namespace KxPlat::Lisp
