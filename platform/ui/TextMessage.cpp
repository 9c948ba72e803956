#include "TextMessage.h"
#include "../win/CharTables.h"
#include "../win/KxWinTypes.h"
#include <iterator>
#include <string>

namespace KxPlat {

namespace {

struct Answer {
    wchar_t key;
    int code;
    const wchar_t* label;
};

// The buttons of each kind of message box, the default one of the kind first.
const Answer kButtons[][3] = {
    {{L'O', IDOK, L"OK"}, {}, {}},
    {{L'O', IDOK, L"OK"}, {L'C', IDCANCEL, L"Cancel"}, {}},
    {{L'A', IDABORT, L"Abort"}, {L'R', IDRETRY, L"Retry"}, {L'I', IDIGNORE, L"Ignore"}},
    {{L'Y', IDYES, L"Yes"}, {L'N', IDNO, L"No"}, {L'C', IDCANCEL, L"Cancel"}},
    {{L'Y', IDYES, L"Yes"}, {L'N', IDNO, L"No"}, {}},
    {{L'R', IDRETRY, L"Retry"}, {L'C', IDCANCEL, L"Cancel"}, {}},
};

}   // namespace

int AskMessage(HostUi& ui, std::wstring_view text, std::wstring_view caption, unsigned type, const DialogAsk& ask)
{
    const unsigned kind = type & MB_TYPEMASK;
    const Answer(&buttons)[3] = kButtons[kind < std::size(kButtons) ? kind : 0];
    const unsigned wanted = (type & MB_DEFMASK) >> 8;
    const Answer& byDefault = wanted < 3 && buttons[wanted].code != 0 ? buttons[wanted] : buttons[0];
    ui.Print(L"\n");
    if (!caption.empty())
        ui.Print(std::wstring(caption) + L": ");
    ui.Print(std::wstring(text) + L"\n");
    if (buttons[1].code == 0)
        return buttons[0].code;
    std::wstring prompt = L"[";
    for (const Answer& button : buttons)
        if (button.code != 0)
            prompt += std::wstring(prompt.size() > 1 ? L"/" : L"") + button.label;
    prompt += std::wstring(L"] <") + byDefault.label + L">: ";
    for (;;) {
        InputRequest request;
        request.kind = InputKind::Keyword;
        request.prompt = prompt;
        const InputEvent event = ask(request);
        if (event.type != InputEvent::Type::Text)
            return kind == 0                                                               ? IDOK
                   : event.type == InputEvent::Type::Cancel && buttons[2].code == IDCANCEL ? IDCANCEL
                                                                                           : byDefault.code;
        if (event.text.empty())
            return byDefault.code;
        for (const Answer& button : buttons)
            if (button.code != 0 && Upper(event.text[0]) == button.key)
                return button.code;
    }
}

}   // namespace KxPlat
