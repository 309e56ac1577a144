// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace marvo {

/// A text field for the vehicle number. What the camera cannot keep (see keptCarNumber) is dropped without a
/// message when editing ends: before anybody else hears editingFinished or returnPressed.
class MRVCarNumberTextField : public QLineEdit
{
    Q_OBJECT
public:
    explicit MRVCarNumberTextField(QWidget* parent = nullptr);

private:
    void keepAllowedCharacters();
};

} // namespace marvo
