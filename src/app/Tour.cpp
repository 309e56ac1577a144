// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "app/Tour.h"

#include "map/MapView.h"
#include "media/MRVMediaList.h"
#include "playback/PlaybackController.h"
#include "playback/VlcPlayer.h"
#include "recording/MRVBlackBoxData.h"
#include "texts/DisplayText.h"
#include "viewer/CustomWindow.h"
#include "viewer/MainViews.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/MRVAppDelegate.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <chrono>

namespace marvo {

namespace {

using namespace std::chrono_literals;

constexpr auto lookInterval = 100ms;
constexpr std::int64_t timeLimitMs = 60'000;
constexpr std::int64_t playTimeMs = 5'000;
constexpr std::int64_t mapTimeoutMs = 10'000; ///< a map that is not ready by then is pictured as it is
constexpr std::int64_t mapSettlesMs = 1'500;

void print(const QString& line) { QTextStream(stdout) << line << Qt::endl; }

QString besideIt(const QString& path, const QString& suffix)
{
    const QFileInfo file(path);
    return file.dir().filePath(QStringLiteral("%1%2.%3").arg(file.completeBaseName(), suffix, file.suffix()));
}

} // namespace

Tour::Tour(MRVAppDelegate& delegate, const QString& screenshotPath)
    : m_delegate(delegate), m_screenshotPath(screenshotPath)
{
    m_look.setInterval(lookInterval);
    connect(&m_look, &QTimer::timeout, this, &Tour::look);
    connect(&delegate, &MRVAppDelegate::recordingsListed, this, &Tour::recordingsListed);
}

void Tour::start()
{
    m_running.start();
    m_look.start();
}

void Tour::recordingsListed()
{
    if (m_step != Step::List)
        return;
    const MRVMediaList& list = m_delegate.mediaList();
    if (list.folderError())
        return fail(QStringLiteral("the folder cannot be read: %1")
                        .arg(QString::fromStdString(list.folderError().message())));
    print(QStringLiteral("recordings listed: %1").arg(list.count()));
    if (list.count() == 0)
        return fail(QStringLiteral("there is no recording in the folder"));
    if (!m_delegate.playback().playAtIndex(0))
        return fail(QStringLiteral("the first recording was not started"));
    m_step = Step::Play;
}

void Tour::look()
{
    if (m_running.elapsed() > timeLimitMs)
        return fail(QStringLiteral("not done after %1 s").arg(timeLimitMs / 1000));
    const VlcPlayer* player = m_delegate.player1();
    if (m_step == Step::Play) {
        if (!m_delegate.playback().waitingForPlayStart() && !player->hasMedia())
            return fail(QStringLiteral("the first recording cannot be played"));
        if (player->timeMs() >= playTimeMs || (player->isPaused() && player->position() >= 0.998))
            saveListPicture();
    } else if (m_step == Step::Map) {
        const std::int64_t shown = m_running.elapsed() - m_mapShownMs;
        const bool ready = m_delegate.views().mapWebView->isReady();
        if ((ready && shown >= mapSettlesMs) || shown >= mapTimeoutMs)
            saveMapPicture();
    }
}

void Tour::saveListPicture()
{
    const VlcPlayer* player = m_delegate.player1();
    const MRVBlackBoxData& data = m_delegate.blackBoxData();
    const MRVMedia* media = m_delegate.mediaList().mediaAtIndex(m_delegate.playback().mediaIndex());
    print(QStringLiteral("played: %1").arg(media ? displayText(media->fileName()) : QString()));
    print(QStringLiteral("samples extracted: %1 G-sensor, %2 GPS, %3 NMEA")
              .arg(data.m_GSensors().size())
              .arg(data.m_vGpsData().size())
              .arg(data.m_NMEAs().size()));
    print(QStringLiteral("position reached: %1 (%2 s of %3 s)")
              .arg(player->position(), 0, 'f', 3)
              .arg(static_cast<double>(player->timeMs()) / 1000, 0, 'f', 1)
              .arg(static_cast<double>(player->lengthMs()) / 1000, 0, 'f', 1));
    if (!savePicture(m_screenshotPath))
        return;
    m_step = Step::Map;
    m_mapShownMs = m_running.elapsed();
    m_delegate.commands().action(Command::ClickMapViewButton)->trigger();
}

void Tour::saveMapPicture()
{
    if (!savePicture(besideIt(m_screenshotPath, QStringLiteral("-map"))))
        return;
    m_step = Step::Done;
    m_look.stop();
    Q_EMIT finished(0);
}

bool Tour::savePicture(const QString& path)
{
    if (!m_delegate.window().grab().save(path, "PNG")) {
        fail(QStringLiteral("the screenshot cannot be written to %1").arg(path));
        return false;
    }
    print(QStringLiteral("screenshot: %1").arg(path));
    return true;
}

void Tour::fail(const QString& reason)
{
    if (m_step == Step::Done)
        return;
    m_step = Step::Done;
    m_look.stop();
    QTextStream(stderr) << "marvo: " << reason << Qt::endl;
    Q_EMIT finished(1);
}

} // namespace marvo
