// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// NMEA 0183 text and the camera's own sentences.
#include "recording/DialectReading.h"
#include "recording/MRVBlackBoxData.h"
#include "recording/MRVMARVONMEASentenceParser.h"
#include "require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace marvo;
    const std::string text(data, data + size);
    MRVNMEASentenceParser::setSatelliteListState({});

    std::size_t sentences = 0;
    DialectReading dialect;
    MRVBlackBoxData recording;
    recording.setSentenceListener([&](std::string_view sentence) {
        ++sentences;
        dialect.take(sentence);
    });
    REQUIRE(recording.ParseNMEA(text) == !text.empty());
    REQUIRE(recording.m_NMEAs().size() == sentences);
    REQUIRE(dialect.snapshots().size() == sentences && dialect.accepted() <= sentences);
    const auto state = MRVNMEASentenceParser::satelliteListState();
    REQUIRE(state.nextChannel >= 0 && state.nextChannel <= 12);

    // The parsers are also given what no splitting has looked at.
    MRVNMEASentenceParser standard;
    MRVMARVONMEASentenceParser own;
    const MRVGpsData before = own.m_Current();
    standard.parse(text);
    if (!own.parse(text))
        REQUIRE(own.m_Current() == before);
    return 0;
}
