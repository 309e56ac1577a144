// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/TKVideoBackgroundImageView.h"

#include "controls/ImageNamed.h"

#include <QPainter>

namespace marvo {

TKVideoBackgroundImageView::TKVideoBackgroundImageView(QWidget* parent) : QWidget(parent) {}

void TKVideoBackgroundImageView::setBackgroundNineImageName(const QString& name)
{
    m_nineImageName = name;
    m_loadedRatio = 0;
    update();
}

void TKVideoBackgroundImageView::setLogoImage(const QString& name)
{
    m_logoName = name;
    m_loadedRatio = 0;
    update();
}

void TKVideoBackgroundImageView::loadImages()
{
    m_loadedRatio = devicePixelRatioF();
    const auto part = [this](const char* suffix) {
        return m_nineImageName.isEmpty()
                   ? QPixmap()
                   : imageNamed(m_nineImageName + QLatin1StringView(suffix), m_loadedRatio);
    };
    m_nineImage = {
        part("_top_left_corner"),    part("_top_edge_fill"),    part("_top_right_corner"),
        part("_left_edge_fill"),     part("_center_fill"),      part("_right_edge_fill"),
        part("_bottom_left_corner"), part("_bottom_edge_fill"), part("_bottom_right_corner"),
    };
    m_centerLogoImage = m_logoName.isEmpty() ? QPixmap() : imageNamed(m_logoName, m_loadedRatio);
}

void TKVideoBackgroundImageView::paintEvent(QPaintEvent*)
{
    if (m_loadedRatio != devicePixelRatioF())
        loadImages();
    QPainter painter(this);
    drawNinePartImage(painter, rect(), m_nineImage);
    const QSize logo = m_centerLogoImage.deviceIndependentSize().toSize();
    painter.drawPixmap((width() - logo.width()) / 2, (height() - logo.height()) / 2, m_centerLogoImage);
}

} // namespace marvo
