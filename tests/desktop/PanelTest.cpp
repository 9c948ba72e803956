// Panels, dialogs, tabs and the command line.
#include "db/AcDbDatabase.h"
#include "db/AcDbEntity.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/core/DbCore.h"
#include "Desk.h"
#include "ui/HostUi.h"
#include "win/KxWinTypes.h"
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace KxTest;

namespace {

QTreeWidgetItem* RowOf(QTreeWidget& tree, const QString& name)
{
    for (int at = 0; at < tree.topLevelItemCount(); ++at)
        if (tree.topLevelItem(at)->text(0) == name)
            return tree.topLevelItem(at);
    return nullptr;
}

Desk::Step ClickLayer(const QString& name, int column)
{
    return Check([=] {
        auto* tree = FindAs<QTreeWidget>(QStringLiteral("layerList"));
        QTreeWidgetItem* row = RowOf(*tree, name);
        ASSERT_NE(row, nullptr);
        tree->scrollToItem(row);
        const QRect place = tree->visualItemRect(row);
        const int x = tree->columnViewportPosition(column) + tree->columnWidth(column) / 2;
        QTest::mouseMove(tree->viewport(), QPoint(x, place.center().y()));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, QPoint(x, place.center().y()));
    });
}

struct LayerState {
    bool isOff, isFrozen, isLocked;
    bool operator==(const LayerState&) const = default;
};

LayerState StateOfLayer(AcDbDatabase& database, const wchar_t* name)
{
    AcDbLayerTable* table = nullptr;
    AcDbLayerTableRecord* record = nullptr;
    EXPECT_EQ(database.getLayerTable(table, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(table->getAt(name, record, AcDb::kForRead), Acad::eOk);
    table->close();
    const LayerState state = {record->isOff(), record->isFrozen(), record->isLocked()};
    record->close();
    return state;
}

constexpr QRgb kRed = 0xFFFF0000;
const wchar_t kWalls[] = L"-LAYER\nM\n墙体\nC\n1\n墙体\n\nCIRCLE 0,0 10\n-LAYER\nS\n0\n\n";

}   // namespace

TEST(DesktopLayers, AClickSwitchesAStateAndUndoTakesItBack)
{
    struct Row {
        int column;
        LayerState state;
        bool hides;
    };
    static const Row rows[] = {
        {1, {true, false, false}, true}, {2, {false, true, false}, true}, {3, {false, false, true}, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.column);
        Desk desk;
        desk.Run(kWalls);
        int before = 0, after = 0, back = 0;
        LayerState switched = {};
        const auto red = [] { return PixelsOf(DrawingPicture(), kRed); };
        desk.Do({Until(IsAtCommandPrompt), Trigger(QStringLiteral("action.zoomExtents")),
                 Check([&] { before = red(); }), ClickLayer(QString::fromUtf8("墙体"), row.column), Check([&] {
                     switched = StateOfLayer(desk.database(), L"墙体");
                     after = red();
                 }),
                 Type(QStringLiteral("U")),
                 Until([&] { return StateOfLayer(desk.database(), L"墙体") == LayerState{}; }),
                 Until(IsAtCommandPrompt), Check([&] { back = red(); })});
        EXPECT_EQ(switched, row.state);
        EXPECT_GT(before, 100);
        EXPECT_EQ(after, row.hides ? 0 : before);
        EXPECT_EQ(back, before);
    }
}

TEST(DesktopLayers, ADoubleClickMakesALayerCurrentAndTheCurrentOneIsNotFrozen)
{
    Desk desk;
    desk.Run(kWalls);
    desk.Do({Until(IsAtCommandPrompt), Check([] {
                 auto* tree = FindAs<QTreeWidget>(QStringLiteral("layerList"));
                 Q_EMIT tree->itemDoubleClicked(RowOf(*tree, QString::fromUtf8("墙体")), 0);
             }),
             ClickLayer(QString::fromUtf8("墙体"), 2)});
    AcDbLayerTableRecord* current = nullptr;
    ASSERT_EQ(acdbOpenObject(current, desk.database().clayer(), AcDb::kForRead), Acad::eOk);
    EXPECT_STREQ(current->nameText().GetString(), L"墙体");
    EXPECT_FALSE(current->isFrozen());
    current->close();
}

TEST(DesktopProperties, TheLayerOfTheSelectionIsChangedThere)
{
    Desk desk;
    desk.Run(kWalls);
    QString title, before;
    AcDbObjectId circle;
    desk.Do({Until(IsAtCommandPrompt), Trigger(QStringLiteral("action.selectAll")), Check([&] {
                 title = FindAs<QLabel>(QStringLiteral("propertyTitle"))
                             ? Find(QStringLiteral("propertyTitle"))->property("text").toString()
                             : QString();
                 auto* box = FindAs<QComboBox>(QStringLiteral("propertyLayer"));
                 ASSERT_NE(box, nullptr);
                 before = box->currentText();
                 circle = SelectedBefore(desk.document()).at(0);
                 Q_EMIT box->textActivated(QStringLiteral("0"));
             })});
    EXPECT_EQ(title, QStringLiteral("Circle"));
    EXPECT_EQ(before, QString::fromUtf8("墙体"));
    AcDbEntity* entity = nullptr;
    ASSERT_EQ(acdbOpenObject(entity, circle, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(entity->layerId(), desk.database().layerZero());
    entity->close();
}

TEST(DesktopCommandLine, CompletesRepeatsAndTakesOptions)
{
    Desk desk;
    QString completed, older;
    desk.Do({Until(IsAtCommandPrompt), Check([&] {
                 auto* line = FindAs<QLineEdit>(QStringLiteral("commandLine"));
                 line->setFocus();
                 QTest::keyClicks(line, QStringLiteral("kxlayerw"));
                 QTest::keyClick(line, Qt::Key_Tab);
                 completed = line->text();
                 line->clear();
             }),
             Type(QStringLiteral("PLINE")), Type(QStringLiteral("0,0")), Type(QStringLiteral("10,0")),
             Type(QStringLiteral("10,10")),
             // The option is a button beside the line.
             Until([] { return Find(QStringLiteral("keyword.Close")) != nullptr; }),
             Check([] { QTest::mouseClick(Find(QStringLiteral("keyword.Close")), Qt::LeftButton); }),
             Until(IsAtCommandPrompt), Check([&] {
                 auto* line = FindAs<QLineEdit>(QStringLiteral("commandLine"));
                 QTest::keyClick(line, Qt::Key_Up);
                 QTest::keyClick(line, Qt::Key_Up);
                 older = line->text();
                 line->clear();
             })});
    EXPECT_EQ(completed, QStringLiteral("KXLAYERWALK"));
    EXPECT_EQ(older, QStringLiteral("10,0"));
    EXPECT_EQ(EntityCount(desk.database()), 1u);
}

TEST(DesktopMessages, TheButtonPressedIsTheAnswer)
{
    struct Row {
        unsigned type;
        int press, answer, byDefault;
    };
    static const Row rows[] = {
        {MB_OK, IDOK, IDOK, IDOK},
        {MB_OKCANCEL, IDCANCEL, IDCANCEL, IDOK},
        {MB_YESNO | MB_DEFBUTTON2, IDYES, IDYES, IDNO},
        {MB_YESNOCANCEL, IDNO, IDNO, IDYES},
        {MB_RETRYCANCEL | MB_DEFBUTTON2, IDRETRY, IDRETRY, IDCANCEL},
        {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, IDABORT, IDABORT, IDIGNORE},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        Desk desk;
        int answer = 0, byDefault = 0;
        desk.Do({Until(IsAtCommandPrompt), Check([&] {
                     QTimer::singleShot(30, [&] {
                         QTest::mouseClick(Find(QStringLiteral("message.%1").arg(row.press)), Qt::LeftButton);
                     });
                     answer = KxPlat::Ui().ShowMessage(L"要继续吗？", L"kxcad", row.type);
                     QTimer::singleShot(30, [] { QTest::keyClick(OpenDialog(), Qt::Key_Return); });
                     byDefault = KxPlat::Ui().ShowMessage(L"要继续吗？", L"kxcad", row.type);
                 })});
        EXPECT_EQ(answer, row.answer);
        EXPECT_EQ(byDefault, row.byDefault);
    }
}

TEST(DesktopDocuments, TabsSwitchAndClosingAsksForWhatIsUnsaved)
{
    Desk first;
    first.Run(L"CIRCLE 0,0 10\n");
    AcApDocument* const changed = &first.document();
    Desk second;
    const size_t open = KxPlat::OpenDocuments().size();
    QString question;
    int tab = 0;
    second.Do({Until(IsAtCommandPrompt), Check([&] {
                   auto* tabs = FindAs<QTabBar>(QStringLiteral("documentTabs"));
                   tab = int(std::find(KxPlat::OpenDocuments().begin(), KxPlat::OpenDocuments().end(), changed) -
                             KxPlat::OpenDocuments().begin());
                   EXPECT_TRUE(tabs->tabText(tab).endsWith(QLatin1Char('*')));
                   QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center() - QPoint(12, 0));
               }),
               Until([&] { return acDocManager->mdiActiveDocument() == changed; }),
               Trigger(QStringLiteral("action.close")), Until([] { return OpenDialog() != nullptr; }), Check([&] {
                   question = qobject_cast<QMessageBox*>(OpenDialog())->text();
                   QTest::keyClick(OpenDialog(), Qt::Key_Escape);
               }),
               Until(IsAtCommandPrompt), Check([&] { EXPECT_EQ(KxPlat::OpenDocuments().size(), open); }),
               Trigger(QStringLiteral("action.close")), Until([] { return OpenDialog() != nullptr; }), Check([] {
                   QTest::mouseClick(qobject_cast<QMessageBox*>(OpenDialog())->button(QMessageBox::Discard),
                                     Qt::LeftButton);
               }),
               Until([&] { return KxPlat::OpenDocuments().size() == open - 1; })});
    EXPECT_TRUE(question.contains(QLatin1String("Drawing"))) << question.toStdString();
}

TEST(DesktopMenus, EveryTextIsThereInBothLanguages)
{
    Desk desk;
    QStringList english, chinese;
    const auto texts = [] {
        QStringList all;
        for (QAction* action : Find(QStringLiteral("mainWindow"))->findChildren<QAction*>())
            if (action->objectName().startsWith(QLatin1String("command.")))
                all << action->text().section(QLatin1Char('\t'), 0, 0);
        all.sort();
        return all;
    };
    desk.Do({Until(IsAtCommandPrompt), Check([&] { english = texts(); }), Trigger(QStringLiteral("action.chinese")),
             Until([&] {
                 chinese = texts();
                 return chinese != english;
             }),
             Trigger(QStringLiteral("action.english")), Until([&] { return texts() == english; })});
    ASSERT_EQ(english.size(), 52);
    ASSERT_EQ(chinese.size(), 52);
    for (const QString& text : chinese)
        EXPECT_TRUE(std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() >= 0x4E00; }))
            << text.toStdString();
    for (const QString& text : english)
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() < 0x3000; }))
            << text.toStdString();
}

TEST(DesktopTheme, TheDrawingsBackgroundFollows)
{
    Desk desk;
    QRgb dark = 0, light = 0;
    desk.Do({Until(IsAtCommandPrompt), Trigger(QStringLiteral("action.light")),
             Check([&] { light = DrawingPicture().pixel(3, 3); }), Trigger(QStringLiteral("action.dark")),
             Check([&] { dark = DrawingPicture().pixel(3, 3); })});
    EXPECT_EQ(light, qRgb(255, 255, 255));
    EXPECT_LT(qGray(dark), 60);
}
