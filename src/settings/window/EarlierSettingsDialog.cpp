// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/EarlierSettingsDialog.h"

#include "texts/Localisation.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace marvo {

EarlierSettingsDialog::EarlierSettingsDialog(const std::vector<SettingsBackups::Copy>& copies,
                                             QWidget* window)
    : QDialog(window)
{
    setObjectName(QStringLiteral("earlierSettingsDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setWindowTitle(localised("setting.earlier.title"));

    auto* guide =
        new QLabel(localised(copies.empty() ? "setting.earlier.none" : "setting.earlier.guide"), this);
    guide->setWordWrap(true);
    auto* list = new QListWidget(this);
    list->setObjectName(QStringLiteral("earlierSettingsList"));
    list->setAccessibleName(windowTitle());
    for (const SettingsBackups::Copy& copy : copies) {
        auto* item = new QListWidgetItem(QLocale().toString(copy.takenAt, QLocale::LongFormat), list);
        item->setData(Qt::UserRole, QFile::decodeName(copy.path.c_str()));
    }
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* use = buttons->addButton(localised("setting.earlier.use"), QDialogButtonBox::AcceptRole);
    buttons->addButton(localised("cancel"), QDialogButtonBox::RejectRole);
    use->setEnabled(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(guide);
    layout->addWidget(list);
    layout->addWidget(buttons);
    resize(420, 320);

    connect(list, &QListWidget::itemSelectionChanged, use,
            [list, use] { use->setEnabled(list->currentItem() != nullptr); });
    connect(list, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::accepted, list, [this, list] {
        if (const QListWidgetItem* item = list->currentItem())
            Q_EMIT chosen(QFile::encodeName(item->data(Qt::UserRole).toString()).toStdString());
    });
    if (list->count() > 0)
        list->setCurrentRow(0);
}

} // namespace marvo
