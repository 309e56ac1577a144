// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Captured pictures: the file and what stands in it, and the command as a person gives it.
#include "capture/CaptureSaveDialog.h"
#include "capture/CaptureSnapshots.h"
#include "support/LogLines.h"
#include "TemporaryFolder.h"
#include "viewer/WindowStage.h"

#include <libexif/exif-data.h>

#include <QAction>
#include <QBuffer>
#include <QDir>
#include <QImageReader>
#include <QLineEdit>

#include <filesystem>
#include <functional>

#include <sys/stat.h>
#include <unistd.h>

using namespace marvo;
using marvo::test::LogLines;
using marvo::test::TemporaryFolder;
using marvo::test::WindowStage;

namespace {

/// An entry of a JPEG file's EXIF as libexif shows it to people; "-" when there is none.
QString exifText(const std::string& jpeg, ExifIfd directory, int tag)
{
    ExifData* data = exif_data_new_from_data(reinterpret_cast<const unsigned char*>(jpeg.data()),
                                             static_cast<unsigned int>(jpeg.size()));
    ExifEntry* entry =
        data ? exif_content_get_entry(data->ifd[directory], static_cast<ExifTag>(tag)) : nullptr;
    char text[128] = "-";
    if (entry)
        exif_entry_get_value(entry, text, sizeof text);
    exif_data_unref(data);
    return QString::fromLatin1(text);
}

QSize pictureSize(const std::string& jpeg)
{
    QByteArray bytes = QByteArray::fromStdString(jpeg);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "jpg");
    return reader.read().size();
}

/// The first two divisors of brightness, which tell the quality: 2 and 1 for 95.
std::pair<int, int> firstDivisors(const std::string& jpeg)
{
    const std::size_t table = jpeg.find(std::string("\xFF\xDB\0", 3));
    return {jpeg.at(table + 5), jpeg.at(table + 6)};
}

} // namespace

class CaptureTest : public QObject
{
    Q_OBJECT

private:
    TemporaryFolder m_card;
    TemporaryFolder m_home;

    /// The names that a viewer was started with, a line each.
    std::string opened() const { return m_home.read("opened"); }

private Q_SLOTS:
    void initTestCase()
    {
        test::prepareWindows("marvo-capture-test");
        QVERIFY(test::writeRecording(m_card.path("alwa_20240517_235958_F.avi"), 20));

        // A viewer that writes down what it is given.
        const std::string viewer = m_home.write("bin/xdg-open", "#!/bin/sh\nprintf '%s\\n' \"$#:$1\" >>'" +
                                                                    m_home.path("opened") + "'\n");
        std::filesystem::permissions(viewer, std::filesystem::perms::owner_all);
        qputenv("PATH", QByteArray::fromStdString(m_home.path("bin") + ':') + qgetenv("PATH"));
        qputenv("HOME", QByteArray::fromStdString(m_home.path()));
    }

    void nothingPlantedIsFollowedOrReplaced()
    {
        using Plant = std::function<void(const TemporaryFolder&, const std::string&)>;
        const std::tuple<const char*, bool, Plant> rows[] = {
            {"nothing", true, [](const auto&, const auto&) {}},
            {"our last picture", true,
             [](const auto& folder, const auto& path) {
                 folder.write("capture.jpg", "a longer picture than the next");
                 ::chmod(path.c_str(), 0666);
             }},
            {"a link to a file of ours", false,
             [](const auto& folder, const auto& path) {
                 std::filesystem::create_symlink(folder.path("victim"), path);
             }},
            {"a link to nothing", false,
             [](const auto& folder, const auto& path) {
                 std::filesystem::create_symlink(folder.path("made"), path);
             }},
            {"a pipe", false, [](const auto&, const auto& path) { ::mkfifo(path.c_str(), 0666); }},
            {"a folder", false, [](const auto& folder, const auto&) { folder.makeFolder("capture.jpg"); }},
            {"another user's file", false,
             [](const auto& folder, const auto& path) {
                 folder.write("capture.jpg", "theirs");
                 QCOMPARE(::chown(path.c_str(), 1, 1), 0);
             }},
        };
        for (const auto& [planted, isReplaced, plant] : rows) {
            if (::geteuid() != 0 && QLatin1String(planted).startsWith(QLatin1String("another user")))
                continue; // only the administrator can make such a file
            TemporaryFolder folder;
            const std::string path = folder.path("capture.jpg");
            folder.write("victim", "precious");
            plant(folder, path);
            struct stat before = {};
            ::lstat(path.c_str(), &before);

            LogLines log;
            CaptureStore store(path);
            const CaptureFile first = store.write("first");
            const CaptureFile second = store.write("second");
            QVERIFY2(log.lines().size() == (isReplaced ? 0 : 1), planted); // told once

            struct stat status = {};
            QCOMPARE(::lstat(second.path().c_str(), &status), 0);
            QVERIFY2(S_ISREG(status.st_mode) && (status.st_mode & 0777) == 0600, planted);
            QCOMPARE(status.st_size, 6);
            QVERIFY2((second.path() == path) == isReplaced, planted);
            if (!isReplaced) {
                struct stat after = {};
                QCOMPARE(::lstat(path.c_str(), &after), 0);
                QVERIFY2(after.st_ino == before.st_ino && after.st_uid == before.st_uid, planted);
                QCOMPARE(first.path(), second.path());
                struct stat privateFolder = {};
                ::stat(std::filesystem::path(second.path()).parent_path().c_str(), &privateFolder);
                QCOMPARE(privateFolder.st_mode & 0777, 0700u);
            }
            QCOMPARE(folder.read("victim"), std::string("precious"));
            QVERIFY2(!std::filesystem::exists(folder.path("made")), planted);

            // A capture that is still in use keeps its picture although the next one has its name.
            QVERIFY(!first.copyTo(folder.path("copy.png")));
            QCOMPARE(folder.read("copy.png"), std::string("first"));
        }
    }

    void aCopyNeverReplacesAFile()
    {
        TemporaryFolder folder;
        CaptureStore store(folder.path("capture.jpg"));
        const CaptureFile file = store.write("picture");
        const std::string there = folder.write("album/there.png", "old");
        std::filesystem::create_symlink(folder.path("album/made"), folder.path("album/link.png"));

        QCOMPARE(file.copyTo(there), std::make_error_code(std::errc::file_exists));
        QCOMPARE(file.copyTo(folder.path("album/link.png")), std::make_error_code(std::errc::file_exists));
        QCOMPARE(file.copyTo(folder.path("none/new.png")),
                 std::make_error_code(std::errc::no_such_file_or_directory));
        QCOMPARE(CaptureFile().copyTo(folder.path("album/new.png")),
                 std::make_error_code(std::errc::no_such_file_or_directory));
        QCOMPARE(folder.read("album/there.png"), std::string("old"));
        const std::filesystem::directory_iterator entries(folder.path("album"));
        QCOMPARE(std::distance(begin(entries), end(entries)), 2);
    }

    void aFailedWriteKeepsTheLastPicture()
    {
        TemporaryFolder folder;
        LogLines log;
        CaptureStore store(folder.makeFolder("gone") + "/capture.jpg");
        store.write("last");
        std::filesystem::rename(folder.path("gone"), folder.path("kept"));
        QCOMPARE(store.write("new").descriptor(), -1);
        QCOMPARE(log.lines().size(), 1u);
        QCOMPARE(folder.read("kept/capture.jpg"), std::string("last"));

        // A picture that cannot even be made: what the file holds is what is saved or printed.
        DetachedWorkers workers;
        CaptureSnapshots snapshots([] { return CaptureSnapshots::Shown(); }, workers,
                                   folder.path("kept/capture.jpg"));
        QVERIFY(!snapshots.take().get()->copyTo(folder.path("copy")));
        QCOMPARE(folder.read("copy"), std::string("last"));
        QCOMPARE(log.lines().size(), 2u);
    }

    void pictureAndFacts()
    {
        struct Row
        {
            QSize size;
            DecimalPosition place;
            const char* latitude;
            const char* longitude;
        };
        const Row rows[] = {
            {{1920, 1080}, {37.552057, 126.979362}, "N 37, 33, 7.4052", "E 126, 58, 45.7032"},
            {{321, 33}, {-0.5, -180}, "S  0, 30, 0.0000", "W 180,  0, 0.0000"},
            {{1, 1}, {89.9999999999, 9.9999999999}, "N 90,  0, 0.0000", "E 10,  0, 0.0000"},
        };
        for (const Row& row : rows) {
            QImage picture(row.size, QImage::Format_RGB32);
            picture.fill(QColor(10, 200, 30));
            CaptureFacts facts;
            facts.place = row.place;
            facts.speed = 59.9;
            facts.speedUnit = SpeedUnit::Miles;
            const std::string jpeg = encodeCapture(picture, facts);

            QCOMPARE(pictureSize(jpeg), row.size);
            QCOMPARE(firstDivisors(jpeg), std::pair(2, 1));
            const auto gps = [&jpeg](int reference, int tag) {
                return exifText(jpeg, EXIF_IFD_GPS, reference) + QLatin1Char(' ') +
                       exifText(jpeg, EXIF_IFD_GPS, tag);
            };
            QCOMPARE(gps(EXIF_TAG_GPS_LATITUDE_REF, EXIF_TAG_GPS_LATITUDE), QLatin1String(row.latitude));
            QCOMPARE(gps(EXIF_TAG_GPS_LONGITUDE_REF, EXIF_TAG_GPS_LONGITUDE), QLatin1String(row.longitude));
            QCOMPARE(gps(EXIF_TAG_GPS_SPEED_REF, EXIF_TAG_GPS_SPEED), QStringLiteral("M 59.90"));
            QCOMPARE(exifText(jpeg, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION),
                     QString::number(row.size.width()));
            QCOMPARE(exifText(jpeg, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL),
                     QStringLiteral("-")); // not known
        }
        QVERIFY(encodeCapture(QImage(), {}).empty());
    }

    void savesWhilePlayingOnly()
    {
        LogLines log;
        MRVAppDelegate::Configuration configuration;
        configuration.capturePath = m_home.makeFolder("shots") + "/capture.jpg";
        WindowStage stage(configuration);
        QVERIFY(stage.isShown && stage.open(m_card.path()));
        const auto dialog = [&stage] { return stage.window().findChild<CaptureSaveDialog*>(); };
        const auto capture = [&] { stage.action(Command::CaptureVideo)->trigger(); };
        const auto answer = [&](const std::string& target) {
            auto* name = dialog()->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(QString::fromStdString(target));
            QTest::keyClick(name, Qt::Key_Return);
        };
        capture(); // nothing is open
        QVERIFY(!dialog());

        stage.doubleClickRow(0);
        QTRY_VERIFY_WITH_TIMEOUT(stage.player().isPlaying() && stage.player().timeMs() > 2300, 10'000);
        capture();
        QVERIFY(dialog() && dialog()->isModal());
        QTRY_VERIFY(stage.player().isPaused()); // until the dialog closes
        QVERIFY(!stage.action(Command::CaptureVideo)->isEnabled());
        answer(m_home.path("saved.png"));
        QTRY_VERIFY(std::filesystem::exists(m_home.path("saved.png")));
        QTRY_COMPARE(opened(), "1:" + configuration.capturePath + '\n');
        QTRY_VERIFY(!dialog());
        const std::string jpeg = m_home.read("saved.png");
        QCOMPARE(jpeg, m_home.read("shots/capture.jpg"));
        QCOMPARE(pictureSize(jpeg), stage.player().videoSize());
        QCOMPARE(firstDivisors(jpeg), std::pair(2, 1));
        // The clock of the recording has passed midnight by now.
        const QString taken = exifText(jpeg, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL);
        QVERIFY2(taken.startsWith(QLatin1StringView("2024:05:18 00:00:0")), qPrintable(taken));
        QCOMPARE(exifText(jpeg, EXIF_IFD_GPS, EXIF_TAG_GPS_LATITUDE), QStringLiteral("37, 33, 7.4040"));
        QCOMPARE(exifText(jpeg, EXIF_IFD_GPS, EXIF_TAG_GPS_SPEED), QStringLiteral("59.90"));

        // A file that exists stays, and the new picture is opened all the same.
        m_home.write("there.png", "old");
        log.clear();
        QTRY_VERIFY(stage.player().isPlaying());
        capture();
        answer(m_home.path("there.png"));
        const std::string twice =
            "1:" + configuration.capturePath + "\n1:" + configuration.capturePath + '\n';
        QTRY_COMPARE(opened(), twice);
        QTRY_COMPARE(log.lines().size(), 1u);
        QCOMPARE(m_home.read("there.png"), std::string("old"));

        // Without a picture of ours, what may have its name is neither saved nor opened.
        QTRY_VERIFY(!dialog());
        std::filesystem::rename(m_home.path("shots"), m_home.path("away"));
        log.clear();
        QTRY_VERIFY(stage.player().isPlaying());
        capture();
        answer(m_home.path("nothing.png"));
        QTRY_COMPARE(log.lines().size(), 3u); // written, saved, opened: none of them
        QVERIFY(!std::filesystem::exists(m_home.path("nothing.png")));
        QCOMPARE(opened(), twice);
        std::filesystem::rename(m_home.path("away"), m_home.path("shots"));

        QTRY_VERIFY(!dialog() && stage.player().isPlaying());
        capture();
        QTest::keyClick(dialog(), Qt::Key_Escape);
        QTRY_VERIFY(!dialog() && stage.player().isPlaying());

        stage.key(Qt::Key_Space);
        QTRY_VERIFY(stage.player().isPaused());
        const std::string before = m_home.read("shots/capture.jpg");
        capture();
        QVERIFY(!dialog());
        QCOMPARE(m_home.read("shots/capture.jpg"), before);
        QCOMPARE(opened(), twice); // neither the cancelled one nor the paused one

        // A still is saved in pause as well, each under a name of its own.
        const auto stills = [this] {
            const QDir folder(QString::fromStdString(m_home.path("Pictures/MARVO")));
            return folder.entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
        };
        stage.key(Qt::Key_K);
        QTRY_COMPARE(stills().size(), 1);
        stage.key(Qt::Key_K);
        QTRY_COMPARE(stills().size(), 2);
        QVERIFY2(stills().front().startsWith(QLatin1String("2024-05-18_00-00-")),
                 qPrintable(stills().front()));
        QVERIFY(stills().front().endsWith(QLatin1String("_front.jpg")));
        const std::string still = m_home.read("Pictures/MARVO/" + stills().front().toStdString());
        QCOMPARE(pictureSize(still), stage.player().videoSize());
        QVERIFY(exifText(still, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL)
                    .startsWith(QLatin1String("2024:05:18")));
    }
};

QTEST_MAIN(CaptureTest)
#include "CaptureControllerTest.moc"
