#include "ui/ControlStyles.h"
#include "ui/DialogModel.h"
#include "ui/RowNumbers.h"
#include "ui/ScriptedUi.h"
#include "ui/TextWidth.h"
#include <gtest/gtest.h>

namespace {

using namespace KxPlat;

DialogControl Control(int id, ControlKind kind, uint32_t style)
{
    DialogControl control;
    control.id = id;
    control.kind = kind;
    control.style = style;
    return control;
}

TEST(DialogModel, RadioButtonsTurnWithinTheirGroup)
{
    DialogModel dialog;
    for (int id = 1; id <= 5; ++id)
        dialog.Add(Control(id, ControlKind::RadioButton, BS_AUTORADIOBUTTON | (id == 1 || id == 4 ? WS_GROUP : 0)));
    dialog.Press(2);
    dialog.Press(5);
    dialog.Press(3);
    std::string checks;
    for (int id = 1; id <= 5; ++id)
        checks += std::to_string(dialog.Find(id)->check);
    EXPECT_EQ(checks, "00101");
}

TEST(DialogModel, CheckBoxesTurnByThemselvesOnlyWhenAutomatic)
{
    struct Row {
        uint32_t style;
        int presses;
        int check;
    };
    static const Row rows[] = {{BS_AUTOCHECKBOX, 1, 1}, {BS_AUTOCHECKBOX, 2, 0}, {BS_CHECKBOX, 1, 0},
                               {BS_AUTO3STATE, 2, 2},   {BS_AUTO3STATE, 3, 0},   {BS_3STATE, 2, 0}};
    for (const Row& row : rows) {
        DialogModel dialog;
        DialogControl& box = dialog.Add(Control(1, ControlKind::CheckBox, row.style));
        for (int i = 0; i < row.presses; ++i)
            EXPECT_TRUE(dialog.Press(1));
        EXPECT_EQ(box.check, row.check) << row.style << " " << row.presses;
    }
}

TEST(DialogModel, OnlyButtonsArePressedAndOnlyListsSelected)
{
    DialogModel dialog;
    DialogControl& edit = dialog.Add(Control(1, ControlKind::Edit, ES_RIGHT | BS_AUTORADIOBUTTON));
    edit.textLimit = 3;
    dialog.Add(Control(2, ControlKind::Button, BS_PUSHBUTTON));
    EXPECT_FALSE(dialog.Press(1));
    EXPECT_FALSE(dialog.Select(2, {0}));
    EXPECT_FALSE(dialog.SetText(2, L"x"));
    EXPECT_FALSE(dialog.CheckRow(1, 0, true));
    EXPECT_TRUE(dialog.SetText(1, L"12345"));
    EXPECT_EQ(edit.text, L"123");
    dialog.End(5);
    EXPECT_FALSE(dialog.Press(2));
    EXPECT_FALSE(dialog.Cancel());
    EXPECT_EQ(dialog.Result(), 5);
}

TEST(RowNumbers, RangesAreReadAndWritten)
{
    struct Row {
        const wchar_t* text;
        const wchar_t* numbers;   // null: no list of numbers up to 12
    };
    static const Row rows[] = {
        {L"1", L"1"},
        {L"3,1", L"1,3"},
        {L"1-3,2-5", L"1-5"},
        {L"1 , 2;", nullptr},
        {L"*", L"1-12"},
        {L"* 1", nullptr},
        {L"", nullptr},
        {L"12", L"12"},
        {L"13", nullptr},
        {L"1-", nullptr},
        {L"-3", nullptr},
        {L"2-1", nullptr},
        {L"1 - 2", L"1,2"},
        {L"１", nullptr},
        {L"1,,2", nullptr},
        {L"4294967297", nullptr},
        {L"1-99999999999999999999", nullptr},
        {L"1 3 5-7 9", L"1,3,5-7,9"},
    };
    for (const Row& row : rows) {
        std::vector<int> numbers = {-1};
        const bool read = ParseRowNumbers(row.text, 12, numbers);
        EXPECT_EQ(read, row.numbers != nullptr) << testing::PrintToString(std::wstring(row.text));
        EXPECT_EQ(read ? RowNumbersText(numbers) : L"-", row.numbers == nullptr ? L"-" : row.numbers);
        if (!read) {
            EXPECT_EQ(numbers, std::vector<int>{-1});
        }
    }
    std::vector<int> none;
    EXPECT_FALSE(ParseRowNumbers(L"1", 0, none));
    EXPECT_TRUE(ParseRowNumbers(L"*", 0, none));
}

TEST(TextWidth, IdeographsTakeTwoCells)
{
    EXPECT_EQ(CellWidth(std::wstring_view(L"墙a，\x0301")), 5);
    EXPECT_EQ(CellWidth(wchar_t(0x20000)), 2);
    EXPECT_EQ(CellWidth(wchar_t(0x40000)), 1);
    EXPECT_EQ(Padded(L"墙", 4), L"墙  ");
    EXPECT_EQ(Padded(L"墙", 4, true), L"  墙");
    EXPECT_EQ(Padded(L"墙体", 3), L"墙体");
}

TEST(HostUi, TheHarmlessHostAnswersWithTheDefaultButton)
{
    struct Row {
        unsigned type;
        int answer;
    };
    static const Row rows[] = {{MB_OK, IDOK},
                               {MB_OKCANCEL | MB_DEFBUTTON2, IDCANCEL},
                               {MB_YESNO | MB_ICONQUESTION, IDYES},
                               {MB_YESNO | MB_DEFBUTTON2, IDNO},
                               {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL},
                               {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, IDIGNORE},
                               {MB_RETRYCANCEL, IDRETRY}};
    HostUi ui;
    for (const Row& row : rows)
        EXPECT_EQ(ui.ShowMessage(L"", L"", row.type), row.answer) << row.type;
    SetUi(&ui);
    EXPECT_EQ(&Ui(), &ui);
    SetUi(nullptr);
    EXPECT_NE(&Ui(), &ui);
    EXPECT_EQ(Ui().Ask({}).type, InputEvent::Type::End);
}

TEST(HostUi, FileNamesAreAskedForOnTheCommandLine)
{
    ScriptedUi ui;
    ui.answers = {L"", L"b.dxf", L"\x1b"};
    FileRequest request;
    request.title = L"Save drawing as";
    request.initial = L"a.dxf";
    std::wstring path;
    EXPECT_TRUE(ui.AskFileName(request, path));
    EXPECT_EQ(path, L"a.dxf");
    EXPECT_TRUE(ui.AskFileName(request, path));
    EXPECT_EQ(path, L"b.dxf");
    EXPECT_FALSE(ui.AskFileName(request, path));
    EXPECT_FALSE(ui.AskFileName(request, path));   // the input is at its end
    EXPECT_EQ(ui.TakePrinted().substr(0, 26), L"\nSave drawing as <a.dxf>: ");
    EXPECT_EQ(ui.TakePrinted(), L"");
}

TEST(ScriptedUi, TakesAnswersInOrder)
{
    ScriptedUi ui;
    ui.boxAnswers = {IDNO};
    EXPECT_EQ(ui.ShowMessage(L"删除?", L"", MB_YESNO), IDNO);
    EXPECT_EQ(ui.ShowMessage(L"再来?", L"", MB_YESNO), IDYES);
    EXPECT_EQ(ui.boxes, L"删除?\n再来?\n");
    ui.answers = {L"LINE"};
    InputRequest request;
    request.prompt = L"\nCommand: ";
    EXPECT_EQ(ui.Ask(request).text, L"LINE");
    EXPECT_EQ(ui.Ask(request).type, InputEvent::Type::End);
    EXPECT_EQ(ui.printed, L"\nCommand: LINE\nCommand: ");
}

}   // namespace
