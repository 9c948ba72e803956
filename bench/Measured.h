// What all measurements share: the prepared drawings and processor time.
#pragma once
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <ctime>
#include <string>

namespace KxBench {

// The folder of drawings that run.py prepared: all.dxf, tenth.dxf (a tenth of its entities), plan.dxf (as many as
// all.dxf, each of a small reach), layers.dxf (100,000 layers), unused.dxf (100,000 layers and blocks that nothing
// uses), unused-tenth.dxf (a tenth of them).
inline std::string Prepared(const char* name)
{
    const char* folder = std::getenv("KX_BENCH_DIR");
    return std::string(folder != nullptr ? folder : ".") + "/" + name;
}

// Runs `work` once as one iteration; its processor time on all threads counts, nothing around it does.
template <class Work>
void Measure(benchmark::State& state, Work work)
{
    const std::clock_t start = std::clock();
    work();
    state.SetIterationTime(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
}

}   // namespace KxBench

#define KX_MEASURE(function, times)                                                                                    \
    BENCHMARK(function)->UseManualTime()->Iterations(times)->Unit(benchmark::kMillisecond)
