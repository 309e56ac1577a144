// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/window/SettingsBackups.h"

#include <QDialog>

namespace marvo {

/// Offers the kept copies of earlier settings files, newest first.
class EarlierSettingsDialog : public QDialog
{
    Q_OBJECT
public:
    EarlierSettingsDialog(const std::vector<SettingsBackups::Copy>& copies, QWidget* window);

Q_SIGNALS:
    /// The user has chosen a copy.
    void chosen(const std::string& path);
};

} // namespace marvo
