// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/tabs/BoxedCells.h"

#include "controls/RadioMatrix.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGroupBox>
#include <QVBoxLayout>

namespace marvo {

namespace {

constexpr int padding = 8;     ///< between a box's frame and its cells
constexpr int gapOfBoxes = 10; ///< from one box to the next

} // namespace

BoxedCells::BoxedCells(RadioMatrix* cells, const QList<QGroupBox*>& boxes, QWidget* parent)
    : QWidget(parent), m_cells(cells), m_boxes(boxes)
{
    Q_ASSERT(!boxes.isEmpty() && cells->cellCount() % boxes.size() == 0);
    for (QGroupBox* box : m_boxes)
        box->setParent(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_cells);
    m_cells->raise();
    for (int i = 0; i < m_cells->cellCount(); ++i)
        m_cells->cell(i)->installEventFilter(this);
    placeBoxes();
}

bool BoxedCells::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest ||
        event->type() == QEvent::StyleChange)
        placeBoxes();
    return handled;
}

bool BoxedCells::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        placeBoxes();
    return QWidget::eventFilter(watched, event);
}

void BoxedCells::placeBoxes()
{
    // What the style needs for a box's frame and title is kept free around the cells.
    const QMargins frame = m_boxes.first()->contentsMargins();
    const QMargins around = frame + QMargins(padding, padding, padding, padding);
    layout()->setContentsMargins(around);

    const int cellsOfBox = m_cells->cellCount() / static_cast<int>(m_boxes.size());
    const auto leftOf = [&](int box) {
        return m_cells->x() + m_cells->cell(box * cellsOfBox)->x() - around.left();
    };
    for (int box = 0; box < m_boxes.size(); ++box) {
        const bool isLast = box + 1 == m_boxes.size();
        const int left = leftOf(box);
        const int right = isLast ? width() : leftOf(box + 1) - gapOfBoxes;
        m_boxes.at(box)->setGeometry(left, 0, right - left, height());
    }
}

} // namespace marvo
