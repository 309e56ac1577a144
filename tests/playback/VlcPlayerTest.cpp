// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/VlcPlayer.h"
#include "playback/PlayerFilms.h"
#include "playback/VideoView.h"
#include "playback/VlcSession.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtEndian>
#include <QTest>

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <memory>

#include <sys/stat.h>

using namespace marvo;
using marvo::test::Film;
using State = MediaPlayer::State;

/// The player with real films and the real library; only the sound goes nowhere.
class VlcPlayerTest : public QObject
{
    Q_OBJECT

private:
    struct Stage
    {
        VideoView view;
        VlcPlayer player{&view};
        QSignalSpy failures{&player, &MediaPlayer::failed};
        Stage()
        {
            view.resize(320, 180);
            view.show();
        }
        void start(const QString& file)
        {
            player.setMedia(QFile::encodeName(file).toStdString());
            player.play();
        }
        void play(const QString& file)
        {
            start(file);
            QTRY_COMPARE(player.state(), State::Playing);
        }
        void pause()
        {
            player.pause();
            QTRY_COMPARE(player.state(), State::Paused);
        }
        int picture() const { return test::pictureNumber(player.currentFrame()); }
        /// How far the picture shown is from the time told, in milliseconds.
        std::int64_t pictureErrorMs() const
        {
            return std::abs(picture() * 1000LL / test::filmFps - player.timeMs());
        }
    };

    static VideoFrame oneColour(QSize size, PixelLayout layout, std::array<int, 3> values)
    {
        VideoFrame frame(size, layout);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const VideoFrame::Plane& plane = frame.planes()[i];
            std::memset(plane.pixels, values[i], static_cast<std::size_t>(plane.pitch * plane.lines));
        }
        return frame;
    }

    QTemporaryDir m_folder;
    QString file(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    void write(const char* name, const QByteArray& bytes) const
    {
        QFile out(file(name));
        QVERIFY(out.open(QIODevice::WriteOnly));
        QCOMPARE(out.write(bytes), bytes.size());
    }
    QByteArray read(const char* name) const
    {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

private Q_SLOTS:
    void initTestCase()
    {
        VlcInstance::setExtraOptions({"--aout=alsa", "--alsa-audio-device=null"});
        QVERIFY(test::writeFilm({Film::Codec::H264, 3}, file("h264.avi")));
        QVERIFY(test::writeFilm({Film::Codec::H264, 1}, file("second.avi")));
        QVERIFY(test::writeFilm({Film::Codec::H264, 1.0 / test::filmFps}, file("picture.avi")));
        QVERIFY(test::writeFilm({Film::Codec::H264, 3, false}, file("silent.avi")));
        QVERIFY(test::writeFilm({Film::Codec::H264, 3, true, false}, file("sound.avi")));
        QVERIFY(test::writeFilm({Film::Codec::MotionJpeg, 3}, file("mjpeg.avi")));
        // What is left when the power goes: no index, and sizes that reach past the end of the file.
        for (const char* name : {"h264.avi", "mjpeg.avi"}) {
            const QByteArray whole = read(name);
            write((QByteArray("cut_") + name).constData(), whole.left(whole.size() * 3 / 4));
        }
        write("empty.avi", {});
        QByteArray noise(200'000, '\0');
        QRandomGenerator(1).fillRange(reinterpret_cast<quint32*>(noise.data()), noise.size() / 4);
        write("noise.avi", noise);
        write("noise_after_header.avi", read("h264.avi").left(6000) + noise);
        QByteArray unknownCodec = read("h264.avi");
        unknownCodec.replace("H264", "Zq0x");
        write("unknown_codec.avi", unknownCodec);
        const QByteArray whole = read("h264.avi");
        write("header_only.avi", whole.left(whole.indexOf("movi") + 4));
        QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("folder.avi")));
        QCOMPARE(::mkfifo(QFile::encodeName(file("pipe.avi")).constData(), 0600), 0);
    }

    void playsToItsEndAndRestsOnTheLastPicture_data()
    {
        QTest::addColumn<int>("lastPicture"); // -1: not known
        const std::pair<const char*, int> rows[] = {
            {"h264.avi", 89},   {"mjpeg.avi", 89},    {"silent.avi", 89},    {"second.avi", 29},
            {"picture.avi", 0}, {"cut_h264.avi", -1}, {"cut_mjpeg.avi", -1},
        };
        for (const auto& [name, lastPicture] : rows)
            QTest::newRow(name) << lastPicture;
    }
    void playsToItsEndAndRestsOnTheLastPicture()
    {
        QFETCH(int, lastPicture);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        Stage stage;
        stage.player.setRate(2);
        stage.start(m_folder.filePath(name));
        double last = 0;
        bool wentBack = false;
        connect(&stage.player, &MediaPlayer::timeChanged, &stage.view, [&] {
            wentBack = wentBack || stage.player.position() < last - 0.05;
            last = stage.player.position();
        });
        QTRY_COMPARE_WITH_TIMEOUT(stage.player.state(), State::Paused, 6000);
        QCOMPARE(stage.player.position(), 1.0);
        QVERIFY(!wentBack);
        QVERIFY(stage.failures.isEmpty());
        if (lastPicture >= 0)
            QTRY_VERIFY(stage.picture() >= lastPicture - 1); // one may be late
        QCOMPARE(stage.player.audioTrackCount(), name == QLatin1String("silent.avi") ? 0 : 1);
        QCOMPARE(stage.player.videoSize(), QSize(640, 360));

        // Playing on from the end begins anew.
        double firstPosition = -1;
        connect(&stage.player, &MediaPlayer::stateChanged, &stage.view, [&] {
            if (stage.player.isPlaying())
                firstPosition = stage.player.position();
        });
        stage.player.play();
        QTRY_VERIFY(firstPosition >= 0 && firstPosition < 0.1);
    }

    void saysWhyAFileCannotBePlayed_data()
    {
        QTest::addColumn<QString>("reason");
        const std::pair<const char*, const char*> rows[] = {
            {"nowhere.avi", "missing"},
            {"empty.avi", "empty"},
            {"folder.avi", "not_a_file"},
            {"pipe.avi", "not_a_file"}, // nobody writes into it
            {"noise.avi", "not_avi"},
            {"sound.avi", "no_video"},
            {"header_only.avi", "unreadable"},
            {"noise_after_header.avi", "unreadable"},
            {"unknown_codec.avi", "unreadable"},
        };
        for (const auto& [name, reason] : rows)
            QTest::newRow(name) << QStringLiteral("play.error_") + QLatin1String(reason);
    }
    void saysWhyAFileCannotBePlayed()
    {
        QFETCH(QString, reason);
        Stage stage;
        bool everPlayed = false;
        connect(&stage.player, &MediaPlayer::stateChanged, &stage.view,
                [&] { everPlayed = everPlayed || stage.player.isPlaying(); });
        stage.start(file(QTest::currentDataTag()));
        QVERIFY(stage.failures.isEmpty()); // never from inside play()
        QTRY_COMPARE_WITH_TIMEOUT(stage.failures.size(), 1, 8000);
        QCOMPARE(stage.failures[0][0].toString(), reason); // no string table here: the key
        QCOMPARE(stage.player.state(), State::Failed);
        QVERIFY(!everPlayed);

        // A second try is made, and another file plays.
        stage.player.play();
        QCOMPARE(stage.player.state(), State::Opening);
        if (reason != QLatin1String("play.error_unreadable")) // that one takes seconds
            QTRY_COMPARE(stage.failures.size(), 2);
        stage.failures.clear();
        stage.play(file("h264.avi"));
        QVERIFY(stage.failures.isEmpty());
    }

    void givesUpWaitingForACard()
    {
        Stage stage;
        stage.player.setStartTimeoutMs(0); // no card answers in no time
        stage.start(file("h264.avi"));
        QTRY_COMPARE(stage.failures.size(), 1);
        QCOMPARE(stage.failures[0][0].toString(), QStringLiteral("play.error_no_answer"));
        QTest::qWait(300);
        QCOMPARE(stage.player.state(), State::Failed);
        QVERIFY(stage.player.currentFrame().isNull());
    }

    void seeks_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("paused");
        for (const char* name : {"h264.avi", "mjpeg.avi", "cut_h264.avi", "cut_mjpeg.avi"}) {
            QTest::addRow("%s playing", name) << QString::fromLatin1(name) << false;
            QTest::addRow("%s paused", name) << QString::fromLatin1(name) << true;
        }
    }
    void seeks()
    {
        QFETCH(QString, name);
        QFETCH(bool, paused);
        Stage stage;
        stage.play(m_folder.filePath(name));
        if (paused)
            stage.pause();
        for (const int targetMs : {1800, 700, 0}) {
            stage.player.setTimeMs(targetMs);
            QCOMPARE(stage.player.timeMs(), targetMs);
            QTRY_VERIFY2_WITH_TIMEOUT(stage.pictureErrorMs() <= (paused ? 40 : 150),
                                      qPrintable(QStringLiteral("target %1").arg(targetMs)), 2000);
            if (paused)
                QCOMPARE(stage.player.timeMs(), targetMs);
            else
                QVERIFY(stage.player.timeMs() >= targetMs - 40 && stage.player.timeMs() < targetMs + 1000);
            QCOMPARE(stage.player.state(), paused ? State::Paused : State::Playing);
        }
    }

    void aDraggedSliderEndsWhereItWasLeft()
    {
        Stage stage;
        stage.play(file("h264.avi"));
        stage.pause();
        for (int i = 0; i <= 60; ++i) {
            stage.player.setPosition(0.1 + i * 0.01);
            QTest::qWait(5);
        }
        QTRY_VERIFY(std::abs(stage.picture() - 63) <= 1); // 0.7 of 90
        QVERIFY(std::abs(stage.player.position() - 0.7) < 0.001);
    }

    void goesToTheEndWhilePaused()
    {
        Stage stage;
        stage.play(file("h264.avi"));
        stage.pause();
        stage.player.setTimeMs(stage.player.lengthMs());
        QCOMPARE(stage.player.position(), 1.0);
        QTRY_COMPARE(stage.picture(), 89);
        QCOMPARE(stage.player.state(), State::Paused);
        QCOMPARE(stage.player.position(), 1.0);

        // Back from there and on.
        stage.player.setTimeMs(2000);
        stage.player.play();
        QTRY_COMPARE(stage.player.state(), State::Playing);
        QVERIFY(stage.player.timeMs() >= 1960 && stage.player.timeMs() < 2600);
        QTRY_VERIFY(stage.pictureErrorMs() < 150);
        stage.player.setTimeMs(stage.player.lengthMs());
        QTRY_COMPARE(stage.player.state(), State::Paused);
        QCOMPARE(stage.player.position(), 1.0);
        for (int round = 0; round < 3; ++round) { // from the end to the middle and to the end again
            stage.player.setTimeMs(2200);
            stage.player.play();
            QTRY_COMPARE(stage.player.state(), State::Playing);
            QTRY_COMPARE(stage.player.state(), State::Paused);
            QCOMPARE(stage.player.position(), 1.0);
        }
        // To the end and back in haste.
        stage.player.setTimeMs(1000);
        QTest::qWait(100);
        for (const int delayMs : {0, 20, 80, 300}) {
            stage.player.setTimeMs(stage.player.lengthMs());
            QTest::qWait(delayMs);
            stage.player.setTimeMs(1500);
            QTRY_COMPARE(stage.picture(), 45);
            QTest::qWait(150);
            QCOMPARE(stage.picture(), 45);
            QCOMPARE(stage.player.state(), State::Paused);
            QCOMPARE(stage.player.timeMs(), 1500);
        }
        for (const int delayMs : {0, 20, 80, 300}) {
            stage.player.setTimeMs(stage.player.lengthMs());
            QTest::qWait(delayMs);
            stage.player.play(); // from the beginning
            QTRY_COMPARE(stage.player.state(), State::Playing);
            QTest::qWait(250);
            QCOMPARE(stage.player.state(), State::Playing);
            QVERIFY(stage.player.timeMs() < 1000);
            stage.pause();
        }
    }

    void theEndOfASlowFilmIsItsLastPicture()
    {
        QVERIFY(test::writeFilm({Film::Codec::H264, 3, true, true, 10}, file("slow.avi")));
        Stage stage;
        stage.play(file("slow.avi"));
        stage.player.setTimeMs(stage.player.lengthMs());
        QTRY_COMPARE(stage.player.state(), State::Paused);
        QTRY_COMPARE(stage.picture(), 29);
        stage.player.setTimeMs(1000);
        QTRY_COMPARE(stage.picture(), 10);
        stage.player.setTimeMs(stage.player.lengthMs());
        QTRY_COMPARE(stage.picture(), 29);
        QCOMPARE(stage.player.position(), 1.0);
    }

    void theLengthIsThatOfThePictures_data()
    {
        QTest::addColumn<QString>("film");
        QTest::addColumn<int>("told");
        QTest::addColumn<bool>("hasIndex");
        for (const char* film : {"h264.avi", "mjpeg.avi"}) {
            QTest::addRow("%s, none told, no index", film) << QString::fromLatin1(film) << 0 << false;
            QTest::addRow("%s, 60 s told", film) << QString::fromLatin1(film) << 1800 << true;
            QTest::addRow("%s, 19 hours told, no index", film)
                << QString::fromLatin1(film) << 2'052'000 << false;
        }
    }
    void theLengthIsThatOfThePictures()
    {
        QFETCH(QString, film);
        QFETCH(int, told);
        QFETCH(bool, hasIndex);
        QByteArray bytes = read(film.toLatin1().constData());
        for (const auto& [chunk, offset] : {std::pair("avih", 16), std::pair("strh", 32)})
            qToLittleEndian(told, bytes.data() + bytes.indexOf(chunk) + 8 + offset);
        write("told.avi", hasIndex ? bytes : bytes.left(bytes.lastIndexOf("idx1")));
        Stage stage;
        stage.play(file("told.avi"));
        QTRY_COMPARE(stage.player.lengthMs(), 3000);
        stage.pause();
        stage.player.setPosition(0.5);
        QTRY_VERIFY(std::abs(stage.picture() - 45) <= 1);
        stage.player.play();
        QTRY_COMPARE_WITH_TIMEOUT(stage.player.position(), 1.0, 6000);
        QCOMPARE(stage.player.state(), State::Paused);
    }

    void thePictureHasTheDecodersSize()
    {
        const auto write = [this](const char* name, const QString& size) {
            const QStringList arguments =
                QStringLiteral("-loglevel error -y -f lavfi -i color=gray:s=%1:r=10:d=0.6 "
                               "-c:v mjpeg -pix_fmt yuvj420p %2")
                    .arg(size, file(name))
                    .split(QLatin1Char(' '));
            QCOMPARE(QProcess::execute(QStringLiteral("ffmpeg"), arguments), 0);
            QByteArray bytes = read(name); // its header tells of another size
            for (const auto& [chunk, offset] : {std::pair("avih", 32), std::pair("strf", 4)}) {
                qToLittleEndian(320, bytes.data() + bytes.indexOf(chunk) + 8 + offset);
                qToLittleEndian(240, bytes.data() + bytes.indexOf(chunk) + 12 + offset);
            }
            this->write(name, bytes);
        };
        write("larger.avi", QStringLiteral("648x360"));
        Stage stage;
        stage.play(file("larger.avi"));
        const QSize size = stage.player.videoSize(); // or a few more, for whole blocks
        QVERIFY(size.width() >= 648 && size.width() < 712 && size.height() >= 360 && size.height() < 424);
        write("huge.avi", QStringLiteral("8320x4640"));
        stage.start(file("huge.avi"));
        QTRY_COMPARE_WITH_TIMEOUT(stage.player.state(), State::Failed, 15'000);
    }

    void aCardThatGoesIsNoEnd()
    {
        for (const bool isGone : {true, false}) {
            QVERIFY(test::writeFilm({Film::Codec::MotionJpeg, 8}, file("going.avi")));
            Stage stage;
            QSignalSpy lost(&stage.player, &MediaPlayer::lost);
            stage.play(file("going.avi"));
            QTRY_COMPARE(stage.player.lengthMs(), 8000);
            // No more bytes come; the file is there or not.
            QVERIFY(QFile::resize(file("going.avi"), QFileInfo(file("going.avi")).size() / 4));
            if (isGone)
                QVERIFY(QFile::remove(file("going.avi")));
            if (isGone)
                QTRY_COMPARE_WITH_TIMEOUT(lost.size(), 1, 8000);
            else
                QTRY_COMPARE_WITH_TIMEOUT(stage.player.position(), 1.0, 8000);
            QCOMPARE(lost.size(), isGone ? 1 : 0);
            QCOMPARE(stage.failures.size(), 0);
        }
    }

    void pauseAndPlayInHasteEndAsLastSaid()
    {
        Stage stage;
        stage.play(file("h264.avi"));
        for (int i = 0; i < 10; ++i) {
            stage.player.pause();
            stage.player.play();
        }
        QTest::qWait(300);
        QCOMPARE(stage.player.state(), State::Playing);
        QVERIFY(stage.player.position() < 0.95); // no such pause was taken for the end
        for (int i = 0; i < 10; ++i) {
            stage.player.play();
            stage.player.pause();
            QTest::qWait(i);
        }
        QTRY_COMPARE(stage.player.state(), State::Paused);
        const auto restingMs = stage.player.timeMs();
        QTest::qWait(300);
        QCOMPARE(stage.player.state(), State::Paused);
        QCOMPARE(stage.player.timeMs(), restingMs);
        QVERIFY(stage.player.position() < 0.95);
    }

    void timeFollowsTheRate()
    {
        Stage stage;
        stage.play(file("h264.avi"));
        stage.player.setRate(2);
        QTest::qWait(200);
        QElapsedTimer clock;
        clock.start();
        const auto before = stage.player.timeMs();
        QTest::qWait(700);
        const double rate =
            static_cast<double>(stage.player.timeMs() - before) / static_cast<double>(clock.elapsed());
        QVERIFY2(rate > 1.6 && rate < 2.4, qPrintable(QString::number(rate)));
        QVERIFY(stage.pictureErrorMs() < 250);
    }

    void startsOvertakeEachOther()
    {
        Stage stage;
        for (int i = 0; i < 50; ++i) {
            stage.start(i % 3 == 0 ? file("mjpeg.avi") : i % 3 == 1 ? file("nowhere.avi") : file("h264.avi"));
            if (i % 4 == 0)
                QTest::qWait(i);
        }
        stage.failures.clear();
        stage.start(file("second.avi"));
        QTRY_COMPARE_WITH_TIMEOUT(stage.player.state(), State::Paused, 5000);
        QCOMPARE(stage.player.lengthMs(), 1000);
        QVERIFY(stage.failures.isEmpty());

        // What has been stopped shows nothing more.
        stage.play(file("h264.avi"));
        stage.player.stop();
        QCOMPARE(stage.player.state(), State::Stopped);
        QSignalSpy times(&stage.player, &MediaPlayer::timeChanged);
        QTest::qWait(200);
        QVERIFY(stage.view.image().isNull());
        QVERIFY(times.isEmpty());
        stage.player.play();
        QTRY_COMPARE(stage.player.state(), State::Playing);
        stage.player.setMedia({});
        QVERIFY(!stage.player.hasMedia());
        QCOMPARE(stage.player.state(), State::Idle);
        QVERIFY(stage.view.image().isNull());
    }

    void diesWhilePlaying()
    {
        for (int delayMs : {0, 1, 5, 20, 60, 200}) {
            auto view = std::make_unique<VideoView>();
            auto player = std::make_unique<VlcPlayer>(view.get());
            player->setMedia(QFile::encodeName(file("h264.avi")).toStdString());
            player->play();
            QTest::qWait(delayMs);
            if (delayMs % 2 == 0)
                view.reset(); // the view may go first
            QElapsedTimer clock;
            clock.start();
            player.reset();
            QVERIFY2(clock.elapsed() < 1000, "the end of the player held the window up");
        }
    }

    void playsNamesThatAreNotUtf8()
    {
        const QByteArray name = QFile::encodeName(m_folder.path()) + "/b\xE9\xFF #%41?.avi";
        std::filesystem::copy_file(file("second.avi").toStdString(), name.toStdString());
        Stage stage;
        stage.player.setMedia(name.toStdString());
        stage.player.play();
        QTRY_COMPARE(stage.player.state(), State::Playing);
        std::filesystem::remove(name.toStdString()); // QTemporaryDir cannot
    }

    void twoPlayersPlayAtOnce()
    {
        Stage one;
        Stage two;
        one.play(file("h264.avi"));
        two.play(file("mjpeg.avi"));
        one.player.stop();
        const auto before = two.player.timeMs();
        QTRY_VERIFY(two.player.timeMs() > before + 200);
    }

    void theViewIsFilled()
    {
        Stage stage;
        stage.view.resize(300, 400); // not the film's shape
        QCOMPARE(stage.view.grab().toImage().pixelColor(150, 200), QColor(Qt::black));
        // Smaller than the view, larger, of sides that halve and that do not.
        for (const QSize size : {QSize(64, 36), QSize(1920, 1080), QSize(1201, 801), QSize(301, 399)}) {
            stage.view.setFrame(oneColour(size, PixelLayout::J420, {255, 128, 128}));
            QCOMPARE(stage.view.image().size(), size);
            const QImage shown = stage.view.grab().toImage();
            for (const QPoint corner : {QPoint(0, 0), QPoint(299, 0), QPoint(0, 399), QPoint(299, 399)})
                QCOMPARE(shown.pixelColor(corner), QColor(Qt::white));
        }
        stage.view.takeFrame();
        QCOMPARE(stage.view.grab().toImage().pixelColor(150, 200), QColor(Qt::white)); // until another comes
    }

    void coloursAreTheFilms_data()
    {
        QTest::addColumn<QString>("options");
        QTest::addColumn<QSize>("size");
        const QString h264 = QStringLiteral("-c:v libx264 -pix_fmt yuv420p");
        QTest::newRow("television, small") << h264 << QSize(320, 180);
        QTest::newRow("television, large")
            << QStringLiteral("-vf scale=out_color_matrix=bt709 ") + h264 << QSize(1280, 720);
        QTest::newRow("not whole blocks") << h264 << QSize(324, 182);
        QTest::newRow("computer, large")
            << QStringLiteral(
                   "-vf scale=out_color_matrix=bt709:out_range=full -c:v libx264 -pix_fmt yuvj420p")
            << QSize(1280, 720);
        QTest::newRow("JPEG, large") << QStringLiteral("-c:v mjpeg -q:v 2 -pix_fmt yuvj420p")
                                     << QSize(1280, 720);
        for (const char* layout : {"yuvj420p", "yuvj422p", "yuvj444p"})
            QTest::newRow(layout) << QStringLiteral("-c:v mjpeg -q:v 2 -pix_fmt ") + QLatin1String(layout)
                                  << QSize(320, 180);
        QTest::newRow("422") << QStringLiteral("-c:v libx264 -pix_fmt yuv422p") << QSize(320, 180);
        QTest::newRow("none of ours") << QStringLiteral("-c:v rawvideo -pix_fmt yuyv422") << QSize(320, 180);
    }

    void coloursAreTheFilms()
    {
        QFETCH(QString, options);
        QFETCH(QSize, size);
        const QString source = QStringLiteral("color=0x%3:s=%1x%2:r=10:d=1");
        const auto input = [&](const char* colour) {
            return source.arg(size.width() / 2).arg(size.height()).arg(QLatin1String(colour));
        };
        QStringList arguments = QStringLiteral("-loglevel error -y").split(QLatin1Char(' '));
        for (const char* colour : {"c03020", "2040d0"})
            arguments += {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), input(colour)};
        const QString beside = QStringLiteral("[0][1]hstack[v]");
        const bool hasFilter = options.startsWith(QLatin1String("-vf "));
        QStringList codec = options.split(QLatin1Char(' '));
        arguments += {QStringLiteral("-filter_complex"),
                      hasFilter ? QStringLiteral("[0][1]hstack,%1[v]").arg(codec[1]) : beside,
                      QStringLiteral("-map"), QStringLiteral("[v]")};
        arguments += (hasFilter ? codec.mid(2) : codec) + QStringList(file("colours.avi"));
        QCOMPARE(QProcess::execute(QStringLiteral("ffmpeg"), arguments), 0);

        Stage stage;
        stage.start(file("colours.avi"));
        QTRY_COMPARE(stage.player.state(), State::Playing);
        QCOMPARE(stage.player.videoSize(), size);
        constexpr int tolerance = 10; // what coding takes, and arithmetic of eight bits
        const auto isLike = [](const QColor& seen, const QColor& meant) {
            return std::abs(seen.red() - meant.red()) <= tolerance &&
                   std::abs(seen.green() - meant.green()) <= tolerance &&
                   std::abs(seen.blue() - meant.blue()) <= tolerance;
        };
        stage.view.resize(100, 60);
        for (const QImage& picture : {stage.player.currentFrame(), stage.view.grab().toImage()}) {
            const int middle = picture.height() / 2;
            const QColor left = picture.pixelColor(picture.width() / 4, middle);
            const QColor right = picture.pixelColor(picture.width() * 3 / 4, middle);
            QVERIFY2(isLike(left, QColor(0xc0, 0x30, 0x20)), qPrintable(left.name()));
            QVERIFY2(isLike(right, QColor(0x20, 0x40, 0xd0)), qPrintable(right.name()));
            const QColor edge = picture.pixelColor(picture.width() - 1, picture.height() - 1);
            QVERIFY2(isLike(edge, QColor(0x20, 0x40, 0xd0)), qPrintable(edge.name()));
        }
    }
};

QTEST_MAIN(VlcPlayerTest)
#include "VlcPlayerTest.moc"
