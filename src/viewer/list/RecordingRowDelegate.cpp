// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/RecordingRowDelegate.h"

#include "viewer/list/RecordingListView.h"
#include "viewer/list/RecordingTableModel.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace marvo {

namespace {

constexpr int endLength = 6; // "_F.avi"
constexpr int barWidth = 3;
constexpr QChar ellipsis(0x2026);

} // namespace

int leastFileNameWidth(const QFontMetrics& metrics)
{
    return std::max(metrics.horizontalAdvance(ellipsis + QStringLiteral("_F.avi")),
                    metrics.horizontalAdvance(ellipsis + QStringLiteral("_R.avi")));
}

QString elidedFileName(const QString& name, const QFontMetrics& metrics, int width)
{
    if (metrics.horizontalAdvance(name) <= width)
        return name;
    const QString end = name.right(endLength);
    const QString begin = name.chopped(end.size());
    const int left = width - metrics.horizontalAdvance(end);
    const QString shortened = metrics.elidedText(begin, Qt::ElideRight, left);
    if (left < metrics.horizontalAdvance(ellipsis) || shortened.isEmpty() ||
        metrics.horizontalAdvance(shortened) > left)
        return left >= 0 ? end : metrics.elidedText(end, Qt::ElideLeft, width);
    return shortened + end;
}

void RecordingRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(RecordingTableModel::unplayableRole).toBool()) // dimmed while selected, too
        option->palette.setBrush(QPalette::HighlightedText,
                                 option->palette.brush(QPalette::Disabled, QPalette::Text));
    if (const auto* list = qobject_cast<const RecordingListView*>(option->widget))
        option->state.setFlag(QStyle::State_MouseOver, index.row() == list->hoveredRow());
    if (index.column() != RecordingTableModel::File) {
        option->textElideMode = Qt::ElideRight; // the beginning of a kind tells which
        return;
    }
    const int margin = QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
    option->text = elidedFileName(option->text, option->fontMetrics, option->rect.width() - 2 * margin - 1);
}

void RecordingRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (index.column() == RecordingTableModel::SaveMode &&
        index.data(RecordingTableModel::playingRole).toBool())
        painter->fillRect(QRect(option.rect.topLeft(), QSize(barWidth, option.rect.height())),
                          option.palette.color(QPalette::Link));
}

} // namespace marvo
