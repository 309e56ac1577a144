// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/AccessibleValue.h"
#include "controls/ProgressEstimate.h"

#include <QBasicTimer>
#include <QLabel>
#include <QPointer>
#include <QWidget>

#include <chrono>
#include <cstdint>
#include <functional>

namespace marvo {

/// A progress bar with an optional text beside it: the percentage done and the remaining time.
///
/// A determinate bar shows a value between a minimum and a maximum; an indeterminate one only that work goes
/// on, by a light that glides along it while the animation runs. Nothing ticks while the bar is not visible.
class PMProgressIndicator : public QWidget, public AccessibleValueSource
{
    Q_OBJECT
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    explicit PMProgressIndicator(QWidget* parent = nullptr, Clock clock = std::chrono::steady_clock::now);
    /// Takes the bar off the application's icon.
    ~PMProgressIndicator() override;

    double minValue() const { return m_progress.minimum; }
    double maxValue() const { return m_progress.maximum; }
    void setMinValue(double minimum);
    void setMaxValue(double maximum);

    /// Shows a value, clamped to the bar's range, and updates the text. A value whose integer part is that of
    /// the last one is ignored, and so is NaN. For the application's icon see setDrawDockProgress().
    void setDoubleValue(double value);
    double doubleValue() const { return m_progress.value; }
    /// The part done, 0 to 1.
    double fraction() const { return m_progress.fraction(); }

    /// Whether the bar is also drawn on the application's icon. While it is on, which it is from the start, a
    /// new value puts the bar there, and a fraction of 0 or 1 takes it away again. Setting it puts the bar
    /// there at once, or takes it away; that is for work of unknown length, which has no values to tell.
    void setDrawDockProgress(bool draw);
    bool drawDockProgress() const { return m_drawDockProgress; }

    void setIndeterminate(bool indeterminate);
    bool isIndeterminate() const { return m_indeterminate; }
    void startAnimation();
    void stopAnimation();
    bool isAnimating() const { return m_animating; }

    /// Where the text goes; none takes it away. The label is not owned.
    void setProgressText(QLabel* label) { m_progressText = label; }
    QLabel* progressText() const { return m_progressText; }
    /// Writes the text anew, now.
    void updateProgressText();

    bool displayPercentage() const { return m_displayPercentage; }
    void setDisplayPercentage(bool display) { m_displayPercentage = display; }
    bool displayTimeRemaining() const { return m_displayTimeRemaining; }
    void setDisplayTimeRemaining(bool display) { m_displayTimeRemaining = display; }

    QSize sizeHint() const override { return {200, 6}; }
    QSize minimumSizeHint() const override { return {24, 4}; }

    QAccessible::Role accessibleRole() const override { return QAccessible::ProgressBar; }
    AccessibleValue accessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QString percentageText() const;
    void updateDock();
    void redrawDock() const;
    void runAnimation();

    Clock m_clock;
    ProgressEstimate::Progress m_progress;
    ProgressEstimate m_estimate;
    QPointer<QLabel> m_progressText;
    QBasicTimer m_ticks;
    std::chrono::steady_clock::time_point m_animationStart;
    std::int32_t m_lastValue = 0; ///< integer part of the value shown last
    bool m_drawDockProgress = true;
    bool m_displayPercentage = false;
    bool m_displayTimeRemaining = true;
    bool m_indeterminate = false;
    bool m_animating = false;
};

} // namespace marvo
