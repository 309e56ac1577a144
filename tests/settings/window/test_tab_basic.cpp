// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/MRVSettingForBasicViewController.h"

#include "controls/SegmentedControl.h"
#include "settings/tabs/GsensorSensitivityBox.h"
#include "texts/Localisation.h"

#include "ActiveWindow.h"
#include "TabTesting.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

#include <cstring>

using namespace marvo;
using namespace marvo::testing;

namespace {

const char* const drivingX = "gsensorSensitivityThresholdXDrivingField";
const char* const parkingZ = "gsensorSensitivityThresholdZParkingField";

} // namespace

class BasicTabTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVERIFY(installLanguage(InterfaceLanguage::English)); }
    void init();
    void cleanup() { m_tab.reset(); }

    void defaultRecord();
    void unlistedValuesShowTheFallback();
    void presetsAndCustom();
    void thresholdsAreStored_data();
    void thresholdsAreStored();
    void badThresholdKeepsTheTab_data();
    void badThresholdKeepsTheTab();
    void sensorOffLocksNobodyIn();
    void externalPowerAtOnce();
    void autoParkingAtOnce();
    void temperatureMessages();
    void carNumber_data();
    void carNumber();
    void carNumberPassedThroughIsKept();
    void randomRecordsSurvive();

private:
    void show();
    QString text(const char* field) const { return control<QLineEdit>(*m_tab, field).text(); }
    void retype(const char* field, const QString& text);
    void click(const char* checkBox)
    {
        QTest::mouseClick(&control<QCheckBox>(*m_tab, checkBox), Qt::LeftButton, {}, {8, 8});
    }

    _FILEDATA m_record{};
    std::unique_ptr<MRVSettingForBasicViewController> m_tab;
};

void BasicTabTest::init()
{
    fillDefaultFileData(m_record);
    m_tab = std::make_unique<MRVSettingForBasicViewController>();
}

void BasicTabTest::show()
{
    m_tab->setFileData(&m_record);
    QVERIFY(showActive(*m_tab));
}

void BasicTabTest::retype(const char* field, const QString& text)
{
    auto& edit = control<QLineEdit>(*m_tab, field);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    edit.insert(text); // as pasted; keys cannot be every script's
}

void BasicTabTest::defaultRecord()
{
    show();
    QCOMPARE(shownItem(*m_tab, "displayscreenSeg"), 1);
    QCOMPARE(shownItem(*m_tab, "gsensorSensitivityDrivingSeg"), 2);
    QCOMPARE(shownItem(*m_tab, "gsensorSensitivityParkingSeg"), 2);
    QCOMPARE(text(drivingX), QStringLiteral("0.55"));
    QCOMPARE(text(parkingZ), QStringLiteral("0.15"));
    QVERIFY(control<QCheckBox>(*m_tab, "ledOffChk").isChecked());
    QCOMPARE(shownItem(*m_tab, "stanbyTimeCombo"), 1);
    QVERIFY(control(*m_tab, "stanbyTimeCombo").isEnabled());
    QCOMPARE(control<QComboBox>(*m_tab, "powerVoltageCombo").currentText(), QStringLiteral("12.1v / 24.2v"));
    QCOMPARE(shownItem(*m_tab, "powerTimeCombo"), 0);
    QVERIFY(!control<QCheckBox>(*m_tab, "useExternalPowerChk").isChecked());
    QVERIFY(control(*m_tab, "powerVoltageCombo").isEnabled());
    QCOMPARE(control<QComboBox>(*m_tab, "powerVoltageCombo").itemText(9), QStringLiteral("12.4v / 24.8v"));
    const _FILEDATA before = m_record;
    m_tab->populate();
    QCOMPARE(m_record, before);
}

void BasicTabTest::unlistedValuesShowTheFallback()
{
    m_record.alwaysModeTimeout = 301;
    m_record.powerVoltage = 12450;
    m_record.powerTime = 13;
    m_record.displayScreen = 4;
    m_record.useExternalPower = 2; // only 1 cuts the choices off
    show();
    QCOMPARE(shownItem(*m_tab, "stanbyTimeCombo"), 2);
    QCOMPARE(shownItem(*m_tab, "powerVoltageCombo"), 1);
    QCOMPARE(shownItem(*m_tab, "powerTimeCombo"), 0);
    QCOMPARE(shownItem(*m_tab, "displayscreenSeg"), -1);
    QVERIFY(control(*m_tab, "powerVoltageCombo").isEnabled());
    m_tab->populate();
    QCOMPARE(m_record.alwaysModeTimeout, 420U);
    QCOMPARE(m_record.powerVoltage, 11600U);
    QCOMPARE(m_record.powerTime, 0U);
    QCOMPARE(m_record.displayScreen, 4U);
    QCOMPARE(m_record.useExternalPower, 0U);
}

void BasicTabTest::presetsAndCustom()
{
    m_record.parkingThresholdZ = 20;
    show();
    QCOMPARE(shownItem(*m_tab, "gsensorSensitivityParkingSeg"), 5);
    QCOMPARE(text("gsensorSensitivityThresholdXParkingField"), QStringLiteral("0.15"));
    QCOMPARE(text(parkingZ), QStringLiteral("0.20"));

    auto& x = control<QLineEdit>(*m_tab, drivingX);
    clickItem(*m_tab, "gsensorSensitivityDrivingSeg", 4);
    QCOMPARE(text(drivingX), QStringLiteral("0.45"));
    QVERIFY(!x.isEnabled());
    click("gsensorEnableChk");
    click("gsensorEnableChk");
    QVERIFY(!x.isEnabled()); // a preset's numbers are never typed into
    clickItem(*m_tab, "gsensorSensitivityDrivingSeg", 5);
    QVERIFY(x.isEnabled());
    QCOMPARE(text(drivingX), QStringLiteral("0.45"));
    click("gsensorEnableChk");
    QVERIFY(!x.isEnabled());
    QVERIFY(!control(*m_tab, "gsensorSensitivityParkingSeg").isEnabled());

    // Each preset is stored to the hundredth and found again.
    for (const GsensorSensitivity* sensitivity : {&drivingSensitivity, &parkingSensitivity}) {
        for (int preset = 0; preset < GsensorSensitivity::customSegment; ++preset) {
            control<SegmentedControl>(*m_tab, "gsensorSensitivityDrivingSeg").setEnabled(true);
            control<SegmentedControl>(*m_tab, "gsensorSensitivityParkingSeg").setEnabled(true);
            clickItem(*m_tab, sensitivity->control, preset);
            m_tab->populate();
            m_tab->setFileData(&m_record);
            QCOMPARE(shownItem(*m_tab, sensitivity->control), preset);
        }
    }
}

void BasicTabTest::thresholdsAreStored_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("formatted");
    QTest::addColumn<int>("stored");
    QTest::newRow("lowest") << QStringLiteral("0.05") << QStringLiteral("0.05") << 5;
    QTest::newRow("highest") << QStringLiteral("1.5") << QStringLiteral("1.50") << 150;
    QTest::newRow("short") << QStringLiteral(".3") << QStringLiteral("0.30") << 30;
    QTest::newRow("with a unit") << QStringLiteral("0.3g") << QStringLiteral("0.30") << 30;
    QTest::newRow("cut off, not rounded") << QStringLiteral("0.555") << QStringLiteral("0.555") << 55;
    QTest::newRow("binary") << QStringLiteral("0.57") << QStringLiteral("0.57") << 56;
    QTest::newRow("empty") << QString() << QString() << 0;
}

void BasicTabTest::thresholdsAreStored()
{
    QFETCH(QString, typed);
    QFETCH(QString, formatted);
    QFETCH(int, stored);
    m_record.drivingThresholdX = 99;
    show();
    retype(drivingX, typed);
    QCOMPARE(text(drivingX), typed);
    QTest::keyClick(&control(*m_tab, drivingX), Qt::Key_Tab);
    QCOMPARE(text(drivingX), formatted);
    QVERIFY(!m_tab->validateUserInput());
    m_tab->populate();
    QCOMPARE(m_record.drivingThresholdX, stored);
}

void BasicTabTest::badThresholdKeepsTheTab_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    const QString x = QString::fromLatin1(drivingX);
    QTest::newRow("too high") << x << QStringLiteral("1.6");
    QTest::newRow("too low") << x << QStringLiteral("0.04");
    QTest::newRow("no number") << x << QStringLiteral("abc");
    QTest::newRow("the last field") << QString::fromLatin1(parkingZ) << QStringLiteral("1.51");
}

void BasicTabTest::badThresholdKeepsTheTab()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    m_record.drivingThresholdX = 99;
    m_record.parkingThresholdZ = 99;
    show();
    const _FILEDATA before = m_record;
    retype(qPrintable(field), typed);
    control(*m_tab, "carNumberField").setFocus();
    QVERIFY(text(qPrintable(field)).startsWith(typed));
    QVERIFY(m_tab->validateUserInput());
    QTRY_VERIFY(control(*m_tab, qPrintable(field)).hasFocus());
    clickItem(*m_tab, "recordingmodeSeg", 1);
    m_tab->populate();
    QCOMPARE(m_record, before);

    // On a preset nothing is left to complain of.
    clickItem(*m_tab, "gsensorSensitivityDrivingSeg", 0);
    clickItem(*m_tab, "gsensorSensitivityParkingSeg", 0);
    m_tab->populate();
    QCOMPARE(m_record.drivingThresholdX, 65);
    QCOMPARE(m_record.recordingMode, 1U);
}

void BasicTabTest::sensorOffLocksNobodyIn()
{
    m_record.gsensorEnable = 0;
    m_record.drivingThresholdX = 0;
    show();
    auto& x = control<QLineEdit>(*m_tab, drivingX);
    QVERIFY(!x.isEnabled());
    QVERIFY(m_tab->validateUserInput());
    QTRY_VERIFY(x.hasFocus());
    retype(drivingX, QStringLiteral("0.50"));
    QVERIFY(!m_tab->validateUserInput());
}

void BasicTabTest::externalPowerAtOnce()
{
    show();
    click("useExternalPowerChk");
    QCOMPARE(m_record.useExternalPower, 1U);
    QVERIFY(!control(*m_tab, "powerVoltageCombo").isEnabled());
    QVERIFY(!control(*m_tab, "powerTimeCombo").isEnabled());
    click("useExternalPowerChk");
    QCOMPARE(m_record.useExternalPower, 0U);
    QVERIFY(control(*m_tab, "powerTimeCombo").isEnabled());
}

void BasicTabTest::autoParkingAtOnce()
{
    show();
    click("autoParkingModeChk");
    QCOMPARE(m_record.autoParkingMode, 0U);
    QVERIFY(!control(*m_tab, "stanbyTimeCombo").isEnabled());
    click("autoParkingModeChk");
    QCOMPARE(m_record.autoParkingMode, 1U);
    QVERIFY(control(*m_tab, "stanbyTimeCombo").isEnabled());

    click("ledOffChk");
    QCOMPARE(m_record.securityLedOff, 0U);
    m_tab->populate();
    QCOMPARE(m_record.securityLedOff, 1U);
}

void BasicTabTest::temperatureMessages()
{
    show();
    for (const char* key : {"msg.off_hightemperatureprotection", "msg.on_hightemperatureprotection"}) {
        click("safeTemperatureModeOnChk");
        auto* box = m_tab->findChild<QMessageBox*>();
        QVERIFY(box);
        QCOMPARE(box->text(), QStringLiteral("Info"));
        QCOMPARE(box->informativeText(), localised(key));
        delete box;
    }
}

void BasicTabTest::carNumber_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("typed"); // null: nothing
    QTest::addColumn<QByteArray>("storedAgain");
    const auto bytes = [](QByteArray text) { return text.leftJustified(8, '\0'); };
    QTest::newRow("eight characters")
        << bytes("") << QString() << QStringLiteral("ABCDEFGHIJ") << bytes("ABCDEFGH");
    QTest::newRow("filtered") << bytes("") << QString() << QString::fromUtf8("12 가 34-5Z")
                              << bytes("12345Z");
    QTest::newRow("shorter leaves no rest")
        << bytes("ABCDEFGH") << QStringLiteral("ABCDEFGH") << QStringLiteral("x1") << bytes("x1");
    QTest::newRow("emptied") << bytes("AB12") << QStringLiteral("AB12") << QStringLiteral("") << bytes("");
    QTest::newRow("full, without end")
        << bytes("12345678") << QStringLiteral("12345678") << QString() << bytes("12345678");
    QTest::newRow("not UTF-8") << bytes("12\xff\xfe") << QString::fromUtf8("12\ufffd\ufffd") << QString()
                               << bytes("12\xff\xfe");
    QTest::newRow("not UTF-8, edited")
        << bytes("12\xff\xfe") << QString::fromUtf8("12\ufffd\ufffd") << QStringLiteral("7") << bytes("7");
    QTest::newRow("cut inside a character")
        << bytes("1234가\xea\xb0").left(8) << QString::fromUtf8("1234가\ufffd").left(6) << QString()
        << bytes("1234가\xea\xb0").left(8);
    QTest::newRow("bytes behind the end")
        << QByteArray("AB\0CDEFG", 8) << QStringLiteral("AB") << QString() << QByteArray("AB\0CDEFG", 8);
}

void BasicTabTest::carNumber()
{
    QFETCH(QByteArray, stored);
    QFETCH(QString, shown);
    QFETCH(QString, typed);
    QFETCH(QByteArray, storedAgain);
    std::memcpy(m_record.carNumber.data(), stored.constData(), m_record.carNumber.size());
    show();
    QCOMPARE(text("carNumberField"), shown);
    if (!typed.isNull())
        retype("carNumberField", typed);
    m_tab->populate();
    QCOMPARE(QByteArray(m_record.carNumber.data(), 8), storedAgain);
}

void BasicTabTest::carNumberPassedThroughIsKept()
{
    const QByteArray korean = QString::fromUtf8("가나12").toUtf8();
    std::memcpy(m_record.carNumber.data(), korean.constData(), 8);
    show();
    auto& field = control<QLineEdit>(*m_tab, "carNumberField");
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Tab);
    QCOMPARE(field.text(), QString::fromUtf8("가나12"));
    m_tab->populate();
    QCOMPARE(QByteArray(m_record.carNumber.data(), 8), korean);

    // Changed, stored, and changed back: the last text counts.
    retype("carNumberField", QStringLiteral("A1"));
    m_tab->populate();
    retype("carNumberField", QStringLiteral("B2"));
    m_tab->populate();
    QCOMPARE(QByteArray(m_record.carNumber.data()), QByteArray("B2"));
}

void BasicTabTest::randomRecordsSurvive()
{
    // A threshold out of range keeps the whole tab from being stored; about a fifth of the rounds have none.
    std::vector<std::int64_t> thresholds;
    for (std::int64_t hundredths = 5; hundredths <= 150; ++hundredths)
        thresholds.push_back(hundredths);
    verifyRandomRecordsSurvive(
        *m_tab, {{"displayScreen", upTo(3)},
                 {"recordingMode", upTo(1)},
                 {"gsensorEnable", upTo(1)},
                 {"drivingThresholdX", thresholds},
                 {"drivingThresholdY", thresholds},
                 {"drivingThresholdZ", thresholds},
                 {"parkingThresholdX", thresholds},
                 {"parkingThresholdY", thresholds},
                 {"parkingThresholdZ", thresholds},
                 {"securityLedOff", upTo(1)},
                 {"safeTemperatureMode", upTo(1)},
                 {"autoDrivingMode", upTo(1)},
                 {"autoParkingMode", upTo(1)},
                 {"alwaysModeTimeout", {180, 300, 420, 600, 900}},
                 {"compositeMode", upTo(1)},
                 {"powerVoltage", {0, 11600, 11700, 11800, 11900, 12000, 12100, 12200, 12300, 12400}},
                 {"powerTime", {0, 12, 24, 36, 48}},
                 {"useExternalPower", upTo(1)}});
}

QTEST_MAIN(BasicTabTest)
#include "test_tab_basic.moc"
