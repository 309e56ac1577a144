// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// Captured pictures: the file and what stands in it, and the command as a person gives it.
#include "TemporaryFolder.h"
#include "viewer/CaptureSaveDialog.h"
#include "viewer/CaptureSnapshots.h"
#include "viewer/log_lines.h"
#include "viewer/window_stage.h"

#include <libexif/exif-data.h>

#include <QAction>
#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QLineEdit>

#include <filesystem>

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
    void initTestCase();
    void nothingPlantedIsFollowedOrReplaced_data();
    void nothingPlantedIsFollowedOrReplaced();
    void aCopyNeverReplacesAFile();
    void aFailedWriteKeepsTheLastPicture();
    void pictureAndFacts_data();
    void pictureAndFacts();
    void savesWhilePlayingOnly();
};

void CaptureTest::initTestCase()
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

void CaptureTest::nothingPlantedIsFollowedOrReplaced_data()
{
    QTest::addColumn<QString>("planted");
    QTest::addColumn<bool>("isReplaced");
    QTest::newRow("nothing") << QString() << true;
    QTest::newRow("our last picture") << QStringLiteral("file") << true;
    QTest::newRow("a link to a file of ours") << QStringLiteral("link") << false;
    QTest::newRow("a link to nothing") << QStringLiteral("dangling") << false;
    QTest::newRow("a pipe") << QStringLiteral("pipe") << false;
    QTest::newRow("a folder") << QStringLiteral("folder") << false;
    QTest::newRow("another user's file") << QStringLiteral("foreign") << false;
}

void CaptureTest::nothingPlantedIsFollowedOrReplaced()
{
    QFETCH(QString, planted);
    QFETCH(bool, isReplaced);
    TemporaryFolder folder;
    const std::string path = folder.path("capture.jpg");
    const std::string victim = folder.write("victim", "precious");
    if (planted == QLatin1StringView("file")) {
        folder.write("capture.jpg", "a longer picture than the next");
        ::chmod(path.c_str(), 0666);
    } else if (planted == QLatin1StringView("link")) {
        std::filesystem::create_symlink(victim, path);
    } else if (planted == QLatin1StringView("dangling")) {
        std::filesystem::create_symlink(folder.path("made"), path);
    } else if (planted == QLatin1StringView("pipe")) {
        QCOMPARE(::mkfifo(path.c_str(), 0666), 0);
    } else if (planted == QLatin1StringView("folder")) {
        folder.makeFolder("capture.jpg");
    } else if (planted == QLatin1StringView("foreign")) {
        folder.write("capture.jpg", "theirs");
        if (::chown(path.c_str(), 1, 1) != 0)
            QSKIP("only the administrator can make a file of another user");
    }
    struct stat before = {};
    ::lstat(path.c_str(), &before);

    LogLines log;
    CaptureStore store(path);
    const CaptureFile first = store.write("first");
    const CaptureFile second = store.write("second");
    const auto lines = log.lines();

    struct stat status = {};
    QCOMPARE(::lstat(second.path().c_str(), &status), 0);
    QVERIFY(S_ISREG(status.st_mode));
    QCOMPARE(status.st_mode & 0777, 0600u);
    QCOMPARE(status.st_size, 6);
    QCOMPARE(second.path() == path, isReplaced);
    QCOMPARE(lines.size(), isReplaced ? 0u : 1u); // told once
    if (!isReplaced) {
        struct stat after = {};
        QCOMPARE(::lstat(path.c_str(), &after), 0);
        QCOMPARE(after.st_ino, before.st_ino);
        QCOMPARE(after.st_uid, before.st_uid);
        QCOMPARE(first.path(), second.path());
        struct stat privateFolder = {};
        ::stat(std::filesystem::path(second.path()).parent_path().c_str(), &privateFolder);
        QCOMPARE(privateFolder.st_mode & 0777, 0700u);
    }
    QCOMPARE(folder.read("victim"), std::string("precious"));
    QVERIFY(!std::filesystem::exists(folder.path("made")));

    // A capture that is still in use keeps its picture although the next one has its name.
    QVERIFY(!first.copyTo(folder.path("copy.png")));
    QCOMPARE(folder.read("copy.png"), std::string("first"));
}

void CaptureTest::aCopyNeverReplacesAFile()
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

void CaptureTest::aFailedWriteKeepsTheLastPicture()
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

void CaptureTest::pictureAndFacts_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");
    QTest::addColumn<QString>("latitudeText");
    QTest::addColumn<QString>("longitudeText");
    QTest::newRow("north east") << QSize(1920, 1080) << 37.552057 << 126.979362
                                << QStringLiteral("N 37, 33, 7.4052") << QStringLiteral("E 126, 58, 45.7032");
    QTest::newRow("south west, odd size")
        << QSize(321, 33) << -0.5 << -180.0 << QStringLiteral("S  0, 30, 0.0000")
        << QStringLiteral("W 180,  0, 0.0000");
    QTest::newRow("no sixty seconds")
        << QSize(1, 1) << 89.9999999999 << 9.9999999999 << QStringLiteral("N 90,  0, 0.0000")
        << QStringLiteral("E 10,  0, 0.0000");
}

void CaptureTest::pictureAndFacts()
{
    QFETCH(QSize, size);
    QFETCH(double, latitude);
    QFETCH(double, longitude);
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(10, 200, 30));
    CaptureFacts facts;
    facts.place = DecimalPosition{latitude, longitude};
    facts.speed = 59.9;
    facts.speedUnit = SpeedUnit::Miles;
    const std::string jpeg = encodeCapture(picture, facts);

    QVERIFY(jpeg.starts_with("\xFF\xD8\xFF") && jpeg.ends_with("\xFF\xD9"));
    QCOMPARE(pictureSize(jpeg), size);
    QCOMPARE(firstDivisors(jpeg), std::pair(2, 1));
    const auto gps = [&jpeg](int tag) { return exifText(jpeg, EXIF_IFD_GPS, tag); };
    const auto place = [&gps](int reference, int tag) {
        return gps(reference) + QLatin1Char(' ') + gps(tag);
    };
    QTEST(place(EXIF_TAG_GPS_LATITUDE_REF, EXIF_TAG_GPS_LATITUDE), "latitudeText");
    QTEST(place(EXIF_TAG_GPS_LONGITUDE_REF, EXIF_TAG_GPS_LONGITUDE), "longitudeText");
    QCOMPARE(gps(EXIF_TAG_GPS_SPEED_REF), QStringLiteral("M"));
    QCOMPARE(gps(EXIF_TAG_GPS_SPEED), QStringLiteral("59.90"));
    QCOMPARE(exifText(jpeg, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION), QString::number(size.width()));
    QCOMPARE(exifText(jpeg, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL), QStringLiteral("-")); // not known

    QVERIFY(encodeCapture(QImage(), facts).empty());
}

void CaptureTest::savesWhilePlayingOnly()
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
    QCOMPARE(dialog()->windowTitle(), QStringLiteral("Save Settings"));
    QCOMPARE(QFileInfo(dialog()->selectedFiles().value(0)).fileName(), QStringLiteral("marvo_capture.png"));
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
    capture();
    answer(m_home.path("there.png"));
    const std::string twice = "1:" + configuration.capturePath + "\n1:" + configuration.capturePath + '\n';
    QTRY_COMPARE(opened(), twice);
    QTRY_COMPARE(log.lines().size(), 1u);
    QCOMPARE(m_home.read("there.png"), std::string("old"));

    // Without a picture of ours, what may have its name is neither saved nor opened.
    QTRY_VERIFY(!dialog());
    std::filesystem::rename(m_home.path("shots"), m_home.path("away"));
    log.clear();
    capture();
    answer(m_home.path("nothing.png"));
    QTRY_COMPARE(log.lines().size(), 3u); // written, saved, opened: none of them
    QVERIFY(!std::filesystem::exists(m_home.path("nothing.png")));
    QCOMPARE(opened(), twice);
    std::filesystem::rename(m_home.path("away"), m_home.path("shots"));

    QTRY_VERIFY(!dialog());
    capture();
    QTest::keyClick(dialog(), Qt::Key_Escape);
    QTRY_VERIFY(!dialog());

    stage.key(Qt::Key_Space);
    QTRY_VERIFY(stage.player().isPaused());
    const std::string before = m_home.read("shots/capture.jpg");
    capture();
    QVERIFY(!dialog());
    QCOMPARE(m_home.read("shots/capture.jpg"), before);
    QCOMPARE(opened(), twice); // neither the cancelled one nor the paused one
}

QTEST_MAIN(CaptureTest)
#include "capture_test.moc"
