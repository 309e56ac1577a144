// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>

namespace marvo {

class FileSource;

/// The facts of an AVI file's main and stream headers that playing needs.
struct AviHeader
{
    std::array<char, 4> videoCodec{}; ///< biCompression of the first video stream, as in the file
    std::uint32_t width = 0;          ///< pixels, of the first video stream
    std::uint32_t height = 0;
    std::uint32_t microSecPerFrame = 0;
    std::uint64_t totalFrames = 0;
    std::uint64_t fileSizeBytes = 0;
    /// Frames times microseconds per frame; 0 when the header does not say (a recording that was cut off).
    std::int64_t durationMs = 0;
    /// The same by the video stream's own length, rate and scale.
    std::int64_t streamDurationMs = 0;
    int audioStreams = 0;
    bool hasIndex = false; ///< an "idx1" chunk after the movie, or an "indx" of the video stream

    /// The duration to believe beside a length that was found by going through the file and cut down to whole
    /// seconds (0: unknown): the header's where the two agree, else what was found.
    std::int64_t durationMsBeside(std::int64_t foundLengthMs) const;
};

/// Why a file cannot be played, according to its header.
enum class AviFault {
    Missing,
    NoAccess,
    NotAFile, ///< a folder, a pipe, a device
    Empty,
    CannotRead, ///< the medium fails at the header
    NotAvi,
    NoVideo,
};

/// Reads the header of an AVI file (RIFF: "Multimedia Programming Interface and Data Specifications 1.0",
/// Microsoft 1991; the stream and main headers as in Microsoft's "AVI RIFF File Reference").
///
/// Reads some kilobytes whatever the file's size, and never waits on a pipe; a card that does not answer may
/// still hold it up, so call it on a worker.
std::variant<AviHeader, AviFault> readAviHeader(const std::string& path);
std::variant<AviHeader, AviFault> readAviHeader(FileSource& file);

} // namespace marvo
