// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/LoadingIndicator.h"

#include "controls/PMProgressIndicator.h"

#include <QWidget>

namespace marvo {

namespace {

constexpr double tickSeconds = 0.3;
constexpr double giveUpSeconds = 15.0;

} // namespace

LoadingIndicator::LoadingIndicator(PMProgressIndicator& indicator, std::chrono::milliseconds interval)
    : QObject(&indicator), m_indicator(indicator)
{
    m_tick.setSingleShot(true);
    m_tick.setInterval(interval);
    connect(&m_tick, &QTimer::timeout, this, [this] { updateLoadingWindow(giveUpSeconds); });
    m_indicator.hide();
}

void LoadingIndicator::showLoading(const QString& text)
{
    m_indicator.setIndeterminate(true);
    m_indicator.setAccessibleName(text);
    m_stopVideoLoadingView = false;
    m_progress = 0;
    m_indicator.setDoubleValue(m_indicator.minValue());
    const int x = (m_indicator.parentWidget()->width() - m_indicator.width()) / 2;
    m_indicator.move(x, (m_indicator.parentWidget()->height() - m_indicator.height()) / 2);
    m_indicator.show();
    m_indicator.raise();
    m_indicator.startAnimation();
    m_tick.start(); // a chain of ticks that still runs begins anew: two never run side by side
}

void LoadingIndicator::updateLoadingWindow(double seconds)
{
    m_progress += 100 / (seconds / tickSeconds);
    m_indicator.setDoubleValue(m_progress);
    if (m_progress < 100 && !m_stopVideoLoadingView) {
        m_tick.start();
        return;
    }
    m_indicator.setDoubleValue(m_indicator.minValue());
    m_indicator.stopAnimation();
    m_indicator.hide();
    m_stopVideoLoadingView = true;
}

} // namespace marvo
