// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/MessageSheet.h"

#include <QLabel>
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
    setPlainMessage(*box, message);
    box->button(QMessageBox::Ok)->setText(QStringLiteral("OK"));
    if (dismissed)
        QObject::connect(box, &QMessageBox::finished, window,
                         [dismissed = std::move(dismissed)] { dismissed(); });
    box->open();
    return box;
}

void setPlainMessage(QMessageBox& box, const QString& message)
{
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(message);
    // The text format applies to the main text only.
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
}

QMessageBox* showMessageSheet(QWidget* window, const QString& title, const QString& message)
{
    return showAlertSheet(window, title, message, {});
}

} // namespace marvo
