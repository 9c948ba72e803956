// The utilities of KxMfcEx, each beside the bare way of doing the same work on the same texts.
#include "KxMfcEx/KxFileIO.h"
#include "KxMfcEx/KxTrace.h"
#include "KxMfcEx/StrFunLib.h"
#include "win/Files.h"
#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <string_view>

namespace {

using KxMfcEx::CKxFileIO;
using KxMfcEx::CKxTrace;

constexpr int kFields = 10000;

std::string TempName(const char* name)
{
    return (std::filesystem::temp_directory_path() / name).string();
}

const std::string& FieldFile()
{
    static const std::string name = TempName("kx-bench-fields.txt");
    return name;
}

void Fields(CKxFileIO& io)
{
    for (int i = 0; i < kFields; ++i) {
        int number = i;
        double real = i * 0.5;
        io.StreamIO(number, L',');
        io.StreamIO(real, L'\n');
        benchmark::DoNotOptimize(real);
    }
}

void StreamFields(benchmark::State& state, KxMfcEx::EKxFileIOType type)
{
    const std::wstring name = KxPlat::DrivePath(FieldFile());
    for (auto _ : state) {
        CKxFileIO io;
        io.Open(name.c_str(), type);
        Fields(io);
    }
    state.SetItemsProcessed(state.iterations() * kFields * 2);
}

void BareWrite(benchmark::State& state)
{
    for (auto _ : state) {
        std::FILE* file = std::fopen(FieldFile().c_str(), "w");
        for (int i = 0; i < kFields; ++i)
            std::fprintf(file, "%d,%f\r\n", i, i * 0.5);
        std::fclose(file);
    }
    state.SetItemsProcessed(state.iterations() * kFields * 2);
}

void BareRead(benchmark::State& state)
{
    for (auto _ : state) {
        std::FILE* file = std::fopen(FieldFile().c_str(), "r");
        int number = 0;
        double real = 0;
        while (std::fscanf(file, "%d,%lf", &number, &real) == 2)
            benchmark::DoNotOptimize(real);
        std::fclose(file);
    }
    state.SetItemsProcessed(state.iterations() * kFields * 2);
}

const wchar_t kText[] = L"A-WALL,建筑-墙,S-COLS,0,轴线";

void Split(benchmark::State& state)
{
    CStringArray out;
    for (auto _ : state) {
        CStrFunLib::SplitString(kText, out, L',', 1);
        benchmark::DoNotOptimize(out.GetSize());
    }
    state.SetItemsProcessed(state.iterations());
}

void BareSplit(benchmark::State& state)
{
    std::vector<std::wstring> out;
    for (auto _ : state) {
        out.clear();
        for (std::wstring_view rest = kText;;) {
            const size_t end = rest.find(L',');
            out.emplace_back(rest.substr(0, end));
            if (end == std::wstring_view::npos)
                break;
            rest.remove_prefix(end + 1);
        }
        benchmark::DoNotOptimize(out.size());
    }
    state.SetItemsProcessed(state.iterations());
}

void Match(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(CStrFunLib::CompareNoCaseWithFormat(L"*墙*cols", kText));
    state.SetItemsProcessed(state.iterations());
}

void BareMatch(benchmark::State& state)
{
    for (auto _ : state) {
        const std::wstring_view text = kText;
        const size_t wall = text.find(L"墙");
        benchmark::DoNotOptimize(wall != std::wstring_view::npos &&
                                 text.find(L"COLS", wall) != std::wstring_view::npos);
    }
    state.SetItemsProcessed(state.iterations());
}

void TraceLines(benchmark::State& state)
{
    const std::string name = TempName("kx-bench-trace.log");
    CKxTrace::m_strFileName = KxPlat::DrivePath(name).c_str();
    for (auto _ : state)
        CKxTrace(L"C:\\src\\mod.cpp", 42)(L"x=%d\n", 5);
    state.SetItemsProcessed(state.iterations());
    CKxTrace::m_strFileName.Empty();
    std::filesystem::remove(name);
}

BENCHMARK_CAPTURE(StreamFields, write, KxMfcEx::eKxFileIOWrite);
BENCHMARK(BareWrite);
BENCHMARK_CAPTURE(StreamFields, read, KxMfcEx::eKxFileIORead);
BENCHMARK(BareRead);
BENCHMARK(Split);
BENCHMARK(BareSplit);
BENCHMARK(Match);
BENCHMARK(BareMatch);
BENCHMARK(TraceLines);

}   // namespace
