// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/IconProgress.h"

#include "controls/ImageNamed.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {

constexpr double barHeight = 14; ///< leaves a line of the icon between two bars
constexpr double stripeUnits = 32;
constexpr double stripesPerSecond = 48;
constexpr qreal imageRatio = 2; ///< the pictures are twice the icon's base size

/// A part of a picture, or a plain colour without one. Positions are in units of the icon.
void drawPart(QPainter& painter, const QRectF& place, const QPixmap& image, double fromX, QColor fallback)
{
    if (place.width() <= 0)
        return;
    if (image.isNull()) {
        painter.fillRect(place, fallback);
        return;
    }
    const double ratio = image.devicePixelRatio();
    painter.drawPixmap(place, image, QRectF(fromX * ratio, 0, place.width() * ratio, image.height()));
}

} // namespace

IconBarImages IconBarImages::load()
{
    return {.blueBar = imageNamed(QStringLiteral("blueProgress"), imageRatio),
            .greyBar = imageNamed(QStringLiteral("greyProgress"), imageRatio),
            .barberBar = imageNamed(QStringLiteral("barberProgress"), imageRatio)};
}

double BarberPole::spin(TimePoint now)
{
    if (m_lastSpin) {
        const std::chrono::duration<double> passed = now - *m_lastSpin;
        m_offset -= stripesPerSecond * std::fmod(std::max(passed.count(), 0.0), 1);
        while (m_offset < 0)
            m_offset += stripeUnits;
    }
    m_lastSpin = now;
    return m_offset;
}

QPixmap iconWithBars(const QPixmap& icon, const std::vector<IconBar>& bars, const IconBarImages& images,
                     double barberOffset)
{
    const QColor blue(0x56, 0xb8, 0xe6);
    const QColor grey(0x3b, 0x45, 0x53);
    QPixmap drawn = icon;
    drawn.setDevicePixelRatio(1);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(drawn.width() / iconUnits, drawn.height() / iconUnits);
    for (std::size_t row = 0; row < bars.size(); ++row) {
        const QRectF bar(0, iconUnits - iconRowHeight * double(row) - barHeight, iconUnits, barHeight);
        if (!bars[row].fraction) {
            drawPart(painter, bar, images.barberBar, barberOffset, blue);
            continue;
        }
        const double done = std::clamp(*bars[row].fraction, 0.0, 1.0) * iconUnits;
        drawPart(painter, QRectF(bar.topLeft(), QSizeF(done, barHeight)), images.blueBar, 0, blue);
        drawPart(painter, bar.adjusted(done, 0, 0, 0), images.greyBar, done, grey);
    }
    painter.end();
    drawn.setDevicePixelRatio(icon.devicePixelRatio());
    return drawn;
}

} // namespace marvo
