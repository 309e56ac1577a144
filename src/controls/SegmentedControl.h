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

/// A row of labelled segments of which one at most is selected. It asks for the width of its labels and,
/// given less, breaks them between words; no label is ever cut. One stop of the tabulator key, on the
/// selected segment or else the first enabled one; the arrow keys, Home and End select. The segments have the
/// object names "NAME.0", "NAME.1", … after the control's own.
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
    /// One segment a label. The selection stays where there is still a segment, else nothing is selected.
    void setLabels(const QStringList& labels);

    /// The index of the selected segment, or -1.
    int selectedSegment() const;
    /// Any index without segment selects nothing.
    void setSelectedSegment(int index);

    bool isSegmentEnabled(int index) const;
    /// A disabled segment cannot be chosen by a person; the program may still select it.
    void setSegmentEnabled(int index, bool enabled);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

Q_SIGNALS:
    /// Whoever changed it.
    void selectedSegmentChanged(int index);
    /// A person chose another segment, by mouse, key or assistive technology.
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
