// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/DataPanel.h"

#include <QTest>

#include <clocale>
#include <cmath>
#include <limits>

using namespace marvo;

namespace {

constexpr double huge = std::numeric_limits<double>::max();
constexpr double infinite = std::numeric_limits<double>::infinity();
const double notANumber = std::nan("");

using Snapshots = std::vector<std::shared_ptr<const MRVGpsData>>;

Snapshots snapshots(std::initializer_list<const char*> hemispheres)
{
    Snapshots list;
    for (const char* h : hemispheres) {
        MRVGpsData state;
        state.NS = h[0];
        state.EW = h[1];
        state.SatelliteUsedCount = static_cast<std::uint32_t>(list.size() + 4);
        state.HDOP = 0.25 + static_cast<double>(list.size());
        list.push_back(std::make_shared<const MRVGpsData>(state));
    }
    return list;
}

_AVI_GPS_DATA_T fix(double latitude, double longitude, double speed = 0, char marker = 0)
{
    _AVI_GPS_DATA_T sample;
    sample.fLatitude = latitude;
    sample.fLongitude = longitude;
    sample.fSpeed = speed;
    sample.KM = static_cast<unsigned char>(marker);
    return sample;
}

/// A text, or "(kept)" for a field that stays as it is.
QString shown(const std::optional<QString>& text) { return text.value_or(QStringLiteral("(kept)")); }

} // namespace

class DataPanelTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        // A desktop with a decimal comma must not show in any text. (Where the machine lacks that locale,
        // Qt's own still applies.)
        std::setlocale(LC_ALL, "de_DE.UTF-8");
        QLocale::setDefault(QLocale(QLocale::German));
    }

    void readingText_data()
    {
        QTest::addColumn<float>("x");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, double x, const char* text) {
            QTest::newRow(name) << static_cast<float>(x) << QString::fromLatin1(text);
        };
        row("positive", 0.25, "X=+0.25");
        row("negative", -1.5, "X=-1.50");
        row("zero", 0, "X=0.00");
        row("a single step up rounds to nothing", 1 / 256., "X=+0.00");
        row("a single step down keeps its sign", -1 / 256., "X=-0.00");
        row("tie to the even digit below", 0.125, "X=+0.12");
        row("tie to the even digit above", 0.375, "X=+0.38");
        row("single precision stays what it is", 2.675F, "X=+2.67"); // 2.67499...
        row("largest raw reading", 8388607.996, "X=+8388608.00");
        row("smallest raw reading", -8388608, "X=-8388608.00");
    }

    void readingText()
    {
        QFETCH(float, x);
        QFETCH(QString, text);
        const MRVGSensor sample{.x = x, .y = -1, .z = 2};
        const GsensorPanel panel = gsensorPanelAt(0.3, {&sample, 1});
        QCOMPARE(shown(panel.gsensorXField), text);
        QCOMPARE(shown(panel.gsensorYField), QStringLiteral("Y=-1.00"));
        QCOMPARE(shown(panel.gsensorZField), QStringLiteral("Z=+2.00"));
    }

    void readingOfPosition_data()
    {
        QTest::addColumn<double>("position");
        QTest::addColumn<int>("entry");
        QTest::newRow("start") << 0.0 << 0;
        QTest::newRow("middle") << 0.5 << 50;
        QTest::newRow("just before an entry") << 0.4999999 << 49;
        QTest::newRow("end") << 1.0 << 99;
        QTest::newRow("beyond") << 1.7 << 99;
        QTest::newRow("negative") << -0.5 << 99;
        QTest::newRow("barely negative truncates to zero") << -0.001 << 0;
        QTest::newRow("beyond 64 bits") << 1e30 << 99;
        QTest::newRow("not a number") << notANumber << 99;
    }

    void readingOfPosition()
    {
        QFETCH(double, position);
        QFETCH(int, entry);
        std::vector<MRVGSensor> samples(100);
        for (int i = 0; i < 100; ++i)
            samples[i].x = static_cast<float>(i + 1);
        QCOMPARE(shown(gsensorPanelAt(position, samples).gsensorXField),
                 QStringLiteral("X=+%1.00").arg(entry + 1));
    }

    void withoutReadingsFieldsStay()
    {
        const GsensorPanel panel = gsensorPanelAt(0.5, {});
        QVERIFY(!panel.gsensorXField && !panel.gsensorYField && !panel.gsensorZField);
    }

    void place_data()
    {
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<QString>("hemispheres");
        QTest::addColumn<QString>("latitudeText");
        QTest::addColumn<QString>("longitudeText");
        QTest::addColumn<QString>("script");
        const auto row = [](const char* name, double latitude, double longitude, const char* hemispheres,
                            const char* latitudeText, const char* longitudeText, const char* script) {
            QTest::newRow(name) << latitude << longitude << QString::fromLatin1(hemispheres)
                                << QString::fromLatin1(latitudeText) << QString::fromLatin1(longitudeText)
                                << QString::fromLatin1(script);
        };
        row("north and east", 3733.1234, 12658.7617, "NE", "37.5521", "126.9794",
            "setLatLag('126.979362','37.552057')");
        row("south and west", 3351.12, 7030, "SW", "-33.8520", "-70.5000",
            "setLatLag('-70.500000','-33.852000')");
        row("own signs do not count", -3733.1234, -12658.7617, "NW", "37.5521", "-126.9794",
            "setLatLag('-126.979362','37.552057')");
        row("any other letter is south and west", 3000, 3000, "n ", "-30.0000", "-30.0000",
            "setLatLag('-30.000000','-30.000000')");
        row("seventh decimal a tie", 0.46875, 0, "NE", "0.0078", "0.0000",
            "setLatLag('0.000000','0.007812')");
        row("no fix", 0, 0, "SW", "0.0000", "0.0000", "setLatLag('0.000000','0.000000')");
        row("minutes only", 0.6, 59.9999, "SE", "-0.0100", "1.0000", "setLatLag('0.999998','-0.010000')");
        row("not degrees on earth, but degrees", 99999.9, 2e11, "NE", "1000.6650", "2000000000.0000",
            "setLatLag('2000000000.000000','1000.665000')");
        row("latitude not a number", notANumber, 12658.7, "NE", "-", "-", "(kept)");
        row("longitude infinite", 3733, -infinite, "NE", "-", "-", "(kept)");
        row("beyond 32 bits", 3733, 2.2e11, "NE", "-", "-", "(kept)");
        row("largest number", huge, huge, "SW", "-", "-", "(kept)");
    }

    void place()
    {
        QFETCH(double, latitude);
        QFETCH(double, longitude);
        QFETCH(QString, hemispheres);
        const _AVI_GPS_DATA_T sample = fix(latitude, longitude);
        const GpsPanel panel = gpsPanelAt(0.5, {&sample, 1}, snapshots({hemispheres.toLatin1().constData()}),
                                          SpeedUnit::Kilometres);
        QTEST(shown(panel.latitudeField), "latitudeText");
        QTEST(shown(panel.longitudeField), "longitudeText");
        QTEST(panel.mapPosition ? mapStatement::setLatLag(*panel.mapPosition) : QStringLiteral("(kept)"),
              "script");
        QCOMPARE(shown(panel.speedField), QStringLiteral("0 Km/h"));
        QVERIFY(!panel.mapDebug);
    }

    void signsFollowEachSnapshot()
    {
        const std::vector<_AVI_GPS_DATA_T> fixes(6, fix(100, 100));
        const auto latitudes = [&](const Snapshots& nmeas) {
            QStringList signs;
            for (int i = 0; i < 6; ++i)
                signs
                    << shown(gpsPanelAt((i + 0.5) / 6, fixes, nmeas, SpeedUnit::Miles).latitudeField).left(2);
            return signs.join(u' ');
        };
        QCOMPARE(latitudes(snapshots({"NE", "SE", "NE", "SE"})), QStringLiteral("1. -1 1. -1 -1 -1"));
        // The next recording starts afresh.
        QCOMPARE(latitudes({}), QStringLiteral("1. 1. 1. 1. 1. 1."));
    }

    void speed_data()
    {
        QTest::addColumn<double>("speed");
        QTest::addColumn<char>("marker");
        QTest::addColumn<QString>("kilometres");
        QTest::addColumn<QString>("miles");
        const auto row = [](const char* name, double speed, char marker, const char* kilometres,
                            const char* miles) {
            QTest::newRow(name) << speed << marker << QString::fromLatin1(kilometres)
                                << QString::fromLatin1(miles);
        };
        row("marker 9", 100, '9', "100 Km/h", "160 Mi/h");
        row("marker 1", 100, '1', "62 Km/h", "100 Mi/h");
        row("marker byte 9 is no character 9", 100, 9, "100 Km/h", "100 Mi/h");
        row("marker byte 1 is no character 1", 100, 1, "100 Km/h", "100 Mi/h");
        row("truncated", 59.9, '9', "59 Km/h", "96 Mi/h");
        row("truncated toward zero", -59.9, 0, "-59 Km/h", "-59 Mi/h");
        row("less than one", -0.9, 0, "0 Km/h", "0 Mi/h");
        row("huge", huge, 0, "2147483647 Km/h", "2147483647 Mi/h");
        row("huge negative", -1e300, 0, "-2147483648 Km/h", "-2147483648 Mi/h");
        row("grows beyond all numbers", huge, '9', "2147483647 Km/h", "- Mi/h");
        row("not a number", notANumber, '1', "- Km/h", "- Mi/h");
    }

    void speed()
    {
        QFETCH(double, speed);
        QFETCH(char, marker);
        const _AVI_GPS_DATA_T sample = fix(0, 0, speed, marker);
        QTEST(shown(gpsPanelAt(0, {&sample, 1}, {}, SpeedUnit::Kilometres).speedField), "kilometres");
        QTEST(shown(gpsPanelAt(0, {&sample, 1}, {}, SpeedUnit::Miles).speedField), "miles");
    }

    void withoutFixesTheReceiverStillShows()
    {
        const GpsPanel panel = gpsPanelAt(0.5, {}, snapshots({"NE", "NE", "NE"}), SpeedUnit::Kilometres);
        QCOMPARE(shown(panel.mapDebug), QStringLiteral("GPS Data Count=Zero"));
        QVERIFY(!panel.longitudeField && !panel.latitudeField && !panel.speedField && !panel.mapPosition);
        QCOMPARE(shown(panel.sateliteField), QStringLiteral("5"));
        QCOMPARE(shown(panel.hdopField), QStringLiteral("1.2")); // 1.25, a tie
        const GpsPanel nothing = gpsPanelAt(0.5, {}, {}, SpeedUnit::Kilometres);
        QVERIFY(nothing.mapDebug && !nothing.hdopField && !nothing.sateliteField);
    }

    void listsAreIndexedByTheirOwnLength()
    {
        const std::vector<_AVI_GPS_DATA_T> fixes{fix(0, 0, 10), fix(0, 0, 20), fix(0, 0, 30), fix(0, 0, 40)};
        const GpsPanel panel = gpsPanelAt(0.75, fixes, snapshots({"NE", "NE"}), SpeedUnit::Kilometres);
        QCOMPARE(shown(panel.speedField), QStringLiteral("40 Km/h"));
        QCOMPARE(shown(panel.sateliteField), QStringLiteral("5"));
    }

    void countIsSigned()
    {
        MRVGpsData state;
        state.SatelliteUsedCount = 0xFFFFFFFF; // what "-1" in a sentence becomes
        state.HDOP = infinite;
        const GpsPanel panel =
            gpsPanelAt(0, {}, {std::make_shared<const MRVGpsData>(state)}, SpeedUnit::Kilometres);
        QCOMPARE(shown(panel.sateliteField), QStringLiteral("-1"));
        QCOMPARE(shown(panel.hdopField), QStringLiteral("-"));
    }

    void initialFields()
    {
        QCOMPARE(shown(initialGsensorPanel().gsensorZField), QStringLiteral("Z=+0.00"));
        const GpsPanel gps = initialGpsPanel();
        for (const auto& field :
             {gps.longitudeField, gps.latitudeField, gps.speedField, gps.hdopField, gps.sateliteField})
            QCOMPARE(shown(field), QString());
        QVERIFY(!gps.mapPosition && !gps.mapDebug);
    }

    void wayHoldsThePlacesOnEarth()
    {
        const std::vector<_AVI_GPS_DATA_T> fixes{fix(3000, 6000),    fix(3000, 6000),     fix(0, 0),
                                                 fix(-3000, 6100),   fix(9100, 6000),     fix(0, 18001),
                                                 fix(notANumber, 0), fix(3000, infinite), fix(huge, -huge),
                                                 fix(0, 600),        fix(3000, 6000)};
        const QList<MapPoint> expected{{60, 30}, {61, -30}, {6, 0}, {60, 30}};
        QCOMPARE(wayOf(fixes, snapshots({"NE", "NE", "NE", "SE", "NE"})), expected);
        QVERIFY(wayOf({}, snapshots({"SW"})).isEmpty());
    }
};

QTEST_GUILESS_MAIN(DataPanelTest)
#include "datapanel_test.moc"
