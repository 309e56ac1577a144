// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QAbstractButton;

namespace marvo {

class ExclusiveButtons;

/// A grid of radio cells of which at most one is selected. A cell's index is row * columns() + column. The
/// grid is one tab stop; the arrow keys go to the neighbours, Left and Right also into the next row, Home and
/// End to the first and last cell. The cells have the object names "NAME.0", "NAME.1", … after the matrix's.
class RadioMatrix : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int selectedCell READ selectedCell WRITE setSelectedCell NOTIFY selectedCellChanged USER true)
public:
    /// At least one row and one column.
    RadioMatrix(int rows, int columns, QWidget* parent = nullptr);

    int rows() const { return m_rows; }
    int columns() const { return m_columns; }
    int cellCount() const { return m_rows * m_columns; }
    /// The button that shows a cell, 0 to cellCount() - 1.
    QAbstractButton* cell(int index) const;

    QString title(int index) const;
    void setTitle(int index, const QString& title);

    /// The index of the selected cell, or -1.
    int selectedCell() const;
    /// Any index without cell selects nothing.
    void setSelectedCell(int index);
    void deselectAllCells() { setSelectedCell(-1); }

    bool isCellEnabled(int index) const;
    /// The user cannot choose a disabled cell; the program can still select it.
    void setCellEnabled(int index, bool enabled);

Q_SIGNALS:
    /// Changed by the user or by the program.
    void selectedCellChanged(int index);
    /// The user chose another cell, by mouse, key or assistive technology.
    void cellClicked(int index);

private:
    int m_rows;
    int m_columns;
    ExclusiveButtons* m_cells;
};

} // namespace marvo
