// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/BlockDevices.h"
#include "card/disks/UDisks2Disks.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

using namespace marvo;

/// A machine without a system bus, and one whose bus knows no disk service.
class TestNoDisks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void systemPaths()
    {
        for (const char* path : {"/", "/home", "/boot", "/boot/efi", "/usr", "/var/lib", "/run/live/medium"})
            QVERIFY2(isSystemPath(path), path);
        for (const char* path :
             {"/media/me/MARVO", "/run/media/me/MARVO", "/mnt", "/home/me/card", "/bootleg"})
            QVERIFY2(!isSystemPath(path), path);
    }

    void mountAndSwapTables()
    {
        const auto mounts =
            readMountLines("36 35 8:17 /sub /media/a\\040b\\134 rw,noatime shared:1 - vfat /dev/sdb1 rw\n"
                           "cut off\n"
                           "37 35 0:50 / / rw - btrfs /dev/sda2 rw");
        QCOMPARE(mounts.size(), std::size_t{2});
        QCOMPARE(mounts[0].path, std::string("/media/a b\\"));
        QCOMPARE(mounts[0].device, std::uint64_t{8 << 8 | 17});
        QCOMPARE(mounts[1].source, std::string("/dev/sda2"));
        QCOMPARE(readSwapPaths("Filename Type Size\n/swap\\040file file 1\n").front(),
                 std::string("/swap file"));
        QVERIFY2(carriesSystem(0), "what the system does not know is not formatted");
    }

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
#include "NoDiskServiceTest.moc"
