// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/LongWork.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <utility>

namespace marvo::cli {

namespace {

std::atomic<bool> interrupted{false};

void onInterrupt(int) { interrupted = true; }

} // namespace

StopOnInterrupt::StopOnInterrupt()
{
    // What was ignored at the start (nohup) stays so.
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        if (std::signal(number, onInterrupt) == SIG_IGN)
            std::signal(number, SIG_IGN);
    }
    m_watch = std::jthread([this](const std::stop_token& done) {
        while (!done.stop_requested()) {
            if (interrupted)
                m_stop.request_stop();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    });
}

ProgressLine::ProgressLine(std::string text)
    : m_text(std::move(text)), m_terminal(::isatty(STDERR_FILENO) == 1)
{}

void ProgressLine::show(double fraction)
{
    const int percent = static_cast<int>(fraction * 100);
    if (!m_terminal || percent == m_percent)
        return;
    m_percent = percent;
    std::fprintf(stderr, "\r%s: %3d %%", m_text.c_str(), percent);
}

void ProgressLine::clear() const
{
    if (m_percent >= 0)
        std::fputs("\r\033[K", stderr);
}

} // namespace marvo::cli
