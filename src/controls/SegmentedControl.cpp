// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/SegmentedControl.h"

#include "controls/ExclusiveButtons.h"
#include "controls/SegmentButton.h"

#include <algorithm>
#include <numeric>
#include <QEvent>

namespace marvo {

namespace {

QString placeOf(int index, int count)
{
    if (count == 1)
        return QStringLiteral("only");
    if (index == 0)
        return QStringLiteral("first");
    return index == count - 1 ? QStringLiteral("last") : QStringLiteral("middle");
}

} // namespace

SegmentedControl::SegmentedControl(QWidget* parent) : QWidget(parent), m_segments(new ExclusiveButtons(this))
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(m_segments, &ExclusiveButtons::selectedChanged, this, &SegmentedControl::selectedSegmentChanged);
    connect(m_segments, &ExclusiveButtons::chosen, this, &SegmentedControl::segmentClicked);
}

int SegmentedControl::segmentCount() const { return m_segments->count(); }

QAbstractButton* SegmentedControl::segment(int index) const { return m_segments->at(index); }

QStringList SegmentedControl::labels() const
{
    QStringList labels;
    for (int i = 0; i < segmentCount(); ++i)
        labels.append(button(i)->label());
    return labels;
}

void SegmentedControl::setLabels(const QStringList& labels)
{
    const int count = static_cast<int>(labels.size());
    while (segmentCount() > count)
        m_segments->removeLast();
    while (segmentCount() < count) {
        auto* segment = new SegmentButton(this);
        m_segments->append(segment);
        segment->show();
    }
    for (int i = 0; i < count; ++i) {
        button(i)->setPlace(placeOf(i, count));
        button(i)->setLabel(labels.at(i));
    }
    updateGeometry();
    placeSegments();
}

int SegmentedControl::selectedSegment() const { return m_segments->selected(); }

void SegmentedControl::setSelectedSegment(int index) { m_segments->select(index); }

bool SegmentedControl::isSegmentEnabled(int index) const { return m_segments->isEnabled(index); }

void SegmentedControl::setSegmentEnabled(int index, bool enabled) { m_segments->setEnabled(index, enabled); }

QSize SegmentedControl::sizeHint() const
{
    QSize size(0, m_neededHeight);
    for (int i = 0; i < segmentCount(); ++i) {
        const QSize natural = button(i)->naturalSize();
        size = QSize(size.width() + natural.width(), std::max(size.height(), natural.height()));
    }
    return size;
}

QSize SegmentedControl::minimumSizeHint() const
{
    int width = 0;
    for (int i = 0; i < segmentCount(); ++i)
        width += button(i)->leastWidth();
    return {width, sizeHint().height()};
}

int SegmentedControl::heightForWidth(int width) const
{
    const QList<int> widths = segmentWidths(width);
    int height = 0;
    for (int i = 0; i < segmentCount(); ++i)
        height = std::max(height, button(i)->heightFor(widths.at(i)));
    return height;
}

bool SegmentedControl::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::StyleChange:
        updateGeometry();
        placeSegments();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void SegmentedControl::resizeEvent(QResizeEvent*) { placeSegments(); }

SegmentButton* SegmentedControl::button(int index) const
{
    return static_cast<SegmentButton*>(m_segments->at(index));
}

QList<int> SegmentedControl::segmentWidths(int width) const
{
    const int count = segmentCount();
    if (count == 0)
        return {};
    QList<int> natural;
    QList<int> least;
    for (int i = 0; i < count; ++i) {
        natural.append(button(i)->naturalSize().width());
        least.append(button(i)->leastWidth());
    }
    const int naturalSum = std::accumulate(natural.cbegin(), natural.cend(), 0);
    const int leastSum = std::accumulate(least.cbegin(), least.cend(), 0);

    // Spare room is shared equally. Missing room is taken in proportion from labels that can be broken.
    QList<int> widths;
    int used = 0;
    for (int i = 0; i < count; ++i) {
        int segmentWidth = natural.at(i);
        if (width >= naturalSum)
            segmentWidth += (width - naturalSum) / count;
        else if (naturalSum > leastSum)
            segmentWidth = least.at(i) + (natural.at(i) - least.at(i)) * std::max(0, width - leastSum) /
                                             (naturalSum - leastSum);
        widths.append(segmentWidth);
        used += segmentWidth;
    }
    for (int i = 0; i < count && used < width; ++i, ++used)
        ++widths[i];
    return widths;
}

void SegmentedControl::placeSegments()
{
    // A window's minimum size ignores height-for-width, so the size hint includes that height.
    if (const int needed = heightForWidth(width()); needed != m_neededHeight) {
        m_neededHeight = needed;
        updateGeometry();
    }
    const QList<int> widths = segmentWidths(width());
    int x = 0;
    for (int i = 0; i < segmentCount(); ++i) {
        button(i)->setGeometry(x, 0, widths.at(i), height());
        x += widths.at(i);
    }
}

} // namespace marvo
