// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/PMProgressIndicator.h"

#include "controls/PMProgressIndicatorController.h"
#include "support/FixedText.h"
#include "texts/Localisation.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace marvo {

namespace {

constexpr int tickMs = 33;
constexpr double glideSeconds = 1.6; ///< duration of one pass
constexpr double lightWidth = 0.35;  ///< fraction of the bar
constexpr double mostThickness = 6;
constexpr float trackOpacity = 0.16F;

/// The integer part of a value, kept within 32 bits.
std::int32_t integerPart(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<double>(value, Limits::min(), Limits::max()));
}

/// The light of an indeterminate bar: bright in its middle, fading to both sides.
QLinearGradient light(const QRectF& bar, double passage, QColor color)
{
    const double width = bar.width() * lightWidth;
    const double left = bar.left() - width + (bar.width() + width) * passage;
    QLinearGradient gradient(left, 0, left + width, 0);
    QColor faded = color;
    faded.setAlpha(0);
    gradient.setColorAt(0, faded);
    gradient.setColorAt(0.5, color);
    gradient.setColorAt(1, faded);
    return gradient;
}

} // namespace

PMProgressIndicator::PMProgressIndicator(QWidget* parent, Clock clock)
    : QWidget(parent), m_clock(std::move(clock)), m_animationStart(m_clock())
{
    installAccessibleValues();
    setAccessibleName(localised("progress.name"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

PMProgressIndicator::~PMProgressIndicator()
{
    if (auto* icon = PMProgressIndicatorController::existingInstance())
        icon->removeProgressIndicator(*this);
}

void PMProgressIndicator::setDrawDockProgress(bool draw)
{
    m_drawDockProgress = draw;
    auto& icon = PMProgressIndicatorController::sharedInstance();
    if (draw)
        icon.addProgressIndicator(*this);
    else
        icon.removeProgressIndicator(*this);
}

void PMProgressIndicator::updateDock()
{
    constexpr double nearly = 0.00001;
    const double done = fraction();
    auto& icon = PMProgressIndicatorController::sharedInstance();
    if (done > 1 - nearly || done < nearly)
        icon.removeProgressIndicator(*this);
    else
        icon.addProgressIndicator(*this);
}

/// Redraws without a new value: the bar is neither put on the icon nor removed.
void PMProgressIndicator::redrawDock() const
{
    if (auto* icon = PMProgressIndicatorController::existingInstance())
        icon->progressIndicatorChanged(*this);
}

void PMProgressIndicator::setMinValue(double minimum)
{
    m_progress.minimum = minimum;
    m_progress.value = std::max(m_progress.value, minimum);
    redrawDock();
    update();
}

void PMProgressIndicator::setMaxValue(double maximum)
{
    m_progress.maximum = maximum;
    m_progress.value = std::min(m_progress.value, maximum);
    redrawDock();
    update();
}

void PMProgressIndicator::setDoubleValue(double value)
{
    if (std::isnan(value) || integerPart(value) == m_lastValue)
        return;
    m_progress.value = std::max(std::min(value, m_progress.maximum), m_progress.minimum);
    m_lastValue = integerPart(value);
    if (m_drawDockProgress)
        updateDock();
    updateProgressText();
    update();
    announceValue(*this, m_progress.value);
}

void PMProgressIndicator::setIndeterminate(bool indeterminate)
{
    m_indeterminate = indeterminate;
    redrawDock();
    runAnimation();
    update();
}

void PMProgressIndicator::startAnimation()
{
    m_animating = true;
    m_animationStart = m_clock();
    runAnimation();
}

void PMProgressIndicator::stopAnimation()
{
    m_animating = false;
    runAnimation();
    update();
}

void PMProgressIndicator::updateProgressText()
{
    if (!m_progressText)
        return;
    if (m_indeterminate) {
        m_progressText->clear();
        return;
    }
    if (m_estimate.update(m_progress, m_clock()))
        m_progressText->clear();
    const auto seconds = m_displayTimeRemaining ? m_estimate.remainingSeconds() : std::nullopt;
    const QString phrase = seconds ? ProgressEstimate::phrase(*seconds) : QString();
    if (m_displayPercentage && seconds)
        m_progressText->setText(localised("progress.completed_remaining").arg(percentageText(), phrase));
    else if (m_displayPercentage)
        m_progressText->setText(localised("progress.completed").arg(percentageText()));
    else if (seconds)
        m_progressText->setText(phrase);
}

AccessibleValue PMProgressIndicator::accessibleValue() const
{
    if (m_indeterminate)
        return {.text = localised("progress.busy")};
    return {.current = m_progress.value,
            .minimum = m_progress.minimum,
            .maximum = m_progress.maximum,
            .text = localised("progress.completed").arg(percentageText())};
}

void PMProgressIndicator::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double thickness = std::min<double>(height(), mostThickness);
    const QRectF bar(0, (height() - thickness) / 2, width(), thickness);
    QPainterPath track;
    track.addRoundedRect(bar, thickness / 2, thickness / 2);
    QColor trackColor = palette().color(QPalette::WindowText);
    trackColor.setAlphaF(trackOpacity);
    painter.fillPath(track, trackColor);

    const QColor color = palette().color(QPalette::Highlight);
    if (m_indeterminate) {
        const std::chrono::duration<double> running = m_clock() - m_animationStart;
        const double passage = m_animating ? std::fmod(running.count() / glideSeconds, 1) : 0.5;
        painter.fillPath(track, light(bar, passage, color));
        return;
    }
    const double done = bar.width() * std::clamp(m_progress.fraction(), 0.0, 1.0);
    if (done <= 0)
        return;
    // Clipped to the track, so that a short bar has the track's round end.
    painter.setClipPath(track);
    QPainterPath filled;
    filled.addRoundedRect(QRectF(bar.left() - thickness, bar.top(), done + thickness, thickness),
                          thickness / 2, thickness / 2);
    painter.fillPath(filled, color);
}

void PMProgressIndicator::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_ticks.timerId())
        update();
    else
        QWidget::timerEvent(event);
}

void PMProgressIndicator::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    runAnimation();
}

void PMProgressIndicator::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_ticks.stop();
}

QString PMProgressIndicator::percentageText() const
{
    return QString::fromStdString(fixedText(m_progress.fraction() * 100, 0));
}

/// Runs the timer only while a visible animation needs it.
void PMProgressIndicator::runAnimation()
{
    const bool moving = m_animating && m_indeterminate && isVisible();
    if (!moving)
        m_ticks.stop();
    else if (!m_ticks.isActive())
        m_ticks.start(tickMs, this);
}

} // namespace marvo
