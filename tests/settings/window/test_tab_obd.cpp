// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForObdViewController.h"

#include "DrivenTab.h"

#include <QCheckBox>

using namespace marvo;
using namespace marvo::testing;
using Driven = DrivenTab<MRVSettingForObdViewController>;

class ObdTabTest : public QObject
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
        QTest::addColumn<int>("chosen");
        QTest::addColumn<qint64>("written");
        const auto row = [](const char* name, const char* control, const char* field, qint64 stored,
                            int shown, int chosen, qint64 written) {
            QTest::newRow(name) << QByteArray(control) << QByteArray(field) << stored << shown << chosen
                                << written;
        };
        row("voltage 12100", "powerVoltageCombo", "powerVoltage", 12100, 3, 0, 11800);
        row("voltage 12400", "powerVoltageCombo", "powerVoltage", 12400, 6, 5, 12300);
        row("voltage not used", "powerVoltageCombo", "powerVoltage", 0, -1, 6, 12400);
        row("voltage too low", "powerVoltageCombo", "powerVoltage", 11700, -1, 0, 11800);
        row("voltage too high", "powerVoltageCombo", "powerVoltage", 12500, -1, 1, 11900);
        row("voltage between", "powerVoltageCombo", "powerVoltage", 11850, -1, 1, 11900);
        row("zone +09:00", "timeGmtCombo", "timeZoneIndex", 28, 28, 23, 23);
        row("zone -1", "timeGmtCombo", "timeZoneIndex", -1, -1, 33, 33);
        row("zone 34", "timeGmtCombo", "timeZoneIndex", 34, -1, 0, 0);
        row("Sunday", "drivingDaySeg", "drivingDay", 7, 7, 0, 0);
        row("day 8", "drivingDaySeg", "drivingDay", 8, -1, 1, 1);
        row("unit", "speedDisplayUnitSeg", "speedUnit", 0, 0, 1, 1);
        row("unit 2", "speedDisplayUnitSeg", "speedUnit", 2, -1, 0, 0);
        row("speed in the picture -1", "osdSpeedDisplaySeg", "osdSpeedDisplay", -1, -1, 1, 1);
    }

    /// A value without item is kept as long as nothing is chosen.
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
        QCOMPARE(fieldOf(driven.record, field), stored);
        driven.choose(control, chosen);
        driven.tab.populate();
        QTEST(qint64{fieldOf(driven.record, field)}, "written");
    }

    void routeSaving_data()
    {
        QTest::addColumn<quint32>("stored");
        QTest::addColumn<quint32>("displayed"); // in the record, after showing it
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("parking");
        QTest::addColumn<quint32>("unchanged"); // written with nothing chosen
        QTest::addColumn<quint32>("parkingOn");
        QTest::addColumn<quint32>("parkingOff");
        QTest::newRow("second, parking") << 0x12U << 0x12U << 1 << 1 << 0x12U << 0x12U << 0x02U;
        QTest::newRow("third") << 3U << 4U << 3 << 0 << 4U << 0x14U << 4U;
        QTest::newRow("third, parking") << 0x13U << 4U << 3 << 0 << 4U << 0x14U << 4U;
        QTest::newRow("third, high bits") << 0xABCD23U << 4U << 3 << 0 << 4U << 0x14U << 4U;
        QTest::newRow("other upper bits") << 0x22U << 0x22U << 1 << 0 << 0x02U << 0x12U << 0x02U;
        QTest::newRow("parking and more") << 0x32U << 0x32U << 1 << 0 << 0x02U << 0x12U << 0x02U;
        QTest::newRow("bits beyond") << 0xFFFFFF11U << 0xFFFFFF11U << 0 << 1 << 0x11U << 0x11U << 1U;
        QTest::newRow("none") << 0U << 0U << -1 << 0 << 4U << 0x14U << 4U;
        QTest::newRow("beyond the last") << 0x15U << 0x15U << -1 << 1 << 0x14U << 0x14U << 4U;
    }

    void routeSaving()
    {
        QFETCH(quint32, stored);
        _FILEDATA record = defaultRecord();
        record.routeSaveInterval = stored;
        Driven driven(record);
        QTEST(driven.record.routeSaveInterval, "displayed");
        QTEST(driven.chosen("saveDurationSeg"), "interval");
        QTEST(driven.chosen("useObdParkingSeg"), "parking");
        driven.tab.populate();
        QTEST(driven.record.routeSaveInterval, "unchanged");
        driven.choose("useObdParkingSeg", 1);
        driven.tab.populate();
        QTEST(driven.record.routeSaveInterval, "parkingOn");
        driven.choose("useObdParkingSeg", 0);
        driven.tab.populate();
        QTEST(driven.record.routeSaveInterval, "parkingOff");
    }

    void turningParkingOnKeepsTheUpperBits()
    {
        _FILEDATA record = defaultRecord();
        record.routeSaveInterval = 0x22;
        Driven driven(record);
        driven.choose("useObdParkingSeg", 1);
        driven.tab.populate();
        QCOMPARE(driven.record.routeSaveInterval, 0x32U);
        driven.choose("saveDurationSeg", 2);
        driven.tab.populate();
        QCOMPARE(driven.record.routeSaveInterval, 0x33U);
    }

    void ecoThresholds_data()
    {
        QTest::addColumn<quint32>("low");
        QTest::addColumn<quint32>("high");
        QTest::addColumn<int>("loKnob");
        QTest::addColumn<int>("hiKnob");
        QTest::addColumn<QString>("normal");
        QTest::newRow("apart") << 85U << 60U << 15 << 40 << QStringLiteral("Normal Drive : 0.85 ~ 0.60");
        QTest::newRow("default") << 1U << 1U << 99 << 99 << QStringLiteral("Normal Drive : 0.01 ~ 0.01");
        QTest::newRow("ends") << 100U << 0U << 0 << 100 << QStringLiteral("Normal Drive : 1.00 ~ 0.00");
        QTest::newRow("crossed") << 10U << 50U << 50 << 50 << QStringLiteral("Normal Drive : 0.50 ~ 0.50");
        QTest::newRow("too large") << 300U << 0xFFFFFFFFU << 0 << 0
                                   << QStringLiteral("Normal Drive : 1.00 ~ 1.00");
    }

    /// What the slider cannot show is kept until a knob is moved; then both are what is seen.
    void ecoThresholds()
    {
        QFETCH(quint32, low);
        QFETCH(quint32, high);
        QFETCH(int, loKnob);
        QFETCH(int, hiKnob);
        Driven driven(defaultRecord());
        _FILEDATA record = defaultRecord();
        record.ecoLow = low;
        record.ecoHigh = high;
        driven.tab.setFileData(&record);
        auto& slider = driven.control<SMDoubleSlider>("ecoSlider");
        QCOMPARE(slider.intLoValue(), loKnob);
        QCOMPARE(slider.intHiValue(), hiKnob);
        QTEST(driven.text("normalDriveLabel"), "normal");
        driven.tab.populate();
        QCOMPARE(record.ecoLow, low);
        QCOMPARE(record.ecoHigh, high);

        slider.setFocus();
        slider.setTrackingLoKnob(loKnob > 0);
        QTest::keyClick(&slider, loKnob > 0 ? Qt::Key_Left : Qt::Key_Right);
        driven.tab.populate();
        QCOMPARE(record.ecoLow, 100U - static_cast<quint32>(loKnob > 0 ? loKnob - 1 : 0));
        QCOMPARE(record.ecoHigh, 100U - static_cast<quint32>(std::min(hiKnob + (loKnob > 0 ? 0 : 1), 100)));
    }

    void knobsAreDragged()
    {
        Driven driven(defaultRecord());
        QCOMPARE(driven.widget("ecoSliderAxisView").width(), driven.widget("ecoSlider").width());
        driven.drag("ecoSlider", Driven::Knob::Low, 15);
        driven.drag("ecoSlider", Driven::Knob::High, 40);
        QCOMPARE(driven.text("ecoDriveLabel"), QStringLiteral("Eco Drive : 0.85 over"));
        QCOMPARE(driven.text("normalDriveLabel"), QStringLiteral("Normal Drive : 0.85 ~ 0.60"));
        QCOMPARE(driven.text("unecoDriveLabel"), QStringLiteral("Uneco Drive : 0.60 under"));
        QCOMPARE(driven.record.ecoLow, 1U); // not before the tab is left
        driven.tab.populate();
        QCOMPARE(driven.record.ecoLow, 85U);
        QCOMPARE(driven.record.ecoHigh, 60U);
    }

    void flagsAreWrittenAsOneOrZero()
    {
        _FILEDATA record = defaultRecord();
        record.summerTime = 9;
        record.useExternalPower = 0x100;
        Driven driven(record);
        QVERIFY(driven.widget("useExternalPowerChk").isHidden());
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

    void randomRecordsSurvive()
    {
        MRVSettingForObdViewController tab;
        verifyRandomRecordsSurvive(tab, {{"drivingDay", upTo(7)},
                                         {"speedUnit", upTo(1)},
                                         {"timeZoneIndex", upTo(33)},
                                         {"summerTime", upTo(1)},
                                         {"osdSpeedDisplay", upTo(1)},
                                         {"powerVoltage", {11800, 11900, 12000, 12100, 12200, 12300, 12400}},
                                         {"useExternalPower", upTo(1)},
                                         {"routeSaveInterval", {1, 2, 4, 0x11, 0x12, 0x14}},
                                         {"useEcoDrive", upTo(1)},
                                         {"ecoLow", upTo(100)},
                                         {"ecoHigh", upTo(100)}});
    }
};

QTEST_MAIN(ObdTabTest)
#include "test_tab_obd.moc"
