// A list that shows one row, and may take free text.
#pragma once
#include "CListBox.h"

class CComboBox : public CRowList {
public:
    void GetLBText(int row, CString& text) const;
    int GetLBText(int row, wchar_t* text) const;
    int GetLBTextLen(int row) const;
    BOOL LimitText(int count);
    void ShowDropDown(BOOL = TRUE) {}

protected:
    bool Sorts() const override;
};
