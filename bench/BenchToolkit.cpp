// What other modules do again and again, each beside the bare operation on plain structs in the same run.
#include "db/AcDbBlockTableRecord.h"
#include "db/AcDbDatabase.h"
#include "db/AcDbIdMapping.h"
#include "db/AcDbLine.h"
#include "db/core/DbCore.h"
#include "KxArxBase/KxAcDb.h"
#include "KxArxBase/KxAcXData.h"
#include "KxArxBase/KxAcXRecord.h"
#include <benchmark/benchmark.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace KxArxBase;

constexpr int kObjects = 10000;

AcDbObjectIdArray AddLines(AcDbDatabase& db, int count)
{
    AcDbObjectIdArray ids;
    AcDbBlockTableRecord* space = nullptr;
    acdbOpenObject(space, AcDbObjectId(KxPlat::CoreOf(db).modelSpace), AcDb::kForWrite);
    for (int i = 0; i < count; ++i) {
        auto* line = new AcDbLine(AcGePoint3d(i, 0, 0), AcGePoint3d(i, 1, 0));
        AcDbObjectId id;
        space->appendAcDbEntity(id, line);
        line->close();
        ids.append(id);
    }
    space->close();
    return ids;
}

// One value put into the list and looked up again.
void XDataValue(benchmark::State& state)
{
    CKxAcXData data(L"KxBench");
    double value = 0;
    for (auto _ : state) {
        data.SetReal(7, value + 1);
        data.GetReal(7, value);
    }
    benchmark::DoNotOptimize(value);
}
BENCHMARK(XDataValue);

void BareValue(benchmark::State& state)
{
    std::map<long, double> values;
    double value = 0;
    for (auto _ : state) {
        values[7] = value + 1;
        value = values.find(7)->second;
    }
    benchmark::DoNotOptimize(value);
}
BENCHMARK(BareValue);

// A drawing whose lines are worked on one after the other; a new one when all had their turn.
class Lines {
public:
    AcDbObjectId Next()
    {
        if (m_next == m_ids.length()) {
            m_db = std::make_unique<AcDbDatabase>();
            m_ids = AddLines(*m_db, kObjects);
            acdbHostApplicationServices()->setWorkingDatabase(m_db.get());
            m_next = 0;
        }
        return m_ids.at(m_next++);
    }
    bool IsUsedUp() const { return m_next == m_ids.length(); }
    ~Lines() { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

private:
    std::unique_ptr<AcDbDatabase> m_db;
    AcDbObjectIdArray m_ids;
    int m_next = 0;
};

// The time of making the drawings is not counted.
template <class Work>
void OnEachLine(benchmark::State& state, Work work)
{
    Lines lines;
    for (auto _ : state) {
        if (lines.IsUsedUp()) {
            state.PauseTiming();
            const AcDbObjectId id = lines.Next();
            state.ResumeTiming();
            work(id);
        } else {
            work(lines.Next());
        }
    }
}

// The list written to an object and read back.
void XDataOfObject(benchmark::State& state)
{
    CKxAcXData data(L"KxBench"), back(L"KxBench");
    data.SetReal(7, 1.5);
    OnEachLine(state, [&](AcDbObjectId id) {
        data.SetXData(id);
        back.GetXData(id);
    });
}
BENCHMARK(XDataOfObject)->Iterations(kObjects * 5);

void XRecordOfObject(benchmark::State& state)
{
    CKxAcXRecord record(L"KxBench"), back(L"KxBench");
    record.SetReal(7, 1.5);
    OnEachLine(state, [&](AcDbObjectId id) {
        record.SetXData(id);
        back.GetXData(id);
    });
}
BENCHMARK(XRecordOfObject)->Iterations(kObjects * 5);

// A record of values made, given to an owner, found there and read.
void BareRecord(benchmark::State& state)
{
    struct Value {
        short code;
        double real;
        std::wstring text;
    };
    struct Owner {
        std::map<std::wstring, std::unique_ptr<std::vector<Value>>> entries;
    };
    double sum = 0;
    for (auto _ : state) {
        Owner owner;
        auto record = std::make_unique<std::vector<Value>>();
        record->push_back({1001, 0, L"KxBench"});
        record->push_back({1071, 7, L""});
        record->push_back({1040, 1.5, L""});
        owner.entries[L"XRecord"] = std::move(record);
        const std::vector<Value> read = *owner.entries.find(L"XRecord")->second;
        sum += read[2].real;
    }
    benchmark::DoNotOptimize(sum);
}
BENCHMARK(BareRecord);

// Each iteration is one entity.
void CloneAcross(benchmark::State& state)
{
    AcDbDatabase from;
    AcDbObjectIdArray ids = AddLines(from, kObjects);
    while (state.KeepRunningBatch(kObjects)) {
        state.PauseTiming();
        auto to = std::make_unique<AcDbDatabase>();
        AcDbObjectId owner = KxPlat::CoreOf(*to).modelSpace;
        AcDbIdMapping map;
        state.ResumeTiming();
        from.wblockCloneObjects(ids, owner, map, AcDb::kDrcIgnore);
        state.PauseTiming();
        to.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(CloneAcross);

void BareCopy(benchmark::State& state)
{
    struct Line {
        double points[6];
        long layer;
    };
    std::vector<std::unique_ptr<Line>> from, to;
    for (int i = 0; i < kObjects; ++i)
        from.push_back(std::make_unique<Line>());
    while (state.KeepRunningBatch(kObjects)) {
        to.clear();
        for (const auto& line : from)
            to.push_back(std::make_unique<Line>(*line));
        benchmark::DoNotOptimize(to.data());
    }
}
BENCHMARK(BareCopy);

}   // namespace
