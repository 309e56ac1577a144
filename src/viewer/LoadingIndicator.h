// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace marvo {

class PMProgressIndicator;

/// The main window's sign that a recording is being loaded. It goes when it is told to, at its next tick, and
/// by itself after 50 ticks.
class LoadingIndicator : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds tickInterval{300};

    /// The indicator is centred in the box around it. Another interval than tickInterval changes the time
    /// between two ticks, not their number.
    explicit LoadingIndicator(PMProgressIndicator& indicator,
                              std::chrono::milliseconds interval = tickInterval);

    /// The text is what a screen reader tells; the bar itself shows none.
    void showLoading(const QString& text);
    void hideLoading() { m_stopVideoLoadingView = true; }
    bool stopVideoLoadingView() const { return m_stopVideoLoadingView; }
    /// 0 to 100.
    double progress() const { return m_progress; }

private:
    void updateLoadingWindow(double seconds);

    PMProgressIndicator& m_indicator;
    QTimer m_tick;
    double m_progress = 0;
    bool m_stopVideoLoadingView = false;
};

} // namespace marvo
