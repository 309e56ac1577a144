// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace marvo {

/// The Fusion style with a frame in a push button that has the keyboard. Its own mark is the outline that the
/// default button has all the time.
class FocusMarkStyle : public QProxyStyle
{
    Q_OBJECT
public:
    FocusMarkStyle();

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

} // namespace marvo
