// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <cstdint>
#include <vector>

class QHBoxLayout;
class QLabel;

namespace marvo {

class FractionSlider;
class ImageButton;
class MainWindowCommands;

/// The strip of playback controls below the G-sensor graph.
class MediaControlBox : public QWidget
{
    Q_OBJECT
public:
    explicit MediaControlBox(const MainWindowCommands& commands, QWidget* parent = nullptr);

    ImageButton* playButton() const { return m_playButton; }
    FractionSlider* videoPositionSlider() const { return m_videoPositionSlider; }
    FractionSlider* volumeSlider() const { return m_volumeSlider; }

    void showPlaying(bool playing);
    void showSpeed(double speed);
    void showScale(double scale);
    void showTime(std::int64_t timeMs, std::int64_t lengthMs);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QHBoxLayout* m_row;
    std::vector<QList<QWidget*>> m_givingWay; ///< in a narrow window; the menu has their commands
    ImageButton* m_playButton;
    FractionSlider* m_videoPositionSlider;
    FractionSlider* m_volumeSlider;
    QLabel* m_speedTextButton;
    QLabel* m_sizeTextButton;
    QLabel* m_timeText;
    QLabel* m_lengthText;
};

} // namespace marvo
