// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/VideoView.h"

#include <QPainter>
#include <QPaintEvent>

#include <utility>

namespace marvo {

VideoView::VideoView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent); // every pixel is painted: no background is drawn first
}

void VideoView::setFrame(VideoFrame frame)
{
    m_frame = std::move(frame);
    m_hasChanged = true;
    update();
}

VideoFrame VideoView::takeFrame() { return std::exchange(m_frame, VideoFrame()); }

void VideoView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QSizeF onScreen = QSizeF(size()) * devicePixelRatioF();
    const QSize pixels = onScreen.toSize();
    // What lies over the picture has the view painted as well, with the frame that it has shown already.
    if (std::exchange(m_hasChanged, false) || m_paintedFor != pixels)
        m_picture = &m_converter.convert(m_frame, pixels);
    m_paintedFor = pixels;
    if (m_picture->isNull()) {
        painter.fillRect(event->rect(), Qt::black);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, QSizeF(m_picture->size()) != onScreen);
    painter.drawImage(rect(), *m_picture);
}

} // namespace marvo
