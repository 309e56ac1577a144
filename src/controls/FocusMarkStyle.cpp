// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/FocusMarkStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace marvo {

FocusMarkStyle::FocusMarkStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void FocusMarkStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    constexpr State reached = State_HasFocus | State_KeyboardFocusChange;
    if (element != CE_PushButton || (option->state & reached) != reached)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(option->palette.color(QPalette::BrightText), 1.5));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(2.5, 2.5, -2.5, -2.5), 2, 2);
    painter->restore();
}

} // namespace marvo
