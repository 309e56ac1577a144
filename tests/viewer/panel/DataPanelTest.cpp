// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/panel/DataPanel.h"

#include <QTest>

#include <clocale>
#include <cmath>
#include <limits>
#include <utility>

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
        state.Latitude = 3733; // a snapshot without a place tells no hemisphere
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

    void readings()
    {
        const std::vector<std::pair<double, const char*>> rows{
            {0.25, "X=+0.25"},      {-1.5, "X=-1.50"},           {0, "X=0.00"}, {1 / 256., "X=+0.00"},
            {-1 / 256., "X=-0.00"}, {0.125, "X=+0.12"}, // a tie goes to the even digit
            {0.375, "X=+0.38"},     {-8388608, "X=-8388608.00"},
        };
        std::vector<MRVGSensor> samples;
        for (const auto& [x, text] : rows)
            samples.push_back({.x = static_cast<float>(x), .y = -1, .z = 2});
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const GsensorPanel panel = gsensorPanelAt(static_cast<double>(i) / 8, samples);
            QCOMPARE(shown(panel.gsensorXField), QString::fromLatin1(rows[i].second));
            QCOMPARE(shown(panel.gsensorYField), QStringLiteral("Y=-1.00"));
            QCOMPARE(shown(panel.gsensorZField), QStringLiteral("Z=+2.00"));
        }
        for (const double past : {1.0, 1.7, -0.5, 1e30, notANumber})
            QCOMPARE(shown(gsensorPanelAt(past, samples).gsensorXField), QStringLiteral("X=-8388608.00"));
        const GsensorPanel kept = gsensorPanelAt(0.5, {});
        QVERIFY(!kept.gsensorXField && !kept.gsensorYField && !kept.gsensorZField);
    }

    void place()
    {
        struct Row
        {
            const char* name;
            double latitude, longitude;
            const char *hemispheres, *latitudeText, *longitudeText, *script;
        };
        const std::vector<Row> rows{
            {"north and east", 3733.1234, 12658.7617, "NE", "37.5521", "126.9794",
             "setLatLag('126.979362','37.552057')"},
            {"south and west", 3351.12, 7030, "SW", "-33.8520", "-70.5000",
             "setLatLag('-70.500000','-33.852000')"},
            {"own signs do not count", -3733.1234, -12658.7617, "NW", "37.5521", "-126.9794",
             "setLatLag('-126.979362','37.552057')"},
            {"any other letter", 3000, 3000, "n ", "-30.0000", "-30.0000",
             "setLatLag('-30.000000','-30.000000')"},
            {"seventh decimal a tie", 0.46875, 0, "NE", "0.0078", "0.0000",
             "setLatLag('0.000000','0.007812')"},
            {"no fix", 0, 0, "SW", "0.0000", "0.0000", "setLatLag('0.000000','0.000000')"},
            {"minutes only", 0.6, 59.9999, "SE", "-0.0100", "1.0000", "setLatLag('0.999998','-0.010000')"},
            {"degrees, if not on earth", 99999.9, 2e11, "NE", "1000.6650", "2000000000.0000",
             "setLatLag('2000000000.000000','1000.665000')"},
            {"latitude not a number", notANumber, 12658.7, "NE", "-", "-", "(kept)"},
            {"longitude infinite", 3733, -infinite, "NE", "-", "-", "(kept)"},
            {"beyond 32 bits", 3733, 2.2e11, "NE", "-", "-", "(kept)"},
            {"largest number", huge, huge, "SW", "-", "-", "(kept)"},
        };
        for (const Row& row : rows) {
            const _AVI_GPS_DATA_T sample = fix(row.latitude, row.longitude);
            const GpsPanel panel =
                gpsPanelAt(0.5, {&sample, 1}, snapshots({row.hemispheres}), SpeedUnit::Kilometres);
            const QString script =
                panel.mapPosition ? mapStatement::setLatLag(*panel.mapPosition) : QStringLiteral("(kept)");
            QVERIFY2(shown(panel.latitudeField) == QLatin1String(row.latitudeText), row.name);
            QVERIFY2(shown(panel.longitudeField) == QLatin1String(row.longitudeText), row.name);
            QVERIFY2(script == QLatin1String(row.script), row.name);
            QVERIFY2(shown(panel.speedField) == QLatin1String("0 Km/h") && !panel.mapDebug, row.name);
        }
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

    void speed()
    {
        struct Row
        {
            const char* name;
            double speed;
            char marker;
            const char *kilometres, *miles;
        };
        const std::vector<Row> rows{
            {"marker 9", 100, '9', "100 Km/h", "160 Mi/h"},
            {"marker 1", 100, '1', "62 Km/h", "100 Mi/h"},
            {"marker byte 9 is no character 9", 100, 9, "100 Km/h", "100 Mi/h"},
            {"marker byte 1 is no character 1", 100, 1, "100 Km/h", "100 Mi/h"},
            {"truncated", 59.9, '9', "59 Km/h", "96 Mi/h"},
            {"truncated toward zero", -59.9, 0, "-59 Km/h", "-59 Mi/h"},
            {"huge", huge, 0, "2147483647 Km/h", "2147483647 Mi/h"},
            {"huge negative", -1e300, 0, "-2147483648 Km/h", "-2147483648 Mi/h"},
            {"grows beyond all numbers", huge, '9', "2147483647 Km/h", "- Mi/h"},
            {"not a number", notANumber, '1', "- Km/h", "- Mi/h"},
        };
        for (const Row& row : rows) {
            const _AVI_GPS_DATA_T sample = fix(0, 0, row.speed, row.marker);
            const auto text = [&](SpeedUnit unit) {
                return shown(gpsPanelAt(0, {&sample, 1}, {}, unit).speedField);
            };
            QVERIFY2(text(SpeedUnit::Kilometres) == QLatin1String(row.kilometres), row.name);
            QVERIFY2(text(SpeedUnit::Miles) == QLatin1String(row.miles), row.name);
        }
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
#include "DataPanelTest.moc"
