// Opening, changing and saving a large drawing.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbEntity.h"
#include "db/AcDbLayerTableRecord.h"
#include "Measured.h"
#include "rx/AcArray.h"
#include "win/CodePage.h"
#include <filesystem>
#include <memory>

namespace {

using KxBench::Measure;
using KxBench::Prepared;

std::unique_ptr<AcDbDatabase> Opened(const char* name)
{
    auto database = std::make_unique<AcDbDatabase>(false);
    if (database->dxfIn(KxPlat::FromUtf8(Prepared(name)).c_str()) != Acad::eOk)
        return nullptr;
    return database;
}

void Open(benchmark::State& state, const char* name)
{
    for (auto _ : state) {
        std::unique_ptr<AcDbDatabase> database;
        Measure(state, [&] { database = Opened(name); });
        if (!database)
            return state.SkipWithError("the drawing does not open");
    }
}
void OpenAll(benchmark::State& state)
{
    Open(state, "all.dxf");
}
void OpenTenth(benchmark::State& state)
{
    Open(state, "tenth.dxf");
}
KX_MEASURE(OpenAll, 3);
KX_MEASURE(OpenTenth, 5);

bool SwitchAllOff(AcDbDatabase& database)
{
    AcDbLayerTable* table = nullptr;
    if (database.getLayerTable(table, AcDb::kForRead) != Acad::eOk)
        return false;
    AcDbLayerTableIterator* found = nullptr;
    table->newIterator(found);
    std::unique_ptr<AcDbLayerTableIterator> records(found);
    for (records->start(); !records->done(); records->step()) {
        AcDbLayerTableRecord* layer = nullptr;
        if (records->getRecord(layer, AcDb::kForWrite) != Acad::eOk)
            continue;
        layer->setIsOff(true);
        layer->close();
    }
    table->close();
    return true;
}

void OpenOffSave(benchmark::State& state)
{
    const std::string target = Prepared("saved.dxf");
    for (auto _ : state) {
        std::unique_ptr<AcDbDatabase> database;
        bool good = false;
        Measure(state, [&] {
            database = Opened("all.dxf");
            good =
                database && SwitchAllOff(*database) && database->dxfOut(KxPlat::FromUtf8(target).c_str()) == Acad::eOk;
        });
        if (!good)
            return state.SkipWithError("the drawing does not open or save");
    }
    std::filesystem::remove(target);
}
KX_MEASURE(OpenOffSave, 3);

AcArray<AcDbObjectId> EntitiesOf(AcDbDatabase& database)
{
    AcArray<AcDbObjectId> ids(0, 1 << 20);
    AcDbBlockTableRecord* space = nullptr;
    if (acdbOpenObject(space, database.currentSpaceId(), AcDb::kForRead) != Acad::eOk)
        return ids;
    AcDbBlockTableRecordIterator* found = nullptr;
    space->newIterator(found);
    std::unique_ptr<AcDbBlockTableRecordIterator> entities(found);
    for (entities->start(); !entities->done(); entities->step()) {
        AcDbObjectId id;
        entities->getEntityId(id);
        ids.append(id);
    }
    space->close();
    return ids;
}

// The counter `each_ns` is the time of one opening and closing.
void OpenCloseById(benchmark::State& state)
{
    const std::unique_ptr<AcDbDatabase> database = Opened("all.dxf");
    if (!database)
        return state.SkipWithError("the drawing does not open");
    const AcArray<AcDbObjectId> ids = EntitiesOf(*database);
    double seconds = 0.0;
    for (auto _ : state) {
        const std::clock_t start = std::clock();
        for (const AcDbObjectId& id : ids) {
            AcDbEntity* entity = nullptr;
            if (acdbOpenObject(entity, id, AcDb::kForRead) == Acad::eOk)
                entity->close();
        }
        seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        state.SetIterationTime(seconds);
    }
    state.counters["each_ns"] = seconds / std::max(1, ids.length()) * 1e9;
}
KX_MEASURE(OpenCloseById, 5);

}   // namespace
