// Shows native windows of modules: in dialogs, in docks of the main window, and by themselves.
#pragma once
#include "ui/WindowBackend.h"
#include <functional>
#include <map>
#include <QPointer>
#include <QRect>
#include <QTimer>

class QDockWidget;
class QMainWindow;
class QMenu;

namespace KxPlat {
class DialogModel;
}

namespace KxDesktop {

class WindowWidget;

class QtWindows : public KxPlat::WindowBackend {
public:
    explicit QtWindows(QMainWindow& main);
    ~QtWindows() override;

    // While a dialog is on the screen, windows in it stand in `widget`, at places that `placed` gives.
    using PlaceOf = std::function<QRect(const RECT&)>;
    void BeginDialog(KxPlat::DialogModel& model, QWidget& widget, PlaceOf placed);
    void EndDialog(KxPlat::DialogModel& model);
    // The main window has another size.
    void FollowMainWindow();

    void Created(HWND window) override;
    void Destroyed(HWND window) override;
    void Placed(HWND window) override;
    void Reparented(HWND window) override;
    void Styled(HWND window) override;
    void Shown(HWND window) override;
    void TextChanged(HWND window) override;
    void PixelsChanged(HWND window) override;
    void FocusChanged(HWND window) override;
    void CursorChanged(WORD shape) override;
    UINT TrackMenu(HWND owner, const KxPlat::MenuModel& menu, POINT at) override;
    bool Dock(const KxPlat::DockRequest& request) override;
    KxPlat::TextMask DrawnText(std::wstring_view text, int height) override;
    void WorkPending(DWORD milliseconds) override;

private:
    struct Dialog {
        QWidget* widget;
        PlaceOf placed;
    };
    class DockCloser;

    WindowWidget* Find(HWND window) const;
    // Null for what has no place on the screen (yet).
    WindowWidget* Make(HWND window);
    void MakeChildren(HWND window);
    // Of a dialog that stays beside the rest; null for one that runs, and for other windows.
    QWidget* Panel(HWND dialog);
    void DropPanel(HWND dialog);
    QDockWidget* DockOf(HWND bar);
    void Work();

    QMainWindow& m_main;
    std::map<HWND, QPointer<WindowWidget>> m_widgets;
    std::map<HWND, QPointer<QDockWidget>> m_docks;
    std::map<HWND, QPointer<QWidget>> m_panels;
    std::map<KxPlat::DialogModel*, Dialog> m_dialogs;
    QTimer m_work;
    bool m_isDocking = false;
};

}   // namespace KxDesktop
