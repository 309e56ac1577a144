// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace marvo {

/// One kind of recording, as the camera writes it and the program shows it.
struct RecordingKind
{
    std::string_view prefix; ///< of file names; "yyyymmdd_hhmiss" follows
    std::string_view name;   ///< one English word
    const char* folder;      ///< in the root of the camera's card
    const char* labelKey;    ///< of the text in the list
    const char* icon;        ///< name of the picture in the list
};

/// Every kind that the program knows. A kind's place is its code (MRVMedia::mediaDivision); another kind is
/// one more row, its label in the string tables and its picture.
inline constexpr std::array<RecordingKind, 3> recordingKinds{{
    {"alwa_", "always", "AlwaysMovie", "media.always", "car_alwa"},
    {"motion_", "motion", "MotionMovie", "media.motion", "car_motion"},
    {"event_", "event", "EventMovie", "media.event", "car_event"},
}};

} // namespace marvo
