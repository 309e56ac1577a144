// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

class QFontMetrics;

namespace marvo {

/// A file name in a given width: its middle is left out, then its beginning. The channel and the ending are
/// kept as long as they fit, since they tell apart two files that were recorded at the same time.
QString elidedFileName(const QString& name, const QFontMetrics& metrics, int width);
/// The width that shows channel and ending of any recording.
int leastFileNameWidth(const QFontMetrics& metrics);

/// Draws the cells of the recording list: file names by elidedFileName, the whole row lit under the pointer,
/// rows that cannot be played dimmed, and a bar before the row that is in the player.
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
