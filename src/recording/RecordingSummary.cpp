// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/RecordingSummary.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace marvo {

namespace {

/// The span of all times seen, in a type that the difference of any two of them fits.
class TimeSpan
{
public:
    void add(std::int64_t timestampMs)
    {
        const auto time = static_cast<double>(timestampMs);
        m_earliest = std::min(m_earliest, time);
        m_latest = std::max(m_latest, time);
    }
    double beginMs() const { return std::isfinite(m_earliest) ? m_earliest : 0; }
    std::optional<double> seconds() const
    {
        return m_latest >= m_earliest ? std::optional((m_latest - m_earliest) / 1000) : std::nullopt;
    }

private:
    double m_earliest = HUGE_VAL;
    double m_latest = -HUGE_VAL;
};

} // namespace

double distanceMetres(DecimalPosition from, DecimalPosition to)
{
    constexpr double earthRadiusMetres = 6'371'008.8;
    constexpr double radians = std::numbers::pi / 180;
    const double sinLatitude = std::sin((to.latitude - from.latitude) * radians / 2);
    const double sinLongitude = std::sin((to.longitude - from.longitude) * radians / 2);
    const double haversine = sinLatitude * sinLatitude + std::cos(from.latitude * radians) *
                                                             std::cos(to.latitude * radians) * sinLongitude *
                                                             sinLongitude;
    return 2 * earthRadiusMetres * std::asin(std::sqrt(std::clamp(haversine, 0.0, 1.0)));
}

RecordingSummary summarise(const MRVBlackBoxData& recording)
{
    return summarise(recording, recording.m_NMEAs());
}

RecordingSummary summarise(const MRVBlackBoxData& recording,
                           const std::vector<std::shared_ptr<const MRVGpsData>>& snapshots)
{
    RecordingSummary summary;
    TimeSpan span;
    const auto& readings = recording.m_vGSensorData();
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const std::int64_t time = readings[i].data().nTimestamp;
        const MRVGSensor& axes = recording.m_GSensors()[i];
        const double magnitude =
            std::hypot(static_cast<double>(axes.x), static_cast<double>(axes.y), static_cast<double>(axes.z));
        span.add(time);
        if (!summary.strongestReading || magnitude > summary.strongestReading->magnitude)
            summary.strongestReading = {.axes = axes, .magnitude = magnitude, .timestampMs = time};
    }
    for (std::size_t i = 0; i < recording.m_vGpsData().size(); ++i) {
        const _AVI_GPS_DATA_T sample = recording.m_vGpsData()[i].data();
        span.add(sample.nTimestamp);
        if (std::isfinite(sample.fSpeed) && (!summary.topSpeed || sample.fSpeed > summary.topSpeed->speed))
            summary.topSpeed = {.speed = sample.fSpeed, .KM = sample.KM, .timestampMs = sample.nTimestamp};
        const RecordingSummary::Fix fix{.position = decimalPosition(sample, hemispheresAt(snapshots, i)),
                                        .timestampMs = sample.nTimestamp};
        if (!isOnEarth(fix.position))
            continue;
        if (summary.lastFix)
            summary.distanceMetres += distanceMetres(summary.lastFix->position, fix.position);
        else
            summary.firstFix = fix;
        summary.lastFix = fix;
    }
    summary.durationSeconds = span.seconds();
    summary.beginMs = span.beginMs();
    return summary;
}

} // namespace marvo
