// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/VideoView.h"

#include <QPainter>
#include <QPaintEvent>

#include <utility>

namespace marvo {

VideoView::VideoView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent); // every pixel is painted: no background is drawn first
}

void VideoView::setImage(QImage image)
{
    m_image = std::move(image);
    update();
}

QImage VideoView::takeImage() { return std::exchange(m_image, QImage()); }

void VideoView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (m_image.isNull()) {
        painter.fillRect(event->rect(), Qt::black);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), m_image);
}

} // namespace marvo
