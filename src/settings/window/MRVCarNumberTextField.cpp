// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "settings/window/MRVCarNumberTextField.h"

#include "settings/CarNumber.h"

namespace marvo {

MRVCarNumberTextField::MRVCarNumberTextField(QWidget* parent) : QLineEdit(parent)
{
    // Slots run in the order of connection: these run before those of the field's users.
    connect(this, &QLineEdit::returnPressed, this, &MRVCarNumberTextField::keepAllowedCharacters);
    connect(this, &QLineEdit::editingFinished, this, &MRVCarNumberTextField::keepAllowedCharacters);
}

void MRVCarNumberTextField::keepAllowedCharacters()
{
    const QString kept = keptCarNumber(text());
    if (kept != text())
        setText(kept);
}

} // namespace marvo
