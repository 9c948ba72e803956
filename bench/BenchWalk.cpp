// The yardsticks, measured in the same run as all else.
#include "BareWalk.h"
#include "Measured.h"
#include <filesystem>

namespace {

using KxBench::Measure;

void Walk(benchmark::State& state)
{
    for (auto _ : state) {
        KxBench::WalkResult result;
        Measure(state, [&result] {
            const KxBench::FileMap drawing(KxBench::Prepared("all.dxf"));
            result = KxBench::Walk(drawing.bytes());
        });
        state.counters["groups"] = static_cast<double>(result.groups);
    }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(KxBench::Prepared("all.dxf")));
}
KX_MEASURE(Walk, 5);

void WalkAndWrite(benchmark::State& state)
{
    const std::string target = KxBench::Prepared("walked.dxf");
    for (auto _ : state)
        Measure(state, [&target] {
            const KxBench::FileMap drawing(KxBench::Prepared("all.dxf"));
            KxBench::WalkAndWrite(drawing.bytes(), target);
        });
    std::filesystem::remove(target);
}
KX_MEASURE(WalkAndWrite, 3);

}   // namespace
