// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

namespace marvo {

class LogTableModel;
struct LogDescription;

/// The table of a driving log.
class LogTableView : public QTableView
{
    Q_OBJECT
public:
    /// The model is not owned.
    LogTableView(const LogDescription& description, LogTableModel& model, QWidget* parent);

    /// Gives each column the width of its description, or more where its title or the rows at both ends of
    /// the log take more.
    void fitColumns();

Q_SIGNALS:
    /// A double click anywhere in the table, header included, or Return on a row; -1 where no row is.
    void rowDoubleClicked(int row);
    /// The keyboard or a click has gone to another row.
    void rowChosen(int row);

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    const LogDescription& m_description;
};

} // namespace marvo
