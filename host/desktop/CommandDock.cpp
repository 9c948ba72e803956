#include "CommandDock.h"
#include "ed/AcEdCommandStack.h"
#include "QtText.h"
#include "Texts.h"
#include <memory>
#include <QAbstractItemView>
#include <QCompleter>
#include <QCoreApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringListModel>
#include <QTextStream>

using namespace KxPlat;

namespace KxDesktop {

namespace {

constexpr qsizetype kMostHistory = 500;
constexpr int kMostLines = 5000;

// Names are typed without regard to case; those of the module read best as they were given.
QStringList CommandNames()
{
    QStringList names;
    AcEdCommandStack* stack = acedRegCmds;
    if (stack == nullptr)
        return names;
    std::unique_ptr<AcEdCommandIterator> commands(stack->iterator());
    for (; !commands->done(); commands->next())
        for (const ACHAR* name : {commands->command()->globalName(), commands->command()->localName()})
            names.append(ToQt(name));
    names.removeDuplicates();
    names.sort(Qt::CaseInsensitive);
    return names;
}

}   // namespace

CommandDock::CommandDock(InputQueue& queue, const std::string& stateFolder, QWidget* parent)
    : QDockWidget(parent), m_queue(queue)
{
    setObjectName(QStringLiteral("commandDock"));
    setFeatures(DockWidgetMovable | DockWidgetFloatable | DockWidgetClosable);
    auto* body = new QWidget(this);
    body->setObjectName(QStringLiteral("commandBody"));
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_output = new QPlainTextEdit(body);
    m_output->setObjectName(QStringLiteral("commandOutput"));
    m_output->setReadOnly(true);
    m_output->setMaximumBlockCount(kMostLines);
    m_output->setFocusPolicy(Qt::ClickFocus);
    m_output->setFrameShape(QFrame::NoFrame);
    m_output->setMinimumHeight(48);
    column->addWidget(m_output, 1);
    auto* bar = new QWidget(body);
    bar->setObjectName(QStringLiteral("commandBar"));
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(8, 3, 8, 3);
    row->setSpacing(6);
    m_prompt = new QLabel(bar);
    m_prompt->setObjectName(QStringLiteral("commandPrompt"));
    m_prompt->setTextFormat(Qt::PlainText);
    m_line = new QLineEdit(bar);
    m_line->setObjectName(QStringLiteral("commandLine"));
    m_line->setFrame(false);
    m_line->installEventFilter(this);
    m_keywords = new QWidget(bar);
    m_keywords->setObjectName(QStringLiteral("commandKeywords"));
    m_keywordLayout = new QHBoxLayout(m_keywords);
    m_keywordLayout->setContentsMargins(0, 0, 0, 0);
    m_keywordLayout->setSpacing(4);
    row->addWidget(m_prompt);
    row->addWidget(m_line, 1);
    row->addWidget(m_keywords);
    column->addWidget(bar);
    setWidget(body);

    m_names = new QStringListModel(this);
    m_completer = new QCompleter(m_names, this);
    m_completer->setObjectName(QStringLiteral("commandCompleter"));
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->popup()->setObjectName(QStringLiteral("commandCompletions"));
    m_completer->popup()->installEventFilter(this);
    if (!stateFolder.empty())
        m_historyFile = stateFolder + "/window-history";
    ReadHistory();
    SetLanguageTexts();
}

CommandDock::~CommandDock()
{
    QFile file(QString::fromStdString(m_historyFile));
    if (m_historyFile.empty() || !file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    QTextStream out(&file);
    for (const QString& line : m_history.mid(std::max<qsizetype>(0, m_history.size() - kMostHistory)))
        out << line << '\n';
}

void CommandDock::ReadHistory()
{
    QFile file(QString::fromStdString(m_historyFile));
    if (m_historyFile.empty() || !file.open(QIODevice::ReadOnly))
        return;
    QTextStream in(&file);
    while (!in.atEnd() && m_history.size() < kMostHistory)
        m_history.append(in.readLine());
    m_historyAt = m_history.size();
}

void CommandDock::SetLanguageTexts()
{
    setWindowTitle(Say(Text::CommandLine));
    m_line->setPlaceholderText(m_kind == InputKind::Command ? Say(Text::TypeCommand) : QString());
}

void CommandDock::Print(std::wstring_view text)
{
    QTextCursor end(m_output->document());
    end.movePosition(QTextCursor::End);
    QString shown = ToQt(text);
    shown.remove(QLatin1Char('\r'));
    // The first line of all has nothing above it to end.
    if (m_output->document()->isEmpty() && shown.startsWith(QLatin1Char('\n')))
        shown.remove(0, 1);
    end.insertText(shown);
    m_output->moveCursor(QTextCursor::End);
    m_output->moveCursor(QTextCursor::StartOfLine);
    m_output->ensureCursorVisible();
}

// What stands before the last line end of a prompt is output.
void CommandDock::ShowPrompt(const InputRequest& request)
{
    m_kind = request.kind;
    const size_t lineEnd = request.prompt.rfind(L'\n');
    if (lineEnd != std::wstring::npos && lineEnd > 0)
        Print(request.prompt.substr(0, lineEnd));
    m_shownPrompt = lineEnd == std::wstring::npos ? request.prompt : request.prompt.substr(lineEnd + 1);
    m_prompt->setText(ToQt(m_shownPrompt).trimmed());
    ShowKeywords(request.keywords);
    m_line->setEchoMode(QLineEdit::Normal);
    m_line->setReadOnly(false);
    if (m_kind == InputKind::Command) {
        LoadCommandNames();
        m_line->setCompleter(m_completer);
    } else {
        m_line->setCompleter(nullptr);
    }
    SetLanguageTexts();
    m_line->setFocus();
}

void CommandDock::TakeAnswer(const InputEvent& event)
{
    std::wstring line = L"\n" + m_shownPrompt;
    switch (event.type) {
    case InputEvent::Type::Text:
        line += event.text;
        break;
    case InputEvent::Type::Point:
        line += FromQt(QStringLiteral("%1,%2").arg(event.point[0], 0, 'f', 4).arg(event.point[1], 0, 'f', 4));
        break;
    default:   // the editor says itself what was cancelled or found
        break;
    }
    if (event.type != InputEvent::Type::End)
        Print(line);
    ShowBusy();
}

void CommandDock::ShowBusy()
{
    m_prompt->clear();
    m_line->setPlaceholderText(QString());
    ShowKeywords({});
}

void CommandDock::ShowKeywords(const std::vector<std::wstring>& keywords)
{
    while (QLayoutItem* item = m_keywordLayout->takeAt(0)) {
        if (item->widget() != nullptr) {
            item->widget()->hide();
            item->widget()->deleteLater();
        }
        delete item;
    }
    for (const std::wstring& keyword : keywords) {
        auto* button = new QPushButton(ToQt(keyword), m_keywords);
        button->setObjectName(QStringLiteral("keyword.") + ToQt(keyword));
        button->setProperty("keyword", true);
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, [this, keyword] { m_queue.Type(keyword); });
        m_keywordLayout->addWidget(button);
    }
    m_keywords->setVisible(!keywords.empty());
}

void CommandDock::LoadCommandNames()
{
    const QStringList names = CommandNames();
    if (names != m_names->stringList())
        m_names->setStringList(names);
}

QString CommandDock::Typed() const
{
    return m_line->text();
}

void CommandDock::ClearLine()
{
    m_line->clear();
    m_historyAt = m_history.size();
}

void CommandDock::Forward(QKeyEvent* key)
{
    m_line->setFocus();
    QKeyEvent copy(key->type(), key->key(), key->modifiers(), key->text(), key->isAutoRepeat());
    QCoreApplication::sendEvent(m_line, &copy);
}

void CommandDock::Enter(bool bySpace)
{
    QString line = m_line->text();
    if (bySpace)
        line = line.trimmed();
    if (!line.trimmed().isEmpty() && (m_history.isEmpty() || m_history.back() != line))
        m_history.append(line);
    ClearLine();
    m_completer->popup()->hide();
    m_queue.Type(FromQt(line));
}

void CommandDock::StepHistory(int by)
{
    const qsizetype to = m_historyAt + by;
    if (to < 0 || to > m_history.size())
        return;
    m_historyAt = to;
    m_line->setText(to == m_history.size() ? QString() : m_history[to]);
}

// A blank ends the line at a prompt for a command, as Enter does; not within a form or a text.
bool CommandDock::eventFilter(QObject* object, QEvent* event)
{
    // Nothing is typed that could be undone or selected here: such keys are the window's.
    if (event->type() == QEvent::ShortcutOverride && m_line->text().isEmpty()) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return QDockWidget::eventFilter(object, event);
    auto* key = static_cast<QKeyEvent*>(event);
    const bool isOfList = object != m_line;
    const bool hasChoice = isOfList && m_completer->popup()->currentIndex().isValid();
    const QString typed = m_line->text();
    const bool isForm = typed.startsWith(QLatin1Char('('));
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (hasChoice)
            m_line->setText(m_completer->popup()->currentIndex().data().toString());
        Enter(false);
        return true;
    case Qt::Key_Space:
        if (m_kind == InputKind::Text || isForm)
            return false;
        if (hasChoice)
            m_line->setText(m_completer->popup()->currentIndex().data().toString());
        Enter(true);
        return true;
    case Qt::Key_Tab:
        if (m_completer->completionCount() > 0 && m_kind == InputKind::Command && !typed.isEmpty())
            m_line->setText(hasChoice ? m_completer->popup()->currentIndex().data().toString()
                                      : m_completer->currentCompletion());
        m_completer->popup()->hide();
        return true;
    case Qt::Key_Escape:
        m_completer->popup()->hide();
        ClearLine();
        escaped();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (isOfList)
            return false;
        StepHistory(key->key() == Qt::Key_Up ? -1 : 1);
        return true;
    default:
        return QDockWidget::eventFilter(object, event);
    }
}

}   // namespace KxDesktop
