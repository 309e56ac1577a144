// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForBasicViewController.h"
#include "settings/tabs/GsensorSensitivityBox.h"

#include "settings/tabs/TabTesting.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>

#include <cstring>

using namespace marvo;
using namespace marvo::testing;

namespace {

const char* const drivingX = "gsensorSensitivityThresholdXDrivingField";
const char* const parkingZ = "gsensorSensitivityThresholdZParkingField";

struct Driven : DrivenTab<MRVSettingForBasicViewController>
{
    using DrivenTab::DrivenTab;

    bool isEnabled(const char* name) { return control(name).isEnabled(); }
    QString text(const char* field) { return control<QLineEdit>(field).text(); }
    void retype(const char* field, const QString& typed)
    {
        auto& edit = control<QLineEdit>(field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Delete);
        edit.insert(typed); // as pasted; keys cannot be every script's
    }
    QByteArray carNumber() const { return {record.carNumber.data(), 8}; }
};

} // namespace

class BasicTabTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }

    void defaultRecordIsShownAndKept()
    {
        Driven driven;
        QCOMPARE(driven.chosen("gsensorSensitivityDrivingSeg"), 2);
        QCOMPARE(driven.chosen("gsensorSensitivityParkingSeg"), 2);
        QCOMPARE(driven.text(drivingX), QStringLiteral("0.55"));
        QCOMPARE(driven.text(parkingZ), QStringLiteral("0.15"));
        QVERIFY(driven.control<QCheckBox>("ledOffChk").isChecked());
        const auto& voltages = driven.control<QComboBox>("powerVoltageCombo");
        QCOMPARE(voltages.currentText(), QStringLiteral("12.1v / 24.2v"));
        QCOMPARE(voltages.itemText(9), QStringLiteral("12.4v / 24.8v"));
        driven.tab.populate();
        QCOMPARE(driven.record, defaultRecord());
    }

    void presetsAndCustom()
    {
        _FILEDATA record = defaultRecord();
        record.parkingThresholdZ = 20;
        Driven driven(record);
        QCOMPARE(driven.chosen("gsensorSensitivityParkingSeg"), 5);
        QCOMPARE(driven.text(parkingZ), QStringLiteral("0.20"));

        driven.choose("gsensorSensitivityDrivingSeg", 4);
        QCOMPARE(driven.text(drivingX), QStringLiteral("0.45"));
        QVERIFY(!driven.isEnabled(drivingX));
        driven.click("gsensorEnableChk");
        driven.click("gsensorEnableChk");
        QVERIFY(!driven.isEnabled(drivingX)); // a preset's numbers are never typed into
        driven.choose("gsensorSensitivityDrivingSeg", 5);
        QVERIFY(driven.isEnabled(drivingX));
        QCOMPARE(driven.text(drivingX), QStringLiteral("0.45"));
        driven.click("gsensorEnableChk");
        QVERIFY(!driven.isEnabled(drivingX));
        QVERIFY(!driven.isEnabled("gsensorSensitivityParkingSeg"));
        driven.click("gsensorEnableChk");

        // Each preset is stored to the hundredth and found again.
        for (const GsensorSensitivity* sensitivity : {&drivingSensitivity, &parkingSensitivity}) {
            for (int preset = 0; preset < GsensorSensitivity::customSegment; ++preset) {
                driven.choose(sensitivity->control, preset);
                driven.tab.populate();
                driven.tab.setFileData(&driven.record);
                QCOMPARE(driven.chosen(sensitivity->control), preset);
            }
        }
    }

    void thresholdsAreStored()
    {
        const struct
        {
            const char* typed;
            const char* formatted;
            int stored;
        } rows[] = {{"0.05", "0.05", 5},    {"1.5", "1.50", 150}, {".3", "0.30", 30}, {"0.3g", "0.30", 30},
                    {"0.555", "0.555", 55}, // cut off, not rounded
                    {"0.57", "0.57", 56},   {"", "", 0}};
        _FILEDATA record = defaultRecord();
        record.drivingThresholdX = 99;
        for (const auto& row : rows) {
            Driven driven(record);
            driven.retype(drivingX, QLatin1String(row.typed));
            QTest::keyClick(&driven.control(drivingX), Qt::Key_Tab);
            QCOMPARE(driven.text(drivingX), QLatin1String(row.formatted));
            QVERIFY(!driven.tab.validateUserInput());
            driven.tab.populate();
            QCOMPARE(driven.record.drivingThresholdX, row.stored);
        }
    }

    void badThresholdKeepsTheTab()
    {
        const std::pair<const char*, const char*> rows[] = {
            {drivingX, "1.6"}, {drivingX, "0.04"}, {drivingX, "abc"}, {parkingZ, "1.51"}};
        _FILEDATA record = defaultRecord();
        record.drivingThresholdX = 99;
        record.parkingThresholdZ = 99;
        for (const auto& [field, typed] : rows) {
            Driven driven(record);
            driven.retype(field, QLatin1String(typed));
            driven.control("carNumberField").setFocus();
            QVERIFY(driven.text(field).startsWith(QLatin1String(typed)));
            QVERIFY(driven.tab.validateUserInput());
            QTRY_VERIFY(driven.control(field).hasFocus());
            driven.choose("recordingmodeSeg", 1);
            driven.tab.populate();
            QCOMPARE(driven.record, record);

            // On a preset nothing is left to complain of.
            driven.choose("gsensorSensitivityDrivingSeg", 0);
            driven.choose("gsensorSensitivityParkingSeg", 0);
            driven.tab.populate();
            QCOMPARE(driven.record.drivingThresholdX, 65);
            QCOMPARE(driven.record.recordingMode, 1U);
        }
    }

    void sensorOffLocksNobodyIn()
    {
        _FILEDATA record = defaultRecord();
        record.gsensorEnable = 0;
        record.drivingThresholdX = 0;
        Driven driven(record);
        QVERIFY(!driven.isEnabled(drivingX));
        QVERIFY(driven.tab.validateUserInput());
        QTRY_VERIFY(driven.control(drivingX).hasFocus());
        driven.retype(drivingX, QStringLiteral("0.50"));
        QVERIFY(!driven.tab.validateUserInput());
    }

    void powerAndParkingAreStoredAtOnce()
    {
        _FILEDATA record = defaultRecord();
        record.useExternalPower = 2; // only 1 cuts the choices off
        Driven driven(record);
        QVERIFY(driven.isEnabled("powerVoltageCombo"));
        driven.click("useExternalPowerChk");
        QCOMPARE(driven.record.useExternalPower, 1U);
        QVERIFY(!driven.isEnabled("powerVoltageCombo") && !driven.isEnabled("powerTimeCombo"));
        driven.click("useExternalPowerChk");
        QCOMPARE(driven.record.useExternalPower, 0U);
        QVERIFY(driven.isEnabled("powerVoltageCombo") && driven.isEnabled("powerTimeCombo"));
        for (const quint32 on : {0U, 1U}) {
            driven.click("autoParkingModeChk");
            QCOMPARE(driven.record.autoParkingMode, on);
            QCOMPARE(driven.isEnabled("stanbyTimeCombo"), on == 1);
        }
        driven.click("ledOffChk");
        QCOMPARE(driven.record.securityLedOff, 0U);
        driven.tab.populate();
        QCOMPARE(driven.record.securityLedOff, 1U);
    }

    void assistiveTechnologyChangesWhatAClickChanges()
    {
        for (const char* box : {"gsensorEnableChk", "autoParkingModeChk", "useExternalPowerChk"}) {
            _FILEDATA record = defaultRecord();
            record.autoParkingMode = 7; // counts as on, and stays until somebody chooses
            record.useExternalPower = 2;
            Driven clicked(record), toggled(record);
            QCOMPARE(toggled.record, record);
            clicked.click(box);
            toggleByAssistiveTechnology(toggled.control(box));
            QCOMPARE(toggled.record, clicked.record);
            for (const char* name : {"gsensorSensitivityDrivingSeg", "stanbyTimeCombo", "powerVoltageCombo"})
                QCOMPARE(toggled.isEnabled(name), clicked.isEnabled(name));
        }
        Driven driven;
        driven.control<QLineEdit>("carNumberField").setFocus();
        QAccessible::queryAccessibleInterface(&driven.control("carNumberField"))
            ->setText(QAccessible::Value, QStringLiteral("12가3"));
        QTest::keyClick(&driven.control("carNumberField"), Qt::Key_Tab);
        driven.tab.populate();
        QCOMPARE(driven.carNumber(), QByteArray("123\0\0\0\0\0", 8));
    }

    void temperatureMessages()
    {
        Driven driven;
        for (const char* key : {"msg.off_hightemperatureprotection", "msg.on_hightemperatureprotection"}) {
            driven.click("safeTemperatureModeOnChk");
            const std::unique_ptr<QMessageBox> box(driven.tab.findChild<QMessageBox*>());
            QVERIFY(box);
            QCOMPARE(box->informativeText(), localised(key));
        }
    }

    void carNumber()
    {
        const auto bytes = [](QByteArray text) { return text.leftJustified(8, '\0', true); };
        const QByteArray behindTheEnd("AB\0CDEFG", 8);
        const struct
        {
            QByteArray stored;
            QString shown;
            const char* typed; ///< none: Return and Tab pass through
            QByteArray storedAgain;
        } rows[] = {
            {"", QString(), "ABCDEFGHIJ", bytes("ABCDEFGH")},
            {"", QString(), "12 가 34-5Z", bytes("12345Z")},
            {"ABCDEFGH", QStringLiteral("ABCDEFGH"), "x1", bytes("x1")},
            {"AB12", QStringLiteral("AB12"), "", bytes("")},
            {"12345678", QStringLiteral("12345678"), nullptr, bytes("12345678")},
            {"12\xff\xfe", QString::fromUtf8("12\ufffd\ufffd"), nullptr, bytes("12\xff\xfe")},
            {"12\xff\xfe", QString::fromUtf8("12\ufffd\ufffd"), "7", bytes("7")},
            {"가나12", QString::fromUtf8("가나12"), nullptr, bytes("가나12")},
            {"1234가\xea\xb0", QString::fromUtf8("1234가\ufffd"), nullptr, bytes("1234가\xea\xb0")}, // cut
            {behindTheEnd, QStringLiteral("AB"), nullptr, behindTheEnd}};
        for (const auto& row : rows) {
            _FILEDATA record = defaultRecord();
            std::memcpy(record.carNumber.data(), bytes(row.stored).constData(), 8);
            Driven driven(record);
            auto& field = driven.control<QLineEdit>("carNumberField");
            QCOMPARE(field.text(), row.shown);
            field.setFocus();
            QStringList heard;
            connect(&field, &QLineEdit::editingFinished, this, [&] { heard.append(field.text()); });
            if (row.typed) {
                driven.retype("carNumberField", QString::fromUtf8(row.typed));
                driven.tab.populate();
                QCOMPARE(driven.carNumber(), row.storedAgain);
            }
            QTest::keyClick(&field, Qt::Key_Return);
            QTest::keyClick(&field, Qt::Key_Tab);
            // Filtered before others hear of it.
            const QString kept = row.typed ? QString::fromUtf8(row.storedAgain.constData()) : row.shown;
            heard.removeDuplicates();
            QCOMPARE(heard, QStringList(kept));
            driven.tab.populate();
            QCOMPARE(driven.carNumber(), row.storedAgain);
        }
        // Changed, stored, and changed back: the last text counts.
        Driven driven;
        for (const char* number : {"A1", "B2"}) {
            driven.retype("carNumberField", QLatin1String(number));
            driven.tab.populate();
            QCOMPARE(driven.carNumber(), bytes(number));
        }
    }
};

QTEST_MAIN(BasicTabTest)
#include "MRVSettingForBasicViewControllerTest.moc"
