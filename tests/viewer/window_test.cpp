// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The main window as a person drives it, with real films and the real player.
#include "card/clock/MRVTimeSetupController.h"
#include "controls/ElidedLabel.h"
#include "controls/FractionSlider.h"
#include "controls/ImageButton.h"
#include "platform/FolderDisks.h"
#include "settings/SettingFile.h"
#include "TemporaryFolder.h"
#include "viewer/Appearance.h"
#include "viewer/GraphView.h"
#include "viewer/LanguagePreference.h"
#include "viewer/MapSurface.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MediaControlBox.h"
#include "viewer/VideoView.h"
#include "viewer/VlcSession.h"
#include "viewer/window_stage.h"

#include <QAction>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QMimeData>
#include <QSettings>
#include <QStandardPaths>

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

private Q_SLOTS:
    void initTestCase();

    void startsCentredAndWithNothingOpen();
    void boxesOfTheWindow_data();
    void boxesOfTheWindow();
    void boxesOfTheFullScreen();
    void sideButtonsChangeThePanel();

    void doubleClickPlaysAndFillsThePanels();
    void anUnplayableRowSaysWhyAndLeavesTheOthersPlayable();
    void anotherFolderWhilePlayingKeepsThePanels();
    void closingWhileExtractingNeitherHangsNorCrashes();

    void foldersWithoutRecordingsSaySo();
    void aDroppedFolderOpens();
    void theDialogOpensTheChosenFolder();
    void theCardDecidesTheSpeedUnit_data();
    void theCardDecidesTheSpeedUnit();
    void onlyZeroAndOneSetTheSpeedUnit();
    void panelsOpenOnceAndGoWithTheWindow();

    void everyShortcutRunsItsCommand_data();
    void everyShortcutRunsItsCommand();
    void keysFindTheWindowWhereverTheFocusWas();
    void theLanguagePreferenceIsOverwritten();
};

void WindowTest::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO"));
    QCoreApplication::setApplicationName(QStringLiteral("marvo-window-test"));
    VlcInstance::setExtraOptions({"--aout=alsa", "--alsa-audio-device=null"});
    QVERIFY(installLanguage(InterfaceLanguage::English));
    applyAppearance(*qApp);

    m_card.makeFolder("AlwaysMovie");
    m_card.write("AlwaysMovie/alwa_20240517_080000_F.avi", std::string(4000, 'x'));
    QVERIFY(test::writeRecording(m_card.path("AlwaysMovie/alwa_20240517_081500_F.avi")));
    m_card.makeFolder("EventMovie");
    QVERIFY(test::writeRecording(m_card.path("EventMovie/event_20240517_081530.avi")));
    m_other.write("motion_20240518_081500.avi", "no film");
}

void WindowTest::startsCentredAndWithNothingOpen()
{
    WindowStage stage;
    QVERIFY(stage.isShown);
    const QRect visible = stage.window().screen()->availableGeometry();
    QCOMPARE(stage.window().frame(), minWindowFrame(visible));
    QCOMPARE(stage.window().initialFrame(), minWindowFrame(visible));
    QCOMPARE(stage.window().windowTitle(), QStringLiteral("MARVO"));
    QVERIFY(stage.window().windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(stage.delegate.playback().mediaIndex(), -1);
    QCOMPARE(stage.delegate.rightViewMode(), RecordingListMode);
    QCOMPARE(stage.delegate.views().mediaControlBox->volumeSlider()->fraction(), 70.0);
    QVERIFY(!stage.delegate.views().video1View->isVisible());
    QVERIFY(!stage.box("progressIndicator")->isVisible());
    QCOMPARE(stage.list().statusText(), QStringLiteral("No folder open"));
    QCOMPARE(stage.text("gsensorXField"), QStringLiteral("X=+0.00"));
    QCOMPARE(stage.text("speedField"), QString());
}

void WindowTest::boxesOfTheWindow_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("at start") << QSize(1020, 640);
    QTest::newRow("one step larger") << QSize(1224, 768);
    QTest::newRow("large") << QSize(1600, 900);
}

void WindowTest::boxesOfTheWindow()
{
    QFETCH(QSize, size);
    WindowStage stage;
    stage.window().resize(size);
    QTRY_COMPARE(stage.box("backgroundBox")->size(), size);
    const int w = size.width();
    const int h = size.height();
    const int left = w - 364; // two outer margins, the one between, the right column
    QCOMPARE(stage.place("headBox"), QRect(0, 0, w, 50));
    QCOMPARE(stage.place("bodyBox"), QRect(0, 50, w, h - 50));
    QCOMPARE(stage.place("bodyLeftBox"), QRect(10, 50, left, h - 58));
    QCOMPARE(stage.place("bodyRightBox"), QRect(w - 344, 50, 334, h - 58));
    QCOMPARE(stage.place("videoBox"), QRect(10, 50, left, h - 268));
    QCOMPARE(stage.place("videoContainerView"), stage.place("videoBox"));
    QCOMPARE(stage.place("player1BackgroundView"), stage.place("videoBox"));
    QCOMPARE(stage.place("gsensorBox"), QRect(10, h - 214, left, 130));
    QCOMPARE(stage.place("mediaControlBox"), QRect(10, h - 80, left, 72));
    QCOMPARE(stage.place("sideButtonBox"), QRect(w - 344, 50, 334, 22));
    QCOMPARE(stage.place("mediaListBox"), QRect(w - 344, 72, 334, h - 80));
    QCOMPARE(stage.place("mediaListScrollView"), stage.place("mediaListBox"));
    QVERIFY(!stage.box("mediaControlBoxForFullScreen")->isVisible());
    QVERIFY(!stage.box("mapContainerView")->isVisible());
}

void WindowTest::boxesOfTheFullScreen()
{
    WindowStage stage;
    const QRect start = stage.window().frame();
    stage.window().move(start.topLeft() + QPoint(20, 10));
    stage.key(Qt::Key_F);
    QVERIFY(stage.window().isFullScreen());
    const QSize screen = stage.window().screen()->size();
    QTRY_COMPARE(stage.box("backgroundBox")->size(), screen);
    const int w = screen.width();
    const int h = screen.height();
    QCOMPARE(stage.place("bodyBox"), QRect(0, 0, w, h));
    QCOMPARE(stage.place("bodyLeftBox"), QRect(0, 0, w, h - 2));
    QCOMPARE(stage.place("videoBox"), QRect(0, 0, w, h - 38));
    QCOMPARE(stage.place("mediaControlBoxForFullScreen"), QRect(0, h - 38, w - 2, 36));
    for (const char* name : {"headBox", "bodyRightBox", "gsensorBox", "mediaControlBox"})
        QVERIFY2(!stage.box(name)->isVisible(), name);

    stage.key(Qt::Key_Escape);
    QVERIFY(!stage.window().isFullScreen());
    QTRY_COMPARE(stage.window().geometry(), start);
    QTRY_COMPARE(stage.place("mediaListBox"), QRect(676, 72, 334, 560));
    for (const char* name : {"headBox", "bodyRightBox", "gsensorBox", "mediaControlBox"})
        QVERIFY2(stage.box(name)->isVisible(), name);
}

void WindowTest::sideButtonsChangeThePanel()
{
    WindowStage stage;
    auto* record = stage.window().findChild<ImageButton*>(QStringLiteral("recordButtonImageView"));
    auto* information = stage.window().findChild<ImageButton*>(QStringLiteral("informationButtonImageView"));
    QCOMPARE(record->imageName(), QStringLiteral("record_p.png"));
    QCOMPARE(information->imageName(), QStringLiteral("information_n.png"));

    QTest::mouseClick(information, Qt::LeftButton);
    QCOMPARE(stage.delegate.rightViewMode(), MapMode);
    QCOMPARE(record->imageName(), QStringLiteral("record_n.png"));
    QCOMPARE(information->imageName(), QStringLiteral("information_p.png"));
    QVERIFY(!stage.box("mediaListScrollView")->isVisible());
    QCOMPARE(stage.place("mapContainerView"), stage.place("mediaListBox"));
    QCOMPARE(stage.place("mapContainerTopView"), QRect(676, 72, 334, 462));
    QCOMPARE(stage.place("mapContainerBottomView"), QRect(676, 534, 334, 98));

    QTest::mouseClick(record, Qt::LeftButton);
    QCOMPARE(stage.delegate.rightViewMode(), RecordingListMode);
    QVERIFY(stage.box("mediaListScrollView")->isVisible());
    QVERIFY(!stage.box("mapContainerView")->isVisible());
}

void WindowTest::doubleClickPlaysAndFillsThePanels()
{
    WindowStage stage;
    QVERIFY(stage.open(m_card.path()));
    QCOMPARE(stage.list().model()->rowCount(), 3);
    QCOMPARE(stage.text("folderDetail"), QStringLiteral("3 recordings"));
    stage.doubleClickRow(2);
    stage.box("volumeSlider")->setFocus();
    QVERIFY(stage.box("progressIndicator")->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
    QTRY_VERIFY_WITH_TIMEOUT(!stage.text("speedField").isEmpty(), 5'000);
    QCOMPARE(stage.text("gsensorXField"), QStringLiteral("X=+0.25"));
    QCOMPARE(stage.text("gsensorYField"), QStringLiteral("Y=-1.50"));
    QCOMPARE(stage.text("gsensorZField"), QStringLiteral("Z=0.00"));
    QCOMPARE(stage.text("latitudeField"), QStringLiteral("37.5521"));
    QCOMPARE(stage.text("longitudeField"), QStringLiteral("126.9794"));
    QCOMPARE(stage.text("speedField"), QStringLiteral("59 Km/h"));
    QCOMPARE(stage.text("hdopField"), QStringLiteral("0.9"));
    QCOMPARE(stage.text("sateliteField"), QStringLiteral("8"));
    QCOMPARE(stage.delegate.views().graphView->values().size(), std::size_t(20));
    QCOMPARE(stage.text("lengthText"), QStringLiteral("0:04"));
    QCOMPARE(QApplication::focusWidget(), stage.box("volumeSlider")); // a start does not take the keyboard

    QVERIFY(stage.delegate.views().video1View->isVisible());
    QVERIFY(stage.list().model()->index(2, 0).data(RecordingTableModel::PlayingRole).toBool());
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

void WindowTest::anUnplayableRowSaysWhyAndLeavesTheOthersPlayable()
{
    WindowStage stage;
    QVERIFY(stage.open(m_card.path()));
    stage.doubleClickRow(0);
    const QModelIndex broken = stage.list().model()->index(0, 0);
    QTRY_VERIFY_WITH_TIMEOUT(broken.data(RecordingTableModel::UnplayableRole).toBool(), 10'000);
    QVERIFY(broken.data(Qt::ToolTipRole).toString().startsWith(QStringLiteral("Cannot be played: ")));
    QTRY_VERIFY(!stage.box("progressIndicator")->isVisible());
    QVERIFY(!stage.delegate.views().video1View->isVisible());
    stage.doubleClickRow(1);
    QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying(), 10'000);
    QVERIFY(broken.data(RecordingTableModel::UnplayableRole).toBool());
}

void WindowTest::anotherFolderWhilePlayingKeepsThePanels()
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
    QVERIFY(!stage.list().model()->index(0, 0).data(RecordingTableModel::PlayingRole).toBool());
    QTRY_VERIFY(!stage.delegate.views().video1View->isVisible());
    QVERIFY(stage.open(m_card.path()));
    stage.doubleClickRow(1); // the number of the one before
    QVERIFY(stage.list().model()->index(1, 0).data(RecordingTableModel::PlayingRole).toBool());
}

void WindowTest::closingWhileExtractingNeitherHangsNorCrashes()
{
    TemporaryFolder folder;
    const std::string file = folder.path("event_20240517_081530.avi");
    QVERIFY(test::writeRecording(file));
    // What is not the camera's is passed over word by word, so the walk of a file of this length takes long.
    std::filesystem::resize_file(file, std::uintmax_t(40) << 30);
    auto stage = std::make_unique<WindowStage>();
    QVERIFY(stage->open(folder.path()));
    stage->doubleClickRow(0);
    QVERIFY(stage->delegate.playback().waitingForPlayStart());
    QTest::qWait(100);
    QElapsedTimer closing;
    closing.start();
    QTest::keyClick(&stage->window(), Qt::Key_W, Qt::ControlModifier);
    QVERIFY(!stage->window().isVisible());
    stage.reset();
    QVERIFY(closing.elapsed() < 5'000);
}

void WindowTest::foldersWithoutRecordingsSaySo()
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

void WindowTest::aDroppedFolderOpens()
{
    WindowStage stage;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(m_card.path("EventMovie")))});
    QDragEnterEvent enter({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&stage.window(), &enter);
    QVERIFY(enter.isAccepted());
    QSignalSpy listed(&stage.delegate, &MRVAppDelegate::recordingsListed);
    QDropEvent drop({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&stage.window(), &drop);
    QVERIFY(listed.wait());
    QCOMPARE(stage.list().model()->rowCount(), 1);
}

void WindowTest::theDialogOpensTheChosenFolder()
{
    WindowStage stage;
    QTest::mouseClick(stage.box("listOpenButton"), Qt::LeftButton);
    auto* dialog = stage.window().findChild<QFileDialog*>(QStringLiteral("openMediaDirectoryDialog"));
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(dialog->fileMode(), QFileDialog::Directory);
    dialog->reject();
    QVERIFY(!stage.delegate.mediaList().isScanning());

    QSignalSpy listed(&stage.delegate, &MRVAppDelegate::recordingsListed);
    QTRY_VERIFY(!stage.window().findChild<QFileDialog*>(QStringLiteral("openMediaDirectoryDialog")));
    stage.key(Qt::Key_O);
    dialog = stage.window().findChild<QFileDialog*>(QStringLiteral("openMediaDirectoryDialog"));
    QVERIFY(dialog);
    dialog->setDirectory(QString::fromStdString(m_card.path("AlwaysMovie")));
    dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(m_card.path("AlwaysMovie")));
    static_cast<QDialog*>(dialog)->accept();
    QVERIFY(listed.wait());
    QCOMPARE(stage.list().model()->rowCount(), 2);
}

void WindowTest::theCardDecidesTheSpeedUnit_data()
{
    QTest::addColumn<QByteArray>("folder");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<bool>("miles");
    QTest::newRow("card itself") << QByteArray(".") << 272 << true;
    QTest::newRow("a folder of the card") << QByteArray("EventMovie") << 272 << true;
    QTest::newRow("with a slash at its end") << QByteArray("EventMovie/") << 272 << true;
    QTest::newRow("some other folder") << QByteArray("Holiday") << 272 << false;
    QTest::newRow("file too short") << QByteArray(".") << 271 << false;
    QTest::newRow("file too long") << QByteArray(".") << 273 << false;
}

void WindowTest::theCardDecidesTheSpeedUnit()
{
    QFETCH(QByteArray, folder);
    QFETCH(int, bytes);
    TemporaryFolder card;
    card.makeFolder("EventMovie");
    card.makeFolder("Holiday");
    _FILEDATA record;
    fillDefaultFileData(record);
    record.speedUnit = 1;
    QVERIFY(!saveSettingFile(record, card.path("config.bin")));
    std::filesystem::resize_file(card.path("config.bin"), static_cast<std::uintmax_t>(bytes));
    const auto found = readCardSettings(card.path(folder.toStdString()));
    QTEST(found && found->speedUnit == 1, "miles");

    WindowStage stage;
    QVERIFY(!stage.delegate.m_bMileDisplay());
    QVERIFY(stage.open(card.path(folder.toStdString())));
    QFETCH(bool, miles);
    QTRY_COMPARE(stage.delegate.m_bMileDisplay(), miles);
}

void WindowTest::onlyZeroAndOneSetTheSpeedUnit()
{
    WindowStage stage;
    stage.delegate.setDisplayMile(1);
    stage.delegate.setDisplayMile(2);
    QVERIFY(stage.delegate.m_bMileDisplay());
    stage.delegate.setDisplayMile(0);
    stage.delegate.setDisplayMile(0xFFFFFFFF);
    QVERIFY(!stage.delegate.m_bMileDisplay());
}

void WindowTest::everyShortcutRunsItsCommand_data()
{
    QTest::addColumn<QString>("focus");
    for (const char* focus :
         {"window", "mediaListTableView", "videoPositionSlider", "toggleFullScreenButton", "listSearchField"})
        QTest::newRow(focus) << QString::fromLatin1(focus);
}

void WindowTest::everyShortcutRunsItsCommand()
{
    QFETCH(QString, focus);
    WindowStage stage;
    QVERIFY(stage.open(m_card.path()));
    QWidget* where =
        focus == QLatin1StringView("window") ? &stage.window() : stage.window().findChild<QWidget*>(focus);
    const auto isOwnKey = [&focus](const QKeyCombination& keys) {
        const int key = keys.key();
        if (focus == QLatin1StringView("mediaListTableView"))
            return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter;
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

void WindowTest::keysFindTheWindowWhereverTheFocusWas()
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

void WindowTest::theLanguagePreferenceIsOverwritten()
{
    if (supportLanguage() == QLatin1StringView("auto"))
        QSKIP("this build leaves the language to the desktop");
    QSettings preferences;
    const QString key = QStringLiteral("AppleLanguages");
    preferences.setValue(key, QStringList{QStringLiteral("fr"), QStringLiteral("de")});
    QLoggingCategory::setFilterRules(QStringLiteral("marvo.viewer.info=true"));
    QTest::ignoreMessage(QtInfoMsg, "SUPPORT_LANGUAGE=fr");
    QTest::ignoreMessage(QtInfoMsg, "SUPPORT_LANGUAGE=de");
    storeLanguagePreference(preferences);
    QCOMPARE(preferences.value(key).toStringList(), QStringList{supportLanguage()});
}

void WindowTest::panelsOpenOnceAndGoWithTheWindow()
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

int main(int argc, char** argv)
{
    prepareForMaps();
    QApplication application(argc, argv);
    WindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "window_test.moc"
