// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForAudioViewController.h"

#include "DrivenTab.h"

#include <QCheckBox>
#include <QRadioButton>

using namespace marvo;
using namespace marvo::testing;
using Driven = DrivenTab<MRVSettingForAudioViewController>;

class AudioTabTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    void choices_data()
    {
        QTest::addColumn<QByteArray>("control");
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<qint64>("stored");
        QTest::addColumn<int>("shown");
        QTest::addColumn<qint64>("kept"); // when nothing is chosen
        QTest::addColumn<int>("chosen");
        QTest::addColumn<qint64>("written");
        const auto row = [](const char* name, const char* control, const char* field, qint64 stored,
                            int shown, qint64 kept, int chosen, qint64 written) {
            QTest::newRow(name) << QByteArray(control) << QByteArray(field) << stored << shown << kept
                                << chosen << written;
        };
        row("speaker 0", "speakerSeg", "speakerVolume", 0, 0, 39, 2, 63);
        row("speaker 39", "speakerSeg", "speakerVolume", 39, 0, 39, 1, 51);
        row("speaker 40", "speakerSeg", "speakerVolume", 40, 1, 51, 0, 39);
        row("speaker 48", "speakerSeg", "speakerVolume", 48, 1, 51, 2, 63);
        row("speaker 52", "speakerSeg", "speakerVolume", 52, 2, 63, 0, 39);
        row("speaker 63", "speakerSeg", "speakerVolume", 63, 2, 63, 1, 51);
        row("speaker 64", "speakerSeg", "speakerVolume", 64, -1, 64, 1, 51);
        row("speaker -1", "speakerSeg", "speakerVolume", 0xFFFFFFFF, -1, 0xFFFFFFFF, 0, 39);
        row("microphone 3", "micSeg", "micLevel", 3, 2, 3, 0, 1);
        row("microphone 0", "micSeg", "micLevel", 0, -1, 0, 2, 3);
        row("microphone 4", "micSeg", "micLevel", 4, -1, 4, 1, 2);
        row("Japanese", "voiceLangRadio", "voiceLanguage", 7, 7, 7, 19, 19);
        row("Malaysian, then German", "voiceLangRadio", "voiceLanguage", 20, -1, 20, 13, 13);
        row("unknown language", "voiceLangRadio", "voiceLanguage", 21, -1, 21, 0, 0);
        row("language -1", "voiceLangRadio", "voiceLanguage", 0xFFFFFFFF, -1, 0xFFFFFFFF, 4, 4);
    }

    void choices()
    {
        QFETCH(QByteArray, control);
        QFETCH(QByteArray, field);
        QFETCH(qint64, stored);
        QFETCH(int, chosen);
        _FILEDATA record = defaultRecord();
        setField(record, field, stored);
        Driven driven(record);
        QTEST(driven.chosen(control), "shown");
        driven.tab.populate();
        QTEST(qint64{fieldOf(driven.record, field)}, "kept");
        driven.choose(control, chosen);
        driven.tab.populate();
        QTEST(qint64{fieldOf(driven.record, field)}, "written");
    }

    void languagesStandInTheCamerasOrder()
    {
        qApp->setStyleSheet(QStringLiteral("QLabel { color: gray }")); // takes fonts from what is not named
        Driven driven(defaultRecord());
        const auto& grid = driven.control<RadioMatrix>("voiceLangRadio");
        QCOMPARE(grid.cellCount(), 20);
        QCOMPARE(grid.title(7), QStringLiteral("Japanese"));
        QCOMPARE(grid.title(12), QStringLiteral("Spanish (Americas)"));
        QCOMPARE(grid.title(19), QStringLiteral("Portuguese"));
        QCOMPARE(grid.cell(7)->font().pointSize(), 12);
        QCOMPARE(driven.widget("malaysiaRadio").font().pointSize(), 12);
        qApp->setStyleSheet({});
    }

    void gridAndMalaysianExcludeEachOther()
    {
        Driven driven(defaultRecord());
        const auto& malaysian = driven.control<QRadioButton>("malaysiaRadio");
        for (int turn = 0; turn < 2; ++turn) {
            driven.click("malaysiaRadio");
            QVERIFY(malaysian.isChecked());
            QCOMPARE(driven.chosen("voiceLangRadio"), -1);
            QCOMPARE(driven.record.voiceLanguage, 20U); // at once
            driven.click("malaysiaRadio");              // no way to turn it off
            QVERIFY(malaysian.isChecked());
            driven.choose("voiceLangRadio", 13);
            QVERIFY(!malaysian.isChecked());
            driven.tab.populate();
            QCOMPARE(driven.record.voiceLanguage, 13U);
        }
        _FILEDATA other = defaultRecord();
        other.voiceLanguage = 20;
        driven.tab.setFileData(&other);
        QVERIFY(malaysian.isChecked());
        QCOMPARE(driven.chosen("voiceLangRadio"), -1);
        other.voiceLanguage = 99;
        driven.tab.setFileData(&other);
        QVERIFY(!malaysian.isChecked());
        driven.tab.populate();
        QCOMPARE(other.voiceLanguage, 99U);
    }

    void featuresAreStoredAtOnce_data()
    {
        QTest::addColumn<QByteArray>("check");
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QByteArray>("level");
        QTest::newRow("recording") << QByteArray("useVoiceRecordingChk") << QByteArray("voiceRecording")
                                   << QByteArray("micSeg");
        QTest::newRow("guidance") << QByteArray("useVoiceGuidanceChk") << QByteArray("voiceGuidance")
                                  << QByteArray("speakerSeg");
    }

    void featuresAreStoredAtOnce()
    {
        QFETCH(QByteArray, check);
        QFETCH(QByteArray, field);
        QFETCH(QByteArray, level);
        _FILEDATA record = defaultRecord();
        setField(record, field, 7);
        Driven driven(record);
        QCOMPARE(fieldOf(driven.record, field), 7); // showing is no change
        QVERIFY(driven.widget(level).isEnabled());
        driven.click(check);
        QCOMPARE(fieldOf(driven.record, field), 0);
        QVERIFY(!driven.widget(level).isEnabled());
        driven.click(check);
        QCOMPARE(fieldOf(driven.record, field), 1);
        QVERIFY(driven.widget(level).isEnabled());

        driven.click("useEveryHourNoticeChk"); // on at first
        QCOMPARE(driven.record.hourlyNotice, 1U);
        driven.tab.populate();
        QCOMPARE(driven.record.hourlyNotice, 0U);
    }

    void randomRecordsSurvive()
    {
        MRVSettingForAudioViewController tab;
        verifyRandomRecordsSurvive(tab, {{"micLevel", {1, 2, 3}},
                                         {"speakerVolume", {39, 51, 63}},
                                         {"voiceRecording", upTo(1)},
                                         {"hourlyNotice", upTo(1)},
                                         {"voiceGuidance", upTo(1)},
                                         {"voiceLanguage", upTo(20)}});
    }
};

QTEST_MAIN(AudioTabTest)
#include "test_tab_audio.moc"
