// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The frameless window beside a real window manager, driven by a real pointer and by the manager's own
// wishes.
#include "viewer/Appearance.h"
#include "viewer/CustomWindow.h"
#include "viewer/FullScreenRest.h"

#include <QApplication>
#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>

using namespace marvo;
using namespace std::chrono_literals;

namespace {

void run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    // The window manager may ask the window something meanwhile.
    while (process.state() != QProcess::NotRunning)
        QTest::qWait(5);
    QCOMPARE(process.exitCode(), 0);
}

void point(QPoint at)
{
    run(QStringLiteral("xdotool"),
        {QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y())});
}

void drag(QPoint from, QPoint by)
{
    point(from);
    run(QStringLiteral("xdotool"), {QStringLiteral("mousedown"), QStringLiteral("1")});
    for (int part = 1; part <= 4; ++part)
        point(from + by * part / 4);
    run(QStringLiteral("xdotool"), {QStringLiteral("mouseup"), QStringLiteral("1")});
}

void askManager(const QString& wish)
{
    run(QStringLiteral("wmctrl"),
        {QStringLiteral("-r"), QStringLiteral("driven"), QStringLiteral("-b"), wish});
}

} // namespace

class WindowManagerTest : public QObject
{
    Q_OBJECT

private:
    static constexpr QRect start{200, 150, 900, 600};

    std::unique_ptr<CustomWindow> m_window;

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<CustomWindow>();
        m_window->setWindowTitle(QStringLiteral("driven"));
        m_window->setFrame(start, CustomWindow::FrameChange::AtOnce);
        m_window->setInitialFrame(start);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTRY_COMPARE(m_window->geometry(), start);
    }

    void backgroundMovesAndEdgesResize()
    {
        drag(start.center(), {100, 60});
        QTRY_VERIFY(m_window->pos().x() > start.x() + 50); // the manager's own threshold takes a little of it
        QCOMPARE(m_window->size(), start.size());
        QTest::qWait(100);
        const QRect moved = m_window->geometry();
        drag({moved.right() - 1, moved.center().y()}, {80, 40});
        QTRY_VERIFY(m_window->width() > moved.width() + 40);
        QCOMPARE(m_window->height(), moved.height());
        QCOMPARE(m_window->pos(), moved.topLeft());
    }

    void fullScreenIsTheManagersAndEndsInTheStartFrame()
    {
        m_window->move(start.topLeft() + QPoint(120, 90));
        m_window->enterFullscreen();
        const QRect screen = m_window->screen()->geometry();
        QTRY_COMPARE(m_window->geometry(), screen);
        QTest::qWait(500); // longer than the desktop is given to contradict
        QVERIFY(m_window->isFullScreen());
        QVERIFY(m_window->windowState() & Qt::WindowFullScreen);
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QTRY_COMPARE(m_window->geometry(), start);
        QTest::qWait(400);
        QCOMPARE(m_window->geometry(), start);
        QVERIFY(!m_window->isFullScreen());
    }

    void theManagersOwnWishesAreFollowed()
    {
        QSignalSpy changes(m_window.get(), &CustomWindow::isFullScreenChanged);
        askManager(QStringLiteral("add,fullscreen"));
        QTRY_VERIFY(m_window->isFullScreen());
        askManager(QStringLiteral("remove,fullscreen"));
        QTRY_VERIFY(!m_window->isFullScreen());
        QTRY_COMPARE(m_window->geometry(), start);
        QCOMPARE(changes.size(), 2);
    }

    void quickTogglesEndAsTheLastOneSays()
    {
        m_window->enterFullscreen();
        m_window->leaveFullscreen();
        m_window->enterFullscreen();
        QTest::qWait(800);
        QVERIFY(m_window->isFullScreen());
        QCOMPARE(m_window->geometry(), m_window->screen()->geometry());
        // Left while the frame is still growing, there is no state to take back.
        m_window->leaveFullscreen();
        m_window->enterFullscreen();
        QTest::qWait(60);
        m_window->leaveFullscreen();
        QTest::qWait(800);
        QVERIFY(!m_window->isFullScreen() && !(m_window->windowState() & Qt::WindowFullScreen));
        QCOMPARE(m_window->geometry(), start);
    }

    void pointerAndBarRestTogetherAndComeBack()
    {
        QWidget bar(m_window.get());
        bar.setGeometry(0, 0, 200, 30);
        FullScreenRest rest(*m_window, bar, 150ms);
        point({700, 500});
        m_window->enterFullscreen();
        QVERIFY(!rest.isBarConcealed());
        QTRY_VERIFY(rest.isBarConcealed());
        QCOMPARE(m_window->cursor().shape(), Qt::BlankCursor);
        point({720, 500});
        QTRY_COMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
        QVERIFY(!rest.isBarConcealed());
        QTRY_VERIFY(rest.isBarConcealed());
        m_window->leaveFullscreen();
        QVERIFY(!rest.isBarConcealed());
        QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
        QTest::qWait(300);
        QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
    }
};

QTEST_MAIN(WindowManagerTest)
#include "WindowManagerTest.moc"
