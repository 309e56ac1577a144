// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/panel/DataPanel.h"

#include "recording/Positions.h"
#include "support/FixedText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace marvo {

namespace {

using Int32Limits = std::numeric_limits<std::int32_t>;

/// Stands for a number that cannot be shown.
QString unknown() { return QStringLiteral("-"); }

QString fixed(double value, int decimals)
{
    return std::isfinite(value) ? QString::fromStdString(fixedText(value, decimals)) : unknown();
}

QString axisText(char16_t name, float g)
{
    return QStringLiteral("%1=%2%3").arg(QChar(name), g > 0 ? QStringLiteral("+") : QString(),
                                         fixed(static_cast<double>(g), 2));
}

/// Whether a number may be degrees and minutes: its degrees are what 32 bits hold.
bool isCoordinate(double degreesMinutes) { return std::abs(degreesMinutes) / 100 <= Int32Limits::max(); }

QString speedText(const _AVI_GPS_DATA_T& sample, SpeedUnit unit)
{
    const double speed = shownSpeed(sample, unit);
    const QString number = std::isfinite(speed)
                               ? QString::number(static_cast<std::int32_t>(std::clamp<double>(
                                     speed, Int32Limits::min(), Int32Limits::max()))) // truncates toward zero
                               : unknown();
    return number + (unit == SpeedUnit::Miles ? QStringLiteral(" Mi/h") : QStringLiteral(" Km/h"));
}

MapPoint placeOf(std::span<const _AVI_GPS_DATA_T> gpsData,
                 const std::vector<std::shared_ptr<const MRVGpsData>>& nmeas, std::size_t index)
{
    const DecimalPosition place = decimalPosition(gpsData[index], hemispheresAt(nmeas, index));
    return {.longitude = place.longitude, .latitude = place.latitude};
}

void showPlace(GpsPanel& panel, std::span<const _AVI_GPS_DATA_T> gpsData,
               const std::vector<std::shared_ptr<const MRVGpsData>>& nmeas, std::size_t index)
{
    if (!isCoordinate(gpsData[index].fLatitude) || !isCoordinate(gpsData[index].fLongitude)) {
        panel.longitudeField = unknown();
        panel.latitudeField = unknown();
        return;
    }
    const MapPoint place = placeOf(gpsData, nmeas, index);
    panel.mapPosition = place;
    panel.longitudeField = fixed(place.longitude, 4);
    panel.latitudeField = fixed(place.latitude, 4);
}

} // namespace

// What the marker byte of a sample makes of its speed. The bytes are characters in the file.
GsensorPanel initialGsensorPanel()
{
    return {.gsensorXField = QStringLiteral("X=+0.00"),
            .gsensorYField = QStringLiteral("Y=+0.00"),
            .gsensorZField = QStringLiteral("Z=+0.00")};
}

GpsPanel initialGpsPanel()
{
    const QString empty = QLatin1String("");
    return {.longitudeField = empty,
            .latitudeField = empty,
            .speedField = empty,
            .hdopField = empty,
            .sateliteField = empty,
            .mapPosition = {},
            .mapDebug = {}};
}

GsensorPanel gsensorPanelAt(double position, std::span<const MRVGSensor> gsensors)
{
    if (gsensors.empty())
        return {};
    const MRVGSensor& sample = gsensors[indexOfPosition(position, gsensors.size())];
    return {.gsensorXField = axisText(u'X', sample.x),
            .gsensorYField = axisText(u'Y', sample.y),
            .gsensorZField = axisText(u'Z', sample.z)};
}

GpsPanel gpsPanelAt(double position, std::span<const _AVI_GPS_DATA_T> gpsData,
                    const std::vector<std::shared_ptr<const MRVGpsData>>& nmeas, SpeedUnit unit)
{
    GpsPanel panel;
    if (gpsData.empty()) {
        panel.mapDebug = QStringLiteral("GPS Data Count=Zero");
    } else {
        const std::size_t index = indexOfPosition(position, gpsData.size());
        showPlace(panel, gpsData, nmeas, index);
        panel.speedField = speedText(gpsData[index], unit);
    }
    if (!nmeas.empty()) {
        const MRVGpsData& state = *nmeas[indexOfPosition(position, nmeas.size())];
        panel.hdopField = fixed(state.HDOP, 1);
        panel.sateliteField = QString::number(static_cast<std::int32_t>(state.SatelliteUsedCount));
    }
    return panel;
}

QList<MapPoint> wayOf(std::span<const _AVI_GPS_DATA_T> gpsData,
                      const std::vector<std::shared_ptr<const MRVGpsData>>& nmeas)
{
    QList<MapPoint> way;
    for (std::size_t i = 0; i < gpsData.size(); ++i) {
        const MapPoint place = placeOf(gpsData, nmeas, i);
        // NaN is no place either.
        const bool onEarth = std::abs(place.longitude) <= 180 && std::abs(place.latitude) <= 90;
        const bool received = gpsData[i].fLongitude != 0 || gpsData[i].fLatitude != 0;
        if (onEarth && received && (way.isEmpty() || way.back() != place))
            way.append(place);
    }
    return way;
}

} // namespace marvo
