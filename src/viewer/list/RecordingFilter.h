// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

namespace marvo {

/// The recordings that a search asks for: every word of it must stand somewhere in the row (kind, date, time
/// or file name, whatever the case), and the kind must be one of those chosen. Nothing asked, nothing is left
/// out.
class RecordingFilter : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setSearch(const QString& text);
    /// Bit 1 << code of each kind wanted; 0 stands for every kind, unknown ones included.
    void setKinds(unsigned kinds);
    bool isFiltering() const { return !m_words.isEmpty() || m_kinds != 0; }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    QStringList m_words;
    unsigned m_kinds = 0;
};

} // namespace marvo
