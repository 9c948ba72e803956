#include "Desk.h"
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "desktop/Desktop.h"
#include "ed/acedads.h"
#include "ed/select/Candidates.h"
#include "ed/select/DocumentSelection.h"
#include "ed/Session.h"
#include <algorithm>
#include <deque>
#include <memory>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

using namespace KxPlat;

namespace KxTest {

namespace {

constexpr int kPatience = 15000;   // milliseconds for one step

// One window and one session serve all tests: starting them costs more than most tests.
struct Host {
    Host()
    {
        std::wstring error;
        ui.reset(KxOpenDesktop(KxDesktop::DesktopSettings(), error));
        if (ui == nullptr)
            return;
        SetUi(ui.get());
        session = std::make_unique<Session>();
        AcApDocument* document = nullptr;
        std::wstring why;
        NewDrawing(L"", document, why);
        isLoaded =
            acedArxLoad(
                (std::wstring(L"Z:") + QString(QStringLiteral(KX_BIN "/KxArxBase.arx")).toStdWString()).c_str()) ==
            RTNORM;
        session->StartPrograms();
        ui->Show();
    }
    std::unique_ptr<KxDesktop::DesktopHost> ui;
    std::unique_ptr<Session> session;
    bool isLoaded = false;
};

std::unique_ptr<Host>& TheHost()
{
    static std::unique_ptr<Host> host;
    return host;
}

class HostEnvironment : public testing::Environment {
public:
    void SetUp() override { TheHost() = std::make_unique<Host>(); }
    void TearDown() override
    {
        TheHost()->session.reset();
        SetUi(nullptr);
        TheHost().reset();
    }
};

class Runner {
public:
    explicit Runner(const std::vector<Desk::Step>& steps) : m_steps(steps.begin(), steps.end())
    {
        m_timer.setInterval(4);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Next(); });
        m_timer.start();
        m_patience.start();
    }
    bool IsDone() const { return m_steps.empty(); }

private:
    void Next()
    {
        if (m_isInStep || m_steps.empty())
            return;
        m_isInStep = true;
        const bool isDone = m_steps.front()();
        m_isInStep = false;
        if (!isDone && m_patience.elapsed() < kPatience)
            return;
        if (!isDone)
            ADD_FAILURE() << "step " << m_number << " does not come true\n" << Output().right(600).toStdString();
        ++m_number;
        m_steps.pop_front();
        m_patience.restart();
        // The session waits for input: Esc lets it come back.
        if (m_steps.empty())
            QTest::keyClick(Find(QStringLiteral("commandLine")), Qt::Key_Escape);
    }

    std::deque<Desk::Step> m_steps;
    QTimer m_timer;
    QElapsedTimer m_patience;
    bool m_isInStep = false;
    int m_number = 1;
};

const testing::Environment* const g_environment = testing::AddGlobalTestEnvironment(new HostEnvironment);

}   // namespace

Desk::Desk()
{
    std::wstring why;
    EXPECT_TRUE(TheHost()->isLoaded);
    EXPECT_EQ(NewDrawing(L"", m_document, why), Acad::eOk);
}

Desk::Desk(const std::wstring& path)
{
    std::wstring why;
    EXPECT_TRUE(TheHost()->isLoaded);
    EXPECT_EQ(OpenDrawing(path, m_document, why), Acad::eOk);
}

AcDbDatabase& Desk::database() const
{
    return *m_document->database();
}

void Desk::Run(const std::wstring& lines)
{
    TheHost()->session->Run(lines);
}

void Desk::Do(const std::vector<Step>& steps)
{
    std::vector<Step> all = steps;
    all.push_back(Until(IsAtCommandPrompt));
    Runner runner(all);
    while (!runner.IsDone() && TheHost()->session->line().ExecuteNext()) {
    }
}

// --- steps ---

Desk::Step Check(std::function<void()> look)
{
    return [look] {
        look();
        return true;
    };
}

Desk::Step Until(std::function<bool()> isSo)
{
    return isSo;
}

Desk::Step Type(const QString& line)
{
    return [line] {
        auto* edit = FindAs<QLineEdit>(QStringLiteral("commandLine"));
        if (edit == nullptr || PromptText().isEmpty())
            return false;
        edit->setFocus();
        edit->setText(line);
        QTest::keyClick(edit, Qt::Key_Return);
        return true;
    };
}

Desk::Step Key(int key)
{
    return Check([key] {
        QWidget* target = QApplication::focusWidget();
        if (target == nullptr)
            target = QApplication::activeModalWidget();
        if (target == nullptr)
            target = Find(QStringLiteral("commandLine"));
        QTest::keyClick(target, Qt::Key(key));
    });
}

Desk::Step Click(const QPoint& place, Qt::KeyboardModifiers keys)
{
    return Check([=] { QTest::mouseClick(Find(QStringLiteral("drawingArea")), Qt::LeftButton, keys, place); });
}

Desk::Step Move(const QPoint& place)
{
    return Check([=] { QTest::mouseMove(Find(QStringLiteral("drawingArea")), place); });
}

Desk::Step Drag(const QPoint& from, const QPoint& to)
{
    return Check([=] {
        QWidget* area = Find(QStringLiteral("drawingArea"));
        QTest::mousePress(area, Qt::LeftButton, {}, from);
        QTest::mouseMove(area, to);
        QTest::mouseRelease(area, Qt::LeftButton, {}, to);
    });
}

Desk::Step Trigger(const QString& name)
{
    return Check([name] {
        QAction* action = FindAction(name);
        ASSERT_NE(action, nullptr) << name.toStdString();
        for (QMenu* menu : Find(QStringLiteral("mainWindow"))->findChildren<QMenu*>())
            if (menu->actions().contains(action)) {
                bool isTaken = false;
                const auto watch =
                    QObject::connect(action, &QAction::triggered, action, [&isTaken] { isTaken = true; });
                menu->popup(QPoint(20, 20));
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
                menu->close();
                // A menu that has only just come up lets the first click pass.
                if (!isTaken)
                    action->trigger();
                QObject::disconnect(watch);
                return;
            }
        FAIL() << name.toStdString() << " is in no menu";
    });
}

// --- looks ---

std::wstring Sample(const char* name)
{
    return L"Z:" + QString(QStringLiteral(KX_SAMPLES "/") + QLatin1String(name)).toStdWString();
}

QWidget* Find(const QString& name)
{
    for (QWidget* widget : QApplication::allWidgets())
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    return nullptr;
}

QAction* FindAction(const QString& name)
{
    return Find(QStringLiteral("mainWindow"))->findChild<QAction*>(name);
}

QDialog* OpenDialog()
{
    return qobject_cast<QDialog*>(QApplication::activeModalWidget());
}

QString Output()
{
    return FindAs<QPlainTextEdit>(QStringLiteral("commandOutput"))->toPlainText();
}

QString PromptText()
{
    auto* prompt = FindAs<QLabel>(QStringLiteral("commandPrompt"));
    return prompt == nullptr ? QString() : prompt->text();
}

bool IsAtCommandPrompt()
{
    return OpenDialog() == nullptr && PromptText() == QLatin1String("Command:");
}

QImage DrawingPicture()
{
    QWidget* area = Find(QStringLiteral("drawingArea"));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(area, &leave);
    for (int i = 0; i < 40; ++i)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
    return area->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

int PixelsOf(const QImage& image, QRgb color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        // What lies above the colour is nobody's.
        count += int(
            std::count_if(line, line + image.width(), [color](QRgb each) { return ((each ^ color) & 0xFFFFFF) == 0; }));
    }
    return count;
}

QPoint Middle()
{
    return Find(QStringLiteral("drawingArea"))->rect().center();
}

size_t EntityCount(AcDbDatabase& database)
{
    return EntitiesOf(database, Reach::Drawing).size();
}

std::vector<AcDbObjectId> SelectedBefore(AcApDocument& document)
{
    return PartOf<DocumentSelection>(document).pickFirst;
}

}   // namespace KxTest

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
