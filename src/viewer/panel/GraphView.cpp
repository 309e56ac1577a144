// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/panel/GraphView.h"

#include "support/FixedText.h"
#include "texts/Localisation.h"
#include "viewer/panel/GraphTrace.h"

#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {

constexpr double lineThickness = 1;
constexpr double cursorThickness = 2;
constexpr double keyStep = 0.01;
constexpr double keyPage = 0.1;

/// Moves the edges of a rectangle to whole device pixels, its thickness kept, so that thin lines are sharp at
/// every scale of the screen.
QRectF snapped(QRectF rect, double ratio)
{
    const auto snap = [ratio](double length) { return std::round(length * ratio) / ratio; };
    const auto thickness = [&](double length) { return std::max(snap(length), 1 / ratio); };
    return {snap(rect.x()), snap(rect.y()), thickness(rect.width()), thickness(rect.height())};
}

QFont labelFont()
{
    QFont font(QStringLiteral("Helvetica"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(12);
    return font;
}

/// Draws a label that ends two points left of a point, its middle two points above it.
void drawString(QPainter& painter, const QString& text, QPointF point)
{
    const QFontMetricsF metrics(painter.font());
    const double x = point.x() - (metrics.horizontalAdvance(text) + 2);
    const double bottom = point.y() + (metrics.height() * 0.5 - 2);
    painter.drawText(QPointF(x, bottom - metrics.descent()), text);
}

void drawBackground(QPainter& painter, const GraphGeometry& geometry, double ratio)
{
    const QRectF& area = geometry.area;
    const QColor gridColor = QColor::fromRgbF(0.8F, 0.8F, 0.8F);
    for (int g = -2; g <= 2; ++g) {
        const QRectF line(area.left(), geometry.yOf(g) - lineThickness, area.width(), lineThickness);
        painter.fillRect(snapped(line, ratio), gridColor);
    }
    painter.fillRect(snapped({area.left(), area.top(), lineThickness, area.height()}, ratio), gridColor);
    painter.setPen(Qt::white);
    painter.setFont(labelFont());
    for (int g = -2; g <= 2; ++g) {
        const QString sign = g > 0 ? QStringLiteral("+") : QString();
        drawString(painter, sign + QString::number(g), {area.left(), geometry.yOf(g)});
    }
}

} // namespace

GraphView::GraphView(QWidget* parent) : QWidget(parent)
{
    installAccessibleValues();
    setObjectName(QStringLiteral("graphView"));
    setAccessibleName(localised("viewer.gsensor.graph"));
    setFocusPolicy(Qt::TabFocus); // a click seeks, and leaves the focus with the recording list
}

void GraphView::setGraphData(std::span<const MRVGSensor> samples)
{
    m_values = samples;
    m_dragging = false;
    m_picture = {};
    update();
}

void GraphView::updateTimePosition(double positionFraction)
{
    if (std::isnan(positionFraction))
        return;
    const QRectF before = cursorRect(m_timePosition);
    m_timePosition = std::clamp(positionFraction, 0.0, 1.0);
    const QRectF after = cursorRect(m_timePosition);
    if (m_values.empty() || before == after)
        return;
    update(before.toAlignedRect());
    update(after.toAlignedRect());
    announceValue(*this, m_timePosition);
}

AccessibleValue GraphView::accessibleValue() const
{
    const QString percent = QString::fromStdString(fixedText(m_timePosition * 100, 0));
    return {.current = m_timePosition,
            .minimum = 0,
            .maximum = 1,
            .step = keyStep,
            .text = m_values.empty() ? localised("graph.no_data") : localised("graph.value").arg(percent)};
}

void GraphView::requestValue(double positionFraction)
{
    if (!m_values.empty() && !std::isnan(positionFraction))
        Q_EMIT seekRequested(std::clamp(positionFraction, 0.0, 1.0));
}

void GraphView::paintEvent(QPaintEvent* event)
{
    // Size and resolution may have changed since the picture was drawn.
    if (m_picture.size() != size() * devicePixelRatioF() ||
        m_picture.devicePixelRatio() != devicePixelRatioF())
        m_picture = drawnPicture();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    if (const QRectF cursor = cursorRect(m_timePosition);
        !m_values.empty() && event->rect().intersects(cursor.toAlignedRect()))
        painter.fillRect(cursor, Qt::white);
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void GraphView::mousePressEvent(QMouseEvent* event)
{
    const GraphGeometry geometry(size());
    m_dragging = event->button() == Qt::LeftButton && geometry.area.contains(event->position());
    if (!m_dragging) {
        event->ignore();
        return;
    }
    mouseMoveEvent(event);
}

void GraphView::mouseMoveEvent(QMouseEvent* event)
{
    const GraphGeometry geometry(size());
    if (m_dragging && !geometry.isEmpty())
        requestValue((event->position().x() - geometry.area.left()) / geometry.area.width());
}

void GraphView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_dragging = false;
}

void GraphView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_PageDown:
        return requestValue(m_timePosition - keyPage);
    case Qt::Key_PageUp:
        return requestValue(m_timePosition + keyPage);
    case Qt::Key_Home:
        return requestValue(0);
    case Qt::Key_End:
        return requestValue(1);
    default:
        QWidget::keyPressEvent(event);
    }
}

void GraphView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void GraphView::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

QPixmap GraphView::drawnPicture() const
{
    const double ratio = devicePixelRatioF();
    QImage image(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    const GraphGeometry geometry(size());
    if (!geometry.isEmpty()) {
        QPainter painter(&image);
        drawBackground(painter, geometry, ratio);
        painter.end();
        drawTraces(image, geometry, m_values);
    }
    return QPixmap::fromImage(std::move(image));
}

QRectF GraphView::cursorRect(double positionFraction) const
{
    const GraphGeometry geometry(size());
    const QRectF& area = geometry.area;
    return snapped({geometry.xOf(positionFraction), area.top(), cursorThickness, area.height()},
                   devicePixelRatioF());
}

} // namespace marvo
