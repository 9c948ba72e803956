#include "CListBox.h"
#include "../ui/DialogModel.h"
#include "../win/CharTables.h"
#include "CComboBox.h"
#include "TextView.h"
#include <algorithm>
#include <cwchar>

using KxPlat::DialogRow;

namespace {

int CopyRow(const CRowList& list, int row, wchar_t* text)
{
    CString whole;
    if (!list.GetRowText(row, whole))
        return LB_ERR;
    std::wcscpy(text, whole);
    return whole.GetLength();
}

int RowLength(const CRowList& list, int row)
{
    CString text;
    return list.GetRowText(row, text) ? text.GetLength() : LB_ERR;
}

}   // namespace

bool CRowList::HasRow(int row) const
{
    return row >= 0 && row < GetCount();
}

int CRowList::GetCount() const
{
    return Control() == nullptr ? 0 : int(Control()->rows.size());
}

int CRowList::AddString(const wchar_t* text)
{
    if (!Sorts())
        return InsertString(-1, text);
    const auto& rows = Control()->rows;
    const auto place = std::upper_bound(rows.begin(), rows.end(), text, [](const wchar_t* added, const DialogRow& row) {
        return KxPlat::CompareNoCase(added, row.cells[0]) < 0;
    });
    return InsertString(int(place - rows.begin()), text);
}

int CRowList::InsertString(int row, const wchar_t* text)
{
    if (Control() == nullptr || row < -1 || row > GetCount())
        return LB_ERR;
    const int place = row < 0 ? GetCount() : row;
    DialogRow added;
    added.cells.push_back(text == nullptr ? L"" : text);
    Control()->rows.insert(Control()->rows.begin() + place, std::move(added));
    return place;
}

int CRowList::DeleteString(int row)
{
    if (!HasRow(row))
        return LB_ERR;
    Control()->rows.erase(Control()->rows.begin() + row);
    return GetCount();
}

void CRowList::ResetContent()
{
    if (Control() == nullptr)
        return;
    Control()->rows.clear();
    Control()->SelectOnly(-1);
}

int CRowList::GetCurSel() const
{
    return Control() == nullptr ? LB_ERR : Control()->FirstSelected();
}

int CRowList::SetCurSel(int row)
{
    if (Control() == nullptr)
        return LB_ERR;
    Control()->SelectOnly(row);
    return HasRow(row) ? row : LB_ERR;
}

int CRowList::Search(int after, const wchar_t* text, bool whole) const
{
    const int count = GetCount();
    const int first = HasRow(after) ? after + 1 : 0;
    for (int i = 0; i < count; ++i) {
        const int row = (first + i) % count;
        const std::wstring& cell = Control()->rows[size_t(row)].cells[0];
        if (whole ? KxPlat::EqualNoCase(cell, text) : KxPlat::StartsWithNoCase(cell, text))
            return row;
    }
    return LB_ERR;
}

int CRowList::FindString(int after, const wchar_t* text) const
{
    return Search(after, text, false);
}

int CRowList::FindStringExact(int after, const wchar_t* text) const
{
    return Search(after, text, true);
}

int CRowList::SelectString(int after, const wchar_t* text)
{
    const int row = FindString(after, text);
    return row < 0 ? LB_ERR : SetCurSel(row);
}

int CRowList::SetItemData(int row, DWORD_PTR data)
{
    if (!HasRow(row))
        return LB_ERR;
    Control()->rows[size_t(row)].data = data;
    return 0;
}

DWORD_PTR CRowList::GetItemData(int row) const
{
    return HasRow(row) ? Control()->rows[size_t(row)].data : DWORD_PTR(LB_ERR);
}

BOOL CRowList::GetRowText(int row, CString& text) const
{
    text = HasRow(row) ? KxPlat::ToCString(Control()->rows[size_t(row)].cells[0]) : CString();
    return HasRow(row);
}

// --- list boxes -------------------------------------------------------------------------------------------------

bool CListBox::Sorts() const
{
    return (GetStyle() & LBS_SORT) != 0;
}

void CListBox::GetText(int row, CString& text) const
{
    GetRowText(row, text);
}

int CListBox::GetText(int row, wchar_t* text) const
{
    return CopyRow(*this, row, text);
}

int CListBox::GetTextLen(int row) const
{
    return RowLength(*this, row);
}

int CListBox::GetSel(int row) const
{
    return HasRow(row) ? int(Control()->rows[size_t(row)].selected) : LB_ERR;
}

int CListBox::SetSel(int row, BOOL select)
{
    if (row != -1 && !HasRow(row))
        return LB_ERR;
    for (int i = 0; i < GetCount(); ++i) {
        if (row == -1 || row == i)
            Control()->rows[size_t(i)].selected = select != FALSE;
    }
    return LB_OKAY;
}

int CListBox::GetSelCount() const
{
    int count = 0;
    for (int row = 0; row < GetCount(); ++row)
        count += GetSel(row);
    return count;
}

int CListBox::GetSelItems(int most, int* rows) const
{
    int count = 0;
    for (int row = 0; row < GetCount() && count < most; ++row) {
        if (GetSel(row) != 0)
            rows[count++] = row;
    }
    return count;
}

// --- combo boxes ------------------------------------------------------------------------------------------------

bool CComboBox::Sorts() const
{
    return (GetStyle() & CBS_SORT) != 0;
}

void CComboBox::GetLBText(int row, CString& text) const
{
    GetRowText(row, text);
}

int CComboBox::GetLBText(int row, wchar_t* text) const
{
    return CopyRow(*this, row, text);
}

int CComboBox::GetLBTextLen(int row) const
{
    return RowLength(*this, row);
}

BOOL CComboBox::LimitText(int count)
{
    if (Control() == nullptr)
        return FALSE;
    Control()->textLimit = count > 0 ? size_t(count) : size_t(0x7FFFFFFE);
    return TRUE;
}
