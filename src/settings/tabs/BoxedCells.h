// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

class QGroupBox;

namespace marvo {

class RadioMatrix;

/// Titled boxes around the cells of a one-row radio matrix, with the same number of cells in each. For the
/// keyboard and assistive technology it is still one matrix; the boxes lie behind it.
class BoxedCells : public QWidget
{
    Q_OBJECT
public:
    /// Takes over both; the cells can be divided evenly among the boxes.
    BoxedCells(RadioMatrix* cells, const QList<QGroupBox*>& boxes, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void placeBoxes();

    RadioMatrix* m_cells;
    QList<QGroupBox*> m_boxes;
};

} // namespace marvo
