// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/MRVMedia.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <vector>

namespace marvo {

/// The recordings of one folder tree, oldest first. Belongs to the main thread; the scan runs on a worker,
/// and its finished, sorted result is published there in one step.
class MRVMediaList : public QObject
{
    Q_OBJECT
public:
    explicit MRVMediaList(QObject* parent = nullptr);
    ~MRVMediaList() override;

    /// Starts a scan of the folder (a path as bytes) and returns at once. A scan still running is abandoned
    /// and tells nobody. An empty path changes nothing.
    void setDirectoryPath(const std::string& path);
    const std::string& directoryPath() const;
    bool isScanning() const;

    std::int64_t count() const;
    /// Null when the index lies outside the list.
    const MRVMedia* mediaAtIndex(std::int64_t index) const;
    const std::vector<MRVMedia>& medias() const;

Q_SIGNALS:
    void scanStarted();
    /// How many recordings the running scan has found so far; some times a second at most.
    void scanProgress(qint64 found);
    /// Once at the end of each scan, after the new list has been published; main thread.
    void mediaListChanged();
};

} // namespace marvo
