// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace marvo {

class MainViews;
class MRVMediaList;
class RecordingTableModel;

/// Tells in the head strip and in the list what folder is open, and how far its scan has come.
class FolderStatus : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive this one.
    FolderStatus(MainViews& views, const MRVMediaList& mediaList, RecordingTableModel& recordings);

    /// A scan is under way and has found so many recordings.
    void showScanning(qint64 found);
    /// The scan has ended.
    void showListed();
    /// No folder is open.
    void showNothingOpen();
    /// The head strip names the recording of a row; -1 names none.
    void showPlaying(std::int64_t row);

private:
    void showFolder(const QString& detail);
    void showCount(int shown);

    MainViews& m_views;
    const MRVMediaList& m_mediaList;
    RecordingTableModel& m_recordings;
};

} // namespace marvo
