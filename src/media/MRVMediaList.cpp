// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MRVMediaList.h"

#include <utility>

namespace marvo {

void MRVMediaList::setDirectoryPath(const std::string& path)
{
    m_directoryPath = path;
    if (path.empty())
        return;
    m_scan.start(
        [this, path, interval = m_progressInterval](const LatestRun& run) {
            auto lastProgress = std::chrono::steady_clock::now();
            const auto onFound = [&](std::size_t found) {
                const auto now = std::chrono::steady_clock::now();
                if (now - lastProgress < interval)
                    return;
                lastProgress = now;
                run.post([this, found] { Q_EMIT scanProgress(static_cast<qint64>(found)); });
            };
            return scanFolder(path, run.stopToken(), onFound);
        },
        [this](MediaScan scan) { publish(std::move(scan)); });
}

const MRVMedia* MRVMediaList::mediaAtIndex(std::int64_t index) const
{
    return index >= 0 && index < count() ? &m_medias[static_cast<std::size_t>(index)] : nullptr;
}

void MRVMediaList::publish(MediaScan scan)
{
    m_medias = std::move(scan.medias);
    m_folderError = scan.folderError;
    Q_EMIT mediaListChanged();
}

} // namespace marvo
