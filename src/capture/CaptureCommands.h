// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "capture/CaptureSnapshots.h"
#include "workers/DetachedWorkers.h"

#include <functional>
#include <memory>
#include <string>

class QAction;
class QWidget;

namespace marvo {

class CaptureController;
class MediaPlayer;
class PrintController;
class StillController;

/// Saving and printing the picture of the moment, with the workers and the snapshots that both share.
class CaptureCommands
{
public:
    /// The objects are not owned and must outlive this one. The path is where the last picture captured or
    /// printed is kept.
    CaptureCommands(QWidget& window, MediaPlayer& player, std::function<CaptureSnapshots::Shown()> shown,
                    const std::string& capturePath);
    /// Waits up to some seconds for a picture that is still being saved or printed.
    ~CaptureCommands();

    /// Enables the command while it can do its work. Otherwise the tool tip says why not.
    void follow(QAction& captureVideo, QAction& saveStill, const MediaPlayer& player);

    StillController& stills() const { return *m_stills; }
    CaptureController& capture() const { return *m_capture; }
    PrintController& printing() const { return *m_print; }

private:
    DetachedWorkers m_workers;
    CaptureSnapshots m_snapshots;
    std::unique_ptr<CaptureController> m_capture;
    std::unique_ptr<PrintController> m_print;
    std::unique_ptr<StillController> m_stills;
};

} // namespace marvo
