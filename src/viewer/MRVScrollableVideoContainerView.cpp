// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/MRVScrollableVideoContainerView.h"

namespace marvo {

MRVScrollableVideoContainerView::MRVScrollableVideoContainerView(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("videoContainerView"));
    updateTrackingAreas();
}

void MRVScrollableVideoContainerView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateTrackingAreas();
}

void MRVScrollableVideoContainerView::updateTrackingAreas()
{
    m_mouseTrackingArea = rect().adjusted(-trackingMargin, -trackingMargin, trackingMargin, trackingMargin);
}

} // namespace marvo
