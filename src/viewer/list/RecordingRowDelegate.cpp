// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/list/RecordingRowDelegate.h"

#include "viewer/list/RecordingTableModel.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>

namespace marvo {

namespace {

constexpr int endLength = 6; // "_F.avi"
constexpr int barWidth = 3;

} // namespace

QString elidedFileName(const QString& name, const QFontMetrics& metrics, int width)
{
    if (metrics.horizontalAdvance(name) <= width)
        return name;
    const QString end = name.right(endLength);
    const QString begin = name.chopped(end.size());
    const int left = width - metrics.horizontalAdvance(end);
    const QString shortened = metrics.elidedText(begin, Qt::ElideRight, left);
    if (left <= 0 || shortened.isEmpty() || metrics.horizontalAdvance(shortened) > left)
        return metrics.elidedText(name, Qt::ElideMiddle, width);
    return shortened + end;
}

void RecordingRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != RecordingTableModel::File)
        return;
    const int margin = QApplication::style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
    option->text = elidedFileName(option->text, option->fontMetrics, option->rect.width() - 2 * margin - 1);
}

void RecordingRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (index.column() == RecordingTableModel::SaveMode &&
        index.data(RecordingTableModel::PlayingRole).toBool())
        painter->fillRect(QRect(option.rect.topLeft(), QSize(barWidth, option.rect.height())),
                          option.palette.color(QPalette::Link));
}

} // namespace marvo
