#include "MainWindow.h"
#include "ap/Documents.h"
#include "CommandDock.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/core/DbCore.h"
#include "DrawingArea.h"
#include "DrawingEdit.h"
#include "ed/acedads.h"
#include "ed/Modules.h"
#include "ed/select/Candidates.h"
#include "FileDialogs.h"
#include "gs/Plot.h"
#include "Icons.h"
#include "LayerPanel.h"
#include "PropertyPanel.h"
#include "QtText.h"
#include "Texts.h"
#include "win/Files.h"
#include <algorithm>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QSettings>
#include <QStatusBar>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace KxPlat;

namespace KxDesktop {

class MainWindow::Reactor : public AcApDocManagerReactor {
public:
    explicit Reactor(MainWindow& window) : m_window(window) { acDocManager->addReactor(this); }
    ~Reactor() override { acDocManager->removeReactor(this); }
    void documentToBeDestroyed(AcApDocument* document) override { m_window.Forget(document); }

private:
    MainWindow& m_window;
};

MainWindow::MainWindow(InputQueue& queue, const DesktopSettings& settings)
    : m_queue(queue), m_settings(settings), m_recent(settings.stateFolder)
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    if (!settings.stateFolder.empty())
        m_kept = std::make_unique<QSettings>(
            QString::fromStdString(settings.stateFolder) + QStringLiteral("/window.ini"), QSettings::IniFormat);
    const auto kept = [this](const char* key, int byDefault) {
        return m_kept == nullptr ? byDefault : m_kept->value(QLatin1String(key), byDefault).toInt();
    };
    SetLanguage(Language(kept("language", int(SystemLanguage())) != 0));
    BuildParts();
    BuildStatusBar();
    BuildMenus();
    ConnectParts();
    resize(1280, 800);
    resizeDocks({m_layers}, {360}, Qt::Horizontal);
    resizeDocks({m_command}, {130}, Qt::Vertical);
    if (m_kept != nullptr) {
        restoreGeometry(m_kept->value(QStringLiteral("geometry")).toByteArray());
        restoreState(m_kept->value(QStringLiteral("docks")).toByteArray());
    }
    SetTheme(Theme(kept("theme", 0) != 0));
    m_reactor = std::make_unique<Reactor>(*this);
    FollowTitle();
}

MainWindow::~MainWindow()
{
    SetViewHandler(nullptr);
    if (m_kept != nullptr) {
        m_kept->setValue(QStringLiteral("geometry"), saveGeometry());
        m_kept->setValue(QStringLiteral("docks"), saveState());
    }
}

// --- building ---

void MainWindow::BuildParts()
{
    auto* middle = new QWidget(this);
    middle->setObjectName(QStringLiteral("middle"));
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_tabs = new QTabBar(middle);
    m_tabs->setObjectName(QStringLiteral("documentTabs"));
    m_tabs->setExpanding(false);
    m_tabs->setDocumentMode(true);
    m_tabs->setDrawBase(false);
    m_tabs->setFocusPolicy(Qt::NoFocus);
    m_area = new DrawingArea(m_queue, middle);
    column->addWidget(m_tabs);
    column->addWidget(m_area, 1);
    setCentralWidget(middle);

    m_layers = new LayerPanel(this);
    m_properties = new PropertyPanel(this);
    m_command = new CommandDock(m_queue, m_settings.stateFolder, this);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    addDockWidget(Qt::RightDockWidgetArea, m_layers);
    addDockWidget(Qt::RightDockWidgetArea, m_properties);
    addDockWidget(Qt::BottomDockWidgetArea, m_command);
}

void MainWindow::BuildStatusBar()
{
    statusBar()->setObjectName(QStringLiteral("statusBar"));
    statusBar()->setSizeGripEnabled(false);
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("progress"));
    m_progress->setFixedWidth(220);
    m_progress->setMaximumHeight(16);
    m_progress->hide();
    m_selected = new QLabel(this);
    m_selected->setObjectName(QStringLiteral("selectedCount"));
    m_current = new QLabel(this);
    m_current->setObjectName(QStringLiteral("currentLayer"));
    m_coordinates = new QLabel(this);
    m_coordinates->setObjectName(QStringLiteral("coordinates"));
    m_coordinates->setMinimumWidth(240);
    m_coordinates->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (QWidget* part : {static_cast<QWidget*>(m_progress), static_cast<QWidget*>(m_selected),
                          static_cast<QWidget*>(m_current), static_cast<QWidget*>(m_coordinates)})
        statusBar()->addPermanentWidget(part);
}

void MainWindow::ConnectParts()
{
    connect(m_tabs, &QTabBar::tabBarClicked, this, [this](int index) { ActivateTab(index); });
    m_command->escaped = [this] { Escape(); };
    m_area->typed = [this](QKeyEvent* key) {
        if (key->key() == Qt::Key_Escape)
            Escape();
        else if (key->key() == Qt::Key_Delete && !m_area->Selected().empty())
            m_queue.Run({L"_ERASE"});
        else
            m_command->Forward(key);
    };
    m_area->pointerMoved = [this](const AcGePoint3d& point) {
        m_coordinates->setText(
            QStringLiteral("%1, %2, %3  ").arg(point.x, 0, 'f', 4).arg(point.y, 0, 'f', 4).arg(point.z, 0, 'f', 4));
    };
    m_area->selectionChanged = [this] { FollowSelection(); };
    m_area->menuWanted = [this](const QPoint& place) { ShowContextMenu(place); };
    const auto tell = [this](const QString& why) { statusBar()->showMessage(why, 8000); };
    const auto follow = [this] { FollowDrawing(); };
    SetViewHandler([this](const ViewRequest& request) { m_area->Look(request); });
    m_layers->mayChange = m_properties->mayChange = [this] { return m_isAsking; };
    m_layers->changed = follow;
    m_layers->refused = tell;
    m_properties->changed = follow;
    m_properties->refused = tell;
}

void MainWindow::SetTheme(Theme theme)
{
    m_theme = theme;
    ApplyTheme(*qApp, theme);
    m_area->SetBackground(DrawingBackground(theme));
    m_layers->SetLanguageTexts();
    if (m_kept != nullptr)
        m_kept->setValue(QStringLiteral("theme"), int(theme));
}

void MainWindow::ChangeLanguage(int language)
{
    SetLanguage(Language(language));
    if (m_kept != nullptr)
        m_kept->setValue(QStringLiteral("language"), language);
    BuildMenus();
    m_layers->SetLanguageTexts();
    m_properties->SetLanguageTexts();
    m_command->SetLanguageTexts();
    FollowDrawing();
}

// --- prompts ---

void MainWindow::Print(std::wstring_view text)
{
    m_command->Print(text);
}

void MainWindow::BeginPrompt(const InputRequest& request)
{
    m_isAsking = true;
    m_kind = request.kind;
    FollowDrawing();
    m_command->ShowPrompt(request);
    m_area->SetPrompt(request);
}

void MainWindow::EndPrompt(const InputEvent& event)
{
    m_isAsking = false;
    m_command->TakeAnswer(event);
    m_area->SetBusy();
}

void MainWindow::RegenerateSoon()
{
    m_area->RegenerateSoon();
}

void MainWindow::ShowProgress(const QString& what, int percent)
{
    m_progress->setVisible(percent >= 0);
    m_progress->setValue(std::max(0, percent));
    m_progress->setFormat(what + QStringLiteral(" %p%"));
}

void MainWindow::Escape()
{
    if (m_area->DropRectangle())
        return;
    if (!m_isAsking) {
        if (cancelled)
            cancelled();
        return;
    }
    if (m_kind == InputKind::Command)
        m_area->Select({});
    m_queue.Cancel();
}

void MainWindow::SelectAll()
{
    if (AcApDocument* document = acDocManager->mdiActiveDocument(); document != nullptr && m_isAsking)
        m_area->Select(EntitiesOf(*document->database(), Reach::Unlocked));
}

// --- documents ---

void MainWindow::ShowDocuments()
{
    FollowDrawing();
}

void MainWindow::FollowDrawing()
{
    AcApDocument* document = acDocManager->mdiActiveDocument();
    FollowTabs();
    m_area->ShowDocument(document);
    m_area->Follow();
    m_layers->ShowDocument(document);
    FollowSelection();
    FollowTitle();
}

void MainWindow::FollowTabs()
{
    const std::vector<AcApDocument*>& open = OpenDocuments();
    for (size_t at = 0; at < open.size(); ++at) {
        if (at >= size_t(m_tabs->count()))
            AddTab();
        const bool isChanged = CoreOf(*open[at]->database()).modified != 0;
        m_tabs->setTabText(int(at), ToQt(open[at]->docTitle()) + (isChanged ? QStringLiteral(" *") : QString()));
        m_tabs->setTabToolTip(int(at), ToQt(open[at]->fileName()));
    }
    while (m_tabs->count() > int(open.size()))
        m_tabs->removeTab(m_tabs->count() - 1);
    m_documents = open;
    const auto current = std::find(open.begin(), open.end(), acDocManager->mdiActiveDocument());
    if (current != open.end())
        m_tabs->setCurrentIndex(int(current - open.begin()));
}

void MainWindow::AddTab()
{
    const int index = m_tabs->addTab(QString());
    auto* cross = new QToolButton(m_tabs);
    cross->setObjectName(QStringLiteral("closeTab"));
    cross->setText(QStringLiteral("×"));
    cross->setAutoRaise(true);
    cross->setFocusPolicy(Qt::NoFocus);
    connect(cross, &QToolButton::clicked, this, [this, cross] {
        for (int at = 0; at < m_tabs->count(); ++at)
            if (m_tabs->tabButton(at, QTabBar::RightSide) == cross)
                return CloseTab(at);
    });
    m_tabs->setTabButton(index, QTabBar::RightSide, cross);
}

void MainWindow::FollowTitle()
{
    AcApDocument* document = acDocManager->mdiActiveDocument();
    if (document == nullptr)
        return setWindowTitle(QStringLiteral("kxcad"));
    setWindowTitle(ToQt(document->docTitle()) + QStringLiteral("[*] - kxcad"));
    setWindowModified(CoreOf(*document->database()).modified != 0);
    if (document->isNamedDrawing())
        m_recent.Add(QString::fromStdString(HostPath(document->fileName())));
    const OpenObject<AcDbLayerTableRecord> layer(document->database()->clayer(), AcDb::kForRead);
    m_current->setText(layer ? Say(Text::Layer) + QStringLiteral(": ") + ToQt(layer->nameText().GetString()) +
                                   QStringLiteral("  ")
                             : QString());
}

void MainWindow::FollowSelection()
{
    const std::vector<AcDbObjectId> ids = m_area->Selected();
    m_properties->Show(acDocManager->mdiActiveDocument(), ids);
    m_selected->setText(ids.empty() ? QString() : Say(Text::Selected).arg(ids.size()) + QStringLiteral("  "));
}

void MainWindow::Forget(AcApDocument* document)
{
    m_area->Forget(document);
    m_layers->ShowDocument(nullptr);
    m_properties->Show(nullptr, {});
}

// What is clicked becomes current once no command runs in the other drawing.
void MainWindow::ActivateTab(int index)
{
    if (index < 0 || index >= int(m_documents.size()) ||
        m_documents[size_t(index)] == acDocManager->mdiActiveDocument())
        return;
    m_queue.Do([this, document = m_documents[size_t(index)]] {
        if (std::find(OpenDocuments().begin(), OpenDocuments().end(), document) != OpenDocuments().end())
            acDocManager->activateDocument(document);
        FollowDrawing();
    });
}

void MainWindow::CloseTab(int index)
{
    if (index < 0 || index >= int(m_documents.size()))
        return;
    m_queue.Do([this, document = m_documents[size_t(index)]] {
        if (std::find(OpenDocuments().begin(), OpenDocuments().end(), document) == OpenDocuments().end() ||
            !MayClose(*document))
            return;
        acDocManager->closeDocument(document);
        // There is always a drawing.
        AcApDocument* fresh = nullptr;
        std::wstring why;
        if (OpenDocuments().empty())
            NewDrawing(L"", fresh, why);
        FollowDrawing();
    });
}

void MainWindow::OpenPath(const QString& path)
{
    m_queue.Do([this, file = DrivePath(path.toStdString())] {
        for (AcApDocument* open : OpenDocuments())
            if (open->isNamedDrawing() && HostPath(open->fileName()) == HostPath(file)) {
                acDocManager->activateDocument(open);
                return FollowDrawing();
            }
        AcApDocument* document = nullptr;
        std::wstring why;
        if (OpenDrawing(file, document, why) != Acad::eOk)
            QMessageBox::warning(this, Say(Text::CannotOpen), ToQt(file + L"\n\n" + why));
        FollowDrawing();
    });
}

bool MainWindow::MayClose(AcApDocument& document)
{
    if (CoreOf(*document.database()).modified == 0)
        return true;
    QMessageBox box(QMessageBox::Question, Say(Text::UnsavedTitle),
                    Say(Text::SaveChanges).arg(ToQt(document.docTitle())),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("saveChanges"));
    const int answer = box.exec();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && SaveDocument(document));
}

bool MainWindow::SaveDocument(AcApDocument& document)
{
    std::wstring path = document.fileName(), why;
    if (!document.isNamedDrawing() && !RunFileDialog(*this, {FromQt(Say(Text::SaveAs)), path, L"dxf;dwg", true}, path))
        return false;
    SendToModules(AcRx::kSaveMsg, &document);
    if (SaveDrawing(document, path, AcDb::kDHL_CURRENT, why) == Acad::eOk)
        return true;
    QMessageBox::warning(this, ToQt(document.docTitle()), ToQt(path + L"\n\n" + why));
    return false;
}

void MainWindow::PlotToFile()
{
    AcApDocument* document = acDocManager->mdiActiveDocument();
    if (document == nullptr)
        return;
    const std::wstring name = document->docTitle();
    const std::wstring path = AskPicturePath(*this, Say(Text::Plot).remove(QLatin1Char('&')), Say(Text::PictureFiles),
                                             name.substr(0, name.rfind(L'.')) + L".pdf");
    if (path.empty())
        return;
    const PlotResult result = Plot(*document->database(), path, PlotSettings());
    if (!result.error.empty())
        QMessageBox::warning(this, Say(Text::Plot).remove(QLatin1Char('&')), ToQt(path + L"\n\n" + result.error));
    else
        Print(L"\n" + path + (result.warning.empty() ? L"" : L": " + result.warning));
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (resized)
        resized();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (!m_isAsking)
        return;
    // A copy: what is asked may change the list.
    const std::vector<AcApDocument*> open(OpenDocuments().begin(), OpenDocuments().end());
    for (AcApDocument* document : open)
        if (!MayClose(*document))
            return;
    m_queue.End();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            OpenPath(url.toLocalFile());
    event->acceptProposedAction();
}

}   // namespace KxDesktop
