// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

class QFontMetrics;

namespace marvo {

/// A file name in a given width: its middle left out, but the channel and the ending kept as long as they
/// fit, since they tell apart two files that were recorded at the same time.
QString elidedFileName(const QString& name, const QFontMetrics& metrics, int width);

/// Draws the cells of the recording list: file names by elidedFileName, and a bar before the row that is in
/// the player.
class RecordingRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace marvo
