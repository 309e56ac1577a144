// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/AccessibleValue.h"

#include <QPointer>
#include <QSlider>

#include <functional>

class QLabel;

namespace marvo {

/// A horizontal slider over real values. It jumps to a click, and has one signal for changes made by the user
/// alone.
class FractionSlider : public QSlider, public AccessibleValueSource
{
    Q_OBJECT
public:
    /// Which keys the slider wants for itself while it has the focus, before the window's shortcuts.
    enum class Keys {
        HomeEndPages, ///< the arrow keys stay with the window
        All,
    };

    /// Values run from 0 to the maximum; a key press moves by singleStep, a page key by pageStep.
    FractionSlider(double maximum, double singleStep, double pageStep, Keys keys, QWidget* parent = nullptr);

    double fraction() const;
    /// Shows a value, clamped to the range, without a signal. While the user drags the knob, the value is
    /// shown after the release.
    void setFraction(double value);
    /// Sets the text of the label above the pointer, by the value there. An empty text shows no label.
    void setHoverText(std::function<QString(double)> text);

    QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    AccessibleValue accessibleValue() const override;
    void requestValue(double value) override;

Q_SIGNALS:
    /// By mouse, wheel or key; the new value is shown already.
    void userMoved(double value);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void moveTo(int position);
    void moveToPoint(int x);
    double valueAt(int x) const;
    void showHover(int x);
    void endHover();
    int knobRadius() const;

    double m_unit;
    Keys m_keys;
    std::function<QString(double)> m_hoverText;
    QPointer<QLabel> m_hover; ///< the window's
    int m_hoverX = -1;
    int m_wheelDelta = 0; ///< of an incomplete step
};

} // namespace marvo
