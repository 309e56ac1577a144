// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The parts of the main window, each by itself: places, list, loading indicator, sliders, commands.
#include "controls/FractionSlider.h"
#include "controls/ImageButton.h"
#include "controls/ImageNamed.h"
#include "controls/PMProgressIndicator.h"
#include "media/MRVMediaList.h"
#include "TemporaryFolder.h"
#include "texts/Localisation.h"
#include "texts/PlayTimeText.h"
#include "viewer/Appearance.h"
#include "viewer/CustomWindow.h"
#include "viewer/list/RecordingListView.h"
#include "viewer/list/RecordingRowDelegate.h"
#include "viewer/list/RecordingTableModel.h"
#include "viewer/LoadingIndicator.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/MainWindowLayout.h"
#include "viewer/MediaControlBox.h"
#include "viewer/WindowEdges.h"

#include <QAction>
#include <QSignalSpy>
#include <QTextDocument>
#include <QtTest>

#include <filesystem>

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

    void smallScreensAndWindows()
    {
        QCOMPARE(minWindowFrame({1920, 0, 1000, 600}), QRect(1910, -20, 1020, 640));
        const MainWindowLayout layout = layoutWindow({200, 100}, WindowMode::Windowed);
        for (const QRect& rect :
             {layout.bodyLeftBox, layout.videoBox, layout.gsensorBox, layout.mediaListBox})
            QVERIFY(rect.width() >= 0 && rect.height() >= 0);
    }

    void framesLargerThanTheScreenAreCutToIt()
    {
        const std::pair<QRect, QRect> rows[] = {
            {{-30, -50, 1020, 640}, {0, 30, 960, 510}}, // both too large
            {{900, 0, 800, 640}, {900, 30, 800, 510}},  // beyond the right edge by the user's own hand
            {{100, 100, 800, 500}, {100, 100, 800, 500}},
        };
        for (const auto& [frame, fitted] : rows)
            QCOMPARE(fittedFrame(frame, {0, 30, 960, 510}), fitted);
    }

    void draggingStopsAtTheTopOnly()
    {
        const std::pair<QPoint, QPoint> rows[] = {
            {{30, 40}, {130, 140}},   {{0, -70}, {100, 30}},    {{5, -90}, {105, 30}},
            {{-500, 0}, {-400, 100}}, {{0, 5000}, {100, 5100}},
        };
        const QPoint pressed(200, 20);
        for (const auto& [by, origin] : rows)
            QCOMPARE(draggedOrigin({100, 100}, pressed + by, pressed, {0, 30, 1920, 1050}), origin);
    }

    void draggedEdgesRespectTheLeastSize()
    {
        const std::tuple<Qt::Edges, QPoint, QRect> rows[] = {
            {Qt::RightEdge, {50, 9}, {100, 100, 1050, 700}},
            {Qt::LeftEdge, {900, 0}, {300, 100, 800, 700}},
            {Qt::TopEdge | Qt::LeftEdge, {900, 900}, {300, 300, 800, 500}},
            {Qt::BottomEdge, {0, -900}, {100, 100, 1000, 500}},
        };
        for (const auto& [edges, delta, frame] : rows)
            QCOMPARE(draggedFrame({100, 100, 1000, 700}, edges, delta, {800, 500}), frame);
    }

    void fullScreenReturnsToAScreenThatIsThere()
    {
        CustomWindow window;
        QSignalSpy changes(&window, &CustomWindow::isFullScreenChanged);
        const QRect start(50, 60, 800, 500);
        window.setFrame(start, CustomWindow::FrameChange::AtOnce);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::keyClick(&window, Qt::Key_Escape); // there is nothing to escape from
        QVERIFY(window.isVisible());
        QCOMPARE(window.geometry(), start);

        window.enterFullscreen(); // where it goes back to has never been set
        window.enterFullscreen();
        QCOMPARE(changes.size(), 1);
        QCOMPARE(window.initialFrame(), start);
        QTest::keyClick(&window, Qt::Key_Escape);
        QCOMPARE(changes.size(), 2);

        window.setInitialFrame({90'000, 60, 800, 500}); // on a screen that has been unplugged
        window.enterFullscreen();
        window.leaveFullscreen();
        QTRY_COMPARE(window.size(), QSize(800, 500));
        QVERIFY(window.screen()->geometry().contains(window.geometry()));
    }

    void panelsDecideThePresentationOptions()
    {
        const unsigned both = AutoHideMenuBar | AutoHideDock;
        const std::pair<QRect, unsigned> rows[] = {
            {{0, 30, 1920, 1050}, both},         {{0, 0, 1920, 1040}, AutoHideDock},
            {{70, 0, 1850, 1080}, AutoHideDock}, {{0, 30, 1920, 1010}, both},
            {{0, 0, 1920, 1080}, both}, // of no panel is told
        };
        for (const auto& [visible, options] : rows) {
            const ScreenAreas screen{{0, 0, 1920, 1080}, visible};
            const unsigned other = 2; // a bit of somebody else's
            const unsigned entered = withFullscreenOptions(other, screen);
            QCOMPARE(entered & ~other, options);
            QCOMPARE(withoutFullscreenOptions(entered, screen), other);

            // Whatever becomes of the panels meanwhile, nothing that was asked for stays.
            QWidget window;
            WindowStatePresentation presentation;
            presentation.setFullscreenPresentationOptions(window, screen);
            QVERIFY(window.windowState() & Qt::WindowFullScreen);
            presentation.setNonFullscreenPresentationOptions(window,
                                                             {{0, 0, 1920, 1080}, {0, 0, 1920, 1040}});
            QCOMPARE(presentation.options(), unsigned(noPresentationOptions));
            QVERIFY(!(window.windowState() & Qt::WindowFullScreen));
        }
    }

    void cellsHaveTextsAndRoomForThem()
    {
        const QStringList expected{
            QStringLiteral("Event|2013-05-26|13:45:02|event_20130526_134502.avi"),
            QStringLiteral("Motion|2013-05-26|13:45:01|motion_20130526_134501.avi"),
            QStringLiteral("Continuous|2013-05-26|00:00:00|alwa_20130526_000000_F.avi"),
            QStringLiteral("Continuous|||ALWA_20130526_134502.AVI"), // its time is not readable
        };
        for (const auto language : {InterfaceLanguage::Korean, InterfaceLanguage::English}) {
            QVERIFY(installLanguage(language));
            test::TemporaryFolder folder;
            MRVMediaList list;
            std::vector<std::string> names;
            for (const QString& row : expected)
                names.push_back(row.section(u'|', 3).toStdString());
            scan(list, folder, names);
            RecordingTableModel model(list);
            model.reload();
            RecordingListView view;
            view.setModel(&model);
            view.resize(334, 400);
            view.show();
            model.setPlayingRow(0);
            QCOMPARE(model.rowCount(), expected.size());
            for (int row = 0; row < model.rowCount(); ++row) {
                QStringList texts;
                for (int column = 0; column < RecordingTableModel::ColumnCount; ++column) {
                    texts << model.index(row, column).data().toString();
                    const int needed = view.sizeHintForIndex(model.index(row, column)).width();
                    QVERIFY2(column == 3 || needed <= view.columnWidth(column), qPrintable(texts.last()));
                }
                QVERIFY(!model.index(row, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
                if (language == InterfaceLanguage::English)
                    QVERIFY2(expected.contains(texts.join(u'|')), qPrintable(texts.join(u'|')));
            }
            view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
            QCoreApplication::processEvents();
            const QFontMetrics metrics(model.index(0, 3).data(Qt::FontRole).value<QFont>());
            const QString shown =
                elidedFileName(expected[2].section(u'|', 3), metrics, view.columnWidth(3) - 7);
            QVERIFY2(shown.endsWith(QStringLiteral("_F.avi")), qPrintable(shown));
        }
    }

    /// A tool tip is HTML where it looks like it; what is read then must be the path all the same.
    void tipsOfFoldersThatLookLikeHtml()
    {
        for (const char* name : {"card", "<i>card", "<b>a  b<br>", "<i>x &lt;b"}) {
            test::TemporaryFolder folder;
            MRVMediaList list;
            std::filesystem::create_directory(folder.path(name));
            scan(list, folder, {std::string(name) + "/alwa_20130526_134502_F.avi"});
            RecordingTableModel model(list);
            model.reload();
            const QString tip = model.index(0, 0).data(Qt::ToolTipRole).toString();
            QTextDocument shown;
            if (Qt::mightBeRichText(tip))
                shown.setHtml(tip);
            else
                shown.setPlainText(tip);
            QCOMPARE(shown.toPlainText(), QString::fromStdString(list.mediaAtIndex(0)->path()));
        }
    }

    void controlsOfANarrowWindowDoNotOverlap()
    {
        QWidget window;
        const MainWindowCommands commands(window);
        MediaControlBox box(commands, &window);
        window.show();
        const auto shown = [&box] {
            QList<QWidget*> widgets = box.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
            widgets.removeIf([](const QWidget* widget) { return !widget->isVisible(); });
            return widgets;
        };
        box.resize(656, 72);
        QTest::qWait(1);
        const auto all = shown();
        for (const int width : {600, 430, 300, 120, 62}) {
            box.resize(width, 72);
            QTest::qWait(1); // for the row to be laid out
            QVERIFY(box.playButton()->isVisible());
            const auto left = shown();
            for (const QWidget* one : left) {
                if (one->y() < 30)
                    continue; // the slider's row
                QVERIFY(box.rect().contains(one->geometry()));
                for (const QWidget* other : left)
                    QVERIFY(one == other || !one->geometry().intersects(other->geometry()));
            }
        }
        QVERIFY(shown().size() < all.size() / 2);
        box.resize(656, 72);
        QTest::qWait(1);
        QCOMPARE(shown(), all);
    }

    void loadingIndicatorGivesUpOrGoesWhenTold()
    {
        QWidget box;
        box.resize(1020, 50);
        PMProgressIndicator bar(&box);
        bar.resize(200, 6);
        bar.move(3, 22);
        LoadingIndicator loading(bar, 2ms);
        box.show();
        loading.showLoading(QStringLiteral("Loading..."));
        QVERIFY(bar.isVisible() && bar.isIndeterminate());
        QCOMPARE(bar.pos(), QPoint(410, 22));
        QVERIFY(!loading.stopVideoLoadingView());
        QTRY_VERIFY(!bar.isVisible());
        QCOMPARE(loading.progress(), 100.0); // two a tick
        QVERIFY(loading.stopVideoLoadingView());

        LoadingIndicator slower(bar, 20ms);
        slower.showLoading(QString());
        slower.hideLoading();
        QVERIFY(bar.isVisible()); // until the next tick
        QVERIFY(slower.stopVideoLoadingView());
        QTRY_VERIFY(!bar.isVisible());
        // A start while the chain of ticks of the one before still runs has its full time again.
        slower.showLoading(QString());
        QTRY_VERIFY(slower.progress() > 8);
        slower.showLoading(QString());
        QCOMPARE(slower.progress(), 0.0);
        QVERIFY(!slower.stopVideoLoadingView());
    }

    void sliderTellsTheUserFromTheProgram()
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

    void playTimes()
    {
        const std::pair<std::int64_t, const char*> rows[] = {
            {59'999, "0:59"}, {754'000, "12:34"}, {3'723'000, "1:02:03"}, {-5, "0:00"}};
        for (const auto& [ms, text] : rows)
            QCOMPARE(playTimeText(ms), QLatin1String(text));
    }
};

QTEST_MAIN(WindowPartsTest)
#include "WindowPartsTest.moc"
