#include "DlgOperLayers.h"
#include "resources/resource.h"
#include <algorithm>

namespace KxArxModules {

namespace {

struct ModeTexts {
    const wchar_t* caption;
    const wchar_t* selected;   // of the button that acts on the selection
    const wchar_t* all;
};

const ModeTexts g_texts[] = {
    {L"关闭的图层", L"打开所选(&S)", L"全部打开(&A)"},
    {L"冻结的图层", L"解冻所选(&S)", L"全部解冻(&A)"},
    {L"锁定的图层", L"解锁所选(&S)", L"全部解锁(&A)"},
    {L"图层浏览", L"", L""},
};

struct ColumnRow {
    const wchar_t* title;
    int width;   // pixels
};

const ColumnRow g_columns[] = {{L"图层", 160}, {L"开关", 50}, {L"冻结", 50},
                               {L"锁定", 50},  {L"颜色", 50}, {L"线型", 110}};

const UINT g_listButtons[] = {IDC_APPLY_SELECTED, IDC_APPLY_ALL};
const UINT g_walkButtons[] = {IDC_PREVIOUS, IDC_NEXT, IDC_SHOW_SELECTED, IDC_RESTORE};

}   // namespace

BEGIN_MESSAGE_MAP(CDlgOperLayers, CDialog)
ON_BN_CLICKED(IDC_APPLY_SELECTED, &CDlgOperLayers::OnApplySelected)
ON_BN_CLICKED(IDC_APPLY_ALL, &CDlgOperLayers::OnApplyAll)
ON_BN_CLICKED(IDC_PREVIOUS, &CDlgOperLayers::OnPrevious)
ON_BN_CLICKED(IDC_NEXT, &CDlgOperLayers::OnNext)
ON_BN_CLICKED(IDC_SHOW_SELECTED, &CDlgOperLayers::OnShowSelected)
ON_BN_CLICKED(IDC_RESTORE, &CDlgOperLayers::OnRestore)
END_MESSAGE_MAP()

CDlgOperLayers::CDlgOperLayers(Mode mode, CWnd* parent) : CDialog(IDD_OPER_LAYERS, parent), m_mode(mode), m_layers(m_db)
{
}

void CDlgOperLayers::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LAYER_LIST, m_list);
}

BOOL CDlgOperLayers::OnInitDialog()
{
    CDialog::OnInitDialog();
    const ModeTexts& texts = g_texts[m_mode - 1];
    SetWindowText(texts.caption);
    SetDlgItemText(IDC_APPLY_SELECTED, texts.selected);
    SetDlgItemText(IDC_APPLY_ALL, texts.all);
    const bool walks = m_mode == kWalk;
    for (UINT id : g_listButtons)
        GetDlgItem(id)->ShowWindow(walks ? SW_HIDE : SW_SHOW);
    for (UINT id : g_walkButtons)
        GetDlgItem(id)->ShowWindow(walks ? SW_SHOW : SW_HIDE);
    FillColumns();
    FillRows();
    return TRUE;
}

void CDlgOperLayers::FillColumns()
{
    int column = 0;
    for (const ColumnRow& row : g_columns)
        m_list.InsertColumn(column++, row.title, LVCFMT_LEFT, row.width);
}

bool CDlgOperLayers::IsListed(const LayerStates::Row& row) const
{
    switch (m_mode) {
    case kOff:
        return row.off;
    case kFrozen:
        return row.frozen;
    case kLocked:
        return row.locked;
    default:
        return true;
    }
}

// Shows the states of this moment, for the layers that the mode lists now.
void CDlgOperLayers::FillRows()
{
    m_list.DeleteAllItems();
    m_listed.clear();
    const LayerStates now(m_db);
    for (int i = 0; i < int(now.rows().size()); ++i) {
        const LayerStates::Row& row = now.rows()[size_t(i)];
        if (!IsListed(row))
            continue;
        CString color;
        color.Format(L"%d", row.color);
        const int item = m_list.InsertItem(int(m_listed.size()), row.name);
        m_list.SetItemText(item, 1, row.off ? L"关" : L"开");
        m_list.SetItemText(item, 2, row.frozen ? L"冻结" : L"");
        m_list.SetItemText(item, 3, row.locked ? L"锁定" : L"");
        m_list.SetItemText(item, 4, color);
        m_list.SetItemText(item, 5, row.linetype);
        m_listed.push_back(i);
    }
}

std::vector<int> CDlgOperLayers::SelectedRows()
{
    std::vector<int> rows;
    for (POSITION at = m_list.GetFirstSelectedItemPosition(); at != nullptr;)
        rows.push_back(m_listed[size_t(m_list.GetNextSelectedItem(at))]);
    return rows;
}

void CDlgOperLayers::Changed()
{
    m_changed = true;
    acedUpdateDisplay();
    FillRows();
}

void CDlgOperLayers::Release(const std::vector<int>& rows)
{
    const bool no = false;
    for (int row : rows)
        LayerStates::Set(m_layers.rows()[size_t(row)].id, m_mode == kOff ? &no : nullptr,
                         m_mode == kFrozen ? &no : nullptr, m_mode == kLocked ? &no : nullptr);
    if (!rows.empty())
        Changed();
}

void CDlgOperLayers::OnApplySelected()
{
    Release(SelectedRows());
}

void CDlgOperLayers::OnApplyAll()
{
    Release(std::vector<int>(m_listed));
}

// Round the list in both directions; the layer shown becomes the selected one.
void CDlgOperLayers::WalkTo(int row)
{
    const int count = int(m_layers.rows().size());
    if (count == 0)
        return;
    m_walked = (row + count) % count;
    m_layers.ShowOnly({m_walked});
    Changed();
    m_list.SetItemState(m_walked, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    m_list.EnsureVisible(m_walked, FALSE);
}

void CDlgOperLayers::OnPrevious()
{
    WalkTo(m_walked < 0 ? -1 : m_walked - 1);
}

void CDlgOperLayers::OnNext()
{
    WalkTo(m_walked + 1);
}

void CDlgOperLayers::OnShowSelected()
{
    const std::vector<int> rows = SelectedRows();
    if (rows.empty())
        return;
    m_layers.ShowOnly(rows);
    Changed();
}

void CDlgOperLayers::OnRestore()
{
    m_layers.Restore();
    m_walked = -1;
    Changed();
    m_changed = false;
}

void CDlgOperLayers::OnCancel()
{
    if (m_changed)
        m_layers.Restore();
    m_changed = false;
    CDialog::OnCancel();
}

}   // namespace KxArxModules
