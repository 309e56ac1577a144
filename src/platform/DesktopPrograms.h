// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

namespace marvo {

/// Starts the desktop's program for disks, on its own. False when none is installed.
bool startDiskUtility();

} // namespace marvo
