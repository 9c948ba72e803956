#include "DialogModel.h"
#include "../win/CharTables.h"
#include "ControlStyles.h"
#include <algorithm>

namespace KxPlat {

// --- controls ---------------------------------------------------------------------------------------------------

bool DialogControl::IsPressed() const
{
    return kind == ControlKind::Button || kind == ControlKind::CheckBox || kind == ControlKind::RadioButton;
}

bool DialogControl::IsList() const
{
    return kind == ControlKind::ListBox || kind == ControlKind::ListView;
}

bool DialogControl::IsReadOnly() const
{
    return kind == ControlKind::Edit && (style & ES_READONLY) != 0;
}

bool DialogControl::IsPassword() const
{
    return kind == ControlKind::Edit && (style & ES_PASSWORD) != 0;
}

bool DialogControl::IsMultiSelect() const
{
    if (kind == ControlKind::ListBox)
        return (style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
    return kind == ControlKind::ListView && (style & LVS_SINGLESEL) == 0;
}

bool DialogControl::IsDefaultButton() const
{
    return kind == ControlKind::Button && (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

bool DialogControl::HasRowChecks() const
{
    return kind == ControlKind::ListView && (listStyle & LVS_EX_CHECKBOXES) != 0;
}

bool DialogControl::EditsText() const
{
    if (kind == ControlKind::ComboBox)
        return (style & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
    return kind == ControlKind::Edit;
}

int DialogControl::FirstSelected() const
{
    const auto found = std::find_if(rows.begin(), rows.end(), [](const DialogRow& row) { return row.selected; });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

void DialogControl::SelectOnly(int row)
{
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i].selected = int(i) == row;
    if (kind == ControlKind::ComboBox)
        text = row >= 0 && row < int(rows.size()) ? rows[size_t(row)].cells[0] : std::wstring();
}

// --- the dialog -------------------------------------------------------------------------------------------------

DialogControl& DialogModel::Add(DialogControl control)
{
    m_controls.push_back(std::make_unique<DialogControl>(std::move(control)));
    return *m_controls.back();
}

DialogControl* DialogModel::Find(int id) const
{
    for (const auto& control : m_controls) {
        if (control->id == id)
            return control.get();
    }
    return nullptr;
}

DialogControl* DialogModel::Usable(int id) const
{
    DialogControl* control = Find(id);
    return control != nullptr && control->visible && control->enabled && !m_ended ? control : nullptr;
}

void DialogModel::Tell(DialogEvent::Type type, DialogControl* control, int id)
{
    if (listener != nullptr)
        listener->OnDialogEvent({type, control, id});
}

// A radio button's group reaches from the last control that starts one to the next.
void DialogModel::TurnRadio(DialogControl& chosen)
{
    size_t at = 0;
    while (m_controls[at].get() != &chosen)
        ++at;
    size_t first = at;
    while (first > 0 && (m_controls[first]->style & WS_GROUP) == 0)
        --first;
    for (size_t i = first; i < m_controls.size() && (i <= at || (m_controls[i]->style & WS_GROUP) == 0); ++i) {
        if (m_controls[i]->kind == ControlKind::RadioButton)
            m_controls[i]->check = i == at;
    }
}

bool DialogModel::Press(int id)
{
    DialogControl* control = Usable(id);
    if (control == nullptr || !control->IsPressed())
        return false;
    switch (control->style & BS_TYPEMASK) {
    case BS_AUTOCHECKBOX:
        control->check = control->check == 0 ? 1 : 0;
        break;
    case BS_AUTO3STATE:
        control->check = (control->check + 1) % 3;
        break;
    case BS_AUTORADIOBUTTON:
        TurnRadio(*control);
        break;
    }
    Tell(DialogEvent::Type::Press, control, id);
    return true;
}

bool DialogModel::SetText(int id, const std::wstring& text)
{
    DialogControl* control = Usable(id);
    if (control == nullptr || control->IsReadOnly())
        return false;
    if (control->kind == ControlKind::ComboBox) {
        for (size_t i = 0; i < control->rows.size(); ++i) {
            if (EqualNoCase(control->rows[i].cells[0], text))
                return Select(id, {int(i)});
        }
    }
    if (!control->EditsText())
        return false;
    control->SelectOnly(-1);
    control->text = text.substr(0, control->textLimit);
    Tell(DialogEvent::Type::Text, control, id);
    return true;
}

bool DialogModel::Select(int id, const std::vector<int>& rows)
{
    DialogControl* control = Usable(id);
    if (control == nullptr || !(control->IsList() || control->kind == ControlKind::ComboBox))
        return false;
    control->SelectOnly(-1);
    for (int row : rows) {
        if (row < 0 || row >= int(control->rows.size()))
            continue;
        if (!control->IsMultiSelect())
            control->SelectOnly(row);
        control->rows[size_t(row)].selected = true;
        control->focusedRow = row;
    }
    Tell(DialogEvent::Type::Selection, control, id);
    return true;
}

bool DialogModel::CheckRow(int id, int row, bool checked)
{
    DialogControl* control = Usable(id);
    if (control == nullptr || !control->HasRowChecks() || row < 0 || row >= int(control->rows.size()))
        return false;
    control->rows[size_t(row)].checked = checked;
    Tell(DialogEvent::Type::RowChecks, control, id);
    return true;
}

bool DialogModel::DoubleClick(int id, int row)
{
    DialogControl* control = Usable(id);
    if (control == nullptr || row < 0 || row >= int(control->rows.size()) || !Select(id, {row}))
        return false;
    if (!m_ended)
        Tell(DialogEvent::Type::DoubleClick, control, id);
    return true;
}

// Whatever the dialog shows, it hears of Enter and Esc.
bool DialogModel::Command(int id)
{
    if (m_ended)
        return false;
    Tell(DialogEvent::Type::Press, nullptr, id);
    return true;
}

bool DialogModel::Accept()
{
    return Command(IDOK);
}

bool DialogModel::Cancel()
{
    return Command(IDCANCEL);
}

void DialogModel::End(int result)
{
    m_ended = true;
    m_result = result;
}

// --- marks ------------------------------------------------------------------------------------------------------

std::wstring WithoutMark(const std::wstring& text)
{
    std::wstring plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && ++i == text.size())
            break;
        plain += text[i];
    }
    return plain;
}

wchar_t MarkedLetter(const std::wstring& text)
{
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == L'&' && text[++i] != L'&')
            return Upper(text[i]);
    }
    return L'\0';
}

}   // namespace KxPlat
