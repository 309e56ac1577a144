// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace marvo::demo {

struct DemoCardOptions
{
    int frontWidth = 960; ///< pixels; pictures are 16 to 9, and those of the rear half as wide
    int framesPerSecond = 10;
    int quality = 65;
    int threads = 0; ///< 0 for as many as the machine has; the bytes written do not depend on it
};

struct DemoCardResult
{
    std::optional<std::string> error; ///< "stopped" after a stop that was asked for
    std::vector<std::string> written; ///< relative to the card, in the order of the card
    /// Files that were there already and are not a demo's. If one of settings, clock file and log is among
    /// them, none of the three is written.
    std::vector<std::string> kept;
};

/// Share of the work that is done, 0 to 1. Called one call at a time, from the threads that write.
using DemoCardProgress = std::function<void(double fraction)>;

/// Writes a card as the camera would into a folder, which is made when it is missing: recordings of one drive
/// in "AlwaysMovie", "EventMovie" and "MotionMovie", front and rear, "config.bin", "timeset.cfg" and the
/// driving log "DrvInfo/marvo_000.drv". The same bytes every time.
///
/// Each file appears when it is whole and replaces an older one only if that is a demo's: recordings and log
/// carry a mark. Every other file is kept. A link where a file or folder belongs is an error, and then
/// nothing is written.
DemoCardResult writeDemoCard(const std::string& folder, const DemoCardOptions& options = {},
                             const DemoCardProgress& progress = {}, const std::stop_token& stop = {});

} // namespace marvo::demo
