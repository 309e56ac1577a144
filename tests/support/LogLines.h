// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/Log.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace marvo::test {

/// Collects the log's lines, of whatever thread, for as long as it lives; one at a time.
class LogLines
{
public:
    LogLines()
    {
        clear();
        setLogSink([](std::string_view line) {
            const std::scoped_lock lock(s_mutex);
            s_lines.emplace_back(line);
        });
    }
    ~LogLines() { setLogSink(nullptr); }

    std::vector<std::string> lines() const
    {
        const std::scoped_lock lock(s_mutex);
        return s_lines;
    }
    void clear()
    {
        const std::scoped_lock lock(s_mutex);
        s_lines.clear();
    }

private:
    static inline std::mutex s_mutex;
    static inline std::vector<std::string> s_lines;
};

} // namespace marvo::test
