// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/DriveData.h"

#include "demo/DemoClock.h"
#include "demo/GpsReceiver.h"
#include "demo/Noise.h"

#include <algorithm>
#include <cmath>

namespace marvo::demo {

namespace {

constexpr double gravity = 9.80665;
constexpr int unitsPerG = 256;
constexpr int cabinTemperature = 31; // degrees Celsius

std::int32_t inUnits(double g) { return static_cast<std::int32_t>(std::lround(g * unitsPerG)); }

} // namespace

_AVI_GSENSOR_DATA_T readingAt(const Drive& drive, int tenth)
{
    const double seconds = tenth / static_cast<double>(readingsPerSecond);
    const Motion motion = drive.at(seconds);
    const bool running = seconds < drive.duration();
    const double shaking = running ? 0.010 + 0.0022 * motion.speed : 0.003;
    const auto noise = [&](std::uint64_t seed) { return shaking * (2 * chance(seed, tenth) - 1); };
    // A manhole cover or a joint in the road.
    const bool bump = motion.speed > 4 && chance(421, static_cast<std::int64_t>(motion.distance / 9)) < 0.05;
    // The front dives when braking hard, and the body rocks back when the car has come to a stand.
    const double since = seconds - drive.brakingTime();
    const double rocking = since > 0 && since < 4 ? 0.22 * std::exp(-since) * std::sin(since * 9) : 0;

    _AVI_GSENSOR_DATA_T reading;
    reading.nTimestamp = unixTime(0) * 1000 + std::int64_t{tenth} * (1000 / readingsPerSecond);
    reading.xAxis = inUnits(motion.lateral / gravity + noise(422));
    reading.yAxis = inUnits(motion.acceleration / gravity + noise(423) + 0.3 * rocking);
    reading.zAxis = inUnits(1 + 1.6 * noise(424) + rocking + (bump ? 0.16 * (chance(425, tenth) - 0.3) : 0));
    reading.nTemperature = cabinTemperature;
    return reading;
}

std::vector<DataRecord> driveRecords(const Drive& drive, int firstSecond, int seconds, unsigned char marker)
{
    const GpsReceiver receiver(drive);
    std::vector<DataRecord> records;
    for (int second = firstSecond; second < firstSecond + seconds; ++second) {
        std::int64_t stored = 0;
        for (int i = 0; i < readingsPerSecond; ++i) {
            const _AVI_GSENSOR_DATA_T reading = readingAt(drive, second * readingsPerSecond + i);
            stored = reading.nTimestamp;
            records.emplace_back(reading);
        }
        const Fix fix = receiver.fixAt(second);
        GpsRecord record;
        record.header.nTimestamp = stored;
        record.header.KM = marker;
        if (fix.valid) {
            record.header.nQualityIndicator = 1;
            record.header.fLatitude = nmeaDegrees(fix.position.latitude);
            record.header.fLongitude = nmeaDegrees(fix.position.longitude);
            record.header.fSpeed = fix.speedKmh;
        }
        record.nmea = receiver.sentencesAt(second);
        records.emplace_back(std::move(record));
    }
    return records;
}

// Driving log: a header of 12 bytes (u32 number of records, 8 bytes that nobody reads), then records of 40
// bytes:
//    0 u16 sequence number      2 u8 weekday, 0 is Sunday    3 u8 1 with a fix
//    4 u8 year - 1900           5 u8 month                   6 u8 day
//    7 u8 hour                  8 u8 minute                  9 u8 second, local time
//   10 u16 latitude ddmm       12 u16 its four decimals     14 u16 longitude dddmm   16 u16 its four decimals
//   18 u16 speed km/h          20 u32 distance in 100 m     24 u32 unused            28 u16 highest speed
//   30 u16 unused              32 i16 x, y, z in 1/256 g    38 i16 supply in 0.1 V
Bytes drivingLog(const Drive& drive)
{
    constexpr int interval = 5; // seconds, the camera's own default
    const GpsReceiver receiver(drive);
    const int last = static_cast<int>(drive.duration());

    Bytes records;
    std::uint16_t sequence = 0;
    double highest = 0;
    for (int second = 0; second <= last; second += interval) {
        const CalendarTime time = localTime(second);
        const Fix fix = receiver.fixAt(second);
        const _AVI_GSENSOR_DATA_T reading = readingAt(drive, second * readingsPerSecond);
        highest = std::max(highest, fix.speedKmh);
        const auto putAngle = [&](double degrees) {
            const auto tenThousandths = std::llround(nmeaDegrees(degrees) * 10'000);
            putLe(records, static_cast<std::uint16_t>(tenThousandths / 10'000));
            putLe(records, static_cast<std::uint16_t>(tenThousandths % 10'000));
        };
        putLe(records, ++sequence);
        for (const int value : {time.weekday, fix.valid ? 1 : 0, time.year - 1900, time.month, time.day,
                                time.hour, time.minute, time.second})
            putLe(records, static_cast<std::uint8_t>(value));
        putAngle(fix.position.latitude);
        putAngle(fix.position.longitude);
        putLe(records, static_cast<std::uint16_t>(fix.speedKmh));
        putLe(records, static_cast<std::uint32_t>(drive.at(second).distance / 100));
        putLe(records, std::uint32_t{0});
        putLe(records, static_cast<std::uint16_t>(highest));
        putLe(records, std::uint16_t{0});
        for (const std::int32_t value : {reading.xAxis, reading.yAxis, reading.zAxis})
            putLe(records, static_cast<std::int16_t>(value));
        const double charging = 138 + 3 * smoothNoise(431, second / 30.0);
        putLe(records, static_cast<std::int16_t>(second == 0 ? 124 : charging));
    }
    Bytes out;
    putLe(out, std::uint32_t{sequence});
    putText(out, demoLogMark);
    out.insert(out.end(), records.begin(), records.end());
    return out;
}

} // namespace marvo::demo
