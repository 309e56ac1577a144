// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/Disks.h"

#include <QFileSystemWatcher>

namespace marvo {

/// A folder in place of a card in a reader: it is the one mounted volume, named like the camera's card. So
/// that the card tools can be used on a copy of a card, and tried without one. That it goes or comes back is
/// told like a card pulled out or put in.
class FolderDisks : public Disks
{
    Q_OBJECT
public:
    explicit FolderDisks(std::string folder, QObject* parent = nullptr);

    std::vector<MountedVolume> mountedVolumes() const override;
    /// A folder carries no name of its own to change.
    std::optional<QString> renameVolume(const TKUSBDiskEntity& volume, const QString& name) override;

private:
    void look();

    std::string m_folder;
    QFileSystemWatcher m_watcher;
    bool m_present;
};

} // namespace marvo
