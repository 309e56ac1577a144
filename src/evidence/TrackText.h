// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "evidence/Track.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marvo {

/// How a track is written for other programs. Places are WGS 84 degrees, north and east positive. A time is
/// written only where a recording's sentences tell GPS time.
enum class TrackFormat {
    Gpx,     ///< GPX 1.1 with TrackPointExtension v2 (speed in m/s, course); a trkseg a segment
    GeoJson, ///< RFC 7946: a MultiLineString; a segment of a single fix is a Point
    Kml,     ///< KML 2.2; a gx:Track a segment whose fixes all have a time, else a LineString or Point
    Csv      ///< RFC 4180, a line a reading
};

/// "gpx", "geojson", "kml" or "csv".
std::optional<TrackFormat> trackFormatNamed(std::string_view name);

/// The whole file, UTF-8. The title is foreign text; what no XML can hold is replaced.
std::string trackText(const std::vector<RecordingTrack>& tracks, TrackFormat format, std::string_view title);

/// "2026-11-23T08:30:00Z", with milliseconds when there are some; of milliseconds since 1970.
std::string utcText(std::int64_t utcMs);

} // namespace marvo
