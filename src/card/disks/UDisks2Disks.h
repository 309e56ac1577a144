// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/Disks.h"
#include "card/disks/UDisks2DeviceAccess.h"

#include <QDBusConnection>
#include <QTimer>

namespace marvo {

/// The disks of a Linux desktop, as the UDisks2 service on the system bus tells them
/// (http://storaged.org/doc/udisks2-api/latest/).
class UDisks2Disks : public Disks
{
    Q_OBJECT
public:
    explicit UDisks2Disks(QObject* parent = nullptr);

    std::vector<MountedVolume> mountedVolumes() const override;
    std::optional<QString> renameVolume(const TKUSBDiskEntity& volume, const QString& name) override;
    DeviceAccess* deviceAccess() override { return &m_deviceAccess; }

private Q_SLOTS:
    void noteChange();

private:
    QDBusConnection m_bus;
    UDisks2DeviceAccess m_deviceAccess;
    QTimer m_changeTimer; ///< gathers the several messages that one card brings
};

} // namespace marvo
