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

/// Saving and printing the picture of the moment, with the workers and the snapshots that both share.
class CaptureCommands
{
public:
    /// None is owned; all outlive this object. The path is that of the picture that was captured or printed
    /// last.
    CaptureCommands(QWidget& window, MediaPlayer& player, std::function<CaptureSnapshots::Shown()> shown,
                    const std::string& capturePath);
    /// Waits, some seconds at most, for a picture that is still being saved or sent to a printer.
    ~CaptureCommands();

    /// Enables a command while its work can be done, and tells in its tool tip why not.
    void follow(QAction& captureVideo, const MediaPlayer& player);

    CaptureController& capture() const { return *m_capture; }
    PrintController& printing() const { return *m_print; }

private:
    DetachedWorkers m_workers;
    CaptureSnapshots m_snapshots;
    std::unique_ptr<CaptureController> m_capture;
    std::unique_ptr<PrintController> m_print;
};

} // namespace marvo
