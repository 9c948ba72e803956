// kxcad: opens a drawing, loads modules, runs commands, saves.
#include "ap/Documents.h"
#include "DebugOutput.h"
#include "DesktopLibrary.h"
#include "DrawingInfo.h"
#include "ed/acedads.h"
#include "ed/Session.h"
#include "HostWindow.h"
#include "Installation.h"
#include "Options.h"
#include "StateFolder.h"
#include "TerminalUi.h"
#include "win/CodePage.h"
#include "win/Environment.h"
#include "win/Files.h"
#include "win/Format.h"
#include "win/Modules.h"
#include "win/OwnVersion.h"
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <iterator>

KX_OWN_VERSION("CompanyName=KxArxBase\n"
               "FileDescription=Scriptable CAD host\n"
               "FileVersion=1.0.0.0\n"
               "InternalName=kxcad\n"
               "OriginalFilename=kxcad\n"
               "ProductName=kxcad\n"
               "ProductVersion=18.1.0.0\n")

using namespace KxPlat;

namespace KxConsole {

namespace {

enum ExitStatus { kDone = 0, kCommandFailed = 1, kWrongUsage = 2, kUnreadable = 3, kNotSaved = 4 };

class Program {
public:
    explicit Program(const Options& options)
        : m_options(options),
          m_release(options.release.empty() ? OwnRelease() : FromUtf8(options.release)),
          m_ui(options.isQuiet)
    {
    }
    int Run();
    int ChangeInstallation();

private:
    bool OpenWindow();
    void MoveOutput();
    void TakeSupportFolders();
    int RunSteps(Session& session);
    bool LoadModules();
    bool OpenDrawingFile();
    bool ReadSteps(std::wstring& text);
    bool Save();
    bool DrawPictures();
    static void Complain(const std::string& what, const std::wstring& why)
    {
        Ui().Complain(FromUtf8(what) + L": " + why);
    }

    const Options& m_options;
    std::wstring m_release;
    TerminalUi m_ui;
    HostWindow* m_published = nullptr;                   // while a session runs
    std::unique_ptr<KxDesktop::DesktopHost> m_desktop;   // null without a window
};

// The command module lies beside the program.
std::wstring BaseModule()
{
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring path(program);
    return path.substr(0, path.find_last_of(L"\\/") + 1) + L"KxArxBase.arx";
}

// KX_MESSAGES is for hosts that launchers start.
bool TakesTexts(const Options& options)
{
    const char* setting = std::getenv("KX_MESSAGES");
    return options.takesTexts && (setting == nullptr || std::string_view(setting) != "off");
}

bool Program::LoadModules()
{
    std::vector<std::wstring> modules;
    if (m_options.hasBaseModule)
        modules.push_back(BaseModule());
    for (const std::string& name : m_options.modules)
        modules.push_back(FromUtf8(name));
    bool isGood = true;
    for (const std::wstring& module : modules)
        if (acedArxLoad(module.c_str()) != RTNORM) {
            Complain(ToUtf8(module),
                     FileInfoOf(HostPath(module)).exists ? L"cannot be loaded as a module" : L"no such file");
            isGood = false;
        }
    return isGood;
}

bool Program::OpenDrawingFile()
{
    AcApDocument* document = nullptr;
    std::wstring why;
    const Acad::ErrorStatus status = m_options.drawing.empty()
                                         ? NewDrawing(FromUtf8(m_options.templateFile), document, why)
                                         : OpenDrawing(FromUtf8(m_options.drawing), document, why);
    if (status != Acad::eOk)
        Complain(m_options.drawing, why);
    else if (!m_options.isQuiet && !m_options.drawing.empty() && LastReadReport().repairs != 0)
        Complain(m_options.drawing, Format(L"%I64u faults were mended, the first: %s", LastReadReport().repairs,
                                           LastReadReport().firstRepair.c_str()));
    return status == Acad::eOk;
}

// All steps are one text as if typed, so that a command begun in one is answered by the next.
bool Program::ReadSteps(std::wstring& text)
{
    for (const Step& step : m_options.steps) {
        if (step.kind == Step::Kind::Command) {
            text += FromUtf8(step.text) + L"\n";
            continue;
        }
        int error = 0;
        std::string script;
        if (step.text == "-")
            script.assign(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
        else
            script = ReadWholeFile(HostPath(FromUtf8(step.text)), error);
        if (error == 0 && step.text != "-")
            Session::Current()->TrustFolderOf(FromUtf8(step.text));
        if (error != 0) {
            Complain(step.text, SystemErrorText(error));
            return false;
        }
        text += ScriptText(script);
        if (!text.empty() && text.back() != L'\n')
            text += L'\n';
    }
    return true;
}

bool Program::Save()
{
    AcApDocument* document = acDocManager->mdiActiveDocument();
    std::wstring why = L"no drawing is open";
    if (document != nullptr &&
        SaveDrawing(*document, FromUtf8(m_options.output), AcDb::kDHL_CURRENT, why) == Acad::eOk) {
        if (const uint64_t dropped = LastWriteReport().dropped; dropped != 0)
            Complain(m_options.output, Format(L"%I64u objects that this version cannot hold were left out", dropped));
        return true;
    }
    Complain(m_options.output, why);
    return false;
}

bool Program::DrawPictures()
{
    AcApDocument* document = acDocManager->mdiActiveDocument();
    bool areWritten = true;
    for (const std::string& file : m_options.plot.files) {
        PlotResult result;
        if (document == nullptr)
            result.error = L"no drawing is open";
        else
            result = Plot(*document->database(), FromUtf8(file), m_options.plot.settings);
        areWritten = areWritten && result.error.empty();
        const std::wstring& complaint = result.error.empty() ? result.warning : result.error;
        if (!complaint.empty())
            Complain(file, complaint);
    }
    return areWritten;
}

// Prompts of a window go through the same loop as those of a terminal.
bool Program::OpenWindow()
{
    KxDesktop::DesktopSettings settings;
    settings.stateFolder = StateFolder();
    settings.serve = [this] {
        if (m_published != nullptr)
            m_published->Update();
    };
    settings.takeLine = [this](std::wstring& line) { return m_published != nullptr && m_published->TakeLine(line); };
    std::wstring why;
    m_desktop = OpenDesktop(settings, why);
    if (m_desktop == nullptr) {
        Complain("--window", why);
        return false;
    }
    SetUi(m_desktop.get());
    return true;
}

// A host without a terminal that a launcher started has nobody who reads its output now.
void Program::MoveOutput()
{
    std::string file = m_options.logFile;
    const char* wanted = std::getenv("KX_LOG");
    if (file.empty() && m_options.isLaunched && !m_ui.HasTerminal())
        file = wanted != nullptr && *wanted != 0 ? wanted : NewLogFile();
    if (!file.empty() && !MoveOutputTo(HostPath(FromUtf8(file))))
        Complain(file, L"cannot be written");
}

// Those of the command line come before those of the profile.
void Program::TakeSupportFolders()
{
    std::wstring folders = FromUtf8(m_options.supportPath), profile;
    if (!m_options.profile.empty() && !UseProfile(m_release, FromUtf8(m_options.profile), profile))
        Complain(m_options.profile, L"there is no such profile");
    if (!profile.empty())
        folders += (folders.empty() ? L"" : L";") + profile;
    if (folders.empty())
        return;
    const char* before = std::getenv("KX_SUPPORT_PATH");
    if (before != nullptr && *before != 0)
        folders += L";" + FromUtf8(before);
    SetEnvironmentVariableW(L"KX_SUPPORT_PATH", folders.c_str());
}

int Program::RunSteps(Session& session)
{
    std::wstring typed;
    if (!ReadSteps(typed) || !OpenDrawingFile() || !LoadModules())
        return kUnreadable;
    session.StartPrograms();
    if (m_desktop != nullptr)
        m_desktop->Show();
    int status = kDone;
    if (!m_options.steps.empty() && !session.Run(typed))
        status = kCommandFailed;
    if (session.options().hasKeyboard)
        session.Loop();
    if (!m_options.output.empty() && !Save())
        status = kNotSaved;
    if (!DrawPictures())
        status = kNotSaved;
    return status;
}

int Program::Run()
{
    SetUi(&m_ui);
    SetOwnProductVersion(m_release);
    if (m_options.hasWindow && !OpenWindow()) {
        SetUi(nullptr);
        return kWrongUsage;
    }
    MoveOutput();
    if (m_desktop == nullptr)
        WatchInterrupts();
    TakeSupportFolders();
    SessionOptions sessionOptions;
    sessionOptions.release = m_release;
    sessionOptions.echo = !m_options.isQuiet;
    sessionOptions.hasKeyboard = m_options.steps.empty() || m_options.staysOpen || m_options.hasWindow;
    if (m_options.staysOpen)
        m_ui.StayOpen();
    int status = kDone;
    {
        Session session(sessionOptions);
        HostWindow window(m_release, TakesTexts(m_options) && sessionOptions.hasKeyboard);
        m_published = &window;
        m_ui.SetWindow(&window);
        status = RunSteps(session);
        m_ui.SetWindow(nullptr);
        m_published = nullptr;
        m_ui.EndLine();
    }
    m_ui.EndLine();
    SetUi(nullptr);
    m_desktop.reset();
    return status;
}

int Program::ChangeInstallation()
{
    const std::wstring why = m_options.uninstalls ? Uninstall(m_release) : Install(m_release, m_options.installFolder);
    if (!why.empty())
        m_ui.Complain(why);
    return why.empty() ? kDone : kNotSaved;
}

int ShowDrawingInfo(const std::string& drawing)
{
    std::string lines;
    std::wstring why;
    if (!DrawingInfo(drawing, lines, why)) {
        std::fprintf(stderr, "kxcad: %s: %s\n", drawing.c_str(), ToUtf8(why).c_str());
        return kUnreadable;
    }
    std::fputs(lines.c_str(), stdout);
    return kDone;
}

}   // namespace

}   // namespace KxConsole

int main(int argc, char** argv)
{
    using namespace KxConsole;
    const Options options = ParseOptions(argc, argv);
    if (!options.error.empty()) {
        std::fprintf(stderr, "kxcad: %s\n", options.error.c_str());
        return kWrongUsage;
    }
    if (options.showsHelp || options.showsVersion) {
        std::fputs(options.showsHelp ? HelpText() : "kxcad 1.0.0\n", stdout);
        return kDone;
    }
    if (options.showsDebugOutput)
        return ShowDebugOutput() ? kDone : kUnreadable;
    if (options.showsInfo)
        return ShowDrawingInfo(options.drawing);
    Program program(options);
    return options.uninstalls || !options.installFolder.empty() ? program.ChangeInstallation() : program.Run();
}
