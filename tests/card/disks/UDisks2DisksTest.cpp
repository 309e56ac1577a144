// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/disks/UDisks2Disks.h"
#include "card/disks/FolderDisks.h"

#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace marvo;

/// The real disk service with a card in a "USB reader"; usb-card-session.sh brings both.
class TestDisks : public QObject
{
    Q_OBJECT

private:
    QString m_device = qEnvironmentVariable("MARVO_TEST_DEVICE");

    bool disksCommand(const QStringList& words)
    {
        QProcess process;
        process.start(QStringLiteral("udisksctl"), words + QStringList{QStringLiteral("-b"), m_device});
        return process.waitForFinished() && process.exitCode() == 0;
    }

    std::optional<TKUSBDiskEntity> card(const Disks& disks)
    {
        for (const TKUSBDiskEntity& entity : disks.usbDiskEntities()) {
            if (QString::fromStdString(entity.deviceFilePath()) == m_device)
                return entity;
        }
        return std::nullopt;
    }

private Q_SLOTS:
    void cardIsListedWhileMounted()
    {
        UDisks2Disks disks;
        QVERIFY2(!card(disks), "a volume that is not mounted is no place to look for files");

        QSignalSpy changed(&disks, &Disks::volumesChanged);
        QVERIFY(disksCommand({QStringLiteral("mount")}));
        QVERIFY(changed.wait());
        const auto entity = card(disks);
        QVERIFY(entity);
        QCOMPARE(entity->volumeName(), QStringLiteral("OLDNAME"));
        QCOMPARE(entity->volumeSize(), qEnvironmentVariable("MARVO_TEST_DEVICE_SIZE").toULongLong());
        QCOMPARE(entity->deviceModel().value_or(QString()), QStringLiteral("Card Reader"));
        QVERIFY(entity->writable());
        QVERIFY(entity->mediaWhole());
        QVERIFY(QDir(QString::fromStdString(entity->mountedURL())).exists());
    }

    void anExternalHardDiskIsNoCardToFormat()
    {
        UDisks2Disks disks;
        const QString disk = qEnvironmentVariable("MARVO_TEST_CARD_DISK").section(QLatin1Char(' '), 0, 0);
        const QStringList mount{QStringLiteral("mount"), QStringLiteral("-b"), disk};
        QCOMPARE(QProcess::execute(QStringLiteral("udisksctl"), mount), 0);
        QTRY_COMPARE(disks.usbDiskEntities().size(), std::size_t{2});
        const auto volumes = disks.deviceAccess()->formattableVolumes();
        QCOMPARE(volumes.size(), std::size_t{1});
        QCOMPARE(QString::fromStdString(volumes.front().entity.deviceFilePath()), m_device);
        QVERIFY(!disks.deviceAccess()->identify(QStringLiteral("/org/freedesktop/UDisks2/block_devices/") +
                                                QFileInfo(disk).fileName()));
    }

    void renamedCardIsMountedAgain()
    {
        UDisks2Disks disks;
        const auto before = card(disks);
        QVERIFY(before);
        QFile kept(QString::fromStdString(before->rootFile("kept.txt")));
        QVERIFY(kept.open(QIODevice::WriteOnly) && kept.write("kept") == 4);
        kept.close();

        const auto error = disks.renameVolume(*before, QStringLiteral("MARVO"));
        QVERIFY2(!error, qUtf8Printable(error.value_or(QString())));
        const auto after = card(disks);
        QVERIFY(after);
        QCOMPARE(after->volumeName(), QStringLiteral("MARVO"));
        QVERIFY(after->holdsFile("kept.txt"));
    }

    void cardThatCannotBeRenamedStaysAsItIs()
    {
        UDisks2Disks disks;
        const auto before = card(disks);
        QVERIFY(before);
        QVERIFY(disks.renameVolume(*before, QStringLiteral("longer than a label can be")));
        QVERIFY2(card(disks), "it must be mounted again");
        QFile inUse(QString::fromStdString(card(disks)->rootFile("kept.txt")));
        QVERIFY(inUse.open(QIODevice::ReadOnly));
        QVERIFY(disks.renameVolume(*before, QStringLiteral("OTHER")));
        QVERIFY(card(disks));
        QCOMPARE(card(disks)->volumeName(), before->volumeName());
    }

    void removedCardIsNoticed()
    {
        UDisks2Disks disks;
        QSignalSpy changed(&disks, &Disks::volumesChanged);
        QVERIFY(disksCommand({QStringLiteral("unmount")}));
        QVERIFY(changed.wait());
        QVERIFY(!card(disks));
    }

    void folderStandsForACard()
    {
        QTemporaryDir folder;
        FolderDisks disks(folder.path().toStdString());
        const auto entity = findCardDiskEntity(disks.usbDiskEntities());
        QVERIFY(entity);
        QCOMPARE(entity->volumeName(), cardVolumeName());
        QCOMPARE(entity->mountedURL(), folder.path().toStdString());
        folder.remove();
        QVERIFY2(disks.usbDiskEntities().empty(), "a folder that is gone is a card pulled out");
    }
};

QTEST_GUILESS_MAIN(TestDisks)
#include "UDisks2DisksTest.moc"
