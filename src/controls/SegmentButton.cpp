// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/SegmentButton.h"

#include <algorithm>
#include <QPainter>
#include <QStyleOptionButton>

namespace marvo {

namespace {

/// Extra room beside a label on one line.
constexpr int sidePadding = 6;

/// A third of one colour and two of the other.
QColor mixed(const QColor& third, const QColor& rest)
{
    return QColor((third.red() + 2 * rest.red()) / 3, (third.green() + 2 * rest.green()) / 3,
                  (third.blue() + 2 * rest.blue()) / 3);
}

QString withoutMnemonics(QString label) { return label.replace(QLatin1Char('&'), QLatin1StringView("&&")); }

} // namespace

SegmentButton::SegmentButton(QWidget* parent) : QPushButton(parent) { setAutoDefault(false); }

void SegmentButton::setLabel(const QString& label)
{
    m_label = label;
    setAccessibleName(label);
    setText(withoutMnemonics(brokenLabel(width())));
}

void SegmentButton::setPlace(const QString& place)
{
    if (place == m_place)
        return;
    m_place = place;
    // A style sheet evaluates a property once only.
    style()->unpolish(this);
    style()->polish(this);
}

QSize SegmentButton::naturalSize() const { return sizeForText(m_label) + QSize(2 * sidePadding, 0); }

int SegmentButton::leastWidth() const
{
    int width = 0;
    for (const QString& word : m_label.split(QLatin1Char(' ')))
        width = std::max(width, sizeForText(word).width());
    return width;
}

void SegmentButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    if (!isChecked())
        return;
    QColor ground = palette().color(QPalette::Highlight);
    QColor text = palette().color(QPalette::HighlightedText);
    if (!isEnabled()) {
        // The selection stays visible.
        ground =
            mixed(palette().color(QPalette::Active, QPalette::Highlight), palette().color(QPalette::Button));
        text = mixed(palette().color(QPalette::Active, QPalette::ButtonText),
                     palette().color(QPalette::ButtonText));
    }
    option->palette.setColor(QPalette::Button, ground);
    option->palette.setColor(QPalette::ButtonText, text);
}

void SegmentButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    if (!hasFocus() || !window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    // Style sheets remove the style's focus mark.
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(isChecked() ? QPalette::HighlightedText : QPalette::Highlight), 1.5));
    painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), 2, 2);
}

void SegmentButton::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    setText(withoutMnemonics(brokenLabel(width())));
}

QSize SegmentButton::sizeForText(const QString& text) const
{
    ensurePolished();
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear(); // else the style applies a button's minimum width
    const QSize contents = fontMetrics().size(0, text);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, contents, this);
}

QString SegmentButton::brokenLabel(int width) const
{
    QString broken;
    QString line;
    for (const QString& word : m_label.split(QLatin1Char(' '))) {
        const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
        if (line.isEmpty() || sizeForText(longer).width() <= width) {
            line = longer;
            continue;
        }
        broken += line + QLatin1Char('\n');
        line = word;
    }
    return broken + line;
}

} // namespace marvo
