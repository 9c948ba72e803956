// Lines created and appended to the model space, beside the same on plain structs, and through the toolkit.
#include "KxArxBase/KxAcDb.h"
#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace {

constexpr int kLines = 100'000;

struct PlainLine {
    AcGePoint3d start, end;
    AcGeVector3d normal;
    double thickness = 0;
    int color = 256, layer = 0;
};

void PlainAppend(benchmark::State& state)
{
    while (state.KeepRunningBatch(kLines)) {
        std::vector<std::unique_ptr<PlainLine>> lines;
        for (int i = 0; i < kLines; ++i) {
            lines.push_back(std::make_unique<PlainLine>());
            lines.back()->end.x = i;
        }
        benchmark::DoNotOptimize(lines.data());
    }
}

void AppendLine(benchmark::State& state)
{
    while (state.KeepRunningBatch(kLines)) {
        state.PauseTiming();
        auto drawing = std::make_unique<AcDbDatabase>();
        AcDbBlockTableRecord* space = nullptr;
        acdbOpenObject(space, drawing->currentSpaceId(), AcDb::kForWrite);
        state.ResumeTiming();
        for (int i = 0; i < kLines; ++i) {
            auto* line = new AcDbLine(AcGePoint3d(), AcGePoint3d(i, 0, 0));
            space->appendAcDbEntity(line);
            line->close();
        }
        state.PauseTiming();
        space->close();
        drawing.reset();
        state.ResumeTiming();
    }
}

void ToolkitLine(benchmark::State& state)
{
    while (state.KeepRunningBatch(kLines)) {
        state.PauseTiming();
        auto drawing = std::make_unique<AcDbDatabase>();
        KxArxBase::CKxAcDb db(drawing.get(), 0);
        state.ResumeTiming();
        for (int i = 0; i < kLines; ++i)
            db.Line(AcGePoint3d(), AcGePoint3d(i, 0, 0));
        state.PauseTiming();
        drawing.reset();
        state.ResumeTiming();
    }
}

}   // namespace

BENCHMARK(PlainAppend);
BENCHMARK(AppendLine);
BENCHMARK(ToolkitLine);
