// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "demo/DataArea.h"
#include "demo/Recording.h"
#include "media/MRVMediaList.h"
#include "playback/PlaybackController.h"
#include "playback/VlcPlayer.h"
#include "playback/VlcSession.h"
#include "texts/Localisation.h"
#include "viewer/Appearance.h"
#include "viewer/CustomWindow.h"
#include "viewer/list/RecordingListView.h"
#include "viewer/MainViews.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/MRVAppDelegate.h"

#include <QLabel>
#include <QStandardPaths>
#include <QtTest>

namespace marvo::test {

/// Before the first window: preferences of the test's own, no sound, English, the application's look.
inline void prepareWindows(const char* name)
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("MARVO"));
    QCoreApplication::setApplicationName(QLatin1StringView(name));
    VlcInstance::setExtraOptions({"--aout=alsa", "--alsa-audio-device=null"});
    QVERIFY(installLanguage(InterfaceLanguage::English));
    applyAppearance(*qApp);
}

/// The whole main window as the application makes it, on the screen.
class WindowStage
{
public:
    explicit WindowStage(const MRVAppDelegate::Configuration& configuration = {}) : delegate(configuration)
    {
        delegate.awakeFromNib();
        delegate.applicationDidFinishLaunching();
        delegate.window().activateWindow();
        isShown = QTest::qWaitForWindowActive(&delegate.window());
    }

    bool open(const std::string& folder)
    {
        QSignalSpy listed(&delegate, &MRVAppDelegate::recordingsListed);
        delegate.openDirectory(folder);
        return listed.wait(10'000);
    }

    CustomWindow& window() { return delegate.window(); }
    RecordingListView& list() { return *delegate.views().bodyRightBox->mediaListTableView(); }
    QAction* action(Command command) { return delegate.commands().action(command); }
    const VlcPlayer& player() { return *delegate.player1(); }
    QWidget* box(const char* name) { return window().findChild<QWidget*>(QLatin1StringView(name)); }
    QString text(const char* name) { return window().findChild<QLabel*>(QLatin1StringView(name))->text(); }
    /// A box's place in the window.
    QRect place(const char* name)
    {
        const QWidget* found = box(name);
        return {found->mapTo(&window(), QPoint(0, 0)), found->size()};
    }
    void doubleClickRow(int row)
    {
        const QPoint middle = list().visualRect(list().model()->index(row, 1)).center();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, middle);
    }
    void key(int keyCode, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &window(), Qt::Key(keyCode), modifiers);
    }

    MRVAppDelegate delegate;
    bool isShown = false;
};

/// A short film whose camera data are the same all the time: 0.25, -1.5 and 0 g; 37.5521 N, 126.9794 E;
/// 59.9 in the camera's unit; HDOP 0.9 and 8 satellites.
inline bool writeRecording(const std::string& path, int seconds = 4)
{
    _AVI_GSENSOR_DATA_T reading;
    reading.xAxis = 64;
    reading.yAxis = -384;
    demo::GpsRecord fix;
    fix.header.fLatitude = 3733.1234;
    fix.header.fLongitude = 12658.7617;
    fix.header.fSpeed = 59.9;
    fix.header.KM = '9';
    fix.nmea = "$GPGGA,123519,3733.1234,N,12658.7617,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
    std::vector<demo::DataRecord> records;
    for (int i = 0; i < 20; ++i) {
        records.emplace_back(fix);
        records.emplace_back(reading);
    }
    demo::RecordingOptions options;
    options.frameCount = seconds * options.framesPerSecond;
    options.dataChunks = demo::dataAreaChunks(records);
    return !demo::writeRecording(path, options);
}

} // namespace marvo::test
