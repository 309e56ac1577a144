// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/FolderDisks.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace marvo {

FolderDisks::FolderDisks(std::string folder, QObject* parent) : Disks(parent), m_folder(std::move(folder)) {}

std::vector<MountedVolume> FolderDisks::mountedVolumes() const
{
    struct stat status = {};
    if (stat(m_folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return {};
    MountedVolume volume;
    volume.name = cardVolumeName();
    volume.mountPath = m_folder;
    volume.devicePath = m_folder;
    volume.key = QString::fromStdString(m_folder);
    struct statvfs space = {};
    if (statvfs(m_folder.c_str(), &space) == 0)
        volume.size = std::uint64_t{space.f_blocks} * space.f_frsize;
    volume.bus = MountedVolume::Bus::Usb;
    volume.removable = true;
    volume.writable = access(m_folder.c_str(), W_OK) == 0;
    return {volume};
}

std::optional<QString> FolderDisks::renameVolume(const TKUSBDiskEntity&, const QString&)
{
    return QStringLiteral("a folder that stands for a card keeps its name");
}

} // namespace marvo
