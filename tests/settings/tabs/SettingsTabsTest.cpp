// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/RadioMatrix.h"
#include "controls/SegmentedControl.h"
#include "settings/tabs/MRVSettingForAudioViewController.h"
#include "settings/tabs/MRVSettingForAuxViewController.h"
#include "settings/tabs/MRVSettingForBasicViewController.h"
#include "settings/tabs/MRVSettingForGpsViewController.h"
#include "settings/tabs/MRVSettingForObdViewController.h"
#include "settings/tabs/MRVSettingForVideoViewController.h"

#include "settings/tabs/TabTesting.h"

#include <QCheckBox>
#include <QRadioButton>

using namespace marvo;
using namespace marvo::testing;

namespace {

using Audio = MRVSettingForAudioViewController;
using Aux = MRVSettingForAuxViewController;
using Basic = MRVSettingForBasicViewController;
using Gps = MRVSettingForGpsViewController;
using Obd = MRVSettingForObdViewController;
using Video = MRVSettingForVideoViewController;

constexpr std::int64_t allOnes = 0xFFFFFFFF;

} // namespace

class TabsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    /// A value without item is kept, or shown and stored as the item that stands in for it.
    void choices()
    {
        verifyChoices<Basic>({{"stanbyTimeCombo", "alwaysModeTimeout", 301, 2, 420, 4, 900},
                              {"powerVoltageCombo", "powerVoltage", 12450, 1, 11600, 9, 12400},
                              {"powerVoltageCombo", "powerVoltage", 12100, 6, 12100, 0, 0},
                              {"powerTimeCombo", "powerTime", 13, 0, 0, 4, 48},
                              {"displayscreenSeg", "displayScreen", 4, -1, 4, 1, 1}});
        verifyChoices<Video>({{"videoFrameRate", "videoFrameRate", 6144, 0, 6144, 1, 7680},
                              {"videoFrameRate", "videoFrameRate", 7681, 1, 7680, 0, 6144},
                              {"videoFrameRate", "videoFrameRate", 3 * 256, 1, 7680, 0, 6144},
                              {"videoFrameRate", "videoFrameRate", 5 * 256, -1, 7680, 0, 6144},
                              {"videoFrameRate", "videoFrameRate", 25 * 256, 0, 6144, 1, 7680},
                              {"videoFrameRate", "videoFrameRate", 0, 0, 6144, 1, 7680},
                              {"videoEncodingBitrate", "videoBitrate", 11000, 5, 11000, 0, 6000},
                              {"videoEncodingBitrate", "videoBitrate", 9999, 3, 9000, 5, 11000},
                              {"videoEncodingBitrate", "videoBitrate", 5999, -1, 5999, 0, 6000},
                              {"videoEncodingBitrate", "videoBitrate", 12000, -1, 12000, 4, 10000},
                              {"videoEncodingBitrate", "videoBitrate", allOnes, -1, allOnes, 1, 7000},
                              {"videoBrightness", "videoBrightness", 123, -1, 123, 0, 124},
                              {"videoBrightness", "videoBrightness", 131, 1, 128, 3, 136},
                              {"videoBrightness", "videoBrightness", 143, 4, 140, 0, 124},
                              {"videoBrightness", "videoBrightness", 144, -1, 144, 4, 140},
                              {"videoSharpness", "videoSharpness", 0, -1, 0, 4, 5},
                              {"videoNoisefilter", "videoNoiseFilter", 6, -1, 6, 0, 1},
                              {"videoCPLTinting", "cplTinting", 4, -1, 4, 3, 3},
                              {"videoResolution", "videoResolution", 2, -1, 2, 1, 1}});
        verifyChoices<Gps>({{"timeGmtCombo", "timeZoneIndex", -1, -1, -1, 33, 33},
                            {"timeGmtCombo", "timeZoneIndex", 34, -1, 34, 0, 0},
                            {"speedDisplayUnitSeg", "speedUnit", 2, -1, 2, 1, 1},
                            {"drivingDaySeg", "drivingDay", 8, -1, 8, 7, 7},
                            {"osdSpeedDisplaySeg", "osdSpeedDisplay", -1, -1, -1, 1, 1},
                            {"nightTimeSeg", "gpsOnParkingMode", 1, 1, 1, 0, 0},
                            // As a camera with an OBD adapter has it.
                            {"saveDurationSeg", "routeSaveInterval", 0x12, -1, 0x12, 7, 7}});
        verifyChoices<Aux>({{"HDSensitivitySeg", "motionSensitivityHd", 75, 2, 75, 4, 150},
                            {"HDSensitivitySeg", "motionSensitivityHd", 51, 0, 50, 3, 100},
                            {"FHDSensitivitySeg", "motionSensitivityFhd", 90, 2, 90, 0, 65},
                            {"FHDSensitivitySeg", "motionSensitivityFhd", 80, 0, 65, 4, 130},
                            {"useEnvironmentSeg", "useEnvironment", 3000, 0, 1, 1, 0},
                            {"useEnvironmentSeg", "useEnvironment", 0, 1, 0, 0, 1},
                            {"dayTimeAESeg", "dayTimeAE", 3, -1, 3, 2, 2},
                            {"gammaSeg", "gamma", allOnes, -1, allOnes, 1, 1}});
        verifyChoices<Audio>({{"speakerSeg", "speakerVolume", 0, 0, 39, 2, 63},
                              {"speakerSeg", "speakerVolume", 39, 0, 39, 1, 51},
                              {"speakerSeg", "speakerVolume", 40, 1, 51, 0, 39},
                              {"speakerSeg", "speakerVolume", 52, 2, 63, 0, 39},
                              {"speakerSeg", "speakerVolume", 63, 2, 63, 1, 51},
                              {"speakerSeg", "speakerVolume", 64, -1, 64, 1, 51},
                              {"speakerSeg", "speakerVolume", allOnes, -1, allOnes, 0, 39},
                              {"micSeg", "micLevel", 3, 2, 3, 0, 1},
                              {"micSeg", "micLevel", 0, -1, 0, 2, 3},
                              {"voiceLangRadio", "voiceLanguage", 7, 7, 7, 19, 19},
                              {"voiceLangRadio", "voiceLanguage", 20, -1, 20, 13, 13}, // Malaysian
                              {"voiceLangRadio", "voiceLanguage", 21, -1, 21, 0, 0}});
        verifyChoices<Obd>({{"powerVoltageCombo", "powerVoltage", 12100, 3, 12100, 0, 11800},
                            {"powerVoltageCombo", "powerVoltage", 0, -1, 0, 6, 12400},
                            {"powerVoltageCombo", "powerVoltage", 11850, -1, 11850, 1, 11900},
                            {"timeGmtCombo", "timeZoneIndex", -1, -1, -1, 33, 33},
                            {"drivingDaySeg", "drivingDay", 8, -1, 8, 1, 1},
                            {"speedDisplayUnitSeg", "speedUnit", 2, -1, 2, 0, 0},
                            {"osdSpeedDisplaySeg", "osdSpeedDisplay", -1, -1, -1, 1, 1}});
    }

    void randomRecordsSurvive()
    {
        const auto flag = upTo(1);
        // A threshold out of range keeps the whole tab from being stored; about a fifth of the rounds have
        // none.
        const auto thresholds = upTo(150, 5);
        auto powerVoltages = upTo(12400, 11600, 100);
        powerVoltages.push_back(0);
        verifyRandomRecordsSurvive<Basic>(
            {{{"displayScreen"}, upTo(3)},
             {{"recordingMode", "gsensorEnable", "securityLedOff", "safeTemperatureMode", "autoDrivingMode",
               "autoParkingMode", "compositeMode", "useExternalPower"},
              flag},
             {{"drivingThresholdX", "drivingThresholdY", "drivingThresholdZ", "parkingThresholdX",
               "parkingThresholdY", "parkingThresholdZ"},
              thresholds},
             {{"alwaysModeTimeout"}, {180, 300, 420, 600, 900}},
             {{"powerVoltage"}, powerVoltages},
             {{"powerTime"}, upTo(48, 0, 12)}});
        verifyRandomRecordsSurvive<Video>({{{"videoResolution"}, flag},
                                           {{"videoBitrate"}, upTo(11000, 3000, 1000)},
                                           {{"videoFrameRate"}, {6144, 7680}},
                                           {{"videoBrightness"}, upTo(140, 124, 4)},
                                           {{"cplTinting"}, upTo(3)},
                                           {{"videoSharpness", "videoNoiseFilter"}, upTo(5, 1)}});
        verifyRandomRecordsSurvive<Gps>(
            {{{"drivingDay", "routeSaveInterval"}, upTo(7)},
             {{"speedUnit", "osdSpeedDisplay", "summerTime", "gpsOnParkingMode"}, flag},
             {{"timeZoneIndex"}, upTo(33)}});
        // While a share is too small, nothing at all is stored.
        verifyRandomRecordsSurvive<Aux>({{{"sdRatioAlways"}, {70}},
                                         {{"sdRatioMotion"}, {20}},
                                         {{"sdRatioEvent"}, {10}},
                                         {{"motionSensitivityFhd"}, {65, 70, 90, 100, 130}},
                                         {{"motionSensitivityHd"}, {50, 60, 75, 100, 150}},
                                         {{"useMotion", "useEnvironment", "gamma"}, flag},
                                         {{"dayTimeAE"}, upTo(2)}});
        verifyRandomRecordsSurvive<Audio>({{{"micLevel"}, upTo(3, 1)},
                                           {{"speakerVolume"}, {39, 51, 63}},
                                           {{"voiceRecording", "hourlyNotice", "voiceGuidance"}, flag},
                                           {{"voiceLanguage"}, upTo(20)}});
        verifyRandomRecordsSurvive<Obd>(
            {{{"drivingDay"}, upTo(7)},
             {{"speedUnit", "osdSpeedDisplay", "summerTime", "useExternalPower", "useEcoDrive"}, flag},
             {{"timeZoneIndex"}, upTo(33)},
             {{"powerVoltage"}, upTo(12400, 11800, 100)},
             {{"routeSaveInterval"}, {1, 2, 4, 0x11, 0x12, 0x14}},
             {{"ecoLow", "ecoHigh"}, upTo(100)}});
    }

    void labelsStandAtTheirValues()
    {
        DrivenTab<Video> video;
        for (const char* name : {"videoBrightness", "videoSharpness", "videoNoisefilter"}) {
            const auto& levels = video.control<SegmentedControl>(name);
            QVERIFY(levels.labels().at(levels.selectedSegment()).contains(QStringLiteral("(default)")));
        }
        const DrivenTab<Gps> gps;
        const auto& zones = control<QComboBox>(gps.tab, "timeGmtCombo");
        QCOMPARE(zones.currentText(), QStringLiteral("+09:00"));
        QCOMPARE(zones.itemText(23), QStringLiteral("+05:45"));
        QCOMPARE(zones.itemText(33), QStringLiteral("+13:00"));
        qApp->setStyleSheet(QStringLiteral("QLabel { color: gray }")); // takes fonts from what is not named
        DrivenTab<Audio> audio;
        const auto& grid = audio.control<RadioMatrix>("voiceLangRadio");
        QCOMPARE(grid.title(7), QStringLiteral("Japanese"));
        QCOMPARE(grid.title(19), QStringLiteral("Portuguese"));
        QCOMPARE(grid.cell(7)->font().pointSize(), 12);
        QCOMPARE(audio.control("malaysiaRadio").font().pointSize(), 12);
        qApp->setStyleSheet({});
    }

    void resolutionRetitlesTheBitrates()
    {
        _FILEDATA record = defaultRecord();
        record.videoResolution = 7;
        DrivenTab<Video> driven(record);
        driven.choose("videoEncodingBitrate", 2);
        QCOMPARE(driven.chosen("videoEncodingBitrate"), -1); // of which resolution?
        driven.choose("videoResolution", 1);
        driven.choose("videoEncodingBitrate", 3);
        const auto& bitrate = driven.control<RadioMatrix>("videoEncodingBitrate");
        QCOMPARE(bitrate.title(0) + bitrate.title(5), QStringLiteral("38"));
        QCOMPARE(driven.record.videoResolution, 7U); // nothing before the tab is left
        driven.tab.populate();
        QCOMPARE(driven.record.videoBitrate, 6000U);
        driven.choose("videoResolution", 0);
        QCOMPARE(bitrate.title(bitrate.selectedCell()), QStringLiteral("9"));
        driven.tab.populate();
        QCOMPARE(driven.record.videoBitrate, 9000U);
    }

    void gridAndMalaysianExcludeEachOther()
    {
        DrivenTab<Audio> driven;
        const auto& malaysian = driven.control<QRadioButton>("malaysiaRadio");
        for (int turn = 0; turn < 2; ++turn) {
            driven.click("malaysiaRadio");
            QCOMPARE(driven.chosen("voiceLangRadio"), -1);
            QCOMPARE(driven.record.voiceLanguage, 20U); // at once
            driven.click("malaysiaRadio");              // no way to turn it off
            QVERIFY(malaysian.isChecked());
            driven.choose("voiceLangRadio", 13);
            QVERIFY(!malaysian.isChecked());
            driven.tab.populate();
            QCOMPARE(driven.record.voiceLanguage, 13U);
        }
        for (const quint32 language : {20U, 99U}) {
            driven.record.voiceLanguage = language;
            driven.tab.setFileData(&driven.record);
            QCOMPARE(malaysian.isChecked(), language == 20);
        }
    }

    void featuresAreStoredAtOnce()
    {
        _FILEDATA record = defaultRecord();
        record.voiceRecording = record.voiceGuidance = record.useMotion = 7;
        DrivenTab<Audio> audio(record);
        DrivenTab<Aux> aux(record);
        const struct
        {
            QWidget& tab;
            const char* check;
            const quint32& field;
            const char* depends;
        } rows[] = {{audio.tab, "useVoiceRecordingChk", audio.record.voiceRecording, "micSeg"},
                    {audio.tab, "useVoiceGuidanceChk", audio.record.voiceGuidance, "speakerSeg"},
                    {aux.tab, "useMotionChk", aux.record.useMotion, "HDSensitivitySeg"},
                    {aux.tab, "useMotionChk", aux.record.useMotion, "FHDSensitivitySeg"}};
        for (const auto& row : rows) {
            QVERIFY(row.field != 0 && control(row.tab, row.depends).isEnabled()); // showing is no change
            clickItem(row.tab, row.check);
            QVERIFY2(row.field == 0 && !control(row.tab, row.depends).isEnabled(), row.depends);
            clickItem(row.tab, row.check);
            QVERIFY2(row.field == 1 && control(row.tab, row.depends).isEnabled(), row.depends);
        }
        audio.click("useEveryHourNoticeChk"); // on at first
        QCOMPARE(audio.record.hourlyNotice, 1U);
        audio.tab.populate();
        QCOMPARE(audio.record.hourlyNotice, 0U);
    }

    void flagsAreWrittenAsOneOrZero()
    {
        _FILEDATA record = defaultRecord();
        record.summerTime = 9;
        record.useExternalPower = 0x100;
        DrivenTab<Obd> driven(record);
        QVERIFY(driven.control("useExternalPowerChk").isHidden());
        driven.tab.populate();
        QCOMPARE(driven.record.summerTime, 1U);
        QCOMPARE(driven.record.useExternalPower, 1U);
        QCOMPARE(driven.record.useEcoDrive, 1U); // from 176
        driven.click("summerTimeChk");
        driven.click("useEcoDriveChk");
        driven.tab.populate();
        QCOMPARE(driven.record.summerTime, 0U);
        QCOMPARE(driven.record.useEcoDrive, 0U);
    }

    void routeSaving()
    {
        const struct
        {
            quint32 stored, displayed; ///< "displayed": in the record, after showing it
            int interval, parking;
            quint32 unchanged, parkingOn, parkingOff;
        } rows[] = {{0x12, 0x12, 1, 1, 0x12, 0x12, 2},
                    {3, 4, 3, 0, 4, 0x14, 4},
                    {0x13, 4, 3, 0, 4, 0x14, 4},
                    {0xABCD23, 4, 3, 0, 4, 0x14, 4},
                    {0x22, 0x22, 1, 0, 2, 0x12, 2},
                    {0x32, 0x32, 1, 0, 2, 0x12, 2},
                    {0xFFFFFF11, 0xFFFFFF11, 0, 1, 0x11, 0x11, 1},
                    {0, 0, -1, 0, 4, 0x14, 4},
                    {0x15, 0x15, -1, 1, 0x14, 0x14, 4}};
        for (const auto& row : rows) {
            _FILEDATA record = defaultRecord();
            record.routeSaveInterval = row.stored;
            DrivenTab<Obd> driven(record);
            const quint32& stored = driven.record.routeSaveInterval;
            QCOMPARE(stored, row.displayed);
            QCOMPARE(driven.chosen("saveDurationSeg"), row.interval);
            QCOMPARE(driven.chosen("useObdParkingSeg"), row.parking);
            driven.tab.populate();
            QCOMPARE(stored, row.unchanged);
            for (const int parking : {1, 0}) {
                driven.choose("useObdParkingSeg", parking);
                driven.tab.populate();
                QCOMPARE(stored, parking ? row.parkingOn : row.parkingOff);
            }
        }
        // Turning parking on keeps the upper bits.
        _FILEDATA record = defaultRecord();
        record.routeSaveInterval = 0x22;
        DrivenTab<Obd> driven(record);
        driven.choose("useObdParkingSeg", 1);
        driven.tab.populate();
        QCOMPARE(driven.record.routeSaveInterval, 0x32U);
        driven.choose("saveDurationSeg", 2);
        driven.tab.populate();
        QCOMPARE(driven.record.routeSaveInterval, 0x33U);
    }

    /// What the slider cannot show is kept until a knob is moved; then both are what is seen.
    void ecoThresholds()
    {
        const struct
        {
            quint32 low, high;
            int loKnob, hiKnob;
        } rows[] = {{85, 60, 15, 40}, {1, 1, 99, 99}, {100, 0, 0, 100}, {10, 50, 50, 50}, {300, ~0U, 0, 0}};
        const auto share = [](int knob) { return QString::number((100 - knob) / 100.0, 'f', 2); };
        for (const auto& [low, high, loKnob, hiKnob] : rows) {
            _FILEDATA record = defaultRecord();
            record.ecoLow = low;
            record.ecoHigh = high;
            DrivenTab<Obd> driven(record);
            auto& slider = driven.control<SMDoubleSlider>("ecoSlider");
            QCOMPARE(slider.intLoValue(), loKnob);
            QCOMPARE(slider.intHiValue(), hiKnob);
            QCOMPARE(driven.text("ecoDriveLabel"), QStringLiteral("Eco Drive : %1 over").arg(share(loKnob)));
            QCOMPARE(driven.text("normalDriveLabel"),
                     QStringLiteral("Normal Drive : %1 ~ %2").arg(share(loKnob), share(hiKnob)));
            QCOMPARE(driven.text("unecoDriveLabel"),
                     QStringLiteral("Uneco Drive : %1 under").arg(share(hiKnob)));
            driven.tab.populate();
            QCOMPARE(driven.record.ecoLow, low);
            QCOMPARE(driven.record.ecoHigh, high);

            slider.setFocus();
            slider.setTrackingLoKnob(loKnob > 0);
            QTest::keyClick(&slider, loKnob > 0 ? Qt::Key_Left : Qt::Key_Right);
            driven.tab.populate();
            QCOMPARE(driven.record.ecoLow, 100U - static_cast<quint32>(std::max(loKnob - 1, 0)));
            QCOMPARE(driven.record.ecoHigh,
                     100U - static_cast<quint32>(std::min(hiKnob + (loKnob > 0 ? 0 : 1), 100)));
        }
    }

    void sharesOfTheRecord()
    {
        const struct
        {
            quint32 always, motion, event;
            int knobs[2];
            quint32 shares[3];
            bool valid;
        } rows[] = {{70, 20, 10, {70, 90}, {70, 20, 10}, true},
                    {10, 10, 80, {10, 20}, {10, 10, 80}, true},
                    {9, 41, 50, {9, 50}, {9, 41, 50}, false},
                    {40, 5, 55, {40, 45}, {40, 5, 55}, false},
                    {30, 65, 5, {30, 95}, {30, 65, 5}, false},
                    {50, 0, 50, {50, 50}, {50, 0, 50}, false},
                    {30, 30, 30, {30, 60}, {30, 30, 40}, true},
                    {60, 20, 100, {60, 80}, {60, 20, 20}, true},
                    {300, 20, 10, {100, 100}, {100, 0, 0}, false},
                    {20, 0xFFFFFFF6, 10, {20, 100}, {20, 80, 0}, false}, // the sum overflows
                    {~0U, ~0U, ~0U, {100, 100}, {100, 0, 0}, false}};
        for (const auto& row : rows) {
            _FILEDATA record = defaultRecord();
            record.sdRatioAlways = row.always;
            record.sdRatioMotion = row.motion;
            record.sdRatioEvent = row.event;
            DrivenTab<Aux> driven(record);
            const auto& slider = driven.control<SMDoubleSlider>("sdRatioSlider");
            QCOMPARE(slider.intLoValue(), row.knobs[0]);
            QCOMPARE(slider.intHiValue(), row.knobs[1]);
            QCOMPARE(driven.text("alwaysField"), QStringLiteral("%1%").arg(row.shares[0]));
            QCOMPARE(driven.text("motionField"), QStringLiteral("%1%").arg(row.shares[1]));
            QCOMPARE(driven.text("eventField"), QStringLiteral("%1%").arg(row.shares[2]));

            driven.choose("gammaSeg", 1);
            QCOMPARE(driven.tab.validateUserInput(),
                     row.valid ? std::nullopt : std::optional(localised("msg.sdcard_ratio_too_low")));
            driven.tab.populate();
            if (!row.valid) {
                QCOMPARE(driven.record, record);
                continue;
            }
            QCOMPARE(driven.record.gamma, 1U);
            QCOMPARE(driven.record.sdRatioAlways, row.shares[0]);
            QCOMPARE(driven.record.sdRatioMotion, row.shares[1]);
            QCOMPARE(driven.record.sdRatioEvent, row.shares[2]);
        }
    }

    void knobsAreDragged()
    {
        using Driven = DrivenTab<Aux>;
        Driven driven;
        QCOMPARE(driven.control("sdRatioSliderAxisView").width(), driven.control("sdRatioSlider").width());
        driven.drag("sdRatioSlider", Driven::Knob::Low, 33);
        driven.drag("sdRatioSlider", Driven::Knob::High, 61);
        QCOMPARE(driven.text("alwaysField"), QStringLiteral("33%"));
        QCOMPARE(driven.text("motionField"), QStringLiteral("28%"));
        QCOMPARE(driven.text("eventField"), QStringLiteral("39%"));

        driven.drag("sdRatioSlider", Driven::Knob::Low, 80); // stopped by the other knob
        QCOMPARE(driven.text("alwaysField"), QStringLiteral("61%"));
        driven.tab.populate();
        QCOMPARE(driven.record.sdRatioAlways, 70U); // no motion, which is too little

        driven.drag("sdRatioSlider", Driven::Knob::Low, 9);
        QVERIFY(driven.tab.validateUserInput());
        QTest::keyClick(&driven.control("sdRatioSlider"), Qt::Key_Right);
        QVERIFY(!driven.tab.validateUserInput());
        driven.tab.populate();
        QCOMPARE(driven.record.sdRatioAlways, 10U);
        QCOMPARE(driven.record.sdRatioMotion, 51U);
        QCOMPARE(driven.record.sdRatioEvent, 39U);
    }
};

QTEST_MAIN(TabsTest)
#include "SettingsTabsTest.moc"
