// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "map/MapStatements.h"
#include "recording/MRVGpsData.h"
#include "recording/SampleRecords.h"
#include "recording/Speed.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace marvo {

/// What the data panels show of a recording at a play position, as plain values: the window copies the texts
/// into the fields of the same names. A member without a value leaves its field as it is. All texts are the
/// same in every locale. A number that cannot be shown appears as "-".

struct GsensorPanel
{
    std::optional<QString> gsensorXField; ///< such as "X=+0.25", in g
    std::optional<QString> gsensorYField;
    std::optional<QString> gsensorZField;
};

struct GpsPanel
{
    std::optional<QString> longitudeField; ///< decimal degrees, east positive
    std::optional<QString> latitudeField;  ///< decimal degrees, north positive
    std::optional<QString> speedField;
    std::optional<QString> hdopField;
    std::optional<QString> sateliteField;
    std::optional<MapPoint> mapPosition; ///< to be given to the map's setLatLag
    std::optional<QString> mapDebug;     ///< to be given to the map's MRVDebug
};

/// The fields of a recording that is about to start.
GsensorPanel initialGsensorPanel();
GpsPanel initialGpsPanel();

/// The G-sensor reading at a position from 0 to 1; nothing when there are no readings.
GsensorPanel gsensorPanelAt(double position, std::span<const MRVGSensor> gsensors);

/// Fix and receiver state at a position from 0 to 1, each list indexed by its own length. Without fixes the
/// map gets the message "GPS Data Count=Zero"; without states HDOP and satellites stay as they are. A fix
/// whose coordinates are not degrees at all, as damaged data may hold, shows dashes and leaves the map alone.
GpsPanel gpsPanelAt(double position, std::span<const _AVI_GPS_DATA_T> gpsData,
                    const std::vector<std::shared_ptr<const MRVGpsData>>& nmeas, SpeedUnit unit);

/// The way of the whole recording, in driving order: the fixes that are places on earth, without those that
/// repeat the one before. 0/0 is what a camera without reception writes, not a place.
QList<MapPoint> wayOf(std::span<const _AVI_GPS_DATA_T> gpsData,
                      const std::vector<std::shared_ptr<const MRVGpsData>>& nmeas);

} // namespace marvo
