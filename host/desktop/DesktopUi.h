// The host seam in a window. Prompts run the window's events until the user has answered: there is one thread.
#pragma once
#include "Desktop.h"
#include "InputQueue.h"
#include <memory>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace KxDesktop {

class MainWindow;
class QtWindows;

class DesktopUi : public DesktopHost {
public:
    explicit DesktopUi(const DesktopSettings& settings);
    ~DesktopUi() override;

    void Show() override;

    void Print(std::wstring_view text) override;
    void Complain(std::wstring_view text) override;
    KxPlat::InputEvent Ask(const KxPlat::InputRequest& request) override;
    bool Interrupted() override;
    int ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type) override;
    bool AskFileName(const KxPlat::FileRequest& request, std::wstring& path) override;
    int RunDialog(KxPlat::DialogModel& dialog) override;
    void Progress(std::wstring_view what, int percent) override;
    void Regenerated() override;

private:
    // Lets the window live for a moment while something long runs.
    void Breathe();
    // A script or program answers what comes now.
    static bool IsScripted();
    bool TakeSentLine(KxPlat::InputEvent& event);

    DesktopSettings m_settings;
    int m_argumentCount = 1;
    char m_programName[6] = "kxcad";
    char* m_arguments[2] = {m_programName, nullptr};
    QApplication m_application;
    InputQueue m_queue;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<QtWindows> m_windows;
    QEventLoop* m_waiting = nullptr;
    QElapsedTimer m_breath;
    QTimer m_serve;
    bool m_isInterrupted = false;
    bool m_isShown = false;
};

}   // namespace KxDesktop
