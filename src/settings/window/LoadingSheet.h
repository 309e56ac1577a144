// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QTimer>

#include <chrono>

class QLabel;

namespace marvo {

class PMProgressIndicator;

/// A small sheet over a window that something is being read. It goes at the next tick after hideLoading(),
/// and by itself after 30 ticks, so that a card that never answers does not hold the window for ever.
class LoadingSheet : public QDialog
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds tickInterval{500};

    explicit LoadingSheet(QWidget* window);

    void showLoading(const QString& title);
    void hideLoading() { m_stopLoadingWindow = true; }

    void reject() override {} ///< what is being read cannot be waved away

private:
    void updateLoadingWindow(double seconds);

    QLabel* m_progressTitleField;
    PMProgressIndicator* m_progressIndicator;
    QTimer m_tick;
    double m_progress = 0;
    bool m_stopLoadingWindow = true;
};

} // namespace marvo
