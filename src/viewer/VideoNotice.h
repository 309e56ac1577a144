// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QTimer>

#include <chrono>

namespace marvo {

/// A word over the video for a moment, such as the new volume.
class VideoNotice : public QLabel
{
    Q_OBJECT
public:
    explicit VideoNotice(QWidget* parent);

    void tell(const QString& text, std::chrono::milliseconds shownFor = std::chrono::milliseconds(1200));

private:
    QTimer m_gone;
};

/// Why there is no picture: a text in the middle of the video area that stays until it no longer holds.
class VideoReason : public QLabel
{
    Q_OBJECT
public:
    explicit VideoReason(QWidget* parent);

    void tell(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();
};

} // namespace marvo
