// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace marvo {

/// Starts the desktop's program for disks, on its own. False when none is installed.
bool startDiskUtility();

/// Opens a file (an absolute path as bytes) in the program that the desktop has for its type, on its own, and
/// returns when that has been arranged, which may take as long as that program runs: not for the main thread.
/// False when there is no such program, or none took the file.
bool openInDefaultProgram(const std::string& path);

} // namespace marvo
