#include "ui/ControlStyles.h"
#include "ui/DialogText.h"
#include "ui/RowNumbers.h"
#include "ui/ScriptedUi.h"
#include "ui/TerminalDialog.h"
#include "win/CodePage.h"
#include <gtest/gtest.h>

namespace {

using namespace KxPlat;

constexpr int kList = 101, kSelected = 102, kAll = 103, kName = 104, kKind = 105;

// A dialog as the layer lists have it: a table, two buttons that act on it, OK and Cancel.
class LayerDialog : public DialogModel, public DialogListener {
public:
    std::string heard;

    LayerDialog()
    {
        caption = L"关闭的图层";
        listener = this;
        DialogControl list;
        list.id = kList;
        list.kind = ControlKind::ListView;
        list.columns = {{L"图层", 80, false}, {L"颜色", 40, true}};
        for (const wchar_t* name : {L"墙体", L"DOOR-01", L"轴线", L"标注"})
            list.rows.push_back({{name, L"7"}, false, false, 0});
        list.rows[1].cells[1] = L"130";
        Add(list);
        AddButton(kSelected, L"打开所选(&S)", BS_PUSHBUTTON);
        AddButton(kAll, L"全部打开(&A)", BS_PUSHBUTTON);
        AddButton(IDOK, L"确定", BS_DEFPUSHBUTTON);
        AddButton(IDCANCEL, L"取消", BS_PUSHBUTTON);
    }

    void AddButton(int id, const wchar_t* text, uint32_t style)
    {
        DialogControl button;
        button.id = id;
        button.kind = ControlKind::Button;
        button.text = text;
        button.style = style;
        Add(button);
    }

    DialogControl& AddField(int id, ControlKind kind, const wchar_t* label, const wchar_t* text, uint32_t style = 0)
    {
        DialogControl name;
        name.id = -1;
        name.kind = ControlKind::Label;
        name.text = label;
        Add(name);
        DialogControl field;
        field.id = id;
        field.kind = kind;
        field.text = text;
        field.style = style;
        return Add(field);
    }

    void OnDialogEvent(const DialogEvent& event) override
    {
        heard += std::to_string(event.id) + "/" + std::to_string(int(event.type)) + " ";
        DialogControl* list = Find(kList);
        if (event.id == kSelected)
            std::erase_if(list->rows, [](const DialogRow& row) { return row.selected; });
        else if (event.id == kAll)
            list->rows.clear();
        else if (event.id == IDOK || event.id == IDCANCEL)
            End(event.id);
    }
};

std::string Transcript(DialogModel& dialog, std::initializer_list<const wchar_t*> answers)
{
    ScriptedUi ui;
    ui.answers.assign(answers.begin(), answers.end());
    RunTerminalDialog(dialog, ui);
    return ToUtf8(ui.printed);
}

TEST(TerminalDialog, ShowsTheWholeOnceAndThenWhatChanges)
{
    LayerDialog dialog;
    EXPECT_EQ(Transcript(dialog, {L"1,3", L"s", L""}), "\n== 关闭的图层 =="
                                                       "\n     图层     颜色"
                                                       "\n  1  墙体        7"
                                                       "\n  2  DOOR-01   130"
                                                       "\n  3  轴线        7"
                                                       "\n  4  标注        7"
                                                       "\n  S 打开所选 | A 全部打开 | B 确定 (Enter) | X 取消"
                                                       "\nRows, letter or ? <确定>: 1,3"
                                                       "\nSelected: 1,3"
                                                       "\nRows, letter or ? <确定>: s"
                                                       "\n     图层     颜色"
                                                       "\n  1  DOOR-01   130"
                                                       "\n  2  标注        7"
                                                       "\nSelected: none"
                                                       "\nRows, letter or ? <确定>: ");
    EXPECT_EQ(dialog.Result(), IDOK);
    EXPECT_EQ(dialog.heard, "101/2 102/0 1/0 ");
}

// The rows that are selected, as "1,3-4".
std::wstring SelectedRows(const DialogControl& list)
{
    std::vector<int> numbers;
    for (size_t i = 0; i < list.rows.size(); ++i) {
        if (list.rows[i].selected)
            numbers.push_back(int(i) + 1);
    }
    return RowNumbersText(numbers);
}

TEST(TerminalDialog, AListShowsTheFewRowsThatChanged)
{
    class Walk : public LayerDialog {
        void OnDialogEvent(const DialogEvent& event) override
        {
            if (event.id == kSelected)
                Find(kList)->rows[2].cells[1] = L"1";
            else
                LayerDialog::OnDialogEvent(event);
        }
    } dialog;
    const std::string shown = Transcript(dialog, {L"S", L"x"});
    EXPECT_NE(shown.find(": S\n  3  轴线        1\nRows"), std::string::npos) << shown;
}

TEST(TerminalDialog, AnswersMeanRowsLettersOrTexts)
{
    struct Row {
        const wchar_t* answer;
        const char* heard;   // without the cancelling at the end of the input
        const wchar_t* selected;
    };
    static const Row rows[] = {
        {L"2-4", "101/2 ", L"2-4"},
        {L"*", "101/2 ", L"1-4"},
        {L" 4 1 ", "101/2 ", L"1,4"},
        {L"2!", "101/2 101/4 ", L"2"},
        {L"5", "", L""},
        {L"0", "", L""},
        {L"3-1", "", L""},
        {L"1,x", "", L""},
        {L"-1", "", L""},
        {L"打开", "102/0 ", L""},
        {L"全部打开", "103/0 ", L""},
        {L"A", "103/0 ", L""},
        {L"q", "", L""},
        {L"99999999999", "", L""},
        {L"#1", "", L""},
        {L"=", "", L""},
        {L"+", "", L""},
        {L"!", "", L""},
        {L"?", "", L""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(ToUtf8(row.answer));
        LayerDialog dialog;
        Transcript(dialog, {row.answer});
        EXPECT_EQ(dialog.heard, row.heard + std::string("2/0 "));
        EXPECT_EQ(SelectedRows(*dialog.Find(kList)), row.selected);
        EXPECT_EQ(dialog.Result(), IDCANCEL);
    }
}

TEST(TerminalDialog, EveryWayOutCancels)
{
    for (const wchar_t* answer : {L"x", L"X", L"esc", L"\x1b", L"取消"}) {
        SCOPED_TRACE(ToUtf8(answer));
        LayerDialog dialog;
        Transcript(dialog, {answer, L"1"});
        EXPECT_EQ(dialog.heard, "2/0 ");
        EXPECT_EQ(dialog.Result(), IDCANCEL);
    }
    DialogModel deaf;   // nobody ends it
    EXPECT_EQ(Transcript(deaf, {L"", L"x"}), "\n==  ==\nLetter or ?: \nLetter or ?: x\nLetter or ?: ");
    EXPECT_EQ(deaf.Result(), IDCANCEL);
}

TEST(TerminalDialog, RowsAreAddedToTheSelection)
{
    LayerDialog dialog;
    Transcript(dialog, {L"1", L"+3-4"});
    EXPECT_EQ(SelectedRows(*dialog.Find(kList)), L"1,3,4");
    LayerDialog single;
    single.Find(kList)->style = LVS_SINGLESEL;
    Transcript(single, {L"1", L"+3"});
    EXPECT_EQ(SelectedRows(*single.Find(kList)).size(), 1u);
}

TEST(TerminalDialog, NumbersGoOnInTheNextList)
{
    LayerDialog dialog;
    DialogControl& second = dialog.AddField(kKind, ControlKind::ListBox, L"图块:", L"");
    second.rows = {{{L"A$1"}, false, false, 0}, {{L"A$2"}, false, false, 0}};
    const std::string shown = Transcript(dialog, {L"6"});
    EXPECT_NE(shown.find("\n图块:\n  5  A$1\n  6  A$2"), std::string::npos) << shown;
    EXPECT_EQ(SelectedRows(second), L"2");
    EXPECT_EQ(SelectedRows(*dialog.Find(kList)), L"");
}

TEST(TerminalDialog, RowsMayHaveCheckBoxes)
{
    LayerDialog dialog;
    dialog.Find(kList)->listStyle = LVS_EX_CHECKBOXES;
    const std::string shown = Transcript(dialog, {L"#2,3", L"#3"});
    EXPECT_NE(shown.find("\n  2 [x]  DOOR-01   130\n  3 [x]  轴线        7"), std::string::npos) << shown;
    EXPECT_TRUE(dialog.Find(kList)->rows[1].checked);
    EXPECT_FALSE(dialog.Find(kList)->rows[2].checked);
}

TEST(TerminalDialog, FieldsAreSetByLetterOrAskedFor)
{
    LayerDialog dialog;
    dialog.AddField(kName, ControlKind::Edit, L"名称(&N):", L"墙");
    DialogControl& kind = dialog.AddField(kKind, ControlKind::ComboBox, L"类型:", L"", CBS_DROPDOWNLIST);
    kind.rows = {{{L"外墙"}, false, false, 0}, {{L"内墙"}, false, false, 0}};
    const std::string shown = Transcript(dialog, {L"C=门窗", L"D", L"2", L"D=外墙", L"D=窗", L"C", L""});
    EXPECT_NE(shown.find("\n  C  名称: 墙\n  D  类型: "), std::string::npos) << shown;
    EXPECT_NE(shown.find("\n    1  外墙\n    2  内墙\n类型 <>: 2\n  D  类型: 内墙"), std::string::npos) << shown;
    EXPECT_NE(shown.find("\n\"类型\" cannot be used now."), std::string::npos) << shown;
    EXPECT_NE(shown.find("\n名称 <门窗>: "), std::string::npos) << shown;
    EXPECT_EQ(dialog.Find(kName)->text, L"门窗");   // an empty answer keeps it
    EXPECT_EQ(kind.text, L"外墙");
}

TEST(TerminalDialog, PasswordsAndReadOnlyFieldsAreGuarded)
{
    LayerDialog dialog;
    dialog.AddField(kName, ControlKind::Edit, L"口令:", L"secret", ES_PASSWORD);
    dialog.AddField(kKind, ControlKind::Edit, L"文件:", L"a.dwg", ES_READONLY);
    const std::string shown = Transcript(dialog, {L"D=b.dwg"});
    EXPECT_EQ(shown.find("secret"), std::string::npos);
    EXPECT_NE(shown.find("\n  C  口令: ******\n     文件: a.dwg"), std::string::npos) << shown;
    EXPECT_EQ(dialog.Find(kKind)->text, L"a.dwg");
}

TEST(TerminalDialog, HiddenControlsAreNeitherShownNorPressed)
{
    LayerDialog dialog;
    dialog.Find(kAll)->visible = false;
    dialog.Find(kSelected)->enabled = false;
    const std::string shown = Transcript(dialog, {L"a", L"全部打开", L"s"});
    EXPECT_NE(shown.find("\n  (S 打开所选) | A 确定 (Enter) | X 取消"), std::string::npos) << shown;
    EXPECT_EQ(dialog.heard, "1/0 ");   // A is the first free letter, which OK has now
}

TEST(DialogText, LettersAreUniqueAndStay)
{
    DialogModel dialog;
    const auto add = [&](int id, const wchar_t* text) {
        DialogControl button;
        button.id = id;
        button.kind = ControlKind::Button;
        button.text = text;
        return dialog.Add(button).id;
    };
    add(1, L"Exit");
    add(2, L"Cancel");
    add(3, L"&Edit");
    add(4, L"E&xport");
    add(5, L"A && B");
    DialogLetters letters;
    letters.Assign(dialog);
    // The marked letters first, X is the cancelling one's, then the first free letter of the text.
    struct Row {
        int id;
        wchar_t letter;
    };
    static const Row rows[] = {{1, L'I'}, {2, L'X'}, {3, L'E'}, {4, L'P'}, {5, L'A'}};
    for (const Row& row : rows)
        EXPECT_EQ(letters.Of(*dialog.Find(row.id)), row.letter) << row.id;
    EXPECT_EQ(PlainText(*dialog.Find(5)), L"A & B");
    add(6, L"&Edit");
    letters.Assign(dialog);
    EXPECT_EQ(letters.Of(*dialog.Find(3)), L'E');
    EXPECT_EQ(letters.Of(*dialog.Find(6)), L'D');
    for (int id = 100; id < 140; ++id)
        add(id, L"另");
    letters.Assign(dialog);
    EXPECT_EQ(letters.Of(*dialog.Find(139)), L'\0');   // the alphabet is used up
}

}   // namespace
