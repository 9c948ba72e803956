#include "DlgMergeLayers.h"
#include "resources/resource.h"

namespace KxArxModules {

namespace {

struct ColumnRow {
    const wchar_t* title;
    int format;
    int width;   // pixels
};

const ColumnRow g_columns[] = {
    {L"图层", LVCFMT_LEFT, 200}, {L"对象", LVCFMT_RIGHT, 70}, {L"块内对象", LVCFMT_RIGHT, 80}};

CString Number(int value)
{
    CString text;
    text.Format(L"%d", value);
    return text;
}

}   // namespace

BEGIN_MESSAGE_MAP(CDlgMergeLayers, CDialog)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_LAYER_LIST, &CDlgMergeLayers::OnSelectionChanged)
END_MESSAGE_MAP()

CDlgMergeLayers::CDlgMergeLayers(Step step, const std::vector<LayerStates::Row>& layers, const LayerCounts& counts,
                                 const std::vector<AcDbObjectId>& sources, CWnd* parent)
    : CDialog(step == kSources ? IDD_MERGE_SOURCES : IDD_MERGE_TARGET, parent),
      m_step(step),
      m_layers(layers),
      m_counts(counts),
      m_sources(sources)
{
}

void CDlgMergeLayers::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_LAYER_LIST, m_list);
}

BOOL CDlgMergeLayers::OnInitDialog()
{
    CDialog::OnInitDialog();
    int column = 0;
    for (const ColumnRow& row : g_columns)
        m_list.InsertColumn(column++, row.title, row.format, row.width);
    for (const LayerStates::Row& layer : m_layers) {
        const LayerContents contents = m_counts.Of(layer.id);
        const int item = m_list.InsertItem(m_list.GetItemCount(), layer.name);
        m_list.SetItemText(item, 1, Number(contents.inSpaces));
        m_list.SetItemText(item, 2, Number(contents.inBlocks));
    }
    SetDlgItemText(IDC_PREVIEW, Preview({}));
    return TRUE;
}

std::vector<int> CDlgMergeLayers::SelectedRows()
{
    std::vector<int> rows;
    for (POSITION at = m_list.GetFirstSelectedItemPosition(); at != nullptr;)
        rows.push_back(m_list.GetNextSelectedItem(at));
    return rows;
}

LayerContents CDlgMergeLayers::Sum(const std::vector<AcDbObjectId>& layers) const
{
    LayerContents sum;
    for (AcDbObjectId id : layers) {
        const LayerContents contents = m_counts.Of(id);
        sum.inSpaces += contents.inSpaces;
        sum.inBlocks += contents.inBlocks;
    }
    return sum;
}

CString CDlgMergeLayers::Preview(const std::vector<int>& selected) const
{
    std::vector<AcDbObjectId> sources = m_sources;
    if (m_step == kSources) {
        for (int row : selected)
            sources.push_back(m_layers[size_t(row)].id);
    }
    const LayerContents sum = Sum(sources);
    CString text;
    if (m_step == kSources || selected.empty())
        text.Format(L"%d 个图层，%d 个对象，块内 %d 个。", int(sources.size()), sum.inSpaces, sum.inBlocks);
    else
        text.Format(L"%d 个图层上的 %d 个对象，块内 %d 个，合并到图层 %s。", int(sources.size()), sum.inSpaces,
                    sum.inBlocks, m_layers[size_t(selected.front())].name.GetString());
    return text;
}

void CDlgMergeLayers::OnSelectionChanged(NMHDR*, LRESULT* result)
{
    SetDlgItemText(IDC_PREVIEW, Preview(SelectedRows()));
    *result = 0;
}

// Without a selection the dialog stays.
void CDlgMergeLayers::OnOK()
{
    m_chosen.clear();
    for (int row : SelectedRows())
        m_chosen.push_back(m_layers[size_t(row)].id);
    if (m_chosen.empty())
        SetDlgItemText(IDC_PREVIEW, L"请选择图层。");
    else
        CDialog::OnOK();
}

}   // namespace KxArxModules
