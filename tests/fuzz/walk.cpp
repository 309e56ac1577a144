// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// The walk through a recording's data area.
#include "recording/MRVBlackBoxData.h"
#include "recording/RecordingSummary.h"
#include "require.h"
#include "support/ByteSource.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace marvo;
    MRVNMEASentenceParser::setSatelliteListState({});
    MRVBlackBoxData recording;
    MemorySource source(std::as_bytes(std::span(data, size)));
    recording.ExtractStreamInformation(source);
    REQUIRE(recording.m_vGSensorData().size() == recording.m_GSensors().size());
    REQUIRE(recording.m_vGpsData().size() <= recording.m_GSensors().size());
    REQUIRE(recording.m_GSensors().size() <= size / 4);
    REQUIRE(recording.frameCount() >= 1);
    for (const auto& state : recording.m_NMEAs())
        REQUIRE(state != nullptr);
    const RecordingSummary summary = summarise(recording);
    REQUIRE(!(summary.distanceMetres < 0));
    recording.clear();
    REQUIRE(recording.m_GSensors().empty() && recording.m_NMEAs().empty());
    return 0;
}
