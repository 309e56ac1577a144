// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "capture/CaptureSnapshots.h"

#include <QObject>

class QWidget;

namespace marvo {

class DetachedWorkers;
class MediaPlayer;

/// Saves the picture that the player shows, and opens it in the desktop's viewer. Every failure is a line in
/// the log.
class CaptureController : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive this one.
    CaptureController(QWidget& window, MediaPlayer& player, CaptureSnapshots& snapshots,
                      DetachedWorkers& workers);

    /// Only while the player plays: writes a snapshot and asks where to save it.
    void captureVideo();

private:
    void save(const Snapshot& snapshot, const std::string& target);

    QWidget& m_window;
    MediaPlayer& m_player;
    CaptureSnapshots& m_snapshots;
    DetachedWorkers& m_workers;
};

} // namespace marvo
