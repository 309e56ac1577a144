// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/Disks.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariant>

#include <vector>

/// The objects of the UDisks2 service on the system bus
/// (http://storaged.org/doc/udisks2-api/latest/), as the classes that ask it share them.
namespace marvo::udisks2 {

using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;

/// To be called once before the first message.
void registerTypes();

QString serviceName();
/// "Block" gives "org.freedesktop.UDisks2.Block".
QString interfaceName(const char* name);
QDBusMessage methodCall(const QString& path, const QString& interface, const char* method,
                        const QVariantList& arguments);
QDBusMessage call(const QDBusConnection& bus, const QString& path, const QString& interface,
                  const char* method, const QVariantList& arguments, int timeoutMs);

/// Every object of the service; none, with one line in the log, when it does not answer.
ManagedObjects managedObjects(const QDBusConnection& bus);
/// False when the service has not answered the last question in time, though it was asked some times.
bool isAnswering();

/// Where a volume is mounted, in the service's order; bytes.
std::vector<std::string> mountPoints(const Interfaces& interfaces);

/// A block device; no mount path yet. None for objects that are none.
std::optional<MountedVolume> describe(const ManagedObjects& objects, const QDBusObjectPath& path);

/// True when the block device is on a medium that can be taken out of its drive, as a card out of its reader,
/// or in a drive for flash cards. An external hard disk, which as a whole can be unplugged, is neither.
bool isOnCard(const ManagedObjects& objects, const QDBusObjectPath& path);

/// True when the block device is a partition of the other one.
bool isPartitionOf(const Interfaces& interfaces, const QString& whole);

} // namespace marvo::udisks2
