// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

#include <cstdint>

class QAction;
class QLabel;
class QPushButton;

namespace marvo {

/// The view of the recording list. It plays rows by double click and by the Enter key, keeps the up and down
/// keys for the selection while it has the focus, and tells what is going on while it has no rows to show.
class RecordingListView : public QTableView
{
    Q_OBJECT
public:
    explicit RecordingListView(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;
    /// Selects one row, replacing the selection, and brings it into view.
    void selectOnlyRow(std::int64_t row);
    /// The selected row, or -1.
    std::int64_t selectedRow() const;

    /// What the button that is offered while there are no rows does.
    void setOpenCommand(QAction* openFolder);
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

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layoutColumns();
    void showEmptyState(const QString& title, const QString& text);
    void placeStatus();

    QWidget* m_emptyState;
    QLabel* m_emptyTitle;
    QLabel* m_emptyText;
    QPushButton* m_openButton;
    QLabel* m_scanLine;
};

} // namespace marvo
