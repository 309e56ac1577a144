// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The main window as a person drives it, with real films and the real player.
#include "card/clock/MRVTimeSetupController.h"
#include "card/disks/FolderDisks.h"
#include "controls/FractionSlider.h"
#include "controls/ImageButton.h"
#include "map/MapSurface.h"
#include "playback/VideoView.h"
#include "settings/SettingFile.h"
#include "TemporaryFolder.h"
#include "viewer/LanguagePreference.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MediaControlBox.h"
#include "viewer/panel/GraphView.h"
#include "viewer/WindowStage.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QSettings>

using namespace marvo;
using marvo::test::TemporaryFolder;
using marvo::test::WindowStage;
using namespace std::chrono_literals;

class WindowTest : public QObject
{
    Q_OBJECT

private:
    TemporaryFolder m_card;
    TemporaryFolder m_other;

    void everyShortcutWorksIn(const QString& focus)
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        QWidget* where = focus == QLatin1StringView("window") ? &stage.window()
                                                              : stage.window().findChild<QWidget*>(focus);
        const auto isOwnKey = [&focus](const QKeyCombination& keys) {
            const int key = keys.key();
            if (focus == QLatin1StringView("mediaListTableView"))
                return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Return ||
                       key == Qt::Key_Enter;
            if (focus == QLatin1StringView("listSearchField")) // all that writes, and the arrows
                return keys.keyboardModifiers() == Qt::NoModifier && key != Qt::Key_F10 && key != Qt::Key_F11;
            return focus == QLatin1StringView("toggleFullScreenButton") && key == Qt::Key_Space;
        };
        // The keys are asked for here, not what they do.
        for (const CommandRow& row : commandTable()) {
            stage.action(row.command)->setEnabled(true);
            stage.action(row.command)->disconnect(SIGNAL(triggered(bool)));
        }
        for (const CommandRow& row : commandTable()) {
            QAction* action = stage.action(row.command);
            QSignalSpy triggered(action, &QAction::triggered);
            for (const QKeySequence& key : row.shortcuts) {
                where->setFocus();
                QCOMPARE(QApplication::focusWidget(), where);
                triggered.clear();
                QTest::keyClick(where, key[0].key(), key[0].keyboardModifiers());
                QVERIFY2(triggered.size() == (isOwnKey(key[0]) ? 0 : 1),
                         qPrintable(key.toString() + QStringLiteral(" with focus in ") + focus));
            }
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        test::prepareWindows("marvo-window-test");
        m_card.write("AlwaysMovie/alwa_20240517_080000_F.avi", std::string(4000, 'x'));
        QVERIFY(test::writeRecording(m_card.path("AlwaysMovie/alwa_20240517_081500_F.avi")));
        m_card.makeFolder("EventMovie");
        QVERIFY(test::writeRecording(m_card.path("EventMovie/event_20240517_081530.avi")));
        m_other.write("motion_20240518_081500.avi", "no film");
    }

    void startsCentredAndWithNothingOpen()
    {
        WindowStage stage;
        QVERIFY(stage.isShown);
        const QRect visible = stage.window().screen()->availableGeometry();
        QCOMPARE(stage.window().frame(), minWindowFrame(visible));
        QCOMPARE(stage.window().initialFrame(), minWindowFrame(visible));
        QVERIFY(!stage.delegate.views().video1View->isVisible());
        QVERIFY(!stage.box("progressIndicator")->isVisible());
        QVERIFY(!stage.box("mediaControlBoxForFullScreen")->isVisible());
        QCOMPARE(stage.list().statusText(), QStringLiteral("No folder open"));
        QCOMPARE(stage.text("gsensorXField"), QStringLiteral("X=+0.00"));
        QCOMPARE(stage.text("speedField"), QString());
    }

    void boxesOfTheWindow()
    {
        for (const QSize size : {QSize(1020, 640), QSize(1600, 900)}) {
            WindowStage stage;
            stage.window().resize(size);
            QTRY_COMPARE(stage.box("backgroundBox")->size(), size);
            const int w = size.width();
            const int h = size.height();
            const int left = w - 364; // two outer margins, the one between, the right column
            QCOMPARE(stage.place("headBox"), QRect(0, 0, w, 50));
            QCOMPARE(stage.place("videoBox"), QRect(10, 50, left, h - 268));
            QCOMPARE(stage.place("player1BackgroundView"), stage.place("videoBox"));
            QCOMPARE(stage.place("gsensorBox"), QRect(10, h - 214, left, 130));
            QCOMPARE(stage.place("mediaControlBox"), QRect(10, h - 80, left, 72));
            QCOMPARE(stage.place("sideButtonBox"), QRect(w - 344, 50, 334, 22));
            QCOMPARE(stage.place("mediaListScrollView"), QRect(w - 344, 72, 334, h - 80));

            QTest::mouseClick(stage.box("informationButtonImageView"), Qt::LeftButton);
            QVERIFY(!stage.box("mediaListScrollView")->isVisible());
            QCOMPARE(stage.place("mapContainerTopView"), QRect(w - 344, 72, 334, h - 178));
            QCOMPARE(stage.place("mapContainerBottomView"), QRect(w - 344, h - 106, 334, 98));
            QTest::mouseClick(stage.box("recordButtonImageView"), Qt::LeftButton);
            QVERIFY(stage.box("mediaListScrollView")->isVisible());
            QVERIFY(!stage.box("mapContainerView")->isVisible());
        }
    }

    void boxesOfTheFullScreen()
    {
        WindowStage stage;
        const QRect start = stage.window().frame();
        stage.window().move(start.topLeft() + QPoint(20, 10));
        stage.key(Qt::Key_F);
        const QSize screen = stage.window().screen()->size();
        QTRY_COMPARE(stage.box("backgroundBox")->size(), screen);
        const int w = screen.width();
        const int h = screen.height();
        QCOMPARE(stage.place("videoBox"), QRect(0, 0, w, h - 38));
        QCOMPARE(stage.place("mediaControlBoxForFullScreen"), QRect(0, h - 38, w - 2, 36));
        const auto areVisible = [&stage](bool expected) {
            for (const char* name : {"headBox", "bodyRightBox", "gsensorBox", "mediaControlBox"})
                QVERIFY2(stage.box(name)->isVisible() == expected, name);
        };
        areVisible(false);
        stage.key(Qt::Key_Escape);
        QTRY_COMPARE(stage.window().geometry(), start);
        QTRY_COMPARE(stage.place("mediaListBox"), QRect(676, 72, 334, 560));
        areVisible(true);
    }

    void doubleClickPlaysAndFillsThePanels()
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        QCOMPARE(stage.text("folderDetail"), QStringLiteral("3 recordings"));
        stage.doubleClickRow(2);
        stage.box("volumeSlider")->setFocus();
        QVERIFY(stage.box("progressIndicator")->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        QTRY_VERIFY_WITH_TIMEOUT(!stage.text("speedField").isEmpty(), 5'000);
        const std::pair<const char*, const char*> texts[] = {
            {"gsensorXField", "X=+0.25"}, {"gsensorYField", "Y=-1.50"},   {"gsensorZField", "Z=0.00"},
            {"latitudeField", "37.5521"}, {"longitudeField", "126.9794"}, {"speedField", "59 Km/h"},
            {"hdopField", "0.9"},         {"sateliteField", "8"},         {"lengthText", "0:04"},
        };
        for (const auto& [field, text] : texts)
            QCOMPARE(stage.text(field), QLatin1String(text));
        QCOMPARE(stage.delegate.views().graphView->values().size(), std::size_t(20));
        QCOMPARE(QApplication::focusWidget(),
                 stage.box("volumeSlider")); // a start does not take the keyboard

        QVERIFY(stage.delegate.views().video1View->isVisible());
        QVERIFY(stage.list().model()->index(2, 0).data(RecordingTableModel::playingRole).toBool());
        QTRY_VERIFY(!stage.box("progressIndicator")->isVisible());
        auto* slider = stage.delegate.views().mediaControlBox->videoPositionSlider();
        QTRY_VERIFY(slider->fraction() > 0.1);
        const QPoint twoThirds(slider->width() * 2 / 3, slider->height() / 2);
        QTest::mouseClick(slider, Qt::LeftButton, {}, twoThirds);
        QTRY_VERIFY(stage.player().position() >= 0.6);

        auto* button = stage.window().findChild<ImageButton*>(QStringLiteral("playButton"));
        QCOMPARE(button->imageName(), QStringLiteral("icon_pause_n"));
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(stage.player().isPaused());
        QTRY_COMPARE(button->imageName(), QStringLiteral("icon_play_n"));
    }

    void anUnplayableRowSaysWhyAndLeavesTheOthersPlayable()
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        stage.doubleClickRow(0);
        const QModelIndex broken = stage.list().model()->index(0, 0);
        QTRY_VERIFY_WITH_TIMEOUT(broken.data(RecordingTableModel::unplayableRole).toBool(), 10'000);
        QVERIFY(broken.data(Qt::ToolTipRole).toString().startsWith(QStringLiteral("Cannot be played: ")));
        QTRY_VERIFY(!stage.box("progressIndicator")->isVisible());
        QVERIFY(!stage.delegate.views().video1View->isVisible());
        QVERIFY(!broken.data(RecordingTableModel::playingRole).toBool());
        QVERIFY(stage.box("videoReason")->isVisible());
        QVERIFY(stage.text("videoReason").startsWith(QStringLiteral("Cannot be played: ")));
        QCOMPARE(stage.text("playingTitle"), QStringLiteral("Continuous, front"));
        QCOMPARE(stage.text("playingTime"), QStringLiteral("2024-05-17 08:00:00"));
        stage.doubleClickRow(1);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        QVERIFY(!stage.box("videoReason")->isVisible());
        QVERIFY(broken.data(RecordingTableModel::unplayableRole).toBool());
        QVERIFY(stage.open(m_card.path()));
        QVERIFY(!stage.list().model()->index(0, 0).data(RecordingTableModel::unplayableRole).toBool());
        QCOMPARE(stage.text("playingTitle"), QString());
    }

    void theKeyboardIsInTheListAfterOpeningAndSearching()
    {
        WindowStage stage;
        stage.box("openButton")->setFocus(); // its Space key would open the dialog again
        QVERIFY(stage.open(m_card.path()));
        QCOMPARE(QApplication::focusWidget(), &stage.list());
        stage.list().clearSelection(); // a place to continue selects its row
        stage.key(Qt::Key_Return);
        QCOMPARE(stage.delegate.playback().mediaIndex(), -1);
        stage.key(Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0815"));
        stage.key(Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), &stage.list());
        QVERIFY(stage.delegate.playback().mediaIndex() >= 0);
    }

    void anotherFolderWhilePlayingKeepsThePanels()
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        stage.doubleClickRow(1);
        QTRY_VERIFY_WITH_TIMEOUT(!stage.text("speedField").isEmpty(), 10'000);
        stage.key(Qt::Key_M);
        QCOMPARE(stage.delegate.rightViewMode(), MapMode);

        QVERIFY(stage.open(m_other.path()));
        QVERIFY(!stage.player().isPlaying());
        QVERIFY(!stage.player().hasMedia());
        QCOMPARE(stage.delegate.rightViewMode(), RecordingListMode);
        QCOMPARE(stage.text("gsensorXField"), QStringLiteral("X=+0.25"));
        QCOMPARE(stage.text("speedField"), QStringLiteral("59 Km/h"));
        QCOMPARE(stage.list().model()->rowCount(), 1);
        QVERIFY(!stage.list().model()->index(0, 0).data(RecordingTableModel::playingRole).toBool());
        QTRY_VERIFY(!stage.delegate.views().video1View->isVisible());
        QVERIFY(stage.open(m_card.path()));
        stage.list().setFocus();
        stage.list().selectOnlyRow(0);
        stage.key(Qt::Key_Down); // the list's own key, not the volume's
        stage.key(Qt::Key_Return);
        QCOMPARE(stage.delegate.playback().mediaIndex(), 1); // the number of the one before
        QVERIFY(stage.list().model()->index(1, 0).data(RecordingTableModel::playingRole).toBool());
    }

    void closingWhileExtractingNeitherHangsNorCrashes()
    {
        TemporaryFolder folder;
        const std::string file = folder.path("event_20240517_081530.avi");
        QVERIFY(test::writeRecording(file));
        // What is not the camera's is passed over word by word: nobody could wait for the end of this file.
        std::filesystem::resize_file(file, std::uintmax_t(1) << 40);
        auto stage = std::make_unique<WindowStage>();
        QVERIFY(stage->open(folder.path()));
        stage->doubleClickRow(0);
        QVERIFY(stage->delegate.playback().waitingForPlayStart());
        QTest::qWait(100);
        QTest::keyClick(&stage->window(), Qt::Key_W, Qt::ControlModifier);
        QVERIFY(!stage->window().isVisible());
        stage.reset();
    }

    void foldersWithoutRecordingsSaySo()
    {
        TemporaryFolder folder;
        folder.write("notes.txt");
        WindowStage stage;
        QVERIFY(stage.open(folder.path()));
        QCOMPARE(stage.list().statusText(), QStringLiteral("No recordings in this folder"));
        QVERIFY(stage.open(folder.path("gone")));
        QCOMPARE(stage.list().statusText(), QStringLiteral("This folder cannot be read"));
        stage.delegate.openDirectory(m_card.path());
        QVERIFY(stage.list().statusText().startsWith(QStringLiteral("Reading folder…")));
        QTRY_COMPARE(stage.list().model()->rowCount(), 3);
        QCOMPARE(stage.list().statusText(), QString());
    }

    void theDialogOpensTheChosenFolder()
    {
        WindowStage stage;
        const auto dialog = [&stage] {
            return stage.window().findChild<QFileDialog*>(QStringLiteral("openMediaDirectoryDialog"));
        };
        QTest::mouseClick(stage.box("listOpenButton"), Qt::LeftButton);
        QVERIFY(dialog() && dialog()->isVisible());
        dialog()->reject();
        QVERIFY(!stage.delegate.mediaList().isScanning());
        QTRY_VERIFY(!dialog());

        QSignalSpy listed(&stage.delegate, &MRVAppDelegate::recordingsListed);
        stage.key(Qt::Key_O);
        QVERIFY(dialog());
        const QString folder = QString::fromStdString(m_card.path("AlwaysMovie"));
        dialog()->setDirectory(folder);
        dialog()->findChild<QLineEdit*>()->setText(folder);
        static_cast<QDialog*>(dialog())->accept();
        QVERIFY(listed.wait());
        QCOMPARE(stage.list().model()->rowCount(), 2);
    }

    void theCardDecidesTheSpeedUnit()
    {
        const std::tuple<const char*, unsigned, bool> rows[] = {
            {"Holiday", 272, false}, // some other folder
            {".", 271, false},         {".", 273, false},          {".", 272, true},
            {"EventMovie", 272, true}, {"EventMovie/", 272, true},
        };
        TemporaryFolder card;
        card.makeFolder("EventMovie");
        card.makeFolder("Holiday");
        _FILEDATA record;
        fillDefaultFileData(record);
        record.speedUnit = 1;
        for (const auto& [folder, bytes, isFound] : rows) {
            QVERIFY(!saveSettingFile(record, card.path("config.bin")));
            std::filesystem::resize_file(card.path("config.bin"), bytes);
            const auto found = readCardSettings(card.path(folder));
            QVERIFY2((found && found->speedUnit == 1) == isFound, folder);
        }
        WindowStage stage;
        QVERIFY(stage.open(card.path("EventMovie/")));
        QTRY_VERIFY(stage.delegate.m_bMileDisplay());
        stage.delegate.setDisplayMile(2); // is neither
        QVERIFY(stage.delegate.m_bMileDisplay());
        stage.delegate.setDisplayMile(0);
        stage.delegate.setDisplayMile(0xFFFFFFFF);
        QVERIFY(!stage.delegate.m_bMileDisplay());
    }

    void everyShortcutRunsItsCommand()
    {
        for (const char* focus : {"window", "mediaListTableView", "videoPositionSlider",
                                  "toggleFullScreenButton", "listSearchField"})
            everyShortcutWorksIn(QLatin1String(focus));
    }

    void keysFindTheWindowWhereverTheFocusWas()
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        stage.list().setFocus();
        stage.key(Qt::Key_M); // the list, which had the keyboard, goes
        QCOMPARE(QApplication::focusWidget(), &stage.window());
        stage.key(Qt::Key_L);
        QCOMPARE(QApplication::focusWidget(), &stage.list());
        stage.key(Qt::Key_F);
        QVERIFY(stage.window().isFullScreen());
        QCOMPARE(QApplication::focusWidget(), &stage.window());
        QTest::mouseDClick(stage.box("videoBox"), Qt::LeftButton);
        QVERIFY(!stage.window().isFullScreen());
        QCOMPARE(QApplication::focusWidget(), &stage.list());
    }

    /// At rest nothing follows a seek that would put right what it left behind.
    void everySeekAtRestEndsAtThePicturesMoment()
    {
        WindowStage stage;
        QVERIFY(stage.open(m_card.path()));
        stage.doubleClickRow(1);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
        stage.key(Qt::Key_Space);
        QTRY_VERIFY(stage.player().isPaused());
        const MainViews& views = stage.delegate.views();
        FractionSlider& slider = *views.mediaControlBox->videoPositionSlider();
        const auto agree = [&] {
            const double shown = stage.player().position();
            return std::abs(stage.delegate.playInfo().position() - shown) < 1e-6 &&
                   std::abs(views.graphView->timePosition() - shown) < 1e-6 &&
                   std::abs(slider.fraction() - shown) < 0.001;
        };
        const double targets[] = {0.7, 0.2, 0.5, 0.999, 0.1, 0.9, 0.3};
        for (const double target : targets) {
            Q_EMIT views.graphView->seekRequested(target);
            QTRY_VERIFY2(std::abs(stage.player().position() - target) < 0.05,
                         qPrintable(QString::number(target)));
            QTRY_VERIFY2(agree(), qPrintable(QString::number(target)));
        }
        Q_EMIT views.graphView->seekRequested(0.5);
        QTest::qWait(400);
        stage.key(Qt::Key_Right); // less than a jump is left: the end
        QTRY_COMPARE(stage.delegate.playInfo().position(), 1.0);
        QTRY_VERIFY(agree());
    }

    void theLanguagePreferenceIsOverwritten()
    {
        if (supportLanguage() == QLatin1StringView("auto"))
            QSKIP("this build leaves the language to the desktop");
        QSettings preferences;
        const QString key = QStringLiteral("AppleLanguages");
        preferences.setValue(key, QStringList(QStringLiteral("fr")));
        storeLanguagePreference(preferences);
        QCOMPARE(preferences.value(key).toStringList(), QStringList{supportLanguage()});
    }

    void panelsOpenOnceAndGoWithTheWindow()
    {
        static FolderDisks disks(m_card.path()); // workers may still ask it when the window is gone
        MRVAppDelegate::Configuration configuration;
        configuration.disks = &disks;
        WindowStage stage(configuration);
        QVERIFY(stage.isShown);
        stage.key(Qt::Key_T, Qt::ControlModifier);
        const QPointer<QWidget> clock = stage.delegate.lastDialogController();
        QVERIFY(qobject_cast<MRVTimeSetupController*>(clock));
        stage.action(Command::ShowSettingPanel)->trigger();
        const QPointer<QWidget> settings = stage.delegate.lastDialogController();
        QVERIFY2(clock && clock->isVisible() && settings != clock,
                 "what was edited in the other one is not lost");
        stage.action(Command::ShowTimeSetupPanel)->trigger();
        QCOMPARE(stage.delegate.lastDialogController(), clock.data());

        stage.delegate.closeWindow();
        QTRY_VERIFY(!clock && !settings);
        QVERIFY(!stage.delegate.lastDialogController());
    }
};

int main(int argc, char** argv)
{
    prepareForMaps();
    QApplication application(argc, argv);
    WindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MRVAppDelegateTest.moc"
