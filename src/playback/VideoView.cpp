// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "playback/VideoView.h"

#include <QPainter>
#include <QPaintEvent>

#include <algorithm>
#include <utility>

namespace marvo {

namespace {
constexpr double unseenStretch = 0.04; // nobody sees less
} // namespace

VideoView::VideoView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent); // every pixel is painted: no background is drawn first
}

void VideoView::setFrame(VideoFrame frame)
{
    m_frame = std::move(frame);
    if (const QSize size = m_frame.size(); !size.isEmpty())
        m_frameSize = size;
    m_hasChanged = true;
    update();
}

void VideoView::setKeepsProportions(bool keeps)
{
    if (std::exchange(m_keepsProportions, keeps) != keeps)
        update();
}

QRect VideoView::pictureRect() const
{
    const QSizeF picture(m_frameSize);
    if (!m_keepsProportions || picture.isEmpty() || size().isEmpty())
        return rect();
    const double wider = picture.width() * height() / (picture.height() * width());
    if (std::max(wider, 1 / wider) <= 1 + unseenStretch)
        return rect();
    QRect place({}, picture.scaled(size(), Qt::KeepAspectRatio).toSize());
    place.moveCenter(rect().center());
    return place;
}

VideoFrame VideoView::takeFrame() { return std::exchange(m_frame, VideoFrame()); }

void VideoView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect place = pictureRect();
    const QSizeF onScreen = QSizeF(place.size()) * devicePixelRatioF();
    const QSize pixels = onScreen.toSize();
    // Widgets over the picture make the view paint again with the same frame.
    if (std::exchange(m_hasChanged, false) || m_paintedFor != pixels)
        m_picture = &m_converter.convert(m_frame, pixels);
    m_paintedFor = pixels;
    if (m_picture->isNull()) {
        painter.fillRect(event->rect(), Qt::black);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, QSizeF(m_picture->size()) != onScreen);
    painter.drawImage(place, *m_picture);
    for (const QRect& bar : QRegion(rect()) - place)
        painter.fillRect(bar, Qt::black);
}

} // namespace marvo
