// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/FilmLength.h"

#include <algorithm>

namespace marvo {

namespace {
constexpr std::uint64_t longestFilmSeconds = 7 * 24 * 3600;
} // namespace

FilmLength filmLength(const ClipIndex& index)
{
    FilmLength length;
    if (!index.video)
        return length;
    length.pictures =
        static_cast<std::uint64_t>(std::ranges::count(index.chunks, *index.video, &ClipChunk::stream));
    const ClipStream& video = index.streams[*index.video];
    if (video.rate == 0)
        return length;
    const std::uint64_t units = length.pictures * video.scale; // 12 million pictures at most: below 2^56
    const std::uint64_t wholeSeconds = units / video.rate;
    if (wholeSeconds > longestFilmSeconds)
        return length;
    length.ms = static_cast<std::int64_t>(wholeSeconds * 1000 + units % video.rate * 1000 / video.rate);
    length.pictureMs = 1000.0 * video.scale / video.rate;
    return length;
}

} // namespace marvo
