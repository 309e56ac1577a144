// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/UnsavedChanges.h"

#include "controls/MessageSheet.h"
#include "texts/Localisation.h"

#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace marvo {

void askAboutUnsavedChanges(QWidget& window, std::function<void()> save, std::function<void()> discard)
{
    auto* box = new QMessageBox(QMessageBox::Question, QStringLiteral("MARVO"),
                                localised("setting.unsaved.question"), QMessageBox::NoButton, &window);
    box->setObjectName(QStringLiteral("unsavedSheet"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    setPlainMessage(*box, localised("setting.unsaved.guide"));
    const auto add = [box](const char* name, const char* key, QMessageBox::ButtonRole role) {
        QPushButton* button = box->addButton(localised(key), role);
        button->setObjectName(QLatin1String(name));
        return button;
    };
    QPushButton* saveButton = add("saveChangesButton", "save", QMessageBox::AcceptRole);
    add("discardChangesButton", "setting.unsaved.discard", QMessageBox::DestructiveRole);
    box->setEscapeButton(add("keepEditingButton", "cancel", QMessageBox::RejectRole));
    box->setDefaultButton(saveButton);
    QObject::connect(box, &QMessageBox::buttonClicked, &window,
                     [box, save = std::move(save), discard = std::move(discard)](QAbstractButton* button) {
                         const QMessageBox::ButtonRole role = box->buttonRole(button);
                         if (role == QMessageBox::AcceptRole)
                             save();
                         else if (role == QMessageBox::DestructiveRole)
                             discard();
                     });
    box->open();
}

} // namespace marvo
