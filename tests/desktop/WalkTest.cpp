// Every command of the module from its menu: it starts, is answered or cancelled, and the program lives.
#include "Desk.h"
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QRegularExpression>
#include <QTest>
#include <set>

using namespace KxTest;

namespace {

std::vector<QAction*> CommandActions()
{
    std::vector<QAction*> actions;
    for (QAction* action :
         Find(QStringLiteral("mainWindow"))->findChildren<QAction*>(QRegularExpression(QStringLiteral("^command\\."))))
        actions.push_back(action);
    return actions;
}

// Whatever is asked: a dialog is cancelled, a question by Enter at first, then by Esc.
Desk::Step Answer()
{
    auto tries = std::make_shared<int>(0);
    return [tries] {
        if (IsAtCommandPrompt())
            return true;
        if (QDialog* dialog = OpenDialog())
            dialog->reject();
        else if (QWidget* line = Find(QStringLiteral("commandLine")); line != nullptr && !PromptText().isEmpty())
            QTest::keyClick(line, ++*tries == 1 ? Qt::Key_Return : Qt::Key_Escape);
        return false;
    };
}

}   // namespace

TEST(DesktopWalk, EachCommandStartsFromItsMenuAndEnds)
{
    Desk desk(Sample("floorplan.dxf"));
    std::set<std::wstring> started;
    std::vector<Desk::Step> steps = {Until(IsAtCommandPrompt)};
    std::vector<QAction*> actions;
    desk.Do({Until(IsAtCommandPrompt), Check([&] { actions = CommandActions(); })});
    for (QAction* action : actions) {
        const QString name = action->objectName().section(QLatin1Char('.'), 1);
        steps.push_back(Trigger(action->objectName()));
        steps.push_back(Until([&started, name] {
            // The command line tells what was started; the command itself may start others.
            if (!(Output() + QLatin1Char('\n')).contains(QStringLiteral("Command: _%1\n").arg(name)))
                return false;
            started.insert(name.toStdWString());
            return true;
        }));
        steps.push_back(Answer());
    }
    desk.Do(steps);
    EXPECT_EQ(actions.size(), 52u);
    EXPECT_EQ(started.size(), 52u);
    EXPECT_FALSE(Output().contains(QLatin1String("Unknown command")));
}
