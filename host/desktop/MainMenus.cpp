// The menus of the window.
#include "ap/AcApDocManager.h"
#include "CommandDock.h"
#include "CommandMenus.h"
#include "DrawingArea.h"
#include "ed/EditorState.h"
#include "LayerPanel.h"
#include "MainWindow.h"
#include "PropertyPanel.h"
#include "QtText.h"
#include "Texts.h"
#include <QActionGroup>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>

using namespace KxPlat;

namespace KxDesktop {

void MainWindow::BuildMenus()
{
    // Those in another language go with all that is in them.
    for (QMenu* menu : menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly))
        delete menu;
    menuBar()->clear();
    menuBar()->setObjectName(QStringLiteral("menuBar"));
    menuBar()->setNativeMenuBar(false);
    const auto add = [this](const char* name, Text text) {
        QMenu* menu = menuBar()->addMenu(Say(text));
        menu->setObjectName(QLatin1String(name));
        return menu;
    };
    BuildFileMenu(*add("menu.file", Text::File));
    BuildEditMenu(*add("menu.edit", Text::Edit));
    BuildViewMenu(*add("menu.view", Text::View));
    auto* help = new QMenu(Say(Text::Help), menuBar());
    help->setObjectName(QStringLiteral("menu.help"));
    AddAction(*help, "commands", Say(Text::Commands), QKeySequence::HelpContents, [this] { m_queue.Run({L"_HELP"}); });
    AddCommandMenus(*menuBar(), *help, [this](const std::wstring& name) { m_queue.Run({L"_" + name}); });
    menuBar()->addMenu(help);
}

QAction* MainWindow::AddAction(QMenu& menu, const char* name, const QString& text, const QKeySequence& keys,
                               std::function<void()> work)
{
    QAction* action = menu.addAction(text);
    action->setObjectName(QLatin1String("action.") + QLatin1String(name));
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [work = std::move(work)] { work(); });
    return action;
}

void MainWindow::BuildFileMenu(QMenu& menu)
{
    AddAction(menu, "new", Say(Text::New), QKeySequence::New, [this] { m_queue.Run({L"_NEW", L"."}); });
    AddAction(menu, "open", Say(Text::Open), QKeySequence::Open, [this] { m_queue.Run({L"_OPEN"}); });
    QMenu* recent = menu.addMenu(Say(Text::Recent));
    recent->setObjectName(QStringLiteral("menu.recent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecentMenu(*recent); });
    menu.addSeparator();
    AddAction(menu, "save", Say(Text::Save), QKeySequence::Save, [this] { m_queue.Run({L"_QSAVE"}); });
    AddAction(menu, "saveAs", Say(Text::SaveAs), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
              [this] { m_queue.Run({L"_SAVEAS"}); });
    AddAction(menu, "plot", Say(Text::Plot), QKeySequence::Print, [this] { m_queue.Do([this] { PlotToFile(); }); });
    menu.addSeparator();
    AddAction(menu, "close", Say(Text::Close), QKeySequence(Qt::CTRL | Qt::Key_W), [this] {
        CloseTab(int(std::find(m_documents.begin(), m_documents.end(), acDocManager->mdiActiveDocument()) -
                     m_documents.begin()));
    });
    AddAction(menu, "quit", Say(Text::Quit), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });
}

void MainWindow::FillRecentMenu(QMenu& menu)
{
    menu.clear();
    int number = 0;
    for (const QString& path : m_recent.Existing()) {
        QAction* action = menu.addAction(QStringLiteral("&%1  %2").arg(++number).arg(QFileInfo(path).fileName()));
        action->setObjectName(QStringLiteral("recent.%1").arg(number));
        action->setStatusTip(path);
        connect(action, &QAction::triggered, this, [this, path] { OpenPath(path); });
    }
    if (number == 0)
        menu.addAction(Say(Text::NoRecent))->setEnabled(false);
}

void MainWindow::BuildEditMenu(QMenu& menu)
{
    AddAction(menu, "undo", Say(Text::Undo), QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { m_queue.Run({L"_U"}); });
    AddAction(menu, "redo", Say(Text::Redo), QKeySequence(Qt::CTRL | Qt::Key_Y), [this] { m_queue.Run({L"_REDO"}); });
    menu.addSeparator();
    AddAction(menu, "erase", Say(Text::Erase), QKeySequence(), [this] { m_queue.Run({L"_ERASE"}); });
    AddAction(menu, "selectAll", Say(Text::SelectAll), QKeySequence(Qt::CTRL | Qt::Key_A), [this] { SelectAll(); });
    AddAction(menu, "deselect", Say(Text::Deselect), QKeySequence(), [this] { m_area->Select({}); });
}

void MainWindow::BuildViewMenu(QMenu& menu)
{
    AddAction(menu, "zoomIn", Say(Text::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Plus),
              [this] { m_area->ZoomBy(1.5); });
    AddAction(menu, "zoomOut", Say(Text::ZoomOut), QKeySequence(Qt::CTRL | Qt::Key_Minus),
              [this] { m_area->ZoomBy(1 / 1.5); });
    AddAction(menu, "zoomExtents", Say(Text::ZoomExtents), QKeySequence(Qt::CTRL | Qt::Key_0),
              [this] { m_area->ZoomExtents(); });
    AddAction(menu, "zoomWindow", Say(Text::ZoomWindow), QKeySequence(), [this] { m_area->BeginZoomWindow(); });
    AddAction(menu, "regenerate", Say(Text::Regenerate), QKeySequence::Refresh, [this] { m_queue.Run({L"_REGEN"}); });
    menu.addSeparator();
    QMenu* panels = menu.addMenu(Say(Text::Panels));
    panels->setObjectName(QStringLiteral("menu.panels"));
    for (QDockWidget* dock : {static_cast<QDockWidget*>(m_layers), static_cast<QDockWidget*>(m_properties),
                              static_cast<QDockWidget*>(m_command)})
        panels->addAction(dock->toggleViewAction());
    QAction* grips = AddAction(menu, "grips", Say(Text::Grips), QKeySequence(), [this] {
        m_showsGrips = !m_showsGrips;
        m_area->SetShowsGrips(m_showsGrips);
    });
    grips->setCheckable(true);
    grips->setChecked(m_showsGrips);
    menu.addSeparator();
    QMenu* themes = menu.addMenu(Say(Text::Theme));
    themes->setObjectName(QStringLiteral("menu.theme"));
    auto* themeGroup = new QActionGroup(themes);
    for (const auto& [name, text, theme] :
         {std::tuple("dark", Text::Dark, Theme::Dark), {"light", Text::Light, Theme::Light}}) {
        QAction* action =
            AddAction(*themes, name, Say(text), QKeySequence(), [this, theme = theme] { SetTheme(theme); });
        action->setCheckable(true);
        action->setActionGroup(themeGroup);
        action->setChecked(theme == m_theme);
    }
    QMenu* languages = menu.addMenu(Say(Text::Language));
    languages->setObjectName(QStringLiteral("menu.language"));
    auto* languageGroup = new QActionGroup(languages);
    for (const auto& [name, text, language] :
         {std::tuple("english", "English", Language::English), {"chinese", "中文", Language::Chinese}}) {
        // The menus are built anew, after this one has closed.
        QAction* action =
            AddAction(*languages, name, QString::fromUtf8(text), QKeySequence(), [this, language = language] {
                QMetaObject::invokeMethod(
                    this, [this, language] { ChangeLanguage(int(language)); }, Qt::QueuedConnection);
            });
        action->setCheckable(true);
        action->setActionGroup(languageGroup);
        action->setChecked(language == CurrentLanguage());
    }
}

void MainWindow::ShowContextMenu(const QPoint& place)
{
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("contextMenu"));
    if (const EditorState* editor = TheEditor(); editor != nullptr && !editor->lastCommand.empty()) {
        AddAction(menu, "repeat", ToQt(editor->lastCommand), QKeySequence(), [this] { m_queue.Run({L""}); });
        menu.addSeparator();
    }
    if (!m_area->Selected().empty())
        AddAction(menu, "eraseSelected", Say(Text::Erase), QKeySequence(), [this] { m_queue.Run({L"_ERASE"}); });
    AddAction(menu, "selectAllHere", Say(Text::SelectAll), QKeySequence(), [this] { SelectAll(); });
    AddAction(menu, "deselectHere", Say(Text::Deselect), QKeySequence(), [this] { m_area->Select({}); });
    menu.addSeparator();
    AddAction(menu, "extentsHere", Say(Text::ZoomExtents), QKeySequence(), [this] { m_area->ZoomExtents(); });
    menu.exec(place);
}

}   // namespace KxDesktop
