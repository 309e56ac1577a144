// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace marvo {

struct CaptureFacts;

/// Writes the facts into a JPEG file (its bytes) of this many pixels, as EXIF. False, with the file as it
/// was, when it is no JPEG file or there is no memory.
bool addExif(std::string& jpeg, int width, int height, const CaptureFacts& facts);

} // namespace marvo
