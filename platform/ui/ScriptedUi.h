// A host that answers from a queue of lines and keeps what was printed: for tests, and for consoles fed by a script.
#pragma once
#include "HostUi.h"
#include <deque>

namespace KxPlat {

class ScriptedUi : public HostUi {
public:
    // Plain lines; "\x1b" stands for Esc. The input ends behind the last one.
    std::deque<std::wstring> answers;
    // ID codes for message boxes, taken first to last; then the default button answers.
    std::deque<int> boxAnswers;
    std::wstring printed;      // prompts and answers included, as a user sees them
    std::wstring complained;   // one line each
    std::wstring boxes;        // the texts of message boxes, one line each

    void Print(std::wstring_view text) override;
    void Complain(std::wstring_view text) override;
    InputEvent Ask(const InputRequest& request) override;
    int ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type) override;
    int RunDialog(DialogModel& dialog) override;

    // What was printed since the last call.
    std::wstring TakePrinted();
};

}   // namespace KxPlat
