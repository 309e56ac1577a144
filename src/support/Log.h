// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace marvo {

/// Takes one line of diagnostics, without a line end. Called on whatever thread has something to tell.
using LogSink = void (*)(std::string_view line);

/// Where diagnostics go from now on; nullptr, as at the start, drops them. The application hands in the
/// desktop's log; the command line tool keeps quiet.
void setLogSink(LogSink sink);
void logLine(std::string_view line);

} // namespace marvo
