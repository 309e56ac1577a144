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

/// What a recording says when its sentences are read as the camera's own dialect. It listens to the extractor
/// (MRVBlackBoxData::setSentenceListener), which reads them as standard ones all the while.
class DialectReading
{
public:
    void take(std::string_view sentence);

    /// One state for each sentence, whether it was of the dialect or not. Equal neighbours share one object.
    const std::vector<std::shared_ptr<const MRVGpsData>>& snapshots() const { return m_snapshots; }
    /// How many of the sentences were of the dialect.
    std::size_t accepted() const { return m_accepted; }
    /// Whether the recording is one of the dialect: it has sentences, and all of them are.
    bool isDialect() const { return m_accepted != 0 && m_accepted == m_snapshots.size(); }

private:
    MRVMARVONMEASentenceParser m_parser;
    std::vector<std::shared_ptr<const MRVGpsData>> m_snapshots;
    std::size_t m_accepted = 0;
};

} // namespace marvo
