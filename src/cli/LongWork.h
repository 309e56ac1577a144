// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <stop_token>
#include <string>
#include <thread>

namespace marvo::cli {

/// Makes Ctrl-C and a request to end stop the work, so that no half-written file is left.
class StopOnInterrupt
{
public:
    StopOnInterrupt();
    std::stop_token token() const { return m_stop.get_token(); }

private:
    std::stop_source m_stop;
    std::jthread m_watch;
};

/// One line on stderr that is overwritten again and again, on a terminal only.
class ProgressLine
{
public:
    /// The text stands before the percentage.
    explicit ProgressLine(std::string text);
    void show(double fraction);
    void clear() const;

private:
    std::string m_text;
    bool m_terminal;
    int m_percent = -1;
};

} // namespace marvo::cli
