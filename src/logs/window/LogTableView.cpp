// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/window/LogTableView.h"

#include "logs/LogDescription.h"
#include "logs/window/LogTableModel.h"
#include "texts/Localisation.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace marvo {

namespace {

constexpr int rowsLookedAt = 50; // at both ends, for the width of the columns
constexpr int cellMargin = 6;

} // namespace

LogTableView::LogTableView(const LogDescription& description, LogTableModel& model, QWidget* parent)
    : QTableView(parent), m_description(description)
{
    setObjectName(QStringLiteral("tableView"));
    setAccessibleName(localised("log.table"));
    setModel(&model);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(ScrollPerPixel);

    // All rows are alike, so that no row of a long log is ever measured.
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(QFontMetrics(model.font()).height() + cellMargin);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true); // else a double click there is not told
    connect(horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this] { rowDoubleClicked(-1); });
    fitColumns();
}

void LogTableView::fitColumns()
{
    const auto& table = static_cast<const LogTableModel&>(*model());
    const QFontMetrics cells(table.font());
    const QFontMetrics titles(horizontalHeader()->font());
    const int rows = table.rowCount();
    for (int column = 0; column < table.columnCount(); ++column) {
        int textWidth = titles.horizontalAdvance(table.columnNames()[column]);
        for (int row = 0; row < rows; ++row) {
            if (row == rowsLookedAt)
                row = std::max(row, rows - rowsLookedAt);
            textWidth = std::max(textWidth, cells.horizontalAdvance(table.stringForColumnIndex(column, row)));
        }
        const int points = m_description.columns[static_cast<std::size_t>(column)].width;
        setColumnWidth(column, std::max(points * logicalDpiX() / 72, textWidth + 3 * cellMargin));
    }
}

void LogTableView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT rowDoubleClicked(rowAt(event->position().toPoint().y()));
    event->accept();
}

void LogTableView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QTableView::keyPressEvent(event);
    Q_EMIT rowDoubleClicked(currentIndex().row());
    event->accept();
}

void LogTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (current.isValid() && current.row() != previous.row())
        Q_EMIT rowChosen(current.row());
}

} // namespace marvo
