// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/PartImages.h"

#include <cstdint>

class QLabel;

namespace marvo {

class FractionSlider;
class ImageButton;
class MainWindowCommands;

/// The low bar of playback controls below the video in full screen.
class FullScreenControlBar : public ThreePartImageBox
{
    Q_OBJECT
public:
    explicit FullScreenControlBar(const MainWindowCommands& commands, QWidget* parent = nullptr);

    FractionSlider* videoPositionSliderForFullScreen() const { return m_videoPositionSlider; }
    void showPlaying(bool playing);
    void showTime(std::int64_t timeMs, std::int64_t lengthMs);

private:
    ImageButton* m_playButton;
    FractionSlider* m_videoPositionSlider;
    QLabel* m_timeText;
};

} // namespace marvo
