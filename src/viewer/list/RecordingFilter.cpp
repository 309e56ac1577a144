// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/RecordingFilter.h"

#include "viewer/list/RecordingTableModel.h"

#include <algorithm>

namespace marvo {

void RecordingFilter::setSearch(const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == m_words)
        return;
    m_words = words;
    invalidateFilter();
}

void RecordingFilter::setKinds(unsigned kinds)
{
    if (kinds == m_kinds)
        return;
    m_kinds = kinds;
    invalidateFilter();
}

bool RecordingFilter::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    using Model = RecordingTableModel;
    const auto cell = [&](int column, int role) {
        return sourceModel()->index(sourceRow, column, sourceParent).data(role);
    };
    if (m_kinds != 0) {
        const int kind = cell(Model::SaveMode, Model::kindRole).toInt();
        if (kind < 0 || (m_kinds & (1U << unsigned(kind))) == 0)
            return false;
    }
    if (m_words.isEmpty())
        return true;
    QString row;
    for (int column = 0; column < Model::ColumnCount; ++column)
        row += cell(column, Qt::DisplayRole).toString() + QLatin1Char('\n');
    return std::ranges::all_of(
        m_words, [&row](const QString& word) { return row.contains(word, Qt::CaseInsensitive); });
}

} // namespace marvo
