// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/PlaybackController.h"
#include "demo/DataArea.h"
#include "demo/Recording.h"
#include "media/MRVMediaList.h"
#include "playback/MRVPlayInfo.h"
#include "playback/PlaybackFakes.h"
#include "playback/VlcPlayer.h"
#include "playback/WindowStep.h"
#include "recording/MRVBlackBoxData.h"

#include <QDir>
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
constexpr PlaybackTimings quickTimings = {1000, 100, 100, 10, 10, 20, 30, 20, 10};

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
        controller->setTimings(quickTimings);
    }
    QString file(int number) const
    {
        return folder.filePath(
            QStringLiteral("alwa_20130526_1345%1_F.avi").arg(number, 2, 10, QLatin1Char('0')));
    }
    void writeEmpty(int number) const { QVERIFY(QFile(file(number)).open(QIODevice::WriteOnly)); }
    void openFolder(const QTemporaryDir& opened)
    {
        QSignalSpy changed(&list, &MRVMediaList::mediaListChanged);
        list.setDirectoryPath(QFile::encodeName(opened.path()).toStdString());
        QTRY_COMPARE(changed.size(), 1);
    }
};

struct FakeStage : Stage<test::FakePlayer>
{
    /// Three recordings in the list.
    explicit FakeStage(int count = 3) : Stage(new test::FakePlayer)
    {
        for (int i = 0; i < count; ++i)
            writeEmpty(i);
        openFolder(folder);
        player->calls.clear();
    }
    bool isAskedToPlay()
    {
        return QTest::qWaitFor([this] { return player->calls.endsWith(QLatin1String("play")); });
    }
    /// Starts a row and lets it play.
    void startPlaying(int row)
    {
        QVERIFY(controller->playAtIndex(row));
        QVERIFY(isAskedToPlay());
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
    /// Positions are thinned while the player plays; the one report of a seek at rest is not.
    void aSeekAtRestIsShownByItsOnlyReport()
    {
        FakeStage stage;
        stage.startPlaying(0);
        stage.rest(1000);
        QSignalSpy shown(stage.controller.get(), &PlaybackController::momentShown);
        for (const double target : {0.5, 0.25, 0.75}) {
            stage.controller->videoPositionSliderMoved(target);
            stage.player->nowMs += 7; // the picture begins a little later
            Q_EMIT stage.player->timeChanged();
            QCOMPARE(stage.info.position(), stage.player->position());
        }
        QVERIFY(shown.size() >= 3);
    }

    void startsTheNearestRow()
    {
        const std::pair<int, int> rows[] = {{-5, 0}, {1, 1}, {3, 2}};
        for (const auto& [index, row] : rows) {
            FakeStage stage;
            stage.host.fullScreen = true;
            stage.info.setSpeed(2);
            stage.info.setPosition(0.7);
            QVERIFY(stage.controller->playAtIndex(index));
            QCOMPARE(stage.controller->mediaIndex(), row);
            QCOMPARE(stage.host.selectedRow, row);
            QCOMPARE(QString::fromStdString(stage.player->path), stage.file(row));
            QCOMPARE(stage.player->takeCalls(), QLatin1String("stop, no media, media"));
            QVERIFY(!stage.controller->playAtIndex(0)); // while one start is under way
            QVERIFY(!stage.controller->playNext());
            QVERIFY(stage.player->calls.isEmpty());

            QTRY_COMPARE(stage.player->calls, QLatin1String("play"));
            QCOMPARE(stage.host.extractionsFinished, 1);
            QCOMPARE(stage.host.fieldsReset, 1);
            QVERIFY(!stage.host.fullScreen);
            QCOMPARE(stage.info.speed(), 1.0);
            QCOMPARE(stage.info.position(), 0.0);
            stage.player->become(State::Opening);
            QVERIFY(stage.controller->waitingForPlayStart());
            QVERIFY(!stage.host.videoVisible);

            stage.player->become(State::Playing);
            QVERIFY(!stage.controller->waitingForPlayStart());
            QVERIFY(stage.host.videoVisible);
            QVERIFY(!stage.host.loadingStopped); // a picture comes only now
            QCOMPARE(stage.player->volume, 70);
            QVERIFY(!stage.player->muted);
            stage.player->tick(0);
            QVERIFY(stage.host.loadingStopped);
        }
        FakeStage empty(0);
        QVERIFY(!empty.controller->playAtIndex(0));
        empty.controller->changeAndPlay(-1);
        QCOMPARE(empty.controller->mediaIndex(), -1);
        QVERIFY(!empty.controller->waitingForPlayStart());
    }

    void aDoubleClickPlaysOrRestarts()
    {
        FakeStage stage;
        stage.controller->changeAndPlay(1);
        stage.player->calls.clear();
        stage.controller->changeAndPlay(1); // its data are still being read
        QVERIFY(stage.player->calls.isEmpty());
        QVERIFY(stage.isAskedToPlay());
        stage.player->become(State::Playing);
        stage.rest(30'000);
        stage.player->calls.clear();
        stage.controller->changeAndPlay(1);
        QCOMPARE(stage.player->takeCalls(), QLatin1String("position 0.0000, play"));
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

    void jumps()
    {
        struct Row
        {
            bool forward;
            int fromMs;
            const char* calls;
            bool isSeeking = true;
        };
        const Row rows[] = {
            {true, 20'000, "jump 10"},
            {true, 50'000, "jump 10"},
            {true, 50'500, "time 60000", false},
            {false, 30'000, "position 0.3333, position 0.3333"},
            {false, 10'000, "position 0.0000, position 0.0000"},
            {false, 9'900, "time 0, position 0.0000, position 0.0000", false},
        };
        for (const Row& row : rows) {
            FakeStage stage;
            stage.startPlaying(0);
            stage.player->nowMs = row.fromMs;
            const auto jump = [&] {
                row.forward ? stage.controller->jumpForward() : stage.controller->jumpBackward();
            };
            jump();
            if (row.isSeeking)
                jump(); // ignored so soon
            if (row.forward && row.isSeeking)
                QCOMPARE(stage.host.slider, (row.fromMs + 10'000) / 60'000.0);
            QTest::qWait(60);
            QCOMPARE(stage.player->takeCalls(), QLatin1String(row.calls));
            stage.player->nowMs = 30'000;
            jump();
            QVERIFY(!stage.player->calls.isEmpty());
        }
    }

    void theSliderSeeks()
    {
        const std::pair<double, const char*> rows[] = {
            {0.75, "position 0.7500"},   {0.25, "position 0.2500, position 0.2500"}, // backwards
            {0.9979, "position 0.9979"}, {0.998, "time 60000"},
            {7, "time 60000"},           {std::nan(""), ""},
        };
        for (const auto& [value, calls] : rows) {
            FakeStage stage;
            stage.startPlaying(0);
            stage.player->nowMs = 30'000;
            stage.controller->videoPositionSliderMoved(value);
            QTest::qWait(60);
            QCOMPARE(stage.player->calls, QLatin1String(calls));
        }
    }

    void thePlayButton()
    {
        struct Row
        {
            int restsAtMs;
            double slider;
            const char* calls;
        };
        const char* anew = "no media, stop, no media, media, play";
        const Row rows[] = {
            {30'000, 0.5, "play"},
            {59'880, 0.998, anew},
            {60'000, 1, anew},
            {60'000, 0.25, "time 15000, play"}, // sought back from the end
        };
        for (const Row& row : rows) {
            FakeStage stage;
            stage.controller->clickPlayButton(); // without a media
            QVERIFY(stage.player->calls.isEmpty());
            stage.startPlaying(2);
            stage.controller->clickPlayButton();
            QCOMPARE(stage.player->takeCalls(), QLatin1String("pause"));
            stage.rest(row.restsAtMs);
            QVERIFY(!stage.info.isPlaying());
            QCOMPARE(stage.info.position(), row.restsAtMs / 60'000.0);
            stage.host.slider = row.slider;
            stage.controller->clickPlayButton();
            QTRY_COMPARE(stage.player->calls, QLatin1String(row.calls));
            QCOMPARE(stage.controller->mediaIndex(), 2);
        }
    }

    void theNextDoesNotFollow()
    {
        enum class After { NotTheEnd, TheLast, GoneBack, Stop, OtherList, FailedStart };
        for (const After what : {After::NotTheEnd, After::TheLast, After::GoneBack, After::Stop,
                                 After::OtherList, After::FailedStart}) {
            FakeStage stage;
            const int row = what == After::TheLast ? 2 : 0;
            stage.startPlaying(row);
            stage.rest(what == After::NotTheEnd ? 59'870 : 60'000); // 0.998 is the end
            QTest::qWait(110);                                      // seen, and about to move on
            QTemporaryDir other;
            if (what == After::GoneBack) {
                stage.player->nowMs = 1000;
            } else if (what == After::Stop) {
                stage.controller->stop();
            } else if (what == After::FailedStart) {
                stage.player->failWith(QStringLiteral("broken"));
            } else if (what == After::OtherList) {
                for (const char* name : {"alwa_20200101_000000_F.avi", "alwa_20200101_000001_F.avi"})
                    QVERIFY(QFile(other.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
                stage.openFolder(other);
            }
            stage.player->calls.clear();
            QTest::qWait(350);
            QVERIFY(stage.player->calls.isEmpty());
            QCOMPARE(stage.controller->mediaIndex(), row);
            QCOMPARE(stage.host.unplayableRow, what == After::FailedStart ? 0 : -1);
            // A double click on the row of the old number starts what the row now is.
            if (what == After::OtherList || what == After::Stop) {
                stage.controller->changeAndPlay(0);
                QVERIFY(stage.controller->waitingForPlayStart());
                QCOMPARE(stage.player->path, stage.list.mediaAtIndex(0)->path());
            }
        }
    }

    void aFailedStartEnds()
    {
        FakeStage stage;
        for (const int row : {1, 1, 2}) { // the same row again is a new try
            stage.controller->changeAndPlay(row);
            QVERIFY(stage.isAskedToPlay());
            stage.player->failWith(QStringLiteral("broken"));
            QVERIFY(!stage.controller->waitingForPlayStart());
            QVERIFY(stage.host.loadingStopped);
            QVERIFY(!stage.host.videoVisible);
            QVERIFY(!stage.player->hasMedia());
            QCOMPARE(stage.host.unplayableRow, row);
            QCOMPARE(stage.host.unplayableReason, QStringLiteral("broken"));
            stage.player->calls.clear();
        }
        stage.startPlaying(2); // it works this time, and the mark goes
        QCOMPARE(stage.host.unplayableRow, -1);
    }

    void aStartIsAbandonedDuringItsExtraction()
    {
        enum class By { OtherFolder, WindowClosing, EndOfTheProgram, OtherStart };
        for (const By by : {By::OtherFolder, By::WindowClosing, By::EndOfTheProgram, By::OtherStart}) {
            FakeStage stage;
            QFile large(stage.file(0)); // no data area in more than anybody waits for
            QVERIFY(large.open(QIODevice::WriteOnly));
            large.write(QByteArray("RIFF\0\0\0\0AVI JUNK\xff\xff\xff\xff", 20));
            QVERIFY(large.resize(1LL << 40));
            QVERIFY(stage.controller->playAtIndex(0));
            stage.player->calls.clear();
            stage.controller->jumpForward(); // no command reaches a recording that is being loaded
            stage.controller->clickPlayButton();
            stage.controller->videoPositionSliderMoved(0.5);
            QVERIFY(stage.player->calls.isEmpty());
            if (by == By::EndOfTheProgram) {
                stage.controller.reset();
                continue;
            }
            by == By::WindowClosing ? stage.controller->stopPlay() : stage.controller->stop();
            QVERIFY(!stage.controller->waitingForPlayStart());
            QVERIFY(stage.host.loadingStopped);
            QCOMPARE(stage.host.extractionsFinished, 1);
            stage.player->calls.clear();
            if (by == By::OtherStart) {
                stage.startPlaying(1);
                QCOMPARE(stage.host.extractionsFinished, 2);
            }
            QTest::qWait(100);
            QVERIFY(stage.player->calls.isEmpty());
        }
    }

    void theFilmDoesNotWaitForALongWalk()
    {
        FakeStage stage;
        PlaybackTimings timings = quickTimings;
        timings.walkMs = 50;
        stage.controller->setTimings(timings);
        QFile large(stage.file(1)); // records at its beginning, and no end to look for them
        QVERIFY(large.open(QIODevice::WriteOnly));
        large.write(QByteArray("RIFF\0\0\0\0AVI JUNK\xff\xff\xff\x7f", 20));
        large.write("0GDA" + QByteArray(24, '\1'));
        QVERIFY(large.resize(400LL << 20));
        stage.startPlaying(0);
        stage.data.ParseNMEA("$GPGGA\r\n"); // the recording before has left something
        QVERIFY(stage.controller->playAtIndex(1));
        stage.player->calls.clear();
        QTRY_COMPARE(stage.player->calls, QLatin1String("play"));
        stage.player->calls.clear();
        QCOMPARE(stage.host.extractionsFinished, 1); // the panels wait
        QVERIFY(stage.data.m_NMEAs().empty());
        stage.player->become(State::Playing);
        stage.controller->videoPositionSliderMoved(0.5);
        QVERIFY(stage.player->takeCalls().startsWith(QLatin1String("position 0.5")));
        QSignalSpy shown(stage.controller.get(), &PlaybackController::momentShown);
        QTRY_COMPARE_WITH_TIMEOUT(stage.host.extractionsFinished, 2, 60'000);
        QCOMPARE(shown.size(), 1);
        QCOMPARE(stage.data.m_GSensors().size(), 1);
        QCOMPARE(stage.info.position(), stage.player->position());
        QVERIFY(!stage.player->takeCalls().contains(QLatin1String("play")));
        QCOMPARE(stage.host.fieldsReset, 2); // once a start
    }

    void whatIsLostEndsWithoutBlame()
    {
        FakeStage stage;
        stage.startPlaying(0);
        stage.player->calls.clear();
        Q_EMIT stage.player->lost();
        QVERIFY(stage.host.isLost);
        QCOMPARE(stage.host.unplayableRow, -1);
        QCOMPARE(stage.player->takeCalls(), QLatin1String("no media"));
        QTest::qWait(3 * quickTimings.endCheckMs + quickTimings.playNextMs);
        QVERIFY(stage.player->calls.isEmpty()); // the next is on the same card
    }

    void theWindowStaysOnlyForWhatFollowsByItself()
    {
        for (const bool keeps : {false, true}) {
            FakeStage stage;
            stage.controller->setKeepsWindow(keeps);
            stage.startPlaying(0);
            stage.host.fullScreen = true;
            QVERIFY(stage.controller->playNext());
            QVERIFY(stage.isAskedToPlay());
            QCOMPARE(stage.host.fullScreen, keeps);
            stage.player->become(State::Playing);
            stage.controller->changeAndPlay(2);
            QTRY_VERIFY(!stage.host.fullScreen);
        }
    }

    void speedVolumeAndSizeKeepTheirLimits()
    {
        FakeStage stage;
        stage.controller->sizeUp(); // without a film
        QCOMPARE(stage.host.frame.width(), 1020);
        stage.player->audioTracks = 0;
        stage.startPlaying(0);
        QCOMPARE(stage.info.audioMediaDirection(), int(UnknownMedia));
        stage.player->audioTracks = 1;
        stage.startPlaying(1);
        QCOMPARE(stage.info.audioMediaDirection(), int(FrontMedia));
        stage.controller->sizeUp();
        QCOMPARE(stage.host.frame.size(), QSize(1224, 768));
        for (int i = 0; i < 2; ++i)
            stage.controller->increaseSpeed();
        QCOMPARE(stage.info.speed(), 2.0);
        QCOMPARE(stage.player->currentRate, 2.0F);
        for (int i = 0; i < 2; ++i)
            stage.controller->decreaseSpeed();
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

    void theWindowStepsToFullScreen()
    {
        using Action = WindowStep::Action;
        struct Row
        {
            const char* name;
            int step;
            QRect window;
            bool isFullScreen;
            Action action;
            QRect frame = {};
        };
        const QRect smallest(400, 300, 1020, 640);
        const Row rows[] = {
            {"up", 1, smallest, false, Action::SetFrame, {400, 172, 1224, 768}},
            {"up, kept on the screen", 1, {880, 40, 1020, 640}, false, Action::SetFrame, {696, 0, 1224, 768}},
            {"up to within 100 of the height", 1, {0, 0, 1428, 896}, false, Action::EnterFullScreen},
            {"up to the height less 100", 1, {0, 0, 1428, 852}, false, Action::SetFrame, {0, 0, 1632, 980}},
            {"up past the width", 1, {0, 0, 1717, 640}, false, Action::EnterFullScreen},
            {"up in full screen", 1, smallest, true, Action::Nothing},
            {"down", -1, {400, 172, 1224, 768}, false, Action::SetFrame, smallest},
            {"down at the minimum", -1, smallest, false, Action::Nothing},
            {"down in full screen", -1, smallest, true, Action::LeaveFullScreen},
            {"a start", 0, {10, 10, 1300, 700}, false, Action::Nothing},
            {"a wide low window", 0, {10, 10, 1300, 500}, false, Action::SetFrame, {10, 0, 1020, 640}},
            {"a start in full screen", 0, smallest, true, Action::LeaveFullScreen},
        };
        for (const Row& row : rows) {
            const WindowStep result =
                windowStep(row.step, {0, 0, 1920, 1080}, row.window, {1020, 640}, row.isFullScreen);
            QVERIFY2(result.action == row.action && result.frame == row.frame, row.name);
        }
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
        stage.openFolder(stage.folder);
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
#include "PlaybackControllerTest.moc"
