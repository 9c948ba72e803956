#include "mfc/CButton.h"
#include "mfc/CComboBox.h"
#include "mfc/CDataExchange.h"
#include "mfc/CDialog.h"
#include "mfc/CEdit.h"
#include "mfc/CException.h"
#include "mfc/CListBox.h"
#include "mfc/CListCtrl.h"
#include "mfc/CStatic.h"
#include "TestModule.h"
#include "TestResources.h"
#include "ui/DialogModel.h"
#include "ui/ScriptedUi.h"
#include <functional>
#include <gtest/gtest.h>

namespace {

// A host whose user is a function.
class FunctionUi : public KxPlat::ScriptedUi {
public:
    std::function<void(KxPlat::DialogModel&)> user;
    int RunDialog(KxPlat::DialogModel& dialog) override
    {
        if (user)
            user(dialog);
        return dialog.Result();
    }
};

class TestDialog : public CDialog {
public:
    TestDialog() : CDialog(IDD_TEST) {}

    CString m_name;
    int m_count = 3;
    int m_all = 1;
    int m_side = 1;
    int m_kind = 0;
    CListBox m_rows;
    CListCtrl m_table;
    std::string m_heard;
    std::function<void(TestDialog&)> onApply;
    bool m_refusesCancel = false;

protected:
    void DoDataExchange(CDataExchange* exchange) override
    {
        CDialog::DoDataExchange(exchange);
        DDX_Control(exchange, IDC_ROWS, m_rows);
        DDX_Control(exchange, IDC_TABLE, m_table);
        DDX_Text(exchange, IDC_NAME, m_name);
        DDV_MaxChars(exchange, m_name, 5);
        DDX_Text(exchange, IDC_COUNT, m_count);
        DDV_MinMaxInt(exchange, m_count, 1, 9);
        DDX_Check(exchange, IDC_ALL, m_all);
        DDX_Radio(exchange, IDC_LEFT, m_side);
    }
    BOOL OnInitDialog() override
    {
        CComboBox* kinds = static_cast<CComboBox*>(GetDlgItem(IDC_KIND));
        for (const wchar_t* text : {L"b", L"C", L"a"})
            kinds->AddString(text);
        kinds->SetCurSel(0);
        CDialog::OnInitDialog();
        m_table.InsertColumn(0, L"图层", LVCFMT_LEFT, 80);
        m_table.InsertColumn(1, L"颜色", LVCFMT_RIGHT, 40);
        for (const wchar_t* text : {L"墙体", L"门窗", L"轴线"}) {
            m_rows.AddString(text);
            m_table.InsertItem(m_table.GetItemCount(), text);
        }
        m_heard.clear();
        return TRUE;
    }
    void OnCancel() override
    {
        m_heard += "cancel ";
        if (!m_refusesCancel)
            CDialog::OnCancel();
    }
    void OnApply()
    {
        m_heard += "apply ";
        if (onApply)
            onApply(*this);
    }
    void OnNameChange() { m_heard += "name "; }
    void OnRows() { m_heard += "rows "; }
    void OnRowsTwice() { m_heard += "twice "; }
    void OnKind() { m_heard += "kind "; }
    void OnSide(UINT id) { m_heard += id == IDC_LEFT ? "left " : "right "; }
    void OnTable(NMHDR* header, LRESULT* result)
    {
        const NMLISTVIEW* notice = reinterpret_cast<const NMLISTVIEW*>(header);
        m_heard += "table" + std::to_string(notice->iItem) + " ";
        *result = 5;
    }
    void OnDestroy() { m_heard += "destroy "; }
    LRESULT OnPrivate(WPARAM wParam, LPARAM lParam) { return LRESULT(wParam) * 10 + lParam; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestDialog, CDialog)
ON_BN_CLICKED(IDC_APPLY, &TestDialog::OnApply)
ON_EN_CHANGE(IDC_NAME, &TestDialog::OnNameChange)
ON_LBN_SELCHANGE(IDC_ROWS, &TestDialog::OnRows)
ON_LBN_DBLCLK(IDC_ROWS, &TestDialog::OnRowsTwice)
ON_CBN_SELCHANGE(IDC_KIND, &TestDialog::OnKind)
ON_COMMAND_RANGE(IDC_LEFT, IDC_RIGHT, &TestDialog::OnSide)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_TABLE, &TestDialog::OnTable)
ON_WM_DESTROY()
ON_MESSAGE(WM_USER + 7, &TestDialog::OnPrivate)
END_MESSAGE_MAP()

class Dialogs : public testing::Test {
protected:
    void SetUp() override { KxPlat::SetUi(&m_ui); }
    void TearDown() override { KxPlat::SetUi(nullptr); }
    int Run(TestDialog& dialog, std::function<void(KxPlat::DialogModel&)> user)
    {
        m_ui.user = std::move(user);
        return int(dialog.DoModal());
    }
    FunctionUi m_ui;
    TestModule m_module{"TestResources"};
};

TEST_F(Dialogs, WithoutATemplateNothingRuns)
{
    class Missing : public CDialog {
    public:
        Missing() : CDialog(L"NoSuchDialog") {}
        BOOL OnInitDialog() override { return ADD_FAILURE(), TRUE; }
    } dialog;
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

TEST_F(Dialogs, AcceptingSavesTheMembers)
{
    TestDialog dialog;
    dialog.m_name = L"墙体";
    const int result = Run(dialog, [](KxPlat::DialogModel& model) {
        EXPECT_EQ(model.Find(IDC_NAME)->text, L"墙体");
        EXPECT_EQ(model.Find(IDC_COUNT)->text, L"3");
        EXPECT_EQ(model.Find(IDC_ALL)->check, 1);
        EXPECT_EQ(model.Find(IDC_LEFT)->check, 0);
        EXPECT_EQ(model.Find(IDC_RIGHT)->check, 1);
        model.SetText(IDC_NAME, L"门");
        model.SetText(IDC_COUNT, L" 9 ");
        model.Press(IDC_ALL);
        model.Press(IDC_LEFT);
        model.Press(IDOK);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_TRUE(dialog.m_name == L"门");
    EXPECT_EQ(dialog.m_count, 9);
    EXPECT_EQ(dialog.m_all, 0);
    EXPECT_EQ(dialog.m_side, 0);
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
    EXPECT_EQ(dialog.m_rows.GetSafeHwnd(), nullptr);
    EXPECT_EQ(dialog.m_rows.GetCount(), 0);
}

TEST_F(Dialogs, WhatIsNotValidKeepsTheDialogOpen)
{
    struct Row {
        const wchar_t* name;
        const wchar_t* count;
        const wchar_t* message;
    };
    static const Row rows[] = {
        {L"a", L"4x", L"Please enter an integer.\n"},
        {L"a", L"", L"Please enter an integer.\n"},
        {L"a", L"99999999999", L"Please enter an integer.\n"},
        {L"a", L"0", L"Please enter an integer between 1 and 9.\n"},
        {L"六个字的名称", L"4", L"Please enter no more than 5 characters.\n"},
    };
    for (const Row& row : rows) {
        m_ui.boxes.clear();
        TestDialog dialog;
        const int result = Run(dialog, [&](KxPlat::DialogModel& model) {
            model.SetText(IDC_NAME, row.name);
            model.SetText(IDC_COUNT, row.count);
            model.Press(IDOK);
            EXPECT_FALSE(model.Ended());
        });
        EXPECT_EQ(m_ui.boxes, row.message);
        EXPECT_EQ(result, IDCANCEL);   // the user went away
    }
}

TEST_F(Dialogs, HandlersHearWhatTheUserDoes)
{
    struct Row {
        void (*user)(KxPlat::DialogModel&);
        const char* heard;
    };
    static const Row rows[] = {
        {[](KxPlat::DialogModel& m) { m.Press(IDC_APPLY); }, "apply "},
        {[](KxPlat::DialogModel& m) { m.SetText(IDC_NAME, L"x"); }, "name "},
        {[](KxPlat::DialogModel& m) {
             m.Select(IDC_ROWS, {0, 2});
         },
         "rows "},
        {[](KxPlat::DialogModel& m) { m.DoubleClick(IDC_ROWS, 1); }, "rows twice "},
        {[](KxPlat::DialogModel& m) { m.SetText(IDC_KIND, L"B"); }, "kind "},
        {[](KxPlat::DialogModel& m) { m.SetText(IDC_KIND, L"free text"); }, ""},
        {[](KxPlat::DialogModel& m) { m.Press(IDC_RIGHT); }, "right "},
        {[](KxPlat::DialogModel& m) { m.Select(IDC_TABLE, {2}); }, "table2 "},
        {[](KxPlat::DialogModel& m) { m.Press(IDC_HIDDEN); }, ""},
        {[](KxPlat::DialogModel& m) { m.Press(4711); }, ""},
        {[](KxPlat::DialogModel& m) { m.Accept(); }, ""},
    };
    for (const Row& row : rows) {
        TestDialog dialog;
        std::string heard;
        Run(dialog, [&](KxPlat::DialogModel& model) {
            row.user(model);
            heard = dialog.m_heard;
        });
        EXPECT_EQ(heard, row.heard);
    }
}

TEST_F(Dialogs, AHostWithoutDialogsCancelsThem)
{
    TestDialog dialog;
    EXPECT_EQ(Run(dialog, nullptr), IDCANCEL);
    EXPECT_EQ(dialog.m_heard, "cancel destroy ");
    TestDialog stubborn;
    stubborn.m_refusesCancel = true;
    EXPECT_EQ(Run(stubborn, nullptr), IDCANCEL);
}

TEST_F(Dialogs, ControlsAreReachedByNumberAndAttachedObject)
{
    TestDialog dialog;
    dialog.onApply = [](TestDialog& self) {
        EXPECT_EQ(self.GetDlgItem(IDC_ROWS), &self.m_rows);
        EXPECT_EQ(self.GetDlgItem(IDC_ALL), self.GetDlgItem(IDC_ALL));
        EXPECT_NE(dynamic_cast<CButton*>(self.GetDlgItem(IDC_ALL)), nullptr);
        EXPECT_EQ(self.GetDlgItem(4711), nullptr);
        EXPECT_EQ(self.m_rows.GetParent(), &self);
        EXPECT_EQ(self.m_rows.GetDlgCtrlID(), IDC_ROWS);
        EXPECT_EQ(self.SendMessage(WM_USER + 7, 4, 2), 42);
        self.SetWindowText(L"新标题");
        self.SetDlgItemInt(IDC_COUNT, UINT(-5));
        BOOL done = FALSE;
        EXPECT_EQ(int(self.GetDlgItemInt(IDC_COUNT, &done)), -5);
        EXPECT_TRUE(done);
        self.GetDlgItemInt(IDC_COUNT, &done, FALSE);
        EXPECT_FALSE(done);
        EXPECT_FALSE(self.GetDlgItem(IDC_NAME)->EnableWindow(FALSE));
        EXPECT_TRUE(self.GetDlgItem(IDC_NAME)->EnableWindow());
        EXPECT_TRUE(self.GetDlgItem(IDC_NAME)->ShowWindow(SW_HIDE));
        self.CheckRadioButton(IDC_LEFT, IDC_RIGHT, IDC_LEFT);
        EXPECT_EQ(self.GetCheckedRadioButton(IDC_LEFT, IDC_RIGHT), IDC_LEFT);
    };
    Run(dialog, [](KxPlat::DialogModel& model) {
        model.Press(IDC_APPLY);
        EXPECT_EQ(model.caption, L"新标题");
        EXPECT_FALSE(model.SetText(IDC_NAME, L"hidden"));
        EXPECT_TRUE(model.Find(IDC_NAME)->text.empty());
    });
    EXPECT_EQ(dialog.m_heard, "apply cancel destroy ");
}

TEST_F(Dialogs, ListsSortFindAndSelect)
{
    TestDialog dialog;
    dialog.onApply = [](TestDialog& self) {
        CComboBox* kinds = static_cast<CComboBox*>(self.GetDlgItem(IDC_KIND));
        CString text;
        kinds->GetLBText(0, text);
        EXPECT_TRUE(text == L"a");
        kinds->GetLBText(2, text);
        EXPECT_TRUE(text == L"C");
        EXPECT_EQ(kinds->FindString(2, L"B"), 1);
        EXPECT_EQ(kinds->FindStringExact(-1, L"ab"), CB_ERR);
        EXPECT_EQ(kinds->SelectString(-1, L"c"), 2);
        kinds->GetWindowText(text);
        EXPECT_TRUE(text == L"C");

        CListBox& rows = self.m_rows;
        int selected[4] = {};
        EXPECT_EQ(rows.GetSelItems(4, selected), 2);
        EXPECT_EQ(selected[1], 2);
        EXPECT_EQ(rows.DeleteString(0), 2);
        EXPECT_EQ(rows.GetSelCount(), 1);
        EXPECT_EQ(rows.InsertString(1, L"x"), 1);
        EXPECT_EQ(rows.GetTextLen(2), 2);
        EXPECT_EQ(rows.DeleteString(3), LB_ERR);
        EXPECT_EQ(rows.SetItemData(1, 77), 0);
        EXPECT_EQ(rows.GetItemData(1), DWORD_PTR(77));
    };
    Run(dialog, [](KxPlat::DialogModel& model) {
        model.Select(IDC_ROWS, {0, 2, 99, -1});
        model.Press(IDC_APPLY);
    });
}

TEST_F(Dialogs, TablesKeepCellsAndSelection)
{
    TestDialog dialog;
    dialog.onApply = [](TestDialog& self) {
        CListCtrl& table = self.m_table;
        EXPECT_TRUE(table.SetItemText(1, 1, L"红"));
        EXPECT_FALSE(table.SetItemText(1, 2, L"no such column"));
        EXPECT_TRUE(table.GetItemText(1, 1) == L"红");
        EXPECT_TRUE(table.GetItemText(2, 1).IsEmpty());
        std::string rows;
        for (POSITION at = table.GetFirstSelectedItemPosition(); at != nullptr;)
            rows += std::to_string(table.GetNextSelectedItem(at));
        EXPECT_EQ(rows, "02");
        table.SetItemState(2, 0, LVIS_SELECTED);
        EXPECT_EQ(table.GetSelectedCount(), 1u);
        EXPECT_EQ(table.GetNextItem(0, LVNI_SELECTED), -1);
        table.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        EXPECT_EQ(table.GetItemState(1, LVIS_FOCUSED), LVIS_FOCUSED);
        EXPECT_EQ(table.InsertColumn(1, L"中间"), 1);
        EXPECT_TRUE(table.GetItemText(1, 2) == L"红");
        EXPECT_TRUE(table.DeleteItem(0));
        EXPECT_TRUE(table.GetItemText(0, 2) == L"红");
        EXPECT_EQ(table.InsertItem(99, L"last"), 2);
        self.m_heard += "| ";
        table.DeleteAllItems();
        for (int i = 0; i < 40; ++i)
            EXPECT_EQ(table.InsertItem(i, L"row"), i);
        EXPECT_EQ(table.InsertItem(7, L"seventh"), 7);
        EXPECT_TRUE(table.GetItemText(7, 0) == L"seventh");
        table.DeleteAllItems();
        EXPECT_EQ(table.GetFirstSelectedItemPosition(), nullptr);
    };
    Run(dialog, [](KxPlat::DialogModel& model) {
        model.Select(IDC_TABLE, {0, 2});
        model.Press(IDC_APPLY);
    });
    // The selection, then the two changes of the handler; the focus stays where it was until the second.
    EXPECT_EQ(dialog.m_heard, "table2 apply table2 table1 | cancel destroy ");
}

TEST_F(Dialogs, EndingInOnInitDialogShowsNothing)
{
    class Brief : public TestDialog {
        BOOL OnInitDialog() override
        {
            TestDialog::OnInitDialog();
            EndDialog(7);
            return TRUE;
        }
    } dialog;
    EXPECT_EQ(Run(dialog, [](KxPlat::DialogModel&) { ADD_FAILURE(); }), 7);
}

TEST_F(Dialogs, AMissingControlIsAFaultOfTheProgram)
{
    class Wrong : public TestDialog {
        void DoDataExchange(CDataExchange* exchange) override { DDX_Text(exchange, 4711, m_name); }
    } dialog;
    try {
        Run(dialog, nullptr);
        ADD_FAILURE();
    } catch (CResourceException* error) {
        error->Delete();
    }
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
}

TEST_F(Dialogs, WindowObjectsMayDieBeforeTheDialog)
{
    TestDialog dialog;
    dialog.onApply = [](TestDialog& self) {
        CDataExchange exchange(&self, FALSE);
        {
            CButton passing;
            DDX_Control(&exchange, IDC_ALL, passing);
            EXPECT_EQ(self.GetDlgItem(IDC_ALL), &passing);
        }
        EXPECT_EQ(static_cast<CButton*>(self.GetDlgItem(IDC_ALL))->GetCheck(), 1);
    };
    Run(dialog, [](KxPlat::DialogModel& model) { model.Press(IDC_APPLY); });
}

}   // namespace
