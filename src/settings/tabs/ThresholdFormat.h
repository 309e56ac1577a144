// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QValidator>

#include <cstdint>

namespace marvo {

/// A stored impact threshold, in hundredths of g, as "0.55"; the same in every language.
QString thresholdText(std::int32_t hundredths);

/// The form "0.00" of a field for an impact threshold. Any text can be typed: it is checked when the tab is
/// left. When editing ends, a number of at most two decimals is formatted.
class ThresholdFormat : public QValidator
{
    Q_OBJECT
public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override;
    void fixup(QString& text) const override;
};

} // namespace marvo
