// Runs a dialog in plain lines: rows have numbers, everything else a letter, and each answer is one line.
//   2   1,3-5   *    selects rows ("+4" adds one, "#2" turns its check box, "2!" is a double click)
//   S   打开         presses the button with this letter or with a text that starts so
//   N=门窗           sets a field; its letter alone asks for the text
//   Enter            the default button; "x", Esc and the end of the input cancel
// After an answer only what has changed is shown again, of a list only the rows that did when they are few.
#pragma once
#include "HostUi.h"
#include <functional>

namespace KxPlat {

// Where answers come from when that is not HostUi::Ask.
using DialogAsk = std::function<InputEvent(const InputRequest&)>;

// The code given to EndDialog.
int RunTerminalDialog(DialogModel& dialog, HostUi& ui, const DialogAsk& ask = {});

}   // namespace KxPlat
