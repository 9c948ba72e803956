// A dialog with every kind of control: what the user does reaches the model, and what the model says is shown.
#include "Desk.h"
#include "ui/ControlStyles.h"
#include "ui/DialogModel.h"
#include "ui/HostUi.h"
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace KxPlat;
using namespace KxTest;

namespace {

enum Id { kName = 101, kBox, kFirst, kSecond, kKind, kRows, kApply };

DialogControl Control(int id, ControlKind kind, const wchar_t* text, uint32_t style, DialogRect rect)
{
    DialogControl control;
    control.id = id;
    control.kind = kind;
    control.text = text;
    control.style = style;
    control.rect = rect;
    return control;
}

DialogRow Row(const wchar_t* name, const wchar_t* count)
{
    DialogRow row;
    row.cells = {name, count};
    return row;
}

// Pressing 应用 takes the text of the edit box into the caption and turns the box off; OK ends.
struct Listener : DialogListener {
    explicit Listener(DialogModel& dialog) : model(dialog) { model.listener = this; }
    void OnDialogEvent(const DialogEvent& event) override
    {
        if (event.type != DialogEvent::Type::Press)
            return;
        if (event.id == kApply) {
            model.caption = model.Find(kName)->text;
            model.Find(kBox)->enabled = false;
        } else if (event.id == IDOK || event.id == IDCANCEL) {
            model.End(event.id);
        }
    }
    DialogModel& model;
};

void Fill(DialogModel& model)
{
    model.caption = L"图层";
    model.rect = {0, 0, 220, 150};
    model.Add(Control(-1, ControlKind::Label, L"名称(&N)", 0, {7, 7, 40, 8}));
    model.Add(Control(kName, ControlKind::Edit, L"墙", 0, {50, 5, 100, 14}));
    model.Add(Control(kBox, ControlKind::CheckBox, L"全部(&A)", BS_AUTOCHECKBOX, {7, 24, 60, 10}));
    model.Add(Control(kFirst, ControlKind::RadioButton, L"一", BS_AUTORADIOBUTTON | WS_GROUP, {7, 38, 40, 10})).check =
        1;
    model.Add(Control(kSecond, ControlKind::RadioButton, L"二", BS_AUTORADIOBUTTON, {50, 38, 40, 10}));
    DialogControl& kind = model.Add(Control(kKind, ControlKind::ComboBox, L"", CBS_DROPDOWNLIST, {100, 24, 80, 60}));
    kind.rows = {Row(L"开", L""), Row(L"关", L"")};
    kind.SelectOnly(0);
    DialogControl& rows = model.Add(Control(kRows, ControlKind::ListView, L"", LVS_REPORT, {7, 52, 200, 70}));
    rows.listStyle = LVS_EX_CHECKBOXES;
    rows.columns = {{L"名称", 120, false}, {L"数量", 60, true}};
    rows.rows = {Row(L"门窗", L"3"), Row(L"轴线", L"12"), Row(L"家具", L"7")};
    model.Add(Control(kApply, ControlKind::Button, L"应用", BS_PUSHBUTTON, {7, 128, 50, 14}));
    model.Add(Control(IDOK, ControlKind::Button, L"确定", BS_DEFPUSHBUTTON, {110, 128, 50, 14}));
    model.Add(Control(IDCANCEL, ControlKind::Button, L"取消", BS_PUSHBUTTON, {165, 128, 50, 14}));
}

template <class W>
W& Widget(int id)
{
    return *FindAs<W>(QStringLiteral("control.%1").arg(id));
}

// Runs the dialog; `use` is done while it is open.
int Shown(DialogModel& model, const std::function<void()>& use)
{
    Desk desk;
    int result = -1;
    desk.Do({Until(IsAtCommandPrompt), Check([&] {
                 QTimer::singleShot(30, use);
                 QTimer patience;
                 QObject::connect(&patience, &QTimer::timeout, &patience, [] {
                     if (QDialog* dialog = OpenDialog())
                         dialog->done(-1);
                 });
                 patience.start(5000);
                 result = Ui().RunDialog(model);
             })});
    return result;
}

}   // namespace

TEST(DesktopDialogs, WhatTheUserDoesReachesTheModel)
{
    DialogModel model;
    Fill(model);
    Listener listener(model);
    bool isBoxEnabled = true;
    QString caption, number;
    const int result = Shown(model, [&] {
        auto& rows = Widget<QTreeWidget>(kRows);
        number = rows.topLevelItem(1)->text(1);
        QTest::keyClicks(&Widget<QLineEdit>(kName), QStringLiteral("-2"));
        QTest::mouseClick(&Widget<QCheckBox>(kBox), Qt::LeftButton, {}, QPoint(8, 8));
        QTest::mouseClick(&Widget<QRadioButton>(kSecond), Qt::LeftButton, {}, QPoint(8, 8));
        QTest::keyClick(&Widget<QComboBox>(kKind), Qt::Key_Down);
        rows.topLevelItem(2)->setCheckState(0, Qt::Checked);
        rows.topLevelItem(0)->setSelected(true);
        rows.topLevelItem(1)->setSelected(true);
        QTest::mouseClick(&Widget<QPushButton>(kApply), Qt::LeftButton);
        isBoxEnabled = Widget<QCheckBox>(kBox).isEnabled();
        caption = OpenDialog()->windowTitle();
        Widget<QLineEdit>(kName).setFocus();
        QTest::keyClick(&Widget<QLineEdit>(kName), Qt::Key_Return);
    });
    EXPECT_EQ(result, IDOK);   // Enter presses the default button
    EXPECT_EQ(number, QStringLiteral("12"));
    EXPECT_EQ(model.Find(kName)->text, L"墙-2");
    EXPECT_EQ(model.Find(kBox)->check, 1);
    EXPECT_EQ(model.Find(kFirst)->check, 0);
    EXPECT_EQ(model.Find(kSecond)->check, 1);
    EXPECT_EQ(model.Find(kKind)->FirstSelected(), 1);
    const std::vector<DialogRow>& rows = model.Find(kRows)->rows;
    EXPECT_TRUE(rows[0].selected && rows[1].selected && !rows[2].selected);
    EXPECT_TRUE(!rows[0].checked && !rows[1].checked && rows[2].checked);
    EXPECT_FALSE(isBoxEnabled);
    EXPECT_EQ(caption, QString::fromUtf8("墙-2"));
}

TEST(DesktopDialogs, EscCancels)
{
    DialogModel model;
    Fill(model);
    Listener listener(model);
    EXPECT_EQ(Shown(model, [] { QTest::keyClick(OpenDialog(), Qt::Key_Escape); }), IDCANCEL);
}

TEST(DesktopDialogs, LongListsScrollAndAShortNameIsNotCut)
{
    DialogModel model;
    Fill(model);
    Listener listener(model);
    for (int at = 0; at < 200; ++at)
        model.Find(kRows)->rows.push_back(Row((L"层" + std::to_wstring(at)).c_str(), L"0"));
    int rows = 0;
    bool fits = false;
    Shown(model, [&] {
        auto& tree = Widget<QTreeWidget>(kRows);
        rows = tree.topLevelItemCount();
        auto& button = Widget<QPushButton>(kApply);
        fits = button.fontMetrics().horizontalAdvance(button.text()) < button.width() - 8;
        QTest::keyClick(OpenDialog(), Qt::Key_Escape);
    });
    EXPECT_EQ(rows, 203);
    EXPECT_TRUE(fits);
}
