// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/Log.h"

#include <atomic>

namespace marvo {

namespace {

std::atomic<LogSink> currentSink = nullptr;

} // namespace

void setLogSink(LogSink sink) { currentSink = sink; }

void logLine(std::string_view line)
{
    if (const LogSink sink = currentSink)
        sink(line);
}

} // namespace marvo
