#include "TerminalUi.h"
#include "ed/AcEdCommandStack.h"
#include "ed/SessionAsk.h"
#include "ui/TerminalDialog.h"
#include "win/CharTables.h"
#include "win/CodePage.h"
#include "win/KxWinTypes.h"
#include <cstdio>
#include <memory>

using namespace KxPlat;

namespace KxConsole {

namespace {

std::vector<std::string> CommandsThatBegin(const std::string& start)
{
    std::vector<std::string> names;
    AcEdCommandStack* stack = acedRegCmds;
    if (stack == nullptr)
        return names;
    const std::wstring prefix = FromUtf8(start);
    std::unique_ptr<AcEdCommandIterator> commands(stack->iterator());
    for (; !commands->done(); commands->next())
        for (const ACHAR* name : {commands->command()->globalName(), commands->command()->localName()})
            if (StartsWithNoCase(name, prefix) && (names.empty() || names.back() != ToUtf8(name)))
                names.push_back(ToUtf8(name));
    return names;
}

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

TerminalUi::TerminalUi(bool isQuiet)
    : m_reader(CommandsThatBegin), m_isQuiet(isQuiet), m_showsProgress(IsTerminal(StandardStream::Error) && !isQuiet)
{
}

void TerminalUi::Print(std::wstring_view text)
{
    // The user's Enter has begun a new line already.
    if (m_isFresh && !text.empty() && text[0] == L'\n')
        text.remove_prefix(1);
    if (text.empty())
        return;
    m_isFresh = false;
    const std::string bytes = ToUtf8(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    m_isLineOpen = bytes.back() != '\n';
    if (m_reader.IsTerminal())
        std::fflush(stdout);
}

void TerminalUi::PrintAnswer(std::wstring_view promptAndAnswer)
{
    Print(std::wstring(promptAndAnswer) + L"\n");
    m_isFresh = true;
}

void TerminalUi::EndLine()
{
    if (m_isLineOpen)
        std::fputc('\n', stdout);
    m_isLineOpen = false;
    std::fflush(stdout);
}

void TerminalUi::Complain(std::wstring_view text)
{
    EndLine();
    std::fprintf(stderr, "kxcad: %s\n", ToUtf8(text).c_str());
}

InputEvent TerminalUi::Ask(const InputRequest& request)
{
    // What stands before the last line end of a prompt is output; the rest is what the line editor shows.
    const size_t lineEnd = request.prompt.rfind(L'\n');
    const std::wstring shown = lineEnd == std::wstring::npos ? request.prompt : request.prompt.substr(lineEnd + 1);
    if (lineEnd != std::wstring::npos)
        Print(request.prompt.substr(0, lineEnd));
    if (lineEnd != std::wstring::npos || m_isLineOpen)
        EndLine();
    if (!m_reader.IsTerminal() && !m_isQuiet)
        Print(shown);
    std::fflush(stdout);

    for (;;) {
        std::wstring sent;
        if (m_window != nullptr) {
            m_window->Update();
            if (m_window->TakeLine(sent))
                return Typed(shown, sent);
        }
        InputEvent event;
        std::string line;
        switch (m_reader.Read(ToUtf8(shown), request.kind == InputKind::Command, line)) {
        case LineReader::Result::Message:
            // The line editor has shown the prompt, and will again.
            if (m_reader.IsTerminal())
                std::fputs("\r\033[K", stdout);
            continue;
        case LineReader::Result::Line:
            event.type = InputEvent::Type::Text;
            event.text = FromUtf8(line);
            if (!m_reader.IsTerminal() && !m_isQuiet)
                Print(event.text + L"\n");
            m_isLineOpen = false;
            m_isFresh = true;
            break;
        case LineReader::Result::Interrupted:
            event.type = InputEvent::Type::Cancel;
            m_isLineOpen = true;   // the editor says what was cancelled, behind the prompt
            break;
        case LineReader::Result::End:
            event.type = InputEvent::Type::End;
            break;
        }
        return event;
    }
}

// A line that another program sent looks as if it had been typed here.
InputEvent TerminalUi::Typed(const std::wstring& shown, const std::wstring& text)
{
    if (m_reader.IsTerminal())
        Print(shown + text + L"\n");
    else if (!m_isQuiet)
        Print(text + L"\n");
    m_isLineOpen = false;
    m_isFresh = true;
    InputEvent event;
    event.type = InputEvent::Type::Text;
    event.text = text;
    return event;
}

// Asked for between commands, and while programs run.
bool TerminalUi::Interrupted()
{
    if (m_window != nullptr)
        m_window->UpdateNowAndThen();
    return TakeInterrupt();
}

int TerminalUi::ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type)
{
    const unsigned kind = type & MB_TYPEMASK;
    const Answer(&buttons)[3] = kButtons[kind < std::size(kButtons) ? kind : 0];
    const unsigned wanted = (type & MB_DEFMASK) >> 8;
    const Answer& byDefault = wanted < 3 && buttons[wanted].code != 0 ? buttons[wanted] : buttons[0];
    Print(L"\n");
    if (!caption.empty())
        Print(std::wstring(caption) + L": ");
    Print(std::wstring(text) + L"\n");
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
        const InputEvent event = AskSession(request);
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

int TerminalUi::RunDialog(DialogModel& dialog)
{
    return RunTerminalDialog(dialog, *this, AskSession);
}

void TerminalUi::Progress(std::wstring_view what, int percent)
{
    if (!m_showsProgress)
        return;
    if (percent < 0)
        std::fputs("\r\033[K", stderr);
    else
        std::fprintf(stderr, "\r%s %d%%", ToUtf8(what).c_str(), percent);
}

}   // namespace KxConsole
