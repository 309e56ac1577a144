// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/ElidedLabel.h"

#include "controls/PlainToolTip.h"

namespace marvo {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void ElidedLabel::setFullText(const QString& text)
{
    m_fullText = text;
    setAccessibleName(text);
    updateGeometry();
    elide();
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_fullText) + 2, QLabel::sizeHint().height()};
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide()
{
    const QString shown = fontMetrics().elidedText(m_fullText, Qt::ElideMiddle, contentsRect().width());
    setText(shown);
    setToolTip(shown == m_fullText ? QString() : plainToolTip(m_fullText));
}

} // namespace marvo
