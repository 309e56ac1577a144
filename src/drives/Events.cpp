// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/Events.h"

#include <array>
#include <chrono>
#include <cmath>

namespace marvo {

namespace {

constexpr std::int64_t impactJoinMs = 1000;
constexpr double metresPerSecondOfKnot = 1.852 / 3.6;
constexpr double standardGravity = 9.80665;
constexpr double leastChange = 0.35;
constexpr double largestChange = 1.2;
constexpr double shortestSeconds = 0.5;
constexpr double longestSeconds = 1.5;

/// Where a moment of a recording lies: the fix of the same share of the list; none without a place on earth.
std::optional<DecimalPosition> placeAt(const MRVBlackBoxData& data, std::size_t i, std::size_t n)
{
    const auto& fixes = data.m_vGpsData();
    if (fixes.empty() || n == 0)
        return std::nullopt;
    const std::size_t index = std::min(i * fixes.size() / n, fixes.size() - 1);
    const DecimalPosition place = decimalPosition(fixes[index].data(), hemispheresAt(data.m_NMEAs(), index));
    return isOnEarth(place) ? std::optional(place) : std::nullopt;
}

std::int64_t momentMs(std::size_t i, std::size_t n, std::int64_t lengthMs)
{
    return static_cast<std::int64_t>(i) * lengthMs / static_cast<std::int64_t>(n);
}

/// A sentence's time in seconds; none before the first that tells one.
std::optional<double> secondsOf(const _SYSTEMTIME& time)
{
    using namespace std::chrono;
    if (time == _SYSTEMTIME())
        return std::nullopt;
    // The camera's own sentences tell no date.
    const year_month_day date = time.wYear == 0
                                    ? year_month_day(year(1970), month(1), day(1))
                                    : year_month_day(year(time.wYear), month(time.wMonth), day(time.wDay));
    const sys_days midnight(date);
    return static_cast<double>(midnight.time_since_epoch().count()) * 86'400 + time.wHour * 3600.0 +
           time.wMinute * 60.0 + time.wSecond + time.wMilliseconds / 1000.0;
}

} // namespace

const char* eventKindName(DriveEvent::Kind kind)
{
    static constexpr std::array names{"event", "motion", "impact", "braking", "acceleration"};
    return names.at(static_cast<std::size_t>(kind));
}

std::vector<DriveEvent> impactsOf(const MRVBlackBoxData& data, std::int64_t lengthMs,
                                  const ImpactThresholds& thresholds)
{
    std::vector<DriveEvent> events;
    const auto& readings = data.m_GSensors();
    std::optional<std::int64_t> lastOver;
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const double x = readings[i].x;
        const double y = readings[i].y;
        const double z = double{readings[i].z} - 1;
        if (!(std::abs(x) > thresholds.x || std::abs(y) > thresholds.y || std::abs(z) > thresholds.z))
            continue;
        const std::int64_t moment = momentMs(i, readings.size(), lengthMs);
        const double strength = std::sqrt(x * x + y * y + z * z);
        const bool isSame = lastOver && moment - *lastOver < impactJoinMs;
        lastOver = moment;
        if (isSame && !(strength > *events.back().strength))
            continue;
        const DriveEvent event{.kind = DriveEvent::Kind::Impact,
                               .offsetMs = moment,
                               .strength = strength,
                               .place = placeAt(data, i, readings.size())};
        if (isSame)
            events.back() = event;
        else
            events.push_back(event);
    }
    return events;
}

std::vector<DriveEvent> speedChangesOf(const MRVBlackBoxData& data, std::int64_t lengthMs)
{
    std::vector<DriveEvent> events;
    const auto& snapshots = data.m_NMEAs();
    bool isContinued = false; // the change before belongs to the event told last
    for (std::size_t i = 1; i < snapshots.size(); ++i) {
        if (snapshots[i] == snapshots[i - 1])
            continue;
        const auto before = secondsOf(snapshots[i - 1]->Now);
        const auto now = secondsOf(snapshots[i]->Now);
        const double seconds = before && now ? *now - *before : 0;
        if (seconds == 0)
            continue;
        const double change = (snapshots[i]->SpeedOverGround - snapshots[i - 1]->SpeedOverGround) *
                              metresPerSecondOfKnot / seconds / standardGravity;
        const bool counts = seconds >= shortestSeconds && seconds <= longestSeconds &&
                            std::abs(change) >= leastChange && std::abs(change) <= largestChange;
        if (!counts) {
            isContinued = false;
            continue;
        }
        const DriveEvent event{.kind =
                                   change < 0 ? DriveEvent::Kind::Braking : DriveEvent::Kind::Acceleration,
                               .offsetMs = momentMs(i, snapshots.size(), lengthMs),
                               .strength = std::abs(change),
                               .place = placeAt(data, i, snapshots.size())};
        const bool isSame = isContinued && events.back().kind == event.kind;
        isContinued = true;
        if (!isSame)
            events.push_back(event);
        else if (*event.strength > *events.back().strength)
            events.back() = event;
    }
    return events;
}

} // namespace marvo
