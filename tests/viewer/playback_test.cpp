// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/DataArea.h"
#include "demo/Recording.h"
#include "media/MRVMediaList.h"
#include "recording/MRVBlackBoxData.h"
#include "viewer/MRVPlayInfo.h"
#include "viewer/playback_fakes.h"
#include "viewer/PlaybackController.h"
#include "viewer/VlcPlayer.h"
#include "viewer/WindowStep.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <vector>

using namespace marvo;
using State = MediaPlayer::State;

namespace {

/// The delays a tenth as long, and in the same proportions.
constexpr PlaybackTimings Quick = {100, 100, 10, 10, 20, 30, 20, 10};

/// A folder of recordings, the list of it, and the rules around a player.
template <typename Player>
struct Stage
{
    QTemporaryDir folder;
    MRVMediaList list;
    MRVBlackBoxData data;
    MRVPlayInfo info;
    test::FakeHost host;
    std::unique_ptr<Player> player;
    std::unique_ptr<PlaybackController> controller;

    explicit Stage(Player* made) : player(made)
    {
        controller = std::make_unique<PlaybackController>(*player, list, data, info, host);
        controller->setTimings(Quick);
    }
    QString file(int number) const
    {
        return folder.filePath(
            QStringLiteral("alwa_20130526_1345%1_F.avi").arg(number, 2, 10, QLatin1Char('0')));
    }
    void writeEmpty(int number) const { QVERIFY(QFile(file(number)).open(QIODevice::WriteOnly)); }
    void openFolder(const QString& path)
    {
        QSignalSpy changed(&list, &MRVMediaList::mediaListChanged);
        list.setDirectoryPath(QFile::encodeName(path).toStdString());
        QTRY_COMPARE(changed.size(), 1);
    }
    void openFolder() { openFolder(folder.path()); }
};

struct FakeStage : Stage<test::FakePlayer>
{
    /// Three recordings in the list.
    explicit FakeStage(int count = 3) : Stage(new test::FakePlayer)
    {
        for (int i = 0; i < count; ++i)
            writeEmpty(i);
        openFolder();
        player->calls.clear();
    }
    /// Starts a row and lets it play.
    void startPlaying(int row)
    {
        QVERIFY(controller->playAtIndex(row));
        QTRY_VERIFY(player->calls.contains(QStringLiteral("play")));
        player->become(State::Playing);
        player->tick(0);
        player->calls.clear();
    }
    void rest(std::int64_t timeMs)
    {
        player->nowMs = timeMs;
        player->become(State::Paused);
    }
};

} // namespace

class PlaybackTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsTheNearestRow_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("row");
        QTest::newRow("below") << -5 << 0;
        QTest::newRow("inside") << 1 << 1;
        QTest::newRow("past the end") << 3 << 2;
    }
    void startsTheNearestRow()
    {
        QFETCH(int, index);
        QFETCH(int, row);
        FakeStage stage;
        stage.host.fullScreen = true;
        stage.info.setSpeed(2);
        stage.info.setPosition(0.7);
        QVERIFY(stage.controller->playAtIndex(index));
        QCOMPARE(stage.controller->mediaIndex(), row);
        QCOMPARE(stage.host.selectedRow, row);
        QCOMPARE(stage.player->takeCalls(),
                 QStringList({QStringLiteral("stop"), QStringLiteral("no media"), QStringLiteral("media")}));
        QCOMPARE(QString::fromStdString(stage.player->path), stage.file(row));
        QVERIFY(!stage.controller->playAtIndex(0)); // while one start is under way
        QVERIFY(!stage.controller->playNext());
        QVERIFY(stage.player->calls.isEmpty());

        QTRY_COMPARE(stage.player->calls, QStringList({QStringLiteral("play")}));
        QCOMPARE(stage.host.calls, QStringList({QStringLiteral("loading"), QStringLiteral("extraction"),
                                                QStringLiteral("data"), QStringLiteral("fields")}));
        QVERIFY(!stage.host.fullScreen);
        QCOMPARE(stage.info.speed(), 1.0);
        QCOMPARE(stage.info.position(), 0.0);
        QVERIFY(stage.controller->waitingForPlayStart());
        stage.player->become(State::Opening);
        QVERIFY(stage.controller->waitingForPlayStart());
        QVERIFY(!stage.host.videoVisible);

        stage.player->become(State::Playing);
        QVERIFY(!stage.controller->waitingForPlayStart());
        QVERIFY(stage.info.isPlaying());
        QVERIFY(stage.host.videoVisible);
        QVERIFY(!stage.host.loadingStopped);
        QCOMPARE(stage.info.audioMediaDirection(), int(FrontMedia));
        QCOMPARE(stage.info.scale(), 1.5);
        QCOMPARE(stage.player->volume, 70);
        QVERIFY(!stage.player->muted);
        stage.player->tick(0);
        QVERIFY(stage.host.loadingStopped);
    }

    void anEmptyListStartsNothing()
    {
        FakeStage stage(0);
        QVERIFY(!stage.controller->playAtIndex(0));
        stage.controller->changeAndPlay(-1);
        QVERIFY(!stage.controller->waitingForPlayStart());
        QCOMPARE(stage.controller->mediaIndex(), -1);
    }

    void aDoubleClickPlaysOrRestarts()
    {
        FakeStage stage;
        QTest::ignoreMessage(QtInfoMsg, "selectedRow=1,mediaIndex=-1,isPlaying=0,count=3");
        stage.controller->changeAndPlay(1);
        stage.player->calls.clear();
        stage.controller->changeAndPlay(1); // its data are still being read
        QVERIFY(stage.player->calls.isEmpty());
        QTRY_COMPARE(stage.player->calls, QStringList({QStringLiteral("play")}));
        stage.player->calls.clear();
        stage.player->become(State::Playing);
        stage.controller->changeAndPlay(1);
        QCOMPARE(stage.player->takeCalls(), QStringList({QStringLiteral("play")}));
        stage.rest(30'000);
        stage.controller->changeAndPlay(1);
        QCOMPARE(stage.player->takeCalls(),
                 QStringList({QStringLiteral("position 0.0000"), QStringLiteral("play")}));
        QCOMPARE(stage.host.extractionsStarted, 1);
        stage.player->become(State::Playing);
        stage.controller->changeAndPlay(2);
        QCOMPARE(stage.controller->mediaIndex(), 2);
        QCOMPARE(stage.host.extractionsStarted, 2);
    }

    void timeChangesAreThinned()
    {
        FakeStage stage;
        stage.startPlaying(0);
        QSignalSpy positions(&stage.info, &MRVPlayInfo::positionChanged);
        for (int i = 1; i <= 9; ++i) // the first came with the start
            stage.player->tick(i * 1000);
        QCOMPARE(positions.size(), 3);
        QCOMPARE(stage.info.position(), 9.0 / 60);
        stage.player->tick(10'000);
        stage.controller->jumpForward();
        stage.player->tick(11'000); // from before the jump
        QCOMPARE(stage.info.position(), 20.0 / 60);
        QTest::qWait(60);
        stage.player->tick(21'000); // the first after it counts at once
        QCOMPARE(stage.info.position(), 21.0 / 60);
        QVERIFY(stage.info.isPlaying());
        stage.player->tick(59'001); // the last second counts as not playing
        QVERIFY(!stage.info.isPlaying());
    }

    void jumps_data()
    {
        QTest::addColumn<bool>("forward");
        QTest::addColumn<int>("fromMs");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("forward") << true << 20'000 << QStringList({QStringLiteral("jump 10")});
        QTest::newRow("forward, 9.5 s left") << true << 50'500 << QStringList({QStringLiteral("time 60000")});
        QTest::newRow("forward, 10 s left") << true << 50'000 << QStringList({QStringLiteral("jump 10")});
        QTest::newRow("back") << false << 30'000
                              << QStringList(
                                     {QStringLiteral("position 0.3333"), QStringLiteral("position 0.3333")});
        QTest::newRow("back at 9.9 s")
            << false << 9'900
            << QStringList({QStringLiteral("time 0"), QStringLiteral("position 0.0000"),
                            QStringLiteral("position 0.0000")});
        QTest::newRow("back at 10 s")
            << false << 10'000
            << QStringList({QStringLiteral("position 0.0000"), QStringLiteral("position 0.0000")});
    }
    void jumps()
    {
        QFETCH(bool, forward);
        QFETCH(int, fromMs);
        QFETCH(QStringList, calls);
        FakeStage stage;
        stage.startPlaying(0);
        stage.player->nowMs = fromMs;
        const auto jump = [&] {
            forward ? stage.controller->jumpForward() : stage.controller->jumpBackward();
        };
        if (forward && fromMs == 20'000)
            QTest::ignoreMessage(QtInfoMsg, "[D ] _player1.time=00:20,remainingTime.stringValue=-00:40");
        jump();
        const bool isSeeking = forward ? calls.first().startsWith(QLatin1String("jump")) : fromMs >= 10'000;
        if (isSeeking)
            jump(); // ignored so soon
        if (forward && isSeeking)
            QCOMPARE(stage.host.slider, (fromMs + 10'000) / 60'000.0);
        QTRY_COMPARE(stage.player->calls, calls);
        QTest::qWait(60);
        QCOMPARE(stage.player->takeCalls(), calls);
        stage.player->nowMs = 30'000;
        jump();
        QVERIFY(!stage.player->calls.isEmpty());
    }

    void theSliderSeeks_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("forwards") << 0.75 << QStringList({QStringLiteral("position 0.7500")});
        QTest::newRow("backwards") << 0.25
                                   << QStringList({QStringLiteral("position 0.2500"),
                                                   QStringLiteral("position 0.2500")});
        QTest::newRow("to the end") << 0.998 << QStringList({QStringLiteral("time 60000")});
        QTest::newRow("not quite") << 0.9979 << QStringList({QStringLiteral("position 0.9979")});
        QTest::newRow("past the end") << 7.0 << QStringList({QStringLiteral("time 60000")});
        QTest::newRow("nowhere") << std::nan("") << QStringList();
    }
    void theSliderSeeks()
    {
        QFETCH(double, value);
        QFETCH(QStringList, calls);
        FakeStage stage;
        stage.startPlaying(0);
        stage.player->nowMs = 30'000;
        stage.controller->videoPositionSliderMoved(value);
        QTest::qWait(60);
        QCOMPARE(stage.player->calls, calls);
    }

    void thePlayButton_data()
    {
        QTest::addColumn<int>("timeMs");
        QTest::addColumn<double>("slider");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("paused on the way") << 30'000 << 0.5 << QStringList({QStringLiteral("play")});
        QTest::newRow("at the end") << 60'000 << 1.0
                                    << QStringList({QStringLiteral("no media"), QStringLiteral("stop"),
                                                    QStringLiteral("no media"), QStringLiteral("media"),
                                                    QStringLiteral("play")});
        QTest::newRow("just at the end")
            << 59'880 << 0.998
            << QStringList({QStringLiteral("no media"), QStringLiteral("stop"), QStringLiteral("no media"),
                            QStringLiteral("media"), QStringLiteral("play")});
        QTest::newRow("sought back from the end")
            << 60'000 << 0.25 << QStringList({QStringLiteral("time 15000"), QStringLiteral("play")});
    }
    void thePlayButton()
    {
        QFETCH(int, timeMs);
        QFETCH(double, slider);
        QFETCH(QStringList, calls);
        FakeStage stage;
        stage.controller->clickPlayButton(); // without a media
        QVERIFY(stage.player->calls.isEmpty());
        stage.startPlaying(2);
        stage.controller->clickPlayButton();
        QCOMPARE(stage.player->takeCalls(), QStringList({QStringLiteral("pause")}));
        stage.rest(timeMs);
        QVERIFY(!stage.info.isPlaying());
        QCOMPARE(stage.info.position(), timeMs / 60'000.0);
        stage.host.slider = slider;
        stage.controller->clickPlayButton();
        QTRY_COMPARE(stage.player->calls, calls);
        QCOMPARE(stage.controller->mediaIndex(), 2);
    }

    void theNextFollowsAtTheEnd()
    {
        FakeStage stage;
        stage.startPlaying(1);
        stage.rest(59'870); // not yet 0.998
        QTest::qWait(250);
        QCOMPARE(stage.controller->mediaIndex(), 1);
        QElapsedTimer clock;
        clock.start();
        stage.rest(60'000);
        QTRY_COMPARE(stage.controller->mediaIndex(), 2);
        QVERIFY(clock.elapsed() >= 95);
        QTRY_VERIFY(stage.player->calls.contains(QStringLiteral("play")));
        stage.player->become(State::Playing);
        stage.rest(60'000); // the last one stays
        stage.player->calls.clear();
        QTest::qWait(350);
        QCOMPARE(stage.controller->mediaIndex(), 2);
        QVERIFY(stage.player->calls.isEmpty());
    }

    void theNextDoesNotFollow_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("gone back in the meantime") << QStringLiteral("back");
        QTest::newRow("another folder opened") << QStringLiteral("stop");
        QTest::newRow("another list has come") << QStringLiteral("list");
        QTest::newRow("a failed start") << QStringLiteral("fail");
    }
    void theNextDoesNotFollow()
    {
        QFETCH(QString, what);
        FakeStage stage;
        stage.startPlaying(0);
        stage.rest(60'000);
        QTest::qWait(110); // seen, and about to move on
        QTemporaryDir other;
        if (what == QLatin1String("back")) {
            stage.player->nowMs = 1000;
        } else if (what == QLatin1String("stop")) {
            stage.controller->stop();
        } else if (what == QLatin1String("fail")) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("broken")));
            stage.player->failWith(QStringLiteral("broken"));
        } else {
            QVERIFY(QFile(other.filePath(QStringLiteral("alwa_20200101_000000_F.avi")))
                        .open(QIODevice::WriteOnly));
            QVERIFY(QFile(other.filePath(QStringLiteral("alwa_20200101_000001_F.avi")))
                        .open(QIODevice::WriteOnly));
            stage.openFolder(other.path());
        }
        stage.player->calls.clear();
        QTest::qWait(350);
        QVERIFY(stage.player->calls.isEmpty());
        QCOMPARE(stage.controller->mediaIndex(), 0);
        QCOMPARE(stage.host.unplayableRow, what == QLatin1String("fail") ? 0 : -1);
        // A double click on the row of the old number starts what the row now is.
        if (what == QLatin1String("list") || what == QLatin1String("stop")) {
            stage.controller->changeAndPlay(0);
            QVERIFY(stage.controller->waitingForPlayStart());
            QCOMPARE(stage.player->path, stage.list.mediaAtIndex(0)->path());
        }
    }

    void aFailedStartEnds()
    {
        FakeStage stage;
        for (const int row : {1, 1, 2}) { // the same row again is a new try
            stage.controller->changeAndPlay(row);
            QVERIFY(stage.controller->waitingForPlayStart());
            QTRY_VERIFY(stage.player->calls.contains(QStringLiteral("play")));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("broken")));
            stage.player->failWith(QStringLiteral("broken"));
            QVERIFY(!stage.controller->waitingForPlayStart());
            QVERIFY(stage.host.loadingStopped);
            QVERIFY(!stage.host.videoVisible);
            QVERIFY(!stage.info.isPlaying());
            QVERIFY(!stage.player->hasMedia());
            QCOMPARE(stage.host.unplayableRow, row);
            QCOMPARE(stage.host.unplayableReason, QStringLiteral("broken"));
            stage.player->calls.clear();
        }
        stage.startPlaying(2); // it works this time, and the mark goes
        QCOMPARE(stage.host.unplayableRow, -1);
    }

    void aStartIsAbandonedDuringItsExtraction_data()
    {
        QTest::addColumn<QString>("by");
        QTest::newRow("another folder") << QStringLiteral("stop");
        QTest::newRow("the window closing") << QStringLiteral("stopPlay");
        QTest::newRow("the end of the program") << QStringLiteral("death");
        QTest::newRow("another start") << QStringLiteral("start");
    }
    void aStartIsAbandonedDuringItsExtraction()
    {
        QFETCH(QString, by);
        FakeStage stage;
        {
            QFile large(stage.file(0)); // no data area in a gigabyte
            QVERIFY(large.open(QIODevice::WriteOnly));
            large.write(QByteArray("RIFF\0\0\0\0AVI JUNK\xff\xff\xff\xff", 20));
            QVERIFY(large.resize(1LL << 30));
        }
        QElapsedTimer clock;
        clock.start();
        QVERIFY(stage.controller->playAtIndex(0));
        stage.controller->jumpForward(); // no command reaches a recording that is being loaded
        stage.controller->clickPlayButton();
        stage.controller->videoPositionSliderMoved(0.5);
        QCOMPARE(stage.player->takeCalls(),
                 QStringList({QStringLiteral("stop"), QStringLiteral("no media"), QStringLiteral("media")}));
        if (by == QLatin1String("death"))
            stage.controller.reset();
        else if (by == QLatin1String("stopPlay"))
            stage.controller->stopPlay();
        else
            stage.controller->stop();
        QVERIFY2(clock.elapsed() < 400, "it was waited for");
        if (by != QLatin1String("death")) {
            QVERIFY(!stage.controller->waitingForPlayStart());
            QVERIFY(stage.host.loadingStopped);
            QCOMPARE(stage.host.extractionsFinished, 1);
        }
        stage.player->calls.clear();
        if (by == QLatin1String("start")) {
            stage.startPlaying(1);
            QCOMPARE(stage.host.extractionsFinished, 2);
        }
        QTest::qWait(100);
        QVERIFY(stage.player->calls.isEmpty());
    }

    void speedAndVolumeKeepTheirLimits()
    {
        FakeStage stage;
        stage.startPlaying(0);
        stage.controller->increaseSpeed();
        stage.controller->increaseSpeed();
        QCOMPARE(stage.info.speed(), 2.0);
        QCOMPARE(stage.player->currentRate, 2.0F);
        stage.controller->decreaseSpeed();
        stage.controller->decreaseSpeed();
        QCOMPARE(stage.info.speed(), 1.0);
        QCOMPARE(stage.player->currentRate, 1.0F);
        stage.player->muted = true;
        stage.controller->volumeSliderMoved(195);
        QVERIFY(!stage.player->muted);
        stage.controller->volumeUp();
        QCOMPARE(stage.player->volume, 200);
        stage.controller->volumeSliderMoved(5);
        stage.controller->volumeDown();
        QCOMPARE(stage.player->volume, 0);
        QCOMPARE(stage.host.shownVolume, 0);
    }

    void noSoundHasNoDirection()
    {
        FakeStage stage;
        stage.startPlaying(0);
        QCOMPARE(stage.info.audioMediaDirection(), int(FrontMedia));
        stage.player->audioTracks = 0;
        stage.startPlaying(1);
        QCOMPARE(stage.info.audioMediaDirection(), int(UnknownMedia));
    }

    void theWindowStepsToFullScreen_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<QRect>("window");
        QTest::addColumn<bool>("isFullScreen");
        QTest::addColumn<int>("action");
        QTest::addColumn<QRect>("frame");
        const auto row = [](const char* name, int step, QRect window, bool full, WindowStep::Action action,
                            QRect frame = {}) {
            QTest::newRow(name) << step << window << full << int(action) << frame;
        };
        using Action = WindowStep::Action;
        const QRect smallest(400, 300, 1020, 640);
        row("up", 1, smallest, false, Action::SetFrame, {400, 172, 1224, 768});
        row("up, kept on the screen", 1, {880, 40, 1020, 640}, false, Action::SetFrame, {696, 0, 1224, 768});
        row("up to within 100 of the height", 1, {0, 0, 1428, 896}, false, Action::EnterFullScreen);
        row("up to the height less 100", 1, {0, 0, 1428, 852}, false, Action::SetFrame, {0, 0, 1632, 980});
        row("up past the width", 1, {0, 0, 1717, 640}, false, Action::EnterFullScreen);
        row("up in full screen", 1, smallest, true, Action::Nothing);
        row("down", -1, {400, 172, 1224, 768}, false, Action::SetFrame, smallest);
        row("down at the minimum", -1, smallest, false, Action::Nothing);
        row("down in full screen", -1, smallest, true, Action::LeaveFullScreen);
        row("a start", 0, {10, 10, 1300, 700}, false, Action::Nothing);
        row("a start in a wide low window", 0, {10, 10, 1300, 500}, false, Action::SetFrame,
            {10, 0, 1020, 640});
        row("a start in full screen", 0, smallest, true, Action::LeaveFullScreen);
    }
    void theWindowStepsToFullScreen()
    {
        QFETCH(int, step);
        QFETCH(QRect, window);
        QFETCH(bool, isFullScreen);
        QFETCH(int, action);
        QFETCH(QRect, frame);
        const WindowStep result =
            windowStep(step, QRect(0, 0, 1920, 1080), window, QSize(1020, 640), isFullScreen);
        QCOMPARE(int(result.action), action);
        QCOMPARE(result.frame, frame);
    }

    void sizeStepsNeedAPlayingFilm()
    {
        FakeStage stage;
        stage.controller->sizeUp();
        QCOMPARE(stage.host.frame.width(), 1020);
        stage.startPlaying(0);
        stage.controller->sizeUp();
        QCOMPARE(stage.host.frame.size(), QSize(1224, 768));
    }

    /// The whole with the real player, and the sound that this machine has: from a start by hand through one
    /// recording into the next, and on to one that cannot be played.
    void realRecordingsPlayInTurn()
    {
        Stage<VlcPlayer> stage(new VlcPlayer(nullptr));
        demo::RecordingOptions film;
        film.frameCount = 12;
        _AVI_GSENSOR_DATA_T reading = {};
        reading.xAxis = 256;
        const std::vector<demo::DataRecord> records(5, reading);
        film.dataChunks = demo::dataAreaChunks(records);
        for (int number : {0, 1})
            QVERIFY(!demo::writeRecording(QFile::encodeName(stage.file(number)).toStdString(), film));
        stage.writeEmpty(2);
        stage.openFolder();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("cannot play")));
        stage.controller->changeAndPlay(0);
        QTRY_VERIFY(stage.info.isPlaying());
        QVERIFY(stage.host.loadingStopped);
        QCOMPARE(stage.data.m_GSensors().size(), 5U);
        QCOMPARE(stage.data.m_GSensors()[4].x, 1.0F);
        QTRY_VERIFY(stage.info.position() > 0.3 && stage.info.position() < 1);
        QTRY_COMPARE(stage.info.position(), 1.0);
        QTRY_COMPARE(stage.controller->mediaIndex(), 1);
        QTRY_COMPARE(stage.info.position(), 1.0);
        QTRY_COMPARE(stage.host.unplayableRow, 2);
        QVERIFY(!stage.controller->waitingForPlayStart());
        QVERIFY(
            stage.data.m_GSensors().empty()); // those of the recording chosen, even if it cannot be played
        stage.controller->changeAndPlay(0);
        QTRY_VERIFY(stage.info.isPlaying());
        stage.controller->stopPlay();
        QVERIFY(!stage.host.videoVisible);
    }
};

QTEST_MAIN(PlaybackTest)
#include "playback_test.moc"
