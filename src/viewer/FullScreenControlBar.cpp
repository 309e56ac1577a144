// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/FullScreenControlBar.h"

#include "controls/FractionSlider.h"
#include "controls/ImageButton.h"
#include "texts/Localisation.h"
#include "texts/PlayTimeText.h"
#include "viewer/MainWindowCommands.h"
#include "viewer/MediaControlBox.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>

namespace marvo {

FullScreenControlBar::FullScreenControlBar(const MainWindowCommands& commands, QWidget* parent)
    : ThreePartImageBox(parent),
      m_playButton(nullptr),
      m_videoPositionSlider(new FractionSlider(1.0, 0.01, 0.1, FractionSlider::Keys::HomeEndPages, this)),
      m_timeText(new QLabel(this))
{
    setObjectName(QStringLiteral("mediaControlBoxForFullScreen"));
    m_videoPositionSlider->setObjectName(QStringLiteral("videoPositionSliderForFullScreen"));
    m_videoPositionSlider->setAccessibleName(localised("viewer.control.position"));
    m_timeText->setObjectName(QStringLiteral("timeTextForFullScreen"));
    m_timeText->setProperty("valueText", true);

    const auto button = [&](Command command, const char* image) {
        QAction* action = commands.action(command);
        auto* made = new ImageButton(QLatin1StringView(image), action->text(), this);
        made->setObjectName(action->objectName() + QStringLiteral("ButtonForFullScreen"));
        made->setCommand(action);
        made->setFixedSize(32, 28);
        return made;
    };
    m_playButton = button(Command::ClickPlayButton, "icon_play_bar");

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(10, 0, 10, 0);
    row->setSpacing(4);
    row->addWidget(button(Command::JumpBackward, "icon_jump_backward"));
    row->addWidget(m_playButton);
    row->addWidget(button(Command::JumpForward, "icon_jump_forward"));
    row->addSpacing(6);
    row->addWidget(m_videoPositionSlider, 1);
    row->addSpacing(6);
    row->addWidget(m_timeText);
    row->addSpacing(6);
    row->addWidget(button(Command::ToggleFullScreen, "icon_window"));
    // The slider was made first, but stands between the buttons.
    setTabOrder(row->itemAt(0)->widget(), row->itemAt(1)->widget());
    setTabOrder(row->itemAt(1)->widget(), row->itemAt(2)->widget());
    setTabOrder(row->itemAt(2)->widget(), m_videoPositionSlider);
    setTabOrder(m_videoPositionSlider, row->itemAt(row->count() - 1)->widget());
    showTime(0, 0);
}

void FullScreenControlBar::showPlaying(bool playing)
{
    m_playButton->setImageName(playing ? QStringLiteral("icon_pause_bar") : QStringLiteral("icon_play_bar"));
}

void FullScreenControlBar::showTime(std::int64_t timeMs, std::int64_t lengthMs)
{
    m_timeText->setText(QStringLiteral("%1 / %2").arg(playTimeText(timeMs), playTimeText(lengthMs)));
}

} // namespace marvo
