// The host seam on a terminal, a pipe or a file: lines out, lines in.
#pragma once
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
    bool Interrupted() override { return KxPlat::TakeInterrupt(); }
    int ShowMessage(std::wstring_view text, std::wstring_view caption, unsigned type) override;
    int RunDialog(KxPlat::DialogModel& dialog) override;
    void Progress(std::wstring_view what, int percent) override;

    // Ends a line that is still open, before something else is written or the program ends.
    void EndLine();

private:
    LineReader m_reader;
    bool m_isQuiet;
    bool m_isLineOpen = false;
    bool m_isFresh = true;   // at the start of a line that nobody ended in vain
    bool m_showsProgress;
};

}   // namespace KxConsole
