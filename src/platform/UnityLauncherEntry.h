// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace marvo {

/// The program's entry in docks and task bars that listen to com.canonical.Unity.LauncherEntry. Without a
/// session bus or a listener nothing happens.
class UnityLauncherEntry
{
public:
    /// The desktop file's name without its ending, such as "marvo".
    explicit UnityLauncherEntry(const QString& desktopFileName);

    /// Shows a bar on the entry, 0 to 1; none takes it away. Never waits for the bus.
    void showProgress(std::optional<double> fraction) const;

private:
    QString m_appUri;
    QString m_path;
};

} // namespace marvo
