// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MediaControlBox.h"

#include "controls/FractionSlider.h"
#include "controls/ImageButton.h"
#include "controls/ImageNamed.h"
#include "texts/Localisation.h"
#include "texts/PlayTimeText.h"
#include "viewer/FittingRow.h"
#include "viewer/MainWindowCommands.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace marvo {

namespace {

constexpr int playButtonSize = 38;
constexpr int buttonSize = 32;
constexpr int stepButtonSize = 26;

ImageButton* commandButton(const MainWindowCommands& commands, Command command, const char* image, int size,
                           QWidget* parent)
{
    QAction* action = commands.action(command);
    auto* button = new ImageButton(QLatin1StringView(image), action->text(), parent);
    button->setObjectName(action->objectName() + QStringLiteral("Button"));
    button->setCommand(action);
    button->setFixedSize(size, size);
    return button;
}

QLabel* captionImage(const char* image, const char* tipKey, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setPixmap(imageNamed(QLatin1StringView(image), parent->devicePixelRatioF()));
    label->setToolTip(localised(tipKey));
    label->setAccessibleName(localised(tipKey));
    return label;
}

QLabel* valueText(const char* name, const char* widestText, const char* tipKey, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QLatin1StringView(name));
    label->setAlignment(Qt::AlignCenter);
    label->setToolTip(localised(tipKey));
    label->setAccessibleName(localised(tipKey));
    label->setProperty("valueText", true);
    label->ensurePolished();
    label->setFixedWidth(label->fontMetrics().horizontalAdvance(QLatin1StringView(widestText)) + 4);
    return label;
}

} // namespace

MediaControlBox::MediaControlBox(const MainWindowCommands& commands, QWidget* parent)
    : QWidget(parent),
      m_row(new QHBoxLayout),
      m_playButton(commandButton(commands, Command::ClickPlayButton, "icon_play_n", playButtonSize, this)),
      m_videoPositionSlider(new FractionSlider(1.0, 0.01, 0.1, FractionSlider::Keys::HomeEndPages, this)),
      m_volumeSlider(new FractionSlider(200, 5, 20, FractionSlider::Keys::All, this)),
      m_speedTextButton(valueText("speedTextButton", "2.0x", "viewer.control.speed", this)),
      m_sizeTextButton(valueText("sizeTextButton", "00.00x", "viewer.control.size", this)),
      m_timeText(valueText("timeText", "0:00:00", "viewer.control.time", this)),
      m_lengthText(valueText("lengthText", "0:00:00", "viewer.control.length", this))
{
    setObjectName(QStringLiteral("mediaControlBox"));
    setAttribute(Qt::WA_StyledBackground);
    m_playButton->setObjectName(QStringLiteral("playButton"));
    m_timeText->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_lengthText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_videoPositionSlider->setObjectName(QStringLiteral("videoPositionSlider"));
    m_videoPositionSlider->setAccessibleName(localised("viewer.control.position"));
    m_volumeSlider->setObjectName(QStringLiteral("volumeSlider"));
    m_volumeSlider->setAccessibleName(localised("viewer.control.volume"));
    m_volumeSlider->setFixedWidth(112);

    auto* position = new QHBoxLayout;
    position->setSpacing(6);
    position->addWidget(m_timeText);
    position->addWidget(m_videoPositionSlider, 1);
    position->addWidget(m_lengthText);

    QHBoxLayout* row = m_row;
    row->setSpacing(2);
    // Adds widgets that give way together.
    const auto addGroup = [row](const QList<QWidget*>& widgets) {
        for (QWidget* widget : widgets)
            row->addWidget(widget);
        return widgets;
    };
    const auto backward =
        addGroup({commandButton(commands, Command::JumpBackward, "icon_jump_backward", buttonSize, this)});
    row->addWidget(m_playButton);
    const auto forward =
        addGroup({commandButton(commands, Command::JumpForward, "icon_jump_forward", buttonSize, this)});
    row->addStretch(1);
    const auto speed =
        addGroup({captionImage("icon_speed", "viewer.control.speed", this),
                  commandButton(commands, Command::DecreaseSpeed, "icon_minus", stepButtonSize, this),
                  m_speedTextButton,
                  commandButton(commands, Command::IncreaseSpeed, "icon_plus", stepButtonSize, this)});
    row->addStretch(1);
    const auto size = addGroup(
        {captionImage("icon_size", "viewer.control.size", this),
         commandButton(commands, Command::SizeDown, "icon_minus", stepButtonSize, this), m_sizeTextButton,
         commandButton(commands, Command::SizeUp, "icon_plus", stepButtonSize, this)});
    row->addStretch(1);
    const auto capture =
        addGroup({commandButton(commands, Command::CaptureVideo, "icon_capture", buttonSize, this)});
    const auto print = addGroup({commandButton(commands, Command::Print, "icon_print", buttonSize, this)});
    const auto fullScreen =
        addGroup({commandButton(commands, Command::ToggleFullScreen, "icon_fullscreen", buttonSize, this)});
    row->addStretch(1);
    const auto volume =
        addGroup({captionImage("icon_volume", "viewer.control.volume", this), m_volumeSlider});
    m_givingWay = {size, print, speed, volume, capture, fullScreen, forward, backward};
    // The Tab key goes as the eye does, not in the order in which the controls were made.
    QWidget* before = m_videoPositionSlider;
    for (int i = 0; i < row->count(); ++i) {
        QWidget* next = row->itemAt(i)->widget();
        if (!next || !(next->focusPolicy() & Qt::TabFocus))
            continue;
        setTabOrder(before, next);
        before = next;
    }

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(12, 4, 12, 4);
    column->setSpacing(2);
    column->addLayout(position);
    column->addLayout(row);

    showSpeed(1.0);
    showScale(0);
    showTime(0, 0);
}

void MediaControlBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const QMargins margins = layout()->contentsMargins();
    showWhatFits(*m_row, width() - margins.left() - margins.right(), m_givingWay);
}

void MediaControlBox::showPlaying(bool playing)
{
    m_playButton->setImageName(playing ? QStringLiteral("icon_pause_n") : QStringLiteral("icon_play_n"));
}

void MediaControlBox::showSpeed(double speed)
{
    m_speedTextButton->setText(QString::asprintf("%.1fx", speed));
}

void MediaControlBox::showScale(double scale)
{
    m_sizeTextButton->setText(scale > 0 ? QString::asprintf("%.2fx", scale) : QStringLiteral("–"));
}

void MediaControlBox::showTime(std::int64_t timeMs, std::int64_t lengthMs)
{
    const QString length = playTimeText(lengthMs);
    if (length.size() != m_lengthText->text().size()) {
        // Both as wide as the longest time of this recording, so that the slider does not move while it
        // plays.
        const int width =
            m_lengthText->fontMetrics().horizontalAdvance(QString(length.size(), QLatin1Char('0')));
        m_timeText->setFixedWidth(width);
        m_lengthText->setFixedWidth(width);
    }
    m_timeText->setText(playTimeText(timeMs));
    m_lengthText->setText(length);
}

} // namespace marvo
