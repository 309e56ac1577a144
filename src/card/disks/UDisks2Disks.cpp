// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/UDisks2Disks.h"

#include "card/disks/UDisks2Objects.h"

#include <QLoggingCategory>

#include <chrono>
#include <sys/statvfs.h>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logUDisks, "marvo.udisks")

/// Unmounting writes out what is still cached, which a slow card delays.
constexpr int changeTimeoutMs = 60'000;

} // namespace

UDisks2Disks::UDisks2Disks(QObject* parent)
    : Disks(parent), m_bus(QDBusConnection::systemBus()), m_deviceAccess(*this)
{
    udisks2::registerTypes();
    m_changeTimer.setSingleShot(true);
    m_changeTimer.setInterval(std::chrono::milliseconds(200));
    connect(&m_changeTimer, &QTimer::timeout, this, &Disks::volumesChanged);
    if (!m_bus.isConnected()) {
        qCWarning(logUDisks, "no system bus: no removable volumes (%s)",
                  qUtf8Printable(m_bus.lastError().message()));
        return;
    }
    const QString manager = QStringLiteral("org.freedesktop.DBus.ObjectManager");
    for (const char* signal : {"InterfacesAdded", "InterfacesRemoved"}) {
        m_bus.connect(udisks2::serviceName(), QStringLiteral("/org/freedesktop/UDisks2"), manager,
                      QLatin1String(signal), this, SLOT(noteChange()));
    }
    m_bus.connect(udisks2::serviceName(), QString(), QStringLiteral("org.freedesktop.DBus.Properties"),
                  QStringLiteral("PropertiesChanged"), this, SLOT(noteChange()));
}

void UDisks2Disks::noteChange() { m_changeTimer.start(); }

std::vector<MountedVolume> UDisks2Disks::mountedVolumes() const
{
    std::vector<MountedVolume> volumes;
    const udisks2::ManagedObjects objects = udisks2::managedObjects(m_bus);
    for (auto object = objects.begin(); object != objects.end(); ++object) {
        const std::vector<std::string> paths = udisks2::mountPoints(*object);
        const auto described = udisks2::describe(objects, object.key());
        if (paths.empty() || !described)
            continue;
        MountedVolume volume = *described;
        volume.mountPath = paths.front();
        // A card that the kernel found damaged is mounted read-only although its device could be written.
        struct statvfs space = {};
        if (statvfs(volume.mountPath.c_str(), &space) == 0 && (space.f_flag & ST_RDONLY) != 0)
            volume.writable = false;
        volumes.push_back(std::move(volume));
    }
    return volumes;
}

std::optional<QString> UDisks2Disks::renameVolume(const TKUSBDiskEntity& volume, const QString& name)
{
    // On a write-protected medium the service reports success and changes nothing.
    if (!volume.writable())
        return QStringLiteral("the volume is read-only");

    const auto filesystemCall = [&](const char* method, QVariantList arguments) -> std::optional<QString> {
        arguments.append(QVariantMap());
        const QDBusMessage reply = udisks2::call(m_bus, volume.key(), udisks2::interfaceName("Filesystem"),
                                                 method, arguments, changeTimeoutMs);
        // An automounting desktop may have been faster.
        if (reply.type() == QDBusMessage::ReplyMessage ||
            reply.errorName() == QLatin1String("org.freedesktop.UDisks2.Error.AlreadyMounted"))
            return std::nullopt;
        return QStringLiteral("%1: %2").arg(QLatin1String(method), reply.errorMessage());
    };
    if (auto error = filesystemCall("Unmount", {}))
        return error;
    const auto labelError = filesystemCall("SetLabel", {name});
    const auto mountError = filesystemCall("Mount", {});
    return labelError ? labelError : mountError;
}

} // namespace marvo
