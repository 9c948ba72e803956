#include "HostUi.h"
#include "../win/KxWinTypes.h"

namespace KxPlat {

namespace {

HostUi& Harmless()
{
    static HostUi ui;
    return ui;
}

HostUi*& Current()
{
    static HostUi* ui = &Harmless();
    return ui;
}

// The answers of each kind of message box, in the order of its buttons.
struct BoxButtons {
    unsigned type;
    int answers[3];
};
const BoxButtons kBoxes[] = {
    {MB_OK, {IDOK, IDOK, IDOK}},
    {MB_OKCANCEL, {IDOK, IDCANCEL, IDOK}},
    {MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}},
    {MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}},
    {MB_YESNO, {IDYES, IDNO, IDYES}},
    {MB_RETRYCANCEL, {IDRETRY, IDCANCEL, IDRETRY}},
};

}   // namespace

HostUi& Ui()
{
    return *Current();
}

void SetUi(HostUi* ui)
{
    Current() = ui == nullptr ? &Harmless() : ui;
}

void HostUi::Print(std::wstring_view) {}

void HostUi::Complain(std::wstring_view) {}

InputEvent HostUi::Ask(const InputRequest&)
{
    return {};
}

bool HostUi::Interrupted()
{
    return false;
}

int HostUi::ShowMessage(std::wstring_view, std::wstring_view, unsigned type)
{
    const unsigned button = (type & MB_DEFMASK) >> 8;
    for (const BoxButtons& box : kBoxes) {
        if (box.type == (type & MB_TYPEMASK))
            return box.answers[button < 3 ? button : 0];
    }
    return IDOK;
}

bool HostUi::AskFileName(const FileRequest& request, std::wstring& path)
{
    InputRequest question;
    question.kind = InputKind::Text;
    question.prompt = L"\n" + request.title;
    if (!request.initial.empty())
        question.prompt += L" <" + request.initial + L">";
    question.prompt += L": ";
    const InputEvent answer = Ask(question);
    if (answer.type != InputEvent::Type::Text)
        return false;
    path = answer.text.empty() ? request.initial : answer.text;
    return !path.empty();
}

int HostUi::RunDialog(DialogModel&)
{
    return IDCANCEL;
}

void HostUi::Progress(std::wstring_view, int) {}

void HostUi::Regenerated() {}

}   // namespace KxPlat
