// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// How long the largest list takes: 15,000 recordings in 100 folders, their directories in the cache.
#include "media/MediaScan.h"
#include "TemporaryFolder.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>

namespace {

void scanLargestList(benchmark::State& state)
{
    constexpr int folders = 100;
    constexpr int filesPerFolder = 150;
    const marvo::test::TemporaryFolder card;
    for (int folder = 0; folder < folders; ++folder) {
        for (int file = 0; file < filesPerFolder; ++file) {
            const int minute = folder * filesPerFolder + file;
            std::array<char, 64> name;
            std::snprintf(name.data(), name.size(), "%03d/alwa_201305%02d_%02d%02d00_%c.avi", folder,
                          minute / 1440 + 1, minute / 60 % 24, minute % 60, file % 2 == 0 ? 'F' : 'R');
            card.write(name.data());
        }
    }
    for (auto _ : state) {
        const marvo::MediaScan scan = marvo::scanFolder(card.path());
        if (scan.medias.size() != folders * filesPerFolder)
            state.SkipWithError("not every recording was found");
    }
}
BENCHMARK(scanLargestList)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
