// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/format/FormatMessages.h"

#include "texts/DisplayText.h"
#include "texts/Localisation.h"

namespace marvo {

QString stepMessage(FormatStep step)
{
    switch (step) {
    case FormatStep::KeepSettings:
        return QStringLiteral("Formatting...");
    case FormatStep::Unmount:
        return QStringLiteral("unmount disk...");
    case FormatStep::Password:
        return QStringLiteral("formatting...");
    case FormatStep::Mount:
        return QStringLiteral("try mount...");
    case FormatStep::Complete:
        return QStringLiteral("Format completed!");
    case FormatStep::Prepare:
    case FormatStep::Write:
    case FormatStep::ReadBack:
        break;
    }
    return {};
}

QString stepDetail(FormatStep step)
{
    switch (step) {
    case FormatStep::KeepSettings:
        return localised("format.step.keep");
    case FormatStep::Unmount:
        return localised("format.step.unmount");
    case FormatStep::Password:
        return localised("format.step.password");
    case FormatStep::Prepare:
        return localised("format.step.prepare");
    case FormatStep::Write:
        return localised("format.step.write");
    case FormatStep::ReadBack:
        return localised("format.step.readback");
    case FormatStep::Mount:
        return localised("format.step.mount");
    case FormatStep::Complete:
        return localised("format.step.restore");
    }
    return {};
}

QString contentsText(const CardContents& contents)
{
    const char* key = contents.countUnknown      ? "format.contents.unknown"
                      : contents.recordings == 0 ? "format.contents.none"
                      : contents.recordings == 1 ? "format.contents.one"
                                                 : "format.contents.many";
    QString recordings = localised(key);
    if (contents.countUnknown && contents.usedBytes == 0)
        return recordings;
    if (!contents.countUnknown && contents.recordings > 1)
        recordings = recordings.arg(contents.recordings);
    return QStringLiteral("%1, %2").arg(recordings, displayText(decimalSizeString(contents.usedBytes)));
}

QString keptText(const std::optional<KeptSettings>& kept)
{
    return kept && !kept->path.empty()
               ? QLatin1Char('\n') + localised("msg.format.kept").arg(displayText(kept->path))
               : QString();
}

QString errorText(const QString& displayString, const QString& message)
{
    return QStringLiteral("%1\nError:%2").arg(displayString, message);
}

QString failureText(const QString& displayString, const FormatFailure& failure,
                    const std::optional<KeptSettings>& kept)
{
    using Kind = FormatFailure::Kind;
    const auto plain = [&](const char* key) {
        return QStringLiteral("%1\n%2").arg(displayString, localised(key));
    };
    const auto text = [&]() -> QString {
        switch (failure.kind) {
        case Kind::WriteProtected:
            return plain("msg.write_protected_disk");
        case Kind::Refused:
            return plain("msg.format.refused");
        case Kind::Dismissed:
            return plain("msg.format.dismissed");
        case Kind::NobodyAsks:
            return plain("msg.format.nobody_asks");
        case Kind::Changed:
            return plain("msg.format.changed");
        case Kind::Removed:
            return plain("msg.format.removed");
        case Kind::Busy:
            return errorText(displayString, localised("msg.format.busy"));
        case Kind::Unsuitable:
            return errorText(displayString, localised("msg.format.unsuitable"));
        case Kind::FormatterMissing:
            return errorText(displayString, localised("msg.format.no_formatter"));
        case Kind::Mismatch:
            return errorText(displayString, localised("msg.format.mismatch"));
        case Kind::Abandoned:
        case Kind::Other:
            break;
        }
        return errorText(displayString, failure.message);
    };
    if (!failure.erased)
        return text();
    if (failure.kind == Kind::Removed)
        return text() + keptText(kept);
    return text() + QLatin1Char('\n') + localised("msg.format.erased") + keptText(kept);
}

} // namespace marvo
