// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QTimer>

namespace marvo {

/// A word over the video for a moment, such as the new volume.
class VideoNotice : public QLabel
{
    Q_OBJECT
public:
    explicit VideoNotice(QWidget* parent);

    void tell(const QString& text);

private:
    QTimer m_gone;
};

} // namespace marvo
