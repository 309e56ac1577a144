// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/ClipIndex.h"
#include "support/ByteSource.h"

#include <cstdint>
#include <string>

namespace marvo {

/// Finds every chunk of an AVI film (RIFF: "Multimedia Programming Interface and Data Specifications 1.0",
/// Microsoft 1991; the index "idx1" as in Microsoft's "AVI RIFF File Reference"; several RIFF parts as in
/// "OpenDML AVI File Format Extensions" 1.02).
///
/// The index is believed where it has as many pictures as the header; else the film is gone through from
/// chunk to chunk, of which the heads alone are read. Without a film, or where it cannot be read, there are
/// no chunks; of one that was cut off there are those before the cut. Some milliseconds, on a slow card up to
/// seconds: for a worker.
ClipIndex readClipIndex(const std::string& path);
ClipIndex readClipIndex(ByteSource& file, std::uint64_t fileBytes);

} // namespace marvo
