// A list of texts. Rows count from 0; an answer of LB_ERR means that there is no such row.
#pragma once
#include "CWnd.h"

// What list boxes and combo boxes have in common.
class CRowList : public CWnd {
public:
    int GetCount() const;
    int AddString(const wchar_t* text);               // at its place when the list sorts
    int InsertString(int row, const wchar_t* text);   // -1: at the end
    int DeleteString(int row);                        // the rows that are left
    void ResetContent();
    int GetCurSel() const;
    int SetCurSel(int row);   // -1: none
    // The next row behind `after` that starts with `text`, round the end; without regard to case.
    int FindString(int after, const wchar_t* text) const;
    int FindStringExact(int after, const wchar_t* text) const;
    int SelectString(int after, const wchar_t* text);
    int SetItemData(int row, DWORD_PTR data);
    DWORD_PTR GetItemData(int row) const;
    BOOL GetRowText(int row, CString& text) const;

protected:
    bool HasRow(int row) const;
    virtual bool Sorts() const = 0;

private:
    int Search(int after, const wchar_t* text, bool whole) const;
};

class CListBox : public CRowList {
public:
    void GetText(int row, CString& text) const;
    int GetText(int row, wchar_t* text) const;
    int GetTextLen(int row) const;
    // Lists that select several rows.
    int GetSel(int row) const;
    int SetSel(int row, BOOL select = TRUE);   // -1: all rows
    int GetSelCount() const;
    int GetSelItems(int most, int* rows) const;

protected:
    bool Sorts() const override;
};
