// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/ClipIndex.h"

#include <cstdint>

namespace marvo {

/// How long a film is, by the pictures that it really has.
struct FilmLength
{
    std::uint64_t pictures = 0;
    std::int64_t ms = 0;  ///< cut to whole ones; 0 when unknown
    double pictureMs = 0; ///< how long one picture is shown; 0 when unknown
};

/// Zeros for a film without pictures, and times of 0 where its header does not tell how long a picture lasts
/// or tells of more than a week.
FilmLength filmLength(const ClipIndex& index);

} // namespace marvo
