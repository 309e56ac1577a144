// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/WindowEdges.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace marvo {

namespace {

constexpr int gripWidth = 5;
constexpr int cornerSize = 12;

constexpr std::array<Qt::Edges, 8> gripEdges{
    Qt::Edges(Qt::TopEdge),        Qt::Edges(Qt::BottomEdge),      Qt::Edges(Qt::LeftEdge),
    Qt::Edges(Qt::RightEdge),      Qt::TopEdge | Qt::LeftEdge,     Qt::TopEdge | Qt::RightEdge,
    Qt::BottomEdge | Qt::LeftEdge, Qt::BottomEdge | Qt::RightEdge,
};

bool isCorner(Qt::Edges edges)
{
    return (edges & (Qt::TopEdge | Qt::BottomEdge)) && (edges & (Qt::LeftEdge | Qt::RightEdge));
}

QRect gripRect(Qt::Edges edges, QSize window)
{
    const int size = isCorner(edges) ? cornerSize : gripWidth;
    QRect rect(QPoint(0, 0), window);
    if (edges & Qt::TopEdge)
        rect.setBottom(size - 1);
    if (edges & Qt::BottomEdge)
        rect.setTop(rect.height() - size);
    if (edges & Qt::LeftEdge)
        rect.setRight(size - 1);
    if (edges & Qt::RightEdge)
        rect.setLeft(window.width() - size);
    return rect;
}

Qt::CursorShape gripCursor(Qt::Edges edges)
{
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge))
        return Qt::SizeFDiagCursor;
    if (isCorner(edges))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::TopEdge | Qt::BottomEdge) ? Qt::SizeVerCursor : Qt::SizeHorCursor;
}

class Grip : public QWidget
{
public:
    Grip(QWidget& window, Qt::Edges edges) : QWidget(&window), m_edges(edges)
    {
        setCursor(gripCursor(edges));
    }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        if (event->button() != Qt::LeftButton)
            return;
        m_startPoint = event->globalPosition().toPoint();
        m_startFrame = window()->geometry();
        m_byDesktop = window()->windowHandle() && window()->windowHandle()->startSystemResize(m_edges);
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (m_byDesktop || !(event->buttons() & Qt::LeftButton))
            return;
        const QPoint delta = event->globalPosition().toPoint() - m_startPoint;
        window()->setGeometry(draggedFrame(m_startFrame, m_edges, delta, window()->minimumSize()));
    }

private:
    Qt::Edges m_edges;
    QPoint m_startPoint;
    QRect m_startFrame;
    bool m_byDesktop = false;
};

} // namespace

QRect draggedFrame(const QRect& start, Qt::Edges edges, QPoint delta, QSize leastSize)
{
    QRect frame = start;
    const int spareWidth = start.width() - std::max(1, leastSize.width());
    const int spareHeight = start.height() - std::max(1, leastSize.height());
    if (edges & Qt::LeftEdge)
        frame.setLeft(start.left() + std::min(delta.x(), spareWidth));
    if (edges & Qt::RightEdge)
        frame.setRight(start.right() + std::max(delta.x(), -spareWidth));
    if (edges & Qt::TopEdge)
        frame.setTop(start.top() + std::min(delta.y(), spareHeight));
    if (edges & Qt::BottomEdge)
        frame.setBottom(start.bottom() + std::max(delta.y(), -spareHeight));
    return frame;
}

WindowEdges::WindowEdges(QWidget& window) : QObject(&window), m_window(window)
{
    for (std::size_t i = 0; i < gripEdges.size(); ++i)
        m_grips[i] = new Grip(window, gripEdges[i]);
}

void WindowEdges::setActive(bool active)
{
    for (QWidget* grip : m_grips)
        grip->setVisible(active);
}

void WindowEdges::follow()
{
    for (std::size_t i = 0; i < gripEdges.size(); ++i) {
        m_grips[i]->setGeometry(gripRect(gripEdges[i], m_window.size()));
        m_grips[i]->raise();
    }
}

} // namespace marvo
