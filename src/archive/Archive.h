// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/SumsList.h"
#include "support/Descriptor.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

class WorkControl;

/// One line of an archive's journal of deletions.
struct DeletionEntry
{
    std::string time; ///< UTC, "2026-11-23T08:30:00Z"
    /// Deleted: the program removed the file. Kept: it could not after all. Restored: it was copied anew.
    enum class What { Deleted, Kept, Restored } what = What::Deleted;
    std::string path; ///< from the archive's root on
    Sha256Sum sum{};
};

/// The folder of an archive, with what the program keeps in its ".marvo":
///
/// - `lock`: locked (flock) while a list of sums is replaced. Without locks on the file system nobody waits.
/// - `pending-*`: sums of files that are about to be renamed to their place and are in no list yet; one for
///   each copy that runs or was killed. So that after a kill at any moment each file has its sum.
/// - `days`: the days' folders, so that one that is missing as a whole is missed.
/// - `deletions`: what the program deleted.
/// - `cards`: which car's folder a card was copied to.
/// - `transfers/`: a log of each copy.
///
/// Several processes may use an archive at once. One object is for one thread.
class Archive
{
public:
    enum class Mode { Read, Write };
    /// Opens the folder; for writing it is made when it is missing, but not the folders above it, which would
    /// hide that a disk is not mounted.
    std::error_code open(const std::string& path, Mode mode);

    int folder() const { return *m_folder; }
    /// ".marvo"; negative when there is none.
    int ownFolder() const { return *m_own; }
    const std::string& path() const { return m_path; }

    /// Waits for the lock, which lasts as long as the descriptor. Gives no descriptor where the file system
    /// has no locks. Fails with timed_out after a minute and with operation_canceled.
    std::error_code lock(WorkControl& control, Descriptor& held) const;

    /// Reads the list of a day's folder; the path is one from the archive's root on.
    std::error_code readSums(const std::string& day, SumsList& sums) const;
    /// Adds lines to the list of a day's folder and removes others, under the lock. Lines of other processes
    /// stay.
    std::error_code mergeSums(const std::string& day, const std::map<std::string, Sha256Sum>& added,
                              const std::set<std::string>& removed, WorkControl& control) const;
    std::set<std::string> knownDays() const;

    std::error_code appendDeletions(const std::vector<DeletionEntry>& entries) const;
    std::vector<DeletionEntry> deletions() const;

    /// The car's folder that a card was copied to last; empty when it was not yet.
    std::string carOfCard(std::string_view cardIdentifier) const;
    std::error_code rememberCar(std::string_view cardIdentifier, std::string_view car) const;

    /// Appends a line to a file of the own folder, on its own line even behind a torn one.
    std::error_code appendLine(const char* file, std::string_view line) const;

private:
    std::string m_path;
    Descriptor m_folder;
    Descriptor m_own;
};

/// The paths and sums of all `pending-*` of an archive, also of those that other processes are writing.
SumsList pendingSums(const Archive& archive);

/// The sums that one copy has pending.
class PendingSums
{
public:
    /// Makes the file. What killed copies left pending is put into the lists before, as far as the files are
    /// what their sums tell.
    std::error_code open(const Archive& archive, WorkControl& control);
    ~PendingSums();

    std::error_code add(std::string_view pathInArchive, const Sha256Sum& sum);
    /// Makes sure that what was added is on the medium.
    std::error_code sync();
    /// All that was added is in the lists now.
    std::error_code clear();
    bool isEmpty() const { return m_isEmpty; }

private:
    void recover(const Archive& archive, WorkControl& control);

    int m_own = -1;
    std::string m_name;
    Descriptor m_file;
    bool m_isEmpty = true;
};

/// Writes all bytes at the descriptor's position.
std::error_code writeFully(int file, std::string_view bytes);

/// Makes sure that names in a folder are on the medium; file systems that cannot are no error.
std::error_code syncFolder(int folder);

/// ".marvo-" and 16 random hexadecimal digits; empty when the system gives no random bytes.
std::string unpredictableName();

/// Now in UTC: "2026-11-23T08:30:00Z".
std::string utcTimeText();

} // namespace marvo
