// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "capture/CaptureCommands.h"

#include "capture/CaptureController.h"
#include "capture/PrintController.h"
#include "platform/CupsPrinting.h"
#include "playback/MediaPlayer.h"
#include "texts/Localisation.h"

#include <QAction>

#include <utility>

namespace marvo {

namespace {

constexpr std::chrono::seconds saveTimeout{5};

} // namespace

CaptureCommands::CaptureCommands(QWidget& window, MediaPlayer& player,
                                 std::function<CaptureSnapshots::Shown()> shown,
                                 const std::string& capturePath)
    : m_snapshots(std::move(shown), m_workers, capturePath),
      m_capture(std::make_unique<CaptureController>(window, player, m_snapshots, m_workers)),
      m_print(std::make_unique<PrintController>(window, player, m_snapshots, m_workers,
                                                std::make_shared<CupsPrinting>()))
{}

CaptureCommands::~CaptureCommands()
{
    m_print.reset();
    m_capture.reset();
    m_workers.waitForAll(saveTimeout);
}

void CaptureCommands::follow(QAction& captureVideo, const MediaPlayer& player)
{
    const auto update = [&captureVideo, &player, tip = captureVideo.toolTip()] {
        captureVideo.setEnabled(player.isPlaying());
        captureVideo.setToolTip(
            player.isPlaying() ? tip : tip + QLatin1Char('\n') + localised("capture.only_playing"));
    };
    QObject::connect(&player, &MediaPlayer::stateChanged, &captureVideo, update);
    update();
}

} // namespace marvo
