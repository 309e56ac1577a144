// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The card's folder goes while a window shows it: the user is told, nothing crashes, and a card that is put
// in again serves again.
#include "ActiveWindow.h"
#include "card/clock/MRVTimeSetupController.h"
#include "card/ClockFile.h"
#include "card/disks/FolderDisks.h"
#include "controls/SegmentedControl.h"
#include "logs/LogBytes.h"
#include "logs/window/MRVSettingForFlashDataViewController.h"
#include "map/MapSurface.h"
#include "playback/VlcSession.h"
#include "settings/SettingFile.h"
#include "settings/tabs/SettingsTabs.h"
#include "settings/window/MRVSettingController.h"
#include "settings/window/ObdPreference.h"
#include "TemporaryFolder.h"
#include "viewer/Appearance.h"
#include "viewer/WindowStage.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>

#include <memory>

using namespace marvo;
using marvo::test::TemporaryFolder;

class CardRemovedTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<TemporaryFolder> m_folder;
    std::unique_ptr<FolderDisks> m_disks;

    std::string card(std::string_view name = {}) const
    {
        return m_folder->path(name.empty() ? "card" : "card/" + std::string(name));
    }
    void pullOut()
    {
        std::filesystem::rename(card(), m_folder->path("drawer"));
        Q_EMIT m_disks->volumesChanged();
    }
    void putIn()
    {
        std::filesystem::rename(m_folder->path("drawer"), card());
        Q_EMIT m_disks->volumesChanged();
    }
    template <typename Window>
    static void press(Window& window, const char* button)
    {
        QTest::mouseClick(window.template findChild<QPushButton*>(QLatin1StringView(button)), Qt::LeftButton);
    }
    template <typename Window>
    static QMessageBox* message(Window& window)
    {
        return window.template findChild<QMessageBox*>(QStringLiteral("messageSheet"));
    }
    template <typename Window>
    static QFileDialog* saveDialog(Window& window)
    {
        return window.template findChild<QFileDialog*>(QStringLiteral("saveDialog"));
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<TemporaryFolder>();
        m_disks = std::make_unique<FolderDisks>(card());
        _FILEDATA record{};
        fillDefaultFileDataForLanguage(record, InterfaceLanguage::English);
        m_folder->makeFolder("card/DrvInfo");
        QVERIFY(!saveSettingFile(record, card("config.bin")));
        m_folder->write("card/timeset.cfg", "2013/05/26 13:45:02");
        m_folder->write("card/DrvInfo/marvo_000.drv", test::drivingLog(2000, 2000));
    }

    void underTheList()
    {
        for (int i = 0; i < 2000; ++i)
            m_folder->write("card/AlwaysMovie/alwa_20240517_08" + std::to_string(1000 + i) + "_F.avi");
        test::WindowStage stage;
        QSignalSpy listed(&stage.delegate, &MRVAppDelegate::recordingsListed);
        stage.delegate.openDirectory(card());
        pullOut(); // while it is being read
        QVERIFY(listed.wait(10'000));
        QVERIFY(stage.open(card()));
        QCOMPARE(stage.list().model()->rowCount(), 0);
        QCOMPARE(stage.list().statusText(), QStringLiteral("This folder cannot be read"));
        putIn();
        QVERIFY(stage.open(card()));
        QVERIFY(stage.list().model()->rowCount() > 1000);
    }

    void whilePlaying()
    {
        m_folder->makeFolder("card/EventMovie");
        for (const char* name :
             {"EventMovie/event_20240517_081500.avi", "EventMovie/event_20240517_081600.avi"})
            QVERIFY(test::writeRecording(card(name), 2));
        test::WindowStage stage;
        QVERIFY(stage.open(card()));
        stage.doubleClickRow(0);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        pullOut();
        // It comes to its end, and the next one is not there.
        const QModelIndex next = stage.list().model()->index(1, 0);
        QTRY_VERIFY_WITH_TIMEOUT(next.data(RecordingTableModel::unplayableRole).toBool(), 15'000);
        const QString reason = next.data(Qt::ToolTipRole).toString();
        QVERIFY2(reason.startsWith(QStringLiteral("Cannot be played: ")) && reason.size() > 25,
                 qPrintable(reason));
        QTRY_VERIFY(!stage.box("progressIndicator")->isVisible());
        stage.key(Qt::Key_Space); // nothing is in the player
        stage.key(Qt::Key_Right);

        putIn();
        stage.doubleClickRow(1);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        QVERIFY(!next.data(RecordingTableModel::unplayableRole).toBool());
    }

    void underTheSettings()
    {
        QPointer<MRVSettingController> window = new MRVSettingController(*m_disks, settingsTabs(), nullptr);
        QSignalSpy loaded(window, &MRVSettingController::settingsLoaded);
        QVERIFY(marvo::testing::showActive(*window));
        QVERIFY(!loaded.empty() || loaded.wait());
        auto* tabs = window->findChild<SegmentedControl*>(QStringLiteral("functionSegmentedControl"));
        QTRY_VERIFY(tabs->isEnabled());
        window->filedata()->speedUnit = 1;
        pullOut();
        QTest::qWait(100);
        QCOMPARE(window->filedata()->speedUnit, 1U); // what was chosen is not lost
        press(*window, "saveButton");
        QTRY_VERIFY(saveDialog(*window));
        saveDialog(*window)->reject();
        QTRY_VERIFY(!saveDialog(*window));
        QVERIFY(!std::filesystem::exists(card()));

        putIn();
        press(*window, "saveButton");
        QTRY_VERIFY(message(*window));
        QCOMPARE(message(*window)->text(), QStringLiteral("Information"));
        _FILEDATA saved{};
        QVERIFY(readSettingFile(card("config.bin"), saved));
        QCOMPARE(saved.speedUnit, 1U);
        delete window;
    }

    void underTheClock()
    {
        QPointer<MRVTimeSetupController> dialog = new MRVTimeSetupController(*m_disks);
        QSignalSpy lookedUp(dialog, &MRVTimeSetupController::cardLookedUp);
        QVERIFY(marvo::testing::showActive(*dialog));
        QVERIFY(!lookedUp.empty() || lookedUp.wait());
        pullOut();
        QVERIFY(lookedUp.wait());
        press(*dialog, "saveButton");
        QTRY_VERIFY(saveDialog(*dialog)); // where to, then?
        saveDialog(*dialog)->reject();
        QTRY_VERIFY(!saveDialog(*dialog));
        QVERIFY(!std::filesystem::exists(card()));
        lookedUp.clear();
        putIn();
        QVERIFY(lookedUp.wait());
        press(*dialog, "saveButton");
        QTRY_VERIFY(message(*dialog));
        QCOMPARE(message(*dialog)->text(), QStringLiteral("MARVO"));
        QVERIFY(m_folder->read("card/timeset.cfg") != "2013/05/26 13:45:02");
        delete dialog;
    }

    void underALog()
    {
        MRVSettingForFlashDataViewController view;
        view.resize(900, 400);
        QVERIFY(marvo::testing::showActive(view));
        QSignalSpy read(&view, &DrivingLogViewController::readingEnded);
        view.setFlashDataFilePath(card("DrvInfo/marvo_000.drv"));
        view.loadFlashDataFile(DrivingLogViewController::Occasion::Chosen);
        QVERIFY(read.wait());
        pullOut();
        QCOMPARE(view.flashDataNum(), std::int64_t{2000}); // what was read stays to be looked at
        view.doWriteCSVFile(card("out.csv"));
        QTRY_VERIFY(message(view));
        QVERIFY(message(view)->informativeText().contains(localised("log.export.gone")));
        message(view)->accept();
        QTRY_VERIFY(!message(view));
        QSignalSpy refused(&view, &DrivingLogViewController::couldNotOpen);
        view.loadFlashDataFile(DrivingLogViewController::Occasion::Chosen);
        QVERIFY(read.wait());
        QCOMPARE(refused.count(), 1);
        QCOMPARE(view.flashDataNum(), std::int64_t{2000});
        view.doWriteCSVFile(m_folder->path("out.csv"));
        QTRY_VERIFY(message(view));
        QCOMPARE(message(view)->informativeText(), localised("msg.saved").trimmed());
    }
};

int main(int argc, char** argv)
{
    QStandardPaths::setTestModeEnabled(true);
    prepareForMaps();
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO-test"));
    QCoreApplication::setApplicationName(QStringLiteral("card-removed"));
    QSettings().setValue(QStringLiteral("map/tileAddress"), QString());
    VlcInstance::setExtraOptions({"--aout=alsa", "--alsa-audio-device=null"});
    installLanguage(InterfaceLanguage::English);
    ObdPreference::set(false);
    applyAppearance(application);
    CardRemovedTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "CardRemovedTest.moc"
