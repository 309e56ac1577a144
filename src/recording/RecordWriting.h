// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/SampleRecords.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace marvo {

/// Appends a record of the data area as the camera writes it; docs/formats.md has the layout.
void appendRecord(std::string& area, const _AVI_GSENSOR_DATA_T& reading);
/// The text is at most 512 bytes. A fix with a short trailer gets a zero byte behind its text, if it has
/// none: without it a reader would lose step.
void appendRecord(std::string& area, const _AVI_GPS_DATA_T& fix, std::string_view text);

} // namespace marvo
