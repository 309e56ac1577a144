// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/UDisks2Disks.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QLoggingCategory>
#include <QMap>

#include <atomic>
#include <chrono>
#include <sys/statvfs.h>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logUDisks, "marvo.udisks")

using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;

constexpr int listTimeoutMs = 2000;
/// Unmounting writes out what the system still holds back for a slow card.
constexpr int changeTimeoutMs = 60'000;

QString service() { return QStringLiteral("org.freedesktop.UDisks2"); }
QString interfaceName(const char* name)
{
    return QStringLiteral("org.freedesktop.UDisks2.") + QLatin1String(name);
}

QDBusMessage call(const QDBusConnection& bus, const QString& path, const QString& interface,
                  const char* method, const QVariantList& arguments, int timeoutMs)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service(), path, interface, QLatin1String(method));
    message.setArguments(arguments);
    return bus.call(message, QDBus::Block, timeoutMs);
}

/// A path as the service sends it: bytes with a closing NUL.
std::string pathOf(QByteArray bytes)
{
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return bytes.toStdString();
}

std::string firstMountPoint(const QVariantMap& filesystem)
{
    const QVariant points = filesystem.value(QStringLiteral("MountPoints"));
    if (!points.canConvert<QDBusArgument>())
        return {};
    const auto list = qdbus_cast<QList<QByteArray>>(points);
    return list.isEmpty() ? std::string() : pathOf(list.first());
}

/// The drive of a block device; null for a device without one, such as a loop device.
const QVariantMap* driveOf(const ManagedObjects& objects, const QVariantMap& block)
{
    const auto path = block.value(QStringLiteral("Drive")).value<QDBusObjectPath>();
    const auto object = objects.constFind(path);
    if (object == objects.constEnd())
        return nullptr;
    const auto drive = object->constFind(interfaceName("Drive"));
    return drive == object->constEnd() ? nullptr : &*drive;
}

MountedVolume describe(const QDBusObjectPath& path, const Interfaces& interfaces, const QVariantMap& block,
                       const QVariantMap* drive)
{
    MountedVolume volume;
    volume.name = block.value(QStringLiteral("IdLabel")).toString();
    volume.devicePath = pathOf(block.value(QStringLiteral("PreferredDevice")).toByteArray());
    volume.size = block.value(QStringLiteral("Size")).toULongLong();
    volume.writable = !block.value(QStringLiteral("ReadOnly")).toBool();
    volume.system = block.value(QStringLiteral("HintSystem")).toBool();
    volume.mediaWhole = !interfaces.contains(interfaceName("Partition"));
    volume.key = path.path();
    if (drive == nullptr)
        return volume;

    volume.drive = block.value(QStringLiteral("Drive")).value<QDBusObjectPath>().path();
    const QString model = drive->value(QStringLiteral("Model")).toString().trimmed();
    if (!model.isEmpty())
        volume.model = model;
    volume.serial = drive->value(QStringLiteral("Serial")).toString();
    // Readers differ in which of the two they set: the slot that can be emptied, or the reader that can be
    // unplugged.
    volume.removable = drive->value(QStringLiteral("Removable")).toBool() ||
                       drive->value(QStringLiteral("MediaRemovable")).toBool();
    if (drive->value(QStringLiteral("ConnectionBus")).toString() == QLatin1String("usb"))
        volume.bus = MountedVolume::Bus::Usb;
    return volume;
}

} // namespace

UDisks2Disks::UDisks2Disks(QObject* parent) : Disks(parent), m_bus(QDBusConnection::systemBus())
{
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<ManagedObjects>();

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
        m_bus.connect(service(), QStringLiteral("/org/freedesktop/UDisks2"), manager, QLatin1String(signal),
                      this, SLOT(noteChange()));
    }
    m_bus.connect(service(), QString(), QStringLiteral("org.freedesktop.DBus.Properties"),
                  QStringLiteral("PropertiesChanged"), this, SLOT(noteChange()));
}

void UDisks2Disks::noteChange() { m_changeTimer.start(); }

std::vector<MountedVolume> UDisks2Disks::mountedVolumes() const
{
    std::vector<MountedVolume> volumes;
    if (!m_bus.isConnected())
        return volumes;
    const QDBusMessage reply =
        call(m_bus, QStringLiteral("/org/freedesktop/UDisks2"),
             QStringLiteral("org.freedesktop.DBus.ObjectManager"), "GetManagedObjects", {}, listTimeoutMs);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        static std::atomic_flag told;
        if (!told.test_and_set())
            qCWarning(logUDisks, "no disk service: %s", qUtf8Printable(reply.errorMessage()));
        return volumes;
    }
    const auto objects = qdbus_cast<ManagedObjects>(reply.arguments().constFirst());
    for (auto object = objects.begin(); object != objects.end(); ++object) {
        const auto block = object->constFind(interfaceName("Block"));
        const auto filesystem = object->constFind(interfaceName("Filesystem"));
        if (block == object->constEnd() || filesystem == object->constEnd())
            continue;
        std::string mountPath = firstMountPoint(*filesystem);
        if (mountPath.empty())
            continue;
        MountedVolume volume = describe(object.key(), *object, *block, driveOf(objects, *block));
        // A card that the kernel found damaged is mounted read-only although its device could be written.
        struct statvfs space = {};
        if (statvfs(mountPath.c_str(), &space) == 0 && (space.f_flag & ST_RDONLY) != 0)
            volume.writable = false;
        volume.mountPath = std::move(mountPath);
        volumes.push_back(std::move(volume));
    }
    return volumes;
}

std::optional<QString> UDisks2Disks::renameVolume(const TKUSBDiskEntity& volume, const QString& name)
{
    // On a medium that cannot be written the service answers that all went well and changes nothing.
    if (!volume.writable())
        return QStringLiteral("the volume is read-only");

    const auto filesystemCall = [&](const char* method, QVariantList arguments) -> std::optional<QString> {
        arguments.append(QVariantMap());
        const QDBusMessage reply =
            call(m_bus, volume.key(), interfaceName("Filesystem"), method, arguments, changeTimeoutMs);
        // A desktop that mounts what appears may have been quicker than our own Mount.
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
