// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/CardContents.h"
#include "card/format/FormatJob.h"

#include <QString>

#include <optional>

namespace marvo {

/// The step's message as the progress display shows it; empty where it keeps the one before.
QString stepMessage(FormatStep step);
/// What is being done in the step, in the user's language.
QString stepDetail(FormatStep step);

/// "118 recordings, 27.4 GB".
QString contentsText(const CardContents& contents);

/// The text of the message after a failed format of the volume; the copy of its settings is named where the
/// card lost them.
QString failureText(const QString& displayString, const FormatFailure& failure,
                    const std::optional<KeptSettings>& kept);

/// A line that tells where the copy lies, after a line end; empty without one.
QString keptText(const std::optional<KeptSettings>& kept);

/// The form of a message with a system's error: "%@\nError:%@".
QString errorText(const QString& displayString, const QString& message);

} // namespace marvo
