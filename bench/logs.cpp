// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// A driving log of a million records: opened, looked at, exported.
#include "logs/DrivingLog.h"
#include "logs/LogBytes.h"
#include "logs/LogExport.h"
#include "TemporaryFolder.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <malloc.h>
#include <string>
#include <vector>

namespace marvo {
namespace {

constexpr std::uint32_t million = 1'000'000;

const std::string& logPath()
{
    static const test::TemporaryFolder folder;
    static const std::string path = folder.write("marvo_000.drv", test::drivingLog(million, million));
    return path;
}

std::shared_ptr<const DrivingLog> log() { return DrivingLog::read(logPath(), flashDataLog()).log; }

/// Most memory that the process has had so far, in MB.
double peakMegabytes()
{
    std::ifstream facts("/proc/self/status");
    for (std::string line; std::getline(facts, line);) {
        if (line.starts_with("VmHWM:"))
            return std::stod(line.substr(6)) / 1024;
    }
    return 0;
}

void resetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

void openMillion(benchmark::State& state)
{
    logPath();
    resetPeak();
    const double before = peakMegabytes();
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(log());
    state.counters["MB of memory"] = peakMegabytes() - before;
    state.counters["MB of file"] = million * 40 / 1e6;
}
BENCHMARK(openMillion)->Unit(benchmark::kMillisecond);

void cellsOfMillion(benchmark::State& state)
{
    const auto shown = log();
    const std::vector<std::string> titles(shown->description().columns.size(), "title");
    std::int64_t bytes = 0;
    for ([[maybe_unused]] auto round : state) {
        benchmark::DoNotOptimize(writeLogAsCsv(*shown, titles, [&](std::string_view piece) {
            bytes += static_cast<std::int64_t>(piece.size());
            return std::error_code();
        }));
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(cellsOfMillion)->Unit(benchmark::kMillisecond);

/// A log of so many records opened and written as text, to see how the cost grows.
void readAndWrite(benchmark::State& state)
{
    // A program opens a log once, in memory that it has to be given; here the heap would hand out the piece
    // of the round before, as long as that is a small one.
    ::mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    const auto count = static_cast<std::uint32_t>(state.range(0));
    const test::TemporaryFolder folder;
    const std::string path = folder.write("marvo_000.drv", test::drivingLog(count, count));
    for ([[maybe_unused]] auto round : state) {
        const auto shown = DrivingLog::read(path, flashDataLog()).log;
        const std::vector<std::string> titles(shown->description().columns.size(), "title");
        benchmark::DoNotOptimize(
            writeLogAsCsv(*shown, titles, [](std::string_view) { return std::error_code(); }));
    }
}
BENCHMARK(readAndWrite)->Arg(million / 100)->Arg(million / 10)->Arg(million)->Unit(benchmark::kMillisecond);

/// With the file written beside the target, synced and put in place.
void exportMillion(benchmark::State& state)
{
    const auto shown = log();
    const std::vector<std::string> titles(shown->description().columns.size(), "title");
    const test::TemporaryFolder folder;
    resetPeak();
    const double before = peakMegabytes();
    for ([[maybe_unused]] auto round : state) {
        if (exportLog(*shown, titles, folder.path("out.csv")))
            state.SkipWithError("not written");
    }
    state.counters["MB of memory"] = peakMegabytes() - before;
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(std::filesystem::file_size(folder.path("out.csv"))));
}
BENCHMARK(exportMillion)->Unit(benchmark::kMillisecond)->UseRealTime();

void wayOfMillion(benchmark::State& state)
{
    const auto shown = log();
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(shown->way());
}
BENCHMARK(wayOfMillion)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace marvo

BENCHMARK_MAIN();
