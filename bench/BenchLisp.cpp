// The command line and LISP: lines of a script, and a loop of additions.
#include "ap/Documents.h"
#include "ed/lisp/DocumentLisp.h"
#include "ed/Session.h"
#include "Measured.h"
#include "ui/ScriptedUi.h"
#include <memory>

namespace {

// A session with a new drawing, which prints into a string.
class Script {
public:
    Script() : m_formerUi(KxPlat::Ui())
    {
        KxPlat::SetUi(&m_ui);
        m_session = std::make_unique<KxPlat::Session>(KxPlat::SessionOptions{L"18.1", false, false});
        std::wstring why;
        m_isReady = KxPlat::NewDrawing(L"", m_document, why) == Acad::eOk;
    }
    ~Script()
    {
        m_session.reset();
        KxPlat::SetUi(&m_formerUi);
    }
    Script(const Script&) = delete;

    bool isReady() const { return m_isReady; }
    bool Type(std::wstring_view text)
    {
        const bool isGood = m_session->Run(text);
        m_ui.TakePrinted();
        return isGood;
    }
    bool Evaluate(std::wstring_view text)
    {
        KxPlat::Lisp::Value value;
        return KxPlat::Lisp::InterpreterOf(*m_document).Run(text, value);
    }

private:
    KxPlat::ScriptedUi m_ui;
    KxPlat::HostUi& m_formerUi;
    std::unique_ptr<KxPlat::Session> m_session;
    AcApDocument* m_document = nullptr;
    bool m_isReady = false;
};

void ScriptLines(benchmark::State& state)
{
    constexpr int kCommands = 10'000, kLinesOfOne = 4;
    std::wstring text;
    for (int i = 0; i < kCommands; ++i)
        text += L"LINE\n0,0\n" + std::to_wstring(i) + L",5\n\n";
    Script script;
    bool isGood = script.isReady();
    for (auto _ : state)
        KxBench::Measure(state, [&] { isGood &= script.Type(text); });
    if (!isGood)
        return state.SkipWithError("the script failed");
    state.SetItemsProcessed(state.iterations() * kCommands * kLinesOfOne);
}
KX_MEASURE(ScriptLines, 1);

void LispAdditions(benchmark::State& state)
{
    constexpr int kAdditions = 10'000'000;
    Script script;
    bool isGood = script.isReady();
    const std::wstring text = L"(setq x 0) (repeat " + std::to_wstring(kAdditions) + L" (setq x (+ x 1)))";
    for (auto _ : state)
        KxBench::Measure(state, [&] { isGood &= script.Evaluate(text); });
    if (!isGood)
        return state.SkipWithError("the program failed");
    state.SetItemsProcessed(state.iterations() * kAdditions);
}
KX_MEASURE(LispAdditions, 1);

}   // namespace
