// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace marvo {

/// Dated copies of the settings files that a save has replaced, the last twenty of them, in the user's data
/// folder.
class SettingsBackups
{
public:
    static constexpr std::size_t maximumCount = 20;

    struct Copy
    {
        std::string path;
        QDateTime takenAt; ///< local time
    };

    /// The copies' folder; made when the first copy is kept.
    explicit SettingsBackups(QString folder = defaultFolder());
    static QString defaultFolder();

    /// Copies a file into the folder and drops the oldest copies above the maximum. None on success, else
    /// what went wrong. A copy equal to the newest one is not taken again.
    std::optional<QString> keep(const std::string& settingFilePath);
    /// Newest first.
    std::vector<Copy> copies() const;

private:
    QString m_folder;
};

} // namespace marvo
