// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/preview/Preview.h"
#include "film/NumberedFilms.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace marvo;
using marvo::test::NumberedFilm;

/// Real films through the real module.
class PreviewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsThePictureOfAMoment_data()
    {
        QTest::addColumn<bool>("isH264");
        QTest::addColumn<bool>("hasIndex");
        QTest::newRow("h264") << true << true;
        QTest::newRow("h264 without index") << true << false;
        QTest::newRow("motion jpeg") << false << true;
        QTest::newRow("motion jpeg without index") << false << false;
    }
    void showsThePictureOfAMoment()
    {
        QFETCH(bool, isH264);
        QFETCH(bool, hasIndex);
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("film.avi"));
        using enum NumberedFilm::Codec;
        QVERIFY(test::writeNumberedFilm({5, 3, isH264 ? H264 : MotionJpeg}, file));
        QVERIFY(hasIndex || test::cutIndexOff(file));
        const std::string path = QFile::encodeName(file).toStdString();
        Preview preview;
        QSignalSpy spy(&preview, &Preview::came);
        struct Case
        {
            std::int64_t askedMs;
            int picture;
            std::int64_t beginsMs;
        };
        for (const Case& one : {Case{0, 0, 0},
                                {33, 1, 33},
                                {32, 0, 0},
                                {1999, 59, 1966},
                                {2000, 60, 2000},
                                {99'999, 89, 2966},
                                {-5, 0, 0}}) {
            spy.clear();
            preview.request(path, 1500, {160, 90}); // overtaken
            preview.request(path, one.askedMs, {160, 90});
            QTRY_COMPARE(spy.size(), 1);
            const QImage picture = spy[0][0].value<QImage>();
            QCOMPARE(picture.size(), QSize(160, 90));
            QCOMPARE(test::pictureNumberOf(picture).picture, one.picture);
            QCOMPARE(test::pictureNumberOf(picture).film, 5);
            QCOMPARE(spy[0][2].value<std::int64_t>(), one.beginsMs);
        }
        QVERIFY(QFile::resize(file, 3000));
        spy.clear();
        preview.request(path, 2000, {160, 90});
        QTRY_COMPARE(spy.size(), 1);
        QVERIFY(spy[0][0].value<QImage>().isNull());
        preview.request(path, 0, {160, 90});
        preview.cancel();
        QTest::qWait(100);
        QCOMPARE(spy.size(), 1);
    }
};

QTEST_MAIN(PreviewTest)
#include "PreviewTest.moc"
