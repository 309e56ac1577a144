// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/LittleEndian.h"
#include "demo/OutputFile.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace marvo::demo {

struct AviFormat
{
    int width = 0;
    int height = 0;
    int framesPerSecond = 0;
    int soundRateHz = 0; ///< samples a second of 16-bit mono PCM; 0 for a film without sound
};

/// An INFO list with the name of the program that made the film, a chunk for before the movie.
Bytes softwareList(std::string_view name);

/// Writes an AVI 1.0 film (RIFF form "AVI ") of motion-JPEG frames and PCM sound piece by piece into a file.
///
/// The order of calls is that of the file: chunks before the movie, frames and sound, finish(). Every chunk
/// has an even size, so that a reader that does not round up to even sizes walks the file as well. The film
/// must stay below 2 GiB.
class AviWriter
{
public:
    AviWriter(OutputFile& file, const AviFormat& format);

    /// Whole chunks, identifiers and sizes included, between the header and the movie.
    void putBeforeMovie(std::span<const std::uint8_t> chunks);
    /// One frame, an even number of bytes.
    void putFrame(std::span<const std::uint8_t> jpeg);
    void putSound(std::span<const std::int16_t> samples);
    /// Writes the index, then whole chunks of the caller's behind it, and puts the sizes into the header.
    void finish(std::span<const std::uint8_t> chunksAfterIndex = {});

private:
    enum class Stream { Video, Sound };

    void beginMovie();
    void putMovieChunk(Stream stream, std::span<const std::uint8_t> body);
    Bytes header() const;

    OutputFile& m_file;
    AviFormat m_format;
    Bytes m_index;
    Bytes m_scratch;
    std::int64_t m_movieStart = 0; ///< where the list type "movi" stands, which the index counts from
    std::int64_t m_movieEnd = 0;
    std::uint32_t m_frames = 0;
    std::uint32_t m_soundFrames = 0;
    std::uint32_t m_largestFrame = 0;
    std::uint32_t m_largestSound = 0;
};

} // namespace marvo::demo
