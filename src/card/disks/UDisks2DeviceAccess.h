// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/DeviceAccess.h"

#include <QDBusConnection>

namespace marvo {

class Disks;

/// Device access as the UDisks2 service grants it.
class UDisks2DeviceAccess : public DeviceAccess
{
public:
    /// The disks that list the volumes; they must outlive this.
    explicit UDisks2DeviceAccess(const Disks& disks);

    std::vector<FormattableVolume> formattableVolumes() const override;
    bool isAnswering() const override;
    std::optional<DeviceIdentity> identify(const QString& key) const override;
    std::optional<DeviceError> unmount(const TKUSBDiskEntity& volume) override;
    std::optional<DeviceError> openForWriting(const QString& key, DeviceDescriptor& opened) override;
    std::optional<DeviceError> mount(const QString& key, const QString& fileSystemId) override;

private:
    std::optional<DeviceError> unmountOne(const QString& key);
    void waitForMountPoint(const QString& key) const;

    const Disks& m_disks;
    QDBusConnection m_bus;
};

} // namespace marvo
