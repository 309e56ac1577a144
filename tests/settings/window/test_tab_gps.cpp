// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForGpsViewController.h"

#include "texts/Localisation.h"

#include "TabTesting.h"

#include <QCheckBox>
#include <QComboBox>

using namespace marvo;
using namespace marvo::testing;

class GpsTabTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    void defaultRecord()
    {
        _FILEDATA record{};
        fillDefaultFileData(record);
        MRVSettingForGpsViewController tab;
        tab.setFileData(&record);
        QCOMPARE(shownItem(tab, "drivingDaySeg"), 0);
        QCOMPARE(shownItem(tab, "speedDisplayUnitSeg"), 0);
        QCOMPARE(control<QComboBox>(tab, "timeGmtCombo").currentText(), QStringLiteral("+09:00"));
        QVERIFY(!control<QCheckBox>(tab, "summerTimeChk").isChecked());
        QCOMPARE(shownItem(tab, "osdSpeedDisplaySeg"), 1);
        QCOMPARE(shownItem(tab, "saveDurationSeg"), 3);
        QCOMPARE(shownItem(tab, "nightTimeSeg"), 0);
    }

    void chosenValuesAreStored()
    {
        _FILEDATA record{};
        fillDefaultFileData(record);
        record.routeSaveInterval = 0x12; // as a camera with an OBD adapter has it
        record.timeZoneIndex = -1;
        MRVSettingForGpsViewController tab;
        tab.setFileData(&record);
        tab.show();
        auto& zone = control<QComboBox>(tab, "timeGmtCombo");
        QCOMPARE(zone.count(), 34);
        QCOMPARE(zone.currentIndex(), -1);
        QCOMPARE(shownItem(tab, "saveDurationSeg"), -1);
        tab.populate();
        QCOMPARE(record.routeSaveInterval, 0x12U);
        QCOMPARE(record.timeZoneIndex, -1);

        zone.setCurrentIndex(zone.findText(QStringLiteral("+05:45")));
        clickItem(tab, "speedDisplayUnitSeg", 1);
        clickItem(tab, "drivingDaySeg", 7);
        clickItem(tab, "saveDurationSeg", 7);
        QTest::mouseClick(&control<QCheckBox>(tab, "summerTimeChk"), Qt::LeftButton, {}, {8, 8});
        QCOMPARE(record.speedUnit, 0U); // nothing before the tab is left
        tab.populate();
        QCOMPARE(record.timeZoneIndex, 23);
        QCOMPARE(record.speedUnit, 1U);
        QCOMPARE(record.drivingDay, 7U);
        QCOMPARE(record.routeSaveInterval, 7U);
        QCOMPARE(record.summerTime, 1U);

        record.timeZoneIndex = 33;
        tab.setFileData(&record);
        QCOMPARE(zone.currentText(), QStringLiteral("+13:00"));
    }

    void randomRecordsSurvive()
    {
        MRVSettingForGpsViewController tab;
        verifyRandomRecordsSurvive(tab, {{"drivingDay", upTo(7)},
                                         {"speedUnit", upTo(1)},
                                         {"osdSpeedDisplay", upTo(1)},
                                         {"timeZoneIndex", upTo(33)},
                                         {"summerTime", upTo(1)},
                                         {"routeSaveInterval", upTo(7)},
                                         {"gpsOnParkingMode", upTo(1)}});
    }
};

QTEST_MAIN(GpsTabTest)
#include "test_tab_gps.moc"
