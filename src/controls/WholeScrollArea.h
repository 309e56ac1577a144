// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace marvo {

/// A scroll area without frame and background whose preferred size is its widget's, so that it scrolls only
/// where there is too little room.
class WholeScrollArea : public QScrollArea
{
    Q_OBJECT
public:
    explicit WholeScrollArea(QWidget* parent = nullptr);

    /// As with the base class, but the widget gets no background.
    void setWidget(QWidget* widget);
    /// The widget's own size, however large.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};

} // namespace marvo
