// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "film/ClipIndex.h"

#include <string>

namespace marvo {

/// Reads the index of an AVI file, or without one goes from chunk to chunk. Empty when there is nothing to
/// play.
ClipIndex readClipIndex(const std::string& path);

} // namespace marvo
