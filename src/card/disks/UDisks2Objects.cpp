// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/UDisks2Objects.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QLoggingCategory>

#include <algorithm>
#include <atomic>

namespace marvo::udisks2 {

namespace {

Q_LOGGING_CATEGORY(logUDisks, "marvo.udisks")

/// A busy service is asked again.
constexpr int listTimeoutMs = 2000;
constexpr int mostListTries = 2;

std::atomic<bool> answers = true;

bool isTimeout(const QDBusMessage& reply)
{
    const QDBusError error(reply);
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout ||
           error.type() == QDBusError::TimedOut;
}

/// A path as the service sends it: bytes with a closing NUL.
std::string pathOf(QByteArray bytes)
{
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return bytes.toStdString();
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

} // namespace

void registerTypes()
{
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<ManagedObjects>();
}

QString serviceName() { return QStringLiteral("org.freedesktop.UDisks2"); }

QString interfaceName(const char* name)
{
    return QStringLiteral("org.freedesktop.UDisks2.") + QLatin1String(name);
}

QDBusMessage methodCall(const QString& path, const QString& interface, const char* method,
                        const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(serviceName(), path, interface, QLatin1String(method));
    message.setArguments(arguments);
    return message;
}

QDBusMessage call(const QDBusConnection& bus, const QString& path, const QString& interface,
                  const char* method, const QVariantList& arguments, int timeoutMs)
{
    return bus.call(methodCall(path, interface, method, arguments), QDBus::Block, timeoutMs);
}

ManagedObjects managedObjects(const QDBusConnection& bus)
{
    if (!bus.isConnected())
        return {};
    QDBusMessage reply;
    for (int tries = answers ? 0 : 1; tries < mostListTries; ++tries) {
        reply = call(bus, QStringLiteral("/org/freedesktop/UDisks2"),
                     QStringLiteral("org.freedesktop.DBus.ObjectManager"), "GetManagedObjects", {},
                     listTimeoutMs);
        if (!isTimeout(reply))
            break;
    }
    answers = !isTimeout(reply);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        static std::atomic_flag told;
        if (!told.test_and_set())
            qCWarning(logUDisks, "no disk service: %s", qUtf8Printable(reply.errorMessage()));
        return {};
    }
    return qdbus_cast<ManagedObjects>(reply.arguments().constFirst());
}

bool isAnswering() { return answers; }

std::vector<std::string> mountPoints(const Interfaces& interfaces)
{
    const QVariant points =
        interfaces.value(interfaceName("Filesystem")).value(QStringLiteral("MountPoints"));
    if (!points.canConvert<QDBusArgument>())
        return {};
    std::vector<std::string> paths;
    for (const QByteArray& path : qdbus_cast<QList<QByteArray>>(points))
        paths.push_back(pathOf(path));
    return paths;
}

std::optional<MountedVolume> describe(const ManagedObjects& objects, const QDBusObjectPath& path)
{
    const Interfaces interfaces = objects.value(path);
    const auto found = interfaces.constFind(interfaceName("Block"));
    if (found == interfaces.constEnd())
        return std::nullopt;
    const QVariantMap& block = *found;
    MountedVolume volume;
    volume.name = block.value(QStringLiteral("IdLabel")).toString();
    volume.devicePath = pathOf(block.value(QStringLiteral("PreferredDevice")).toByteArray());
    volume.deviceNumber = block.value(QStringLiteral("DeviceNumber")).toULongLong();
    volume.fileSystemId = block.value(QStringLiteral("IdUUID")).toString();
    volume.size = block.value(QStringLiteral("Size")).toULongLong();
    volume.deviceWritable = !block.value(QStringLiteral("ReadOnly")).toBool();
    volume.writable = volume.deviceWritable;
    volume.system = block.value(QStringLiteral("HintSystem")).toBool();
    volume.mediaWhole = !interfaces.contains(interfaceName("Partition"));
    volume.key = path.path();
    const QVariantMap* drive = driveOf(objects, block);
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

bool isOnCard(const ManagedObjects& objects, const QDBusObjectPath& path)
{
    const QVariantMap block = objects.value(path).value(interfaceName("Block"));
    const QVariantMap* drive = driveOf(objects, block);
    if (drive == nullptr)
        return false;
    const QStringList media = drive->value(QStringLiteral("MediaCompatibility")).toStringList();
    return drive->value(QStringLiteral("MediaRemovable")).toBool() ||
           std::ranges::any_of(media, [](const QString& name) { return name.startsWith(u"flash"); });
}

bool isPartitionOf(const Interfaces& interfaces, const QString& whole)
{
    const QVariant table = interfaces.value(interfaceName("Partition")).value(QStringLiteral("Table"));
    return table.value<QDBusObjectPath>().path() == whole;
}

} // namespace marvo::udisks2
