// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MediaScan.h"
#include "media/MRVMedia.h"
#include "workers/Latest.h"

#include <QObject>

#include <chrono>
#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

namespace marvo {

/// The recordings of one folder tree, oldest first. Belongs to the main thread; the scan runs on a worker,
/// and its finished, sorted result is published there in one step.
class MRVMediaList : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// Starts a scan of the folder (a path as bytes) and returns at once. A running scan is abandoned; it
    /// emits nothing more. The old list stays until the new one is published. An empty path means no folder:
    /// it is stored, and the list stays.
    void setDirectoryPath(const std::string& path);
    const std::string& directoryPath() const { return m_directoryPath; }
    bool isScanning() const { return m_scan.isRunning(); }

    std::int64_t count() const { return static_cast<std::int64_t>(m_medias.size()); }
    /// Null when the index lies outside the list. Valid until the next mediaListChanged().
    const MRVMedia* mediaAtIndex(std::int64_t index) const;
    const std::vector<MRVMedia>& medias() const { return m_medias; }
    /// Why the list's folder could not be read, or not to its end; no error otherwise.
    std::error_code folderError() const { return m_folderError; }

    /// The shortest time between two scanProgress() of the scans to come; usually 0.1 s.
    void setProgressInterval(std::chrono::milliseconds interval) { m_progressInterval = interval; }

Q_SIGNALS:
    /// Number of recordings that the running scan has found so far.
    void scanProgress(qint64 found);
    /// Once at the end of each scan, after the new list has been published; main thread.
    void mediaListChanged();

private:
    void publish(MediaScan scan);

    std::vector<MRVMedia> m_medias;
    std::error_code m_folderError;
    std::string m_directoryPath;
    std::chrono::milliseconds m_progressInterval{100};
    Latest<MediaScan> m_scan{this};
};

} // namespace marvo
