// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// What makes the main window handy: search, the menu of a row, remembered folders and places, dropping,
// wheel.
#include "card/disks/FolderDisks.h"
#include "controls/FractionSlider.h"
#include "map/MapSurface.h"
#include "TemporaryFolder.h"
#include "viewer/folders/FolderMemory.h"
#include "viewer/MediaControlBox.h"
#include "viewer/WindowStage.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>

using namespace marvo;
using marvo::test::TemporaryFolder;
using marvo::test::WindowStage;

class WindowHandsTest : public QObject
{
    Q_OBJECT

private:
    TemporaryFolder m_card;

private Q_SLOTS:
    void initTestCase()
    {
        VlcInstance::setExtraOptions({"--aout=alsa", "--alsa-audio-device=null"});
        QVERIFY(installLanguage(InterfaceLanguage::English));
        applyAppearance(*qApp);
        for (const char* name :
             {"alwa_20240517_081500_F.avi", "event_20240517_091530.avi", "motion_20240518_081500.avi"})
            QVERIFY(test::writeRecording(m_card.path(name), 30));
    }

    void init() { QSettings().clear(); }

    void memoryKeepsTheNewestAndAnyBytes()
    {
        const std::string odd = "/media/caf\xe9 100%/\xff";
        const PlaceInRecording place{odd + "/event_20240517_091530.avi", 4321};
        {
            QSettings preferences;
            FolderMemory memory(preferences);
            memory.opened(odd + "/");
            memory.setPlace(odd, place);
            for (std::size_t i = 0; i + 1 < FolderMemory::limit; ++i)
                memory.opened("/folder/" + std::to_string(i));
            memory.setPlace("/never/opened", place);
        }
        QSettings preferences;
        FolderMemory memory(preferences);
        QCOMPARE(memory.folders().size(), FolderMemory::limit);
        QVERIFY(memory.folders().back().path == odd);
        QVERIFY(memory.placeIn(odd) == place);
        memory.opened(odd); // first again, its place kept
        QVERIFY(memory.folders().front().path == odd);
        QVERIFY(memory.placeIn(odd) == place);
        memory.opened("/one/more");
        memory.opened("/and/another");
        QCOMPARE(memory.folders().size(), FolderMemory::limit);
    }

    void memoryPassesOverNonsense()
    {
        struct Row
        {
            const char* path;
            const char* time;
            std::size_t folders;
            bool hasPlace;
        };
        const Row rows[] = {
            {"/card", "12", 1, true}, {"card", "12", 0, false},    {"/card%00x", "12", 0, false},
            {"", "12", 0, false},     {"/card", "late", 1, false}, {"/card", "-1", 1, false},
        };
        for (const Row& row : rows) {
            QSettings preferences;
            preferences.beginWriteArray(QStringLiteral("recentFolders"), 1'000'000);
            preferences.setArrayIndex(0);
            preferences.setValue(QStringLiteral("path"), QLatin1String(row.path));
            preferences.setValue(QStringLiteral("recording"), QStringLiteral("/card/x.avi"));
            preferences.setValue(QStringLiteral("timeMs"), QLatin1String(row.time));
            preferences.endArray();
            FolderMemory memory(preferences);
            QCOMPARE(memory.folders().size(), row.folders);
            QCOMPARE(memory.placeIn("/card").has_value(), row.hasPlace);
        }
    }

    void searchLeavesWhatMatchesAndPlaysIt()
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        stage.list().setFocus();
        QTest::keyClicks(&stage.list(), QStringLiteral("0")); // the list passes a digit on
        auto* field = stage.window().findChild<QLineEdit*>(QStringLiteral("listSearchField"));
        QCOMPARE(QApplication::focusWidget(), field);
        QTest::keyClicks(field, QStringLiteral("518 MOTION"));
        QCOMPARE(field->text(), QStringLiteral("0518 MOTION"));
        QVERIFY(!stage.window().isFullScreen()); // the letters were not the window's
        QCOMPARE(stage.list().model()->rowCount(), 1);
        QCOMPARE(stage.text("folderDetail"), QStringLiteral("1 of 3 recordings"));
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(stage.delegate.playback().mediaIndex(), 2);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        QCOMPARE(QApplication::focusWidget(), &stage.list()); // so that Space and F are the player's

        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(stage.list().model()->rowCount(), 3);
        QCOMPARE(stage.list().selectedRow(), 2);
        QCOMPARE(QApplication::focusWidget(), &stage.list());
        stage.key(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), field);

        // The kinds, and the way back from an empty result.
        QTest::mouseClick(stage.box("filterEvent"), Qt::LeftButton);
        QCOMPARE(stage.list().model()->rowCount(), 1);
        QTest::mouseClick(stage.box("filterMotion"), Qt::LeftButton);
        QCOMPARE(stage.list().model()->rowCount(), 2);
        field->setText(QStringLiteral("_F"));
        QCOMPARE(stage.list().statusText(), QStringLiteral("No recording found"));
        QTest::mouseClick(stage.box("listShowAllButton"), Qt::LeftButton);
        QCOMPARE(stage.list().statusText(), QString());
        QCOMPARE(stage.text("folderDetail"), QStringLiteral("3 recordings"));
    }

    void theMenuOfARowMeansThatRow()
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        QTest::mouseClick(stage.box("filterMotion"), Qt::LeftButton); // the shown row 0 is row 2 of the list
        const auto menuFor = [&](QContextMenuEvent::Reason reason) {
            const QPoint middle = stage.list().visualRect(stage.list().model()->index(0, 1)).center();
            QContextMenuEvent event(reason, middle, stage.list().viewport()->mapToGlobal(middle));
            QApplication::sendEvent(stage.list().viewport(), &event);
            return stage.list().findChild<QMenu*>(QStringLiteral("recordingMenu"));
        };
        const auto choose = [&](QMenu* menu, const char* name) {
            menu->findChild<QAction*>(QLatin1StringView(name))->trigger();
            menu->close();
            QTRY_VERIFY(!stage.list().findChild<QMenu*>(QStringLiteral("recordingMenu")));
        };
        QMenu* menu = menuFor(QContextMenuEvent::Mouse);
        QVERIFY(menu && menu->isVisible());
        choose(menu, "copyPath");
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString::fromStdString(m_card.path("motion_20240518_081500.avi")));
        const QByteArray path =
            qgetenv("PATH"); // with no file manager on the bus and no program to open a folder
        qputenv("PATH", "/nonexistent");
        menu = menuFor(QContextMenuEvent::Mouse);
        choose(menu, "showInFolder");
        QTRY_VERIFY(stage.window().findChild<QMessageBox*>());
        qputenv("PATH", path);
        auto* message = stage.window().findChild<QMessageBox*>();
        QVERIFY(message->informativeText().contains(QGuiApplication::clipboard()->text()));
        message->close();
        menu = menuFor(QContextMenuEvent::Keyboard);
        QVERIFY(menu);
        choose(menu, "playRecording");
        QCOMPARE(stage.delegate.playback().mediaIndex(), 2);
    }

    void theNextStartGoesOnWhereTheLastEnded()
    {
        {
            WindowStage stage;
            QVERIFY(stage.open(m_card.path()));
            QVERIFY(!stage.box("returnStrip")->isVisible());
            stage.doubleClickRow(1);
            QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
            QTRY_VERIFY(stage.player().position() > 0);
            auto* slider = stage.delegate.views().mediaControlBox->videoPositionSlider();
            QTest::mouseClick(slider, Qt::LeftButton, {}, {slider->width() / 2, slider->height() / 2});
            QTRY_VERIFY(stage.player().timeMs() >= 14'000);
            stage.window().close();
        }
        WindowStage stage;
        QSignalSpy listed(&stage.delegate, &MRVAppDelegate::recordingsListed);
        stage.delegate.reopenLastFolder();
        QVERIFY(listed.wait());
        QCOMPARE(stage.list().selectedRow(), 1);
        QVERIFY(!stage.player().hasMedia()); // offered, not done
        auto* button = stage.window().findChild<QPushButton*>(QStringLiteral("returnButton"));
        QVERIFY(button->isVisible());
        QVERIFY2(button->text().startsWith(QStringLiteral("Continue 2024-05-17 09:15:30 at 0:1")),
                 qPrintable(button->text()));
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!button->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying() && stage.player().timeMs() >= 14'000, 10'000);
        QCOMPARE(stage.delegate.playback().mediaIndex(), 1);
        QVERIFY(stage.player().timeMs() < 20'000);
    }

    void aRecordingOfTheFolderBeforeIsNoPlaceOfTheNext()
    {
        TemporaryFolder other;
        other.write("event_20240517_091530.avi", "no film");
        const PlaceInRecording place{other.path("event_20240517_091530.avi"), 4321};
        QSettings preferences;
        FolderMemory memory(preferences);
        memory.opened(other.path());
        memory.setPlace(other.path(), place);

        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        QSignalSpy listed(&stage.delegate, &MRVAppDelegate::recordingsListed);
        stage.delegate.openDirectory(other.path());
        stage.doubleClickRow(0); // the rows of the folder before are still there
        stage.window().findChild<QLineEdit*>(QStringLiteral("listSearchField"))->setText(QStringLiteral("0"));
        QVERIFY(stage.text("folderDetail").startsWith(QStringLiteral("Reading")));
        QVERIFY(listed.wait());
        QTRY_VERIFY_WITH_TIMEOUT(stage.delegate.playInfo().position() > 0, 10'000);
        stage.window().close();
        QVERIFY(FolderMemory(preferences).placeIn(other.path()) == place);
    }

    void aFolderThatIsGoneLeavesAFirstStart()
    {
        {
            TemporaryFolder card;
            card.write("event_20240517_091530.avi", "no film");
            WindowStage stage;
            QVERIFY(stage.open(card.path()));
        }
        WindowStage stage;
        QSignalSpy listed(&stage.delegate, &MRVAppDelegate::recordingsListed);
        stage.delegate.reopenLastFolder();
        QVERIFY(listed.wait());
        QCOMPARE(stage.list().statusText(), QStringLiteral("No folder open"));
        QVERIFY(stage.box("recentFolder0")->isVisible());
        QVERIFY(!stage.box("listFilterBar")->isVisible());
        // Asked for by hand, it says why it cannot be shown.
        QTest::mouseClick(stage.box("recentFolder0"), Qt::LeftButton);
        QVERIFY(listed.wait());
        QCOMPARE(stage.list().statusText(), QStringLiteral("This folder cannot be read"));
        auto* recent = stage.window().findChild<QMenu*>(QStringLiteral("recentFoldersMenu"));
        QCOMPARE(recent->actions().size(), 3); // the folder, a line, and the end of it
        recent->actions().back()->trigger();
        QVERIFY(!recent->menuAction()->isEnabled());
        QVERIFY(!stage.box("recentFolder0"));
    }

    void aCardIsOfferedAndLetGoOfBeforeItIsUnmounted()
    {
        static FolderDisks reader(m_card.path()); // workers that nobody waits for may still ask it
        WindowStage stage({.disks = &reader});
        QTRY_VERIFY(stage.box("listCardButton")->isVisible());
        QTest::mouseClick(stage.box("listCardButton"), Qt::LeftButton);
        QTRY_COMPARE(stage.list().model()->rowCount(), 3);
        QVERIFY(!stage.box("listCardButton")->isVisible());
        stage.doubleClickRow(1);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        const auto isInUse = [this] {
            const auto open =
                QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::NoDotAndDotDot | QDir::AllEntries);
            return std::ranges::any_of(open, [this](const QFileInfo& descriptor) {
                return descriptor.symLinkTarget().startsWith(QString::fromStdString(m_card.path()));
            });
        };
        QVERIFY(isInUse());
        Q_EMIT reader.aboutToUnmount(m_card.path() + "-2");
        QVERIFY2(stage.player().isPlaying(), "another card's folder");
        Q_EMIT reader.aboutToUnmount(m_card.path());
        QVERIFY(!stage.player().hasMedia());
        QTRY_VERIFY2_WITH_TIMEOUT(!isInUse(), "the card could not be unmounted",
                                  3000); // how long that is tried
    }

    void aDroppedFolderOpensAndADroppedRecordingPlays()
    {
        for (const std::string& path : {m_card.path(), m_card.path("event_20240517_091530.avi")}) {
            WindowStage stage;
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
            QDragEnterEvent enter({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(&stage.window(), &enter);
            QVERIFY(enter.isAccepted());
            QVERIFY(stage.box("dropHint")->isVisible());
            QDropEvent drop({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(&stage.window(), &drop);
            QVERIFY(!stage.box("dropHint")->isVisible());
            QTRY_COMPARE(stage.list().model()->rowCount(), 3);
            const bool isFolder = path == m_card.path();
            QTRY_COMPARE(stage.delegate.playback().mediaIndex(), isFolder ? -1 : 1);
            QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying() != isFolder, 10'000);
        }
    }

    void wheelAndHover()
    {
        WindowStage stage;
        QWidget* video = stage.delegate.views().videoBox;
        const auto wheel = [&](int delta) {
            const QPointF at(100, 100);
            QWheelEvent event(at, video->mapToGlobal(at), {}, {0, delta}, Qt::NoButton, {}, Qt::NoScrollPhase,
                              false);
            QApplication::sendEvent(video, &event);
        };
        wheel(120);
        QCOMPARE(stage.delegate.playback().volume(), 80);
        QCOMPARE(stage.text("videoNotice"), QStringLiteral("Volume 80"));
        for (int i = 0; i < 4; ++i)
            wheel(-60); // a touch pad's parts make two steps
        QCOMPARE(stage.delegate.playback().volume(), 60);

        FractionSlider* slider = stage.delegate.views().mediaControlBox->videoPositionSlider();
        const QPoint middle(slider->width() / 2, slider->height() / 2);
        QTest::mouseMove(slider, middle);
        const auto hover = [&] { return stage.window().findChild<QLabel*>(QStringLiteral("sliderHover")); };
        QVERIFY(!hover() || !hover()->isVisible()); // nothing to tell the time of
        QVERIFY(stage.open(m_card.path()));
        stage.doubleClickRow(0);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().lengthMs() == 30'000, 10'000);
        QTest::mouseMove(slider, middle + QPoint(1, 0));
        QTRY_VERIFY(hover() && hover()->isVisible());
        QCOMPARE(hover()->text(), QStringLiteral("0:15"));
    }
};

int main(int argc, char** argv)
{
    // Where the preferences lie is for the desktop to say; here it says so.
    const TemporaryFolder home;
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(home.path()));
    prepareForMaps();
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO"));
    QCoreApplication::setApplicationName(QStringLiteral("marvo-hands-test"));
    QApplication application(argc, argv);
    WindowHandsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "FoldersTest.moc"
