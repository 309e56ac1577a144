// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QMessageBox;
class QWidget;

namespace marvo {

/// A warning with one default button, attached to a window. It returns at once; the box deletes itself when
/// it is answered. The box is returned for those who wait for the answer.
QMessageBox* showMessageSheet(QWidget* window, const QString& title, const QString& message);

} // namespace marvo
