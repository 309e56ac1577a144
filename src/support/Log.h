// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace marvo {

/// Receives one diagnostic line, without a line end. Called on any thread.
using LogSink = void (*)(std::string_view line);

/// Sets the receiver of diagnostics; nullptr, the initial value, drops them. The application sets the
/// desktop's log; the command line tool logs nothing.
void setLogSink(LogSink sink);
void logLine(std::string_view line);

} // namespace marvo
