// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVGpsData.h"
#include "recording/SampleRecords.h"

#include <memory>
#include <stop_token>
#include <string>
#include <vector>

namespace marvo {

/// Reads the camera's data out of one AVI recording: GPS fixes, NMEA states and G-sensor readings.
///
/// One walk at a time fills the lists, on any thread; nobody else may touch the lists until it has returned.
class MRVBlackBoxData
{
public:
    /// Walks the file and fills the lists anew. True when the camera's data area was reached and read to its
    /// end or to the end of its budget. False otherwise, with what had been read before the fault kept. A
    /// walk that is asked to stop ends with false soon after.
    bool ExtractStreamInformation(const std::string& path, std::stop_token stop = {});
    void clear();

    /// Readings in g, in file order.
    const std::vector<MRVGSensor>& m_GSensors() const;
    /// The raw readings, entry by entry those of m_GSensors.
    const std::vector<_AVI_GSENSOR_DATA_T>& m_vGSensorData() const;
    /// Entry i is the GPS header that belongs to reading i; never longer than m_GSensors.
    const std::vector<_AVI_GPS_DATA_T>& m_vGpsData() const;
    /// One state for each sentence that starts with "$G". Equal neighbours share one object, so that a
    /// hostile text of many short sentences cannot multiply its own size; no entry is null.
    const std::vector<std::shared_ptr<const MRVGpsData>>& m_NMEAs() const;
};

} // namespace marvo
