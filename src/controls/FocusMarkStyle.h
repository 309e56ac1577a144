// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace marvo {

/// The Fusion style with a focus frame inside push buttons. Fusion marks the focus with the outline that the
/// default button always has.
class FocusMarkStyle : public QProxyStyle
{
    Q_OBJECT
public:
    FocusMarkStyle();

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

} // namespace marvo
