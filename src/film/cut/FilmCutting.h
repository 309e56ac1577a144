// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <system_error>

namespace marvo {

/// Why no film was written.
enum class CutFault {
    None,
    CannotRead,   ///< the recording; `error` tells more
    NoFilm,       ///< no header of a video stream, or not one picture
    NoRate,       ///< nobody knows how long a picture lasts
    NothingThere, ///< the range holds no picture
    CannotWrite,  ///< the new film; `error` tells more. file_exists: there is a file already
    Stopped
};

struct CutResult
{
    CutFault fault = CutFault::None;
    std::error_code error;
    std::uint64_t pictures = 0;
    std::int64_t lengthMs = 0;
    /// How much earlier than asked for the clip begins: H.264 can only be cut at a key picture.
    std::int64_t earlierMs = 0;
    std::uint64_t readings = 0; ///< of the G-sensor, in the clip
};

struct CutOptions
{
    bool withSound = true;
    std::stop_token stop;
    std::function<void(double fraction)> progress; ///< 0 to 1, on the calling thread
};

/// Writes a recording anew as a film that plays: with the counts that the film really has, and an index.
/// Pictures, sound and what stands before and behind the film (the camera's data) are copied byte for byte;
/// half a picture at the end is left out. The recording itself is never changed, and a file that is there
/// already never replaced. For a worker.
CutResult repairRecording(const std::string& path, const std::string& out, const CutOptions& options = {});

/// Copies the pictures from one time to another, in ms from the film's beginning, into an AVI film of its
/// own, with their sound and with the camera's data of that time in a data area. Times beyond the film's end
/// mean its end. Nothing is encoded. For a worker.
CutResult cutClip(const std::string& path, std::int64_t fromMs, std::int64_t toMs, const std::string& out,
                  const CutOptions& options = {});

} // namespace marvo
