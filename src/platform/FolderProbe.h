// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace marvo {

/// Whether a folder (a path as bytes) is there and says so within a time that nobody notices. One on a
/// network or a card that does not answer is not; whoever asks is held up by it no longer. Any thread.
bool folderAnswers(const std::string& folder,
                   std::chrono::milliseconds atMost = std::chrono::milliseconds(200));

} // namespace marvo
