// The host seam on a terminal, a pipe or a file: lines out, lines in.
#pragma once
#include "HostWindow.h"
#include "LineReader.h"
#include "ui/HostUi.h"
#include "win/Terminal.h"

namespace KxConsole {

class TerminalUi : public KxPlat::HostUi {
public:
    explicit TerminalUi(bool isQuiet);

    void Print(std::wstring_view text) override;
    void PrintAnswer(std::wstring_view promptAndAnswer) override;
    void Complain(std::wstring_view text) override;
    KxPlat::InputEvent Ask(const KxPlat::InputRequest& request) override;
    bool Interrupted() override;
    int ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type) override;
    int RunDialog(KxPlat::DialogModel& dialog) override;
    void Progress(std::wstring_view what, int percent) override;

    // Texts that come to the window are input; null for none. It stays the caller's.
    void SetWindow(HostWindow* window) { m_window = window; }
    void StayOpen() { m_reader.StayOpen(); }
    bool HasTerminal() const { return m_reader.IsTerminal(); }
    // Ends a line that is still open, before something else is written or the program ends.
    void EndLine();

private:
    void HideProgress();
    KxPlat::InputEvent Typed(const std::wstring& shown, const std::wstring& text);

    LineReader m_reader;
    HostWindow* m_window = nullptr;
    bool m_isQuiet;
    bool m_isLineOpen = false;
    bool m_isFresh = true;   // at the start of a line that nobody ended in vain
    bool m_showsProgress;
    bool m_isProgressShown = false;
};

}   // namespace KxConsole
