// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "media/RecordingKinds.h"

#include <QAbstractTableModel>
#include <QFont>
#include <QHash>
#include <QIcon>

#include <array>
#include <cstdint>

namespace marvo {

class MRVMedia;
class MRVMediaList;

/// The recording list as a table: one row a recording; kind, date, time and file.
class RecordingTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { SaveMode, Date, Time, File, ColumnCount };
    static constexpr int fontPointSize = 11;
    /// The column's own name, "saveMode", "date", "time" or "file"; a header role.
    static constexpr int identifierRole = Qt::UserRole + 1;
    /// Whether the recording could not be played; the reason is the row's tool tip.
    static constexpr int unplayableRole = Qt::UserRole + 2;
    /// Whether the recording is the one in the player, and can be played.
    static constexpr int playingRole = Qt::UserRole + 3;
    /// The kind's code; -1 for an unknown one.
    static constexpr int kindRole = Qt::UserRole + 4;

    /// The list is not owned and must outlive the model.
    explicit RecordingTableModel(const MRVMediaList& mediaList, QObject* parent = nullptr);

    /// Shows what the list holds now; marks of the rows before are gone.
    void reload();
    /// Marks one row as the one in the player; -1 marks none.
    void setPlayingRow(std::int64_t row);
    std::int64_t playingRow() const { return m_playingRow; }
    void markUnplayable(std::int64_t row, const QString& reason);
    void markPlayable(std::int64_t row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Kind
    {
        QString title;
        QIcon icon;
    };

    const Kind& kindOf(const MRVMedia& media) const;
    QString text(const MRVMedia& media, int column) const;
    QString accessibleText(const MRVMedia& media, int row, int column) const;
    void rowChanged(std::int64_t row);

    const MRVMediaList& m_mediaList;
    std::array<QString, ColumnCount> m_columnNames;
    std::array<Kind, recordingKinds.size() + 1> m_kinds; ///< the unknown one last
    QFont m_font;
    int m_rows = 0;
    std::int64_t m_playingRow = -1;
    QHash<std::int64_t, QString> m_unplayable;
};

} // namespace marvo
