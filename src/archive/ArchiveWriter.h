// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/Archive.h"
#include "support/Termination.h"

#include <cstdint>
#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace marvo {

class WorkControl;

/// What became of one file in one archive.
struct PlacedFile
{
    enum class Result {
        Placed,  ///< written, read back, renamed
        There,   ///< was there already, with the same sum
        Refused, ///< the archive cannot hold it; the error tells why
        Differs, ///< reads back other than written, twice
    };
    std::string cardPath;
    std::string path; ///< from the archive's root on; empty when there is none
    std::uint64_t size = 0;
    Sha256Sum sum{};
    Result result = Result::Placed;
    bool isPartial = false;
    bool isReadPastCache = true; ///< the reading back came from the medium
    std::error_code error;
};

/// Puts files of one card into one archive, a day's folder at a time.
///
/// A file goes to a temporary of the day's folder. Small ones are gathered: commit() syncs them, reads them
/// back, writes their sums down and renames them. So at any moment each file of the archive is whole and has
/// a sum.
class ArchiveWriter
{
public:
    ArchiveWriter(std::string car, WorkControl& control);
    ~ArchiveWriter();

    /// Opens the archive and puts right what a killed copy left.
    std::error_code open(const std::string& path);
    const Archive& archive() const { return m_archive; }

    /// Goes on with another day's folder, such as "2026/2026-11-23". What was gathered is committed before.
    std::error_code enterDay(const std::string& dayFolder, std::vector<PlacedFile>& results);

    /// True when the day has a file of this path on the card and this size in its list, and if a sum is given
    /// with this sum.
    bool holds(std::string_view cardPath, std::uint64_t size, const Sha256Sum* sum = nullptr) const;

    /// Begins the temporary of a file.
    std::error_code begin();
    std::error_code write(std::span<const std::byte> bytes);
    /// The temporary has all its bytes; it waits for commit().
    void finish(std::string cardPath, const Sha256Sum& sum, const timespec& accessed,
                const timespec& modified, bool isPartial);
    /// Removes the temporary that was begun.
    void discard();
    /// True when so much is gathered that commit() is due.
    bool isFull() const;
    /// An error is one of the archive as a whole.
    std::error_code commit(std::vector<PlacedFile>& results);
    /// Puts the sums of what was placed into the day's list.
    std::error_code merge();

private:
    struct Staged
    {
        std::string name; ///< of the temporary
        Descriptor file;
        TemporaryNote note;
        std::uint64_t size = 0; ///< written so far
        PlacedFile outcome;
        timespec times[2]{};
    };
    /// Where a file can go.
    struct Place
    {
        std::string path; ///< in the day
        bool isThere = false;
        std::error_code error;
    };

    void clearAbandoned();
    std::optional<std::uint64_t> listedSize(const std::string& pathInDay) const;
    std::error_code verify(Staged& staged);
    Place findPlace(const Staged& staged, int& variant);
    std::error_code makeFolders(const std::string& pathInDay);
    bool isNamedSo(const std::string& pathInDay) const;
    std::error_code rename(const Staged& staged, const std::string& pathInDay);
    std::error_code place(Staged& staged, const std::string& chosen, int variant);
    void takePlace(Staged& staged, const std::string& pathInDay, PlacedFile::Result result);
    Sha256Sum prefixSum(const Staged& staged, const std::string& pathInDay, std::uint64_t size) const;
    void removeSupersededPartials(const Staged& staged, const std::string& placed);
    void dropTemporary(Staged& staged);
    std::error_code noteRestored() const;

    std::string m_car;
    WorkControl& m_control;
    Archive m_archive;
    PendingSums m_pending;
    std::string m_day; ///< from the archive's root on; empty before the first
    Descriptor m_dayFolder;
    SumsList m_sums;          ///< of the day, with what was placed since
    int m_highestVariant = 2; ///< at least the highest in the list
    std::map<std::string, Sha256Sum> m_added;
    std::set<std::string> m_removed;
    std::set<std::string> m_knownFolders; ///< of the day, named exactly so
    std::set<std::string> m_touched;      ///< folders of the day to be synced
    std::unique_ptr<Staged> m_current;
    std::vector<std::unique_ptr<Staged>> m_gathered;
    std::uint64_t m_gatheredBytes = 0;
    std::int64_t m_lastMerge = 0; ///< seconds of a steady clock
};

/// True for errors that concern one file's name or size, not the archive.
bool concernsOneFile(const std::error_code& error);

} // namespace marvo
