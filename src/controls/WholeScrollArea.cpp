// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/WholeScrollArea.h"

#include <QScrollBar>

namespace marvo {

namespace {

constexpr QSize leastSize(320, 160);

} // namespace

WholeScrollArea::WholeScrollArea(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus); // its controls are the tab stops
    viewport()->setAutoFillBackground(false);
}

void WholeScrollArea::setWidget(QWidget* widget)
{
    QScrollArea::setWidget(widget);
    widget->setAutoFillBackground(false);
}

QSize WholeScrollArea::sizeHint() const
{
    if (!widget())
        return QScrollArea::sizeHint();
    // With room for the vertical bar, so that it does not cause a horizontal one.
    return widget()->sizeHint().expandedTo(widget()->minimumSize()) +
           QSize(verticalScrollBar()->sizeHint().width(), 0);
}

QSize WholeScrollArea::minimumSizeHint() const { return leastSize.boundedTo(sizeHint()); }

} // namespace marvo
