// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/UnityLauncherEntry.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QVariantMap>

#include <algorithm>

namespace marvo {

namespace {

/// Without a session bus, asking for it would start a helper program.
bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

UnityLauncherEntry::UnityLauncherEntry(const QString& desktopFileName)
    : m_appUri(QStringLiteral("application://%1.desktop").arg(desktopFileName)),
      // Any path works that no other program uses.
      m_path(QStringLiteral("/com/canonical/unity/launcherentry/%1").arg(qHash(m_appUri, 0)))
{}

void UnityLauncherEntry::showProgress(std::optional<double> fraction) const
{
    if (!hasSessionBus())
        return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    QDBusMessage update = QDBusMessage::createSignal(
        m_path, QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"));
    update << m_appUri
           << QVariantMap{{QStringLiteral("progress"), std::clamp(fraction.value_or(0), 0.0, 1.0)},
                          {QStringLiteral("progress-visible"), fraction.has_value()}};
    bus.send(update);
}

} // namespace marvo
