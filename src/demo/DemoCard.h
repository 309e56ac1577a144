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
    /// Settings, clock file or log that were there already and are not this writer's. They are left alone,
    /// and none of the three is written then.
    std::vector<std::string> kept;
};

/// Share of the work that is done, 0 to 1. Called one call at a time, from the threads that write.
using DemoCardProgress = std::function<void(double fraction)>;

/// Writes a card as the camera would into a folder, which is made when it is missing: recordings of one drive
/// in "AlwaysMovie", "EventMovie" and "MotionMovie", front and rear, "config.bin", "timeset.cfg" and the
/// driving log "DrvInfo/marvo_000.drv". The same bytes every time.
///
/// Each file appears when it is whole; an older one of the same name is replaced. Nothing else in the folder
/// is touched, and a card that is somebody's own keeps its settings, clock file and log.
DemoCardResult writeDemoCard(const std::string& folder, const DemoCardOptions& options = {},
                             const DemoCardProgress& progress = {}, const std::stop_token& stop = {});

} // namespace marvo::demo
