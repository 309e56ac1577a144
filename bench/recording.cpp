// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVBlackBoxData.h"
#include "recording/MRVNMEASentenceParser.h"
#include "recording/SentenceStream.h"
#include "support/ByteSource.h"

#include <benchmark/benchmark.h>
#include <random>
#include <string>

namespace marvo {
namespace {

const std::string second = "$GPRMC,123519.000,A,4807.0380,N,01131.0000,E,022.4,084.4,230394,003.1,W*6A\r\n"
                           "$GPGGA,123519.000,4807.0380,N,01131.0000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n"
                           "$GPGSA,A,3,04,05,09,12,24,25,29,31,,,,,2.5,1.3,2.1*39\r\n"
                           "$GPGSV,1,1,04,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45*75\r\n";

std::span<const std::byte> bytesOf(const std::string& text) { return std::as_bytes(std::span(text)); }

template <typename Number>
void put(std::string& bytes, Number number)
{
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

/// The data area of a clip: ten readings and a fix a second.
std::string clip(int seconds)
{
    std::string file("RIFF\0\0\0\0AVI JUNK\xFF\xFF\xFF\xFF", 20);
    for (std::int64_t reading = 0; reading < seconds * 10; ++reading) {
        file += "0GDA";
        put(file, reading * 100);
        for (const std::int32_t value : {3, -5, 256, 21})
            put(file, value);
        if (reading % 10 != 9)
            continue;
        file += "0GPS";
        put(file, reading * 100);
        put(file, static_cast<std::int32_t>(second.size()));
        put(file, std::int32_t{1});
        for (const double value : {3733.1234, 12658.5, 59.9})
            put(file, value);
        file += "1" + second + std::string(8, '\0');
    }
    return file;
}

void walkOfAClip(benchmark::State& state)
{
    const std::string file = clip(static_cast<int>(state.range(0)));
    MRVBlackBoxData recording;
    for ([[maybe_unused]] auto round : state) {
        MemorySource source(bytesOf(file));
        benchmark::DoNotOptimize(recording.ExtractStreamInformation(source));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(walkOfAClip)->Arg(60)->Arg(600)->Arg(6000);

/// What lies between records and after the last one, as when the budget does not come out at zero.
void walkOverOtherWords(benchmark::State& state)
{
    std::string file = clip(1);
    std::mt19937 random(1);
    while (file.size() < 64 * 1024 * 1024)
        put(file, static_cast<std::uint32_t>(random()));
    MRVBlackBoxData recording;
    for ([[maybe_unused]] auto round : state) {
        MemorySource source(bytesOf(file));
        benchmark::DoNotOptimize(recording.ExtractStreamInformation(source));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}
BENCHMARK(walkOverOtherWords);

void splitAndParse(benchmark::State& state)
{
    std::string text;
    while (text.size() < 4 * 1024 * 1024)
        text += second;
    for ([[maybe_unused]] auto round : state) {
        MemorySource source(bytesOf(text));
        MRVNMEASentenceParser parser;
        splitSource(source, [&parser](std::string_view sentence, SentenceFit) {
            benchmark::DoNotOptimize(parser.parse(sentence));
        });
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(splitAndParse);

} // namespace
} // namespace marvo

BENCHMARK_MAIN();
