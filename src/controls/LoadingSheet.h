// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QTimer>

#include <chrono>
#include <functional>

class QLabel;
class QPushButton;

namespace marvo {

class PMProgressIndicator;

/// A small sheet over a window that something is being read or written. It goes at the next tick after
/// hideLoading(), and by itself 30 ticks after the last sign of life, so that a card that never answers does
/// not hold the window for ever.
class LoadingSheet : public QDialog
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds tickInterval{500};

    explicit LoadingSheet(QWidget* window);

    /// With something to call for it, the sheet offers to cancel; else it cannot be waved away.
    void showLoading(const QString& title, std::function<void()> cancel = {});
    /// How much is done, 0 to 100: a sign of life. Until then the sheet shows only that work goes on. Nothing
    /// once the sheet has gone.
    void setProgress(double percent);
    void hideLoading() { m_stopLoadingWindow = true; }

    void reject() override;

private:
    void updateLoadingWindow(double seconds);

    QLabel* m_progressTitleField;
    PMProgressIndicator* m_progressIndicator;
    QPushButton* m_cancelButton;
    std::function<void()> m_cancel;
    QTimer m_tick;
    int m_ticks = 0;
    bool m_stopLoadingWindow = true;
};

} // namespace marvo
