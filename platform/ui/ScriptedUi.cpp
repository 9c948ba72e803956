#include "ScriptedUi.h"
#include "TerminalDialog.h"
#include <utility>

namespace KxPlat {

void ScriptedUi::Print(std::wstring_view text)
{
    printed += text;
}

void ScriptedUi::Complain(std::wstring_view text)
{
    complained += text;
    complained += L'\n';
}

InputEvent ScriptedUi::Ask(const InputRequest& request)
{
    printed += request.prompt;
    InputEvent event;
    if (answers.empty())
        return event;
    event.text = std::move(answers.front());
    answers.pop_front();
    if (event.text == L"\x1b") {
        event.type = InputEvent::Type::Cancel;
        event.text.clear();
        return event;
    }
    event.type = InputEvent::Type::Text;
    printed += event.text;
    return event;
}

int ScriptedUi::ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type)
{
    boxes += text;
    boxes += L'\n';
    if (boxAnswers.empty())
        return HostUi::ShowMessage(text, caption, type);
    const int answer = boxAnswers.front();
    boxAnswers.pop_front();
    return answer;
}

int ScriptedUi::RunDialog(DialogModel& dialog)
{
    return RunTerminalDialog(dialog, *this);
}

std::wstring ScriptedUi::TakePrinted()
{
    return std::exchange(printed, std::wstring());
}

}   // namespace KxPlat
