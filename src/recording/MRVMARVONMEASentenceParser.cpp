// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVMARVONMEASentenceParser.h"

#include "recording/NmeaFields.h"

namespace marvo {

namespace {

std::uint16_t wrapped(int number) { return static_cast<std::uint16_t>(number); }

/// hhmmss, without a date.
_SYSTEMTIME timeOfDay(std::string_view field)
{
    NmeaScanner scanner(field);
    _SYSTEMTIME time;
    time.wHour = wrapped(scanner.number(2));
    time.wMinute = wrapped(scanner.number(2));
    time.wSecond = wrapped(scanner.number(2));
    return time;
}

} // namespace

bool MRVMARVONMEASentenceParser::parse(std::string_view sentence)
{
    const auto fields = NmeaFields::split(sentence);
    if (!fields)
        return false;
    const std::string_view name = (*fields)[0];
    if (name == "$GA")
        return parseGA(*fields);
    if (name == "$GC")
        return parseGC(*fields);
    return false;
}

bool MRVMARVONMEASentenceParser::parseGA(const NmeaFields& fields)
{
    m_current.Now = timeOfDay(fields[1]); // this sentence has no date and clears the last one
    assignNumber(m_current.Latitude, fields[3]);
    assignNumber(m_current.Longitude, fields[4]);
    assignNumber(m_current.SpeedOverGround, fields[5]);
    assignCharacter(m_current.NS, fields[6]);
    if (!fields[2].starts_with('V'))
        assignCharacter(m_current.EW, fields[7]);
    return true;
}

bool MRVMARVONMEASentenceParser::parseGC(const NmeaFields& fields)
{
    m_current.SpeedOverGround = nmeaNumber(fields[7]);
    m_current.CourseOverGround = nmeaNumber(fields[8]);

    _SYSTEMTIME now = timeOfDay(fields[1]);
    NmeaScanner date(fields[2]);
    now.wDay = wrapped(date.number(2));
    now.wMonth = wrapped(date.number(2));
    now.wYear = wrapped(2000 + date.number(2));
    m_current.Now = now;

    m_current.SatelliteUsedCount = static_cast<std::uint32_t>(nmeaInteger(fields[5]));
    m_current.HDOP = nmeaNumber(fields[6]);
    return true;
}

} // namespace marvo
