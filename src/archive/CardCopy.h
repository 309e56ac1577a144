// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/ArchiveWriter.h"
#include "archive/FileTree.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

class WorkControl;

struct CardCopyOptions
{
    std::string card; ///< its root folder
    std::string car;  ///< isCarName()
    /// One or more; each gets every file. The same folder twice is refused.
    std::vector<std::string> archives;
    std::string cardIdentifier; ///< to remember the car for; may be empty
};

struct CardCopyProgress
{
    std::uint64_t bytes = 0; ///< of the card's files that are done with, or read so far
    std::uint64_t totalBytes = 0;
    std::size_t files = 0;
    std::size_t totalFiles = 0;
    std::string_view path; ///< on the card, of the file being read
};

/// A file of the card that is not, or not wholly, in an archive afterwards, or gives reason to doubt the
/// card.
struct CardCopyProblem
{
    enum class Kind {
        NotAFile,     ///< a link, device, pipe or socket: not followed, not copied
        NotListed,    ///< a folder that cannot be listed, is too deep or another file system
        NotReadable,  ///< not a byte of it can be read
        ReadInPart,   ///< kept as far as the card gave it
        Changing,     ///< it changed while it was read, twice
        DiffersAgain, ///< a second reading gave other bytes: the card is failing
        Refused,      ///< the archive cannot hold it: its name, or its size
        WrittenWrong, ///< the archive's medium gave back other bytes than were written
    };
    std::string path; ///< on the card
    Kind kind = Kind::NotReadable;
    std::string archive; ///< of Refused and WrittenWrong
    std::error_code error;
    std::uint64_t bytesKept = 0; ///< of ReadInPart
};

struct CardCopyResult
{
    enum class End {
        Done, ///< gone through; whether all went well the problems and faults tell
        Cancelled,
        CardGone, ///< the card does not answer any more
        NotBegun, ///< the error tells why
        NoArchive ///< none of the archives could be written to until the end
    };
    struct ArchiveOutcome
    {
        std::string path;
        std::size_t copied = 0;
        std::uint64_t copiedBytes = 0;
        std::size_t there = 0;        ///< files with the same sum that were there already
        std::size_t notReadAgain = 0; ///< compared, but not with what is on the medium
        std::error_code error;        ///< what ended the writing into it
    };
    End end = End::Done;
    std::error_code error;
    std::size_t files = 0; ///< of the card
    std::uint64_t bytes = 0;
    std::vector<ArchiveOutcome> archives;
    std::vector<CardCopyProblem> problems;
    std::uint64_t bytesRead = 0;
    double secondsReading = 0; ///< spent in reading the card

    /// True when every file of the card is in every archive, whole.
    bool isComplete() const;
};

/// Copies every regular file of a card into archives: event recordings first, then day by day. Each file is
/// read once, written to all archives, read back from their media and only then given its name. What an
/// archive has already, by path, size and sum, is read but not written.
///
/// Runs on any thread and takes as long as it takes. Cancelled or killed at any moment it leaves the archives
/// whole; the next copy goes on. The progress is told on the same thread, at most once for each megabyte and
/// file.
CardCopyResult copyCard(const CardCopyOptions& options, WorkControl& control,
                        const std::function<void(const CardCopyProgress&)>& onProgress = {});

/// What identifies the card's file system across mounts, as the system's list of file systems by identifier
/// tells (such as "85C1-AFCB"); empty when it does not know it.
std::string cardIdentifierOf(const std::string& card);

/// The files in the order of copying: event recordings before others, then by day and path.
std::vector<TreeFile> inCopyingOrder(std::vector<TreeFile> files);

/// Why a card and an archive cannot be what they are asked to be; no error when they can. They may not lie
/// within each other.
std::error_code checkApart(int card, int archive);

} // namespace marvo
