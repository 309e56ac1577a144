// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/list/ListEmptyState.h"

#include <QTableView>

#include <cstdint>

class QAction;
class QLabel;

namespace marvo {

class PMProgressIndicator;
class RecordingFilter;

/// The view of the recording list. It plays rows by double click and by the Enter key, keeps the up and down
/// keys for the selection while it has the focus, shows only what a search asks for, and tells what is going
/// on while it has no rows to show.
///
/// Rows that are passed in and out are those of the model that was set, whatever a search leaves of them.
class RecordingListView : public QTableView
{
    Q_OBJECT
public:
    explicit RecordingListView(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;
    /// Selects one row, replacing the selection, and brings it into view. One that is not shown selects none.
    void selectOnlyRow(std::int64_t row);
    /// The selected row, or -1.
    std::int64_t selectedRow() const;
    /// Selects the row so many rows further down among those shown.
    void stepSelection(int rows);
    /// Plays the selected row.
    void activateSelection();
    /// The row under the pointer among those shown, or -1.
    int hoveredRow() const { return m_hoveredRow; }

    /// See RecordingFilter.
    void setSearch(const QString& text);
    void setKinds(unsigned kinds);

    /// What the button that is offered while there are no rows does.
    void setOpenCommand(QAction* openFolder);
    ListEmptyState& emptyState() { return *m_emptyState; }
    /// Before any folder: what to do.
    void showNoFolder();
    void showScanning(std::int64_t found);
    /// The scan has ended; a folder without recordings says so.
    void showRecordings();
    /// The folder could not be listed at all, for a reason in the system's words.
    void showUnreadable(const QString& reason);
    /// The line shown over the rows, or in the place of rows; empty when there is none.
    QString statusText() const;

Q_SIGNALS:
    void rowActivated(std::int64_t row);
    void showInFolderRequested(std::int64_t row);
    void copyPathRequested(std::int64_t row);
    /// A digit, with which dates, times and file names begin to be searched for.
    void digitTyped(const QString& digit);
    /// How many rows are shown of how many there are.
    void shownRowsChanged(int shown, int all);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layoutColumns();
    int allRows() const;
    void filterChanged();
    void setHoveredRow(int row);
    void showEmptyState(const QString& title, const QString& text, ListEmptyState::Offer offer);
    void placeStatus();
    void endScanning();

    RecordingFilter* m_filter;
    ListEmptyState* m_emptyState;
    QLabel* m_scanLine;
    PMProgressIndicator* m_scanProgress; ///< stands in the scan line
    int m_hoveredRow = -1;
};

} // namespace marvo
