// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QMessageBox;
class QWidget;

namespace marvo {

/// Shows a warning-style message attached to a window: the title as its main text, the message below, one
/// button "OK". Returns at once; `dismissed`, if any, is called when the user has closed it. The box deletes
/// itself.
QMessageBox* showAlertSheet(QWidget* window, const QString& title, const QString& message,
                            std::function<void()> dismissed);
QMessageBox* showMessageSheet(QWidget* window, const QString& title, const QString& message);

/// Shows the box's main text and the message below it as plain text: paths and names on a card may look like
/// HTML.
void setPlainMessage(QMessageBox& box, const QString& message);

} // namespace marvo
