// One step of a merge of layers: a list of layers with what they hold, of which the user selects the sources, or the
// target. A line below tells what the selection means.
#pragma once
#include "LayerMerge.h"
#include "LayerStates.h"

namespace KxArxModules {

class CDlgMergeLayers : public CDialog {
public:
    enum Step { kSources, kTarget };

    // `layers` are those to choose from, `sources` the ones chosen in the first step.
    CDlgMergeLayers(Step step, const std::vector<LayerStates::Row>& layers, const LayerCounts& counts,
                    const std::vector<AcDbObjectId>& sources, CWnd* parent = nullptr);

    // What was selected when the dialog was left with its default button; never empty then.
    const std::vector<AcDbObjectId>& chosen() const { return m_chosen; }

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnOK() override;
    void OnSelectionChanged(NMHDR* notice, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    std::vector<int> SelectedRows();
    CString Preview(const std::vector<int>& selected) const;
    LayerContents Sum(const std::vector<AcDbObjectId>& layers) const;

    const Step m_step;
    const std::vector<LayerStates::Row>& m_layers;
    const LayerCounts& m_counts;
    const std::vector<AcDbObjectId>& m_sources;
    std::vector<AcDbObjectId> m_chosen;
    CListCtrl m_list;
};

}   // namespace KxArxModules
