// A dialog as lines of text: which letter reaches a control, and how each control reads.
#pragma once
#include "DialogModel.h"
#include <map>
#include <string>
#include <vector>

namespace KxPlat {

// Letters stay with their controls as long as the dialog runs; X belongs to the button that cancels.
class DialogLetters {
public:
    // Gives letters to the controls that are visible and have none yet: the marked one, else one of the text, else the
    // next free.
    void Assign(const DialogModel& dialog);
    // 0 when the control has none.
    wchar_t Of(const DialogControl& control) const;
    DialogControl* Find(const DialogModel& dialog, wchar_t letter) const;

private:
    wchar_t Choose(const DialogControl& control) const;
    bool IsTaken(wchar_t letter) const;
    std::map<const DialogControl*, wchar_t> m_letters;
};

// What Enter presses: the default button, else the one that accepts; null when there is neither.
DialogControl* DefaultButton(const DialogModel& dialog);
// The lists that show rows, whose numbers go on from one list to the next.
std::vector<DialogControl*> VisibleLists(const DialogModel& dialog);
// The name that stands before a field or list: the label that precedes it, else "".
std::wstring NameOf(const DialogModel& dialog, const DialogControl& control);
// A button's text without its mark, and without a mark in parentheses at its end: "打开所选(&S)" is "打开所选".
std::wstring PlainText(const DialogControl& control);

// The lines of one control, "" when it shows nothing of its own. Rows are numbered from `firstRow`.
std::wstring ControlText(const DialogModel& dialog, const DialogControl& control, const DialogLetters& letters,
                         int firstRow);
// One line with all buttons.
std::wstring ButtonsText(const DialogModel& dialog, const DialogLetters& letters);

}   // namespace KxPlat
