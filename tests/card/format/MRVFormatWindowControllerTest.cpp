// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "FormatStage.h"
#include "settings/FileData.h"
#include "texts/Localisation.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace marvo;
using namespace marvo::testing;

namespace {

/// Longer than a settings record, and no valid one.
QByteArray oddSettings()
{
    QByteArray bytes;
    for (int i = 0; i < 300; ++i)
        bytes.append(static_cast<char>(i * 7));
    return bytes;
}

} // namespace

/// Formatting as a person does it: real disk service, real question for the password, real images, which
/// other programs judge. usb-card-session.sh brings the cards.
class TestFormat : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<FormatStage> m_stage = std::make_unique<FormatStage>();
    bool m_hasVfat = false;

    QString display(const StageCard& card)
    {
        for (const FormattableVolume& volume : m_stage->disks().deviceAccess()->formattableVolumes()) {
            if (QString::fromStdString(volume.entity.deviceFilePath()) == card.device)
                return volume.entity.displayString();
        }
        return {};
    }

    /// Mounts a card, with settings on it if there are any, and opens the dialog on it.
    MRVFormatWindowController* openOn(const StageCard& card, const QByteArray& settings = {})
    {
        if (!settings.isEmpty() && !m_stage->putFile(card, QStringLiteral("config.bin"), settings))
            return nullptr;
        return m_stage->mount(card) ? m_stage->open(card) : nullptr;
    }

    /// What formatting ends with where all went well.
    bool isCompleted()
    {
        return m_stage->message().section(QLatin1Char('\n'), 0, 0) == localised("msg.format_complete");
    }

    QByteArray fileOn(const StageCard& card, const char* name)
    {
        return QByteArray::fromBase64(m_stage->root()
                                          .output(QStringLiteral("mtype -i %1 ::%2 2>/dev/null | base64 -w0")
                                                      .arg(card.device, QLatin1String(name)))
                                          .toLatin1());
    }

    /// What mtools and fsck.fat say of a card, unmounted.
    void judge(const StageCard& card, int sectorsPerCluster, int hiddenSectors)
    {
        m_stage->root().run(QStringLiteral("umount %1 2>/dev/null; sync %1").arg(card.device));
        // The driver in user space takes its mark of use away a moment after the unmount.
        QVERIFY(m_stage->root().run(
            QStringLiteral("for i in {1..25}; do fsck.fat -n %1 >/dev/null && break; sleep 0.2; done; "
                           "fsck.fat -n %1")
                .arg(card.device)));
        const QString info =
            m_stage->root().output(QStringLiteral("minfo -i %1 :: 2>/dev/null").arg(card.device));
        const QString wanted = QStringLiteral("cluster size: %1 sectors|reserved (boot) sectors: 32|fats: 2|"
                                              "hidden sectors: %2|disk label=\"MARVO      \"|"
                                              "disk type=\"FAT32   \"|backup boot sector=6")
                                   .arg(sectorsPerCluster)
                                   .arg(hiddenSectors);
        for (const QString& line : wanted.split(QLatin1Char('|')))
            QVERIFY2(info.contains(line), qUtf8Printable(line + QLatin1Char('\n') + info));
        QVERIFY(m_stage->root()
                    .output(QStringLiteral("mlabel -s -i %1 :: 2>/dev/null").arg(card.device))
                    .endsWith(QStringLiteral("MARVO")));
        QVERIFY2(
            m_stage->root().run(
                QStringLiteral("cmp <(head -c 512 %1) <(head -c 3584 %1 | tail -c 512)").arg(card.device)),
            "backup boot sector");
    }

    void judgeFolders(const StageCard& card, const QByteArray& settings)
    {
        QCOMPARE(fileOn(card, "config.bin"), settings);
        const QString folders =
            m_stage->root().output(QStringLiteral("mdir -b -i %1 :: 2>/dev/null").arg(card.device));
        for (const char* folder : {"AlwaysMovie/", "EventMovie/", "MotionMovie/"})
            QVERIFY2(folders.contains(QLatin1String(folder)), qUtf8Printable(folders));
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(installLanguage(InterfaceLanguage::English));
        QVERIFY(m_stage->begin());
        QFile systems(QStringLiteral("/proc/filesystems"));
        m_hasVfat = systems.open(QIODevice::ReadOnly) && systems.readAll().contains("vfat");
    }
    void init() { m_stage->reset(); }
    void cleanupTestCase()
    {
        m_stage->reset();
        m_stage.reset();
    }

    void noCard()
    {
        QVERIFY(m_stage->open({}));
        QCOMPARE(m_stage->find<QLabel>("allocationUnitField")->text(), QStringLiteral("64KB"));
        m_stage->click("formatButton");
        QCOMPARE(m_stage->message(), QStringLiteral("MARVO\nThere is no USB drive."));
    }

    void aBusyServiceIsNoMissingCard()
    {
        QVERIFY(m_stage->root().run(QStringLiteral("pkill -STOP -x udisksd")));
        m_stage->open({}); // which waits in vain for the list
        auto* cards = m_stage->find<QComboBox>("usbDiskCombo");
        const QString noAnswer = QStringLiteral("The disk service does not answer. It is asked again.");
        const bool isTold = QTest::qWaitFor([&] { return cards->placeholderText() == noAnswer; }, 15'000);
        QVERIFY(m_stage->root().run(QStringLiteral("pkill -CONT -x udisksd")));
        QVERIFY(isTold);
        QTRY_VERIFY_WITH_TIMEOUT(cards->placeholderText() != noAnswer, 15'000); // it is asked again by itself
    }

    void cancelIsTheDefaultOfTheWarning()
    {
        const StageCard card = m_stage->card("WHOLE");
        for (const char* name : {"alwa_20260101_120000_F.avi", "event_20260101_120000.avi"})
            QVERIFY(m_stage->putFile(card, QLatin1String(name), QByteArray(3000, 'x')));
        QVERIFY(m_stage->mount(card));
        const QString digest = m_stage->digest(card);
        const QString shown = display(card);
        QVERIFY(m_stage->open(card));
        m_stage->click("formatButton");
        QTRY_VERIFY(m_stage->find("warningSheet"));
        auto* sheet = m_stage->find<QMessageBox>("warningSheet");
        QVERIFY2(sheet->informativeText().contains(shown) &&
                     sheet->informativeText().contains(QStringLiteral("2 recordings, ")),
                 qUtf8Printable(sheet->informativeText()));
        const auto* text = sheet->findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
        QVERIFY2(text->textFormat() == Qt::PlainText, "a label may look like tags");
        QVERIFY(QTest::qWaitForWindowActive(sheet));
        QTest::keyClick(sheet, Qt::Key_Return);
        QTRY_VERIFY(m_stage->find("formatButton")->isEnabled());
        QVERIFY2(m_stage->asked().isEmpty(), "nobody may be asked for a password");
        QCOMPARE(m_stage->digest(card), digest);
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("hook"); // what happens to the card %1 with the image %2 meanwhile
        QTest::addColumn<QString>("messageKey");
        const QString nothing;
        QTest::newRow("refused") << QStringLiteral("no") << nothing << QStringLiteral("msg.format.refused");
        QTest::newRow("dismissed") << QStringLiteral("dismiss") << nothing
                                   << QStringLiteral("msg.format.dismissed");
        QTest::newRow("write-protected meanwhile")
            << QStringLiteral("yes") << QStringLiteral("blockdev --setro %1 # %2")
            << QStringLiteral("msg.write_protected_disk");
        QTest::newRow("another card of the same size")
            << QStringLiteral("yes") << QStringLiteral("losetup -d %1; losetup %1 %2")
            << QStringLiteral("msg.format.changed");
        QTest::newRow("pulled out") << QStringLiteral("yes") << QStringLiteral("losetup -d %1 # %2")
                                    << QStringLiteral("msg.format.changed");
    }
    void refusals()
    {
        QFETCH(QString, answer);
        QFETCH(QString, hook);
        QFETCH(QString, messageKey);
        const StageCard card = m_stage->card("SMALL");
        QVERIFY(openOn(card, oddSettings()));
        const QString digest = m_stage->digest(card);
        const QString shown = display(card);
        m_stage->setAnswer(answer, hook.isEmpty() ? hook : hook.arg(card.device, card.image));
        m_stage->format();
        QCOMPARE(
            m_stage->message(),
            QStringLiteral("%1\n%2\n%3").arg(localised("msg.cannot_format"), shown, localised(messageKey)));
        QCOMPARE(m_stage->asked(), QStringLiteral("org.freedesktop.udisks2.open-device"));
        if (hook.isEmpty())
            QVERIFY2(!display(card).isEmpty(), "the card must be mounted again");
        m_stage->putBack();
        QCOMPARE(m_stage->digest(card), digest);
    }

    void writeProtectedCardIsNotAskedAbout()
    {
        const StageCard card = m_stage->card("SMALL");
        m_stage->root().run(QStringLiteral("blockdev --setro %1").arg(card.device));
        m_stage->trigger(card, "change");
        QVERIFY(m_stage->mount(card));
        QVERIFY(m_stage->open(card));
        m_stage->click("formatButton");
        QCOMPARE(m_stage->message(), QStringLiteral("%1\n%2\n%3")
                                         .arg(localised("msg.cannot_format"), display(card),
                                              localised("msg.write_protected_disk")));
    }

    void busyCardStaysAsItIs()
    {
        const StageCard card = m_stage->card("SMALL");
        MRVFormatWindowController* dialog = openOn(card);
        const QString digest = m_stage->digest(card);
        const QString shown = display(card);
        QVERIFY(dialog);
        QFile inUse(QString::fromStdString(dialog->selectedUSBDisk()->entity.rootFile("config.bin")));
        QVERIFY(inUse.open(QIODevice::ReadOnly));
        m_stage->format();
        QCOMPARE(m_stage->message(),
                 QStringLiteral("%1\n%2\nError:%3")
                     .arg(localised("msg.cannot_format"), shown, localised("msg.format.busy")));
        QVERIFY(m_stage->asked().isEmpty());
        QCOMPARE(m_stage->digest(card), digest);
    }

    void waitingForThePasswordCanBeAbandoned()
    {
        const StageCard card = m_stage->card("SMALL");
        MRVFormatWindowController* dialog = openOn(card);
        const QString digest = m_stage->digest(card);
        QVERIFY(dialog);
        m_stage->setAnswer(QStringLiteral("wait"));
        m_stage->format();
        QTRY_VERIFY(!m_stage->asked().isEmpty());
        m_stage->click("cancelButton");
        QTRY_VERIFY(!dialog->isVisible());
        m_stage->setAnswer(QStringLiteral("yes"));
        QTRY_VERIFY2(!display(card).isEmpty(), "the card must be mounted again");
        QCOMPARE(m_stage->digest(card), digest);
    }

    void cardOfAnotherUser()
    {
        const StageCard card = m_stage->card("SMALL");
        QVERIFY(m_stage->root().run(QStringLiteral("udisksctl mount -b %1").arg(card.device)));
        QTRY_VERIFY(!display(card).isEmpty());
        const QString digest = m_stage->digest(card);
        QVERIFY(m_stage->open(card));
        m_stage->setAnswer(QStringLiteral("no"));
        m_stage->click("formatButton");
        QTRY_VERIFY(m_stage->find("warningSheet"));
        const QString warning = m_stage->find<QMessageBox>("warningSheet")->informativeText();
        QVERIFY2(warning.contains(localised("format.contents.unknown")) &&
                     warning.contains(localised("msg.format.settings_lost")),
                 qUtf8Printable(warning));
        m_stage->click("confirmButton");
        QVERIFY(m_stage->message().endsWith(localised("msg.format.refused")));
        QCOMPARE(m_stage->asked(), QStringLiteral("org.freedesktop.udisks2.filesystem-unmount-others"));
        QCOMPARE(m_stage->digest(card), digest);
    }

    void formats_data()
    {
        QTest::addColumn<QByteArray>("label");
        QTest::addColumn<int>("clusterSize");
        QTest::addColumn<int>("hiddenSectors");
        QTest::addColumn<QByteArray>("settings"); // on the card before; empty for none
        QTest::newRow("1.1 GiB, settings kept") << QByteArray("WHOLE") << 32 << 0 << oddSettings();
        QTest::newRow("partition, no settings") << QByteArray("PART") << 32 << 2048 << QByteArray();
        // Of 600 MiB, which is fewer sectors a cluster.
        QTest::newRow("no place for the copy") << QByteArray("SMALL") << 16 << 0 << oddSettings();
    }
    void formats()
    {
        QFETCH(QByteArray, label);
        QFETCH(int, clusterSize);
        QFETCH(int, hiddenSectors);
        QFETCH(QByteArray, settings);
        const StageCard card = m_stage->card(label.constData());
        if (QTest::currentDataTag() == QByteArray("no place for the copy"))
            qputenv("TMPDIR", "/nonexistent");
        // Another reader comes first in the list, with a card that must stay as it is.
        const StageCard other = m_stage->card(label == "WHOLE" ? "SMALL" : "WHOLE");
        QVERIFY(m_stage->mount(other));
        const QString otherDigest = m_stage->digest(other);
        MRVFormatWindowController* dialog = openOn(card, settings);
        QVERIFY(dialog);
        QCOMPARE(dialog->usbDiskArray().size(), std::size_t{2});
        QCOMPARE(m_stage->find<QLabel>("allocationUnitField")->text(),
                 QStringLiteral("%1 KB").arg(clusterSize));
        QStringList steps;
        bool closedWhileWriting = false;
        connect(dialog, &MRVFormatWindowController::stepShown, dialog,
                [&](const QString& message, const QString& detail) {
                    if (steps.isEmpty() || steps.last() != message)
                        steps.append(message);
                    if (detail == localised("format.step.readback"))
                        closedWhileWriting = dialog->close() || m_stage->find("cancelButton")->isEnabled();
                });
        m_stage->format();
        QVERIFY(isCompleted());
        QVERIFY(!closedWhileWriting);
        QVERIFY2(!dialog->isVisible(), "the last message closes the dialog");
        QCOMPARE(steps.join(QLatin1Char('|')),
                 QStringLiteral("Disk searching...|Formatting...|unmount disk...|formatting...|try mount...|"
                                "Format completed!|Disk searching..."));
        QCOMPARE(QString::fromStdString(dialog->selectedUSBDisk()->entity.deviceFilePath()), card.device);
        judge(card, clusterSize, hiddenSectors);
        judgeFolders(card, settings.isEmpty() ? QByteArray::fromStdString(newCameraSettings()) : settings);
        QCOMPARE(m_stage->digest(other), otherDigest);
    }

    void sixteenGigabytes()
    {
        const StageCard card = m_stage->card("LARGE");
        MRVFormatWindowController* dialog = openOn(card, oddSettings());
        QVERIFY(dialog);
        QCOMPARE(m_stage->find<QLabel>("allocationUnitField")->text(), QStringLiteral("128 KB"));
        connect(dialog, &MRVFormatWindowController::stepShown, dialog, [&](const QString& message) {
            if (message == QStringLiteral("try mount..."))
                judge(card, 128, 0);
        });
        m_stage->format();
        const QString message = m_stage->message();
        // The FAT driver that stands in for the kernel's cannot mount clusters as large as these.
        if (m_hasVfat) {
            QCOMPARE(message.section(QLatin1Char('\n'), 0, 0), localised("msg.format_complete"));
        } else {
            QVERIFY2(message.startsWith(QStringLiteral("config.bin copy fail\n")), qUtf8Printable(message));
            QFile kept(message.section(QLatin1Char('\n'), -1));
            QVERIFY2(kept.open(QIODevice::ReadOnly), qUtf8Printable(message));
            QCOMPARE(kept.readAll(), oddSettings());
        }
    }

    void failingCardCanBeFormattedAgain()
    {
        const StageCard card = m_stage->card("WHOLE");
        MRVFormatWindowController* dialog = openOn(card, oddSettings());
        const QString shown = display(card);
        QVERIFY(dialog);
        QMetaObject::Connection breaking = connect(dialog, &MRVFormatWindowController::stepShown, dialog,
                                                   [&](const QString&, const QString& detail) {
                                                       if (detail == localised("format.step.write"))
                                                           m_stage->breakMedium(card);
                                                   });
        m_stage->format();
        const QString message = m_stage->message();
        QVERIFY2(message.startsWith(QStringLiteral("%1\n%2\nError:Input/output error\n")
                                        .arg(localised("msg.cannot_format"), shown)),
                 qUtf8Printable(message));
        disconnect(breaking);
        m_stage->mendMedium(card);
        QVERIFY2(
            m_stage->root().output(QStringLiteral("head -c 512 %1 | tr -d '\\0' | wc -c").arg(card.device)) ==
                QStringLiteral("0"),
            "a half-written card must not look like a whole one");

        // An attempt that comes to nothing is not the last one either.
        m_stage->setAnswer(QStringLiteral("dismiss"));
        QCOMPARE(dialog->usbDiskArray().size(), std::size_t{1});
        m_stage->format();
        QVERIFY(m_stage->message().endsWith(localised("msg.format.dismissed")));
        m_stage->setAnswer(QStringLiteral("yes"));
        QCOMPARE(dialog->usbDiskArray().size(), std::size_t{1});
        m_stage->format();
        QVERIFY(isCompleted());
        judge(card, 32, 0);
        judgeFolders(card, oddSettings());
    }

    void settingsThatCouldNotBePutBackAreNotForgotten()
    {
        const StageCard card = m_stage->card("WHOLE");
        QVERIFY(m_stage->mount(m_stage->card("SMALL")));
        MRVFormatWindowController* dialog = openOn(card, oddSettings());
        QVERIFY(dialog);
        bool takeAway = true;
        connect(dialog, &MRVFormatWindowController::stepShown, dialog,
                [&](const QString&, const QString& detail) {
                    if (takeAway && detail == localised("format.step.restore"))
                        m_stage->root().run(QStringLiteral("umount %1").arg(card.device));
                });
        m_stage->format();
        const QString message = m_stage->message();
        QVERIFY2(message.startsWith(QStringLiteral("config.bin copy fail\n")), qUtf8Printable(message));
        takeAway = false;
        QCOMPARE(QString::fromStdString(dialog->selectedUSBDisk()->entity.deviceFilePath()), card.device);
        m_stage->format();
        QVERIFY(isCompleted());
        judgeFolders(card, oddSettings());
    }

    void cardPulledOutInTheMiddle_data()
    {
        QTest::addColumn<QString>("at");
        QTest::addColumn<QString>("message");
        QTest::newRow("before the first byte")
            << localised("format.step.write") << localised("msg.format.changed");
        QTest::newRow("after the last")
            << localised("format.step.readback") << localised("msg.format.removed");
    }
    void cardPulledOutInTheMiddle()
    {
        QFETCH(QString, at);
        QFETCH(QString, message);
        const StageCard card = m_stage->card("PART");
        QVERIFY(m_stage->mount(m_stage->card("SMALL")));
        QVERIFY(m_stage->mount(card));
        const QString shown = display(card);
        MRVFormatWindowController* dialog = m_stage->open(card);
        QVERIFY(dialog);
        connect(dialog, &MRVFormatWindowController::stepShown, dialog,
                [&](const QString&, const QString& detail) {
                    if (detail == at) {
                        m_stage->root().run(QStringLiteral("fallocate -p -o 0 -l 16M %1").arg(card.image));
                        m_stage->trigger(card, "remove");
                        // The disk service hears of it a moment later.
                        const QDeadlineTimer patience(5000);
                        while (m_stage->disks().deviceAccess()->identify(card.key()) &&
                               !patience.hasExpired())
                            QTest::qSleep(10);
                    }
                });
        m_stage->format();
        const QString told = m_stage->message();
        QVERIFY2(
            told.startsWith(QStringLiteral("%1\n%2\n%3").arg(localised("msg.cannot_format"), shown, message)),
            qUtf8Printable(told));
        QCOMPARE(m_stage->find<QComboBox>("usbDiskCombo")->count(), 1);
        m_stage->trigger(m_stage->card("SMALL"), "change");
        QTest::qWait(400); // the cards are listed once more
        m_stage->click("formatButton");
        QCOMPARE(m_stage->message(), QStringLiteral("MARVO\nPlease select USB drive."));
        QVERIFY(dialog->close());
        m_stage->root().run(QStringLiteral("mkfs.fat -F 32 -n PART %1").arg(card.device));
        m_stage->trigger(card, "add");
    }
};

int main(int argc, char** argv)
{
    // The display is opened while this is still the administrator, who may.
    QApplication application(argc, argv);
    TestFormat test;
    return QTest::qExec(&test, argc, argv);
}
#include "MRVFormatWindowControllerTest.moc"
