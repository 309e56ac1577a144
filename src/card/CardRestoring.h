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

/// Makes the folders that the camera records into. What fails shows in checkCard().
void makeRecordingFolders(const std::string& root);

/// Has the system write out all of the card, then checks that the settings on it are those bytes and that the
/// folders are there. None when it is so, else what is not, one line in English.
std::optional<std::string> checkCard(const std::string& root, const std::string& bytes);

} // namespace marvo
