// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/MessageSheet.h"

#include <QMessageBox>
#include <QPushButton>

namespace marvo {

QMessageBox* showAlertSheet(QWidget* window, const QString& title, const QString& message,
                            std::function<void()> dismissed)
{
    auto* box = new QMessageBox(QMessageBox::Warning, title, title, QMessageBox::Ok, window);
    box->setObjectName(QStringLiteral("messageSheet"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    // Paths and texts of the card's own are shown as they stand, whatever tags they seem to hold.
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(message);
    box->button(QMessageBox::Ok)->setText(QStringLiteral("OK"));
    if (dismissed)
        QObject::connect(box, &QMessageBox::finished, window,
                         [dismissed = std::move(dismissed)] { dismissed(); });
    box->open();
    return box;
}

QMessageBox* showMessageSheet(QWidget* window, const QString& title, const QString& message)
{
    return showAlertSheet(window, title, message, {});
}

} // namespace marvo
