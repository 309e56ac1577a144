// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stop_token>
#include <string>

namespace marvo {

class ByteSource;

struct DataAreaCut
{
    std::string chunk; ///< "JUNK", for the end of a film; empty without any record
    std::uint64_t readings = 0;
};

/// The camera's data of a part of a recording, as a data area of its own. Readings are spread evenly over a
/// film, so that a share of it, 0 to 1, has that share of them; each keeps the fix that belongs to it.
DataAreaCut cutDataArea(ByteSource& recording, double from, double to, std::stop_token stop);

} // namespace marvo
