// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/PartImages.h"

#include "controls/ImageNamed.h"

#include <QPainter>

namespace marvo {

namespace {

QSize sizeOf(const QPixmap& pixmap) { return pixmap.deviceIndependentSize().toSize(); }

} // namespace

void drawNinePartImage(QPainter& painter, const QRect& rect, const NinePartImage& image)
{
    const int left = sizeOf(image.topLeft).width();
    const int top = sizeOf(image.topLeft).height();
    const int right = sizeOf(image.bottomRight).width();
    const int bottom = sizeOf(image.bottomRight).height();
    const QRect inner = rect.adjusted(left, top, -right, -bottom);
    const int farX = rect.right() + 1 - right;
    const int farY = rect.bottom() + 1 - bottom;

    if (inner.width() > 0) {
        painter.drawTiledPixmap(QRect(inner.left(), rect.top(), inner.width(), top), image.topEdge);
        painter.drawTiledPixmap(QRect(inner.left(), farY, inner.width(), bottom), image.bottomEdge);
    }
    if (inner.height() > 0) {
        painter.drawTiledPixmap(QRect(rect.left(), inner.top(), left, inner.height()), image.leftEdge);
        painter.drawTiledPixmap(QRect(farX, inner.top(), right, inner.height()), image.rightEdge);
    }
    if (inner.isValid())
        painter.drawTiledPixmap(inner, image.center);
    painter.drawPixmap(rect.topLeft(), image.topLeft);
    painter.drawPixmap(QPoint(farX, rect.top()), image.topRight);
    painter.drawPixmap(QPoint(rect.left(), farY), image.bottomLeft);
    painter.drawPixmap(QPoint(farX, farY), image.bottomRight);
}

void ThreePartImageBox::setImageNames(const QString& left, const QString& middle, const QString& right)
{
    m_left = left;
    m_middle = middle;
    m_right = right;
    update();
}

void ThreePartImageBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const qreal ratio = devicePixelRatioF();
    const QPixmap left = imageNamed(m_left, ratio);
    const QPixmap right = imageNamed(m_right, ratio);
    const int leftWidth = sizeOf(left).width();
    const int rightWidth = sizeOf(right).width();
    painter.drawTiledPixmap(QRect(0, 0, leftWidth, height()), left);
    painter.drawTiledPixmap(QRect(width() - rightWidth, 0, rightWidth, height()), right);
    painter.drawTiledPixmap(QRect(leftWidth, 0, width() - leftWidth - rightWidth, height()),
                            imageNamed(m_middle, ratio));
}

} // namespace marvo
