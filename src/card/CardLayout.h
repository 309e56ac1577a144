// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/RecordingKinds.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace marvo {

/// What the camera's card looks like. Names are relative to its root. A further file of the card is one more
/// name here; a further kind of recording is one more row of recordingKinds.

/// The volume's label.
inline constexpr const char* cardVolumeLabel = "MARVO";
/// The camera's settings, one record (settings/FileData.h).
inline constexpr const char* settingsFileName = "config.bin";
/// The file from which the camera sets its clock at its next start (card/ClockFile.h).
inline constexpr const char* clockFileName = "timeset.cfg";
/// The folder of the driving logs, and the log that every camera keeps in it.
inline constexpr const char* logFolderName = "DrvInfo";
inline constexpr const char* drivingLogName = "DrvInfo/marvo_000.drv";

/// The folders that the camera records into, one for each kind of recording.
inline constexpr auto recordingFolders = [] {
    std::array<const char*, recordingKinds.size()> folders{};
    std::ranges::transform(recordingKinds, folders.begin(), &RecordingKind::folder);
    return folders;
}();

/// Whether a folder of this name is one that the camera makes in a card's root.
constexpr bool isCardFolder(std::string_view name)
{
    return name == logFolderName || std::ranges::find(recordingFolders, name) != recordingFolders.end();
}

} // namespace marvo
