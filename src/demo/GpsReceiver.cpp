// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/GpsReceiver.h"

#include "demo/DemoClock.h"
#include "demo/Noise.h"
#include "demo/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace marvo::demo {

namespace {

struct Satellite
{
    int number;
    int elevation; ///< degrees
    int azimuth;   ///< degrees
};
constexpr std::array<Satellite, 11> sky{{{5, 71, 312},
                                         {13, 58, 68},
                                         {15, 47, 121},
                                         {29, 43, 244},
                                         {18, 36, 289},
                                         {20, 30, 187},
                                         {24, 24, 54},
                                         {23, 19, 148},
                                         {10, 15, 326},
                                         {12, 11, 92},
                                         {25, 6, 215}}};
constexpr int usableSignal = 24; // dB-Hz
constexpr double knotsPerKmh = 1 / 1.852;
constexpr double metresPerDegree = 111'195;

std::string sentence(const std::string& body)
{
    unsigned checksum = 0;
    for (const char character : body)
        checksum ^= static_cast<unsigned char>(character);
    return "$" + body + printed("*%02X\r\n", checksum);
}

/// "ddmm.mmmm,N" with as many digits of degrees as wanted.
std::string angle(double degrees, int width, char positive, char negative)
{
    return printed("%0*.4f,%c", width, nmeaDegrees(std::abs(degrees)), degrees < 0 ? negative : positive);
}

} // namespace

double nmeaDegrees(double degrees)
{
    // Rounded as a whole, so that 59.99996 minutes become the next degree.
    const auto tenThousandths = std::llround(std::abs(degrees) * 60 * 10'000);
    const auto whole = tenThousandths / 600'000;
    return static_cast<double>(whole * 1'000'000 + tenThousandths % 600'000) / 10'000;
}

bool GpsReceiver::hasSight(double seconds) const
{
    return m_drive.route().tunnelAt(m_drive.at(seconds).distance) == nullptr;
}

int GpsReceiver::signal(std::size_t satellite, int second) const
{
    const double open = 25 + sky[satellite].elevation * 0.28;
    const double streets = 5 * smoothNoise(400 + satellite, m_drive.at(second).distance / 60 + second / 20.0);
    return std::clamp(static_cast<int>(open + streets), 0, 52);
}

Fix GpsReceiver::fixAt(int second) const
{
    Fix fix;
    // The fix lasts one second into a tunnel; after it the receiver needs two seconds.
    fix.valid = (hasSight(second) || hasSight(second - 1)) && (!hasSight(second) || hasSight(second - 2));
    if (!fix.valid)
        return fix;
    const Motion motion = m_drive.at(second);
    const GeoPoint place = m_drive.route().geoPoint(motion.distance);
    const double latitudeScale = std::cos(place.latitude * std::numbers::pi / 180);
    fix.position = {place.latitude + 1.6 * smoothNoise(411, second / 7.0) / metresPerDegree,
                    place.longitude +
                        1.6 * smoothNoise(412, second / 7.0) / (metresPerDegree * latitudeScale)};
    const double noise = motion.speed > 1 ? 0.25 * smoothNoise(413, second) : 0;
    fix.speedKmh = std::round(std::max(0.0, motion.speed * 3.6 + noise) * 10) / 10;
    const double course = m_drive.route().at(motion.distance).headingRad() * 180 / std::numbers::pi;
    fix.courseDegrees = std::fmod(course + 0.4 * smoothNoise(414, second) + 360, 360);
    fix.altitude = 38 + 16 * smoothNoise(415, motion.distance / 700);
    for (std::size_t i = 0; i < sky.size(); ++i) {
        if (signal(i, second) >= usableSignal)
            fix.used.push_back(sky[i].number);
    }
    fix.hdop = 0.7 + 3.2 / static_cast<double>(std::max<std::size_t>(fix.used.size(), 1));
    return fix;
}

std::string GpsReceiver::sentencesAt(int second) const
{
    const Fix fix = fixAt(second);
    const CalendarTime utc = universalTime(second);
    const std::string time = printed("%02d%02d%02d.000", utc.hour, utc.minute, utc.second);
    const std::string date = printed("%02d%02d%02d", utc.day, utc.month, utc.year % 100);
    std::string out;
    if (fix.valid) {
        const std::string position =
            angle(fix.position.latitude, 9, 'N', 'S') + "," + angle(fix.position.longitude, 10, 'E', 'W');
        out +=
            sentence("GPRMC," + time + ",A," + position +
                     printed(",%.2f,%.2f,", fix.speedKmh * knotsPerKmh, fix.courseDegrees) + date + ",,,A");
        out += sentence("GPGGA," + time + "," + position +
                        printed(",1,%02zu,%.1f,%.1f,M,18.6,M,,", fix.used.size(), fix.hdop, fix.altitude));
        std::string used;
        for (std::size_t slot = 0; slot < 12; ++slot)
            used += slot < fix.used.size() ? printed(",%02d", fix.used[slot]) : ",";
        out += sentence("GPGSA,A,3" + used +
                        printed(",%.1f,%.1f,%.1f", fix.hdop * 1.75, fix.hdop, fix.hdop * 1.44));
    } else {
        out += sentence("GPRMC," + time + ",V,,,,,,," + date + ",,,N");
        out += sentence("GPGGA," + time + ",,,,,0,00,99.9,,M,,M,,");
        out += sentence("GPGSA,A,1,,,,,,,,,,,,,99.9,99.9,99.9");
    }
    constexpr std::size_t perSentence = 4;
    constexpr std::size_t messages = (sky.size() + perSentence - 1) / perSentence;
    for (std::size_t message = 0; message < messages; ++message) {
        std::string body = printed("GPGSV,%zu,%zu,%02zu", messages, message + 1, sky.size());
        for (std::size_t i = message * perSentence; i < std::min(sky.size(), (message + 1) * perSentence);
             ++i) {
            body += printed(",%02d,%02d,%03d,", sky[i].number, sky[i].elevation, sky[i].azimuth);
            if (fix.valid)
                body += printed("%02d", signal(i, second));
        }
        out += sentence(body);
    }
    return out;
}

} // namespace marvo::demo
