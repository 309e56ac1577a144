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

/// A small sheet that tells that the window reads or writes something. It closes at the next tick after
/// hideLoading(). It also closes 30 ticks after the last progress, so that a card that never answers does not
/// block the window for ever.
class LoadingSheet : public QDialog
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds tickInterval{500};

    explicit LoadingSheet(QWidget* window);

    /// With `cancel`, the sheet has a Cancel button that calls it. Without, the user cannot close the sheet.
    void showLoading(const QString& title, std::function<void()> cancel = {});
    /// The percentage done, 0 to 100. Until the first call the bar is indeterminate. No effect once the sheet
    /// has closed.
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
