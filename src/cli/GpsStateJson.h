// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVGpsData.h"

#include <string>

namespace marvo::cli {

/// Writes GPS states as JSON objects, every field under its name and in its order. A sentence changes only
/// some fields of the state before it, so the text of the others is kept from one call to the next.
class GpsStateJson
{
public:
    void append(std::string& out, const MRVGpsData& state);

private:
    void renderSatellites();
    void renderFix();
    void renderMotion();

    MRVGpsData m_last;
    std::string m_satellites; ///< the members of the object, in three runs; empty before the first call
    std::string m_fix;
    std::string m_motion;
};

} // namespace marvo::cli
