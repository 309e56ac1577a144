// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MRVMediaList.h"
#include "viewer/MRVAppDelegate.h"

#include <QApplication>

#include <functional>
#include <memory>
#include <string>

namespace marvo::bench {

/// The whole application as a user starts it, driven from inside: no time goes into synthetic input.
class Application
{
public:
    /// Sound goes nowhere, so that a machine without a sound device measures the same.
    Application(int& argc, char** argv);

    /// False when the folder is not listed in time.
    bool open(const std::string& folder);
    /// As a double click on the row does; false when its first picture does not come in time.
    bool play(std::int64_t row);

    MRVAppDelegate& delegate() { return *m_delegate; }

private:
    QApplication m_application;
    std::unique_ptr<MRVAppDelegate> m_delegate;
};

/// Runs the event loop until the condition holds; false when it does not in time. It is looked at whenever
/// the application has done something, not at intervals.
bool waitUntil(const std::function<bool()>& condition, int milliseconds);
void waitFor(int milliseconds);

} // namespace marvo::bench
