// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/TKUSBDiskEntity.h"

#include <QObject>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace marvo {

class DeviceAccess;

/// One mounted file system as the desktop's disk service describes it.
struct MountedVolume
{
    enum class Bus { Usb, Other };

    QString name;           ///< the volume's label
    std::string mountPath;  ///< where it is mounted, as bytes
    std::string devicePath; ///< "/dev/sdb1"
    std::uint64_t deviceNumber = 0;
    QString fileSystemId; ///< what its formatting gave it, such as "1A2B-3C4D"
    std::optional<QString> model;
    QString serial;         ///< of the drive; empty when it tells none
    QString key;            ///< what the service calls the volume
    QString drive;          ///< what the service calls its drive
    std::uint64_t size = 0; ///< bytes of the medium
    Bus bus = Bus::Other;
    bool removable = false;
    bool writable = false;
    bool deviceWritable = false; ///< the medium is not write-protected, however it is mounted
    bool mediaWhole = false;     ///< no partition of something larger
    bool system = false;         ///< the service counts it to the machine's own disks
};

/// The mounted volumes of the machine. Every operation asks the system on the calling thread, which may take
/// a moment; all may be called from any thread.
class Disks : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Every mounted volume that the service knows, in its order. None when there is no service.
    virtual std::vector<MountedVolume> mountedVolumes() const = 0;

    /// Gives the volume a new name, for which it is unmounted for a moment. Where a step fails it is mounted
    /// again under its old name. None on success, else what went wrong, for the log. A volume that cannot be
    /// written is refused.
    virtual std::optional<QString> renameVolume(const TKUSBDiskEntity& volume, const QString& name) = 0;

    /// The mounted volumes on removable media.
    std::vector<MountedVolume> removableVolumeURLs() const;
    /// Those of them on a USB device.
    std::vector<MountedVolume> usbVolumeURLs() const;
    /// An entry for each volume on USB that has a device; its mount path is logged.
    std::vector<TKUSBDiskEntity> usbDiskEntities() const;

    /// What formatting a volume takes; null where the volumes cannot be formatted. Lives as long as this.
    virtual DeviceAccess* deviceAccess() { return nullptr; }

Q_SIGNALS:
    /// A volume mounted there is about to be unmounted: whoever has a file on it open lets go of it. Main
    /// thread.
    void aboutToUnmount(const std::string& mountPath);
    /// A volume may have come, gone or changed. Several changes at once are told as one. Main thread.
    void volumesChanged();
};

} // namespace marvo
