// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVNMEASentenceParser.h"

#include "recording/NmeaFields.h"
#include "support/Utf8.h"

#include <atomic>

namespace marvo {

namespace {

// Two recordings may be read at once, one of them abandoned: the state is one value that is replaced whole.
std::atomic<MRVNMEASentenceParser::SatelliteListState> satelliteList;
static_assert(decltype(satelliteList)::is_always_lock_free);

} // namespace

MRVNMEASentenceParser::SatelliteListState MRVNMEASentenceParser::satelliteListState()
{
    return satelliteList;
}

void MRVNMEASentenceParser::setSatelliteListState(SatelliteListState state) { satelliteList = state; }

bool MRVNMEASentenceParser::parse(std::string_view sentence)
{
    const auto fields = NmeaFields::split(sentence);
    if (!fields)
        return false;
    const std::string_view name = (*fields)[0];
    if (name == "$GPRMC")
        return parseGPRMC(*fields);
    if (name == "$GPGGA")
        return parseGPGGA(*fields);
    if (name == "$GPGSV")
        return parseGPGSV(*fields);
    if (name == "$GPGSA")
        return parseGPGSA(*fields);
    return false;
}

bool MRVNMEASentenceParser::parseGPRMC(const NmeaFields& fields)
{
    m_current.SpeedOverGround = nmeaNumber(fields[7]);
    m_current.CourseOverGround = nmeaNumber(fields[8]);

    // hhmmss.sss and ddmmyy; any other length leaves the time alone.
    if (utf8Length(fields[9]) != 6 || utf8Length(fields[1]) != 10)
        return true;
    const auto wrapped = [](int number) { return static_cast<std::uint16_t>(number); };
    _SYSTEMTIME now;
    NmeaScanner time(fields[1]);
    now.wHour = wrapped(time.number(2));
    now.wMinute = wrapped(time.number(2));
    now.wSecond = wrapped(time.number(2));
    time.literal('.');
    now.wMilliseconds = wrapped(time.number(3));
    NmeaScanner date(fields[9]);
    now.wDay = wrapped(date.number(2));
    now.wMonth = wrapped(date.number(2));
    now.wYear = wrapped(2000 + date.number(2));
    m_current.Now = now;
    return true;
}

bool MRVNMEASentenceParser::parseGPGGA(const NmeaFields& fields)
{
    assignNumber(m_current.Latitude, fields[2]);
    assignCharacter(m_current.NS, fields[3]);
    assignNumber(m_current.Longitude, fields[4]);
    assignCharacter(m_current.EW, fields[5]);
    m_current.SatelliteUsedCount = static_cast<std::uint32_t>(nmeaInteger(fields[7]));
    assignNumber(m_current.HDOP, fields[8]);
    return true;
}

bool MRVNMEASentenceParser::parseGPGSV(const NmeaFields& fields)
{
    m_current.SatelliteCount = static_cast<std::uint32_t>(nmeaInteger(fields[3]));
    if (m_current.SatelliteCount == 0)
        return true;

    SatelliteListState list = satelliteList;
    const std::int32_t message = nmeaInteger(fields[2]);
    if (message == 1)
        list.nextChannel = 0;
    else if (message != std::int64_t{list.lastMessage} + 1)
        return false;

    const std::size_t groups = fields.count() < 8 ? 0 : (fields.count() - 4) / 4;
    const auto byteOf = [](std::string_view field) {
        return static_cast<std::uint8_t>(NmeaScanner(field).number(2));
    };
    for (std::size_t k = 0; k < groups; ++k) {
        const auto channel = static_cast<std::size_t>(list.nextChannel);
        if (channel >= MRVGpsData::channelCount)
            break;
        m_current.SVonChannel[channel] = {byteOf(fields[4 + 4 * k]), byteOf(fields[7 + 4 * k])};
        ++list.nextChannel;
    }
    list.lastMessage = message;
    satelliteList = list;
    return true;
}

bool MRVNMEASentenceParser::parseGPGSA(const NmeaFields& fields)
{
    for (std::size_t i = 0; i < MRVGpsData::channelCount; ++i)
        m_current.SatelliteUsed[i] = static_cast<std::uint8_t>(nmeaInteger(fields[3 + i]));
    m_current.PDOP = nmeaNumber(fields[15]);
    m_current.HDOP = nmeaNumber(fields[16]);
    m_current.VDOP = nmeaNumber(fields[17]);
    return true;
}

} // namespace marvo
