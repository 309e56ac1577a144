// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/ClipIndex.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace marvo {

class ByteSource;

/// A stretch of a file.
struct FileRange
{
    std::uint64_t from = 0;
    std::uint64_t size = 0;
};

/// What an AVI film consists of beside its pictures and sound, for writing it anew.
struct AviLayout
{
    std::vector<std::byte> headerList; ///< body of the LIST "hdrl", from its first chunk on
    FileRange beforeMovie;             ///< chunks between that list and the movie
    FileRange afterMovie;              ///< chunks behind the movie and its index

    bool hasHeader() const { return !headerList.empty(); }
};

/// Finds these parts of a film whose chunks were found already. What stands behind the last chunk is taken
/// only where a chunk begins there; half a picture at the end of a film that was cut off is not.
AviLayout readAviLayout(ByteSource& file, std::uint64_t fileBytes, const ClipIndex& index);

/// How often each stream's chunks stand in a film, for its header.
struct StreamCount
{
    std::uint32_t length = 0;       ///< pictures, or units of sound
    std::uint32_t largestChunk = 0; ///< bytes
};

/// Writes new counts into a header list: of the main header, of each stream, and that there is an index.
/// Indexes of other forms, whose places no longer hold, become padding. A main header without a time for a
/// picture gets that of the video stream.
void putCounts(std::span<std::byte> headerList, std::span<const StreamCount> streams, std::size_t video);

} // namespace marvo
