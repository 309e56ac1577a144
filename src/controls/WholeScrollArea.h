// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace marvo {

/// Shows its widget whole where there is room for it, without a frame or a background of its own, and scrolls
/// where there is not.
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
