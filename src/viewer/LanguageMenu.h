// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace marvo {

/// Offers the interface's languages, and the desktop's own. A choice is kept for the next start.
class LanguageMenu : public QMenu
{
    Q_OBJECT
public:
    explicit LanguageMenu(QWidget* parent);

Q_SIGNALS:
    /// Another choice than before has been kept.
    void languageChosen();
};

} // namespace marvo
