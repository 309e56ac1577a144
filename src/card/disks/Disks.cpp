// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/Disks.h"

#include <QLoggingCategory>

#include <algorithm>
#include <iterator>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logDisks, "marvo.disks")

} // namespace

std::vector<MountedVolume> Disks::removableVolumeURLs() const
{
    std::vector<MountedVolume> volumes = mountedVolumes();
    std::erase_if(volumes, [](const MountedVolume& volume) { return !volume.removable; });
    return volumes;
}

std::vector<MountedVolume> Disks::usbVolumeURLs() const
{
    std::vector<MountedVolume> volumes = removableVolumeURLs();
    std::erase_if(volumes, [](const MountedVolume& volume) { return volume.bus != MountedVolume::Bus::Usb; });
    return volumes;
}

std::vector<TKUSBDiskEntity> Disks::usbDiskEntities() const
{
    std::vector<TKUSBDiskEntity> entities;
    for (const MountedVolume& volume : usbVolumeURLs()) {
        if (volume.devicePath.empty())
            continue;
        qCInfo(logDisks, "%s", volume.mountPath.c_str());
        entities.emplace_back(volume.name, volume.mountPath, volume.devicePath, volume.model, volume.size,
                              volume.writable, volume.mediaWhole, volume.key);
    }
    return entities;
}

} // namespace marvo
