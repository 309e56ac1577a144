// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// How long a list takes: up to the largest, 15,000 recordings in 100 folders, their directories in the cache.
#include "media/MediaScan.h"
#include "TemporaryFolder.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <map>

namespace {

constexpr int filesPerFolder = 150;

/// A card of so many folders, made once: that takes far longer than what is measured.
const std::string& cardOf(int folders)
{
    static std::map<int, marvo::test::TemporaryFolder> cards;
    const auto [place, isNew] = cards.try_emplace(folders);
    const marvo::test::TemporaryFolder& card = place->second;
    for (int folder = 0; isNew && folder < folders; ++folder) {
        for (int file = 0; file < filesPerFolder; ++file) {
            const int minute = folder * filesPerFolder + file;
            std::array<char, 64> name;
            std::snprintf(name.data(), name.size(), "%03d/alwa_201305%02d_%02d%02d00_%c.avi", folder,
                          minute / 1440 + 1, minute / 60 % 24, minute % 60, file % 2 == 0 ? 'F' : 'R');
            card.write(name.data());
        }
    }
    return card.path();
}

void scanList(benchmark::State& state)
{
    const auto folders = static_cast<int>(state.range(0));
    const std::string& card = cardOf(folders);
    for (auto _ : state) {
        const marvo::MediaScan scan = marvo::scanFolder(card);
        if (scan.medias.size() != static_cast<std::size_t>(folders * filesPerFolder))
            state.SkipWithError("not every recording was found");
    }
}
BENCHMARK(scanList)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
