// The layer commands on real drawings: what they change they also put back, whatever the layers are called.
#include "db/AcDbDatabase.h"
#include "db/AcDbLayerTableRecord.h"
#include "db/core/Stub.h"
#include "ed/acedads.h"
#include "ed/Session.h"
#include "ui/ScriptedUi.h"
#include "win/CodePage.h"
#include "win/Files.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Larger ones say nothing more about layers and take long under the sanitizers.
const std::uintmax_t g_largest = 3'000'000;

std::vector<fs::path> DrawingsUnder(const fs::path& folder)
{
    std::vector<fs::path> drawings;
    if (!fs::is_directory(folder))
        return drawings;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && entry.path().extension() == ".dxf" && entry.file_size() <= g_largest)
            drawings.push_back(entry.path());
    }
    std::sort(drawings.begin(), drawings.end());
    return drawings;
}

struct State {
    AcDbObjectId id;
    bool off, frozen, locked;
    bool operator==(const State&) const = default;
};

std::vector<State> StatesOf(AcDbDatabase& database)
{
    std::vector<State> states;
    AcDbLayerTable* table = nullptr;
    if (database.getSymbolTable(table, AcDb::kForRead) != Acad::eOk)
        return states;
    AcDbLayerTableIterator* it = nullptr;
    table->newIterator(it);
    for (; !it->done(); it->step()) {
        AcDbLayerTableRecord* layer = nullptr;
        if (it->getRecord(layer, AcDb::kForRead) != Acad::eOk)
            continue;
        // A file may have its current layer frozen; the host never freezes it again.
        const bool frozen = layer->isFrozen() && layer->objectId() != database.clayer();
        states.push_back({layer->objectId(), layer->isOff(), frozen, layer->isLocked()});
        layer->close();
    }
    delete it;
    table->close();
    return states;
}

template <class Test>
int Count(const std::vector<State>& states, Test test)
{
    return int(std::count_if(states.begin(), states.end(), test));
}

void TryCommands(const fs::path& drawing)
{
    SCOPED_TRACE(drawing.string());
    KxPlat::ScriptedUi ui;
    KxPlat::SetUi(&ui);
    {
        KxPlat::SessionOptions options;
        options.hasKeyboard = false;
        KxPlat::Session session(options);
        AcApDocument* document = nullptr;
        std::wstring why;
        ASSERT_EQ(KxPlat::OpenDrawing(KxPlat::DrivePath(drawing.string()), document, why), Acad::eOk)
            << KxPlat::ToUtf8(why);
        ASSERT_EQ(acedArxLoad(KxPlat::DrivePath(KX_BIN "/KxArxBase.arx").c_str()), RTNORM);
        AcDbDatabase& database = *document->database();
        const long openObjects = KxPlat::OpenObjectCount();
        const std::vector<State> before = StatesOf(database);

        session.Run(L"BCTCZT\nTCXSQB\nTCJDQB\nTCJSQB\n");
        EXPECT_EQ(Count(StatesOf(database), [](const State& s) { return s.off || s.frozen || s.locked; }), 0);
        session.Run(L"HFTCZT\n");
        EXPECT_EQ(StatesOf(database), before);

        session.Run(L"XCYC\nALL\n\n");
        const std::vector<State> hidden = StatesOf(database);
        session.Run(L"TCXSQF\n");
        EXPECT_LE(Count(StatesOf(database), [](const State& s) { return s.off; }),
                  Count(before, [](const State& s) { return s.off; }));
        session.Run(L"TCXSQF\n");
        EXPECT_EQ(StatesOf(database), hidden);
        EXPECT_EQ(KxPlat::OpenObjectCount(), openObjects);
        EXPECT_FALSE(session.HasFailed());
    }
    KxPlat::SetUi(nullptr);
}

}   // namespace

TEST(DrawingsTest, LayersOfOurDrawingsComeBack)
{
    for (const char* name : {"house_r12.dxf", "house_r2000_gbk.dxf", "house_r2010.dxf", "r13_dos932.dxf"})
        TryCommands(fs::path(KX_TEST_DATA) / name);
}

TEST(DrawingsTest, LayersOfRealDrawingsComeBack)
{
    const std::vector<fs::path> drawings = DrawingsUnder(KX_DRAWINGS);
    if (drawings.empty())
        GTEST_SKIP() << "no real drawings under " KX_DRAWINGS;
    for (const fs::path& drawing : drawings)
        TryCommands(drawing);
}
