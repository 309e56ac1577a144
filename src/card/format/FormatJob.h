// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "card/disks/DeviceAccess.h"

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <system_error>

namespace marvo {

/// The steps of formatting, in their order.
enum class FormatStep {
    KeepSettings, ///< the camera's settings are copied to the computer
    Unmount,
    Password, ///< the system asks for it
    Prepare,  ///< the new file system is made in memory
    Write,    ///< from here on the card's content is lost
    ReadBack,
    Mount,
    Complete
};

/// The settings that a card held before.
struct KeptSettings
{
    std::string path; ///< of the copy on the computer; empty when none could be made
    std::string bytes;
};

struct FormatFailure
{
    enum class Kind {
        Abandoned,
        WriteProtected,
        Refused,
        Dismissed,
        NobodyAsks,
        Busy,
        Changed,          ///< another card, or none, is where the chosen one was
        Removed,          ///< the card went while it was being written
        Unsuitable,       ///< no FAT32 can be made on a volume like this
        FormatterMissing, ///< mkfs.fat is not installed
        Mismatch,         ///< what was written reads back differently
        Other
    };
    Kind kind = Kind::Other;
    QString message;     ///< the system's own words, if any
    bool erased = false; ///< writing had begun
};

/// How a job ended.
struct FormatOutcome
{
    std::optional<FormatFailure> failure;
    std::optional<KeptSettings> kept;

    /// Of a job that ran out of memory at an unknown step, so that the card counts as erased.
    static FormatOutcome outOfMemory()
    {
        const std::error_code error = std::make_error_code(std::errc::not_enough_memory);
        return {FormatFailure{FormatFailure::Kind::Other, QString::fromStdString(error.message()), true}, {}};
    }
};

/// Formats one volume: keeps its settings, unmounts it, writes the new file system, reads it back and mounts
/// it. What it held is untouched until the step Write; after a failure before that it is mounted again.
class FormatJob
{
public:
    /// Called before each step, on the job's thread. Returning false ends the job, up to the step Write.
    using OnStep = std::function<bool(FormatStep)>;

    /// The access must outlive the job. Earlier settings, kept from the same card by a job that failed, count
    /// for more than what that job has left on it. Those seen on the card before the user agreed stand in
    /// where it no longer gives them.
    FormatJob(DeviceAccess& access, FormattableVolume volume, std::optional<KeptSettings> earlier,
              std::optional<std::string> seen);

    /// May take minutes: not for the main thread.
    FormatOutcome run(const OnStep& onStep, const std::stop_token& stop);

private:
    std::optional<FormatFailure> format(const OnStep& onStep, const std::stop_token& stop);
    std::optional<FormatFailure> write(DeviceDescriptor device, const OnStep& onStep,
                                       const std::stop_token& stop);
    bool isStillTheChosen(const DescriptorFacts& facts) const;
    void keepSettings();

    DeviceAccess& m_access;
    FormattableVolume m_volume;
    std::optional<KeptSettings> m_kept;
    std::optional<std::string> m_seen;
    QString m_fileSystemId; ///< of the new file system
};

} // namespace marvo
