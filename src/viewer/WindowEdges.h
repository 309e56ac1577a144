// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>

#include <array>

class QWidget;

namespace marvo {

/// The frame after an edge has been dragged: those sides that are in `edges` move by `delta`, and no further
/// than the least size allows.
QRect draggedFrame(const QRect& start, Qt::Edges edges, QPoint delta, QSize leastSize);

/// Eight narrow grips along the edges of a frameless window by which the mouse changes its size.
class WindowEdges : public QObject
{
    Q_OBJECT
public:
    explicit WindowEdges(QWidget& window);

    /// Off, the window's edges are ordinary content.
    void setActive(bool active);
    /// Takes the window's present size.
    void follow();

private:
    QWidget& m_window;
    std::array<QWidget*, 8> m_grips{};
};

} // namespace marvo
