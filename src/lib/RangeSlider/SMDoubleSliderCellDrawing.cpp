// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
// How the double slider's cell draws itself.
#include "lib/RangeSlider/SMDoubleSliderCell.h"

#include <algorithm>
#include <cmath>
#include <QPainter>

namespace marvo {

namespace {

constexpr double focusRingWidth = 1.5;
constexpr double disabledOpacity = 0.35;
constexpr int highlightAlpha = 110;

/// The picture's shape in one colour.
QPixmap tinted(const QPixmap& image, const QColor& color)
{
    QPixmap shape = image;
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF(QPointF(), image.deviceIndependentSize()), color);
    return shape;
}

/// Draws upright also where the y axis runs up.
void drawUpright(QPainter& painter, const QRectF& rect, const QPixmap& image, const QRectF& source, Flip flip)
{
    painter.save();
    if (flip == Flip::Unflipped) {
        painter.translate(0, rect.top() + rect.bottom());
        painter.scale(1, -1);
    }
    painter.drawPixmap(rect, image, source);
    painter.restore();
}

/// Fills a rectangle with a strip of three pictures side by side: the outer ones at their own width, the
/// middle one repeated. All are stretched to the rectangle's height.
void drawThreePartImage(QPainter& painter, const QRectF& rect, const QPixmap& startCap,
                        const QPixmap& centerFill, const QPixmap& endCap, Flip flip)
{
    const auto drawPart = [&](const QPixmap& image, double left, double right) {
        const QSizeF size = image.deviceIndependentSize();
        const double ratio = image.devicePixelRatio();
        for (double x = left; x < right; x += size.width()) {
            const double width = std::min(size.width(), right - x);
            drawUpright(painter, QRectF(x, rect.y(), width, rect.height()), image,
                        QRectF(0, 0, width * ratio, size.height() * ratio), flip);
        }
    };
    const double innerLeft = std::min(rect.left() + startCap.deviceIndependentSize().width(), rect.right());
    const double innerRight = std::max(rect.right() - endCap.deviceIndependentSize().width(), innerLeft);
    drawPart(startCap, rect.left(), innerLeft);
    drawPart(centerFill, innerLeft, innerRight);
    drawPart(endCap, innerRight, rect.right());
}

} // namespace

void SMDoubleSliderCell::setKnobLeftImage(const QPixmap& image)
{
    m_knobLeftImage = image;
    redraw(frame());
}

void SMDoubleSliderCell::setKnobRightImage(const QPixmap& image)
{
    m_knobRightImage = image;
    redraw(frame());
}

void SMDoubleSliderCell::setBarFillImage(const QPixmap& image)
{
    m_barFillImage = image;
    redraw(frame());
}

void SMDoubleSliderCell::draw(QPainter& painter, const QPalette& palette, Flip flip)
{
    setPalette(palette);
    drawBar(painter, barRect(), flip);
    for (const Drag knob : {Drag::Low, Drag::High}) {
        const bool low = knob == Drag::Low;
        m_currentKnobImage = low ? m_knobLeftImage : m_knobRightImage;
        m_drawingActiveKnob = low == m_trackingLoKnob;
        setHighlighted(m_drag == knob);
        drawKnob(painter, knobRect(low ? doubleLoValue() : doubleHiValue(), flip));
    }
    setHighlighted(false);
    m_currentKnobImage = QPixmap();
}

void SMDoubleSliderCell::drawBar(QPainter& painter, const QRectF& bar, Flip flip)
{
    m_barRect = bar;
    m_barFlip = flip;
    if (m_barFillImage.isNull())
        SliderCell::drawBar(painter, bar, flip);
    else
        drawThreePartImage(painter, bar, m_barFillImage, m_barFillImage, m_barFillImage, flip);
}

QPointF SMDoubleSliderCell::knobImageOrigin(const QRectF& knob, QSizeF imageSize) const
{
    const double barWidth = m_barRect.width();
    const double knobX = knob.x() - m_barRect.x();
    double x = knobX;
    if (barWidth > 0)
        x = (barWidth - (imageSize.width() - knob.width())) * knobX / barWidth;
    return {m_barRect.x() + x, imageSize.height() + knob.y()};
}

void SMDoubleSliderCell::drawKnob(QPainter& painter, const QRectF& knob)
{
    if (m_knobLeftImage.isNull() || m_knobRightImage.isNull()) {
        SliderCell::drawKnob(painter, knob);
        if (m_focused && m_drawingActiveKnob) {
            painter.save();
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(palette().color(QPalette::Highlight), focusRingWidth));
            painter.drawRoundedRect(knob.adjusted(1, 1, -1, -1), 5, 5);
            painter.restore();
        }
        return;
    }
    Q_ASSERT_X(!m_currentKnobImage.isNull(), "SMDoubleSliderCell", "_currentKnobImage != nil");
    // The origin is the picture's lower left corner: on a flipped surface its top lies a picture's height
    // less far down. Whole pixels keep it sharp.
    const QSizeF size = m_currentKnobImage.deviceIndependentSize();
    const QPointF origin = knobImageOrigin(knob, size);
    const double top = m_barFlip == Flip::Flipped ? origin.y() - size.height() : origin.y();
    const double ratio = painter.device()->devicePixelRatioF();
    drawKnobImage(
        painter,
        QRectF(QPointF(std::round(origin.x() * ratio) / ratio, std::round(top * ratio) / ratio), size));
}

void SMDoubleSliderCell::drawKnobImage(QPainter& painter, const QRectF& target) const
{
    const QRectF source(QPointF(), QSizeF(m_currentKnobImage.size()));
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (m_focused && m_drawingActiveKnob) {
        const QPixmap ring = tinted(m_currentKnobImage, palette().color(QPalette::Highlight));
        for (const double dx : {-focusRingWidth, 0.0, focusRingWidth}) {
            for (const double dy : {-focusRingWidth, 0.0, focusRingWidth})
                drawUpright(painter, target.translated(dx, dy), ring, source, m_barFlip);
        }
    }
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    drawUpright(painter, target, m_currentKnobImage, source, m_barFlip);
    if (isHighlighted())
        drawUpright(painter, target, tinted(m_currentKnobImage, QColor(255, 255, 255, highlightAlpha)),
                    source, m_barFlip);
    painter.restore();
}

} // namespace marvo
