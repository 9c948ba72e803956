// One dialog, described without a toolkit: a backend shows what stands here and reports what the user does.
// The dialog may change any of it while it handles a report, so a backend shows everything anew after each one, and
// leaves when Ended() says so. Controls keep their place in memory as long as the dialog lives.
#pragma once
#include "../win/KxWinTypes.h"
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace KxPlat {

enum class ControlKind { Label, Button, CheckBox, RadioButton, GroupBox, Edit, ListBox, ComboBox, ListView, Other };

struct DialogRect {
    int x = 0, y = 0, width = 0, height = 0;   // dialog units: a quarter and an eighth of the font's size
};

struct DialogColumn {
    std::wstring title;
    int width = 0;   // pixels
    bool rightAligned = false;
};

struct DialogRow {
    std::vector<std::wstring> cells;   // list and combo boxes have one
    bool selected = false;
    bool checked = false;   // the box before the row, where the list has them
    uintptr_t data = 0;
};

struct DialogControl {
    int id = 0;
    ControlKind kind = ControlKind::Other;
    std::wstring className;
    std::wstring text;   // a "&" stands before the letter that reaches the control
    uint32_t style = 0;
    uint32_t exStyle = 0;
    uint32_t listStyle = 0;   // extended style of a list view
    DialogRect rect;
    bool visible = true;
    bool enabled = true;
    int check = 0;              // 0 off, 1 on, 2 in between
    size_t textLimit = 30000;   // of an edit box, characters
    std::vector<DialogColumn> columns;
    std::vector<DialogRow> rows;
    int focusedRow = -1;
    HWND window = nullptr;   // one that draws itself (NativeWindow::isDrawn) is shown by the window backend

    bool IsPressed() const;   // push buttons, check boxes, radio buttons
    bool IsList() const;      // list boxes and list views
    bool IsReadOnly() const;
    bool IsPassword() const;
    bool IsMultiSelect() const;
    bool IsDefaultButton() const;
    bool HasRowChecks() const;
    bool EditsText() const;      // an edit box, or a combo box that takes free text
    int FirstSelected() const;   // -1: none
    void SelectOnly(int row);
};

// What the user did. The notification codes are those of Windows.
struct DialogEvent {
    enum class Type { Press, Text, Selection, RowChecks, DoubleClick };
    Type type = Type::Press;
    DialogControl* control = nullptr;   // null: a Press of `id`, which the dialog does not show
    int id = 0;
};

class DialogListener {
public:
    virtual ~DialogListener() = default;
    virtual void OnDialogEvent(const DialogEvent& event) = 0;
};

class DialogModel {
public:
    std::wstring caption;
    std::wstring fontName;
    int fontSize = 8;
    uint32_t style = 0;
    uint32_t exStyle = 0;
    DialogRect rect;
    int focusId = 0;
    HWND window = nullptr;                // parent of the windows of the controls, and of what was made in the dialog
    DialogListener* listener = nullptr;   // not owned; may be null

    DialogControl& Add(DialogControl control);
    const std::vector<std::unique_ptr<DialogControl>>& Controls() const { return m_controls; }
    DialogControl* Find(int id) const;

    // What the user does; each changes the control and then tells the listener. False, and nothing done, when the
    // control is hidden, disabled or of another kind.
    bool Press(int id);                                  // buttons; a check box or radio button turns first
    bool SetText(int id, const std::wstring& text);      // edit boxes; combo boxes choose the row of this text
    bool Select(int id, const std::vector<int>& rows);   // rows outside of the list do not count
    bool CheckRow(int id, int row, bool checked);
    bool DoubleClick(int id, int row);
    bool Accept();   // Enter where there is no default button
    bool Cancel();   // Esc or the box in the caption

    void End(int result);
    bool Ended() const { return m_ended; }
    int Result() const { return m_result; }

private:
    DialogControl* Usable(int id) const;
    void Tell(DialogEvent::Type type, DialogControl* control, int id);
    bool Command(int id);
    void TurnRadio(DialogControl& chosen);

    std::vector<std::unique_ptr<DialogControl>> m_controls;
    bool m_ended = false;
    int m_result = 0;
};

// "打开所选(&S)" without its mark: "打开所选(S)".
std::wstring WithoutMark(const std::wstring& text);
// The letter after the mark in upper case, 0 when there is none.
wchar_t MarkedLetter(const std::wstring& text);

}   // namespace KxPlat
