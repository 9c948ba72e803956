#include "Session.h"
#include "../rx/AcRxDictionary.h"
#include "../win/CharTables.h"
#include "../win/Files.h"
#include "acedads.h"
#include "AliasFile.h"
#include "commands/HostCommands.h"
#include "CommandTable.h"
#include "Modules.h"
#include "StartupFile.h"
#include "SupportFiles.h"
#include <algorithm>

namespace KxPlat {

namespace {

Session* g_current = nullptr;
LispHook* g_lisp = nullptr;

template <class Object>
void Register(const ACHAR* key, std::unique_ptr<Object> object)
{
    Adesk::UInt32 id = 0;
    acrxSysRegistry()->atPut(key, object.release(), id);
}

void Unregister(const ACHAR* key)
{
    AcRxDictionary* registry = acrxSysRegistry();
    delete registry->remove(key);
}

}   // namespace

Session::Session(const SessionOptions& options) : m_options(options), m_line(*this), m_programs(*this)
{
    g_current = this;
    acdbSetHostApplicationServices(&m_services);
    m_input.SetEcho(options.echo);
    m_input.SetKeyboard(options.hasKeyboard);
    Register<AcRxObject>(ACRX_COMMAND_STACK, NewCommandStack());
    Register<AcRxObject>(ACRX_DYNAMIC_LINKER, NewDynamicLinker());
    AddHostCommands(*acedRegCmds);
    SetHostVar(L"ACADVER", VarOf(options.release));
    if (const std::wstring level = Setting(L"SECURELOAD"); level == L"0" || level == L"2")
        m_state.secureLoad = level[0] - L'0';
    SetDocumentListener({[this](AcApDocument& document) {
                             SendToModules(AcRx::kLoadDwgMsg, &document);
                             if (m_startsPrograms)
                                 LoadStartupFiles(document);
                         },
                         [](AcApDocument& document) { SendToModules(AcRx::kUnloadDwgMsg, &document); }});
}

Session::~Session()
{
    m_programs.CancelAll();
    m_input.DropAll();
    SendToModules(AcRx::kPreQuitMsg);
    CloseAllDocuments();
    UnloadAllModules();
    SetDocumentListener({});
    Unregister(ACRX_DYNAMIC_LINKER);
    Unregister(ACRX_COMMAND_STACK);
    ForgetAliases();
    acdbSetHostApplicationServices(nullptr);
    g_current = nullptr;
}

void Session::StartPrograms()
{
    LoadAliasFiles();
    const std::vector<AcApDocument*> documents = OpenDocuments();
    for (AcApDocument* document : documents)
        LoadStartupFiles(*document);
    m_startsPrograms = true;
}

void Session::TrustFolderOf(const std::wstring& path)
{
    const std::wstring full = FullDrivePath(path);
    m_state.trustedFolders += full.substr(0, full.find_last_of(L'\\')) + L";";
}

Session* Session::Current()
{
    return g_current;
}

bool Session::Run(std::wstring_view text)
{
    const bool hadFailed = m_hasFailed;
    m_hasFailed = false;
    const InputSource* source = m_input.Push(std::make_unique<TextSource>(text, TextSource::Kind::Script));
    while (!m_isQuitting && m_line.ExecuteNext(source)) {
    }
    m_input.Remove(source);
    while (!m_isQuitting && m_line.HasQueue() && m_line.ExecuteNext()) {
    }
    const bool isGood = !m_hasFailed;
    m_hasFailed |= hadFailed;
    return isGood;
}

void Session::Loop()
{
    while (!m_isQuitting && m_line.ExecuteNext()) {
    }
}

int EditorState::TransparentDepth() const
{
    return int(std::count_if(running.begin(), running.end(),
                             [](const RunningCommand& command) { return command.isTransparent; }));
}

EditorState* TheEditor()
{
    return g_current != nullptr ? &g_current->state() : nullptr;
}

void SetLispHook(LispHook* hook)
{
    g_lisp = hook;
}

LispHook* TheLispHook()
{
    return g_lisp;
}

}   // namespace KxPlat
