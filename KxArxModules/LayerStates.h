// The layers of a drawing with the states they had when this was made, so that a dialog may try other states and put
// these back. Rows are in the order of the layer table.
#pragma once
#include "KxArxBase/KxAcDb.h"
#include <vector>

namespace KxArxModules {

class LayerStates {
public:
    struct Row {
        AcDbObjectId id;
        CString name;
        CString linetype;
        int color = 7;
        bool off = false;
        bool frozen = false;
        bool locked = false;
    };

    explicit LayerStates(KxArxBase::CKxAcDb& db);

    const std::vector<Row>& rows() const { return m_rows; }
    // Null states stay as they are.
    static void Set(AcDbObjectId layer, const bool* off, const bool* frozen, const bool* locked);
    // Shows the layers at these rows, on and thawed, and switches all others off.
    void ShowOnly(const std::vector<int>& shown) const;
    void Restore() const;

private:
    std::vector<Row> m_rows;
};

}   // namespace KxArxModules
