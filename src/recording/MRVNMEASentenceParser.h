// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVGpsData.h"

#include <cstdint>
#include <string_view>

namespace marvo {

class NmeaFields;

/// Reads NMEA 0183 sentences of the GPS talker ("$GPRMC", "$GPGGA", "$GPGSV", "$GPGSA") into one state; each
/// sentence updates part of it. This is no general decoder: it reads only the fields that the viewer shows.
class MRVNMEASentenceParser
{
public:
    /// Progress of the list of satellites in view. A cycle of "$GPGSV" sentences fills the channels in turn.
    /// The state belongs to the whole program and outlives clear() and every parser.
    struct SatelliteListState
    {
        std::int32_t lastMessage = 0; ///< number of the last accepted message of the cycle
        std::int32_t nextChannel = 0; ///< 0 to 12

        bool operator==(const SatelliteListState&) const = default;
    };
    static SatelliteListState satelliteListState();
    static void setSatelliteListState(SatelliteListState state);

    /// Reads one sentence from its "$" to its checksum, without line end. Refuses (false) text that is not
    /// UTF-8 or has not exactly one "*", an unknown sentence, and a satellite message out of turn. The
    /// checksum itself is not compared. Missing fields count as empty.
    bool parse(std::string_view sentence);
    void clear() { m_current = {}; }

    const MRVGpsData& m_Current() const { return m_current; }
    void setM_Current(const MRVGpsData& state) { m_current = state; }

private:
    bool parseGPRMC(const NmeaFields& fields);
    bool parseGPGGA(const NmeaFields& fields);
    bool parseGPGSV(const NmeaFields& fields);
    bool parseGPGSA(const NmeaFields& fields);

    MRVGpsData m_current;
};

} // namespace marvo
