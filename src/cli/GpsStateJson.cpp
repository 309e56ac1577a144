// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/GpsStateJson.h"

#include "support/JsonWriter.h"

#include <tuple>

namespace marvo::cli {

namespace {

// What each kind of sentence changes, in the order of the fields.
auto satellites(const MRVGpsData& s) { return std::tie(s.SVonChannel, s.SatelliteUsed); }
auto fix(const MRVGpsData& s)
{
    return std::tie(s.NS, s.EW, s.SatelliteCount, s.SatelliteUsedCount, s.PDOP, s.HDOP, s.VDOP, s.Latitude,
                    s.Longitude);
}
auto motion(const MRVGpsData& s) { return std::tie(s.SpeedOverGround, s.CourseOverGround, s.Now); }

/// A hemisphere is whatever byte the sentence began the field with.
std::string characterText(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x80)
        return {character};
    return {static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 0x3F))};
}

template <typename Fill>
std::string members(Fill&& fill)
{
    JsonWriter json;
    json.beginObject();
    fill(json);
    std::string text = json.take();
    text.erase(0, 1);
    return text;
}

} // namespace

void GpsStateJson::append(std::string& out, const MRVGpsData& state)
{
    const bool first = m_satellites.empty();
    const bool newSatellites = first || satellites(m_last) != satellites(state);
    const bool newFix = first || fix(m_last) != fix(state);
    const bool newMotion = first || motion(m_last) != motion(state);
    m_last = state;
    if (newSatellites)
        renderSatellites();
    if (newFix)
        renderFix();
    if (newMotion)
        renderMotion();
    out.append(1, '{').append(m_satellites).append(1, ',').append(m_fix).append(1, ',').append(m_motion);
    out += '}';
}

void GpsStateJson::renderSatellites()
{
    m_satellites = members([this](JsonWriter& json) {
        json.key("SVonChannel");
        json.beginArray();
        for (const _PAIR& channel : m_last.SVonChannel) {
            json.beginArray();
            json.value(channel.first);
            json.value(channel.second);
            json.endArray();
        }
        json.endArray();
        json.key("SatelliteUsed");
        json.beginArray();
        for (const std::uint8_t number : m_last.SatelliteUsed)
            json.value(number);
        json.endArray();
    });
}

void GpsStateJson::renderFix()
{
    m_fix = members([this](JsonWriter& json) {
        json.member("NS", characterText(m_last.NS));
        json.member("EW", characterText(m_last.EW));
        json.member("SatelliteCount", m_last.SatelliteCount);
        json.member("SatelliteUsedCount", m_last.SatelliteUsedCount);
        json.member("PDOP", m_last.PDOP);
        json.member("HDOP", m_last.HDOP);
        json.member("VDOP", m_last.VDOP);
        json.member("Latitude", m_last.Latitude);
        json.member("Longitude", m_last.Longitude);
    });
}

void GpsStateJson::renderMotion()
{
    m_motion = members([this](JsonWriter& json) {
        json.member("SpeedOverGround", m_last.SpeedOverGround);
        json.member("CourseOverGround", m_last.CourseOverGround);
        json.key("Now");
        json.beginArray();
        const _SYSTEMTIME& now = m_last.Now;
        for (const std::uint16_t part : {now.wYear, now.wMonth, now.wDayOfWeek, now.wDay, now.wHour,
                                         now.wMinute, now.wSecond, now.wMilliseconds})
            json.value(part);
        json.endArray();
    });
}

} // namespace marvo::cli
