// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace marvo {

/// Holds the engine's video view. It handles no events; it only knows the area, a little larger than itself,
/// within which the pointer counts as being at the video.
class MRVScrollableVideoContainerView : public QWidget
{
    Q_OBJECT
public:
    static constexpr int trackingMargin = 4;

    explicit MRVScrollableVideoContainerView(QWidget* parent = nullptr);

    /// In this view's own co-ordinates.
    const QRect& mouseTrackingArea() const { return m_mouseTrackingArea; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void updateTrackingAreas();

    QRect m_mouseTrackingArea;
};

} // namespace marvo
