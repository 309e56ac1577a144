// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

class QAbstractButton;

namespace marvo {

class ExclusiveButtons;
class SegmentButton;

/// A row of labelled segments of which at most one is selected. Where the labels do not fit, they are broken
/// between words; no label is cut. The control is one tab stop, at the selected or else the first enabled
/// segment; the arrow keys, Home and End select. The segments have the object names "NAME.0", "NAME.1", …
/// after the control's.
class SegmentedControl : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int selectedSegment READ selectedSegment WRITE setSelectedSegment NOTIFY selectedSegmentChanged
                   USER true)
public:
    explicit SegmentedControl(QWidget* parent = nullptr);

    int segmentCount() const;
    /// The button that shows a segment, 0 to segmentCount() - 1.
    QAbstractButton* segment(int index) const;
    QStringList labels() const;
    /// One segment for each label. The selection stays if its segment still exists, else it is cleared.
    void setLabels(const QStringList& labels);

    /// The index of the selected segment, or -1.
    int selectedSegment() const;
    /// Any index without segment selects nothing.
    void setSelectedSegment(int index);

    bool isSegmentEnabled(int index) const;
    /// The user cannot choose a disabled segment; the program can still select it.
    void setSegmentEnabled(int index, bool enabled);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

Q_SIGNALS:
    /// Changed by the user or by the program.
    void selectedSegmentChanged(int index);
    /// The user chose another segment, by mouse, key or assistive technology.
    void segmentClicked(int index);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    SegmentButton* button(int index) const;
    QList<int> segmentWidths(int width) const;
    void placeSegments();

    ExclusiveButtons* m_segments;
    int m_neededHeight = 0;
};

} // namespace marvo
