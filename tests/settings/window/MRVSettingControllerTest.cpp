// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/MRVSettingController.h"
#include "ActiveWindow.h"
#include "card/disks/FolderDisks.h"
#include "controls/SegmentedControl.h"
#include "logs/LogBytes.h"
#include "logs/window/MRVSettingForFlashDataViewController.h"
#include "MountedFolder.h"
#include "settings/SettingFile.h"
#include "settings/SettingFileWriting.h"
#include "settings/tabs/SettingsTabs.h"
#include "settings/tabs/TabTesting.h"
#include "settings/window/MRVSettingControllerDelegate.h"
#include "settings/window/ObdPreference.h"
#include "settings/window/SettingsTabView.h"
#include "TemporaryFolder.h"
#include "texts/Localisation.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>

#include <memory>
#include <semaphore>

using namespace marvo;
using marvo::test::TemporaryFolder;
using marvo::testing::clickItem;
using marvo::testing::control;

namespace {

enum Segment { Video, Basic, Gps, Aux, Audio, Log, Obd, ObdLog };

struct Viewer : viewControllerForMRVSettingDelegate
{
    std::vector<unsigned int> told;
    void setDisplayMile(unsigned int speedUnit) override { told.push_back(speedUnit); }
};

QByteArray bytesOf(const std::string& path)
{
    QFile file(QFile::decodeName(path.c_str()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const std::string& path, const QByteArray& bytes)
{
    QFile file(QFile::decodeName(path.c_str()));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// A disk service that takes its time and tells what it saw when it was asked.
struct SlowDisks : FolderDisks
{
    using FolderDisks::FolderDisks;
    std::vector<MountedVolume> mountedVolumes() const override
    {
        std::vector<MountedVolume> volumes = FolderDisks::mountedVolumes();
        asked.release();
        answer.acquire();
        return volumes;
    }
    mutable std::counting_semaphore<> asked{0};
    mutable std::counting_semaphore<> answer{0};
};

} // namespace

/// The settings window as a person drives it, on a folder that stands for the card.
class TestSettingsWindow : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TemporaryFolder> m_card;
    std::unique_ptr<FolderDisks> m_disks;
    std::unique_ptr<Viewer> m_viewer;
    QPointer<MRVSettingController> m_window;

    std::string configPath() const { return m_card->path("config.bin"); }

    void openWindow()
    {
        m_window = new MRVSettingController(*m_disks, settingsTabs(), m_viewer.get());
        QSignalSpy loaded(m_window, &MRVSettingController::settingsLoaded);
        m_window->show();
        QVERIFY2(!m_window->findChild<QWidget*>(QStringLiteral("targetView"))->isEnabled(),
                 "nothing may be edited before the card has been read");
        QVERIFY(loaded.wait());
        QTRY_VERIFY(!m_window->findChild<QWidget*>(QStringLiteral("progressPanel"))->isVisible());
        QVERIFY(marvo::testing::showActive(*m_window));
    }

    void press(const char* button) { QTest::mouseClick(&control(*m_window, button), Qt::LeftButton); }
    void keepEarlier(void (*change)(_FILEDATA& record))
    {
        _FILEDATA earlier{};
        QVERIFY(readSettingFile(configPath(), earlier));
        change(earlier);
        QVERIFY(!writeSettingFile(earlier, m_card->path("earlier.bin")));
        QVERIFY(!SettingsBackups().keep(m_card->path("earlier.bin")));
    }
    void restoreNewestCopy()
    {
        m_window->findChild<QAction*>(QStringLiteral("restoreEarlierFile"))->trigger();
        auto* dialog = m_window->findChild<QDialog*>(QStringLiteral("earlierSettingsDialog"));
        QVERIFY(dialog);
        auto* list = dialog->findChild<QListWidget*>();
        QTRY_VERIFY(dialog->isVisible());
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        QTest::keyClick(list, Qt::Key_Return);
    }
    /// Saves, and closes the message that says how that went.
    QString save()
    {
        press("saveButton");
        if (!QTest::qWaitFor([this] { return message() != nullptr; }))
            return QStringLiteral("no message");
        const QString told = message()->text() + QLatin1Char('\n') + message()->informativeText();
        message()->accept();
        return told;
    }
    QString cannotWrite() const { return QStringLiteral("Warn\n") + localised("msg.write_protected_disk"); }
    int shownSegment() const { return marvo::testing::shownItem(*m_window, "functionSegmentedControl"); }
    QMessageBox* message() const { return m_window->findChild<QMessageBox*>(QStringLiteral("messageSheet")); }

private Q_SLOTS:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QDir(SettingsBackups::defaultFolder()).removeRecursively();
        QVERIFY(installLanguage(InterfaceLanguage::English));
        ObdPreference::set(false);
    }

    void init()
    {
        m_card = std::make_unique<TemporaryFolder>();
        m_disks = std::make_unique<FolderDisks>(m_card->path());
        m_viewer = std::make_unique<Viewer>();
        _FILEDATA record{};
        fillDefaultFileDataForLanguage(record, InterfaceLanguage::English);
        record.speedUnit = 1;
        record.deviceParam33 = 0xFFFFFFFF;
        QVERIFY(!writeSettingFile(record, configPath()));
    }

    void cleanup() { delete m_window; }

    void invalidInputKeepsTheTab()
    {
        openWindow();
        QVERIFY(m_window->windowTitle().endsWith(QFile::decodeName(configPath().c_str())));
        QCOMPARE(shownSegment(), static_cast<int>(Video));
        clickItem(*m_window, "functionSegmentedControl", Basic);
        clickItem(*m_window, "gsensorSensitivityDrivingSeg", 5);
        auto& threshold = control<QLineEdit>(*m_window, "gsensorSensitivityThresholdXDrivingField");
        threshold.setText(QStringLiteral("1.6"));

        clickItem(*m_window, "functionSegmentedControl", Gps);
        QCOMPARE(shownSegment(), static_cast<int>(Basic));
        QTRY_VERIFY(message());
        QCOMPARE(message()->text(), QStringLiteral("MARVO"));
        message()->accept();
        QVERIFY(save().startsWith(QStringLiteral("MARVO\n")));
        QVERIFY(m_viewer->told.empty());

        threshold.setText(QStringLiteral("1.5"));
        clickItem(*m_window, "functionSegmentedControl", Gps);
        QCOMPARE(shownSegment(), static_cast<int>(Gps));
        QCOMPARE(m_window->filedata()->drivingThresholdX, 150);
    }

    void saveReplacesTheFileAndClosesTheWindow()
    {
        const QByteArray before = bytesOf(configPath());
        openWindow();
        clickItem(*m_window, "functionSegmentedControl", Gps);
        clickItem(*m_window, "speedDisplayUnitSeg", 0);
        QCOMPARE(save(), QStringLiteral("Information\n") + localised("msg.saved") +
                             QFile::decodeName(configPath().c_str()));
        QCOMPARE(m_viewer->told, std::vector<unsigned int>{0});

        _FILEDATA saved{};
        QVERIFY(readSettingFile(configPath(), saved));
        QCOMPARE(saved.speedUnit, 0U);
        QCOMPARE(saved.deviceParam33, 0xFFFFFFFFU);
        QCOMPARE(saved.checksum, fileDataChecksum(saved));
        const auto copies = SettingsBackups().copies();
        QVERIFY(!copies.empty());
        QCOMPARE(bytesOf(copies.front().path), before);
        QTRY_VERIFY(!m_window);
    }

    void resetIsNotWrittenBeforeASave()
    {
        const QByteArray before = bytesOf(configPath());
        openWindow();
        press("resetButton");
        QCOMPARE(m_window->filedata()->speedUnit, 0U);
        press("cancelButton");
        QTRY_VERIFY(!m_window);
        QCOMPARE(bytesOf(configPath()), before);
        QVERIFY(m_viewer->told.empty());
    }

    void whatIsNoSettingsFileIsNotRead()
    {
        for (const int size : {0, 271, 273}) {
            writeBytes(configPath(), QByteArray(size, '\xFF'));
            openWindow();
            QVERIFY(!m_window->windowTitle().contains(QLatin1String("config.bin")));
            QCOMPARE(m_window->filedata()->videoBitrate, 9000U);
            // The lookup still finds the card, so that a save mends it.
            QVERIFY(save().startsWith(QStringLiteral("Information\n")));
            QCOMPARE(bytesOf(configPath()).size(), qsizetype{272});
            QTRY_VERIFY(!m_window);
        }
    }

    // A card of unknown origin may point its "config.bin" anywhere.
    void folderOrLinkInTheFilesPlaceIsAWarning()
    {
        const std::string elsewhere = m_card->path("elsewhere.txt");
        writeBytes(elsewhere, "the user's own");
        QVERIFY(QFile::remove(QFile::decodeName(configPath().c_str())));
        QVERIFY(::symlink(elsewhere.c_str(), configPath().c_str()) == 0);
        openWindow();
        QCOMPARE(save(), cannotWrite());
        QCOMPARE(bytesOf(elsewhere), QByteArray("the user's own"));
        QVERIFY(QFile::remove(QFile::decodeName(configPath().c_str())));
        m_card->makeFolder("config.bin/inside");
        QTRY_VERIFY(!message());
        QCOMPARE(save(), cannotWrite());
        QVERIFY(m_viewer->told.empty());
        QVERIFY2(m_window && m_window->isVisible(), "the user can try again");
        QVERIFY(QDir(QFile::decodeName(m_card->path("config.bin/inside").c_str())).exists());
    }

    void cardThatTakesNothingIsAWarning_data()
    {
        QTest::addColumn<bool>("full");
        QTest::newRow("full") << true;
        QTest::newRow("read-only") << false;
    }

    void cardThatTakesNothingIsAWarning()
    {
        QFETCH(bool, full);
        const QByteArray before = bytesOf(configPath());
        test::MountedFolder mounted(m_card->path());
        if (!mounted.isMounted)
            QSKIP("mounting takes the rights of an administrator");
        writeBytes(configPath(), before);
        QVERIFY(full ? mounted.fill() : mounted.makeReadOnly());
        openWindow();
        clickItem(*m_window, "functionSegmentedControl", Gps);
        clickItem(*m_window, "speedDisplayUnitSeg", 0);
        QCOMPARE(save(), cannotWrite());
        QVERIFY(m_viewer->told.empty());
        QCOMPARE(bytesOf(configPath()), before);
        const QDir card(QFile::decodeName(m_card->path().c_str()));
        QVERIFY2(card.entryList({QStringLiteral(".marvo*")}, QDir::Files | QDir::Hidden).isEmpty(),
                 "a temporary stays");
        QVERIFY2(m_window && m_window->isVisible(), "the user can try again");
        QCOMPARE(m_window->filedata()->speedUnit, 0U);
    }

    void earlierFileIsRestoredIntoTheWindow()
    {
        keepEarlier([](_FILEDATA& earlier) { earlier.videoBitrate = 7000; });
        const QByteArray before = bytesOf(configPath());
        openWindow();
        restoreNewestCopy();
        QTRY_COMPARE(m_window->filedata()->videoBitrate, 7000U);
        QCOMPARE(bytesOf(configPath()), before); // not before a save
    }

    void drivingLogsHaveTheirTabs()
    {
        m_card->write("DrvInfo/marvo_000.drv", test::drivingLog(7, 7));
        openWindow();
        auto& bar = control<SegmentedControl>(*m_window, "functionSegmentedControl");
        QCOMPARE(bar.labels().size(), 6);
        m_window->findChild<QAction*>(QStringLiteral("obdAdapter"))->trigger();
        QCOMPARE(bar.labels().mid(6), QStringList({QStringLiteral("OBD"), QStringLiteral("OBD log")}));

        clickItem(*m_window, "functionSegmentedControl", Log);
        auto* view = m_window->findChild<MRVSettingForFlashDataViewController*>();
        QVERIFY(view);
        QTRY_COMPARE(view->flashDataNum(), std::int64_t{7});
        clickItem(*m_window, "functionSegmentedControl", ObdLog);
        QVERIFY(!view->isVisible());
        clickItem(*m_window, "functionSegmentedControl", Log);
        QCOMPARE(m_window->findChild<MRVSettingForFlashDataViewController*>(), view);
        QVERIFY2(view->isVisible() && view->flashDataNum() == 7, "it is kept, and not read again");
        clickItem(*m_window, "functionSegmentedControl", ObdLog);
        m_window->findChild<QAction*>(QStringLiteral("obdAdapter"))->trigger();
        QCOMPARE(shownSegment(), static_cast<int>(Video));
    }

    void escapeAsksOnlyAboutChanges()
    {
        const QByteArray before = bytesOf(configPath());
        const auto sheet = [this] {
            return m_window->findChild<QMessageBox*>(QStringLiteral("unsavedSheet"));
        };
        openWindow();
        clickItem(*m_window, "functionSegmentedControl", Gps);
        clickItem(*m_window, "speedDisplayUnitSeg", 0);
        clickItem(*m_window, "speedDisplayUnitSeg", 1); // as it was
        QTest::keyClick(m_window, Qt::Key_Escape);
        QTRY_VERIFY(!m_window);

        openWindow();
        clickItem(*m_window, "functionSegmentedControl", Gps);
        clickItem(*m_window, "speedDisplayUnitSeg", 0);
        for (const char* answer : {"keepEditingButton", "discardChangesButton"}) {
            QVERIFY(m_window && !sheet());
            QTest::keyClick(m_window, Qt::Key_W, Qt::ControlModifier);
            QTRY_VERIFY(sheet() && sheet()->isVisible());
            QTest::mouseClick(&control(*sheet(), answer), Qt::LeftButton);
            QTest::qWait(20);
        }
        QTRY_VERIFY(!m_window);
        QCOMPARE(bytesOf(configPath()), before);

        openWindow();
        clickItem(*m_window, "functionSegmentedControl", Gps);
        clickItem(*m_window, "speedDisplayUnitSeg", 0);
        QTest::keyClick(m_window, Qt::Key_Escape);
        QTRY_VERIFY(sheet() && sheet()->isVisible());
        QTest::keyClick(sheet(), Qt::Key_Return);
        QTRY_VERIFY(message());
        message()->accept();
        QTRY_VERIFY(!m_window);
        QCOMPARE(m_viewer->told, std::vector<unsigned int>{0});
    }

    void aSmallWindowScrollsToWhatHasTheKeyboard()
    {
        openWindow();
        clickItem(*m_window, "functionSegmentedControl", Basic);
        m_window->resize(700, 400);
        QVERIFY(m_window->height() < 450);
        control(*m_window, "powerTimeCombo").setFocus();
        for (const char* name : {"useExternalPowerChk", "saveButton"}) {
            for (int i = 0; i < 5 && !control(*m_window, name).hasFocus(); ++i)
                QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
            QVERIFY(control(*m_window, name).hasFocus());
            QVERIFY(!control(*m_window, name).visibleRegion().isEmpty());
        }
        // The wheel scrolls, and leaves a box below the pointer as it is.
        auto& voltage = control<QComboBox>(*m_window, "powerVoltageCombo");
        const int before = voltage.currentIndex();
        QWheelEvent turn(QPointF(5, 5), voltage.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(&voltage, &turn);
        QCOMPARE(voltage.currentIndex(), before);
    }

    void aFileOfTheUsersIsEditedInPlace()
    {
        const QByteArray card = bytesOf(configPath());
        const std::string real = m_card->path("copy.bin"), link = m_card->path("link.bin");
        writeBytes(real, card);
        QVERIFY(::symlink(real.c_str(), link.c_str()) == 0);
        const auto open = [this](const std::string& path) {
            m_window->findChild<QAction*>(QStringLiteral("openSettingsFile"))->trigger();
            auto* dialog = m_window->findChild<QFileDialog*>(QStringLiteral("openSettingsDialog"));
            QVERIFY(dialog);
            Q_EMIT dialog->fileSelected(QFile::decodeName(path.c_str()));
            dialog->reject();
        };
        openWindow();
        QVERIFY(!control(*m_window, "noticeLabel").isVisible());
        writeBytes(m_card->path("short.bin"), card.chopped(1));
        open(m_card->path("short.bin"));
        QTRY_VERIFY(message());
        message()->accept();
        QVERIFY(m_window->windowTitle().endsWith(QLatin1String("config.bin")));
        open(link);
        QTRY_VERIFY(m_window->windowTitle().endsWith(QLatin1String("link.bin")));
        clickItem(*m_window, "functionSegmentedControl", Gps);
        clickItem(*m_window, "speedDisplayUnitSeg", 0);
        Q_EMIT m_disks->volumesChanged();
        QVERIFY(save().endsWith(QLatin1String("link.bin")));
        QVERIFY(bytesOf(real) != card);
        QVERIFY(QFileInfo(QFile::decodeName(link.c_str())).isSymLink());
        QCOMPARE(bytesOf(configPath()), card);
    }

    void aCardsFolderThatGoesAndComesIsNoticed()
    {
        m_disks = std::make_unique<FolderDisks>(m_card->path("reader"));
        openWindow();
        QVERIFY(control(*m_window, "noticeLabel").isVisible());
        for (const bool there : {true, false, true}) {
            if (there) {
                m_card->makeFolder("new");
                writeBytes(m_card->path("new/config.bin"), bytesOf(configPath()));
                std::filesystem::rename(m_card->path("new"), m_card->path("reader"));
            } else {
                std::filesystem::remove_all(m_card->path("reader"));
            }
            QTRY_COMPARE(m_window->windowTitle().contains(QLatin1String("config.bin")), there);
        }
        QVERIFY(!control(*m_window, "noticeLabel").isVisible());
    }

    void returnSavesFromAField()
    {
        openWindow();
        clickItem(*m_window, "functionSegmentedControl", Basic);
        auto& number = control<QLineEdit>(*m_window, "carNumberField");
        number.setFocus();
        QTest::keyClicks(&number, QStringLiteral("12AB"));
        QTest::keyClick(&number, Qt::Key_Return);
        QTRY_VERIFY(message());
        QCOMPARE(message()->text(), QStringLiteral("Information"));
        QVERIFY(bytesOf(configPath()).contains("12AB"));
    }

    void cardPulledOutBeforeASaveAsksWhere()
    {
        openWindow();
        std::filesystem::remove_all(m_card->path());
        press("saveButton");
        QTRY_VERIFY(m_window->findChild<QFileDialog*>(QStringLiteral("saveDialog")));
        auto* dialog = m_window->findChild<QFileDialog*>(QStringLiteral("saveDialog"));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Save Settings"));
        dialog->reject();
        QVERIFY(!message());
        QVERIFY(m_viewer->told.empty());
    }

    void cardPutInLaterIsTakenWhileNothingWasTouched_data()
    {
        QTest::addColumn<QByteArray>("touch");
        for (const char* touch : {"nothing", "look", "tab", "assistive", "resetButton", "earlier"})
            QTest::newRow(touch) << QByteArray(touch);
    }

    void cardPutInLaterIsTakenWhileNothingWasTouched()
    {
        QFETCH(QByteArray, touch);
        const QByteArray settings = bytesOf(configPath());
        keepEarlier([](_FILEDATA& earlier) {
            earlier.speedUnit = 0;
            earlier.micLevel = 4;
        });
        QVERIFY(QFile::remove(QFile::decodeName(configPath().c_str())));
        openWindow();
        if (touch == "tab")
            clickItem(*m_window, "videoSharpness", 4);
        else if (touch == "look")
            QTest::mouseClick(&control(*m_window, "targetView"), Qt::LeftButton);
        else if (touch == "assistive") {
            clickItem(*m_window, "functionSegmentedControl", Basic);
            marvo::testing::toggleByAssistiveTechnology(control(*m_window, "gsensorEnableChk"));
        } else if (touch == "resetButton")
            press("resetButton");
        else if (touch == "earlier")
            restoreNewestCopy();
        QTRY_COMPARE(m_window->filedata()->micLevel, touch == "earlier" ? 4U : 3U);
        QTRY_COMPARE(m_window->filedata()->speedUnit, 0U);
        writeBytes(configPath(), settings);
        Q_EMIT m_disks->volumesChanged();
        QTRY_VERIFY(m_window->windowTitle().contains(QLatin1String("config.bin")));
        QCOMPARE(m_window->filedata()->speedUnit, touch == "nothing" || touch == "look" ? 1U : 0U);
    }

    void cardPutInWhileTheCardIsLookedForIsSeen()
    {
        const auto slow = std::make_shared<SlowDisks>(m_card->path("reader"));
        m_window = new MRVSettingController(*slow, settingsTabs(), m_viewer.get());
        m_window->show();
        slow->asked.acquire(); // by the first read, which has seen no card
        m_card->makeFolder("reader");
        writeBytes(m_card->path("reader/config.bin"), bytesOf(configPath()));
        Q_EMIT slow->volumesChanged();
        slow->answer.release(100);
        QTRY_VERIFY(m_window->windowTitle().contains(QLatin1String("config.bin")));
        QCOMPARE(m_window->filedata()->speedUnit, 1U);
        delete m_window;
    }
};

int main(int argc, char** argv)
{
    test::mountForThisProcessAlone();
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO-test"));
    QCoreApplication::setApplicationName(QStringLiteral("settings-window"));
    TestSettingsWindow test;
    return QTest::qExec(&test, argc, argv);
}
#include "MRVSettingControllerTest.moc"
