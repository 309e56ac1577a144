// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace marvo {

/// One stream of a clip, as its stream header ("strh") tells.
struct ClipStream
{
    enum class Kind { Video, Sound, Other };
    Kind kind = Kind::Other;
    std::uint32_t scale = 0; ///< a picture, or a unit of sound, lasts scale / rate seconds
    std::uint32_t rate = 0;
    std::uint32_t sampleSize = 0;     ///< bytes of a unit of sound; 0: each chunk is one
    std::vector<std::uint8_t> format; ///< "strf": BITMAPINFOHEADER or WAVEFORMATEX, with what follows it
};

/// One chunk of the movie: a picture, or a piece of sound.
struct ClipChunk
{
    std::uint64_t offset = 0; ///< of its body in the file
    std::uint32_t size = 0;   ///< bytes of the body; a picture of 0 repeats the one before
    std::uint8_t stream = 0;
    bool isKey = false; ///< can be shown without the pictures before it
};

/// All chunks of a clip in the order of the file.
struct ClipIndex
{
    std::vector<ClipStream> streams;
    std::vector<ClipChunk> chunks;
    /// The first video stream; none without a picture.
    std::optional<std::uint8_t> video;
    std::uint64_t picturesTold = 0; ///< by the header of that stream
};

} // namespace marvo
