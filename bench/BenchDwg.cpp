// The same drawing as a DWG file: saved and opened in both versions that are written.
#include "db/AcDbDatabase.h"
#include "Measured.h"
#include "win/CodePage.h"
#include <filesystem>
#include <memory>

namespace {

using KxBench::Measure;
using KxBench::Prepared;

std::unique_ptr<AcDbDatabase> Opened(const std::string& path)
{
    auto database = std::make_unique<AcDbDatabase>(false);
    return database->readDwgFile(KxPlat::FromUtf8(path).c_str()) == Acad::eOk ? std::move(database) : nullptr;
}

bool Save(AcDbDatabase& database, const std::string& path, AcDb::AcDbDwgVersion version)
{
    return database.saveAs(KxPlat::FromUtf8(path).c_str(), false, version) == Acad::eOk;
}

void SaveAs(benchmark::State& state, const char* name, AcDb::AcDbDwgVersion version)
{
    const std::unique_ptr<AcDbDatabase> database = Opened(Prepared("all.dxf"));
    if (!database)
        return state.SkipWithError("the drawing does not open");
    const std::string target = Prepared(name);
    for (auto _ : state) {
        bool good = false;
        Measure(state, [&] { good = Save(*database, target, version); });
        if (!good)
            return state.SkipWithError("the drawing does not save");
    }
}
void SaveDwg2000(benchmark::State& state)
{
    SaveAs(state, "all2000.dwg", AcDb::kDHL_1015);
}
void SaveDwg2010(benchmark::State& state)
{
    SaveAs(state, "all2010.dwg", AcDb::kDHL_1024);
}
KX_MEASURE(SaveDwg2000, 3);
KX_MEASURE(SaveDwg2010, 3);

// The files are those that the measurements above leave.
void Open(benchmark::State& state, const char* name, AcDb::AcDbDwgVersion version)
{
    const std::string path = Prepared(name);
    if (!std::filesystem::exists(path)) {
        const std::unique_ptr<AcDbDatabase> database = Opened(Prepared("all.dxf"));
        if (!database || !Save(*database, path, version))
            return state.SkipWithError("the drawing cannot be prepared");
    }
    for (auto _ : state) {
        std::unique_ptr<AcDbDatabase> database;
        Measure(state, [&] { database = Opened(path); });
        if (!database)
            return state.SkipWithError("the drawing does not open");
    }
}
void OpenDwg2000(benchmark::State& state)
{
    Open(state, "all2000.dwg", AcDb::kDHL_1015);
}
void OpenDwg2010(benchmark::State& state)
{
    Open(state, "all2010.dwg", AcDb::kDHL_1024);
}
KX_MEASURE(OpenDwg2000, 3);
KX_MEASURE(OpenDwg2010, 3);

}   // namespace
