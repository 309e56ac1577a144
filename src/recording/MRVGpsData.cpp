// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/MRVGpsData.h"

namespace marvo {

void appendSnapshot(std::vector<std::shared_ptr<const MRVGpsData>>& snapshots, const MRVGpsData& state)
{
    if (!snapshots.empty() && *snapshots.back() == state)
        snapshots.push_back(snapshots.back());
    else
        snapshots.push_back(std::make_shared<const MRVGpsData>(state));
}

} // namespace marvo
