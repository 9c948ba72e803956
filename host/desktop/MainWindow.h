// The desktop window: documents in tabs, the picture, the command line, panels and menus.
#pragma once
#include "ap/AcApDocManagerReactor.h"
#include "Desktop.h"
#include "InputQueue.h"
#include "RecentFiles.h"
#include "Theme.h"
#include <functional>
#include <memory>
#include <QMainWindow>

class QLabel;
class QMenu;
class QProgressBar;
class QSettings;
class QTabBar;

namespace KxDesktop {

class CommandDock;
class DrawingArea;
class LayerPanel;
class PropertyPanel;

class MainWindow : public QMainWindow {
public:
    MainWindow(InputQueue& queue, const DesktopSettings& settings);
    ~MainWindow() override;

    void ShowDocuments();
    void Print(std::wstring_view text);
    void BeginPrompt(const KxPlat::InputRequest& request);
    void EndPrompt(const KxPlat::InputEvent& event);
    // Everything that shows the drawing looks at it again.
    void FollowDrawing();
    void RegenerateSoon();
    // -1 ends it.
    void ShowProgress(const QString& what, int percent);

    // Esc while nothing is asked.
    std::function<void()> cancelled;

    std::function<void()> resized;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Documents go without a word to the window otherwise.
    class Reactor;

    void BuildParts();
    void BuildStatusBar();
    void BuildMenus();
    void BuildFileMenu(QMenu& menu);
    void BuildEditMenu(QMenu& menu);
    void BuildViewMenu(QMenu& menu);
    QAction* AddAction(QMenu& menu, const char* name, const QString& text, const QKeySequence& keys,
                       std::function<void()> work);
    void FillRecentMenu(QMenu& menu);
    void ShowContextMenu(const QPoint& place);
    void SetTheme(Theme theme);
    void ChangeLanguage(int language);
    void ConnectParts();

    void FollowTabs();
    void AddTab();
    void FollowTitle();
    void FollowSelection();
    void Escape();
    void SelectAll();
    void ActivateTab(int index);
    void CloseTab(int index);
    void OpenPath(const QString& path);
    void PlotToFile();
    bool MayClose(AcApDocument& document);
    bool SaveDocument(AcApDocument& document);
    void Forget(AcApDocument* document);

    InputQueue& m_queue;
    DesktopSettings m_settings;
    std::unique_ptr<QSettings> m_kept;
    std::unique_ptr<Reactor> m_reactor;
    RecentFiles m_recent;
    QTabBar* m_tabs = nullptr;
    DrawingArea* m_area = nullptr;
    CommandDock* m_command = nullptr;
    LayerPanel* m_layers = nullptr;
    PropertyPanel* m_properties = nullptr;
    QLabel* m_coordinates = nullptr;
    QLabel* m_selected = nullptr;
    QLabel* m_current = nullptr;
    QProgressBar* m_progress = nullptr;
    std::vector<AcApDocument*> m_documents;   // beside the tabs
    Theme m_theme = Theme::Dark;
    KxPlat::InputKind m_kind = KxPlat::InputKind::Command;
    bool m_isAsking = false;
    bool m_showsGrips = true;
};

}   // namespace KxDesktop
