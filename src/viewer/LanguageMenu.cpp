// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "viewer/LanguageMenu.h"

#include "texts/Localisation.h"

#include <QActionGroup>

namespace marvo {

LanguageMenu::LanguageMenu(QWidget* parent) : QMenu(localised("viewer.menu.language"), parent)
{
    setObjectName(QStringLiteral("languageMenu"));
    auto* group = new QActionGroup(this);
    const QString inUse = [] {
        const std::string_view code = interfaceLanguage().row().code;
        return QString::fromLatin1(code.data(), qsizetype(code.size()));
    }();
    const QString chosen = languageChoice().isEmpty() ? inUse : languageChoice();
    const auto add = [&](const QString& title, const QString& choice) {
        QAction* entry = group->addAction(addAction(title));
        entry->setObjectName(QStringLiteral("language.%1").arg(choice));
        entry->setCheckable(true);
        entry->setChecked(choice == chosen);
        connect(entry, &QAction::triggered, this, [this, choice] {
            if (choice == languageChoice())
                return;
            setLanguageChoice(choice);
            Q_EMIT languageChosen();
        });
    };
    for (const LanguageRow& row : languageRows)
        add(QString::fromUtf8(row.ownName), QString::fromLatin1(row.code.data(), qsizetype(row.code.size())));
    addSeparator();
    add(localised("viewer.language.desktop"), QStringLiteral("desktop"));
}

} // namespace marvo
