// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

class WorkControl;

/// Something in an archive that is to be told.
struct ArchiveFinding
{
    enum class What {
        Changed,      ///< other bytes than its sum tells, or no regular file any more
        Missing,      ///< has a sum, but is not there
        Added,        ///< is there, but has no sum
        CannotBeRead, ///< the medium or its rights forbid it
        ListMissing,  ///< a day's list of sums
        ListDamaged,  ///< lines of a day's list that cannot be read
        KeptInPart,   ///< as copied, from a card that did not give more of it
        Deleted,      ///< by the program, as its journal tells
    };
    What what = What::Changed;
    std::string path; ///< from the archive's root on
    std::error_code error;
    std::string time; ///< of Deleted, in UTC
};

struct ArchiveCheckProgress
{
    std::uint64_t bytes = 0;
    std::uint64_t totalBytes = 0;
    std::string_view path;
};

struct ArchiveCheckResult
{
    std::error_code error; ///< why the archive could not be looked at
    bool isCancelled = false;
    std::vector<ArchiveFinding> findings; ///< sorted by path
    std::size_t asCopied = 0;             ///< files with the sum that they were copied with
    std::uint64_t bytes = 0;              ///< of these
    std::size_t unfinished = 0;           ///< temporaries of copies that run or were killed
    std::size_t notReadAgain = 0;         ///< compared, but not with what is on the medium

    /// True when all is as it was copied, or deleted by the program.
    bool holds() const;
};

/// True for findings that say that an archive is not as it was copied.
bool isFault(ArchiveFinding::What what);

/// Compares each file of an archive with its sum, past the system's cache where that can be. Writes nothing.
/// Any thread.
ArchiveCheckResult checkArchive(const std::string& archive, WorkControl& control,
                                const std::function<void(const ArchiveCheckProgress&)>& onProgress = {});

} // namespace marvo
