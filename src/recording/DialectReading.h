// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/MRVGpsData.h"
#include "recording/MRVMARVONMEASentenceParser.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace marvo {

/// Reads a recording's sentences as the camera's own dialect. It listens to the extractor
/// (MRVBlackBoxData::setSentenceListener), which still reads them as standard sentences.
class DialectReading
{
public:
    void take(std::string_view sentence);

    /// One state for each sentence, of the dialect or not. Equal neighbours share one object.
    const std::vector<std::shared_ptr<const MRVGpsData>>& snapshots() const { return m_snapshots; }
    /// How many of the sentences were of the dialect.
    std::size_t accepted() const { return m_accepted; }
    /// True when the recording has sentences and all of them are of the dialect.
    bool isDialect() const { return m_accepted != 0 && m_accepted == m_snapshots.size(); }

private:
    MRVMARVONMEASentenceParser m_parser;
    std::vector<std::shared_ptr<const MRVGpsData>> m_snapshots;
    std::size_t m_accepted = 0;
};

} // namespace marvo
