// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureCommands.h"

#include "capture/CaptureController.h"
#include "capture/PrintController.h"
#include "capture/StillController.h"
#include "platform/CupsPrinting.h"
#include "playback/MediaPlayer.h"
#include "texts/Localisation.h"

#include <QAction>
#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace marvo {

namespace {

constexpr std::chrono::seconds saveTimeout{5};

std::string stillFolder()
{
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFile::encodeName(pictures + QStringLiteral("/MARVO")).toStdString();
}

} // namespace

CaptureCommands::CaptureCommands(QWidget& window, MediaPlayer& player,
                                 std::function<CaptureSnapshots::Shown()> shown,
                                 const std::string& capturePath)
    : m_snapshots(shown, m_workers, capturePath),
      m_capture(std::make_unique<CaptureController>(window, player, m_snapshots, m_workers)),
      m_print(std::make_unique<PrintController>(window, player, m_snapshots, m_workers,
                                                std::make_shared<CupsPrinting>())),
      m_stills(std::make_unique<StillController>(player, std::move(shown), stillFolder()))
{}

CaptureCommands::~CaptureCommands()
{
    m_stills.reset();
    m_print.reset();
    m_capture.reset();
    m_workers.waitForAll(saveTimeout);
}

void CaptureCommands::follow(QAction& captureVideo, QAction& saveStill, const MediaPlayer& player)
{
    const auto update = [&captureVideo, &saveStill, &player, tip = captureVideo.toolTip()] {
        captureVideo.setEnabled(player.isPlaying());
        captureVideo.setToolTip(
            player.isPlaying() ? tip : tip + QLatin1Char('\n') + localised("capture.only_playing"));
        saveStill.setEnabled(player.isPlaying() || player.isPaused());
    };
    QObject::connect(&player, &MediaPlayer::stateChanged, &captureVideo, update);
    QObject::connect(&saveStill, &QAction::triggered, m_stills.get(), &StillController::saveStill);
    update();
}

} // namespace marvo
