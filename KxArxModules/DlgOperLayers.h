// Lists layers of one state and puts them back to work, or walks through all layers one at a time.
// What is tried in the dialog shows at once; OK keeps it, Cancel restores every layer as it was.
#pragma once
#include "KxArxBase/KxAcDb.h"
#include "LayerStates.h"
#include <vector>

namespace KxArxModules {

class CDlgOperLayers : public CDialog {
public:
    enum Mode { kOff = 1, kFrozen = 2, kLocked = 3, kWalk = 4 };

    explicit CDlgOperLayers(Mode mode, CWnd* parent = nullptr);

    // True when the layers are no longer as they were.
    bool HasChanged() const { return m_changed; }

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(CDataExchange* exchange) override;
    void OnCancel() override;
    void OnApplySelected();
    void OnApplyAll();
    void OnPrevious();
    void OnNext();
    void OnShowSelected();
    void OnRestore();
    DECLARE_MESSAGE_MAP()

private:
    bool IsListed(const LayerStates::Row& row) const;
    void FillColumns();
    void FillRows();
    std::vector<int> SelectedRows();
    void Release(const std::vector<int>& rows);
    void WalkTo(int row);
    void Changed();

    const Mode m_mode;
    KxArxBase::CKxAcDb m_db;
    const LayerStates m_layers;
    CListCtrl m_list;
    std::vector<int> m_listed;   // row of m_layers for each item of the list
    int m_walked = -1;
    bool m_changed = false;
};

}   // namespace KxArxModules
