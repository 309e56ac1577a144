// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForAuxViewController.h"

#include "DrivenTab.h"

#include <QCheckBox>

using namespace marvo;
using namespace marvo::testing;
using Driven = DrivenTab<MRVSettingForAuxViewController>;

class AuxTabTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    void sharesOfTheRecord_data()
    {
        QTest::addColumn<qint64>("always");
        QTest::addColumn<qint64>("motion");
        QTest::addColumn<qint64>("event");
        QTest::addColumn<QList<int>>("shown"); // knobs, then shares
        QTest::addColumn<bool>("valid");
        QTest::newRow("default") << 70LL << 20LL << 10LL << QList{70, 90, 70, 20, 10} << true;
        QTest::newRow("least shares") << 10LL << 10LL << 80LL << QList{10, 20, 10, 10, 80} << true;
        QTest::newRow("always 9") << 9LL << 41LL << 50LL << QList{9, 50, 9, 41, 50} << false;
        QTest::newRow("motion 5") << 40LL << 5LL << 55LL << QList{40, 45, 40, 5, 55} << false;
        QTest::newRow("event 5") << 30LL << 65LL << 5LL << QList{30, 95, 30, 65, 5} << false;
        QTest::newRow("motion 0") << 50LL << 0LL << 50LL << QList{50, 50, 50, 0, 50} << false;
        QTest::newRow("sum 90") << 30LL << 30LL << 30LL << QList{30, 60, 30, 30, 40} << true;
        QTest::newRow("sum 180") << 60LL << 20LL << 100LL << QList{60, 80, 60, 20, 20} << true;
        QTest::newRow("beyond 100") << 300LL << 20LL << 10LL << QList{100, 100, 100, 0, 0} << false;
        QTest::newRow("sum overflows") << 20LL << 0xFFFFFFF6LL << 10LL << QList{20, 100, 20, 80, 0} << false;
        QTest::newRow("all ones") << 0xFFFFFFFFLL << 0xFFFFFFFFLL << 0xFFFFFFFFLL
                                  << QList{100, 100, 100, 0, 0} << false;
    }

    void sharesOfTheRecord()
    {
        QFETCH(qint64, always);
        QFETCH(qint64, motion);
        QFETCH(qint64, event);
        QFETCH(QList<int>, shown);
        QFETCH(bool, valid);
        _FILEDATA record = defaultRecord();
        setField(record, "sdRatioAlways", always);
        setField(record, "sdRatioMotion", motion);
        setField(record, "sdRatioEvent", event);
        const _FILEDATA loaded = record;
        Driven driven(defaultRecord());
        driven.tab.setFileData(&record);

        const auto& slider = driven.control<SMDoubleSlider>("sdRatioSlider");
        QCOMPARE(slider.intLoValue(), shown.at(0));
        QCOMPARE(slider.intHiValue(), shown.at(1));
        QCOMPARE(driven.text("alwaysField"), QStringLiteral("%1%").arg(shown.at(2)));
        QCOMPARE(driven.text("motionField"), QStringLiteral("%1%").arg(shown.at(3)));
        QCOMPARE(driven.text("eventField"), QStringLiteral("%1%").arg(shown.at(4)));

        driven.choose("gammaSeg", 1);
        QCOMPARE(!driven.tab.validateUserInput(), valid);
        driven.tab.populate();
        if (!valid) {
            QCOMPARE(*driven.tab.validateUserInput(), localised("msg.sdcard_ratio_too_low"));
            QCOMPARE(changedFields(loaded, record), QStringList());
            return;
        }
        QCOMPARE(record.gamma, 1U);
        QCOMPARE(record.sdRatioAlways, static_cast<quint32>(shown.at(2)));
        QCOMPARE(record.sdRatioMotion, static_cast<quint32>(shown.at(3)));
        QCOMPARE(record.sdRatioEvent, static_cast<quint32>(shown.at(4)));
    }

    void knobsAreDragged()
    {
        Driven driven(defaultRecord());
        QCOMPARE(driven.widget("sdRatioSliderAxisView").width(), driven.widget("sdRatioSlider").width());
        driven.drag("sdRatioSlider", Driven::Knob::Low, 33);
        QCOMPARE(driven.tab.ratioLoValue(), 33);
        driven.drag("sdRatioSlider", Driven::Knob::High, 61);
        QCOMPARE(driven.text("alwaysField"), QStringLiteral("33%"));
        QCOMPARE(driven.text("motionField"), QStringLiteral("28%"));
        QCOMPARE(driven.text("eventField"), QStringLiteral("39%"));
        QCOMPARE(driven.record.sdRatioAlways, 70U); // not before the tab is left

        driven.drag("sdRatioSlider", Driven::Knob::Low, 80); // stopped by the other knob
        QCOMPARE(driven.tab.ratioLoValue(), 61);
        QVERIFY(driven.tab.validateUserInput());
        driven.tab.populate();
        QCOMPARE(driven.record.sdRatioAlways, 70U);

        driven.drag("sdRatioSlider", Driven::Knob::Low, 9);
        QVERIFY(driven.tab.validateUserInput());
        QTest::keyClick(&driven.widget("sdRatioSlider"), Qt::Key_Right);
        QVERIFY(!driven.tab.validateUserInput());
        driven.tab.populate();
        QCOMPARE(driven.record.sdRatioAlways, 10U);
        QCOMPARE(driven.record.sdRatioMotion, 51U);
        QCOMPARE(driven.record.sdRatioEvent, 39U);
    }

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
        row("HD 75", "HDSensitivitySeg", "motionSensitivityHd", 75, 2, 75, 4, 150);
        row("HD unknown", "HDSensitivitySeg", "motionSensitivityHd", 51, 0, 50, 3, 100);
        row("FHD 90", "FHDSensitivitySeg", "motionSensitivityFhd", 90, 2, 90, 0, 65);
        row("FHD 80", "FHDSensitivitySeg", "motionSensitivityFhd", 80, 0, 65, 4, 130);
        row("vehicle 3000", "useEnvironmentSeg", "useEnvironment", 3000, 0, 1, 1, 0);
        row("indoor", "useEnvironmentSeg", "useEnvironment", 0, 1, 0, 0, 1);
        row("exposure", "dayTimeAESeg", "dayTimeAE", 1, 1, 1, 2, 2);
        row("exposure unknown", "dayTimeAESeg", "dayTimeAE", 3, -1, 3, 0, 0);
        row("frequency unknown", "gammaSeg", "gamma", 0xFFFFFFFF, -1, 0xFFFFFFFF, 1, 1);
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

    void motionDetectionIsStoredAtOnce()
    {
        _FILEDATA record = defaultRecord();
        record.useMotion = 5;
        Driven driven(record);
        auto& check = driven.control<QCheckBox>("useMotionChk");
        QVERIFY(check.isChecked());
        QCOMPARE(driven.record.useMotion, 5U); // showing is no change
        const auto sensitivitiesEnabled = [&driven] {
            const bool hd = driven.widget("HDSensitivitySeg").isEnabled();
            return hd == driven.widget("FHDSensitivitySeg").isEnabled() ? int{hd} : -1;
        };
        QCOMPARE(sensitivitiesEnabled(), 1);
        driven.click("useMotionChk");
        QCOMPARE(driven.record.useMotion, 0U);
        QCOMPARE(sensitivitiesEnabled(), 0);
        QTest::keyClick(&check, Qt::Key_Space);
        QCOMPARE(driven.record.useMotion, 1U);
        QCOMPARE(sensitivitiesEnabled(), 1);
    }

    /// While a share is too small, nothing at all is stored.
    void randomRecordsSurvive()
    {
        MRVSettingForAuxViewController tab;
        verifyRandomRecordsSurvive(tab, {{"sdRatioAlways", {70}},
                                         {"sdRatioMotion", {20}},
                                         {"sdRatioEvent", {10}},
                                         {"motionSensitivityFhd", {65, 70, 90, 100, 130}},
                                         {"motionSensitivityHd", {50, 60, 75, 100, 150}},
                                         {"useMotion", upTo(1)},
                                         {"useEnvironment", upTo(1)},
                                         {"dayTimeAE", upTo(2)},
                                         {"gamma", upTo(1)}});
    }
};

QTEST_MAIN(AuxTabTest)
#include "test_tab_aux.moc"
