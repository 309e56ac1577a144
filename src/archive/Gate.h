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

/// Why a card may not be formatted.
struct GateFinding
{
    enum class Why {
        NotInArchive,  ///< no file with these bytes at its places in the archive; kept in part is not enough
        CannotBeRead,  ///< on the card
        FromCache,     ///< on the card: cannot be read past the system's cache
        NotAFile,      ///< a link or device, of which the archive has nothing
        NotListed,     ///< a folder of the card
        ChangedSince,  ///< while the gate looked: changed, new or gone
        CardExchanged, ///< another medium answers at the card's folder
    };
    Why why = Why::NotInArchive;
    std::string path;    ///< on the card; empty for the card as a whole
    std::string archive; ///< of NotInArchive
    std::error_code error;
};

struct GateProgress
{
    std::uint64_t bytes = 0; ///< of the card's
    std::uint64_t totalBytes = 0;
    std::string_view path;
};

struct GateResult
{
    std::error_code error; ///< why nothing could be compared
    bool isCancelled = false;
    std::vector<GateFinding> findings;
    std::size_t files = 0;
    std::uint64_t bytes = 0;
    /// Of the archive's files, not read from their medium since the file system does not allow it.
    std::size_t archiveFromCache = 0;
    /// deviceIdentityOf() the card: who formats compares it at the last moment. Empty where there is none.
    std::string device;

    /// True when each byte of the card is in every archive.
    bool isOpen() const { return !error && !isCancelled && findings.empty(); }
};

/// Compares a card with the archives that it was copied to, before it is formatted; the card is the root of
/// its file system, or more than was compared would be lost: lists it afresh, reads each file past the
/// system's cache, and reads the archives' files back in the same way. Lists of sums and what earlier copies
/// found do not count. At the end the card is listed again. Writes nothing. Any thread.
GateResult compareWithArchives(const std::string& card, const std::string& car,
                               const std::vector<std::string>& archives, WorkControl& control,
                               const std::function<void(const GateProgress&)>& onProgress = {});

/// What tells the medium under a folder from another one that is put in its place: device number and, where
/// the system counts them, the number of the medium in its slot. Empty for what is no block device.
std::string deviceIdentityOf(const std::string& folder);

} // namespace marvo
