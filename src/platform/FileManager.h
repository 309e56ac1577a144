// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace marvo {

/// Opens the desktop's file manager on the folder of a file (an absolute path as bytes), with the file
/// selected where the file manager can do that. Returns at once.
void showInFileManager(const std::string& path);

} // namespace marvo
