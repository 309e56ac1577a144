// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <system_error>

namespace marvo {

/// The bytes of the "config.bin" at the root of a card; none when there is none, when it is no regular file,
/// cannot be read to its end, or is far too large for the camera's settings (over 64 KiB).
std::optional<std::string> readCardSettingsFile(const std::string& root);

/// Puts a copy of settings into a new folder of its own under the temporary folder, readable by this user
/// only, and returns its path; none when that fails.
std::optional<std::string> keepSettings(const std::string& bytes);

/// Writes "config.bin" at the root of a card.
std::error_code restoreSettings(const std::string& root, const std::string& bytes);

/// Makes the folders that the camera records into. checkCard() finds what failed.
void makeRecordingFolders(const std::string& root);

/// Writes the whole card out, then checks that it holds these settings and the folders. Returns none if so,
/// else one line in English about what differs.
std::optional<std::string> checkCard(const std::string& root, const std::string& bytes);

} // namespace marvo
