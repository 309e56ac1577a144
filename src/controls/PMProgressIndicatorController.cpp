// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/PMProgressIndicatorController.h"

#include "controls/PMProgressIndicator.h"

#include <QApplication>
#include <QPointer>

#include <algorithm>

namespace marvo {

namespace {

constexpr int pictureSize = 128; ///< every drawing is sent to the desktop, so the largest icon would be slow

QPointer<PMProgressIndicatorController>& instance()
{
    static QPointer<PMProgressIndicatorController> shared;
    return shared;
}

} // namespace

PMProgressIndicatorController& PMProgressIndicatorController::sharedInstance()
{
    if (!instance())
        instance() = new PMProgressIndicatorController(qApp);
    return *instance();
}

PMProgressIndicatorController* PMProgressIndicatorController::existingInstance() { return instance(); }

PMProgressIndicatorController::PMProgressIndicatorController(QObject* parent)
    : QObject(parent),
      m_dockIcon(QApplication::windowIcon()),
      m_iconPicture(m_dockIcon.pixmap(QSize(pictureSize, pictureSize), 1.0)),
      m_images(IconBarImages::load())
{
    if (m_iconPicture.isNull()) {
        m_iconPicture = QPixmap(pictureSize, pictureSize);
        m_iconPicture.fill(Qt::transparent);
    }
    m_redraw.setSingleShot(true);
    m_redraw.setInterval(redrawDelay);
    connect(&m_redraw, &QTimer::timeout, this, &PMProgressIndicatorController::drawProgressIndicators);
}

void PMProgressIndicatorController::addProgressIndicator(const PMProgressIndicator& indicator)
{
    if (!isListed(indicator))
        m_progressIndicators.push_back(&indicator);
    redrawSoon();
}

void PMProgressIndicatorController::removeProgressIndicator(const PMProgressIndicator& indicator)
{
    if (std::erase(m_progressIndicators, &indicator) != 0)
        redrawSoon();
}

void PMProgressIndicatorController::progressIndicatorChanged(const PMProgressIndicator& indicator)
{
    if (isListed(indicator))
        redrawSoon();
}

bool PMProgressIndicatorController::isListed(const PMProgressIndicator& indicator) const
{
    return std::ranges::find(m_progressIndicators, &indicator) != m_progressIndicators.end();
}

void PMProgressIndicatorController::redrawSoon()
{
    if (!m_redraw.isActive())
        m_redraw.start();
}

void PMProgressIndicatorController::drawProgressIndicators()
{
    m_redraw.stop();
    std::vector<IconBar> bars;
    std::optional<double> known;
    bool moving = false;
    for (const PMProgressIndicator* indicator : m_progressIndicators) {
        const IconBar bar{.fraction = indicator->isIndeterminate() ? std::nullopt
                                                                   : std::optional(indicator->fraction())};
        moving = moving || !bar.fraction;
        if (!known)
            known = bar.fraction;
        bars.push_back(bar);
    }
    announce(known);
    if (bars.empty()) {
        restoreIcon();
        return;
    }
    const double offset = moving ? m_barberPole.spin(std::chrono::steady_clock::now()) : 0;
    QApplication::setWindowIcon(QIcon(iconWithBars(m_iconPicture, bars, m_images, offset)));
    m_plain = false;
    if (moving)
        m_redraw.start();
}

void PMProgressIndicatorController::restoreIcon()
{
    if (!m_plain)
        QApplication::setWindowIcon(m_dockIcon);
    m_plain = true;
}

void PMProgressIndicatorController::announce(std::optional<double> fraction)
{
    if (fraction == m_announced)
        return;
    m_announced = fraction;
    if (m_announcer)
        m_announcer(fraction);
}

} // namespace marvo
