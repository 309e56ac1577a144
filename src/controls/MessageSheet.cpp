// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/MessageSheet.h"

#include <QMessageBox>

namespace marvo {

QMessageBox* showMessageSheet(QWidget* window, const QString& title, const QString& message)
{
    auto* box = new QMessageBox(QMessageBox::Warning, title, message, QMessageBox::Ok, window);
    box->setTextFormat(Qt::PlainText);
    box->setWindowModality(Qt::WindowModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return box;
}

} // namespace marvo
