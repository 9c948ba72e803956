// The module's commands on large drawings, typed as a user types them.
#include "ap/Documents.h"
#include "ed/Session.h"
#include "Measured.h"
#include "rx/AcRxDynamicLinker.h"
#include "ui/ScriptedUi.h"
#include "win/CodePage.h"
#include <memory>

namespace {

using KxBench::Measure;
using KxBench::Prepared;

// A session with one drawing and the module, which prints into a string.
class Desk {
public:
    explicit Desk(const char* drawing) : m_formerUi(KxPlat::Ui())
    {
        KxPlat::SetUi(&m_ui);
        m_session = std::make_unique<KxPlat::Session>(Options());
        AcApDocument* document = nullptr;
        std::wstring why;
        m_isReady = KxPlat::OpenDrawing(KxPlat::FromUtf8(Prepared(drawing)), document, why) == Acad::eOk &&
                    acrxDynamicLinker->loadModule(KxPlat::FromUtf8(KX_BENCH_MODULE).c_str(), false);
    }
    ~Desk()
    {
        m_session.reset();
        KxPlat::SetUi(&m_formerUi);
    }
    Desk(const Desk&) = delete;

    bool isReady() const { return m_isReady; }
    bool Type(std::wstring_view text) { return m_session->Run(text); }

private:
    static KxPlat::SessionOptions Options()
    {
        KxPlat::SessionOptions options;
        options.hasKeyboard = false;
        return options;
    }

    KxPlat::ScriptedUi m_ui;
    KxPlat::HostUi& m_formerUi;
    std::unique_ptr<KxPlat::Session> m_session;
    bool m_isReady = false;
};

// Before each measured run of `command` the layers are brought back by `undoing`.
void Command(benchmark::State& state, const char* drawing, std::wstring_view command, std::wstring_view undoing)
{
    Desk desk(drawing);
    if (!desk.isReady())
        return state.SkipWithError("the drawing or the module does not load");
    for (auto _ : state) {
        bool good = desk.Type(undoing);
        Measure(state, [&] { good &= desk.Type(command); });
        if (!good)
            return state.SkipWithError("a command failed");
    }
}

void HidePickObjectLayer(benchmark::State& state)
{
    Command(state, "all.dxf", L"HidePickObjectLayer\nALL\n\n", L"ShowAllLayer\n");
}
KX_MEASURE(HidePickObjectLayer, 3);

void HidePickObject(benchmark::State& state)
{
    Command(state, "all.dxf", L"HidePickObject\nALL\n\n", L"ShowAllObject\n");
}
KX_MEASURE(HidePickObject, 3);

void ShowAllObject(benchmark::State& state)
{
    Command(state, "all.dxf", L"ShowAllObject\n", L"HidePickObject\nALL\n\n");
}
KX_MEASURE(ShowAllObject, 3);

void Purge(benchmark::State& state)
{
    Command(state, "unused.dxf", L"-PURGE\nA\n\nN\n", L"");
}
KX_MEASURE(Purge, 1);

void PurgeTenth(benchmark::State& state)
{
    Command(state, "unused-tenth.dxf", L"-PURGE\nA\n\nN\n", L"");
}
KX_MEASURE(PurgeTenth, 1);

void ShowAllLayer(benchmark::State& state)
{
    Command(state, "layers.dxf", L"ShowAllLayer\n", L"-LAYER\nOFF\n*\nY\n\n");
}
KX_MEASURE(ShowAllLayer, 5);

}   // namespace
