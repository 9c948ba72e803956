#include "DesktopUi.h"
#include "ed/Session.h"
#include "ed/SessionAsk.h"
#include "FileDialogs.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "ModelDialog.h"
#include "QtText.h"
#include "QtWindows.h"
#include "ui/TerminalDialog.h"
#include "ui/TextMessage.h"
#include "win/CodePage.h"
#include <cstdio>
#include <cstdlib>
#include <QTimer>

using namespace KxPlat;

namespace KxDesktop {

namespace {

constexpr int kServe = 60;    // milliseconds between looks at what other programs send
constexpr int kBreath = 40;   // milliseconds between two breaths of something long

// The toolkit gives up on its own where it finds no screen; the program says so as it says everything.
void TakeMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtFatalMsg)
        return;
    std::fprintf(stderr, "kxcad: --window: %s\n", text.section(QLatin1Char('\n'), 0, 0).toUtf8().constData());
    std::fflush(nullptr);
    std::_Exit(2);
}

}   // namespace

DesktopUi::DesktopUi(const DesktopSettings& settings)
    : m_settings(settings), m_application(m_argumentCount, m_arguments)
{
    QApplication::setApplicationName(QStringLiteral("kxcad"));
    QApplication::setQuitOnLastWindowClosed(false);
    m_window = std::make_unique<MainWindow>(m_queue, m_settings);
    m_windows = std::make_unique<QtWindows>(*m_window);
    m_window->resized = [this] { m_windows->FollowMainWindow(); };
    m_queue.arrived = [this] {
        if (m_waiting != nullptr)
            m_waiting->quit();
    };
    m_window->cancelled = [this] { m_isInterrupted = true; };
    QObject::connect(&m_serve, &QTimer::timeout, &m_serve, [this] {
        if (m_settings.serve)
            m_settings.serve();
    });
    m_serve.start(kServe);
    m_breath.start();
}

DesktopUi::~DesktopUi()
{
    m_queue.arrived = nullptr;
    m_window->resized = nullptr;
    m_windows.reset();
    m_window.reset();
}

void DesktopUi::Show()
{
    m_isShown = true;
    m_window->ShowDocuments();
    m_window->show();
}

void DesktopUi::Print(std::wstring_view text)
{
    m_window->Print(text);
}

void DesktopUi::Complain(std::wstring_view text)
{
    m_window->Print(L"\n" + std::wstring(text));
    std::fprintf(stderr, "kxcad: %s\n", ToUtf8(text).c_str());
}

InputEvent DesktopUi::Ask(const InputRequest& request)
{
    InputEvent event;
    m_isInterrupted = false;
    m_window->BeginPrompt(request);
    QTimer look;
    QEventLoop loop;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (TakeSentLine(event))
            loop.quit();
    });
    look.start(kServe);
    while (!TakeSentLine(event) && !m_queue.Take(request, event)) {
        QEventLoop* outer = std::exchange(m_waiting, &loop);
        loop.exec();
        m_waiting = outer;
        if (event.type != InputEvent::Type::End)
            break;
    }
    m_window->EndPrompt(event);
    m_breath.restart();
    return event;
}

bool DesktopUi::TakeSentLine(InputEvent& event)
{
    std::wstring line;
    if (event.type != InputEvent::Type::End || !m_settings.takeLine || !m_settings.takeLine(line))
        return false;
    event.type = InputEvent::Type::Text;
    event.text = line;
    return true;
}

void DesktopUi::Breathe()
{
    if (!m_isShown || m_breath.elapsed() < kBreath)
        return;
    m_breath.restart();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

bool DesktopUi::Interrupted()
{
    Breathe();
    return std::exchange(m_isInterrupted, false);
}

bool DesktopUi::IsScripted()
{
    Session* session = Session::Current();
    return session != nullptr && !session->input().IsKeyboardNext();
}

int DesktopUi::ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type)
{
    if (IsScripted())
        return AskMessage(*this, text, caption, type, AskSession);
    m_window->FollowDrawing();
    return RunMessageBox(*m_window, text, caption, type);
}

bool DesktopUi::AskFileName(const FileRequest& request, std::wstring& path)
{
    m_window->FollowDrawing();
    return RunFileDialog(*m_window, request, path);
}

int DesktopUi::RunDialog(DialogModel& dialog)
{
    if (IsScripted())
        return RunTerminalDialog(dialog, *this, AskSession);
    m_window->FollowDrawing();
    return RunModelDialog(*m_window, dialog, *m_windows, [this] { m_window->FollowDrawing(); });
}

void DesktopUi::Progress(std::wstring_view what, int percent)
{
    m_window->ShowProgress(ToQt(what), percent);
    if (m_isShown)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 2);
}

void DesktopUi::Regenerated()
{
    m_window->RegenerateSoon();
}

}   // namespace KxDesktop

KxDesktop::DesktopHost* KxOpenDesktop(const KxDesktop::DesktopSettings& settings, std::wstring& error)
{
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != 0;
    };
    if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM")) {
        error = L"there is no display";
        return nullptr;
    }
    qInstallMessageHandler(KxDesktop::TakeMessage);
    return new KxDesktop::DesktopUi(settings);
}
