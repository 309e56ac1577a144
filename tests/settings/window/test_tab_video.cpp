// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForVideoViewController.h"

#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"
#include "texts/Localisation.h"

#include "TabTesting.h"

using namespace marvo;
using namespace marvo::testing;

class VideoTabTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    void defaultRecord()
    {
        fillDefaultFileDataForLanguage(m_record, InterfaceLanguage::English);
        MRVSettingForVideoViewController tab;
        tab.setFileData(&m_record);
        QCOMPARE(shownItem(tab, "videoResolution"), 0);
        auto& bitrate = control<RadioMatrix>(tab, "videoEncodingBitrate");
        QCOMPARE(bitrate.title(0), QStringLiteral("6"));
        QCOMPARE(bitrate.title(bitrate.selectedCell()), QStringLiteral("9"));
        QCOMPARE(shownItem(tab, "videoFrameRate"), 1);
        QCOMPARE(shownItem(tab, "videoCPLTinting"), 0);
        for (const char* name : {"videoBrightness", "videoSharpness", "videoNoisefilter"}) {
            const auto& levels = control<SegmentedControl>(tab, name);
            QVERIFY(levels.labels().at(levels.selectedSegment()).contains(QStringLiteral("(default)")));
        }
    }

    void storedValuesAreShown_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<qint64>("stored");
        QTest::addColumn<QString>("control");
        QTest::addColumn<int>("item");
        QTest::addColumn<qint64>("storedAgain");
        const auto row = [](const char* name, const char* field, qint64 stored, const char* control, int item,
                            qint64 again) {
            QTest::newRow(name) << QString::fromLatin1(field) << stored << QString::fromLatin1(control)
                                << item << again;
        };
        row("24 fps", "videoFrameRate", 6144, "videoFrameRate", 0, 6144);
        row("30 fps and a bit", "videoFrameRate", 7681, "videoFrameRate", 1, 7680);
        row("3 fps", "videoFrameRate", 3 * 256, "videoFrameRate", 1, 7680);
        row("5 fps has no segment", "videoFrameRate", 5 * 256, "videoFrameRate", -1, 7680);
        row("15 fps has no segment", "videoFrameRate", 15 * 256, "videoFrameRate", -1, 7680);
        row("25 fps", "videoFrameRate", 25 * 256, "videoFrameRate", 0, 6144);
        row("no frame rate", "videoFrameRate", 0, "videoFrameRate", 0, 6144);
        row("highest bit rate", "videoBitrate", 11000, "videoEncodingBitrate", 5, 11000);
        row("bit rate between two", "videoBitrate", 9999, "videoEncodingBitrate", 3, 9000);
        row("bit rate of the other resolution", "videoBitrate", 5999, "videoEncodingBitrate", -1, 5999);
        row("bit rate too high", "videoBitrate", 12000, "videoEncodingBitrate", -1, 12000);
        row("largest bit rate", "videoBitrate", 4294967295, "videoEncodingBitrate", -1, 4294967295);
        row("too dark", "videoBrightness", 123, "videoBrightness", -1, 123);
        row("brightness between two", "videoBrightness", 131, "videoBrightness", 1, 128);
        row("brightest", "videoBrightness", 143, "videoBrightness", 4, 140);
        row("too bright", "videoBrightness", 144, "videoBrightness", -1, 144);
        row("sharpness 0", "videoSharpness", 0, "videoSharpness", -1, 0);
        row("noise filter 6", "videoNoiseFilter", 6, "videoNoisefilter", -1, 6);
        row("unknown tint", "cplTinting", 4, "videoCPLTinting", -1, 4);
        row("unknown resolution", "videoResolution", 2, "videoResolution", -1, 2);
    }

    void storedValuesAreShown()
    {
        QFETCH(QString, field);
        QFETCH(qint64, stored);
        QFETCH(QString, control);
        QFETCH(int, item);
        QFETCH(qint64, storedAgain);
        fillDefaultFileData(m_record);
        const FileDataField* const fieldData = findFileDataField(field.toStdString());
        QVERIFY(fieldData->setNumber(m_record, stored));
        MRVSettingForVideoViewController tab;
        tab.setFileData(&m_record);
        QCOMPARE(shownItem(tab, qPrintable(control)), item);
        tab.populate();
        QCOMPARE(fieldData->number(m_record), storedAgain);
    }

    void resolutionRetitlesTheBitrates()
    {
        fillDefaultFileDataForLanguage(m_record, InterfaceLanguage::English);
        MRVSettingForVideoViewController tab;
        tab.setFileData(&m_record);
        tab.show();
        clickItem(tab, "videoResolution", 1);
        auto& bitrate = control<RadioMatrix>(tab, "videoEncodingBitrate");
        QCOMPARE(bitrate.selectedCell(), 3);
        QCOMPARE(bitrate.title(0), QStringLiteral("3"));
        QCOMPARE(bitrate.title(5), QStringLiteral("8"));
        QCOMPARE(m_record.videoResolution, 0U);
        tab.populate();
        QCOMPARE(m_record.videoResolution, 1U);
        QCOMPARE(m_record.videoBitrate, 6000U);
        clickItem(tab, "videoEncodingBitrate", 5);
        clickItem(tab, "videoResolution", 0);
        tab.populate();
        QCOMPARE(m_record.videoBitrate, 11000U);
    }

    void bitrateNeedsAResolution()
    {
        fillDefaultFileData(m_record);
        m_record.videoResolution = 7;
        MRVSettingForVideoViewController tab;
        tab.setFileData(&m_record);
        tab.show();
        clickItem(tab, "videoEncodingBitrate", 2);
        QCOMPARE(shownItem(tab, "videoEncodingBitrate"), -1);
        clickItem(tab, "videoResolution", 1);
        clickItem(tab, "videoEncodingBitrate", 2);
        tab.populate();
        QCOMPARE(m_record.videoBitrate, 5000U);
    }

    void randomRecordsSurvive()
    {
        MRVSettingForVideoViewController tab;
        std::vector<std::int64_t> bitrates;
        for (int kbit = 3000; kbit <= 11000; kbit += 1000)
            bitrates.push_back(kbit);
        verifyRandomRecordsSurvive(tab, {{"videoResolution", {0, 1}},
                                         {"videoBitrate", bitrates},
                                         {"videoFrameRate", {6144, 7680}},
                                         {"videoBrightness", {124, 128, 132, 136, 140}},
                                         {"cplTinting", upTo(3)},
                                         {"videoSharpness", {1, 2, 3, 4, 5}},
                                         {"videoNoiseFilter", {1, 2, 3, 4, 5}}});
    }

private:
    _FILEDATA m_record{};
};

QTEST_MAIN(VideoTabTest)
#include "test_tab_video.moc"
