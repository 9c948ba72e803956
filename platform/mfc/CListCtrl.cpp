#include "CListCtrl.h"
#include "../ui/DialogModel.h"
#include "../win/CharTables.h"
#include "TextView.h"
#include <algorithm>
#include <cwchar>

using KxPlat::DialogRow;

bool CListCtrl::HasRow(int row) const
{
    return row >= 0 && row < GetItemCount();
}

// --- columns ----------------------------------------------------------------------------------------------------

int CListCtrl::InsertColumn(int column, const wchar_t* heading, int format, int width, int)
{
    if (Control() == nullptr || column < 0)
        return -1;
    auto& columns = Control()->columns;
    const size_t place = std::min(size_t(column), columns.size());
    columns.insert(columns.begin() + ptrdiff_t(place),
                   {heading == nullptr ? L"" : heading, std::max(width, 0), format == LVCFMT_RIGHT});
    // The cells of the rows that are there move with their columns, the text of the rows stays first.
    for (DialogRow& row : Control()->rows) {
        if (place > 0 && place < row.cells.size())
            row.cells.insert(row.cells.begin() + ptrdiff_t(place), std::wstring());
    }
    return int(place);
}

BOOL CListCtrl::DeleteColumn(int column)
{
    if (Control() == nullptr || column < 0 || size_t(column) >= Control()->columns.size())
        return FALSE;
    Control()->columns.erase(Control()->columns.begin() + column);
    for (DialogRow& row : Control()->rows) {
        if (column > 0 && size_t(column) < row.cells.size())
            row.cells.erase(row.cells.begin() + column);
    }
    return TRUE;
}

BOOL CListCtrl::SetColumnWidth(int column, int width)
{
    if (Control() == nullptr || column < 0 || size_t(column) >= Control()->columns.size())
        return FALSE;
    Control()->columns[size_t(column)].width = width;
    return TRUE;
}

int CListCtrl::GetColumnWidth(int column) const
{
    if (Control() == nullptr || column < 0 || size_t(column) >= Control()->columns.size())
        return 0;
    return Control()->columns[size_t(column)].width;
}

// --- rows -------------------------------------------------------------------------------------------------------

int CListCtrl::GetItemCount() const
{
    return Control() == nullptr ? 0 : int(Control()->rows.size());
}

int CListCtrl::InsertItem(int row, const wchar_t* text)
{
    if (Control() == nullptr || row < 0)
        return -1;
    auto& rows = Control()->rows;
    DialogRow added;
    added.cells.push_back(text == nullptr ? L"" : text);
    auto place = rows.begin() + std::min(row, GetItemCount());
    if ((GetStyle() & LVS_SORTASCENDING) != 0)
        place = std::upper_bound(rows.begin(), rows.end(), added, [](const DialogRow& a, const DialogRow& b) {
            return KxPlat::CompareNoCase(a.cells[0], b.cells[0]) < 0;
        });
    const int at = int(place - rows.begin());
    rows.insert(place, std::move(added));
    return at;
}

BOOL CListCtrl::SetItemText(int row, int column, const wchar_t* text)
{
    if (!HasRow(row) || column < 0 || (column > 0 && size_t(column) >= Control()->columns.size()))
        return FALSE;
    auto& cells = Control()->rows[size_t(row)].cells;
    if (cells.size() <= size_t(column))
        cells.resize(size_t(column) + 1);
    cells[size_t(column)] = text == nullptr ? L"" : text;
    return TRUE;
}

CString CListCtrl::GetItemText(int row, int column) const
{
    if (!HasRow(row) || column < 0 || size_t(column) >= Control()->rows[size_t(row)].cells.size())
        return CString();
    return KxPlat::ToCString(Control()->rows[size_t(row)].cells[size_t(column)]);
}

int CListCtrl::GetItemText(int row, int column, wchar_t* text, int size) const
{
    if (text == nullptr || size <= 0)
        return 0;
    const CString whole = GetItemText(row, column).Left(size - 1);
    std::wcscpy(text, whole);
    return whole.GetLength();
}

BOOL CListCtrl::DeleteItem(int row)
{
    if (!HasRow(row))
        return FALSE;
    Control()->rows.erase(Control()->rows.begin() + row);
    return TRUE;
}

BOOL CListCtrl::DeleteAllItems()
{
    if (Control() == nullptr)
        return FALSE;
    Control()->rows.clear();
    Control()->focusedRow = -1;
    return TRUE;
}

BOOL CListCtrl::SetItemData(int row, DWORD_PTR data)
{
    if (HasRow(row))
        Control()->rows[size_t(row)].data = data;
    return HasRow(row);
}

DWORD_PTR CListCtrl::GetItemData(int row) const
{
    return HasRow(row) ? Control()->rows[size_t(row)].data : 0;
}

// --- selection --------------------------------------------------------------------------------------------------

// A position is the number of the row and one more, so that row 0 is not null.
POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    return reinterpret_cast<POSITION>(INT_PTR(GetNextItem(-1, LVNI_SELECTED) + 1));
}

int CListCtrl::GetNextSelectedItem(POSITION& position) const
{
    const int row = int(reinterpret_cast<INT_PTR>(position)) - 1;
    position = reinterpret_cast<POSITION>(INT_PTR(GetNextItem(row, LVNI_SELECTED) + 1));
    return row;
}

bool CListCtrl::HasState(int row, UINT state) const
{
    const bool selected = (state & LVIS_SELECTED) == 0 || Control()->rows[size_t(row)].selected;
    return selected && ((state & LVIS_FOCUSED) == 0 || Control()->focusedRow == row);
}

int CListCtrl::GetNextItem(int after, int flags) const
{
    static_assert(LVNI_SELECTED == LVIS_SELECTED && LVNI_FOCUSED == LVIS_FOCUSED);
    for (int row = std::max(after, -1) + 1; row < GetItemCount(); ++row) {
        if (HasState(row, UINT(flags) & (LVIS_SELECTED | LVIS_FOCUSED)))
            return row;
    }
    return -1;
}

UINT CListCtrl::GetSelectedCount() const
{
    UINT count = 0;
    for (int row = GetNextItem(-1, LVNI_SELECTED); row >= 0; row = GetNextItem(row, LVNI_SELECTED))
        ++count;
    return count;
}

int CListCtrl::GetSelectionMark() const
{
    return Control() == nullptr ? -1 : Control()->focusedRow;
}

BOOL CListCtrl::SetItemState(int row, UINT state, UINT mask)
{
    if (row != -1 && !HasRow(row))
        return FALSE;
    const int first = row == -1 ? 0 : row;
    const int last = row == -1 ? GetItemCount() - 1 : row;
    for (int i = first; i <= last; ++i) {
        if ((mask & LVIS_FOCUSED) != 0 && (state & LVIS_FOCUSED) != 0)
            Control()->focusedRow = i;
        if ((mask & LVIS_SELECTED) == 0)
            continue;
        const bool select = (state & LVIS_SELECTED) != 0;
        if (select && !Control()->IsMultiSelect())
            Control()->SelectOnly(-1);
        Control()->rows[size_t(i)].selected = select;
    }
    NotifyParent(LVN_ITEMCHANGED);
    return TRUE;
}

UINT CListCtrl::GetItemState(int row, UINT mask) const
{
    if (!HasRow(row))
        return 0;
    const UINT selected = HasState(row, LVIS_SELECTED) ? LVIS_SELECTED : 0;
    const UINT focused = HasState(row, LVIS_FOCUSED) ? LVIS_FOCUSED : 0;
    return (selected | focused) & mask;
}

BOOL CListCtrl::EnsureVisible(int row, BOOL)
{
    return HasRow(row);
}

BOOL CListCtrl::GetCheck(int row) const
{
    return HasRow(row) && Control()->rows[size_t(row)].checked;
}

BOOL CListCtrl::SetCheck(int row, BOOL check)
{
    if (HasRow(row))
        Control()->rows[size_t(row)].checked = check != FALSE;
    return HasRow(row);
}

DWORD CListCtrl::SetExtendedStyle(DWORD style)
{
    const DWORD before = GetExtendedStyle();
    if (Control() != nullptr)
        Control()->listStyle = style;
    return before;
}

DWORD CListCtrl::GetExtendedStyle() const
{
    return Control() == nullptr ? 0 : Control()->listStyle;
}
