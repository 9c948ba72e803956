// A table of rows and columns. The first column holds the rows' own texts; rows and columns count from 0.
#pragma once
#include "CWnd.h"

class CListCtrl : public CWnd {
public:
    int InsertColumn(int column, const wchar_t* heading, int format = LVCFMT_LEFT, int width = -1, int subItem = -1);
    BOOL DeleteColumn(int column);
    BOOL SetColumnWidth(int column, int width);
    int GetColumnWidth(int column) const;

    int GetItemCount() const;
    int InsertItem(int row, const wchar_t* text);   // the row that it became, -1 on failure
    BOOL SetItemText(int row, int column, const wchar_t* text);
    CString GetItemText(int row, int column) const;
    int GetItemText(int row, int column, wchar_t* text, int size) const;
    BOOL DeleteItem(int row);
    BOOL DeleteAllItems();
    BOOL SetItemData(int row, DWORD_PTR data);
    DWORD_PTR GetItemData(int row) const;

    // Selected rows in rising order, as positions or with LVNI_SELECTED behind a row.
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& position) const;
    int GetNextItem(int after, int flags) const;   // LVNI_...; -1 when there is none
    UINT GetSelectedCount() const;
    int GetSelectionMark() const;
    BOOL SetItemState(int row, UINT state, UINT mask);   // LVIS_...; row -1: all rows
    UINT GetItemState(int row, UINT mask) const;
    BOOL EnsureVisible(int row, BOOL partialOk);

    BOOL GetCheck(int row) const;   // of the box before the row, with LVS_EX_CHECKBOXES
    BOOL SetCheck(int row, BOOL check = TRUE);
    DWORD SetExtendedStyle(DWORD style);   // the old one
    DWORD GetExtendedStyle() const;

private:
    bool HasRow(int row) const;
    bool HasState(int row, UINT state) const;
};
