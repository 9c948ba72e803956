#include "DialogText.h"
#include "../win/CharTables.h"
#include "../win/KxWinTypes.h"
#include "TextWidth.h"
#include <algorithm>

namespace KxPlat {

namespace {

constexpr wchar_t kCancelLetter = L'X';

bool HasLetter(const DialogControl& control)
{
    return control.IsPressed() || control.EditsText() || control.kind == ControlKind::ComboBox;
}

bool IsAsciiLetter(wchar_t character)
{
    return character >= L'A' && character <= L'Z';
}

// "  1  墙体   开" with columns as wide as their widest cell; the last is not filled.
class Table {
public:
    Table(const DialogControl& list, int firstRow) : m_list(list), m_firstRow(firstRow)
    {
        size_t count = list.columns.size();
        for (const DialogRow& row : list.rows)
            count = std::max(count, row.cells.size());
        m_widths.assign(count, 0);
        for (size_t i = 0; i < list.columns.size(); ++i)
            m_widths[i] = CellWidth(list.columns[i].title);
        for (const DialogRow& row : list.rows) {
            for (size_t i = 0; i < row.cells.size(); ++i)
                m_widths[i] = std::max(m_widths[i], CellWidth(row.cells[i]));
        }
        const int last = firstRow + int(list.rows.size()) - 1;
        m_numberWidth = std::max(3, int(std::to_wstring(last).size()) + 1);
    }

    std::wstring Text() const
    {
        std::wstring text;
        if (!m_list.columns.empty()) {
            std::vector<std::wstring> titles;
            for (const DialogColumn& column : m_list.columns)
                titles.push_back(column.title);
            text += Line(L"", titles);
        }
        int number = m_firstRow;
        for (const DialogRow& row : m_list.rows) {
            const wchar_t* mark = !m_list.HasRowChecks() ? L"" : row.checked ? L" [x]" : L" [ ]";
            text += Line(std::to_wstring(number++) + mark, row.cells);
        }
        return text + (m_list.rows.empty() ? L"\n  (no rows)" : L"");
    }

private:
    std::wstring Line(const std::wstring& head, const std::vector<std::wstring>& cells) const
    {
        const int width = m_numberWidth + (m_list.HasRowChecks() ? 4 : 0);
        std::wstring line = Padded(head, width, true);
        for (size_t i = 0; i < cells.size(); ++i) {
            const bool right = i < m_list.columns.size() && m_list.columns[i].rightAligned;
            line += L"  " + Padded(cells[i], m_widths[i], right);
        }
        line.erase(line.find_last_not_of(L' ') + 1);
        return L"\n" + line;
    }

    const DialogControl& m_list;
    int m_firstRow;
    int m_numberWidth;
    std::vector<int> m_widths;
};

bool Names(const DialogControl& label, const DialogControl& control)
{
    return label.kind == ControlKind::Label && label.visible && !label.text.empty() &&
           (control.EditsText() || control.kind == ControlKind::ComboBox || control.IsList());
}

// The label at `index` speaks for the control behind it, which shows it as its name.
bool IsName(const DialogModel& dialog, const DialogControl& label)
{
    const auto& controls = dialog.Controls();
    for (size_t i = 0; i + 1 < controls.size(); ++i) {
        if (controls[i].get() == &label)
            return controls[i + 1]->visible && Names(label, *controls[i + 1]);
    }
    return false;
}

std::wstring Choice(const DialogControl& control, wchar_t letter)
{
    static const wchar_t* const kBoxes[] = {L"[ ] ", L"[x] ", L"[-] "};
    static const wchar_t* const kRounds[] = {L"( ) ", L"(o) ", L"( ) "};
    const auto& marks = control.kind == ControlKind::CheckBox ? kBoxes : kRounds;
    const std::wstring head = letter == 0 ? L"   " : std::wstring(L"  ") + letter;
    return L"\n" + head + L"  " + marks[std::clamp(control.check, 0, 2)] + PlainText(control);
}

std::wstring FieldText(const DialogModel& dialog, const DialogControl& control, wchar_t letter)
{
    const std::wstring name = NameOf(dialog, control);
    const std::wstring value = control.IsPassword() ? std::wstring(control.text.size(), L'*') : control.text;
    const std::wstring head = letter == 0 || control.IsReadOnly() ? L"   " : std::wstring(L"  ") + letter;
    return L"\n" + head + L"  " + name + (name.empty() ? L"" : L": ") + value;
}

}   // namespace

// --- letters ----------------------------------------------------------------------------------------------------

bool DialogLetters::IsTaken(wchar_t letter) const
{
    return std::any_of(m_letters.begin(), m_letters.end(), [&](const auto& pair) { return pair.second == letter; });
}

wchar_t DialogLetters::Choose(const DialogControl& control) const
{
    if (control.id == IDCANCEL)
        return kCancelLetter;
    const auto isFree = [&](wchar_t letter) {
        return IsAsciiLetter(letter) && letter != kCancelLetter && !IsTaken(letter);
    };
    if (const wchar_t marked = MarkedLetter(control.text); isFree(marked))
        return marked;
    for (const wchar_t character : control.IsPressed() ? control.text : std::wstring()) {
        if (isFree(Upper(character)))
            return Upper(character);
    }
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        if (isFree(letter))
            return letter;
    }
    return L'\0';
}

void DialogLetters::Assign(const DialogModel& dialog)
{
    for (const bool onlyMarked : {true, false}) {
        for (const auto& control : dialog.Controls()) {
            if (!control->visible || !HasLetter(*control) || m_letters.count(control.get()) != 0)
                continue;
            if (onlyMarked && MarkedLetter(control->text) == 0 && control->id != IDCANCEL)
                continue;
            if (const wchar_t letter = Choose(*control))
                m_letters[control.get()] = letter;
        }
    }
}

wchar_t DialogLetters::Of(const DialogControl& control) const
{
    const auto found = m_letters.find(&control);
    return found == m_letters.end() ? L'\0' : found->second;
}

DialogControl* DialogLetters::Find(const DialogModel& dialog, wchar_t letter) const
{
    for (const auto& control : dialog.Controls()) {
        if (control->visible && Of(*control) == Upper(letter))
            return control.get();
    }
    return nullptr;
}

// --- parts ------------------------------------------------------------------------------------------------------

DialogControl* DefaultButton(const DialogModel& dialog)
{
    for (const auto& control : dialog.Controls()) {
        if (control->IsDefaultButton() && control->visible && control->enabled)
            return control.get();
    }
    DialogControl* accept = dialog.Find(IDOK);
    return accept != nullptr && accept->visible && accept->enabled ? accept : nullptr;
}

std::vector<DialogControl*> VisibleLists(const DialogModel& dialog)
{
    std::vector<DialogControl*> lists;
    for (const auto& control : dialog.Controls()) {
        if (control->IsList() && control->visible)
            lists.push_back(control.get());
    }
    return lists;
}

std::wstring NameOf(const DialogModel& dialog, const DialogControl& control)
{
    const DialogControl* before = nullptr;
    for (const auto& other : dialog.Controls()) {
        if (other.get() == &control)
            break;
        before = other.get();
    }
    if (before == nullptr || !Names(*before, control))
        return std::wstring();
    std::wstring name = PlainText(*before);
    while (!name.empty() && (name.back() == L':' || name.back() == L'：' || name.back() == L' '))
        name.pop_back();
    return name;
}

std::wstring PlainText(const DialogControl& control)
{
    const std::wstring& text = control.text;
    const size_t mark = text.rfind(L"(&");
    if (mark != std::wstring::npos && mark + 4 <= text.size() && text[mark + 3] == L')')
        return text.substr(0, mark) + text.substr(mark + 4);
    return WithoutMark(text);
}

std::wstring ControlText(const DialogModel& dialog, const DialogControl& control, const DialogLetters& letters,
                         int firstRow)
{
    switch (control.kind) {
    case ControlKind::Label:
        return control.text.empty() || IsName(dialog, control) ? L"" : L"\n" + PlainText(control);
    case ControlKind::GroupBox:
        return control.text.empty() ? L"" : L"\n- " + PlainText(control);
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
        return Choice(control, letters.Of(control));
    case ControlKind::Edit:
    case ControlKind::ComboBox:
        return FieldText(dialog, control, letters.Of(control));
    case ControlKind::ListBox:
    case ControlKind::ListView: {
        const std::wstring name = NameOf(dialog, control);
        return (name.empty() ? L"" : L"\n" + name + L":") + Table(control, firstRow).Text();
    }
    default:
        return L"";
    }
}

std::wstring ButtonsText(const DialogModel& dialog, const DialogLetters& letters)
{
    const DialogControl* byDefault = DefaultButton(dialog);
    std::wstring line;
    for (const auto& control : dialog.Controls()) {
        if (control->kind != ControlKind::Button || !control->visible)
            continue;
        std::wstring button = PlainText(*control);
        if (const wchar_t letter = letters.Of(*control))
            button = std::wstring(1, letter) + L" " + button;
        if (control.get() == byDefault)
            button += L" (Enter)";
        if (!control->enabled)
            button = L"(" + button + L")";
        line += (line.empty() ? L"\n  " : L" | ") + button;
    }
    return line;
}

}   // namespace KxPlat
