// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/AccessibleValue.h"
#include "recording/SampleRecords.h"

#include <QPixmap>
#include <QWidget>

#include <span>

namespace marvo {

/// The whole G-sensor trace of the playing recording over a grid from -2 to +2 g, with a cursor at the play
/// position. The view fills no background of its own; it is made for a dark one.
///
/// Grid and traces are drawn once for each list and size; a cursor move repaints the two strips it touches.
class GraphView : public QWidget, public AccessibleValueSource
{
    Q_OBJECT
public:
    explicit GraphView(QWidget* parent = nullptr);

    /// Shows these samples, in time order. They are shared, not copied: the caller keeps them alive and
    /// unchanged until clearGraphData(), another list, or the view's end.
    void setGraphData(std::span<const MRVGSensor> samples);
    /// Drops the samples and shows only the grid. Call it before their owner changes them, when the next
    /// extraction starts.
    void clearGraphData() { setGraphData({}); }
    std::span<const MRVGSensor> values() const { return m_values; }

    /// Moves the cursor to a fraction from 0 to 1 of the recording; a fraction outside is taken to the
    /// nearer end, not a number changes nothing.
    void updateTimePosition(double positionFraction);
    double timePosition() const { return m_timePosition; }

    QSize sizeHint() const override { return {480, 130}; }
    QSize minimumSizeHint() const override { return {120, 60}; }

    QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    AccessibleValue accessibleValue() const override;
    void requestValue(double positionFraction) override;

Q_SIGNALS:
    /// The user clicked a moment, as a fraction from 0 to 1. The cursor moves when playback answers with
    /// updateTimePosition. Never sent without samples.
    void seekRequested(double positionFraction);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QPixmap drawnPicture() const;
    QRectF cursorRect(double positionFraction) const;

    std::span<const MRVGSensor> m_values;
    double m_timePosition = 0;
    QPixmap m_picture; ///< grid, labels and traces at the screen's resolution; null when to be drawn anew
    bool m_dragging = false;
};

} // namespace marvo
