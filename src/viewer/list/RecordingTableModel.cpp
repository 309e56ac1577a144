// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/RecordingTableModel.h"

#include "controls/ImageNamed.h"
#include "controls/InterfaceScale.h"
#include "controls/PlainToolTip.h"
#include "media/MRVMediaList.h"
#include "texts/DisplayText.h"
#include "texts/Localisation.h"

#include <QBrush>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace marvo {

namespace {

struct ColumnRow
{
    const char* identifier;
    const char* titleKey;
    Qt::Alignment alignment;
};

constexpr std::array<ColumnRow, RecordingTableModel::ColumnCount> columns{{
    {"saveMode", "filelist.mode", Qt::AlignCenter},
    {"date", "filelist.date", Qt::AlignCenter},
    {"time", "filelist.time", Qt::AlignCenter},
    {"file", "filelist.file", Qt::AlignLeft | Qt::AlignVCenter},
}};

} // namespace

RecordingTableModel::RecordingTableModel(const MRVMediaList& mediaList, QObject* parent)
    : QAbstractTableModel(parent), m_mediaList(mediaList)
{
    for (std::size_t i = 0; i < columns.size(); ++i)
        m_columnNames[i] = localised(columns[i].titleKey);
    std::ranges::transform(recordingKinds, m_kinds.begin(), [](const RecordingKind& kind) {
        return Kind{localised(kind.labelKey), iconNamed(QString::fromLatin1(kind.icon))};
    });
    m_kinds.back() = {localised("media.unknown"), QIcon()};
    m_font.setPointSizeF(scaledPoints(fontPointSize));
}

void RecordingTableModel::reload()
{
    beginResetModel();
    m_rows = static_cast<int>(m_mediaList.count());
    m_playingRow = -1;
    m_unplayable.clear();
    endResetModel();
}

void RecordingTableModel::setPlayingRow(std::int64_t row)
{
    const std::int64_t before = m_playingRow;
    m_playingRow = row;
    rowChanged(before);
    rowChanged(row);
}

void RecordingTableModel::markUnplayable(std::int64_t row, const QString& reason)
{
    m_unplayable.insert(row, reason);
    rowChanged(row);
}

void RecordingTableModel::markPlayable(std::int64_t row)
{
    if (m_unplayable.remove(row) > 0)
        rowChanged(row);
}

void RecordingTableModel::rowChanged(std::int64_t row)
{
    if (row >= 0 && row < m_rows)
        Q_EMIT dataChanged(index(static_cast<int>(row), 0), index(static_cast<int>(row), ColumnCount - 1));
}

int RecordingTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_rows; }

int RecordingTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const RecordingTableModel::Kind& RecordingTableModel::kindOf(const MRVMedia& media) const
{
    const auto kind = static_cast<std::size_t>(media.mediaDivision());
    return kind < recordingKinds.size() ? m_kinds[kind] : m_kinds.back();
}

QString RecordingTableModel::text(const MRVMedia& media, int column) const
{
    switch (column) {
    case SaveMode:
        return kindOf(media).title;
    case Date:
        return media.year() >= 1
                   ? QString::asprintf("%04d-%02d-%02d", media.year(), media.month(), media.day())
                   : QString();
    case Time:
        return media.year() >= 1
                   ? QString::asprintf("%02d:%02d:%02d", media.hour(), media.minute(), media.second())
                   : QString();
    default:
        return displayText(media.fileName());
    }
}

QString RecordingTableModel::accessibleText(const MRVMedia& media, int row, int column) const
{
    const QString cell = text(media, column);
    if (column != File || !m_unplayable.contains(row))
        return cell;
    return QStringLiteral("%1, %2").arg(cell, localised("viewer.list.unplayable").arg(m_unplayable[row]));
}

QVariant RecordingTableModel::data(const QModelIndex& index, int role) const
{
    const MRVMedia* media =
        index.isValid() && index.row() < m_rows ? m_mediaList.mediaAtIndex(index.row()) : nullptr;
    if (!media)
        return {};
    const int row = index.row();
    const bool playing = row == m_playingRow && !m_unplayable.contains(row);
    switch (role) {
    case Qt::DisplayRole:
        return text(*media, index.column());
    case Qt::DecorationRole:
        return index.column() == SaveMode && !kindOf(*media).icon.isNull() ? QVariant(kindOf(*media).icon)
                                                                           : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(columns[static_cast<std::size_t>(index.column())].alignment);
    case Qt::FontRole:
        return m_font;
    case Qt::ForegroundRole:
        if (m_unplayable.contains(row))
            return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
        return playing ? QVariant(QGuiApplication::palette().brush(QPalette::Link)) : QVariant();
    case Qt::ToolTipRole:
        return m_unplayable.contains(row) ? localised("viewer.list.unplayable").arg(m_unplayable[row])
                                          : plainToolTip(displayText(media->path()));
    case Qt::AccessibleTextRole:
        return accessibleText(*media, row, index.column());
    case Qt::AccessibleDescriptionRole:
        if (m_unplayable.contains(row))
            return localised("viewer.list.unplayable").arg(m_unplayable[row]);
        return playing ? localised("viewer.list.playing") : QString();
    case unplayableRole:
        return m_unplayable.contains(row);
    case playingRole:
        return playing;
    case kindRole: {
        const Kind& kind = kindOf(*media);
        return &kind != &m_kinds.back() ? static_cast<int>(&kind - m_kinds.data()) : -1;
    }
    default:
        return {};
    }
}

QVariant RecordingTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return {};
    const auto column = static_cast<std::size_t>(section);
    switch (role) {
    case Qt::DisplayRole:
        return m_columnNames[column];
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(columns[column].alignment);
    case identifierRole:
        return QString::fromLatin1(columns[column].identifier);
    default:
        return {};
    }
}

Qt::ItemFlags RecordingTableModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

} // namespace marvo
