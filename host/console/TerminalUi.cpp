#include "TerminalUi.h"
#include "ed/Completions.h"
#include "ed/SessionAsk.h"
#include "ui/TerminalDialog.h"
#include "ui/TextMessage.h"
#include "ui/WindowQueue.h"
#include "win/CharTables.h"
#include "win/CodePage.h"
#include <cstdio>

using namespace KxPlat;

namespace KxConsole {

namespace {

Completer CompleterFor(const InputRequest& request)
{
    return [&request](const std::string& typed) {
        std::vector<std::string> lines;
        for (const std::wstring& line : Completions(request, FromUtf8(typed)))
            lines.push_back(ToUtf8(line));
        return lines;
    };
}

}   // namespace

TerminalUi::TerminalUi(bool isQuiet)
    : m_isQuiet(isQuiet), m_showsProgress(IsTerminal(StandardStream::Error) && !isQuiet)
{
}

void TerminalUi::Print(std::wstring_view text)
{
    // The user's Enter has begun a new line already.
    if (m_isFresh && !text.empty() && text[0] == L'\n')
        text.remove_prefix(1);
    if (text.empty())
        return;
    HideProgress();
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
    // Windows of modules are in memory only; their messages and timers have their turn between two lines.
    PumpWindows();
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
        switch (m_reader.Read(ToUtf8(shown), CompleterFor(request), line)) {
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
    const bool isInterrupted = TakeInterrupt();
    if (isInterrupted)
        m_reader.DropPasted();
    return isInterrupted;
}

int TerminalUi::ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type)
{
    return AskMessage(*this, text, caption, type, AskSession);
}

int TerminalUi::RunDialog(DialogModel& dialog)
{
    return RunTerminalDialog(dialog, *this, AskSession);
}

void TerminalUi::Progress(std::wstring_view what, int percent)
{
    if (!m_showsProgress)
        return;
    HideProgress();
    if (percent < 0)
        return;
    std::fprintf(stderr, "%s %d%%", ToUtf8(what).c_str(), percent);
    m_isProgressShown = true;
}

// It stands in the line where the next text goes.
void TerminalUi::HideProgress()
{
    if (m_isProgressShown)
        std::fputs("\r\033[K", stderr);
    m_isProgressShown = false;
}

}   // namespace KxConsole
