// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/FolderDisks.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace marvo {

namespace {

bool isFolder(const std::string& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

FolderDisks::FolderDisks(std::string folder, QObject* parent)
    : Disks(parent), m_folder(std::move(folder)), m_present(isFolder(m_folder))
{
    // The folder's own end is seen in it, its return in the one above.
    const QString path = QFile::decodeName(m_folder.c_str());
    m_watcher.addPath(QFileInfo(path).absolutePath());
    m_watcher.addPath(path);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FolderDisks::look);
}

void FolderDisks::look()
{
    const bool present = isFolder(m_folder);
    if (present == m_present)
        return;
    m_present = present;
    if (present)
        m_watcher.addPath(QFile::decodeName(m_folder.c_str()));
    Q_EMIT volumesChanged();
}

std::vector<MountedVolume> FolderDisks::mountedVolumes() const
{
    if (!isFolder(m_folder))
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
