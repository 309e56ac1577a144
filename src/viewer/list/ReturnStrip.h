// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <cstdint>

class QPushButton;

namespace marvo {

class ImageButton;
class MRVMedia;

/// The strip below the recording list that offers to go on where watching a folder was left.
class ReturnStrip : public QWidget
{
    Q_OBJECT
public:
    explicit ReturnStrip(QWidget* parent = nullptr);

    void offer(const MRVMedia& media, std::int64_t timeMs);

Q_SIGNALS:
    void accepted();
    /// One of its buttons was pressed: the keyboard needs another place.
    void left();

private:
    QPushButton* m_return;
};

} // namespace marvo
