// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFileDialog>

class QLabel;

namespace marvo {

/// Asks where to save a captured picture. Files are never replaced: while the name is one that exists, a line
/// below says so.
class CaptureSaveDialog : public QFileDialog
{
    Q_OBJECT
public:
    explicit CaptureSaveDialog(QWidget* parent);

private:
    void showWhetherTaken();

    QLabel* m_takenLabel;
};

} // namespace marvo
