// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// From a double click to the first picture, and what playing costs: bench_playback FILM [libVLC option...]
// (needs a display, or QT_QPA_PLATFORM=offscreen).
#include "playback/VideoView.h"
#include "playback/VlcPlayer.h"
#include "playback/VlcSession.h"
#include "recording/MRVBlackBoxData.h"

#include <QApplication>
#include <QByteArrayList>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace marvo;

namespace {

constexpr int starts = 15;
constexpr int playingMs = 8000;

void waitMs(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Until it plays or has failed; false after a failure.
bool waitForStart(VlcPlayer& player)
{
    QEventLoop loop;
    bool played = false;
    const auto connection = QObject::connect(&player, &MediaPlayer::stateChanged, &loop, [&] {
        played = player.isPlaying();
        if (played || player.state() == MediaPlayer::State::Failed)
            loop.quit();
    });
    loop.exec();
    QObject::disconnect(connection);
    return played;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_playback FILM [libVLC option...]\n");
        return 2;
    }
    QByteArrayList options;
    for (int i = 2; i < argc; ++i)
        options.append(argv[i]);
    VlcInstance::setExtraOptions(options);
    VideoView view;
    view.resize(960, 540);
    view.show();
    VlcPlayer player(&view);
    QObject::connect(&player, &MediaPlayer::failed, &view,
                     [](const QString& reason) { std::fprintf(stderr, "%s\n", qPrintable(reason)); });

    std::vector<double> startMs;
    for (int i = 0; i < starts; ++i) {
        QElapsedTimer clock;
        clock.start();
        player.setMedia(argv[1]);
        MRVBlackBoxData().ExtractStreamInformation(argv[1]); // as a double click does first
        player.play();
        if (!waitForStart(player))
            return 1;
        startMs.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
        waitMs(300);
    }
    std::printf("first start %.0f ms\n", startMs.front());
    std::sort(startMs.begin(), startMs.end());
    std::printf("start to first picture: median %.0f ms, slowest %.0f ms of %d\n", startMs[starts / 2],
                startMs.back(), starts);

    QElapsedTimer clock;
    clock.start();
    const std::clock_t before = std::clock();
    waitMs(playingMs);
    const double cpuSeconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("playing: %.0f %% of a core\n",
                100 * cpuSeconds * 1000 / static_cast<double>(clock.elapsed()));
    return 0;
}
