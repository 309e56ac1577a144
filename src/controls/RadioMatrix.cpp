// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/RadioMatrix.h"

#include "controls/ExclusiveButtons.h"

#include <QGridLayout>
#include <QRadioButton>

namespace marvo {

RadioMatrix::RadioMatrix(int rows, int columns, QWidget* parent)
    : QWidget(parent), m_rows(rows), m_columns(columns), m_cells(new ExclusiveButtons(this))
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(16);
    for (int index = 0; index < cellCount(); ++index) {
        auto* button = new QRadioButton(this);
        grid->addWidget(button, index / columns, index % columns);
        m_cells->append(button);
    }
    m_cells->setColumns(columns);
    connect(m_cells, &ExclusiveButtons::selectedChanged, this, &RadioMatrix::selectedCellChanged);
    connect(m_cells, &ExclusiveButtons::chosen, this, &RadioMatrix::cellClicked);
}

QAbstractButton* RadioMatrix::cell(int index) const { return m_cells->at(index); }

QString RadioMatrix::title(int index) const { return cell(index)->accessibleName(); }

void RadioMatrix::setTitle(int index, const QString& title)
{
    cell(index)->setAccessibleName(title);
    cell(index)->setText(QString(title).replace(QLatin1Char('&'), QLatin1StringView("&&")));
}

int RadioMatrix::selectedCell() const { return m_cells->selected(); }

void RadioMatrix::setSelectedCell(int index) { m_cells->select(index); }

bool RadioMatrix::isCellEnabled(int index) const { return m_cells->isEnabled(index); }

void RadioMatrix::setCellEnabled(int index, bool enabled) { m_cells->setEnabled(index, enabled); }

} // namespace marvo
