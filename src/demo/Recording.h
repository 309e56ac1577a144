// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/Canvas.h"
#include "demo/LittleEndian.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <string>

namespace marvo::demo {

enum class DataAreaPlace { BeforeMovie, AfterIndex };

/// The content of a recording. The default is a film of two seconds; the luma of its upper left corner
/// identifies the frame: counterLuma(frame).
struct RecordingOptions
{
    int width = 160;  ///< 1 to 8192
    int height = 120; ///< 1 to 8192
    int framesPerSecond = 10;
    int frameCount = 20;
    int soundRateHz = 16000; ///< 0 for a film without sound
    int quality = 75;        ///< of the frames, 1 to 100

    std::string software; ///< the name of the program that made the film, in an INFO list; empty for none
    /// Whole chunks such as dataAreaChunks() makes; none leaves the recording without a data area.
    Bytes dataChunks;
    DataAreaPlace dataPlace = DataAreaPlace::BeforeMovie;

    /// Draws one frame over the one before; without it the frame's number is shown. False leaves the frame
    /// as the one before was, at no cost.
    std::function<bool(Canvas&, int frame)> paint;
    /// Fills samples, the first of which is sample `first` of the film; without it a quiet 440 Hz tone.
    std::function<void(std::span<std::int16_t> samples, std::int64_t first)> sound;
    std::function<void(int framesDone)> progress; ///< called on the writing thread after each frame
};

/// Luma of the upper left corner of the default picture, 0 to 255; repeats after 100 frames.
constexpr int counterLuma(int frame) { return 40 + 2 * (frame % 100); }

/// Writes one AVI recording; it appears under its name when it is complete. Returns an error text or none; a
/// requested stop gives "stopped". The same options give the same bytes.
std::optional<std::string> writeRecording(const std::string& path, const RecordingOptions& options,
                                          const std::stop_token& stop = {});

} // namespace marvo::demo
