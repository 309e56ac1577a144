// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "capture/CaptureSnapshots.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QPrintDialog;
class QPrinter;
class QWidget;

namespace marvo {

class DetachedWorkers;
class MediaPlayer;
class Printing;

/// Prints the picture that the player shows. Every failure is a line in the log.
class PrintController : public QObject
{
    Q_OBJECT
public:
    /// The objects are not owned and must outlive this one.
    PrintController(QWidget& window, const MediaPlayer& player, CaptureSnapshots& snapshots,
                    DetachedWorkers& workers, std::shared_ptr<Printing> printing);
    ~PrintController() override;

    /// Only while the player shows a recording, playing or paused: writes a snapshot and asks how to print
    /// it.
    void print();
    /// The print settings, made with the defaults at the first call and kept, so that what was chosen in the
    /// dialog is there at the next print.
    QPrinter& loadPrintInfo();

private:
    void printPanelDidEnd(QPrintDialog* printPanel, int returnCode, const Snapshot& contextInfo);

    QWidget& m_window;
    const MediaPlayer& m_player;
    CaptureSnapshots& m_snapshots;
    DetachedWorkers& m_workers;
    std::shared_ptr<Printing> m_printing;
    std::unique_ptr<QPrinter> m_printInfo;
    QPointer<QPrintDialog> m_printPanel;
};

} // namespace marvo
