// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Makes a recording of a film that another program has encoded: bench_splice FILM.avi OUT.avi SECONDS
// zero|end puts the data area of so many seconds of the demo drive in front of the movie. With "zero" its
// budget comes out at zero, with "end" a reader's walk runs on to the file's end.
#include "demo/DataArea.h"
#include "demo/DriveData.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace {

std::uint32_t sizeAt(const std::string& file, std::size_t offset)
{
    const auto byte = [&](std::size_t i) {
        return std::uint32_t{static_cast<std::uint8_t>(file.at(offset + i))};
    };
    return byte(0) | byte(1) << 8 | byte(2) << 16 | byte(3) << 24;
}

void putSize(std::string& file, std::size_t offset, std::size_t size)
{
    for (std::size_t i = 0; i < 4; ++i)
        file.at(offset + i) = static_cast<char>(size >> 8 * i & 0xFF);
}

/// The film without the encoder's own padding at the top level, which a reader would take for the data area,
/// and with the data area in front of the movie. The index counts from the movie, so it stays right.
std::string spliced(const std::string& film, std::string_view dataArea)
{
    constexpr std::size_t riffHeader = 12;
    std::string out = film.substr(0, riffHeader);
    for (std::size_t at = riffHeader; at + 8 <= film.size();) {
        const std::size_t whole = 8 + (sizeAt(film, at + 4) + std::size_t{1}) / 2 * 2;
        const std::string_view chunk = std::string_view(film).substr(at, whole);
        if (chunk.starts_with("LIST") && chunk.substr(8).starts_with("movi"))
            out += dataArea;
        if (!chunk.starts_with("JUNK"))
            out += chunk;
        at += chunk.size();
    }
    putSize(out, 4, out.size() - 8);
    return out;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 5) {
        std::fprintf(stderr, "usage: bench_splice FILM.avi OUT.avi SECONDS zero|end\n");
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    const std::string film(std::istreambuf_iterator<char>(in), {});
    if (film.size() < 12 || !film.starts_with("RIFF")) {
        std::fprintf(stderr, "bench_splice: %s is no AVI film\n", argv[1]);
        return 1;
    }
    using namespace marvo::demo;
    const std::vector<DataRecord> records = driveRecords(Drive(), 0, std::atoi(argv[3]), '9');
    const Bytes area = dataAreaChunks(records, std::strcmp(argv[4], "zero") == 0 ? DataAreaEnd::BudgetZero
                                                                                 : DataAreaEnd::EndOfFile);
    std::ofstream out(argv[2], std::ios::binary);
    out << spliced(film, {reinterpret_cast<const char*>(area.data()), area.size()});
    return out.flush() ? 0 : 1;
}
