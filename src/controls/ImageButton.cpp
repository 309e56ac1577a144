// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/ImageButton.h"

#include "controls/ImageNamed.h"

#include <QAction>
#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <algorithm>
#include <cmath>

namespace marvo {

namespace {

constexpr int textGap = 6;
constexpr qreal disabledOpacity = 0.35;

} // namespace

ImageButton::ImageButton(const QString& imageName, const QString& title, QWidget* parent)
    : QToolButton(parent)
{
    setImageName(imageName);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(title);
    setToolTip(title);
}

void ImageButton::setImageName(const QString& imageName)
{
    if (imageName == m_imageName)
        return;
    m_imageName = imageName;
    if (imageName.isEmpty())
        return;
    setIcon(iconNamed(imageName));
    setIconSize(imageNamed(imageName).deviceIndependentSize().toSize());
}

void ImageButton::setCommand(QAction* action)
{
    const auto follow = [this, action] {
        setEnabled(action->isEnabled());
        setToolTip(action->toolTip());
        setAccessibleName(action->iconText());
    };
    follow();
    connect(action, &QAction::changed, this, follow);
    connect(this, &QToolButton::clicked, action, &QAction::trigger);
}

bool ImageButton::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
        event->accept();
        return true;
    }
    return QToolButton::event(event);
}

QSize ImageButton::sizeHint() const
{
    QStyleOptionToolButton option;
    initStyleOption(&option);
    QSize content = iconSize();
    if (!text().isEmpty()) {
        content.rwidth() += textGap + fontMetrics().horizontalAdvance(text());
        content.rheight() = std::max(content.height(), fontMetrics().height());
    }
    return style()->sizeFromContents(QStyle::CT_ToolButton, &option, content, this);
}

/// Centres image and text together; a style would align them left.
void ImageButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.icon = {};
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);

    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    const int textWidth = text().isEmpty() ? 0 : textGap + fontMetrics().horizontalAdvance(text());
    const int left = (width() - iconSize().width() - textWidth) / 2;
    const QRect iconRect(QPoint(left, (height() - iconSize().height()) / 2), iconSize());
    // On whole device pixels: a fractional scale would blur it.
    const qreal ratio = devicePixelRatioF();
    const QPointF origin = mapTo(window(), QPoint(0, 0));
    const QPointF corner = (origin + iconRect.topLeft()) * ratio;
    painter.drawPixmap(QPointF(std::round(corner.x()), std::round(corner.y())) / ratio - origin,
                       icon().pixmap(iconSize(), ratio));
    if (!text().isEmpty()) {
        painter.setPen(option.palette.color(QPalette::Normal, QPalette::ButtonText));
        painter.drawText(QRect(iconRect.right() + 1 + textGap, 0, textWidth, height()), Qt::AlignVCenter,
                         text());
    }
}

} // namespace marvo
