// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "platform/UDisks2Disks.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

using namespace marvo;

/// A machine without a system bus, and one whose bus knows no disk service.
class TestNoDisks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noSystemBus()
    {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no system bus")));
        UDisks2Disks disks;
        QVERIFY(disks.mountedVolumes().empty());
        QVERIFY(disks.usbDiskEntities().empty());
        const TKUSBDiskEntity gone(QStringLiteral("X"), "/nowhere", "/dev/sdx", std::nullopt, 1, true, true,
                                   QStringLiteral("/org/freedesktop/UDisks2/block_devices/sdx"));
        QVERIFY2(disks.renameVolume(gone, QStringLiteral("MARVO")),
                 "no service cannot have renamed anything");
    }
};

QTEST_GUILESS_MAIN(TestNoDisks)
#include "test_nodisks.moc"
