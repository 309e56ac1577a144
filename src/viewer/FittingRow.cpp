// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/FittingRow.h"

#include <QHBoxLayout>
#include <QWidget>

#include <algorithm>

namespace marvo {

namespace {

/// What a widget of the row takes with the gap behind it, whether or not it is shown now.
int roomOf(const QWidget& widget, int spacing)
{
    const QSize size = widget.sizeHint().expandedTo(widget.minimumSize()).boundedTo(widget.maximumSize());
    return size.width() + spacing;
}

} // namespace

void showWhatFits(const QHBoxLayout& row, int width, const std::vector<QList<QWidget*>>& givingWay)
{
    const QMargins margins = row.contentsMargins();
    int needed = margins.left() + margins.right() - row.spacing();
    for (int i = 0; i < row.count(); ++i) {
        const QLayoutItem* item = row.itemAt(i);
        if (const QWidget* widget = const_cast<QLayoutItem*>(item)->widget())
            needed += roomOf(*widget, row.spacing());
        else
            needed += item->minimumSize().width();
    }
    for (const QList<QWidget*>& group : givingWay) {
        const bool gives = needed > width;
        for (QWidget* widget : group) {
            if (gives)
                needed -= roomOf(*widget, row.spacing());
            widget->setVisible(!gives);
        }
    }
}

} // namespace marvo
