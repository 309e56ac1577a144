// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureController.h"

#include "capture/CaptureSaveDialog.h"
#include "platform/DesktopPrograms.h"
#include "playback/MediaPlayer.h"
#include "support/Log.h"
#include "workers/DetachedWorkers.h"

#include <QFile>

namespace marvo {

CaptureController::CaptureController(QWidget& window, MediaPlayer& player, CaptureSnapshots& snapshots,
                                     DetachedWorkers& workers)
    : m_window(window), m_player(player), m_snapshots(snapshots), m_workers(workers)
{}

void CaptureController::captureVideo()
{
    if (!m_player.isPlaying())
        return;
    // Taken before the dialog, which may be slow to list a folder.
    const Snapshot snapshot = m_snapshots.take();
    auto* dialog = new CaptureSaveDialog(&m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, snapshot](const QString& path) { save(snapshot, QFile::encodeName(path).toStdString()); });
    // The film waits: otherwise it would be elsewhere when the dialog closes.
    m_player.pause();
    connect(dialog, &QDialog::finished, this, [this, path = m_player.mediaPath()] {
        if ((m_player.isPaused() || m_player.isPlaying()) && m_player.mediaPath() == path)
            m_player.play();
    });
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->show();
}

void CaptureController::save(const Snapshot& snapshot, const std::string& target)
{
    m_workers.start([snapshot, target] {
        const CaptureFile& file = *snapshot.get();
        if (const std::error_code error = file.copyTo(target))
            logLine("cannot save the captured picture as " + target + ": " + error.message());
    });
    // The picture's program may run for hours.
    DetachedWorkers().start([snapshot] {
        const CaptureFile& file = *snapshot.get();
        if (file.descriptor() < 0) // what has that name, if anything, is not ours
            logLine("there is no captured picture to open at " + file.path());
        else if (!openInDefaultProgram(file.path()))
            logLine("no program of the desktop has opened " + file.path());
    });
}

} // namespace marvo
