// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The parts of the main window, each by itself: places, list, loading indicator, sliders, commands.
#include "controls/FractionSlider.h"
#include "controls/ImageNamed.h"
#include "controls/PMProgressIndicator.h"
#include "media/MRVMediaList.h"
#include "TemporaryFolder.h"
#include "texts/Localisation.h"
#include "viewer/Appearance.h"
#include "viewer/CustomWindow.h"
#include "viewer/LoadingIndicator.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MediaControlBox.h"
#include "viewer/RecordingListView.h"
#include "viewer/RecordingTableModel.h"
#include "viewer/WindowEdges.h"

#include <QAction>
#include <QSet>
#include <QSignalSpy>
#include <QtTest>

using namespace marvo;
using namespace std::chrono_literals;

namespace {

/// A list that has scanned a folder of empty files with these names.
void scan(MRVMediaList& list, const test::TemporaryFolder& folder, const std::vector<std::string>& names)
{
    for (const std::string& name : names)
        folder.write(name);
    QSignalSpy done(&list, &MRVMediaList::mediaListChanged);
    list.setDirectoryPath(folder.path());
    QVERIFY(done.wait());
}

} // namespace

class WindowPartsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        applyAppearance(*qApp);
        QVERIFY(installLanguage(InterfaceLanguage::English));
    }

    void boxesLieWhereTheyShould();
    void windowSmallerThanItsFixedPartsHasNoNegativeBoxes();
    void startFrameIsCentredInTheFreeArea();
    void draggingStopsAtTheTopOnly_data();
    void draggingStopsAtTheTopOnly();
    void draggedEdgesRespectTheLeastSize_data();
    void draggedEdgesRespectTheLeastSize();
    void fullScreenReturnsToTheStartFrame();
    void escapeOutOfFullScreenChangesNothing();

    void panelsDecideThePresentationOptions_data();
    void panelsDecideThePresentationOptions();

    void cells_data();
    void cells();
    void unplayableRowTellsWhyUntilTheNextFolder();
    void listKeepsItsOwnKeys();
    void everyKindHasRoomInItsColumn();

    void loadingIndicatorGivesUpAfterFiftyTicks();
    void loadingIndicatorGoesAtTheNextTickWhenTold();

    void sliderTellsTheUserFromTheProgram();
    void playTimes_data();
    void playTimes();
    void everyImageExists();
    void commandsHaveTitlesAndTheirOwnKeys();
};

void WindowPartsTest::boxesLieWhereTheyShould()
{
    const MainWindowLayout windowed = layoutWindow({1020, 640}, WindowMode::Windowed);
    QCOMPARE(windowed.backgroundBox, QRect(0, 0, 1020, 640));
    QCOMPARE(windowed.headBox, QRect(0, 0, 1020, 50));
    QCOMPARE(windowed.bodyBox, QRect(0, 50, 1020, 590));
    QCOMPARE(windowed.bodyLeftBox, QRect(10, 0, 656, 582));
    QCOMPARE(windowed.bodyRightBox, QRect(676, 0, 334, 582));
    QCOMPARE(windowed.videoBox, QRect(0, 0, 656, 372));
    QCOMPARE(windowed.gsensorBox, QRect(0, 376, 656, 130));
    QCOMPARE(windowed.mediaControlBox, QRect(0, 510, 656, 72));
    QCOMPARE(windowed.sideButtonBox, QRect(0, 0, 334, 22));
    QCOMPARE(windowed.mediaListBox, QRect(0, 22, 334, 560));
    QVERIFY(windowed.mediaControlBoxForFullScreen.isNull());

    const MainWindowLayout full = layoutWindow({1920, 1080}, WindowMode::FullScreen);
    QCOMPARE(full.backgroundBox, QRect(0, 0, 1920, 1080));
    QCOMPARE(full.bodyBox, QRect(0, 0, 1920, 1080));
    QCOMPARE(full.bodyLeftBox, QRect(0, 0, 1920, 1078));
    QCOMPARE(full.videoBox, QRect(0, 0, 1920, 1042));
    QCOMPARE(full.mediaControlBoxForFullScreen, QRect(0, 1042, 1918, 36));
    for (const QRect& gone : {full.headBox, full.bodyRightBox, full.gsensorBox, full.mediaControlBox,
                              full.sideButtonBox, full.mediaListBox})
        QVERIFY(gone.isNull());

    const MapContainerLayout map = layoutMapContainer({334, 560});
    QCOMPARE(map.mapContainerTopView, QRect(0, 0, 334, 462));
    QCOMPARE(map.mapContainerBottomView, QRect(0, 462, 334, 98));
}

void WindowPartsTest::windowSmallerThanItsFixedPartsHasNoNegativeBoxes()
{
    const MainWindowLayout layout = layoutWindow({200, 100}, WindowMode::Windowed);
    for (const QRect& rect : {layout.bodyLeftBox, layout.videoBox, layout.gsensorBox, layout.mediaListBox})
        QVERIFY(rect.width() >= 0 && rect.height() >= 0);
}

void WindowPartsTest::startFrameIsCentredInTheFreeArea()
{
    QCOMPARE(minWindowFrame({0, 30, 1920, 1050}), QRect(450, 235, 1020, 640));
    QCOMPARE(minWindowFrame({1920, 0, 1000, 600}), QRect(1910, -20, 1020, 640));
}

void WindowPartsTest::draggingStopsAtTheTopOnly_data()
{
    QTest::addColumn<QPoint>("location");
    QTest::addColumn<QPoint>("origin");
    const QPoint pressed(200, 20);
    QTest::newRow("down and right") << pressed + QPoint(30, 40) << QPoint(130, 140);
    QTest::newRow("up to the free area's top") << pressed + QPoint(0, -70) << QPoint(100, 30);
    QTest::newRow("up past it") << pressed + QPoint(5, -90) << QPoint(105, 30);
    QTest::newRow("left off the screen") << pressed + QPoint(-500, 0) << QPoint(-400, 100);
    QTest::newRow("down off the screen") << pressed + QPoint(0, 5000) << QPoint(100, 5100);
}

void WindowPartsTest::draggingStopsAtTheTopOnly()
{
    QFETCH(QPoint, location);
    QTEST(draggedOrigin({100, 100}, location, {200, 20}, {0, 30, 1920, 1050}), "origin");
}

void WindowPartsTest::draggedEdgesRespectTheLeastSize_data()
{
    QTest::addColumn<int>("edges");
    QTest::addColumn<QPoint>("delta");
    QTest::addColumn<QRect>("frame");
    QTest::newRow("right") << int(Qt::RightEdge) << QPoint(50, 9) << QRect(100, 100, 1050, 700);
    QTest::newRow("left, too far") << int(Qt::LeftEdge) << QPoint(900, 0) << QRect(300, 100, 800, 700);
    QTest::newRow("top left, too far")
        << int(Qt::TopEdge | Qt::LeftEdge) << QPoint(900, 900) << QRect(300, 300, 800, 500);
    QTest::newRow("bottom, too far") << int(Qt::BottomEdge) << QPoint(0, -900) << QRect(100, 100, 1000, 500);
}

void WindowPartsTest::draggedEdgesRespectTheLeastSize()
{
    QFETCH(int, edges);
    QFETCH(QPoint, delta);
    QTEST(draggedFrame({100, 100, 1000, 700}, Qt::Edges(edges), delta, {800, 500}), "frame");
}

void WindowPartsTest::fullScreenReturnsToTheStartFrame()
{
    CustomWindow window;
    QSignalSpy changes(&window, &CustomWindow::isFullScreenChanged);
    const QRect start(50, 60, 800, 500);
    window.setFrame(start, CustomWindow::FrameChange::AtOnce);
    window.setInitialFrame(start);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.setFrame({0, 0, 900, 600}, CustomWindow::FrameChange::AtOnce);

    window.enterFullscreen();
    window.enterFullscreen();
    QCOMPARE(changes.size(), 1);
    QTRY_COMPARE(window.geometry(), window.screen()->geometry());
    QTest::keyClick(&window, Qt::Key_Escape);
    QCOMPARE(changes.size(), 2);
    QTRY_COMPARE(window.geometry(), start);

    window.setInitialFrame({90'000, 60, 800, 500}); // on a screen that has been unplugged
    window.enterFullscreen();
    window.leaveFullscreen();
    QTRY_COMPARE(window.size(), QSize(800, 500));
    QVERIFY(window.screen()->geometry().contains(window.geometry()));

    CustomWindow unset;
    unset.setFrame({10, 20, 700, 400}, CustomWindow::FrameChange::AtOnce);
    unset.enterFullscreen();
    QCOMPARE(unset.initialFrame(), QRect(10, 20, 700, 400));
}

void WindowPartsTest::escapeOutOfFullScreenChangesNothing()
{
    CustomWindow window;
    window.setFrame({50, 60, 800, 500}, CustomWindow::FrameChange::AtOnce);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(window.isVisible());
    QCOMPARE(window.geometry(), QRect(50, 60, 800, 500));
}

void WindowPartsTest::panelsDecideThePresentationOptions_data()
{
    QTest::addColumn<QRect>("visible");
    QTest::addColumn<bool>("menuBar");
    QTest::addColumn<bool>("dock");
    QTest::addColumn<unsigned>("options");
    const unsigned both = AutoHideMenuBar | AutoHideDock;
    QTest::newRow("panel at the top") << QRect(0, 30, 1920, 1050) << true << false << both;
    QTest::newRow("at the bottom") << QRect(0, 0, 1920, 1040) << false << true << unsigned(AutoHideDock);
    QTest::newRow("at the left") << QRect(70, 0, 1850, 1080) << false << true << unsigned(AutoHideDock);
    QTest::newRow("at top and bottom") << QRect(0, 30, 1920, 1010) << true << true << both;
    QTest::newRow("none that is told of") << QRect(0, 0, 1920, 1080) << true << true << both;
}

void WindowPartsTest::panelsDecideThePresentationOptions()
{
    QFETCH(QRect, visible);
    const ScreenAreas screen{{0, 0, 1920, 1080}, visible};
    QTEST(screen.hasMenuBar(), "menuBar");
    QTEST(screen.hasDock(), "dock");
    const unsigned other = 2; // a bit of somebody else's
    const unsigned entered = withFullscreenOptions(other, screen);
    QTEST(entered & ~other, "options");
    QCOMPARE(withoutFullscreenOptions(entered, screen), other);

    // Whatever becomes of the panels meanwhile, nothing that was asked for stays.
    QWidget window;
    WindowStatePresentation presentation;
    presentation.setFullscreenPresentationOptions(window, screen);
    QVERIFY(window.windowState() & Qt::WindowFullScreen);
    presentation.setNonFullscreenPresentationOptions(window, {{0, 0, 1920, 1080}, {0, 0, 1920, 1040}});
    QCOMPARE(presentation.options(), unsigned(noPresentationOptions));
    QVERIFY(!(window.windowState() & Qt::WindowFullScreen));
}

void WindowPartsTest::cells_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<bool>("hasIcon");
    const QString event = QStringLiteral("event_20130526_134502.avi");
    QTest::newRow("event") << event
                           << QStringList{QStringLiteral("Event"), QStringLiteral("2013-05-26"),
                                          QStringLiteral("13:45:02"), event}
                           << true;
    const QString always = QStringLiteral("alwa_20130526_000000_F.avi");
    QTest::newRow("continuous") << always
                                << QStringList{QStringLiteral("Continuous"), QStringLiteral("2013-05-26"),
                                               QStringLiteral("00:00:00"), always}
                                << true;
    const QString timeless = QStringLiteral("ALWA_20130526_134502.AVI");
    QTest::newRow("time not readable")
        << timeless << QStringList{QStringLiteral("Continuous"), QString(), QString(), timeless} << true;
}

void WindowPartsTest::cells()
{
    QFETCH(QString, file);
    QFETCH(QStringList, texts);
    test::TemporaryFolder folder;
    MRVMediaList list;
    scan(list, folder, {file.toStdString()});
    RecordingTableModel model(list);
    model.reload();
    QCOMPARE(model.rowCount(), 1);
    for (int column = 0; column < RecordingTableModel::ColumnCount; ++column)
        QCOMPARE(model.index(0, column).data().toString(), texts[column]);
    const QIcon icon = model.index(0, RecordingTableModel::SaveMode).data(Qt::DecorationRole).value<QIcon>();
    QTEST(!icon.isNull(), "hasIcon");
    QVERIFY(!model.index(0, RecordingTableModel::Date).data(Qt::DecorationRole).isValid());
    QCOMPARE(model.index(0, 0).data(Qt::FontRole).value<QFont>().pointSize(), 11);
}

void WindowPartsTest::unplayableRowTellsWhyUntilTheNextFolder()
{
    test::TemporaryFolder folder;
    MRVMediaList list;
    scan(list, folder, {"event_20130526_134502.avi", "event_20130526_134503.avi"});
    RecordingTableModel model(list);
    model.reload();
    model.markUnplayable(1, QStringLiteral("No picture."));
    for (int column = 0; column < RecordingTableModel::ColumnCount; ++column)
        QVERIFY(
            model.index(1, column).data(Qt::ToolTipRole).toString().contains(QStringLiteral("No picture.")));
    QVERIFY(model.index(1, 0).data(RecordingTableModel::UnplayableRole).toBool());
    QVERIFY(!model.index(0, 0).data(RecordingTableModel::UnplayableRole).toBool());
    QVERIFY(model.index(1, 0).data(Qt::ForegroundRole) != model.index(0, 0).data(Qt::ForegroundRole));
    model.reload();
    QVERIFY(!model.index(1, 0).data(RecordingTableModel::UnplayableRole).toBool());
}

void WindowPartsTest::listKeepsItsOwnKeys()
{
    test::TemporaryFolder folder;
    MRVMediaList list;
    scan(list, folder, {"event_20130526_134502.avi", "event_20130526_134503.avi"});
    RecordingTableModel model(list);
    model.reload();

    QWidget window;
    RecordingListView view(&window);
    view.setModel(&model);
    QSignalSpy activated(&view, &RecordingListView::rowActivated);
    QAction volume(&window);
    volume.setShortcut(Qt::Key_Down);
    QAction play(&window);
    play.setShortcuts({Qt::Key_Return, Qt::Key_Space});
    window.addActions({&volume, &play});
    QSignalSpy volumeSpy(&volume, &QAction::triggered);
    QSignalSpy playSpy(&play, &QAction::triggered);
    window.show();
    window.activateWindow();
    view.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    view.selectOnlyRow(0);
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.selectedRow(), 1);
    QCOMPARE(volumeSpy.size(), 0);
    QTest::keyClick(&view, Qt::Key_Return);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated[0][0].toLongLong(), 1);
    QCOMPARE(playSpy.size(), 0);
    QTest::keyClick(&view, Qt::Key_Space);
    QCOMPARE(playSpy.size(), 1);
}

void WindowPartsTest::everyKindHasRoomInItsColumn()
{
    for (const auto language : {InterfaceLanguage::English, InterfaceLanguage::Korean}) {
        QVERIFY(installLanguage(language));
        test::TemporaryFolder folder;
        MRVMediaList list;
        scan(list, folder,
             {"alwa_20130526_134502.avi", "motion_20130526_134502.avi", "event_20130526_134502.avi"});
        RecordingTableModel model(list);
        model.reload();
        RecordingListView view;
        view.setModel(&model);
        view.resize(334, 400);
        view.show();
        model.setPlayingRow(0);
        for (int row = 0; row < model.rowCount(); ++row)
            for (const int column : {0, 1, 2}) {
                const int needed = view.sizeHintForIndex(model.index(row, column)).width();
                QVERIFY2(needed <= view.columnWidth(column), qPrintable(QStringLiteral("column %1: %2 > %3")
                                                                            .arg(column)
                                                                            .arg(needed)
                                                                            .arg(view.columnWidth(column))));
            }
        QVERIFY(view.columnWidth(3) >= 40);
    }
    QVERIFY(installLanguage(InterfaceLanguage::English));
}

void WindowPartsTest::loadingIndicatorGivesUpAfterFiftyTicks()
{
    QWidget box;
    box.resize(1020, 50);
    PMProgressIndicator bar(&box);
    bar.resize(200, 6);
    bar.move(3, 22);
    LoadingIndicator loading(bar, 2ms);
    box.show();

    loading.showLoading(QStringLiteral("Loading..."));
    QVERIFY(bar.isVisible());
    QVERIFY(bar.isIndeterminate());
    QCOMPARE(bar.pos(), QPoint(410, 22));
    QVERIFY(!loading.stopVideoLoadingView());
    QElapsedTimer shown;
    shown.start();
    QTRY_VERIFY(!bar.isVisible());
    QCOMPARE(loading.progress(), 100.0); // two a tick
    QVERIFY(shown.elapsed() >= 50 * 2 - 2);
    QVERIFY(loading.stopVideoLoadingView());
}

void WindowPartsTest::loadingIndicatorGoesAtTheNextTickWhenTold()
{
    QWidget box;
    PMProgressIndicator bar(&box);
    LoadingIndicator loading(bar, 20ms);
    box.show();
    loading.showLoading(QString());
    loading.hideLoading();
    QVERIFY(bar.isVisible());
    QVERIFY(loading.stopVideoLoadingView());
    QTRY_VERIFY(!bar.isVisible());

    // A start while the chain of ticks of the one before still runs has its full time again.
    loading.showLoading(QString());
    QTRY_VERIFY(loading.progress() > 8);
    loading.showLoading(QString());
    QCOMPARE(loading.progress(), 0.0);
    QVERIFY(!loading.stopVideoLoadingView());
}

void WindowPartsTest::sliderTellsTheUserFromTheProgram()
{
    FractionSlider slider(1.0, 0.01, 0.1, FractionSlider::Keys::HomeEndPages);
    slider.resize(214, 24); // 200 of travel
    slider.show();
    QVERIFY(QTest::qWaitForWindowExposed(&slider));
    QSignalSpy moved(&slider, &FractionSlider::userMoved);

    slider.setFraction(0.998);
    QCOMPARE(slider.fraction(), 0.998);
    slider.setFraction(7);
    QCOMPARE(slider.fraction(), 1.0);
    slider.setFraction(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(slider.fraction(), 1.0);
    QCOMPARE(moved.size(), 0);

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(107, 12));
    QCOMPARE(moved.size(), 1);
    QVERIFY(std::abs(slider.fraction() - 0.5) < 0.01);
    slider.setFraction(0.1); // what playback reports waits while the knob is held
    QVERIFY(std::abs(slider.fraction() - 0.5) < 0.01);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(107, 12));
    QTest::keyClick(&slider, Qt::Key_Home);
    QCOMPARE(slider.fraction(), 0.0);
    QCOMPARE(moved.size(), 2);

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(107, 12));
    slider.hide(); // as the bar of the full screen goes with a new recording
    slider.show();
    slider.setFraction(0.1);
    QCOMPARE(slider.fraction(), 0.1);
}

void WindowPartsTest::playTimes_data()
{
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<QString>("text");
    QTest::newRow("start") << qint64(0) << QStringLiteral("0:00");
    QTest::newRow("before the second") << qint64(59'999) << QStringLiteral("0:59");
    QTest::newRow("minutes") << qint64(754'000) << QStringLiteral("12:34");
    QTest::newRow("hours") << qint64(3'723'000) << QStringLiteral("1:02:03");
    QTest::newRow("below zero") << qint64(-5) << QStringLiteral("0:00");
}

void WindowPartsTest::playTimes()
{
    QFETCH(qint64, ms);
    QTEST(playTimeText(ms), "text");
}

void WindowPartsTest::everyImageExists()
{
    QStringList names{QStringLiteral("ci_no_bg"),
                      QStringLiteral("v1_front_logo"),
                      QStringLiteral("record_p.png"),
                      QStringLiteral("record_n.png"),
                      QStringLiteral("information_p.png"),
                      QStringLiteral("information_n.png"),
                      QStringLiteral("icon_play_n"),
                      QStringLiteral("icon_pause_n"),
                      QStringLiteral("car_alwa"),
                      QStringLiteral("car_motion"),
                      QStringLiteral("car_event"),
                      QStringLiteral("bottom-background"),
                      QStringLiteral("marvo")};
    for (const char* part :
         {"top_left_corner", "top_right_corner", "bottom_left_corner", "bottom_right_corner",
          "left_edge_fill", "right_edge_fill", "top_edge_fill", "bottom_edge_fill", "center_fill"})
        names << QStringLiteral("v1_%1").arg(QLatin1StringView(part));
    for (const QString& name : names) {
        QVERIFY2(!imageNamed(name).isNull(), qPrintable(name));
        QCOMPARE(imageNamed(name, 2).size(), imageNamed(name).size() * 2);
    }
    QTest::ignoreMessage(QtWarningMsg, "no image named \"none\"");
    QVERIFY(imageNamed(QStringLiteral("none")).isNull());
}

void WindowPartsTest::commandsHaveTitlesAndTheirOwnKeys()
{
    for (const auto language : {InterfaceLanguage::English, InterfaceLanguage::Korean}) {
        QVERIFY(installLanguage(language));
        QWidget window;
        MainWindowCommands commands(window);
        QSet<QString> keys;
        for (const CommandRow& row : commandTable()) {
            const QAction* action = commands.action(row.command);
            QCOMPARE(action->objectName(), QLatin1StringView(row.name));
            QVERIFY2(!action->text().startsWith(QLatin1StringView("viewer.")), row.name);
            QVERIFY2(!action->toolTip().contains(QLatin1StringView("viewer.")), row.name);
            for (const QKeySequence& key : row.shortcuts) {
                QVERIFY2(!keys.contains(key.toString()), qPrintable(key.toString()));
                keys << key.toString();
            }
        }
    }
    QVERIFY(installLanguage(InterfaceLanguage::English));
}

QTEST_MAIN(WindowPartsTest)
#include "window_parts_test.moc"
