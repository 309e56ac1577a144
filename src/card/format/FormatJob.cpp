// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/format/FormatJob.h"

#include "card/CardRestoring.h"
#include "card/format/FileSystemImage.h"
#include "card/SystemArea.h"

#include <QLoggingCategory>

#include <array>

namespace marvo {

namespace {

Q_LOGGING_CATEGORY(logFormat, "marvo.format")

using Kind = FormatFailure::Kind;

FormatFailure failureOf(const DeviceError& error)
{
    switch (error.kind) {
    case DeviceError::Kind::Refused:
        return {Kind::Refused, error.message};
    case DeviceError::Kind::Dismissed:
        return {Kind::Dismissed, error.message};
    case DeviceError::Kind::NobodyAsks:
        return {Kind::NobodyAsks, error.message};
    case DeviceError::Kind::WriteProtected:
        return {Kind::WriteProtected, error.message};
    case DeviceError::Kind::Busy:
        return {Kind::Busy, error.message};
    case DeviceError::Kind::Gone:
        return {Kind::Changed, error.message};
    case DeviceError::Kind::Other:
        break;
    }
    return {Kind::Other, error.message};
}

FormatFailure failureOf(const std::error_code& error, bool erased)
{
    return {isWriteProtection(error) ? Kind::WriteProtected : Kind::Other,
            QString::fromStdString(error.message()), erased};
}

QString fileSystemIdIn(ByteSource& image)
{
    std::array<std::byte, FormatPlan::sectorSize> sector{};
    if (image.readAt(0, sector) != sector.size())
        return {};
    const auto boot = readBootSector(sector);
    return boot ? QString::fromStdString(volumeIdText(boot->volumeId)) : QString();
}

} // namespace

FormatJob::FormatJob(DeviceAccess& access, FormattableVolume volume, std::optional<KeptSettings> earlier,
                     std::optional<std::string> seen)
    : m_access(access), m_volume(std::move(volume)), m_kept(std::move(earlier)), m_seen(std::move(seen))
{}

FormatOutcome FormatJob::run(const OnStep& onStep, const std::stop_token& stop)
{
    std::optional<FormatFailure> failure = format(onStep, stop);
    if (failure) {
        if (failure->erased && m_access.identify(m_volume.entity.key()) != m_volume.identity)
            failure->kind = Kind::Removed;
        qCWarning(logFormat, "ERROR=%d %s", static_cast<int>(failure->kind),
                  qUtf8Printable(failure->message));
        m_access.mount(m_volume.entity.key(), {});
    } else {
        qCInfo(logFormat, "ERROR=none");
        onStep(FormatStep::Mount);
        m_access.mount(m_volume.entity.key(), m_fileSystemId);
        onStep(FormatStep::Complete);
    }
    return {std::move(failure), std::move(m_kept)};
}

std::optional<FormatFailure> FormatJob::format(const OnStep& onStep, const std::stop_token& stop)
{
    const FormatFailure abandoned{Kind::Abandoned, {}};
    if (!onStep(FormatStep::KeepSettings))
        return abandoned;
    keepSettings();
    if (!onStep(FormatStep::Unmount) || stop.stop_requested())
        return abandoned;
    if (const auto error = m_access.unmount(m_volume.entity))
        return failureOf(*error);
    if (!onStep(FormatStep::Password) || stop.stop_requested())
        return abandoned;
    // Checked before the password is asked for.
    if (m_access.identify(m_volume.entity.key()) != m_volume.identity)
        return FormatFailure{Kind::Changed, {}};
    if (!makeFormatPlan(m_volume.identity.size))
        return FormatFailure{Kind::Unsuitable, {}};
    DeviceDescriptor device;
    if (const auto error = m_access.openForWriting(m_volume.entity.key(), device))
        return failureOf(*error);
    return write(std::move(device), onStep, stop);
}

std::optional<FormatFailure> FormatJob::write(DeviceDescriptor device, const OnStep& onStep,
                                              const std::stop_token& stop)
{
    const auto facts = descriptorFacts(device.get());
    if (!facts || !isStillTheChosen(*facts))
        return FormatFailure{Kind::Changed, {}};
    if (!facts->writable)
        return FormatFailure{Kind::WriteProtected, {}};
    const auto plan = makeFormatPlan(facts->size, partitionStart(facts->device));
    if (!plan || facts->sectorSize != FormatPlan::sectorSize)
        return FormatFailure{Kind::Unsuitable, {}};

    if (!onStep(FormatStep::Prepare) || stop.stop_requested())
        return FormatFailure{Kind::Abandoned, {}};
    const FileSystemImage made = makeFileSystemImage(*plan, stop);
    if (made.formatterMissing)
        return FormatFailure{Kind::FormatterMissing, {}};
    if (!made.file)
        return FormatFailure{stop.stop_requested() ? Kind::Abandoned : Kind::Other, made.error};

    if (!onStep(FormatStep::Write) || stop.stop_requested())
        return FormatFailure{Kind::Abandoned, {}};
    const auto now = descriptorFacts(device.get());
    if (!now || !isStillTheChosen(*now) || m_access.identify(m_volume.entity.key()) != m_volume.identity)
        return FormatFailure{Kind::Changed, {}};
    DescriptorVolume image(made.file.get());
    DescriptorVolume volume(device.get());
    m_fileSystemId = fileSystemIdIn(image);
    bool erased = false;
    if (const std::error_code error =
            writeSystemArea(image, volume, *plan, [&erased](std::uint64_t) { erased = true; }))
        return failureOf(error, erased);

    onStep(FormatStep::ReadBack);
    const auto fault = checkSystemArea(volume, *plan);
    if (fault || !systemAreaEquals(image, volume, *plan))
        return FormatFailure{Kind::Mismatch, QString::fromStdString(fault.value_or("")), true};
    return std::nullopt;
}

bool FormatJob::isStillTheChosen(const DescriptorFacts& facts) const
{
    const DeviceIdentity& chosen = m_volume.identity;
    return facts.device == chosen.number && facts.size == chosen.size &&
           // A kernel without sequence numbers gives 0 for both.
           facts.sequence == chosen.sequence;
}

void FormatJob::keepSettings()
{
    if (m_kept)
        return;
    std::optional<std::string> bytes;
    if (!m_volume.entity.mountedURL().empty())
        bytes = readCardSettingsFile(m_volume.entity.mountedURL());
    if (!bytes)
        bytes = m_seen;
    if (!bytes)
        return;
    m_kept = KeptSettings{marvo::keepSettings(*bytes).value_or(std::string()), *bytes};
    if (m_kept->path.empty())
        qCWarning(logFormat, "no copy of config.bin could be kept");
}

} // namespace marvo
