// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <chrono>

namespace marvo {

class CustomWindow;

/// In full screen, takes the pointer and the control bar away when the mouse has rested for some seconds, and
/// brings them back when it moves. A key brings the bar alone. Neither goes while a button is held, a menu or
/// a dialog is open, or the bar itself is in use.
class FullScreenRest : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds restTime{3000};

    FullScreenRest(CustomWindow& window, const QWidget& controlBar,
                   std::chrono::milliseconds timeToRest = restTime);

    bool isBarConcealed() const { return m_barConcealed; }

Q_SIGNALS:
    void barConcealed(bool concealed);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Woken { PointerAndBar, Bar };

    void fullScreenChanged(bool fullScreen);
    void wake(Woken woken);
    void rest();
    bool isInUse() const;
    void setPointerHidden(bool hidden);
    void setBarConcealed(bool concealed);

    CustomWindow& m_window;
    const QWidget& m_controlBar;
    QTimer m_timer;
    QPoint m_lastPoint;
    bool m_barConcealed = false;
};

} // namespace marvo
