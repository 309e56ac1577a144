// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/cut/DataAreaCutting.h"

#include "recording/MRVBlackBoxData.h"
#include "recording/RecordWriting.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace marvo {

namespace {

/// A fix, and where it stands among the readings.
struct Fix
{
    _AVI_GPS_DATA_T header;
    std::string text;
    std::size_t behind = 0;      ///< readings before it in the file
    std::size_t firstSample = 0; ///< the readings that it belongs to begin here
};

} // namespace

DataAreaCut cutDataArea(ByteSource& recording, double from, double to, std::stop_token stop)
{
    MRVBlackBoxData data;
    std::vector<Fix> fixes;
    data.setFixListener([&](const _AVI_GPS_DATA_T& header, std::string_view text) {
        fixes.push_back({header, std::string(text), data.m_vGSensorData().size(), data.m_vGpsData().size()});
    });
    data.ExtractStreamInformation(recording, std::move(stop)); // what is there before a fault counts

    const std::size_t count = data.m_vGSensorData().size();
    const auto indexAt = [count](double share) {
        const double index = std::ceil(std::clamp(share, 0.0, 1.0) * static_cast<double>(count) - 1e-9);
        return std::min(static_cast<std::size_t>(std::max(index, 0.0)), count);
    };
    const std::size_t first = indexAt(from);
    const std::size_t end = to >= 1 ? count : indexAt(to);
    const auto samplesEnd = [&](std::size_t i) {
        return i + 1 < fixes.size() ? fixes[i + 1].firstSample : data.m_vGpsData().size();
    };
    DataAreaCut cut;
    std::string records;
    std::size_t reading = first;
    for (std::size_t i = 0; i < fixes.size(); ++i) {
        // One fix after another is kept from the first to the last that has readings here: the sentences
        // between them tell more than the fix.
        const bool isKept = count == 0 ? from <= 0 : samplesEnd(i) > first && fixes[i].firstSample < end;
        if (!isKept)
            continue;
        for (; reading < std::min(fixes[i].behind, end); ++reading)
            appendRecord(records, data.m_vGSensorData()[reading].data());
        appendRecord(records, fixes[i].header, fixes[i].text);
    }
    for (; reading < end; ++reading)
        appendRecord(records, data.m_vGSensorData()[reading].data());
    if (records.empty() || records.size() > 0x7FFF'FFFFU)
        return cut;
    if (records.size() % 2 != 0)
        records.push_back('\0');
    cut.readings = end - first;
    cut.chunk = "JUNK";
    for (int i = 0; i < 4; ++i)
        cut.chunk.push_back(static_cast<char>(records.size() >> (8 * i)));
    cut.chunk += records;
    return cut;
}

} // namespace marvo
