// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QFont>

#include <cstdint>
#include <memory>

namespace marvo {

class DrivingLog;
struct LogDescription;

/// The titles of a log's columns in the language of the interface.
QStringList logColumnNames(const LogDescription& log);

/// A driving log as a table: one row a record. The text of a cell is made when it is looked at, so that a log
/// of any length is shown at once.
class LogTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    static constexpr int fontPointSize = 11;
    /// No table has more rows: the positions of more would not fit the view's numbers.
    static constexpr std::uint64_t mostRows = 50'000'000;
    /// The column's own name, the decimal text of its index; a header role.
    static constexpr int identifierRole = Qt::UserRole + 1;

    explicit LogTableModel(const LogDescription& description, QObject* parent = nullptr);

    /// Shows another log of the same kind; null for none.
    void setLog(std::shared_ptr<const DrivingLog> log);
    const std::shared_ptr<const DrivingLog>& log() const { return m_log; }
    const QStringList& columnNames() const { return m_columnNames; }
    const QFont& font() const { return m_font; }

    /// The text of a cell; empty where there is none.
    QString stringForColumnIndex(std::int64_t column, std::int64_t row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    const LogDescription& m_description;
    std::shared_ptr<const DrivingLog> m_log;
    QStringList m_columnNames;
    QFont m_font;
};

} // namespace marvo
