// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/PrintController.h"

#include "capture/PrintRequest.h"
#include "playback/MediaPlayer.h"
#include "texts/Localisation.h"
#include "workers/DetachedWorkers.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>

namespace marvo {

PrintController::PrintController(QWidget& window, const MediaPlayer& player, CaptureSnapshots& snapshots,
                                 DetachedWorkers& workers, std::shared_ptr<Printing> printing)
    : m_window(window),
      m_player(player),
      m_snapshots(snapshots),
      m_workers(workers),
      m_printing(std::move(printing))
{}

PrintController::~PrintController()
{
    delete m_printPanel; // before the settings that it shows
}

QPrinter& PrintController::loadPrintInfo()
{
    if (!m_printInfo)
        m_printInfo = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *m_printInfo;
}

void PrintController::print()
{
    if (!m_player.hasMedia() || !(m_player.isPlaying() || m_player.isPaused()) || m_printPanel)
        return;
    const Snapshot snapshot = m_snapshots.take();
    m_printPanel = new QPrintDialog(&loadPrintInfo(), &m_window);
    m_printPanel->setObjectName(QStringLiteral("printPanel"));
    m_printPanel->setAttribute(Qt::WA_DeleteOnClose);
    m_printPanel->setWindowTitle(localised("print.title"));
    m_printPanel->setOption(QAbstractPrintDialog::PrintShowPageSize);
    auto* hint = new QLabel(localised("print.no_file"), m_printPanel);
    hint->setObjectName(QStringLiteral("printHint"));
    hint->setWordWrap(true);
    if (auto* rows = qobject_cast<QBoxLayout*>(m_printPanel->layout()))
        rows->insertWidget(0, hint);
    connect(m_printPanel, &QDialog::finished, this,
            [this, panel = m_printPanel.data(), snapshot](int result) {
                printPanelDidEnd(panel, result, snapshot);
            });
    m_printPanel->open();
}

void PrintController::printPanelDidEnd(QPrintDialog*, int returnCode, const Snapshot& contextInfo)
{
    if (returnCode != QDialog::Accepted)
        return;
    m_workers.start([printing = m_printing, request = printRequestOf(loadPrintInfo()), contextInfo] {
        printPicture(*printing, request, *contextInfo.get());
    });
}

} // namespace marvo
