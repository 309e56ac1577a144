// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace marvo {

/// One segment of a segmented control: a checkable button whose label may take several lines. A
/// style sheet finds it as marvo--SegmentButton, with :checked and the property "place" (first, middle, last
/// or only); without one it is drawn in the selection's colours when checked.
class SegmentButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QString place READ place WRITE setPlace)
public:
    explicit SegmentButton(QWidget* parent);

    QString label() const { return m_label; }
    void setLabel(const QString& label);

    QString place() const { return m_place; }
    void setPlace(const QString& place);

    /// The size with the label on one line.
    QSize naturalSize() const;
    /// The least width, with one word per line.
    int leastWidth() const;
    /// The height when the label is broken between words to fit a width.
    int heightFor(int width) const { return sizeForText(brokenLabel(width)).height(); }

protected:
    void initStyleOption(QStyleOptionButton* option) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize sizeForText(const QString& text) const;
    QString brokenLabel(int width) const;

    QString m_label;
    QString m_place;
};

} // namespace marvo
