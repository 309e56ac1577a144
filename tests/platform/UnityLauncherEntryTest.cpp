// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/UnityLauncherEntry.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QtTest>

using namespace marvo;

/// A dock on a session bus of the test's own.
class LauncherEntryTest : public QObject
{
    Q_OBJECT

public:
    Q_SLOT void update(const QString& appUri, const QVariantMap& properties)
    {
        m_told << QStringLiteral("%1 %2 %3")
                      .arg(appUri, properties.value(QStringLiteral("progress")).toString(),
                           properties.value(QStringLiteral("progress-visible")).toString());
    }

private:
    QStringList m_told;

private Q_SLOTS:
    void progressReachesADock()
    {
        QDBusConnection dock =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("dock"));
        QVERIFY(dock.connect(QString(), QString(), QStringLiteral("com.canonical.Unity.LauncherEntry"),
                             QStringLiteral("Update"), this, SLOT(update(QString, QVariantMap))));
        // Once the bus has answered, it also knows what the dock listens to.
        QVERIFY(dock.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.DBus")));
        const UnityLauncherEntry entry(QStringLiteral("marvo"));
        const std::pair<std::optional<double>, QString> rows[] = {{0.25, QStringLiteral("0.25 true")},
                                                                  {7, QStringLiteral("1 true")},
                                                                  {std::nullopt, QStringLiteral("0 false")}};
        for (const auto& [fraction, told] : rows) {
            m_told.clear();
            entry.showProgress(fraction);
            QTRY_COMPARE(m_told, QStringList{QStringLiteral("application://marvo.desktop ") + told});
        }
    }
};

QTEST_GUILESS_MAIN(LauncherEntryTest)
#include "UnityLauncherEntryTest.moc"
