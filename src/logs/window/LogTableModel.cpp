// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "logs/window/LogTableModel.h"

#include "controls/InterfaceScale.h"
#include "logs/DrivingLog.h"
#include "texts/Localisation.h"

#include <utility>

namespace marvo {

QStringList logColumnNames(const LogDescription& log)
{
    QStringList names;
    for (const LogColumn& column : log.columns) {
        const QString title = QString::fromLatin1(column.title.data(), qsizetype(column.title.size()));
        names.append(column.titleIs == LogColumn::Title::Key ? localised(title) : title);
    }
    return names;
}

LogTableModel::LogTableModel(const LogDescription& description, QObject* parent)
    : QAbstractTableModel(parent), m_description(description), m_columnNames(logColumnNames(description))
{
    m_font.setPointSizeF(scaledPoints(fontPointSize));
}

void LogTableModel::setLog(std::shared_ptr<const DrivingLog> log)
{
    beginResetModel();
    m_log = std::move(log);
    endResetModel();
}

QString LogTableModel::stringForColumnIndex(std::int64_t column, std::int64_t row) const
{
    if (column < 0 || column >= columnCount() || row < 0 || row >= rowCount())
        return {};
    DrivingLog::CellBuffer buffer;
    const std::string_view text =
        m_log->cellText(static_cast<std::size_t>(column), static_cast<std::uint64_t>(row), buffer);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

int LogTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_log ? 0 : static_cast<int>(std::min(m_log->recordCount(), mostRows));
}

int LogTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_description.columns.size());
}

QVariant LogTableModel::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return stringForColumnIndex(index.column(), index.row());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    case Qt::FontRole:
        return m_font;
    default:
        return {};
    }
}

QVariant LogTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_columnNames[section];
    case Qt::TextAlignmentRole:
        return Qt::AlignCenter;
    case identifierRole:
        return QString::number(section);
    default:
        return {};
    }
}

} // namespace marvo
