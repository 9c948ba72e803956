#include "TerminalDialog.h"
#include "../win/CharTables.h"
#include "../win/KxWinTypes.h"
#include "DialogText.h"
#include "RowNumbers.h"
#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

namespace KxPlat {

namespace {

const wchar_t kHelp[] = L"\n  2  1,3-5  *   select rows; +4 adds one"
                        L"\n  #2            turns the check box of a row; 2! double-clicks it"
                        L"\n  a letter      presses a button, or asks for a field; N=text sets field N"
                        L"\n  Enter         the default button"
                        L"\n  x or Esc      cancels";

std::wstring Trimmed(const std::wstring& text)
{
    size_t first = 0;
    size_t last = text.size();
    while (first < last && IsSpace(text[first]))
        ++first;
    while (last > first && IsSpace(text[last - 1]))
        --last;
    return text.substr(first, last - first);
}

std::vector<std::wstring_view> Lines(std::wstring_view text)
{
    std::vector<std::wstring_view> lines;
    for (size_t end; !text.empty(); text.remove_prefix(end)) {
        end = std::min(text.find(L'\n', 1), text.size());
        lines.push_back(text.substr(0, end));
    }
    return lines;
}

// The lines of `text` that differ from those in the same place before; the whole when that is half of them or more.
std::wstring ChangedLines(const std::wstring& before, const std::wstring& text)
{
    const std::vector<std::wstring_view> oldLines = Lines(before);
    const std::vector<std::wstring_view> newLines = Lines(text);
    std::wstring changed;
    size_t count = 0;
    for (size_t i = 0; i < newLines.size() && i < oldLines.size(); ++i) {
        if (newLines[i] == oldLines[i])
            continue;
        changed += newLines[i];
        ++count;
    }
    return newLines.size() == oldLines.size() && count * 2 < newLines.size() ? changed : text;
}

class TerminalDialog {
public:
    TerminalDialog(DialogModel& dialog, HostUi& ui, const DialogAsk& ask) : m_dialog(dialog), m_ui(ui), m_ask(ask) {}

    int Run()
    {
        while (!m_dialog.Ended()) {
            Show();
            InputEvent answer = Ask(Prompt());
            if (answer.type == InputEvent::Type::End) {
                m_dialog.Cancel();
                if (!m_dialog.Ended())
                    m_dialog.End(IDCANCEL);
            } else if (answer.type == InputEvent::Type::Text) {
                Answer(Trimmed(answer.text));
            } else {
                m_dialog.Cancel();
            }
        }
        return m_dialog.Result();
    }

private:
    InputEvent Ask(const std::wstring& prompt)
    {
        InputRequest request;
        request.kind = InputKind::Text;
        request.prompt = prompt;
        return m_ask ? m_ask(request) : m_ui.Ask(request);
    }

    std::wstring Prompt() const
    {
        std::wstring prompt = VisibleLists(m_dialog).empty() ? L"\nLetter or ?" : L"\nRows, letter or ?";
        if (const DialogControl* button = DefaultButton(m_dialog))
            prompt += L" <" + PlainText(*button) + L">";
        return prompt + L": ";
    }

    // Prints `text` unless it is what was last shown for `part`.
    void ShowPart(const void* part, const std::wstring& text)
    {
        std::wstring& shown = m_shown[part];
        if (shown == text)
            return;
        m_ui.Print(ChangedLines(shown, text));
        shown = text;
    }

    void Show()
    {
        m_letters.Assign(m_dialog);
        ShowPart(&m_dialog, L"\n== " + m_dialog.caption + L" ==");
        int firstRow = 1;
        for (const auto& control : m_dialog.Controls()) {
            ShowPart(control.get(),
                     control->visible ? ControlText(m_dialog, *control, m_letters, firstRow) : std::wstring());
            if (control->visible && control->IsList())
                firstRow += int(control->rows.size());
        }
        ShowPart(&m_selected, SelectedText());
        ShowPart(&m_letters, ButtonsText(m_dialog, m_letters));
    }

    std::wstring SelectedText()
    {
        std::vector<int> numbers;
        int number = 0;
        for (const DialogControl* list : VisibleLists(m_dialog)) {
            for (const DialogRow& row : list->rows) {
                ++number;
                if (row.selected)
                    numbers.push_back(number);
            }
        }
        // Nothing selected is worth a line only when something was.
        if (numbers.empty())
            return m_shown[&m_selected].empty() ? L"" : L"\nSelected: none";
        return L"\nSelected: " + RowNumbersText(numbers);
    }

    void Answer(const std::wstring& text)
    {
        if (text.empty())
            return Accept();
        if (EqualNoCase(text, L"x") || EqualNoCase(text, L"esc")) {
            m_dialog.Cancel();
            return;
        }
        if (text == L"?")
            return m_ui.Print(kHelp);
        if (text.size() == 1) {
            if (DialogControl* control = m_letters.Find(m_dialog, text[0]))
                return Activate(*control);
        }
        if (text.size() > 1 && text[1] == L'=') {
            if (DialogControl* control = m_letters.Find(m_dialog, text[0]))
                return SetField(*control, Trimmed(text.substr(2)));
        }
        if (AnswerRows(text) || PressByText(text))
            return;
        m_ui.Print(L"\n\"" + text + L"\" is no row, letter or button.");
    }

    void Accept()
    {
        if (const DialogControl* button = DefaultButton(m_dialog))
            m_dialog.Press(button->id);
        else
            m_dialog.Accept();
    }

    void Activate(DialogControl& control)
    {
        if (control.IsPressed()) {
            if (!m_dialog.Press(control.id))
                NotAvailable(control);
            return;
        }
        if (control.kind == ControlKind::ComboBox) {
            int number = 0;
            for (const DialogRow& row : control.rows)
                m_ui.Print(L"\n    " + std::to_wstring(++number) + L"  " + row.cells[0]);
        }
        const std::wstring name = NameOf(m_dialog, control);
        const std::wstring old = control.IsPassword() ? std::wstring(control.text.size(), L'*') : control.text;
        const InputEvent answer = Ask(L"\n" + (name.empty() ? L"Text" : name) + L" <" + old + L">: ");
        if (answer.type == InputEvent::Type::Text && !Trimmed(answer.text).empty())
            SetField(control, Trimmed(answer.text));
    }

    // A combo box takes the number of a row, too.
    void SetField(DialogControl& control, const std::wstring& text)
    {
        std::vector<int> rows;
        bool done = false;
        if (control.kind == ControlKind::ComboBox && ParseRowNumbers(text, int(control.rows.size()), rows) &&
            rows.size() == 1)
            done = m_dialog.Select(control.id, {rows[0] - 1});
        else
            done = m_dialog.SetText(control.id, text);
        if (!done)
            NotAvailable(control);
    }

    void NotAvailable(const DialogControl& control)
    {
        const std::wstring name = control.IsPressed() ? PlainText(control) : NameOf(m_dialog, control);
        m_ui.Print(L"\n\"" + name + L"\" cannot be used now.");
    }

    bool AnswerRows(std::wstring text)
    {
        const bool adds = text.front() == L'+';
        const bool checks = text.front() == L'#';
        const bool doubleClicks = text.back() == L'!';
        if (adds || checks)
            text.erase(0, 1);
        if (doubleClicks)
            text.pop_back();
        const std::vector<DialogControl*> lists = VisibleLists(m_dialog);
        int count = 0;
        for (const DialogControl* list : lists)
            count += int(list->rows.size());
        std::vector<int> numbers;
        if (!ParseRowNumbers(text, count, numbers))
            return false;
        // The lists are taken as they are now: what the dialog changes meanwhile is shown afterwards.
        int first = 1;
        std::vector<std::pair<DialogControl*, std::vector<int>>> chosen;
        for (DialogControl* list : lists) {
            const int next = first + int(list->rows.size());
            std::vector<int> rows;
            for (int number : numbers) {
                if (number >= first && number < next)
                    rows.push_back(number - first);
            }
            if (!rows.empty())
                chosen.emplace_back(list, rows);
            first = next;
        }
        for (const auto& [list, rows] : chosen)
            ActOnRows(*list, rows, adds, checks, doubleClicks);
        return true;
    }

    void ActOnRows(DialogControl& list, std::vector<int> rows, bool adds, bool checks, bool doubleClicks)
    {
        bool done = true;
        if (checks) {
            for (int row : rows)
                done = row < int(list.rows.size()) &&
                       m_dialog.CheckRow(list.id, row, !list.rows[size_t(row)].checked) && done;
        } else if (doubleClicks) {
            done = m_dialog.DoubleClick(list.id, rows.front());
        } else {
            for (size_t row = 0; adds && row < list.rows.size(); ++row) {
                if (list.rows[row].selected)
                    rows.push_back(int(row));
            }
            done = m_dialog.Select(list.id, rows);
        }
        if (!done && !m_dialog.Ended())
            m_ui.Print(L"\nThese rows cannot be used so.");
    }

    bool PressByText(const std::wstring& text)
    {
        DialogControl* found = nullptr;
        for (const auto& control : m_dialog.Controls()) {
            if (!control->visible || !control->IsPressed() || !StartsWithNoCase(PlainText(*control), text))
                continue;
            if (found != nullptr)
                return false;
            found = control.get();
        }
        if (found != nullptr)
            Activate(*found);
        return found != nullptr;
    }

    DialogModel& m_dialog;
    HostUi& m_ui;
    const DialogAsk& m_ask;
    DialogLetters m_letters;
    std::map<const void*, std::wstring> m_shown;
    int m_selected = 0;   // stands for the line of selected rows
};

}   // namespace

int RunTerminalDialog(DialogModel& dialog, HostUi& ui, const DialogAsk& ask)
{
    return TerminalDialog(dialog, ui, ask).Run();
}

}   // namespace KxPlat
