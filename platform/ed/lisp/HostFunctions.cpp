// System variables, commands, files of programs, modules.
#include "../../ap/Documents.h"
#include "../../win/CodePage.h"
#include "../../win/Files.h"
#include "../acedads.h"
#include "../Session.h"
#include "../SupportFiles.h"
#include "../SysVars.h"
#include "../TrustedFiles.h"
#include "Chain.h"
#include "DocumentLisp.h"
#include "HostValues.h"
#include "Interpreter.h"
#include "Printer.h"
#include "Reader.h"
#include <map>

namespace KxPlat::Lisp {

namespace {

// What acedFindFile needs for its answer.
constexpr size_t kLongestPath = 1024;

Value ValueOf(const VarValue& value)
{
    switch (value.type) {
    case VarType::Short:
    case VarType::Long:
        return Value(int32_t(value.integer));
    case VarType::Real:
        return Value(value.real[0]);
    case VarType::Text:
        return Value(value.text);
    case VarType::Point2:
        return ListOf(value.real[0], value.real[1]);
    case VarType::Point3:
        return ListOf(value.real[0], value.real[1], value.real[2]);
    }
    return Value();
}

Value GetVariable(Interpreter&, const Arguments& arguments)
{
    const std::wstring& name = arguments[0].IsSymbol() ? arguments[0].symbol()->name : TextOf(arguments[0]);
    VarValue value;
    return GetVar(name, value) == VarAnswer::Done ? ValueOf(value) : Value();
}

bool Converted(const Value& from, VarValue& to)
{
    if (from.IsText()) {
        to.type = VarType::Text;
        to.text = from.text();
    } else if (from.IsInteger()) {
        to.type = VarType::Long;
        to.integer = from.integer();
    } else if (from.IsReal()) {
        to.type = VarType::Real;
        to.real[0] = from.real();
    } else if (IsPoint(from)) {
        const Point point = PointOf(from);
        to.type = point.is3d ? VarType::Point3 : VarType::Point2;
        to.real[0] = point.x;
        to.real[1] = point.y;
        to.real[2] = point.z;
    } else {
        return false;
    }
    return true;
}

Value SetVariable(Interpreter&, const Arguments& arguments)
{
    const std::wstring& name = arguments[0].IsSymbol() ? arguments[0].symbol()->name : TextOf(arguments[0]);
    VarValue value;
    const VarRow* row = FindVar(name);
    const bool isConverted = Converted(arguments[1], value);
    if (row != nullptr && isConverted && value.type == VarType::Long)
        value.type = row->type == VarType::Short ? VarType::Short : value.type;
    if (!isConverted || KxPlat::SetVar(name, value) != VarAnswer::Done)
        throw Failure(L"variable setting rejected: " + Printed(arguments[0]) + L" " + Shortened(arguments[1]));
    return arguments[1];
}

// Points may be lists of whole numbers too.
resbuf* CommandChain(const Arguments& arguments)
{
    std::vector<Value> pieces;
    for (const Value& argument : arguments) {
        if (IsPoint(argument)) {
            const Point point = PointOf(argument);
            pieces.push_back(Lisp::ValueOf(point));
        } else if (argument.IsText() || argument.IsNumber() || argument.IsEntityName() ||
                   argument.kind() == Kind::Host) {
            pieces.push_back(argument);
        } else if (argument.IsNil()) {
            pieces.emplace_back(L"\x1b");   // nil cancels, as Esc does
        } else {
            throw Failure(L"bad argument value: " + Shortened(argument));
        }
    }
    return ChainOfArguments(pieces.data(), pieces.size());
}

// (command) is Esc for the command that waits for more.
bool RunCommand(const Arguments& arguments)
{
    Session* session = Session::Current();
    if (session == nullptr)
        return false;
    if (arguments.count == 0) {
        session->programs().Cancel();
        return true;
    }
    const Chain chain(CommandChain(arguments));
    const int answer = session->programs().Feed(chain.get());
    if (answer == RTCAN)
        throw Failure(L"Function cancelled", Failure::Kind::Cancelled);
    return answer == RTNORM;
}

Value Command(Interpreter&, const Arguments& arguments)
{
    RunCommand(arguments);
    return Value();
}

// Whole commands only: what they still ask is answered by the user.
Value WholeCommand(Interpreter&, const Arguments& arguments)
{
    const Chain chain(CommandChain(arguments));
    if (acedCmd(chain.get()) == RTCAN)
        throw Failure(L"Function cancelled", Failure::Kind::Cancelled);
    return Value();
}

Value CommandWithAnswer(Interpreter& lisp, const Arguments& arguments)
{
    return lisp.Truth(RunCommand(arguments));
}

Value FindFile(Interpreter&, const Arguments& arguments)
{
    ACHAR found[kLongestPath] = {};
    return acedFindFile(TextOf(arguments[0]).c_str(), found) == RTNORM ? Value(static_cast<const wchar_t*>(found))
                                                                       : Value();
}

// As given, then with the extension of LISP files.
bool FindProgram(const std::wstring& name, std::wstring& path)
{
    ACHAR found[kLongestPath] = {};
    for (const wchar_t* extension : {L"", L".lsp"})
        if (acedFindFile((name + extension).c_str(), found) == RTNORM && !FileInfoOf(HostPath(found)).isFolder) {
            path = found;
            return true;
        }
    return false;
}

// What keeps the file from being loaded; empty when its bytes are there, or no file is.
std::wstring ReadProgram(const std::wstring& name, std::wstring& path, std::string& bytes)
{
    std::wstring why;
    int error = 0;
    if (!FindProgram(name, path))
        return {};
    if (!MayLoad(path, why))
        return why.empty() ? L"the user refused it" : why;
    bytes = ReadWholeFile(HostPath(path), error);
    if (error != 0)
        return SystemErrorText(error);
    const bool isCompiled =
        bytes.substr(0, 64).find("FAS4-FILE") != std::string::npos || bytes.substr(0, 64).find("VRTLIB") == 0;
    return isCompiled ? L"it is compiled LISP, which this host does not run" : L"";
}

// (load file [onfailure]); the value of the file's last form.
Value Load(Interpreter& lisp, const Arguments& arguments)
{
    const std::wstring& name = TextOf(arguments[0]);
    std::wstring path;
    std::string bytes;
    const std::wstring fault = ReadProgram(name, path, bytes);
    if (path.empty() || !fault.empty()) {
        if (arguments.count == 1)
            throw Failure(L"LOAD failed: " + Printed(arguments[0]) + (fault.empty() ? L"" : L": " + fault));
        const Value& otherwise = arguments[1];
        return otherwise.kind() == Kind::Function || otherwise.kind() == Kind::Builtin
                   ? lisp.Apply(otherwise, std::initializer_list<Value>{})
                   : otherwise;
    }
    const std::wstring text = IsUtf8(bytes) ? FromUtf8(bytes) : Decode(0, bytes);
    Reader reader(lisp, text);
    Value form, result;
    try {
        while (reader.Read(form))
            result = lisp.Eval(form);
    } catch (Failure& failure) {
        if (!failure.isHandled && failure.place.empty())
            failure.place = path + L", line " + std::to_wstring(reader.line());
        throw;
    }
    return result;
}

template <int (*Work)(const ACHAR*)>
Value ModuleFunction(const Arguments& arguments, const wchar_t* failure)
{
    if (Work(TextOf(arguments[0]).c_str()) == RTNORM)
        return arguments[0];
    if (arguments.count == 1)
        Fail(failure);
    return arguments[1];
}

Value ArxLoad(Interpreter&, const Arguments& arguments)
{
    const std::wstring path = FindModuleFile(TextOf(arguments[0]));
    std::wstring why;
    if (!path.empty() && !MayLoad(path, why)) {
        if (arguments.count == 1)
            throw Failure(L"ARXLOAD failed: " + why);
        return arguments[1];
    }
    return ModuleFunction<acedArxLoad>(arguments, L"ARXLOAD failed");
}

Value ArxUnload(Interpreter&, const Arguments& arguments)
{
    return ModuleFunction<acedArxUnload>(arguments, L"ARXUNLOAD failed");
}

Value ArxLoaded(Interpreter&, const Arguments&)
{
    const Chain chain(acedArxLoaded());
    ListBuilder list;
    for (const resbuf* at = chain.get(); at != nullptr; at = at->rbnext)
        if (at->restype == RTSTR && at->resval.rstring != nullptr)
            list.Add(static_cast<const wchar_t*>(at->resval.rstring));
    return list.Take();
}

Value GetEnvironment(Interpreter&, const Arguments& arguments)
{
    constexpr size_t kLongestValue = 4096;
    ACHAR value[kLongestValue] = {};
    return acedGetEnv(TextOf(arguments[0]).c_str(), value, kLongestValue) == RTNORM
               ? Value(static_cast<const wchar_t*>(value))
               : Value();
}

Value SetEnvironment(Interpreter&, const Arguments& arguments)
{
    return acedSetEnv(TextOf(arguments[0]).c_str(), TextOf(arguments[1]).c_str()) == RTNORM ? arguments[1] : Value();
}

Value Redraw(Interpreter&, const Arguments&)
{
    acedUpdateDisplay();
    return Value();
}

// Of every document; the files are LISP sources here, since compiled ones are refused.
Value LoadAll(Interpreter& lisp, const Arguments& arguments)
{
    AcApDocument* current = acDocManager->curDocument();
    for (AcApDocument* document : std::vector<AcApDocument*>(OpenDocuments())) {
        if (document != current)
            InterpreterOf(*document).Protected([&] { Load(InterpreterOf(*document), arguments); });
    }
    Load(lisp, arguments);
    return Value();
}

Value VbaLoad(Interpreter&, const Arguments& arguments)
{
    throw Failure(L"VL-VBALOAD failed: " + Printed(arguments[0]) + L": this host runs no VBA projects");
}

// (autoload file (names)): each name loads the file when it is first called, and then runs what the file defines.
Value AutoLoad(Interpreter& lisp, const Arguments& arguments)
{
    for (const Value& name : Members(ListIn(arguments[1]))) {
        Symbol* command = lisp.Intern(L"C:" + TextOf(name));
        const Value load = ListOf(lisp.Intern(L"LOAD"), arguments[0]);
        command->value = lisp.MakeFunction(command, ListOf(Value(), load, ListOf(command)));
    }
    return Value();
}

// The blackboard, which all documents see. It outlives each of them, so its symbols are its own.
struct Blackboard {
    std::map<std::wstring, Symbol> symbols;
    std::map<std::wstring, Value> values;
};

Blackboard& TheBlackboard()
{
    static Blackboard board;
    return board;
}

Symbol* BoardSymbol(const std::wstring& name)
{
    Symbol& symbol = TheBlackboard().symbols[name];
    symbol.name = name;
    return &symbol;
}

// A copy whose symbols are those that `intern` gives. Functions and things of the host belong to their document.
template <class Intern>
Value Moved(const Value& value, const Intern& intern)
{
    if (value.IsSymbol())
        return intern(value.symbol()->name);
    if (value.kind() == Kind::Function || value.kind() == Kind::Host)
        BadArgument(L"shareable", value);
    if (!value.IsCons())
        return value;
    ListBuilder copy;
    const Value* at = &value;
    for (; at->IsCons(); at = &at->cdr())
        copy.Add(Moved(at->car(), intern));
    if (!at->IsNil())
        copy.SetTail(Moved(*at, intern));
    return copy.Take();
}

Value BoardSet(Interpreter&, const Arguments& arguments)
{
    TheBlackboard().values[SymbolOf(arguments[0])->name] = Moved(arguments[1], BoardSymbol);
    return arguments[1];
}

Value BoardGet(Interpreter& lisp, const Arguments& arguments)
{
    const auto found = TheBlackboard().values.find(SymbolOf(arguments[0])->name);
    return found == TheBlackboard().values.end()
               ? Value()
               : Moved(found->second, [&](const std::wstring& name) { return lisp.Intern(name); });
}

Value Nothing(Interpreter&, const Arguments&)
{
    return Value();
}

Value Version(Interpreter&, const Arguments&)
{
    return Value(L"KxLISP 1.0");
}

const Builtin kRows[] = {
    {L"GETVAR", GetVariable, 1, 1}, {L"SETVAR", SetVariable, 2, 2},    {L"COMMAND", Command},
    {L"COMMAND-S", WholeCommand},   {L"VL-CMDF", CommandWithAnswer},   {L"FINDFILE", FindFile, 1, 1},
    {L"LOAD", Load, 1, 2},          {L"ARXLOAD", ArxLoad, 1, 2},       {L"ARXUNLOAD", ArxUnload, 1, 2},
    {L"ARX", ArxLoaded, 0, 0},      {L"GETENV", GetEnvironment, 1, 1}, {L"SETENV", SetEnvironment, 2, 2},
    {L"REDRAW", Redraw, 0, 2},      {L"TEXTSCR", Nothing, 0, 0},       {L"GRAPHSCR", Nothing, 0, 0},
    {L"TEXTPAGE", Nothing, 0, 0},   {L"VER", Version, 0, 0},           {L"VL-LOAD-ALL", LoadAll, 1, 1},
    {L"VL-VBALOAD", VbaLoad, 1, 1}, {L"AUTOLOAD", AutoLoad, 2, 2},     {L"VL-BB-SET", BoardSet, 2, 2},
    {L"VL-BB-REF", BoardGet, 1, 1},
};

}   // namespace

const BuiltinTable kHost = TableOf(kRows);

}   // namespace KxPlat::Lisp
