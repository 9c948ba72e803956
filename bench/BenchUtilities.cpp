// The utilities of KxMfcEx, each beside the bare way of doing the same work on the same texts.
#include "KxMfcEx/KxFileIO.h"
#include "KxMfcEx/KxTrace.h"
#include "KxMfcEx/StrFunLib.h"
#include "win/Files.h"
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

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

// A million short texts such as lists of layers hold.
const std::vector<std::wstring>& Texts()
{
    static const std::vector<std::wstring> texts = [] {
        static const wchar_t* const kParts[] = {L"A-WALL", L"建筑-墙", L"S-COLS", L"0", L"轴线", L"dim"};
        std::vector<std::wstring> made;
        for (unsigned i = 0; i < 1000000; ++i)
            made.push_back(std::wstring(kParts[i % 6]) + L"," + kParts[i / 6 % 6] + L"," + kParts[i / 36 % 6]);
        return made;
    }();
    return texts;
}

template <class Work>
void OverTexts(benchmark::State& state, Work work)
{
    const std::vector<std::wstring>& texts = Texts();
    for (auto _ : state)
        for (const std::wstring& text : texts)
            benchmark::DoNotOptimize(work(text));
    state.SetItemsProcessed(state.iterations() * int64_t(texts.size()));
}

void Split(benchmark::State& state)
{
    CStringArray out;
    OverTexts(state, [&out](const std::wstring& text) {
        CStrFunLib::SplitString(text.c_str(), out, L',', 1);
        return out.GetSize();
    });
}

void BareSplit(benchmark::State& state)
{
    std::vector<std::wstring> out;
    OverTexts(state, [&out](const std::wstring& text) {
        out.clear();
        for (std::wstring_view rest = text;;) {
            const size_t end = rest.find(L',');
            out.emplace_back(rest.substr(0, end));
            if (end == std::wstring_view::npos)
                return out.size();
            rest.remove_prefix(end + 1);
        }
    });
}

void Match(benchmark::State& state)
{
    OverTexts(state,
              [](const std::wstring& text) { return CStrFunLib::CompareNoCaseWithFormat(L"*墙*cols", text.c_str()); });
}

wchar_t BareUpper(wchar_t letter)
{
    return letter >= L'a' && letter <= L'z' ? wchar_t(letter - 32) : letter;
}

// One part of a pattern after the other, each where it fits first.
void BareMatch(benchmark::State& state)
{
    const auto find = [](std::wstring_view text, std::wstring_view part) {
        return size_t(std::search(text.begin(), text.end(), part.begin(), part.end(),
                                  [](wchar_t a, wchar_t b) { return BareUpper(a) == BareUpper(b); }) -
                      text.begin());
    };
    OverTexts(state, [&find](const std::wstring& text) {
        const size_t wall = find(text, L"墙");
        return wall < text.size() && find(std::wstring_view(text).substr(wall), L"cols") < text.size() - wall;
    });
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
BENCHMARK(Split)->Unit(benchmark::kMillisecond);
BENCHMARK(BareSplit)->Unit(benchmark::kMillisecond);
BENCHMARK(Match)->Unit(benchmark::kMillisecond);
BENCHMARK(BareMatch)->Unit(benchmark::kMillisecond);
BENCHMARK(TraceLines);

}   // namespace
