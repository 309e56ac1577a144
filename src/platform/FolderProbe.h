// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace marvo {

/// Whether a folder (a path as bytes) exists and answers within a fraction of a second. A network or card
/// that does not answer counts as absent. Any thread.
bool folderAnswers(const std::string& folder,
                   std::chrono::milliseconds atMost = std::chrono::milliseconds(200));

} // namespace marvo
