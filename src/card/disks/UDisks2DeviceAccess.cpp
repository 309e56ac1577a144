// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/UDisks2DeviceAccess.h"

#include "card/disks/UDisks2Objects.h"

#include <QDBusUnixFileDescriptor>
#include <QDeadlineTimer>
#include <QLoggingCategory>
#include <QThread>

#include <fcntl.h>
#include <limits>
#include <unistd.h>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logAccess, "marvo.disks.access")

using Kind = DeviceError::Kind;
using udisks2::interfaceName;

constexpr int changeTimeoutMs = 60'000;
/// A password can take any time, and so can a slow card.
constexpr int noTimeout = std::numeric_limits<int>::max();
/// A file manager may use the volume for a moment.
constexpr int busyPatienceMs = 3000;
constexpr int noticePatienceMs = 8000;
constexpr int mountedPatienceMs = 3000;
constexpr unsigned long pauseMs = 50;

Kind kindOf(const QString& errorName)
{
    const QStringView name = QStringView(errorName).mid(errorName.lastIndexOf(QLatin1Char('.')) + 1);
    struct Row
    {
        QLatin1StringView name;
        Kind kind;
    };
    static constexpr Row rows[]{
        {QLatin1StringView("NotAuthorized"), Kind::Refused},
        {QLatin1StringView("NotAuthorizedDismissed"), Kind::Dismissed},
        {QLatin1StringView("NotAuthorizedCanObtain"), Kind::NobodyAsks},
        {QLatin1StringView("DeviceBusy"), Kind::Busy},
        {QLatin1StringView("UnknownObject"), Kind::Gone},
        {QLatin1StringView("UnknownInterface"), Kind::Gone},
        {QLatin1StringView("UnknownMethod"), Kind::Gone},
        {QLatin1StringView("NotFound"), Kind::Gone},
    };
    for (const Row& row : rows) {
        if (name == row.name)
            return row.kind;
    }
    return Kind::Other;
}

std::optional<DeviceError> errorOf(const QDBusMessage& reply, const char* what)
{
    if (reply.type() == QDBusMessage::ReplyMessage)
        return std::nullopt;
    qCWarning(logAccess, "%s: %s: %s", what, qUtf8Printable(reply.errorName()),
              qUtf8Printable(reply.errorMessage()));
    return DeviceError{kindOf(reply.errorName()), reply.errorMessage()};
}

bool isError(const QDBusMessage& reply, const char* name)
{
    return reply.type() == QDBusMessage::ErrorMessage && reply.errorName().endsWith(QLatin1String(name));
}

bool mayBeFormatted(const udisks2::ManagedObjects& objects, const MountedVolume& volume)
{
    return volume.bus == MountedVolume::Bus::Usb && volume.removable && !volume.system &&
           !volume.devicePath.empty() && udisks2::isOnCard(objects, QDBusObjectPath(volume.key)) &&
           !carriesSystem(volume.deviceNumber);
}

/// A call for which the system may ask the user for the administrator's password.
QDBusMessage callWithPassword(const QDBusConnection& bus, QDBusMessage message)
{
    message.setInteractiveAuthorizationAllowed(true);
    return bus.call(message, QDBus::Block, noTimeout);
}

DeviceIdentity identityOf(const MountedVolume& volume)
{
    return {volume.devicePath, volume.deviceNumber, volume.size, diskSequence(volume.deviceNumber),
            volume.drive,      volume.serial};
}

} // namespace

DeviceDescriptor::~DeviceDescriptor()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

UDisks2DeviceAccess::UDisks2DeviceAccess(const Disks& disks)
    : m_disks(disks), m_bus(QDBusConnection::systemBus())
{}

std::vector<FormattableVolume> UDisks2DeviceAccess::formattableVolumes() const
{
    std::vector<FormattableVolume> volumes;
    const std::vector<MountedVolume> mounted = m_disks.usbVolumeURLs();
    const udisks2::ManagedObjects objects = udisks2::managedObjects(m_bus);
    for (const MountedVolume& volume : mounted) {
        if (!mayBeFormatted(objects, volume))
            continue;
        qCInfo(logAccess, "%s", volume.mountPath.c_str());
        volumes.push_back({TKUSBDiskEntity(volume.name, volume.mountPath, volume.devicePath, volume.model,
                                           volume.size, volume.deviceWritable, volume.mediaWhole, volume.key),
                           identityOf(volume), logicalSectorSize(volume.deviceNumber)});
    }
    return volumes;
}

bool UDisks2DeviceAccess::isAnswering() const { return udisks2::isAnswering(); }

std::optional<DeviceIdentity> UDisks2DeviceAccess::identify(const QString& key) const
{
    const udisks2::ManagedObjects objects = udisks2::managedObjects(m_bus);
    const auto volume = udisks2::describe(objects, QDBusObjectPath(key));
    return volume && mayBeFormatted(objects, *volume) ? std::optional(identityOf(*volume)) : std::nullopt;
}

std::optional<DeviceError> UDisks2DeviceAccess::unmountOne(const QString& key)
{
    const QDeadlineTimer patience(busyPatienceMs);
    // A volume that is mounted in several places takes a call for each; one that another user has mounted, a
    // password.
    while (true) {
        const QDBusMessage reply = callWithPassword(
            m_bus, udisks2::methodCall(key, interfaceName("Filesystem"), "Unmount", {QVariantMap()}));
        // The latter is what a device without a file system answers.
        if (isError(reply, ".NotMounted") || isError(reply, ".UnknownMethod"))
            return std::nullopt;
        if (isError(reply, ".DeviceBusy") && !patience.hasExpired()) {
            QThread::msleep(pauseMs);
            continue;
        }
        if (auto error = errorOf(reply, "unmount"))
            return error;
    }
}

std::optional<DeviceError> UDisks2DeviceAccess::unmount(const TKUSBDiskEntity& volume)
{
    if (volume.mediaWhole()) {
        // Not all are in the same drive: the service joins readers with the same serial number.
        const udisks2::ManagedObjects objects = udisks2::managedObjects(m_bus);
        for (auto object = objects.begin(); object != objects.end(); ++object) {
            if (!udisks2::isPartitionOf(*object, volume.key()) || udisks2::mountPoints(*object).empty())
                continue;
            if (auto error = unmountOne(object.key().path()))
                return error;
        }
    }
    return unmountOne(volume.key());
}

std::optional<DeviceError> UDisks2DeviceAccess::openForWriting(const QString& key, DeviceDescriptor& opened)
{
    const QDBusMessage reply = callWithPassword(
        m_bus, udisks2::methodCall(
                   key, interfaceName("Block"), "OpenDevice",
                   {QStringLiteral("rw"), QVariantMap{{QStringLiteral("flags"), O_EXCL | O_CLOEXEC}}}));
    if (auto error = errorOf(reply, "open")) {
        const auto volume = udisks2::describe(udisks2::managedObjects(m_bus), QDBusObjectPath(key));
        if (error->kind == Kind::Other && volume && !volume->deviceWritable)
            error->kind = Kind::WriteProtected;
        if (!volume)
            error->kind = Kind::Gone;
        return error;
    }
    const QVariantList arguments = reply.arguments();
    const auto handed = arguments.isEmpty() ? QDBusUnixFileDescriptor()
                                            : arguments.constFirst().value<QDBusUnixFileDescriptor>();
    opened = DeviceDescriptor(handed.isValid() ? ::fcntl(handed.fileDescriptor(), F_DUPFD_CLOEXEC, 3) : -1);
    if (!opened)
        return DeviceError{Kind::Other, QStringLiteral("OpenDevice: no descriptor")};
    return std::nullopt;
}

/// The service may report a mount after it has answered the call.
void UDisks2DeviceAccess::waitForMountPoint(const QString& key) const
{
    const QDeadlineTimer patience(mountedPatienceMs);
    while (udisks2::mountPoints(udisks2::managedObjects(m_bus).value(QDBusObjectPath(key))).empty() &&
           !patience.hasExpired())
        QThread::msleep(pauseMs);
}

std::optional<DeviceError> UDisks2DeviceAccess::mount(const QString& key, const QString& fileSystemId)
{
    // Udev reads the device when its last writer closes it. This triggers it again. Not worth a password.
    const QVariantMap unasked{{QStringLiteral("auth.no_user_interaction"), true}};
    udisks2::call(m_bus, key, interfaceName("Block"), "Rescan", {unasked}, changeTimeoutMs);
    const QDeadlineTimer patience(noticePatienceMs);
    while (true) {
        const auto volume = udisks2::describe(udisks2::managedObjects(m_bus), QDBusObjectPath(key));
        const bool noticed = volume && (fileSystemId.isEmpty() || volume->fileSystemId == fileSystemId);
        if (!volume && (fileSystemId.isEmpty() || patience.hasExpired()))
            return DeviceError{Kind::Gone, {}};
        if (noticed || patience.hasExpired()) {
            const QDBusMessage reply = udisks2::call(m_bus, key, interfaceName("Filesystem"), "Mount",
                                                     {QVariantMap()}, changeTimeoutMs);
            // An automounting desktop may have been faster.
            const auto error = isError(reply, ".AlreadyMounted") ? std::nullopt : errorOf(reply, "mount");
            if (!error)
                waitForMountPoint(key);
            if (!error || error->kind != Kind::Gone || fileSystemId.isEmpty() || patience.hasExpired())
                return error;
        }
        QThread::msleep(pauseMs);
    }
}

} // namespace marvo
